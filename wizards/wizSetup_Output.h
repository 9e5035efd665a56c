// The wizard's page for the output folder.
#pragma once

#include <optional>
#include <string>

#include "engine/ProtectedPlaces.h"
#include "model/ModProject.h"
#include "tools/Dialogs.h"
#include "tools/desktop/wizard/WizardOptionPage.h"

class QFormLayout;
class QLabel;
class QLineEdit;

namespace wizards {

/// Edits "folder" in `txtFolder`, with `cmdBrowse` beside it, and shows what will be built and
/// where. `lblFolderWarning` says in place when the build would refuse the folder, or delete files
/// in it.
class wizSetup_Output : public tools::WizardOptionPage {
  Q_OBJECT

 public:
  /// For the version in slot `versionIndex`; `programFolder` is the one of this program. The
  /// references must outlive the page.
  wizSetup_Output(const model::ModProject& project, model::VersionSlot versionIndex,
                  std::string programFolder, tools::Dialogs& dialogs,
                  tools::WizardDataStore& DataStore, QWidget* parent);

  void ShowValues() override;

 private:
  QWidget* MakeFolderRow();
  QWidget* MakeOverview();
  QLineEdit* AddOverviewRow(QFormLayout& rows, const QString& title, const QString& name);
  /// The language as the overview names it: the chosen one, else that of the configuration.
  [[nodiscard]] std::string Language() const;
  void BrowseForFolder();
  void TakeFolder();
  void ShowFolder();
  /// Shows the value, or that there is none.
  static void Show(QLineEdit& place, const std::string& value);
  void Warn(const std::string& text);

  const model::ModProject& project_;
  model::VersionSlot versionIndex_;
  std::string programFolder_;
  tools::Dialogs& dialogs_;
  std::optional<engine::ProtectedPlaces> places_;
  QLineEdit* txtFolder_;
  QWidget* fraFolderWarning_;
  QLabel* lblFolderWarning_;
  QLineEdit* txtOverviewProduct_;
  QLineEdit* txtOverviewVersion_;
  QLineEdit* txtOverviewConfiguration_;
  QLineEdit* txtOverviewLanguage_;
  QLineEdit* txtOverviewFolder_;
};

}  // namespace wizards
