#include "tools/archive/ArchiveWriter.h"

#include <libdeflate.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <thread>
#include <utility>

#include "tools/Error.h"
#include "tools/archive/ArchiveAssembler.h"
#include "tools/archive/ArchiveJobs.h"
#include "tools/archive/ArchiveWorkers.h"
#include "tools/archive/BlockDeflate.h"
#include "tools/archive/ByteBuffer.h"
#include "tools/archive/EarlierArchive.h"
#include "tools/archive/LargeMember.h"
#include "tools/archive/MemberPacker.h"
#include "tools/archive/SteadySource.h"
#include "tools/files/Path.h"

namespace tools {

namespace {

constexpr std::size_t kMebibyte = 1U << 20U;
// Each takes about 10 MiB: more would break the promise of bounded memory on large machines.
constexpr int kMaximumThreads = 8;
// From this level on a compressor alone takes as much again.
constexpr int kLargeLevel = 10;
constexpr int kMaximumLargeThreads = 4;
constexpr std::size_t kWaitingBytes = 3 * kMebibyte;
// Outcomes that may wait for their turn, beyond the blocks that the threads work on.
constexpr std::size_t kHeldBytes = 4 * kMebibyte;

std::size_t BlockBytes(const ArchiveOptions& options) {
  return static_cast<std::size_t>(std::clamp(options.blockMegabytes, 1, 8)) * kMebibyte;
}

int Level(const ArchiveOptions& options) { return std::clamp(options.effort, 2, 24) / 2; }

ArchiveWorkers::Limits WorkerLimits(const ArchiveOptions& options) {
  const int processors = static_cast<int>(std::thread::hardware_concurrency());
  const int wanted = options.threads > 0 ? options.threads : processors;
  const int most = Level(options) < kLargeLevel ? kMaximumThreads : kMaximumLargeThreads;
  const int threads = std::clamp(wanted, 1, most);
  return {.threads = threads,
          .heldBytes = static_cast<std::size_t>(threads) * BlockBytes(options) + 2 * kHeldBytes,
          .waitingBytes = kWaitingBytes};
}

// The archive's comment, which says by what its bytes were packed: only what the same things packed
// can be taken over, or the archive would not be what packing anew gives. A library can be replaced
// by another version without this program being built anew: a sample shows what it does.
std::string PackingMark(int level, std::size_t blockBytes) {
  constexpr int kWriterVersion = 1;  // to be raised when the writer packs otherwise
  constexpr std::size_t kSampleBytes = 16384;
  std::string sample;
  for (unsigned i = 0; sample.size() < kSampleBytes; ++i) sample += std::to_string(i * i % 7919);
  const std::uint32_t sum = Crc32(BlockDeflater(level, sample.size()).Deflate(sample));
  return "Packwright " + std::to_string(kWriterVersion) +
         ", libdeflate " LIBDEFLATE_VERSION_STRING " (" + std::to_string(sum) + "), level " +
         std::to_string(level) + ", blocks of " + std::to_string(blockBytes / kMebibyte) + " MiB";
}

}  // namespace

class ArchiveWriter::Implementation {
 public:
  Implementation(Disk& disk, const std::string& archivePath, const ArchiveOptions& options,
                 ProgressCallback progress)
      : progress_(std::move(progress)),
        blockBytes_(BlockBytes(options)),
        mark_(PackingMark(Level(options), blockBytes_)),
        earlier_(EarlierOf(options)),
        archive_(disk, archivePath),
        assembler_(archive_.File()),
        workers_(WorkerLimits(options),
                 [this, level = Level(options)] {
                   return std::make_unique<MemberPacker>(level, blockBytes_, earlier_);
                 }),
        reportProgress_([this] { ReportProgress(); }),
        tellWaiting_([this] {
          if (progress_) progress_(Totals());
        }) {}

  void Expect(ReadAhead::NextSource next, ReadAhead::Duration patience) {
    ahead_ = std::make_unique<ReadAhead>(std::move(next), patience);
  }

  CopyResult AddFile(const std::string& sourcePath, const std::string& memberName,
                     std::optional<FileTime> fileTime) {
    workers_.RaiseFailure();
    if (memberName.size() > kZipNameBytes) {
      throw PathError("Der Name ist für ein Archiv zu lang", memberName, {});
    }
    CopyResult result;
    if (!AddNext(sourcePath, memberName, fileTime, result.bytes)) {
      result = AddOnItsOwn(sourcePath, memberName, fileTime);
    }
    ReportProgress();
    return result;
  }

  ArchiveTotals Finish() {
    FlushSmallFiles();
    workers_.WaitForAll(reportProgress_);
    assembler_.Finish(mark_);
    ReportProgress();
    earlier_ = EarlierArchive();  // it may be the file that is replaced
    archive_.Commit(ReplacementFile::Durability::Cached);
    return Totals();
  }

 private:
  /// The next of the expected sources; false when the reader leaves it to AddOnItsOwn. `bytes`
  /// receives its size.
  bool AddNext(const std::string& sourcePath, const std::string& memberName,
               std::optional<FileTime> fileTime, std::uint64_t& bytes) {
    if (!ahead_) return false;
    ByteBuffer& content = ContentOfSmallFiles();
    const std::size_t before = content.Size();
    const std::optional<FileTime> modified = ahead_->AppendNext(sourcePath, content, tellWaiting_);
    if (!modified) return false;
    bytes = content.Size() - before;
    AddSmallFile(memberName, fileTime.value_or(*modified));
    return true;
  }

  CopyResult AddOnItsOwn(const std::string& sourcePath, const std::string& memberName,
                         std::optional<FileTime> fileTime) {
    SteadySource source(sourcePath);
    constexpr int kTries = 2;
    CopyResult result;
    for (int i = 0; i < kTries && !source.Cause(); ++i) {
      if (!source.Begin()) continue;
      const FileStamp& stamp = source.Stamp();
      const FileTime modified = fileTime.value_or(stamp.modified);
      if (Add(source, {sourcePath, memberName, stamp, modified}, result.bytes)) return result;
    }
    result.bytes = 0;
    result.cause = source.Cause() ? source.Cause() : std::make_error_code(kChangesMeanwhile);
    result.errorText = SystemErrorText(result.cause);
    return result;
  }

  /// `bytes` receives the source's size. False when it could not be read as it was at Begin: the
  /// archive is without it then.
  bool Add(SteadySource& source, ArchiveSource description, std::uint64_t& bytes) {
    bytes = description.stamp.size;
    if (description.stamp.size > blockBytes_) return AddBlocks(source, description);
    ByteBuffer& content = ContentOfSmallFiles();
    const std::size_t before = content.Size();
    if (!source.AppendTo(content, blockBytes_) || !source.IsUnchanged()) {
      smallFiles_->DropContent();
      return false;
    }
    bytes = content.Size() - before;
    AddSmallFile(std::move(description.memberName), description.modified);
    return true;
  }

  ByteBuffer& ContentOfSmallFiles() {
    if (!smallFiles_) smallFiles_ = std::make_unique<SmallFilesJob>(assembler_);
    return smallFiles_->Content();
  }

  /// Its bytes have been appended to that content.
  void AddSmallFile(std::string memberName, FileTime modified) {
    smallFiles_->Add(std::move(memberName), modified);
    if (smallFiles_->IsFull()) FlushSmallFiles();
  }

  // Blocks are packed while the next ones are read; the last one is only added when it is known
  // that all of them are of one state of the file.
  bool AddBlocks(SteadySource& source, const ArchiveSource& description) {
    FlushSmallFiles();
    const auto member = std::make_shared<LargeMember>(assembler_, description, blockBytes_);
    for (std::uint64_t i = 0; i < member->Blocks(); ++i) {
      ByteBuffer content = buffers_.Take();
      const bool isRead = source.AppendNext(content, blockBytes_);
      const BlockPlace place = member->PlaceOf(i);
      const bool isLast = place == BlockPlace::Last;
      if (!isRead || (isLast && !(source.IsAtEnd() && source.IsUnchanged()))) {
        workers_.Add(std::make_unique<AbandonJob>(member), reportProgress_);
        return false;
      }
      workers_.Add(std::make_unique<FileBlockJob>(member, std::move(content), place, buffers_),
                   reportProgress_);
    }
    return true;
  }

  [[nodiscard]] EarlierArchive EarlierOf(const ArchiveOptions& options) const {
    if (options.earlier.empty()) return {};
    return {options.earlier, mark_, blockBytes_};
  }

  void FlushSmallFiles() {
    if (smallFiles_ && !smallFiles_->IsEmpty()) {
      workers_.Add(std::move(smallFiles_), reportProgress_);
    }
    smallFiles_.reset();
  }

  [[nodiscard]] ArchiveTotals Totals() const {
    return {assembler_.Members(), assembler_.SourceBytes(), assembler_.ArchiveBytes(),
            assembler_.FilesTakenOver(), assembler_.BytesTakenOver()};
  }

  void ReportProgress() {
    const ArchiveTotals totals = Totals();
    if (!progress_ || totals.bytesOut == reportedBytesOut_) return;
    reportedBytesOut_ = totals.bytesOut;
    progress_(totals);
  }

  ProgressCallback progress_;
  std::size_t blockBytes_;
  std::string mark_;
  EarlierArchive earlier_;
  ReplacementFile archive_;
  ArchiveAssembler assembler_;
  ByteBuffers buffers_;
  ArchiveWorkers workers_;  // ends before what it works on
  ArchiveWorkers::WaitCallback reportProgress_;
  ReadAhead::WaitCallback tellWaiting_;
  std::unique_ptr<SmallFilesJob> smallFiles_;
  std::unique_ptr<ReadAhead> ahead_;
  std::uint64_t reportedBytesOut_ = 0;
};

ArchiveWriter::ArchiveWriter(Disk& disk, const std::string& archivePath,
                             const ArchiveOptions& options, ProgressCallback progress)
    : implementation_(
          std::make_unique<Implementation>(disk, archivePath, options, std::move(progress))) {}

ArchiveWriter::~ArchiveWriter() = default;

void ArchiveWriter::Expect(ReadAhead::NextSource next, ReadAhead::Duration patience) {
  implementation_->Expect(std::move(next), patience);
}

CopyResult ArchiveWriter::AddFile(const std::string& sourcePath, const std::string& memberName,
                                  std::optional<FileTime> fileTime) {
  return implementation_->AddFile(sourcePath, memberName, fileTime);
}

ArchiveTotals ArchiveWriter::Finish() { return implementation_->Finish(); }

}  // namespace tools
