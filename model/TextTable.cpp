#include "model/TextTable.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace model {

namespace {

struct Row {
  Text name;
  const char* words;
};

// Not a std::array whose size is deduced: compilers limit that to fewer rows.
constexpr Row kTexts[]{
#pragma push_macro("TEXT")
#undef TEXT
#define TEXT(number, name, text) Row{Text::name, text},
#include "resources/texts.de.inc"
#pragma pop_macro("TEXT")
};

constexpr bool NumbersAscend() {
  for (std::size_t i = 1; i < std::size(kTexts); ++i) {
    if (kTexts[i].name <= kTexts[i - 1].name) return false;
  }
  return true;
}
static_assert(NumbersAscend(), "a number is doubled or out of order");

}  // namespace

std::string LoadText(Text text) {
  const auto found =
      std::lower_bound(std::begin(kTexts), std::end(kTexts), text,
                       [](const Row& row, Text wanted) { return row.name < wanted; });
  return found != std::end(kTexts) && found->name == text ? found->words : std::string{};
}

}  // namespace model
