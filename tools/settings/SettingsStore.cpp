#include "tools/settings/SettingsStore.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <optional>
#include <utility>
#include <vector>

#include "tools/Error.h"
#include "tools/files/Files.h"
#include "tools/files/InputFile.h"
#include "tools/files/LinksAndMounts.h"
#include "tools/files/Path.h"
#include "tools/files/TemporaryFiles.h"

namespace tools {

namespace {

/// Parsed files are forgotten, the longest unused first, when their contents exceed this size.
constexpr std::uint64_t kMostKeptBytes = std::uint64_t{24} << 20U;
/// But never those used last: reading a component asks for the product, the version and the
/// component in turn, and any of them could be larger than all that is kept.
constexpr std::size_t kAlwaysKept = 4;
/// A larger file is no settings file.
constexpr std::size_t kLargestFileBytes = std::size_t{128} << 20U;

/// As StampOf, but a link that leads nowhere is no file that is absent: what it should lead to (a
/// disk that is not mounted) is unknown.
FileStamp StampToRead(const std::string& path) {
  const FileStamp stamp = StampOf(path);
  std::error_code ignored;
  if (!stamp.exists && std::filesystem::is_symlink(ToPath(path), ignored)) {
    throw PathError("Die Datei kann nicht gelesen werden", path,
                    std::make_error_code(std::errc::no_such_file_or_directory));
  }
  return stamp;
}

/// The file has been replaced: an error now must not look like a failed replacement. Without a
/// stamp the next call reads the file again.
FileStamp StampAfterWriting(const std::string& path) {
  try {
    return StampOf(path);
  } catch (const Error&) {
    return {};
  }
}

struct StampedContent {
  FileStamp stamp;  ///< `exists` is false for a file that is not there
  std::string content;
};

/// A save replaces the file that links lead to.
std::string FolderToLock(const std::string& path) { return FolderOf(LinkTarget(path)); }

FileStamp StampOfFolder(const std::string& folder) {
  return StampOf(folder.empty() ? "." : folder);
}

/// FNV-1a (http://www.isthe.com/chongo/tech/comp/fnv/), 64 bits.
class Checksum {
 public:
  void Add(std::string_view bytes) {
    for (const char c : bytes) value_ = (value_ ^ static_cast<unsigned char>(c)) * 1099511628211U;
  }
  [[nodiscard]] std::uint64_t Value() const { return value_; }

 private:
  std::uint64_t value_ = 14695981039346656037U;
};

std::uint64_t ChecksumOf(std::string_view bytes) {
  Checksum checksum;
  checksum.Add(bytes);
  return checksum.Value();
}

/// True when a later change may leave the file's time as it is: where times tick in seconds, or two
/// on some file systems, two changes share one. A time to come tells nothing either.
bool IsYoung(const FileStamp& stamp) {
  constexpr std::chrono::seconds kLongestTick{2};
  return stamp.exists && stamp.modified > std::chrono::system_clock::now() - kLongestTick;
}

[[noreturn]] void FailTooLarge(const std::string& path) {
  throw PathError("Die Einstellungsdatei ist größer als 128 MiB", path, {});
}

StampedContent ReadExisting(const std::string& path) {
  const InputFile file(path, InputFile::WhenHeld::Wait);
  const FileStamp stamp = file.Stamp();
  std::optional<std::string> content =
      ReadToEnd(file, static_cast<std::size_t>(stamp.size), kLargestFileBytes);
  if (!content) FailTooLarge(path);
  return {stamp, std::move(*content)};
}

StampedContent ReadSettingsFile(const std::string& path) {
  if (!StampToRead(path).exists) return {};
  try {
    return ReadExisting(path);
  } catch (const Error&) {
    // It may have been deleted since the first look.
    if (!StampToRead(path).exists) return {};
    throw;
  }
}

}  // namespace

struct SettingsStore::Entry {
  std::shared_ptr<SettingsFile> file;
  FileStamp stamp;  ///< of the file on disk that `file` was read from
  std::uint64_t lastUse = 0;
  std::uint64_t checkedInSession = 0;  ///< the session in which the stamp was compared last
  std::uint64_t firstWrite = 0;        ///< when writes that are not on disk yet began; 0: none
  /// Of the file's bytes, where its time was too young to tell a later change.
  std::optional<std::uint64_t> checksum;
};

SettingsStore::SettingsStore(Disk& disk) : disk_(disk) {}

SettingsStore::~SettingsStore() = default;

std::string SettingsStore::Read(const std::string& path, std::string_view section,
                                std::string_view key, std::string_view defaultValue) {
  return Fetch(path).file->Read(section, key, defaultValue);
}

bool SettingsStore::Exists(const std::string& path) {
  const Entry& entry = Fetch(path);
  return entry.stamp.exists || entry.firstWrite != 0;
}

bool SettingsStore::IsBeingWritten(const std::string& path) const {
  const auto found = entries_.find(path);
  return found != entries_.end() && found->second->firstWrite != 0;
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
  if (entry.firstWrite == 0) entry.firstWrite = uses_;
  if (isInBatch_) return;
  try {
    Replace(path, entry);
  } catch (...) {
    Forget(path);
    throw;
  }
}

void SettingsStore::ReplaceFile(const std::string& path, const SettingsFile& content) {
  const std::unique_ptr<FolderLock> lock = LockFolderOf(path);
  (void)WriteFile(path, content);
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
  if (entry.firstWrite != 0 || (session_ != 0 && entry.checkedInSession == session_)) return entry;
  try {
    if (!entry.file || StampToRead(path) != entry.stamp) {
      ReadFromDisk(path, entry);
      ForgetOldest();
    }
  } catch (...) {
    // The next call tries again.
    Forget(path);
    throw;
  }
  entry.checkedInSession = session_;
  return entry;
}

void SettingsStore::ReadFromDisk(const std::string& path, Entry& entry) {
  StampedContent now = ReadSettingsFile(path);
  SetStamp(entry, now.stamp);
  entry.checksum.reset();
  if (IsYoung(now.stamp)) entry.checksum = ChecksumOf(now.content);
  entry.file = std::make_shared<SettingsFile>(std::move(now.content));
}

void SettingsStore::Replace(const std::string& path, Entry& entry) {
  const std::unique_ptr<FolderLock> lock = LockFolderOf(path);
  if (HasChanged(path, entry)) JoinOthersWrites(path, entry);
  const std::uint64_t checksum = WriteFile(path, *entry.file);
  SetStamp(entry, StampAfterWriting(path));
  entry.checksum = checksum;  // what was just written is young
  entry.file->ForgetWrites();
  entry.firstWrite = 0;
}

bool SettingsStore::HasChanged(const std::string& path, const Entry& entry) {
  const FileStamp stamp = StampToRead(path);
  if (stamp != entry.stamp) return true;
  return stamp.exists && entry.checksum &&
         ChecksumOf(ReadSettingsFile(path).content) != entry.checksum;
}

void SettingsStore::JoinOthersWrites(const std::string& path, Entry& entry) {
  const std::shared_ptr<SettingsFile> written = entry.file;
  const bool existed = entry.stamp.exists;
  ReadFromDisk(path, entry);
  if (existed && !entry.stamp.exists) {
    throw PathError("Die Datei ist nicht mehr vorhanden", path, {});
  }
  written->ReplayWrites(*entry.file);
}

std::uint64_t SettingsStore::WriteFile(const std::string& path, const SettingsFile& content) {
  Tidy(FolderToLock(path));
  ReplacementFile replacement(disk_, path);
  Checksum checksum;
  std::size_t bytes = 0;
  content.Render([&](std::string_view part) {
    bytes += part.size();
    if (bytes > kLargestFileBytes) FailTooLarge(path);  // nobody could read it again
    checksum.Add(part);
    replacement.File().Write(part);
  });
  replacement.Commit(ReplacementFile::Durability::Flushed);
  return checksum.Value();
}

/// A batch may write thousands of files to one folder: one look at its listing is enough.
void SettingsStore::Tidy(const std::string& folder) {
  if (!isInBatch_) tidiedFolders_.clear();
  if (tidiedFolders_.insert(folder).second) RemoveLeftovers(folder);
}

std::unique_ptr<FolderLock> SettingsStore::LockFolderOf(const std::string& path) const {
  const std::string folder = FolderToLock(path);
  if (!lockedFolders_.empty()) {
    const FileStamp stamp = StampOfFolder(folder);
    const bool isLocked = std::any_of(
        lockedFolders_.begin(), lockedFolders_.end(), [&stamp](const FileStamp& locked) {
          return locked.device == stamp.device && locked.identity == stamp.identity;
        });
    if (isLocked) return nullptr;
  }
  return std::make_unique<FolderLock>(folder);
}

std::vector<std::string> SettingsStore::PendingPaths() const {
  std::vector<std::pair<std::uint64_t, std::string>> pending;
  for (const auto& [path, entry] : entries_) {
    if (entry->firstWrite != 0) pending.emplace_back(entry->firstWrite, path);
  }
  std::sort(pending.begin(), pending.end());
  std::vector<std::string> paths;
  paths.reserve(pending.size());
  for (auto& [time, path] : pending) paths.push_back(std::move(path));
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

void SettingsStore::ForgetRead() {
  lastEntry_ = nullptr;
  std::erase_if(entries_, [this](const auto& item) {
    const Entry& entry = *item.second;
    if (entry.firstWrite == 0) keptBytes_ -= entry.stamp.size;
    return entry.firstWrite == 0;
  });
}

void SettingsStore::ForgetOldest() {
  if (keptBytes_ <= kMostKeptBytes) return;
  std::vector<std::pair<std::uint64_t, std::string>> byUse;
  for (const auto& [path, entry] : entries_) byUse.emplace_back(entry->lastUse, path);
  std::sort(byUse.begin(), byUse.end());
  byUse.resize(byUse.size() - std::min(byUse.size(), kAlwaysKept));
  // Frees half of the room, so that this stays rare.
  for (const auto& [use, path] : byUse) {
    if (keptBytes_ <= kMostKeptBytes / 2) return;
    if (entries_.at(path)->firstWrite == 0) Forget(path);
  }
}

SettingsStore::Session::Session(SettingsStore& store)
    : store_(store), outermost_(store.session_ == 0) {
  if (outermost_) store_.session_ = ++store_.lastSession_;
}

SettingsStore::Session::~Session() {
  if (outermost_) store_.session_ = 0;
}

SettingsStore::Batch::Batch(SettingsStore& store)
    : store_(store), session_(store), outermost_(!store.isInBatch_) {
  if (!outermost_) return;
  store_.isInBatch_ = true;
  store_.tidiedFolders_.clear();
}

SettingsStore::Batch::~Batch() {
  if (!outermost_) return;
  store_.DropPending();
  store_.isInBatch_ = false;
}

void SettingsStore::Batch::Commit() {
  if (outermost_) store_.CommitPending();
}

SettingsStore::Lock::Lock(SettingsStore& store, const std::string& path)
    : store_(store), lock_(store.LockFolderOf(path)) {
  if (lock_) store_.lockedFolders_.push_back(StampOfFolder(FolderToLock(path)));
  store_.ForgetRead();
}

SettingsStore::Lock::~Lock() { Release(); }

void SettingsStore::Lock::Release() {
  if (lock_) store_.lockedFolders_.pop_back();
  lock_.reset();
}

}  // namespace tools
