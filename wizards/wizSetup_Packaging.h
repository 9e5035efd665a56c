// The wizard's page for what the finished setup consists of, and for what stands in its way.
#pragma once

#include <array>

#include "findings/CheckRun.h"
#include "tools/desktop/wizard/WizardOptionPage.h"
#include "wizards/BuildSetup.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLayout;
class QPushButton;

namespace findings {
class FindingsList;
}

namespace wizards {

/// Edits "makezip", "includeexe" and "includetessel" in check boxes: "1" checked, "0" not;
/// "compression" in a list, for archives only: "fast", "normal" or "small". `cmdAsLastTime` sets
/// the boxes as at the last build of the version. While the page is shown, the version is checked
/// in the background for a build with the options chosen: `lsvFindings` lists what is found.
/// Choosing a row closes the wizard and opens the place of that finding.
class wizSetup_Packaging : public tools::WizardOptionPage {
  Q_OBJECT

 public:
  /// For the version in slot `versionIndex`. The references must outlive the page.
  wizSetup_Packaging(const BuildServices& services, model::VersionSlot versionIndex,
                     findings::ChosenPlace& chosen, tools::WizardDataStore& DataStore,
                     QWidget* parent);

  void ShowValues() override;

 protected:
  void hideEvent(QHideEvent* event) override;

 private:
  struct Option {
    QCheckBox* box;
    const char* value;
  };

  Option AddOption(const QString& name, const std::string& text, const char* value);
  [[nodiscard]] QLayout* MakeCompressionLine();
  void AddFindings();
  void ShowOptions();
  void SetAsLastTime();
  void StartCheck();
  void ShowFindings(const std::vector<engine::BuildMessage>& messages);
  void ChoosePlace(const findings::ChosenPlace& place);

  const BuildServices& services_;
  model::VersionSlot versionIndex_;
  findings::ChosenPlace& chosen_;
  tools::WizardDataStore lastTime_;  ///< of the last build; empty when there was none
  std::array<Option, 3> options_{};
  QComboBox* cboCompression_ = nullptr;
  QPushButton* cmdAsLastTime_;
  QLabel* lblCheck_ = nullptr;
  findings::FindingsList* lsvFindings_ = nullptr;
  findings::CheckRun check_;
};

}  // namespace wizards
