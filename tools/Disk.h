// Writing to disk behind an interface, so that tests can make any step of it fail.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tools {

/// A file being written. Every operation raises Error naming the path.
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

/// The steps that change a disk when a file is replaced.
class Disk {
 public:
  virtual ~Disk() = default;
  Disk() = default;
  Disk(const Disk&) = delete;
  Disk& operator=(const Disk&) = delete;

  /// Creates a file that must not exist yet. Raises Error.
  [[nodiscard]] virtual std::unique_ptr<OutputFile> CreateNew(const std::string& path) = 0;
  /// Renames `from` to `to`, replacing `to` in one step; `to` keeps its access rights. Raises
  /// Error.
  virtual void Replace(const std::string& from, const std::string& to) = 0;
  /// Flushes the folder's own entries, so that a rename in it survives a loss of power. Systems
  /// that cannot do that are passed over.
  virtual void SyncFolder(const std::string& folder) noexcept = 0;
  /// Removes a file if it is there; failures are passed over (it tidies up after an error).
  virtual void Discard(const std::string& path) noexcept = 0;
};

/// The machine's own disk.
class SystemDisk : public Disk {
 public:
  [[nodiscard]] std::unique_ptr<OutputFile> CreateNew(const std::string& path) override;
  void Replace(const std::string& from, const std::string& to) override;
  void SyncFolder(const std::string& folder) noexcept override;
  void Discard(const std::string& path) noexcept override;
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
  std::string temporary_;
  std::unique_ptr<OutputFile> file_;
};

/// Creates or replaces the file with the text, by way of a ReplacementFile. Raises Error.
void WriteTextFile(Disk& disk, std::string_view path, std::string_view text,
                   ReplacementFile::Durability durability);

}  // namespace tools
