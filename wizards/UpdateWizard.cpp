#include "wizards/UpdateWizard.h"

#include "model/TextTable.h"
#include "wizards/OptionPages.h"

namespace wizards {

using model::Text;

std::string UpdateWizard::Title() { return model::LoadText(Text::UpdateWizard); }

tools::WizardPage UpdateWizard::ShowPage(const std::string& key) {
  tools::WizardPage page;
  if (key == "intro") {
    page.PageStyle = 1;
    page.PageTitle = "Introduction";
    page.PageDescription = "Welcome to this wizard...";
    page.ForwardStep = "configuration";
  } else if (key == "configuration" || key == "output" || key == "packaging") {
    page.ForwardStep = "...";
  } else if (key == "summary") {
    page.PageStyle = 3;
    page.PageTitle = "Nothing to it";
    page.PageDescription = "Congratulations, you finished this wizard.";
    page.AllowFinish = true;
  }
  return page;
}

std::string UpdateWizard::LoadPage(const std::string& key) { return OptionPageName(key); }

}  // namespace wizards
