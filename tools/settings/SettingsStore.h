// Settings addressed by file, section and key, over parsed files kept in memory.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "tools/files/Disk.h"
#include "tools/files/Files.h"
#include "tools/files/FolderLock.h"
#include "tools/settings/SettingsFile.h"

namespace tools {

/// Reads and writes settings. A parsed file is kept and used again as long as the file's time, size
/// and identity are those it was read with; a file too young for its time to tell is compared byte
/// by byte before it is written. A write is visible to the next read at once. Files not
/// used lately are forgotten, so that memory stays bounded; the few used last are kept whatever
/// their sizes.
class SettingsStore {
 public:
  /// `disk` must outlive the store.
  explicit SettingsStore(Disk& disk);
  ~SettingsStore();
  SettingsStore(const SettingsStore&) = delete;
  SettingsStore& operator=(const SettingsStore&) = delete;

  /// The stored value, or `defaultValue` when the file, section or key is absent. Raises Error for
  /// a file that is there but cannot be read; the next call tries again.
  [[nodiscard]] std::string Read(const std::string& path, std::string_view section,
                                 std::string_view key, std::string_view defaultValue);

  /// Stores a value, creating file, section and key as needed (the folder must exist). Outside a
  /// batch the file is replaced at once; inside, when the batch commits. Raises Error for a value
  /// or name that a settings file cannot hold, for a file that is there but cannot be read, and
  /// when the file cannot be replaced; the file on disk is then unchanged.
  void Write(const std::string& path, std::string_view section, std::string_view key,
             std::string_view value);

  /// Makes `content` the whole file, whatever it held before. Raises Error; the file on disk is
  /// then unchanged.
  void ReplaceFile(const std::string& path, const SettingsFile& content);

  /// True when the file is there, or will be once the running batch commits. Raises Error as Read
  /// does.
  [[nodiscard]] bool Exists(const std::string& path);

  /// True when the running batch has written to the file.
  [[nodiscard]] bool IsBeingWritten(const std::string& path) const;

  /// The file as it is now (pending writes of a batch included), for many reads of one consistent
  /// state. A missing file reads as an empty one. Never null. Like the store itself, it is for one
  /// thread. Raises Error as Read does.
  [[nodiscard]] std::shared_ptr<const SettingsFile> Load(const std::string& path);

  /// Forgets the files that were read, but for writes that a batch has not committed: for whoever
  /// needs the memory and is done with them.
  void ForgetRead();

  /// For many reads of one moment: while it lives, each file is compared with the disk once, at its
  /// first read. A session inside a session belongs to the outer one.
  class Session {
   public:
    explicit Session(SettingsStore& store);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

   private:
    SettingsStore& store_;
    bool outermost_;
  };

  /// A session that also collects the writes of one operation: each file is replaced once. A batch
  /// inside a batch belongs to the outer one. When a file has been changed from outside by the time
  /// of the commit, the writes are applied to the file as it is then, so that other programs'
  /// settings of other keys stay.
  class Batch {
   public:
    explicit Batch(SettingsStore& store);
    /// Without a Commit the batch's writes are dropped.
    ~Batch();
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;
    /// Replaces the files written to, in the order of their first writes. Raises Error at the first
    /// that fails; the rest is dropped. A file that was there and has been deleted meanwhile fails:
    /// it is not made again from the writes alone.
    void Commit();

   private:
    SettingsStore& store_;
    Session session_;
    bool outermost_;
  };

  /// For an operation whose writes depend on what it has read: while it lives, no other program
  /// that makes one, or writes in the folder of the file at `path`, comes between. What was read
  /// before is forgotten. Nothing that waits for somebody may happen meanwhile. A lock inside a
  /// lock on the same folder belongs to the outer one. Raises Error as FolderLock does.
  class Lock {
   public:
    Lock(SettingsStore& store, const std::string& path);
    ~Lock();
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    /// Ends it early.
    void Release();

   private:
    SettingsStore& store_;
    std::unique_ptr<FolderLock> lock_;  ///< null where an outer lock holds the folder
  };

 private:
  struct Entry;

  Entry& Fetch(const std::string& path);
  void ReadFromDisk(const std::string& path, Entry& entry);
  void Replace(const std::string& path, Entry& entry);
  /// True when the file is not, or may not be, what the entry was read from.
  [[nodiscard]] static bool HasChanged(const std::string& path, const Entry& entry);
  /// Takes over what other programs have written to the file since it was read.
  void JoinOthersWrites(const std::string& path, Entry& entry);
  /// Returns the checksum of what it has written.
  std::uint64_t WriteFile(const std::string& path, const SettingsFile& content);
  void Tidy(const std::string& folder);
  /// Locks the folder of the file that links at `path` lead to; null where a Lock has done so.
  [[nodiscard]] std::unique_ptr<FolderLock> LockFolderOf(const std::string& path) const;
  /// The files with writes that are not on disk, in the order of their first ones.
  [[nodiscard]] std::vector<std::string> PendingPaths() const;
  void CommitPending();
  void DropPending();
  void SetStamp(Entry& entry, const FileStamp& stamp);
  void Forget(const std::string& path);
  void ForgetOldest();

  Disk& disk_;
  std::unordered_map<std::string, std::unique_ptr<Entry>> entries_;
  std::unordered_set<std::string> tidiedFolders_;  ///< in the running batch
  std::vector<FileStamp> lockedFolders_;           ///< by running Locks, the outermost first
  std::string lastPath_;                           ///< the file asked for last, and
  Entry* lastEntry_ = nullptr;   ///< what is known of it: the next call mostly asks for it too
  std::uint64_t keptBytes_ = 0;  ///< size of the files that entries_ holds
  std::uint64_t uses_ = 0;       ///< counts calls of Fetch: the order of uses and writes
  std::uint64_t session_ = 0;    ///< number of the running session, 0 outside
  std::uint64_t lastSession_ = 0;
  bool isInBatch_ = false;
};

}  // namespace tools
