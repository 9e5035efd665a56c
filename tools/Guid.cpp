#include "tools/Guid.h"

#include <array>
#include <cstdint>

namespace tools {

std::string NewGuidText() { return GuidSource().NewText(); }

GuidSource::GuidSource() {
  std::random_device machine;
  std::array<std::uint32_t, 16> bits{};
  for (std::uint32_t& each : bits) each = machine();
  std::seed_seq seed(bits.begin(), bits.end());
  random_.seed(seed);
}

std::string GuidSource::NewText() {
  std::array<std::uint8_t, 16> bytes{};
  for (std::size_t i = 0; i < bytes.size(); i += 8) {
    const std::uint64_t bits = random_();
    for (std::size_t j = 0; j < 8; ++j) bytes[i + j] = static_cast<std::uint8_t>(bits >> (8 * j));
  }
  // RFC 4122, 4.4: version 4 in the seventh byte, the variant in the ninth.
  bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40);
  bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);

  constexpr const char* kDigits = "0123456789ABCDEF";
  constexpr std::size_t kLength = 38;
  std::string text;
  text.reserve(kLength);
  text += '{';
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
    text += kDigits[bytes[i] >> 4];
    text += kDigits[bytes[i] & 0x0F];
  }
  text += '}';
  return text;
}

}  // namespace tools
