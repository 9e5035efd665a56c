#include "tools/archive/ArchiveJobs.h"

#include <string_view>
#include <utility>

#include "tools/files/InputFile.h"

namespace tools {

namespace {

// A job of small files is worth a thread's while from so many on.
constexpr std::size_t kFullFiles = 64;
constexpr std::size_t kFullBytes = 1U << 19U;
constexpr std::size_t kHeaderBytes = 128;  // about, with a name

constexpr std::size_t kCopyBytes = 1U << 18U;

}  // namespace

void SmallFilesJob::Add(std::string memberName, FileContent content) {
  waitingBytes_ += content.bytes.capacity() + memberName.capacity();
  heldBytes_ += content.bytes.capacity() + content.bytes.size() + kHeaderBytes;
  sources_.push_back({std::move(memberName), std::move(content)});
}

bool SmallFilesJob::IsFull() const {
  return sources_.size() >= kFullFiles || waitingBytes_ >= kFullBytes;
}

void SmallFilesJob::Run(MemberPacker& packer, const std::stop_token& stop) {
  members_.reserve(sources_.size());
  for (const Source& source : sources_) {
    if (stop.stop_requested()) return;
    members_.push_back(packer.PackWhole(source.memberName, source.content, packed_));
  }
  std::exchange(sources_, {});
  heldBytes_ = packed_.capacity();
}

void SmallFilesJob::Deliver(const std::stop_token& /*stop*/) {
  assembler_.AppendMembers(packed_, members_);
}

FileBlockJob::FileBlockJob(ArchiveAssembler& assembler, std::shared_ptr<const ArchiveSource> source,
                           std::uint64_t index, std::size_t blockBytes)
    : assembler_(assembler), source_(std::move(source)), index_(index), blockBytes_(blockBytes) {}

std::uint64_t FileBlockJob::Blocks(std::uint64_t fileBytes, std::size_t blockBytes) {
  return (fileBytes + blockBytes - 1) / blockBytes;
}

bool FileBlockJob::IsLast() const { return index_ + 1 == Blocks(source_->stamp.size, blockBytes_); }

std::size_t FileBlockJob::HeldBytes() const {
  return packed_ ? block_.data.capacity() : blockBytes_;
}

void FileBlockJob::Run(MemberPacker& packer, const std::stop_token& /*stop*/) {
  block_ = packer.PackBlock(*source_, index_);
  packed_ = true;
}

void FileBlockJob::Deliver(const std::stop_token& stop) {
  if (index_ == 0) {
    // The sizes settle the form of the header; both are known to stay below them.
    assembler_.BeginMember({.name = source_->memberName,
                            .method = ZipMethod::Deflated,
                            .modifiedNanoseconds = source_->stamp.modifiedNanoseconds,
                            .sourceBytes = source_->stamp.size,
                            .storedBytes = source_->stamp.size});
  }
  assembler_.AppendData(block_.data, block_.crc32, block_.sourceBytes);
  if (!IsLast()) return;
  const ZipMember& member = assembler_.CurrentMember();
  if (member.storedBytes >= member.sourceBytes) StoreInstead(stop);
  if (!stop.stop_requested()) assembler_.EndMember();
}

void FileBlockJob::StoreInstead(const std::stop_token& stop) {
  const std::uint32_t crc32 = assembler_.CurrentMember().crc32;
  assembler_.RestartMember(ZipMethod::Stored);
  const InputFile file(source_->path);
  std::vector<char> buffer(kCopyBytes);
  std::uint64_t offset = 0;
  while (!stop.stop_requested()) {
    const std::string_view bytes(buffer.data(), file.ReadAt(offset, buffer));
    if (bytes.empty()) break;
    assembler_.AppendData(bytes, Crc32(bytes), bytes.size());
    offset += bytes.size();
    if (offset > source_->stamp.size) throw SourceChanged(*source_);
  }
  const ZipMember& member = assembler_.CurrentMember();
  const bool same = member.sourceBytes == source_->stamp.size && member.crc32 == crc32;
  if (!same && !stop.stop_requested()) throw SourceChanged(*source_);
}

}  // namespace tools
