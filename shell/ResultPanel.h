// The panel below the pages that tells what the last build or check came to.
#pragma once

#include <QDockWidget>
#include <map>
#include <string>

#include "engine/Build.h"
#include "findings/CheckRun.h"
#include "findings/FindingsList.h"
#include "tools/Dialogs.h"

class QLabel;
class QPushButton;

namespace findings {
class FindingsList;
}

namespace shell {

/// `lblOutcome` and `lblFacts` tell it in words; `lsvFindings` lists errors and warnings. Hidden
/// until there is something to tell; the author may close it.
class ResultPanel : public QDockWidget {
  Q_OBJECT

 public:
  /// `dialogs` must outlive the panel.
  ResultPanel(tools::Dialogs& dialogs, QWidget* parent);

  /// Shows what a build of the version with this text came to.
  void ShowBuild(const engine::BuildResult& result, const std::string& version);
  /// Checks a version as it is stored, in the background, and shows what is found.
  void Check(const findings::CheckRequest& request, const std::string& version,
             bool hasUnsavedPages);
  /// True when there is something that the hidden panel can be shown again for.
  [[nodiscard]] bool HasResult() const { return version_ != 0; }
  /// The version in this slot is gone: clears the panel if it tells of that one.
  void Forget(model::VersionSlot version);
  /// Forgets everything and hides.
  void Clear();

 Q_SIGNALS:
  /// The place of a finding about the version in this slot was chosen.
  void PlaceChosen(model::VersionSlot version, const findings::ChosenPlace& place);
  /// The version in this slot is to be built as at the last time.
  void BuildAgainWanted(model::VersionSlot version);

 private:
  /// Of a version, where it still lies.
  struct LastSetup {
    std::string version;  ///< the version's text
    std::string folder;
  };

  QPushButton* AddButton(const char* name, const std::string& text);
  void BringUp(model::VersionSlot version, const QString& outcome, const QString& facts);
  /// The panel opens as high as what it tells, as far as the pages leave it the room, and grows
  /// with it. It keeps a greater height, which the author may have chosen.
  void FitHeight();
  void Withdraw();
  void KeepSetup(const engine::BuildResult& result);
  /// Of the last setup of the version that is told about; empty when there is none.
  [[nodiscard]] std::string SetupFolder() const;
  void ShowFindings(const std::vector<engine::BuildMessage>& messages);

  tools::Dialogs& dialogs_;
  model::VersionSlot version_ = 0;  ///< slot of the version that is told about; 0: none
  std::string versionText_;
  bool isFitted_ = false;
  QString checkNote_;  ///< what the check that runs does not see
  std::map<model::VersionSlot, LastSetup> setups_;
  QWidget* content_;
  QLabel* lblOutcome_;
  QLabel* lblFacts_;
  QWidget* buttons_;
  QPushButton* cmdOpenFolder_;
  QPushButton* cmdShowLog_;
  QPushButton* cmdCompare_;
  QPushButton* cmdBuildAgain_;
  findings::FindingsList* lsvFindings_;
  findings::CheckRun check_;
};

}  // namespace shell
