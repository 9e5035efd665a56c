#include "engine/ArchiveStore.h"

#include <algorithm>
#include <utility>

#include "engine/SourceCursor.h"
#include "tools/Text.h"
#include "tools/files/Files.h"
#include "tools/files/InputFile.h"
#include "tools/files/Path.h"

namespace engine {

namespace {

constexpr std::size_t kReadBytes = std::size_t{1} << 18U;

// What Windows takes for a path or a stream, or the runtime for a macro, becomes "_".
std::string StoredExtension(std::string_view sourcePath) {
  constexpr std::string_view kSigns = "-_+~#!$&@()";
  std::string extension = tools::Extension(sourcePath);
  const bool isText = tools::IsValidUtf8(extension);
  std::replace_if(
      extension.begin(), extension.end(),
      [&](char c) {
        const bool isLetterOrDigit = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                                     (c >= 'a' && c <= 'z') || (c < 0 && isText);
        return !isLetterOrDigit && kSigns.find(c) == std::string_view::npos;
      },
      '_');
  return extension;
}

}  // namespace

ArchiveStore::ArchiveStore(tools::Disk& disk, const std::string& archivePath,
                           const tools::ArchiveOptions& options,
                           std::optional<tools::FileTime> fileTime, BuildProgress& progress,
                           const Survey& survey)
    : fileTime_(fileTime), progress_(progress) {
  WithArchive([&] {
    writer_ = std::make_unique<tools::ArchiveWriter>(disk, archivePath, options,
                                                     [this](const tools::ArchiveTotals& totals) {
                                                       totals_ = totals;
                                                       ReportProgress();
                                                     });
    writer_->Expect([cursor = SourceCursor(survey)]() mutable { return cursor.Next(); });
  });
}

StoredFile ArchiveStore::Store(const model::ICFile& /*entry*/, std::string_view sourcePath) {
  StoredFile stored;
  const std::string path(sourcePath);
  stored.name = std::to_string(++counter_) + "." + StoredExtension(sourcePath);
  if (writer_) {
    WithArchive([&] { stored.copy = writer_->AddFile(path, stored.name, fileTime_); });
  }
  if (!writer_) stored.copy = ReadThrough(path);
  readBytes_ += stored.copy.bytes;
  if (!stored.copy.Succeeded()) ++failedFiles_;
  ReportProgress();
  return stored;
}

tools::CopyResult ArchiveStore::ReadThrough(const std::string& sourcePath) {
  tools::CopyResult result;
  try {
    const tools::InputFile file(sourcePath);
    std::string buffer(kReadBytes, '\0');
    while (const std::size_t count = file.ReadAt(result.bytes, buffer)) {
      result.bytes += count;
      ReportProgress();
    }
  } catch (const tools::Error& error) {
    return {.errorText = tools::SystemErrorText(error.Cause()), .cause = error.Cause()};
  }
  return result;
}

std::optional<tools::Error> ArchiveStore::Finish() {
  if (writer_) {
    WithArchive([&] { totals_ = writer_->Finish(); });
  }
  writer_.reset();
  ReportProgress();
  return failure_;
}

// Keeps the archive's first error for Finish; a stop request passes through.
template <typename Action>
void ArchiveStore::WithArchive(const Action& action) {
  try {
    action();
  } catch (const tools::Error& error) {
    failure_ = error;
    writer_.reset();
    totals_ = {};
  }
}

void ArchiveStore::ReportProgress() {
  if (failure_) {
    progress_.Report(static_cast<std::uint64_t>(counter_), readBytes_);
  } else {
    progress_.Report(totals_.files + failedFiles_, totals_.bytesIn);
  }
}

}  // namespace engine
