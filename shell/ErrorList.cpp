#include "shell/ErrorList.h"

#include <algorithm>

#include "model/TextTable.h"
#include "tools/Text.h"
#include "tools/desktop/Guard.h"

namespace shell {

using model::Text;

namespace {

constexpr std::size_t kShown = 8;  // a message of more lines would not fit on small screens

}  // namespace

void ErrorList::Add(const std::string& description) {
  if (std::find(descriptions_.begin(), descriptions_.end(), description) == descriptions_.end()) {
    descriptions_.push_back(description);
  }
}

void ErrorList::Show(tools::Dialogs& dialogs) const {
  if (descriptions_.empty()) return;
  std::string text;
  for (std::size_t i = 0; i < std::min(kShown, descriptions_.size()); ++i) {
    if (i > 0) text += "\r\n";
    text += descriptions_[i];
  }
  if (descriptions_.size() > kShown) {
    text += "\r\n" + tools::ReplaceAll(model::LoadText(Text::FurtherErrors), "%count%",
                                       std::to_string(descriptions_.size() - kShown));
  }
  tools::ShowError(dialogs, text);
}

}  // namespace shell
