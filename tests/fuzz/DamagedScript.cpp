#include "tests/fuzz/DamagedScript.h"

#include <cstdint>
#include <iterator>
#include <utility>

namespace tests {

namespace {

void DamageLine(std::string& line, Random& random) {
  static constexpr const char* kPieces[] = {"\"", "%",  "\\",  "..", "(",    ")",    ",",
                                            " ",  "\t", "Not", "If", "End ", "\xFF", "ü"};
  const std::size_t at = random() % (line.size() + 1);
  const std::string piece = random() % 4 == 0 ? std::string(1, static_cast<char>(random()))
                                              : kPieces[random() % std::size(kPieces)];
  line.replace(at, random() % 3, piece);
}

}  // namespace

void DamageScript(std::vector<std::string>& lines, Random& random) {
  for (std::uint64_t damage = random() % 4; damage > 0 && !lines.empty(); --damage) {
    const auto at = lines.begin() + static_cast<std::ptrdiff_t>(random() % lines.size());
    std::string& other = lines[random() % lines.size()];
    const std::string copy = other;
    switch (random() % 4) {
      case 0:
        lines.erase(at);
        break;
      case 1:
        lines.insert(at, copy);
        break;
      case 2:
        std::swap(*at, other);
        break;
      default:
        DamageLine(*at, random);
    }
  }
}

std::string ScriptText(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text.append(line).append("\r\n");
  return text;
}

}  // namespace tests
