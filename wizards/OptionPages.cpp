#include "wizards/OptionPages.h"

#include "wizards/WizardBase.h"
#include "wizards/wizSetup_Config.h"
#include "wizards/wizSetup_Output.h"
#include "wizards/wizSetup_Packaging.h"

namespace wizards {

tools::WizardPageRegistry OptionPages(const BuildServices& services,
                                      model::VersionSlot versionIndex, UnsavedPages& unsaved,
                                      findings::ChosenPlace& chosen) {
  const std::string library = kOptionPageLibrary;
  tools::WizardPageRegistry pages;
  pages.Add(library + "wizSetup_Config",
            [&, versionIndex](tools::WizardDataStore& store, QWidget* parent) {
              return new wizSetup_Config(services.project, versionIndex, services.dialogs, unsaved,
                                         store, parent);
            });
  pages.Add(library + "wizSetup_Output",
            [&, versionIndex](tools::WizardDataStore& store, QWidget* parent) {
              return new wizSetup_Output(services.project, versionIndex, services.programFolder,
                                         services.dialogs, store, parent);
            });
  pages.Add(library + "wizSetup_Packaging",
            [&, versionIndex](tools::WizardDataStore& store, QWidget* parent) {
              return new wizSetup_Packaging(services, versionIndex, chosen, store, parent);
            });
  return pages;
}

}  // namespace wizards
