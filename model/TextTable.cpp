#include "model/TextTable.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace model {

namespace {

struct Row {
  Text name;
  const char* words;
};

constexpr std::array kTexts{
#define TEXT(number, name, text) Row{Text::name, text},
#include "resources/texts.de.inc"
#undef TEXT
};

constexpr bool NumbersAscend() {
  for (std::size_t i = 1; i < kTexts.size(); ++i) {
    if (kTexts[i].name <= kTexts[i - 1].name) return false;
  }
  return true;
}
static_assert(NumbersAscend(), "a number is doubled or out of order");

}  // namespace

std::string LoadText(Text text) {
  const auto found =
      std::lower_bound(kTexts.begin(), kTexts.end(), text,
                       [](const Row& row, Text wanted) { return row.name < wanted; });
  return found != kTexts.end() && found->name == text ? found->words : std::string{};
}

}  // namespace model
