#include "wizards/UnsavedPages.h"

namespace wizards {

std::vector<std::string> UnsavedPages::Titles() const {
  std::vector<std::string> titles;
  for (std::int32_t i = 1; i <= pages_.Count(); ++i) {
    const model::OpenPage& page = pages_.Item(i);
    if (page.IsUnsaved()) titles.push_back(page.Title());
  }
  return titles;
}

}  // namespace wizards
