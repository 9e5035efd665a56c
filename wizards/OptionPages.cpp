#include "wizards/OptionPages.h"

#include "wizards/WizardBase.h"
#include "wizards/wizSetup_Config.h"
#include "wizards/wizSetup_Output.h"
#include "wizards/wizSetup_Packaging.h"

namespace wizards {

tools::WizardPageRegistry OptionPages(const model::ModProject& project, std::int32_t versionIndex,
                                      const std::string& programFolder, tools::Dialogs& dialogs,
                                      UnsavedPages& unsaved) {
  const std::string library = kOptionPageLibrary;
  tools::WizardPageRegistry pages;
  pages.Add(library + "wizSetup_Config",
            [&, versionIndex](tools::WizardDataStore& store, QWidget* parent) {
              return new wizSetup_Config(project, versionIndex, dialogs, unsaved, store, parent);
            });
  pages.Add(library + "wizSetup_Output", [&project, versionIndex, programFolder, &dialogs](
                                             tools::WizardDataStore& store, QWidget* parent) {
    return new wizSetup_Output(project, versionIndex, programFolder, dialogs, store, parent);
  });
  pages.Add(library + "wizSetup_Packaging", [](tools::WizardDataStore& store, QWidget* parent) {
    return new wizSetup_Packaging(store, parent);
  });
  return pages;
}

}  // namespace wizards
