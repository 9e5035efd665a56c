#include "tools/files/Leftovers.h"

#include <exception>
#include <utility>

#include "tools/Error.h"
#include "tools/files/Files.h"
#include "tools/files/FolderListing.h"
#include "tools/files/LeftoverLock.h"
#include "tools/files/Path.h"
#include "tools/files/TemporaryName.h"

namespace tools {

namespace {

void RemoveTemporary(const std::string& path) {
  std::error_code ignored;
  if (KindOf(path, ignored) == PathKind::Folder) {
    RemoveFolderTree(path);
  } else {
    DeleteFile(path);
  }
}

}  // namespace

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
