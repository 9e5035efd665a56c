// Writes a zip archive (PKWARE APPNOTE.TXT 6.3.x) on all processors.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "tools/archive/ReadAhead.h"
#include "tools/files/Disk.h"
#include "tools/files/Files.h"

namespace tools {

/// The writer's three numeric options. Values outside their range become the nearest in it.
struct ArchiveOptions {
  /// Files above this size are cut into blocks of it, which are packed side by side; MiB, 1 to 8.
  int blockMegabytes = 3;
  /// Half a step of libdeflate's levels each: 2 is the fastest, 24 the smallest. 12, which is level
  /// 6, makes smaller archives than common zip programs do at their default; one level more costs
  /// a third more time and gains half a percent.
  int effort = 12;
  /// Worker threads, up to 8, and up to 4 from effort 20 on; 0 takes one for each processor.
  int threads = 0;
  /// The archive of an earlier build, whose packed bytes are taken over for what has not changed;
  /// empty, or one that cannot be used: everything is packed. The bytes that come out are the same.
  std::string earlier{};
};

/// What an archive has come to.
struct ArchiveTotals {
  std::uint64_t files = 0;
  std::uint64_t bytesIn = 0;
  std::uint64_t bytesOut = 0;  ///< size of the archive file
  // What came packed out of the earlier archive, or was stored in it too:
  std::uint64_t filesTakenOver = 0;  ///< whole files
  std::uint64_t bytesTakenOver = 0;  ///< of bytesIn; those of parts of large files too
};

/// Writes members in the order they are added, deflated (stored where that gains next to nothing),
/// so that unchanged sources give the same bytes with the same libdeflate, whatever the number of
/// threads, and whatever comes out of an earlier archive.
/// Members are compressed and written by worker threads that live inside the writer, while the
/// caller goes on; memory is bounded by block size and threads. The archive takes its place only
/// when Finish has succeeded: until then, and after any failure, the path is as it was.
class ArchiveWriter {
 public:
  /// Called on the caller's own thread, inside AddFile and Finish, when members have been written,
  /// and several times a second while a slow source is waited for.
  /// What it raises to stop passes through; the writer can only be destroyed then.
  using ProgressCallback = std::function<void(const ArchiveTotals& soFar)>;

  /// `disk` must outlive the writer. Raises Error when the archive cannot be created.
  ArchiveWriter(Disk& disk, const std::string& archivePath, const ArchiveOptions& options,
                ProgressCallback progress = {});
  /// Ends the threads; without Finish the archive is discarded.
  ~ArchiveWriter();
  ArchiveWriter(const ArchiveWriter&) = delete;
  ArchiveWriter& operator=(const ArchiveWriter&) = delete;

  /// Tells which sources will be added, in their order, so that they can be read ahead where
  /// reading is slow; they need not all be added. The paths have to live as long as the writer.
  /// AddFile raises std::logic_error for any other order.
  void Expect(ReadAhead::NextSource next, ReadAhead::Duration patience = ReadAhead::kPatience);

  /// Adds one file as member `memberName` ("/" separates folders) as it is at one moment: it is
  /// read before this returns (before this begins, where it is read ahead), and once more when it
  /// changes meanwhile. The result tells why it could not be read (kChangesMeanwhile as a cause
  /// when it changes all the time); the archive then goes on without it. The member gets
  /// `fileTime`, or without one the file's. Blocks while the queue is full.
  ///
  /// Raises Error when the archive cannot be written, and then in all later calls. One case of it:
  /// of a file of many blocks the first ones do not shrink but a later one does. They are then read
  /// again, and the file may have changed by then.
  [[nodiscard]] CopyResult AddFile(const std::string& sourcePath, const std::string& memberName,
                                   std::optional<FileTime> fileTime = {});

  /// Writes what is queued and the directory, and puts the archive in its place. Raises Error.
  ArchiveTotals Finish();

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace tools
