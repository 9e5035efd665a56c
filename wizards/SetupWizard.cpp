#include "wizards/SetupWizard.h"

#include <utility>

#include "engine/BuildSetup.h"
#include "model/TextTable.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/WaitCursor.h"
#include "wizards/StoredOptions.h"

namespace wizards {

using model::LoadText;

namespace {

constexpr const char* kLineBreak = "\r\n";

// The log, the message boxes and the busy notice tell the author everything.
class NoStatus : public engine::BuildStatus {
 public:
  void OnMessage(const engine::BuildMessage& /*message*/) override {}
  void OnProgress(const tools::Progress& /*progress*/) override {}
  void OnEnd(const engine::BuildSummary& /*summary*/) override {}
};

tools::WizardPage OptionPage(std::int32_t title, std::int32_t description, const char* next) {
  tools::WizardPage page;
  page.PageTitle = LoadText(title);
  page.PageDescription = LoadText(description);
  page.ForwardStep = next;
  return page;
}

tools::WizardPage IntroPage() {
  tools::WizardPage page;
  page.PageStyle = 1;
  page.PageTitle = LoadText(319);
  page.PageDescription =
      LoadText(320) + kLineBreak + LoadText(321) + kLineBreak + kLineBreak + LoadText(322);
  page.ForwardStep = "configuration";
  return page;
}

tools::WizardPage ReadyPage() {
  tools::WizardPage page;
  page.PageStyle = 3;
  page.PageTitle = LoadText(330);
  page.PageDescription = LoadText(331) + kLineBreak + kLineBreak + LoadText(332);
  page.AllowFinish = true;
  return page;
}

}  // namespace

SetupWizard::SetupWizard(const BuildServices& services, std::int32_t versionIndex,
                         FrameMaker makeFrame)
    : WizardBase(services.dialogs, std::move(makeFrame)),
      services_(services),
      versionIndex_(versionIndex) {}

std::string SetupWizard::Title() { return LoadText(317); }

tools::WizardPage SetupWizard::ShowPage(const std::string& key) {
  if (key == "intro") return IntroPage();
  if (key == "configuration") return OptionPage(324, 325, "output");
  if (key == "output") return OptionPage(326, 327, "packaging");
  if (key == "packaging") return OptionPage(328, 329, "ready");
  if (key == "ready") return ReadyPage();
  return {};
}

std::string SetupWizard::LoadPage(const std::string& key) {
  const std::string name = OptionPageName(key);
  return name.empty() ? name : kOptionPageLibrary + name;
}

void SetupWizard::FillDataStore(tools::WizardDataStore& store) {
  const StoredOptions stored(services_.project, versionIndex_);
  const std::int32_t active = stored.ActiveConfiguration();
  store["installertype"] = stored.InstallerType();
  store["language"] = "";
  store["config"] = std::to_string(active);
  store["folder"] = stored.Of(active).folder;
  store["makezip"] = "";
  store["includeexe"] = "";
  store["includetessel"] = "";
}

void SetupWizard::Finish(tools::WizardStructure& ParentWizard) {
  tools::Guard(Dialogs(), [&] { Build(ParentWizard.DataStore()); });
  Dialogs().ShowMessage(
      {.text = LoadText(357), .caption = Title(), .icon = tools::MessageIcon::Information});
}

void SetupWizard::Build(const tools::WizardDataStore& store) {
  const tools::WaitCursor hourglass;
  NoStatus status;
  const engine::BuildEnvironment environment{.project = services_.project,
                                             .dialogs = services_.dialogs,
                                             .clock = services_.clock,
                                             .disk = services_.disk,
                                             .status = status,
                                             .programFolder = services_.programFolder};
  engine::BuildSetup(environment, store, versionIndex_);
}

}  // namespace wizards
