#include "model/TextTable.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace model {

namespace {

struct NumberedText {
  Text number;
  const char* text;
};

constexpr std::array kTexts{
#define TEXT(number, name, text) NumberedText{Text::name, text},
#include "resources/texts.de.inc"
#undef TEXT
};

constexpr bool NumbersAscend() {
  for (std::size_t i = 1; i < kTexts.size(); ++i) {
    if (kTexts[i].number <= kTexts[i - 1].number) return false;
  }
  return true;
}
static_assert(NumbersAscend(), "a number is doubled or out of order");

}  // namespace

std::string LoadText(Text number) {
  const auto found =
      std::lower_bound(kTexts.begin(), kTexts.end(), number,
                       [](const NumberedText& text, Text wanted) { return text.number < wanted; });
  return found != kTexts.end() && found->number == number ? found->text : std::string{};
}

}  // namespace model
