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
/// for saving first, those too that could not be saved before. Where a stored number names nothing,
/// nothing is chosen, and what is not chosen is not written.
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
  /// Shows the configuration at that position of the list; none at -1.
  void ShowConfiguration(int position);
  /// The list position that a setting of the section "BuildCommon" stands for, -1 for none.
  [[nodiscard]] int StoredPosition(std::string_view key, int count) const;

  PageServices services_;
  bool loading_ = false;
  int shownPosition_ = -1;  ///< list position of the configuration in the grid, -1 for none

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
