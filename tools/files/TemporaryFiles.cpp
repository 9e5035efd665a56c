#include "tools/files/TemporaryFiles.h"

#include <exception>
#include <random>
#include <utility>

#include "tools/Error.h"
#include "tools/files/Files.h"
#include "tools/files/FindFiles.h"
#include "tools/files/Path.h"

namespace tools {

namespace {

constexpr std::string_view kBegin = ".packwright-";
constexpr std::string_view kEnd = ".tmp";
constexpr std::string_view kDigits = "0123456789abcdef";
constexpr std::size_t kDigitCount = 16;

void RemoveTemporary(const std::string& path) {
  std::error_code ignored;
  if (KindOf(path, ignored) == PathKind::Folder) {
    RemoveFolderTree(path);
  } else {
    DeleteFile(path);
  }
}

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

HeldTemporary::HeldTemporary(std::string_view target,
                             const std::function<void(const std::string&)>& create) {
  constexpr int kAttempts = 5;
  for (int attempt = 1; attempt <= kAttempts; ++attempt) {
    path_ = TemporaryNameBeside(target);
    create(path_);
    hold_ = std::make_unique<TemporaryHold>(path_);
    if (!hold_->IsLost()) return;
  }
  throw PathError("Die temporäre Datei kann nicht angelegt werden", target,
                  std::make_error_code(std::errc::device_or_resource_busy));
}

HeldTemporary::HeldTemporary(std::string path)
    : path_(std::move(path)), hold_(std::make_unique<TemporaryHold>(path_)) {}

void RemoveLeftovers(const std::string& folder) noexcept {
  try {
    std::error_code failure;
    for (const FolderItem& item : ListFolder(folder.empty() ? "." : folder, failure)) {
      const bool isOurs =
          item.kind != FolderItem::Kind::FolderLink && item.kind != FolderItem::Kind::Special;
      if (!isOurs || !IsTemporaryName(item.name)) continue;
      try {
        RemoveIfOwnerIsGone(folder.empty() ? item.name : JoinPath(folder, item.name),
                            &RemoveTemporary);
      } catch (const Error&) {  // NOLINT(bugprone-empty-catch): it stays, for the next time
      }
    }
  } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): as above
  }
}

}  // namespace tools
