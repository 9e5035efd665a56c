#include "model/TextTable.h"

#include <array>
#include <cstddef>

namespace model {

namespace {

constexpr std::int32_t kFirstText = 200;

struct NumberedText {
  std::int32_t number;
  const char* text;
};

constexpr std::array kTexts{
#define PACKWRIGHT_TEXT(number, text) NumberedText{number, text},
#include "resources/texts.de.inc"
#undef PACKWRIGHT_TEXT
};

constexpr bool NumbersAreConsecutive() {
  for (std::size_t i = 0; i < kTexts.size(); ++i) {
    if (kTexts[i].number != kFirstText + static_cast<std::int32_t>(i)) return false;
  }
  return true;
}
static_assert(NumbersAreConsecutive(), "a number is missing, doubled or out of order");

}  // namespace

std::string LoadText(std::int32_t number) {
  if (number < kFirstText) return {};
  const auto index = static_cast<std::size_t>(number - kFirstText);
  return index < kTexts.size() ? kTexts[index].text : std::string{};
}

}  // namespace model
