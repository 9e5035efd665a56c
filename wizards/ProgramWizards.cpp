#include "wizards/ProgramWizards.h"

#include <utility>

#include "wizards/OptionPages.h"
#include "wizards/UpdateWizard.h"

namespace wizards {

ProgramWizards::ProgramWizards(BuildServices services) : services_(std::move(services)) {}

void ProgramWizards::StartSetupWizard(std::int32_t version) {
  const tools::WizardPageRegistry pages =
      OptionPages(services_.project, version, services_.dialogs);
  SetupWizard(services_, version, Frames(pages)).Start();
}

void ProgramWizards::StartUpdateWizard(std::int32_t version) {
  const tools::WizardPageRegistry pages =
      OptionPages(services_.project, version, services_.dialogs);
  UpdateWizard(services_.dialogs, Frames(pages)).Start();
}

ProgramWizard::FrameMaker ProgramWizards::Frames(const tools::WizardPageRegistry& pages) const {
  return [this, &pages](tools::WizardDriver& driver) {
    return std::make_unique<tools::WizardStructure>(driver, pages, services_.dialogs, parent_);
  };
}

}  // namespace wizards
