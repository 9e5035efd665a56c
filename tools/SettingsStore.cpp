#include "tools/SettingsStore.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "tools/Error.h"
#include "tools/FolderLock.h"
#include "tools/InputFile.h"
#include "tools/Path.h"

namespace tools {

namespace {

/// Parsed files are forgotten, the longest unused first, when their contents exceed this size.
constexpr std::uint64_t kMostKeptBytes = std::uint64_t{24} << 20U;
/// A larger file is no settings file.
constexpr std::size_t kLargestFileBytes = std::size_t{1} << 30U;

void WriteFile(Disk& disk, const std::string& path, const SettingsFile& content) {
  ReplacementFile replacement(disk, path);
  content.Render([&replacement](std::string_view part) { replacement.File().Write(part); });
  replacement.Commit(ReplacementFile::Durability::Flushed);
}

struct StampedContent {
  FileStamp stamp;  ///< `exists` is false for a file that is not there
  std::string content;
};

StampedContent ReadExisting(const std::string& path) {
  const InputFile file(path, InputFile::WhenHeld::Wait);
  const FileStamp stamp = file.Stamp();
  std::optional<std::string> content =
      ReadToEnd(file, static_cast<std::size_t>(stamp.size), kLargestFileBytes);
  if (!content) {
    throw PathError("Die Einstellungsdatei ist zu groß", path,
                    std::make_error_code(std::errc::file_too_large));
  }
  return {stamp, std::move(*content)};
}

StampedContent ReadSettingsFile(const std::string& path) {
  if (!StampOf(path).exists) return {};
  try {
    return ReadExisting(path);
  } catch (const Error&) {
    // It may have been deleted since the first look.
    if (!StampOf(path).exists) return {};
    throw;
  }
}

}  // namespace

struct SettingsStore::Entry {
  std::shared_ptr<SettingsFile> file;
  FileStamp stamp;  ///< of the file on disk that `file` was read from
  std::uint64_t lastUse = 0;
  std::uint64_t checkedInBatch = 0;  ///< the batch in which the stamp was compared last
  bool pending = false;              ///< holds writes that are not on disk yet
};

SettingsStore::SettingsStore(Disk& disk) : disk_(disk) {}

SettingsStore::~SettingsStore() = default;

std::string SettingsStore::Read(const std::string& path, std::string_view section,
                                std::string_view key, std::string_view defaultValue) {
  return Fetch(path).file->Read(section, key, defaultValue);
}

std::shared_ptr<const SettingsFile> SettingsStore::Load(const std::string& path) {
  return Fetch(path).file;
}

void SettingsStore::Write(const std::string& path, std::string_view section, std::string_view key,
                          std::string_view value) {
  Entry& entry = Fetch(path);
  if (entry.file.use_count() > 1) {
    // Somebody reads a snapshot: it must not change under them.
    entry.file = entry.file->Clone();
  }
  if (!entry.file->Write(section, key, value) && entry.stamp.exists) return;
  entry.pending = true;
  if (batch_ != 0) return;
  try {
    Replace(path, entry);
  } catch (...) {
    Forget(path);
    throw;
  }
}

void SettingsStore::ReplaceFile(const std::string& path, const SettingsFile& content) {
  const FolderLock lock(FolderOf(path));
  WriteFile(disk_, path, content);
  if (entries_.contains(path)) Forget(path);
}

SettingsStore::Entry& SettingsStore::Fetch(const std::string& path) {
  if (lastEntry_ == nullptr || lastPath_ != path) {
    std::unique_ptr<Entry>& entry = entries_[path];
    if (!entry) entry = std::make_unique<Entry>();
    lastPath_ = path;
    lastEntry_ = entry.get();
  }
  Entry& entry = *lastEntry_;
  entry.lastUse = ++uses_;
  if (entry.pending || (batch_ != 0 && entry.checkedInBatch == batch_)) return entry;
  try {
    if (!entry.file || StampOf(path) != entry.stamp) {
      ReadFromDisk(path, entry);
      ForgetOldest(entry);
    }
  } catch (...) {
    // The next call tries again.
    Forget(path);
    throw;
  }
  entry.checkedInBatch = batch_;
  return entry;
}

void SettingsStore::ReadFromDisk(const std::string& path, Entry& entry) {
  StampedContent now = ReadSettingsFile(path);
  SetStamp(entry, now.stamp);
  entry.file = std::make_shared<SettingsFile>(std::move(now.content));
}

void SettingsStore::Replace(const std::string& path, Entry& entry) {
  const FolderLock lock(FolderOf(path));
  if (StampOf(path) != entry.stamp) {
    const std::shared_ptr<SettingsFile> written = entry.file;
    ReadFromDisk(path, entry);
    written->ReplayWrites(*entry.file);
  }
  WriteFile(disk_, path, *entry.file);
  SetStamp(entry, StampOf(path));
  entry.file->ForgetWrites();
  entry.pending = false;
}

std::vector<std::string> SettingsStore::PendingPaths() const {
  std::vector<std::string> paths;
  for (const auto& [path, entry] : entries_) {
    if (entry->pending) paths.push_back(path);
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

void SettingsStore::CommitPending() {
  for (const std::string& path : PendingPaths()) Replace(path, *entries_.at(path));
}

void SettingsStore::DropPending() {
  for (const std::string& path : PendingPaths()) Forget(path);
}

void SettingsStore::SetStamp(Entry& entry, const FileStamp& stamp) {
  keptBytes_ += stamp.size - entry.stamp.size;
  entry.stamp = stamp;
}

void SettingsStore::Forget(const std::string& path) {
  lastEntry_ = nullptr;
  const auto entry = entries_.find(path);
  keptBytes_ -= entry->second->stamp.size;
  entries_.erase(entry);
}

void SettingsStore::ForgetOldest(const Entry& except) {
  if (keptBytes_ <= kMostKeptBytes) return;
  std::vector<std::pair<std::uint64_t, std::string>> candidates;
  for (const auto& [path, entry] : entries_) {
    if (entry.get() != &except && !entry->pending) candidates.emplace_back(entry->lastUse, path);
  }
  std::sort(candidates.begin(), candidates.end());
  // Making room for more than the one file keeps this from being done for every file that follows.
  for (const auto& [use, path] : candidates) {
    if (keptBytes_ <= kMostKeptBytes / 2) return;
    Forget(path);
  }
}

SettingsStore::Batch::Batch(SettingsStore& store) : store_(store), outermost_(store.batch_ == 0) {
  if (outermost_) store_.batch_ = ++store_.lastBatch_;
}

SettingsStore::Batch::~Batch() {
  if (!outermost_) return;
  store_.DropPending();
  store_.batch_ = 0;
}

void SettingsStore::Batch::Commit() {
  if (outermost_) store_.CommitPending();
}

}  // namespace tools
