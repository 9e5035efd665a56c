#include "tools/SmallFilesJob.h"

#include <utility>

namespace tools {

namespace {

constexpr std::size_t kFullFiles = 64;
constexpr std::size_t kFullBytes = 1U << 19U;
constexpr std::size_t kHeaderBytes = 128;  // about, with a name

}  // namespace

void SmallFilesJob::Add(ArchiveSource source) {
  heldBytes_ += source.stamp.size + kHeaderBytes;
  sources_.push_back(std::move(source));
}

bool SmallFilesJob::IsFull() const {
  return sources_.size() >= kFullFiles || heldBytes_ >= kFullBytes;
}

std::size_t SmallFilesJob::HeldBytes() const { return heldBytes_; }

void SmallFilesJob::Run(MemberPacker& packer, const std::stop_token& stop) {
  members_.reserve(sources_.size());
  for (const ArchiveSource& source : sources_) {
    if (stop.stop_requested()) return;
    members_.push_back(packer.PackWhole(source, packed_));
  }
  sources_.clear();
  heldBytes_ = packed_.capacity();
}

void SmallFilesJob::Deliver(const std::stop_token& /*stop*/) {
  assembler_.AppendMembers(packed_, members_);
}

}  // namespace tools
