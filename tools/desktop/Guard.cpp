#include "tools/desktop/Guard.h"

#include "tools/StandardTexts.h"

namespace tools {

void ShowError(Dialogs& dialogs, const std::string& description) {
  dialogs.ShowMessage({.text = description,
                       .caption = StandardText(kTextError),
                       .icon = MessageIcon::Exclamation,
                       .buttons = MessageButtons::Ok,
                       .defaultAnswer = MessageAnswer::Ok});
}

}  // namespace tools
