#include "wizards/UnsavedPages.h"

#include <algorithm>

namespace wizards {

std::vector<std::string> UnsavedPages::Titles() const {
  std::vector<std::string> titles;
  for (std::int32_t i = 1; i <= pages_.Count(); ++i) {
    const model::OpenPage& page = pages_.Item(i);
    const std::string title = page.Title();
    if (page.IsDirty() || failed_.contains(title)) titles.push_back(title);
  }
  return titles;
}

void UnsavedPages::Save() {
  const std::vector<std::string> unsaved = Titles();
  failed_.clear();
  for (const std::string& title : operations_.SaveAllPages()) {
    if (std::find(unsaved.begin(), unsaved.end(), title) != unsaved.end()) failed_.insert(title);
  }
}

}  // namespace wizards
