#include "engine/ArchiveStore.h"

#include <algorithm>
#include <utility>

#include "tools/Text.h"
#include "tools/files/Files.h"
#include "tools/files/InputFile.h"
#include "tools/files/Path.h"

namespace engine {

namespace {

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
                           std::optional<std::int64_t> fileTime, BuildProgress& progress)
    : fileTime_(fileTime),
      progress_(progress),
      folder_(tools::JoinPath(private_.Path(), "PackwrightTemp")) {
  if (const std::error_code cause = tools::CreateOneFolder(folder_)) {
    throw tools::PathError("Der temporäre Ordner kann nicht angelegt werden",
                           tools::FolderOf(private_.Path()), cause);
  }
  WithArchive([&] {
    writer_ = std::make_unique<tools::ArchiveWriter>(disk, archivePath, options,
                                                     [this](const tools::ArchiveTotals& totals) {
                                                       totals_ = totals;
                                                       ReportProgress();
                                                     });
  });
}

StoredFile ArchiveStore::Store(const model::ICFile& /*entry*/, const std::string& sourcePath) {
  StoredFile stored;
  stored.name = std::to_string(++counter_) + "." + StoredExtension(sourcePath);
  std::optional<tools::FileContent> content;
  try {
    content = tools::ReadFileUpTo(sourcePath, tools::ArchiveWriter::kMaximumContentBytes);
  } catch (const tools::Error& error) {
    stored.copy = {.errorText = tools::SystemErrorText(error.Cause()), .cause = error.Cause()};
  }
  if (content) {
    stored.copy.bytes = content->bytes.size();
    if (fileTime_) content->modifiedNanoseconds = *fileTime_;
    Archive(
        [&](tools::ArchiveWriter& writer) { writer.AddContent(std::move(*content), stored.name); });
  } else if (stored.copy.Succeeded()) {
    StoreCopy(sourcePath, stored);
  }
  copiedBytes_ += stored.copy.bytes;
  if (!stored.copy.Succeeded()) ++failedCopies_;
  return stored;
}

void ArchiveStore::StoreCopy(const std::string& sourcePath, StoredFile& stored) {
  const std::string copy = tools::JoinPath(folder_, stored.name);
  stored.copy = tools::CopyFile(sourcePath, copy, [this](std::uint64_t) { ReportProgress(); });
  if (!stored.copy.Succeeded()) return;
  Archive([&](tools::ArchiveWriter& writer) {
    if (fileTime_) tools::SetModificationTime(copy, *fileTime_);
    writer.AddFile(copy, stored.name);
  });
}

template <typename Action>
void ArchiveStore::Archive(const Action& action) {
  if (writer_) WithArchive([&] { action(*writer_); });
  ReportProgress();
}

std::optional<tools::Error> ArchiveStore::Finish() {
  if (writer_) {
    WithArchive([&] { totals_ = writer_->Finish(); });
  }
  writer_.reset();
  ReportProgress();
  return failure_;
}

// The build survives a failure of the archive; a wish to stop is no failure and passes through.
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
    progress_.Report(static_cast<std::uint64_t>(counter_), copiedBytes_);
  } else {
    progress_.Report(totals_.files + failedCopies_, totals_.bytesIn);
  }
}

}  // namespace engine
