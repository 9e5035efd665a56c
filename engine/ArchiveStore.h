// Stores files as "1.ext", "2.ext", ... in one archive, so that every name in it is unique whatever
// the sources are called.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "engine/BuildObserver.h"
#include "engine/FileStore.h"
#include "tools/archive/ArchiveWriter.h"
#include "tools/files/Disk.h"
#include "tools/files/TemporaryFiles.h"

namespace engine {

/// Files are first copied, which settles their content, and archived from the copy while the next
/// ones are copied: small files in memory, larger ones in a private temporary folder. A failure of
/// the archive does not end the build: the remaining files are still copied, so that their problems
/// are found too, and Finish gives the cause.
class ArchiveStore : public FileStore {
 public:
  /// `disk` and `progress` must outlive the store. Members get `fileTime` (nanoseconds since
  /// 1970-01-01 UTC), or without one the times of their sources. Raises tools::Error when there can
  /// be no temporary folder.
  ArchiveStore(tools::Disk& disk, const std::string& archivePath,
               const tools::ArchiveOptions& options, std::optional<std::int64_t> fileTime,
               BuildProgress& progress);

  [[nodiscard]] StoredFile Store(const model::ICFile& entry,
                                 const std::string& sourcePath) override;
  [[nodiscard]] std::string_view PlaceName() const override { return "temp folder"; }
  [[nodiscard]] std::optional<tools::Error> Finish() override;
  [[nodiscard]] const tools::ArchiveTotals& Totals() const override { return totals_; }

 private:
  template <typename Action>
  void WithArchive(const Action& action);
  template <typename Action>
  void Archive(const Action& action);
  void StoreCopy(const std::string& sourcePath, StoredFile& stored);
  void ReportProgress();

  std::optional<std::int64_t> fileTime_;
  BuildProgress& progress_;
  tools::PrivateTemporaryFolder private_;
  std::string folder_;
  std::int32_t counter_ = 0;
  std::uint64_t failedCopies_ = 0;
  std::uint64_t copiedBytes_ = 0;
  tools::ArchiveTotals totals_;
  std::optional<tools::Error> failure_;
  std::unique_ptr<tools::ArchiveWriter> writer_;
};

}  // namespace engine
