// The setup wizard's option pages under their ProgIDs.
#pragma once

#include "tools/desktop/wizard/WizardOptionPage.h"
#include "wizards/BuildSetup.h"
#include "wizards/UnsavedPages.h"

namespace wizards {

/// "PackwrightWizards.wizSetup_Config", "PackwrightWizards.wizSetup_Output" and
/// "PackwrightWizards.wizSetup_Packaging" for the version in slot `versionIndex`. `chosen` takes
/// the place of a finding that the author chose; the page then closes the wizard. The references
/// must outlive the registry and the pages.
[[nodiscard]] tools::WizardPageRegistry OptionPages(const BuildServices& services,
                                                    model::VersionSlot versionIndex,
                                                    UnsavedPages& unsaved,
                                                    findings::ChosenPlace& chosen);

}  // namespace wizards
