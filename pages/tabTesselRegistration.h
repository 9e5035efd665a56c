// A version's page for the program's entry in the Tessel runtime's catalogue.
#pragma once

#include <cstdint>
#include <string>

#include "pages/PageRegistry.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace pages {

/// Reads and writes section "Tessel" of the version's file: "Key", "Title", "Type" (1 to 6, 0 for
/// none) and "SubType". The subtypes offered are those that the runtime has on this machine.
class tabTesselRegistration : public EditorPage {
  Q_OBJECT

 public:
  tabTesselRegistration(const PageServices& services, QWidget* parent);

  [[nodiscard]] std::string Title() const override;
  void ReadSettings() override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void WriteSettings() override;
  void SettingsWritten() override { storedSubtype_ = Subtype(); }
  /// A subtype that was chosen from the list.
  [[nodiscard]] bool HoldsQuietEdits() const override { return Subtype() != storedSubtype_; }
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  void BuildControls();
  void ConnectEvents();
  void FillTypes();
  /// Offers the subtypes of the chosen type; the text in the box stays.
  void FillSubtypes();
  /// The number of the chosen type; 0 when none is chosen.
  [[nodiscard]] std::int32_t ChosenType() const;
  [[nodiscard]] std::string Subtype() const;
  void MarkDirty();

  tools::Registry& registry_;
  bool loading_ = false;
  std::string storedSubtype_;  ///< as it was read or written last

  QLabel* lblTesselKey;
  QLineEdit* txtTesselKey;
  QLabel* lblProgramTitle;
  QLineEdit* txtProgramTitle;
  QLabel* lblProgramType;
  QComboBox* cmbProgramType;
  QLabel* lblProgramSubtype;
  QComboBox* cmbProgramSubtype;
};

}  // namespace pages
