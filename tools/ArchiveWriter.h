// Writes a zip archive (PKWARE APPNOTE.TXT 6.3.x) on all processors.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "tools/Dialogs.h"
#include "tools/Disk.h"

namespace tools {

/// The writer's three numeric options.
struct ArchiveOptions {
  int blockMegabytes = 3;  ///< files above this size are cut into blocks of it (MiB), 1 to 8
  int level = 12;          ///< placeholder, see the implementation's documentation
  int threads = 0;         ///< worker threads; 0 takes one for each processor
};

/// What an archive has come to.
struct ArchiveTotals {
  std::uint64_t files = 0;
  std::uint64_t bytesIn = 0;
  std::uint64_t bytesOut = 0;  ///< size of the archive file
};

/// Writes members in the order they are added, deflated (stored where that is not smaller), so that
/// unchanged sources give the same bytes. Files are read and compressed by worker threads that live
/// inside the writer; memory is bounded by block size and processors. The archive takes its place
/// only when Finish has succeeded: until then, and after any failure, the path is as it was.
class ArchiveWriter {
 public:
  /// Called on the caller's own thread as members are written; may raise an error to stop.
  using ProgressCallback = std::function<void(const ArchiveTotals& soFar)>;

  /// `disk` must outlive the writer. Raises Error when the archive cannot be created.
  ArchiveWriter(Disk& disk, const std::string& archivePath, const ArchiveOptions& options,
                ProgressCallback progress = {});
  /// Ends the worker threads; without Finish the archive is discarded.
  ~ArchiveWriter();
  ArchiveWriter(const ArchiveWriter&) = delete;
  ArchiveWriter& operator=(const ArchiveWriter&) = delete;

  /// Queues one file as member `memberName`; it may be read at any time until Finish returns.
  /// Blocks while the queue is full. Raises Error (also for members queued before).
  void AddFile(const std::string& sourcePath, const std::string& memberName);

  /// Queues the files of a folder that match a pattern, each under its own name at the top level,
  /// in the order of FindFiles.
  void AddPattern(std::string_view folder, std::string_view pattern);

  /// Writes what is queued and the directory, and puts the archive in its place. Raises Error.
  ArchiveTotals Finish();

 private:
  class Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace tools
