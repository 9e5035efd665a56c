// What the threads of an archive do: pack some small files, or one block of a large one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <stop_token>
#include <string>
#include <vector>

#include "tools/archive/ArchiveAssembler.h"
#include "tools/archive/ArchiveWorkers.h"
#include "tools/archive/ByteBuffer.h"
#include "tools/archive/LargeMember.h"
#include "tools/archive/MemberPacker.h"

namespace tools {

/// Packs some small files in one go, so that thousands of them do not cost a hand-over each.
class SmallFilesJob : public ArchiveJob {
 public:
  /// `assembler` must outlive the job.
  explicit SmallFilesJob(ArchiveAssembler& assembler) : assembler_(assembler) {}

  /// Adds a member whose content has been appended to Content() since the call before; it is no
  /// larger than a block.
  void Add(std::string memberName, FileTime modified);
  [[nodiscard]] ByteBuffer& Content() { return content_; }
  /// Takes back what has been appended since the last Add.
  void DropContent() { content_.CutTo(sourceBytes_); }
  [[nodiscard]] bool IsEmpty() const { return sources_.empty(); }
  /// True when the files are enough to be worth a thread's while. The archive shows where one job
  /// ends: it depends on nothing but the contents.
  [[nodiscard]] bool IsFull() const;

  [[nodiscard]] std::size_t WaitingBytes() const override;
  [[nodiscard]] std::size_t HeldBytes() const override;
  void Run(MemberPacker& packer, const std::stop_token& stop) override;
  void Deliver(const std::stop_token& stop) override;

 private:
  ArchiveAssembler& assembler_;
  struct Source {
    std::string memberName;
    std::size_t bytes = 0;
    FileTime modified{};
  };

  ByteBuffer content_;
  std::vector<Source> sources_;
  std::size_t sourceBytes_ = 0;  // of content_ that are members'
  std::string packed_;
  std::vector<ZipMember> members_;
  std::uint64_t filesTakenOver_ = 0;
  std::uint64_t bytesTakenOver_ = 0;
};

/// Packs one block of a file that is larger than a block.
///
/// The jobs of a file's blocks have to be added one behind the other, from the first to the last.
class FileBlockJob : public ArchiveJob {
 public:
  /// `buffers` gets the content back; it must outlive the job.
  FileBlockJob(std::shared_ptr<LargeMember> member, ByteBuffer content, BlockPlace place,
               ByteBuffers& buffers)
      : member_(std::move(member)),
        content_(std::move(content)),
        place_(place),
        buffers_(buffers) {}

  [[nodiscard]] std::size_t WaitingBytes() const override { return content_.Capacity(); }
  [[nodiscard]] std::size_t HeldBytes() const override {
    return content_.Capacity() + deflated_.capacity();
  }
  void Run(MemberPacker& packer, const std::stop_token& stop) override;
  void Deliver(const std::stop_token& stop) override;

 private:
  std::shared_ptr<LargeMember> member_;
  ByteBuffer content_;
  BlockPlace place_;
  ByteBuffers& buffers_;
  std::string deflated_;
  PackedBlock block_;  // its data is in one of the above
};

/// Takes a member back whose blocks have been added, but for the last one.
class AbandonJob : public ArchiveJob {
 public:
  explicit AbandonJob(std::shared_ptr<LargeMember> member) : member_(std::move(member)) {}

  [[nodiscard]] std::size_t HeldBytes() const override { return 0; }
  void Run(MemberPacker& /*packer*/, const std::stop_token& /*stop*/) override {}
  void Deliver(const std::stop_token& /*stop*/) override { member_->Abandon(); }

 private:
  std::shared_ptr<LargeMember> member_;
};

}  // namespace tools
