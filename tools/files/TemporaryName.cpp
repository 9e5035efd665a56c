#include "tools/files/TemporaryName.h"

#include <random>

#include "tools/files/Path.h"

namespace tools {

namespace {

constexpr std::string_view kBegin = ".packwright-";
constexpr std::string_view kEnd = ".tmp";
constexpr std::string_view kDigits = "0123456789abcdef";
constexpr std::size_t kDigitCount = 16;

}  // namespace

std::string TemporaryNameBeside(std::string_view target) {
  std::random_device random;
  std::string name(kBegin);
  for (std::size_t i = 0; i < kDigitCount; ++i) name += kDigits[random() % kDigits.size()];
  name += kEnd;
  const std::string folder = FolderOf(target);
  return folder.empty() ? name : JoinPath(folder, name);
}

bool IsTemporaryName(std::string_view path) {
  const std::string name = FileNamePart(path);
  if (name.size() != kBegin.size() + kDigitCount + kEnd.size()) return false;
  if (!name.starts_with(kBegin) || !name.ends_with(kEnd)) return false;
  const std::string_view digits = std::string_view(name).substr(kBegin.size(), kDigitCount);
  return digits.find_first_not_of(kDigits) == std::string_view::npos;
}

}  // namespace tools
