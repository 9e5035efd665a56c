#include "tools/archive/SmallFilesJob.h"

#include <utility>

namespace tools {

namespace {

constexpr std::size_t kFullFiles = 64;
constexpr std::size_t kFullBytes = 1U << 19U;
constexpr std::size_t kHeaderBytes = 128;  // about, with a name

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

}  // namespace tools
