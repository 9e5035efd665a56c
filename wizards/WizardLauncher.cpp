#include "wizards/WizardLauncher.h"

#include <utility>

#include "wizards/OptionPages.h"
#include "wizards/UpdateWizard.h"

namespace wizards {

WizardLauncher::WizardLauncher(BuildServices services) : services_(std::move(services)) {}

void WizardLauncher::StartSetupWizard(std::int32_t version, model::OpenPages& pages) {
  UnsavedPages unsaved(pages, services_.operations);
  const tools::WizardPageRegistry optionPages =
      OptionPages(services_.project, version, services_.programFolder, services_.dialogs, unsaved);
  SetupWizard(services_, version, Frames(optionPages)).Start();
}

void WizardLauncher::StartUpdateWizard(std::int32_t version, model::OpenPages& pages) {
  UnsavedPages unsaved(pages, services_.operations);
  const tools::WizardPageRegistry optionPages =
      OptionPages(services_.project, version, services_.programFolder, services_.dialogs, unsaved);
  UpdateWizard(services_.dialogs, Frames(optionPages)).Start();
}

WizardBase::FrameMaker WizardLauncher::Frames(const tools::WizardPageRegistry& pages) const {
  return [this, &pages](tools::WizardDriver& driver) {
    return std::make_unique<tools::WizardStructure>(driver, pages, services_.dialogs, parent_);
  };
}

}  // namespace wizards
