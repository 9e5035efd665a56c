// The setup wizard's option pages under their ProgIDs.
#pragma once

#include <cstdint>
#include <string>

#include "model/ModProject.h"
#include "tools/Dialogs.h"
#include "tools/desktop/wizard/WizardOptionPage.h"
#include "wizards/UnsavedPages.h"

namespace wizards {

/// "PackwrightWizards.wizSetup_Config", "PackwrightWizards.wizSetup_Output" and
/// "PackwrightWizards.wizSetup_Packaging" for the version in slot `versionIndex`. The references
/// must outlive the registry and the pages. `programFolder` is the one of this program.
[[nodiscard]] tools::WizardPageRegistry OptionPages(const model::ModProject& project,
                                                    std::int32_t versionIndex,
                                                    const std::string& programFolder,
                                                    tools::Dialogs& dialogs, UnsavedPages& unsaved);

}  // namespace wizards
