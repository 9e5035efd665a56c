// Packs some small files in one go, so that thousands of them do not cost a hand-over each.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/archive/ArchiveAssembler.h"
#include "tools/archive/MemberPacker.h"
#include "tools/archive/OrderedJob.h"

namespace tools {

class SmallFilesJob : public OrderedJob {
 public:
  /// `assembler` must outlive the job.
  explicit SmallFilesJob(ArchiveAssembler& assembler) : assembler_(assembler) {}

  /// Adds a member that is no larger than a block.
  void Add(std::string memberName, FileContent content);
  /// True when the files are enough to be worth a thread's while.
  [[nodiscard]] bool IsFull() const;

  [[nodiscard]] std::size_t WaitingBytes() const override { return waitingBytes_; }
  [[nodiscard]] std::size_t HeldBytes() const override { return heldBytes_; }
  void Run(MemberPacker& packer, const std::stop_token& stop) override;
  void Deliver(const std::stop_token& stop) override;

 private:
  struct Source {
    std::string memberName;
    FileContent content;
  };

  ArchiveAssembler& assembler_;
  std::vector<Source> sources_;
  std::size_t waitingBytes_ = 0;
  std::size_t heldBytes_ = 0;
  std::string packed_;
  std::vector<ZipMember> members_;
};

}  // namespace tools
