// Writing to disk behind an interface, so that tests can make any step of it fail.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tools/files/Files.h"

namespace tools {

class HeldTemporary;

/// A file being written. Every operation raises Error naming the file that it will become.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  OutputFile() = default;
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  /// Appends at the end.
  virtual void Write(std::string_view bytes) = 0;
  /// Overwrites bytes that were written before; the end stays where it is.
  virtual void WriteAt(std::uint64_t offset, std::string_view bytes) = 0;
  /// Cuts the file to `size` bytes; the next Write appends there.
  virtual void Truncate(std::uint64_t size) = 0;
  /// Flushes to the disk itself, so that the content survives a loss of power.
  virtual void Sync() = 0;
  /// Closes the file and reports what the system could not write. The destructor closes silently.
  virtual void Close() = 0;
};

/// The steps that change a disk when a product is edited.
class Disk {
 public:
  virtual ~Disk() = default;
  Disk() = default;
  Disk(const Disk&) = delete;
  Disk& operator=(const Disk&) = delete;

  /// Creates a file, which must not exist yet and will become `target`: its errors name that.
  /// Raises Error.
  [[nodiscard]] virtual std::unique_ptr<OutputFile> CreateNew(const std::string& path,
                                                              const std::string& target) = 0;
  /// Renames `from` to `to`, replacing `to` in one step; `to` keeps its access rights. Raises
  /// Error.
  virtual void Replace(const std::string& from, const std::string& to) = 0;
  /// Flushes the folder's own entries, so that a rename in it survives a loss of power. Systems
  /// that cannot do that are passed over.
  virtual void SyncFolder(const std::string& folder) noexcept = 0;
  /// Removes a file if it is there; failures are passed over (it tidies up after an error).
  virtual void Discard(const std::string& path) noexcept = 0;
  /// Removes an empty folder; failures are passed over as above.
  virtual void DiscardFolder(const std::string& path) noexcept = 0;

  // The operations of Files.h, which says what they do and raise.
  virtual std::vector<std::string> MakeFolder(const std::string& path) = 0;
  virtual void RemoveFolderTree(const std::string& path) = 0;
  virtual void MoveFolder(const std::string& from, const std::string& to) = 0;
  virtual void DeleteFile(const std::string& path) = 0;
  [[nodiscard]] virtual CopyResult CopyFile(const std::string& source, const std::string& target,
                                            const CopyProgress& progress) = 0;
};

/// The machine's own disk.
class SystemDisk : public Disk {
 public:
  [[nodiscard]] std::unique_ptr<OutputFile> CreateNew(const std::string& path,
                                                      const std::string& target) override;
  void Replace(const std::string& from, const std::string& to) override;
  void SyncFolder(const std::string& folder) noexcept override;
  void Discard(const std::string& path) noexcept override;
  void DiscardFolder(const std::string& path) noexcept override;
  std::vector<std::string> MakeFolder(const std::string& path) override;
  void RemoveFolderTree(const std::string& path) override;
  void MoveFolder(const std::string& from, const std::string& to) override;
  void DeleteFile(const std::string& path) override;
  [[nodiscard]] CopyResult CopyFile(const std::string& source, const std::string& target,
                                    const CopyProgress& progress) override;
};

/// A file that takes its target's place only when it is whole: written under a temporary name
/// beside the target, then renamed over it. Destroyed without Commit it leaves the target as it
/// was.
class ReplacementFile {
 public:
  /// How far the content is pushed before the rename.
  enum class Durability {
    Flushed,  ///< on the disk itself: for files that nobody can make again
    Cached    ///< in the system's cache: for files that a build makes again
  };

  /// Creates the temporary file. `disk` must outlive this object. Raises Error.
  ReplacementFile(Disk& disk, std::string_view target);
  ~ReplacementFile();
  ReplacementFile(const ReplacementFile&) = delete;
  ReplacementFile& operator=(const ReplacementFile&) = delete;

  [[nodiscard]] OutputFile& File() { return *file_; }
  /// Closes the file and renames it over the target. Raises Error; the target is then unchanged.
  void Commit(Durability durability);

 private:
  Disk& disk_;
  std::string target_;
  std::unique_ptr<OutputFile> file_;
  std::unique_ptr<HeldTemporary> temporary_;  ///< null once it has become the target
};

/// Creates or replaces the file with the text, by way of a ReplacementFile. Raises Error.
void WriteTextFile(Disk& disk, std::string_view path, std::string_view text,
                   ReplacementFile::Durability durability);

}  // namespace tools
