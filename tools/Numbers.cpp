#include "tools/Numbers.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "tools/Error.h"

namespace tools {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t DigitsFrom(std::string_view text, std::size_t begin) {
  std::size_t end = begin;
  while (end < text.size() && IsDigit(text[end])) ++end;
  return end - begin;
}

/// The number at the beginning of `text`, sign included; empty when there is none.
std::string_view NumberPart(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  const std::size_t sign = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
  const std::size_t whole = DigitsFrom(text, sign);
  std::size_t end = sign + whole;
  std::size_t fraction = 0;
  if (end < text.size() && text[end] == '.') {
    fraction = DigitsFrom(text, end + 1);
    if (fraction > 0) end += 1 + fraction;
  }
  return whole + fraction == 0 ? std::string_view() : text.substr(0, end);
}

template <typename Integer>
Integer ToInteger(std::string_view text) {
  // Nearly every text is a plain number: no detour over a double for those.
  Integer plain = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), plain);
  if (failure == std::errc() && end == text.data() + text.size()) return plain;
  // The default rounding mode takes halves to the even neighbour.
  const double rounded = std::nearbyint(LeadingNumber(text));
  constexpr Integer kLowest = std::numeric_limits<Integer>::min();
  constexpr Integer kHighest = std::numeric_limits<Integer>::max();
  if (rounded < kLowest || rounded > kHighest) {
    throw Error("Überlauf: " + std::string(NumberPart(text).substr(0, 40)) +
                " liegt nicht zwischen " + std::to_string(kLowest) + " und " +
                std::to_string(kHighest));
  }
  return static_cast<Integer>(rounded);
}

}  // namespace

double LeadingNumber(std::string_view text) {
  std::string_view number = NumberPart(text);
  const bool negative = number.starts_with('-');
  if (negative || number.starts_with('+')) number.remove_prefix(1);
  double value = 0;
  const auto [end, failure] = std::from_chars(number.data(), number.data() + number.size(), value,
                                              std::chars_format::fixed);
  if (failure == std::errc::result_out_of_range) {
    const bool large = number.substr(0, number.find('.')).find_first_not_of('0') != number.npos;
    value = large ? std::numeric_limits<double>::infinity() : 0;
  }
  return negative ? -value : value;
}

bool BeginsWithNumber(std::string_view text) { return !NumberPart(text).empty(); }

std::int16_t ToInt16(std::string_view text) { return ToInteger<std::int16_t>(text); }

std::int32_t ToInt32(std::string_view text) { return ToInteger<std::int32_t>(text); }

}  // namespace tools
