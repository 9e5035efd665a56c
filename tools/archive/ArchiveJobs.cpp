#include "tools/archive/ArchiveJobs.h"

#include <utility>

#include "tools/archive/PackingNote.h"

namespace tools {

namespace {

// A job of small files is worth a thread's while from so many on.
constexpr std::size_t kFullFiles = 64;
constexpr std::size_t kFullBytes = 1U << 19U;
constexpr std::size_t kHeaderBytes = 128;  // about, with a name

}  // namespace

void SmallFilesJob::Add(SmallFile file) {
  sourceBytes_ += file.content.size();
  waitingBytes_ += file.content.capacity() + file.memberName.capacity();
  heldBytes_ += file.content.capacity() + file.content.size() + kHeaderBytes;
  sources_.push_back(std::move(file));
}

bool SmallFilesJob::IsFull() const {
  return sources_.size() >= kFullFiles || sourceBytes_ >= kFullBytes;
}

void SmallFilesJob::Run(MemberPacker& packer, const std::stop_token& stop) {
  members_.reserve(sources_.size());
  for (const SmallFile& source : sources_) {
    if (stop.stop_requested()) return;
    bool isTakenOver = false;
    const bool isLast = &source == &sources_.back();
    members_.push_back(packer.PackWhole(source, isLast, packed_, isTakenOver));
    if (!isTakenOver) continue;
    ++filesTakenOver_;
    bytesTakenOver_ += source.content.size();
  }
  members_.back().note = NoteOfRun(Crc32(packed_));
  std::exchange(sources_, {});
  heldBytes_ = packed_.capacity();
}

void SmallFilesJob::Deliver(const std::stop_token& /*stop*/) {
  assembler_.AppendMembers(packed_, members_);
  assembler_.CountTakenOver(filesTakenOver_, bytesTakenOver_);
}

void FileBlockJob::Run(MemberPacker& packer, const std::stop_token& /*stop*/) {
  block_ = packer.PackBlock(std::exchange(content_, {}), isLast_);
}

void FileBlockJob::Deliver(const std::stop_token& stop) { member_->Append(block_, stop); }

}  // namespace tools
