// The setup wizard's option pages: which belongs to which key, and how each is made.
#pragma once

#include <string>

#include "tools/desktop/wizard/WizardOptionPage.h"
#include "wizards/BuildSetup.h"
#include "wizards/UnsavedPages.h"

namespace wizards {

/// The class name of the option page of a wizard's page: "wizSetup_Config" for the key
/// "configuration"; empty for a key without an option page.
[[nodiscard]] std::string OptionPageName(const std::string& key);

/// The same as a ProgID: "PackwrightWizards.wizSetup_Config".
[[nodiscard]] std::string OptionPageProgId(const std::string& key);

/// All option pages under their ProgIDs, for the version in slot `versionIndex`. `chosen` takes the
/// place of a finding that the author chose; the page then closes the wizard. The references must
/// outlive the registry and the pages.
[[nodiscard]] tools::WizardPageRegistry OptionPages(const BuildServices& services,
                                                    model::VersionSlot versionIndex,
                                                    UnsavedPages& unsaved,
                                                    findings::ChosenPlace& chosen);

}  // namespace wizards
