#include "wizards/SetupWizard.h"

#include <utility>

#include "model/StoredOptions.h"
#include "model/TextTable.h"
#include "tools/StandardTexts.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/WaitCursor.h"
#include "wizards/LastBuilds.h"
#include "wizards/OptionPages.h"

namespace wizards {

using model::Text;

using model::LoadText;

namespace {

tools::WizardPage OptionPage(Text title, Text description, const char* next) {
  tools::WizardPage page;
  page.PageTitle = LoadText(title);
  page.PageDescription = LoadText(description);
  page.ForwardStep = next;
  return page;
}

tools::WizardPage IntroPage() {
  tools::WizardPage page;
  page.PageStyle = 1;
  page.PageTitle = LoadText(Text::Welcome);
  page.PageDescription = LoadText(Text::SetupWizardIntro) + tools::kLineBreak +
                         LoadText(Text::SetupWizardPreparation) + tools::kLineBreak +
                         tools::kLineBreak + LoadText(Text::ClickNext);
  page.ForwardStep = "configuration";
  return page;
}

tools::WizardPage ReadyPage() {
  tools::WizardPage page;
  page.PageStyle = 3;
  page.PageTitle = LoadText(Text::ReadyStep);
  page.PageDescription = LoadText(Text::ReadyToBuild) + tools::kLineBreak + tools::kLineBreak +
                         LoadText(Text::ClickFinish);
  page.AllowFinish = true;
  return page;
}

}  // namespace

SetupWizard::SetupWizard(const BuildServices& services, model::VersionSlot versionIndex,
                         FrameMaker makeFrame)
    : WizardBase(services.dialogs, std::move(makeFrame)),
      services_(services),
      versionIndex_(versionIndex) {}

std::string SetupWizard::Title() { return LoadText(Text::SetupWizard); }

tools::WizardPage SetupWizard::ShowPage(const std::string& key) {
  if (key == "intro") return IntroPage();
  if (key == "configuration")
    return OptionPage(Text::ConfigurationStep, Text::ConfigurationStepHint, "output");
  if (key == "output") return OptionPage(Text::OutputStep, Text::OutputStepHint, "packaging");
  if (key == "packaging") return OptionPage(Text::PackagingStep, Text::PackagingStepHint, "ready");
  if (key == "ready") return ReadyPage();
  return {};
}

std::string SetupWizard::LoadPage(const std::string& key) { return OptionPageProgId(key); }

void SetupWizard::FillDataStore(tools::WizardDataStore& store) {
  const model::StoredOptions stored(services_.project, versionIndex_);
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
  tools::Guard(Dialogs(), [&] {
    const tools::WaitCursor hourglass;
    // The notice goes with the wizard's window.
    BuildSetup(services_, ParentWizard.DataStore(), versionIndex_, AfterRefusal::LeaveNotice);
  });
  tools::Guard(Dialogs(),
               [&] { services_.lastBuilds.Remember(versionIndex_, ParentWizard.DataStore()); });
  Dialogs().ShowMessage({.text = LoadText(Text::SetupBuilt),
                         .caption = Title(),
                         .icon = tools::MessageIcon::Information});
}

}  // namespace wizards
