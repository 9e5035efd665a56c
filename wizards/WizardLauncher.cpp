#include "wizards/WizardLauncher.h"

#include <optional>
#include <utility>

#include "model/StoredOptions.h"
#include "model/TextTable.h"
#include "tools/desktop/WaitCursor.h"
#include "wizards/LastBuilds.h"
#include "wizards/OptionPages.h"
#include "wizards/UpdateWizard.h"

namespace wizards {

using model::LoadText;
using model::Text;

WizardLauncher::WizardLauncher(BuildServices services, QWidget* parent)
    : services_(std::move(services)), parent_(parent) {}

void WizardLauncher::StartSetupWizard(model::VersionSlot version, model::OpenPages& pages) {
  RequireVersion(version);
  UnsavedPages unsaved(pages, services_.operations);
  findings::ChosenPlace chosen;
  const tools::WizardPageRegistry optionPages = OptionPages(services_, version, unsaved, chosen);
  // What comes of the wizard is shown in the main window, when that can be used again.
  std::optional<engine::BuildResult> result;
  BuildServices services = services_;
  services.onBuilt = [&result](const engine::BuildResult& built) { result = built; };
  SetupWizard(services, version, Frames(optionPages)).Start();
  if (result) services_.onBuilt(*result);
  if (chosen.component != 0) services_.showPlace(version, chosen);
}

void WizardLauncher::StartUpdateWizard(model::VersionSlot version, model::OpenPages& pages) {
  UnsavedPages unsaved(pages, services_.operations);
  findings::ChosenPlace chosen;
  const tools::WizardPageRegistry optionPages = OptionPages(services_, version, unsaved, chosen);
  UpdateWizard(services_.dialogs, Frames(optionPages)).Start();
}

void WizardLauncher::BuildAgain(model::VersionSlot version, model::OpenPages& pages) {
  RequireVersion(version);
  const tools::WizardDataStore settings = services_.lastBuilds.Of(version);
  if (settings.empty()) {
    StartSetupWizard(version, pages);
    return;
  }
  UnsavedPages unsaved(pages, services_.operations);
  if (!OfferSaving(unsaved)) return;
  const tools::WaitCursor hourglass;
  BuildSetup(services_, settings, version, AfterRefusal::WithdrawNotice);
}

bool WizardLauncher::OfferSaving(UnsavedPages& unsaved) const {
  std::string text = LoadText(Text::UnsavedPages);
  const std::vector<std::string> titles = unsaved.Titles();
  if (titles.empty()) return true;
  for (const std::string& title : titles) text += "\n\u2022 " + title;
  text += "\n\n" + LoadText(Text::SaveBeforeBuilding);
  const bool save = services_.dialogs.ShowMessage({.text = text,
                                                   .caption = LoadText(Text::BuildAgain),
                                                   .icon = tools::MessageIcon::Question,
                                                   .buttons = tools::MessageButtons::YesNo,
                                                   .defaultAnswer = tools::MessageAnswer::Yes}) ==
                    tools::MessageAnswer::Yes;
  if (save) unsaved.Save();
  return !save || unsaved.Titles().empty();
}

// What is gone would read as a version without a number and without components.
void WizardLauncher::RequireVersion(model::VersionSlot version) const {
  services_.project.RequireProduct();
  services_.project.RequireVersion(version);
}

findings::CheckRequest WizardLauncher::CheckOf(model::VersionSlot version) const {
  RequireVersion(version);
  findings::CheckRequest request{.productPath = services_.project.ProductPath(),
                                 .version = version,
                                 .options = ReadBuildOptions(services_.lastBuilds.Of(version)),
                                 .programFolder = services_.programFolder};
  if (request.options.folder.empty()) {
    const model::StoredOptions stored(services_.project, version);
    request.options.folder = stored.Of(stored.ActiveConfiguration()).folder;
  }
  return request;
}

WizardBase::FrameMaker WizardLauncher::Frames(const tools::WizardPageRegistry& pages) const {
  return [this, &pages](tools::WizardDriver& driver) {
    return std::make_unique<tools::WizardStructure>(driver, pages, services_.dialogs, parent_);
  };
}

}  // namespace wizards
