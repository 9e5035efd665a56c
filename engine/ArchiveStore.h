// Stores files as "1.ext", "2.ext", ... in one archive, so that every name in it is unique whatever
// the sources are called.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "engine/BuildObserver.h"
#include "engine/StoreFiles.h"
#include "engine/Survey.h"
#include "tools/archive/ArchiveWriter.h"
#include "tools/files/Disk.h"

namespace engine {

/// A failure of the archive does not end the build: the remaining files are still read, so that
/// their problems are found too, and Finish gives the cause.
class ArchiveStore : public FileStore {
 public:
  /// `disk`, `progress` and `survey`, whose sources will be stored in their order, must outlive the
  /// store. Members get `fileTime`, or without one the times of their sources.
  ArchiveStore(tools::Disk& disk, const std::string& archivePath,
               const tools::ArchiveOptions& options, std::optional<tools::FileTime> fileTime,
               BuildProgress& progress, const Survey& survey);

  [[nodiscard]] StoredFile Store(const model::ICFile& entry, std::string_view sourcePath) override;
  [[nodiscard]] std::string_view PlaceName() const override { return "temp folder"; }
  [[nodiscard]] std::optional<tools::Error> Finish() override;
  [[nodiscard]] const tools::ArchiveTotals& Totals() const override { return totals_; }

 private:
  template <typename Action>
  void WithArchive(const Action& action);
  [[nodiscard]] tools::CopyResult ReadThrough(const std::string& sourcePath);
  void ReportProgress();

  std::optional<tools::FileTime> fileTime_;
  BuildProgress& progress_;
  std::int32_t counter_ = 0;
  std::uint64_t failedFiles_ = 0;
  std::uint64_t readBytes_ = 0;
  tools::ArchiveTotals totals_;
  std::optional<tools::Error> failure_;
  std::unique_ptr<tools::ArchiveWriter> writer_;
};

}  // namespace engine
