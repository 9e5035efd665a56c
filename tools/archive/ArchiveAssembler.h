// Puts packed members together to an archive file.
#pragma once

#include <atomic>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "tools/archive/MemberPacker.h"
#include "tools/archive/ZipFormat.h"
#include "tools/files/Disk.h"

namespace tools {

/// Appends to an empty file. Every operation raises Error when the file cannot be written. For one
/// thread at a time, but for the counts.
class ArchiveAssembler {
 public:
  /// `file` must outlive the assembler.
  explicit ArchiveAssembler(OutputFile& file) : file_(file) {}

  /// Whole members with their local headers; the offsets count from the start of `bytes`.
  void AppendMembers(std::string_view bytes, const std::vector<ZipMember>& members);

  /// A member whose data comes in parts. Its header is written at once with the sizes given and
  /// once more, with method, sizes and checksum as they have come to be, by EndMember.
  void BeginMember(ZipMember member);
  /// `data` stands for the source's bytes of `block`, as they are or deflated.
  void AppendData(std::string_view data, const PackedBlock& block);
  /// Takes back the data appended since BeginMember, to begin anew with another method.
  void RestartMember(ZipMethod method);
  /// Takes back the member begun last, header and all.
  void DropMember();
  void EndMember();

  /// The member between BeginMember and EndMember, sizes and checksum so far.
  [[nodiscard]] const ZipMember& CurrentMember() const { return member_; }

  /// Counts what was taken over from an earlier archive.
  void CountTakenOver(std::uint64_t files, std::uint64_t sourceBytes);

  /// Writes the central directory; `comment` is the archive's.
  void Finish(std::string_view comment);

  /// What there is so far; any thread may ask at any time.
  [[nodiscard]] std::uint64_t Members() const { return members_; }
  [[nodiscard]] std::uint64_t SourceBytes() const { return sourceBytes_; }
  [[nodiscard]] std::uint64_t ArchiveBytes() const { return archiveBytes_; }
  [[nodiscard]] std::uint64_t FilesTakenOver() const { return filesTakenOver_; }
  [[nodiscard]] std::uint64_t BytesTakenOver() const { return bytesTakenOver_; }

 private:
  void AddToDirectory(const ZipMember& member);
  void CutTo(std::uint64_t archiveBytes);
  void ClearData();
  void Write(std::string_view bytes);

  OutputFile& file_;
  // Records, ready to be written: the most compact form to keep them in. In parts, since one text
  // would take its size once more whenever it grows.
  std::deque<std::string> directory_;
  ZipMember member_;
  std::uint64_t headerBytes_ = 0;  // of member_
  std::atomic<std::uint64_t> members_ = 0;
  std::atomic<std::uint64_t> sourceBytes_ = 0;
  std::atomic<std::uint64_t> archiveBytes_ = 0;
  std::atomic<std::uint64_t> filesTakenOver_ = 0;
  std::atomic<std::uint64_t> bytesTakenOver_ = 0;
};

}  // namespace tools
