// Lenient reading of the numbers that settings hold as text.
#pragma once

#include <cstdint>
#include <string_view>

namespace tools {

/// The number that `text` begins with: leading blanks are skipped, then an optional sign, digits
/// and an optional fraction after a "." are read. Text that begins with no number gives 0.
[[nodiscard]] double LeadingNumber(std::string_view text);

/// True when `text` begins with a number as above.
[[nodiscard]] bool BeginsWithNumber(std::string_view text);

/// `LeadingNumber` rounded to an integer, halves to the even neighbour.
/// Raises Error when the result does not fit 16 (or 32) signed bits.
[[nodiscard]] std::int16_t ToInt16(std::string_view text);
[[nodiscard]] std::int32_t ToInt32(std::string_view text);

}  // namespace tools
