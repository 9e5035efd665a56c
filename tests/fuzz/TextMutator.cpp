// Changes texts in the units they are made of, lines and quotations: changes byte by byte seldom
// leave a line that can be read.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "tests/fuzz/Fuzz.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

class Mutation {
 public:
  Mutation(std::string_view text, unsigned seed)
      : lines_(tests::Split(text, '\n')), random_(seed) {}

  std::string Make() {
    switch (Below(5)) {
      case 0:  // a line twice
        lines_.insert(Any(), *Any());
        break;
      case 1:
        lines_.erase(Any());
        break;
      case 2:
        std::swap(*Any(), *Any());
        break;
      case 3:  // lines that belong together, elsewhere
        Repeat();
        break;
      default:
        ChangeQuotation(*Any());
        break;
    }
    std::string text;
    for (const std::string& line : lines_) text += line + '\n';
    if (!text.empty()) text.pop_back();
    return text;
  }

 private:
  std::size_t Below(std::size_t bound) { return random_() % bound; }
  std::vector<std::string>::iterator Any() {
    return lines_.begin() + static_cast<std::ptrdiff_t>(Below(lines_.size()));
  }

  void Repeat() {
    const std::size_t first = Below(lines_.size());
    const std::size_t count = std::min(lines_.size() - first, 1 + Below(12));
    const std::vector<std::string> some(
        lines_.begin() + static_cast<std::ptrdiff_t>(first),
        lines_.begin() + static_cast<std::ptrdiff_t>(first + count));
    lines_.insert(Any(), some.begin(), some.end());
  }

  void ChangeQuotation(std::string& line) {
    std::vector<std::string> parts = tests::Split(line, '"');
    if (parts.size() < 3) return;
    std::string& part = parts[1 + 2 * Below((parts.size() - 1) / 2)];
    const std::vector<std::string> others = tests::Split(*Any(), '"');
    part = others.size() < 3 || Below(3) == 0 ? "" : others[1 + 2 * Below((others.size() - 1) / 2)];
    line.clear();
    for (const std::string& each : parts) line += each + '"';
    line.pop_back();
  }

  std::vector<std::string> lines_;
  std::mt19937 random_;
};

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned seed) {
  if (seed % 2 == 0 || size == 0) return LLVMFuzzerMutate(data, size, maxSize);
  const std::string text = Mutation({reinterpret_cast<const char*>(data), size}, seed).Make();
  if (text.empty() || text.size() > maxSize) return LLVMFuzzerMutate(data, size, maxSize);
  std::memcpy(data, text.data(), text.size());
  return text.size();
}
