#include "wizards/OptionPages.h"

#include "wizards/wizSetup_Config.h"
#include "wizards/wizSetup_Output.h"
#include "wizards/wizSetup_Packaging.h"

namespace wizards {

std::string OptionPageName(const std::string& key) {
  if (key == "configuration") return "wizSetup_Config";
  if (key == "output") return "wizSetup_Output";
  if (key == "packaging") return "wizSetup_Packaging";
  return {};
}

std::string OptionPageProgId(const std::string& key) {
  const std::string name = OptionPageName(key);
  return name.empty() ? name : "PackwrightWizards." + name;
}

tools::WizardPageRegistry OptionPages(const BuildServices& services,
                                      model::VersionSlot versionIndex, UnsavedPages& unsaved,
                                      findings::ChosenPlace& chosen) {
  tools::WizardPageRegistry pages;
  pages.Add(OptionPageProgId("configuration"),
            [&, versionIndex](tools::WizardDataStore& store, QWidget* parent) {
              return new wizSetup_Config(services.project, versionIndex, services.dialogs, unsaved,
                                         store, parent);
            });
  pages.Add(OptionPageProgId("output"),
            [&, versionIndex](tools::WizardDataStore& store, QWidget* parent) {
              return new wizSetup_Output(services.project, versionIndex, services.programFolder,
                                         services.dialogs, store, parent);
            });
  pages.Add(OptionPageProgId("packaging"),
            [&, versionIndex](tools::WizardDataStore& store, QWidget* parent) {
              return new wizSetup_Packaging(services, versionIndex, chosen, store, parent);
            });
  return pages;
}

}  // namespace wizards
