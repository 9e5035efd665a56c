// A version's page of its installer type and build configurations.
#pragma once

#include <cstdint>
#include <string>

#include "grid/ctlPropertyEditor.h"
#include "pages/PageRegistry.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QPlainTextEdit;

namespace pages {

/// Reads and writes the version's file: section "BuildCommon" with "InstallerType" and
/// "ActiveConfig", and per configuration n section "Build<n>" with "OutputFolder" and "Locale".
/// Choosing another configuration stores it as the active one at once; unsaved changes are offered
/// for saving first.
class tabBuildOptions : public EditorPage {
  Q_OBJECT

 public:
  tabBuildOptions(const PageServices& services, QWidget* parent);

  [[nodiscard]] std::string Title() const override;
  void ReadSettings() override;

 protected:
  void WriteSettings() override;

 private:
  void BuildInstallerType();
  void BuildConfiguration();
  void ConnectEvents();
  void ChangeInstallerType();
  /// Handles the author's choice in the list of configurations.
  void ChangeConfiguration();
  /// Saves unsaved changes if the author agrees; false when the author does not.
  [[nodiscard]] bool SaveBeforeChange();
  void ShowConfiguration();
  /// The number of the configuration chosen; 0 when none is.
  [[nodiscard]] std::int32_t Configuration() const;
  /// The list position that a setting of the section "BuildCommon" stands for, -1 for none.
  [[nodiscard]] int StoredPosition(std::string_view key, int count) const;

  PageServices services_;
  bool loading_ = false;

  QLabel* lblInstallerType;
  QComboBox* cmbInstallerType;
  QLabel* lblInstallerTypeDesc;
  QPlainTextEdit* txtInstallerTypeDesc;
  QGroupBox* fraConfiguration;
  QLabel* lblConfiguration;
  QComboBox* cmbConfiguration;
  grid::ctlPropertyEditor* propsConfig;
};

}  // namespace pages
