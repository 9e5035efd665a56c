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

void SmallFilesJob::Add(std::string memberName, FileTime modified) {
  sources_.push_back({std::move(memberName), content_.Size() - sourceBytes_, modified});
  sourceBytes_ = content_.Size();
}

bool SmallFilesJob::IsFull() const {
  return sources_.size() >= kFullFiles || sourceBytes_ >= kFullBytes;
}

std::size_t SmallFilesJob::WaitingBytes() const {
  return content_.Capacity() + sources_.size() * kHeaderBytes;
}

std::size_t SmallFilesJob::HeldBytes() const {
  return content_.Capacity() + sourceBytes_ + sources_.size() * kHeaderBytes + packed_.capacity();
}

void SmallFilesJob::Run(MemberPacker& packer, const std::stop_token& stop) {
  members_.reserve(sources_.size());
  packed_.reserve(sourceBytes_ / 2);
  std::string_view content = content_.View();
  for (Source& source : sources_) {
    if (stop.stop_requested()) return;
    const SmallFile file{std::move(source.memberName), content.substr(0, source.bytes),
                         source.modified, &source == &sources_.back()};
    content.remove_prefix(source.bytes);
    bool isTakenOver = false;
    members_.push_back(packer.PackWhole(file, packed_, isTakenOver));
    if (!isTakenOver) continue;
    ++filesTakenOver_;
    bytesTakenOver_ += source.bytes;
  }
  members_.back().note = NoteOfRun(Crc32(packed_));
  content_ = {};
  sources_ = {};
  sourceBytes_ = 0;
}

void SmallFilesJob::Deliver(const std::stop_token& /*stop*/) {
  assembler_.AppendMembers(packed_, members_);
  assembler_.CountTakenOver(filesTakenOver_, bytesTakenOver_);
}

void FileBlockJob::Run(MemberPacker& packer, const std::stop_token& /*stop*/) {
  block_ = packer.PackBlock(content_.View(), place_);
  if (!block_.isDeflated) return;
  deflated_ = block_.data;
  block_.data = deflated_;
  buffers_.GiveBack(content_);
}

void FileBlockJob::Deliver(const std::stop_token& stop) {
  member_->Append(block_, stop);
  buffers_.GiveBack(content_);
}

}  // namespace tools
