// Packs one block of a file that is larger than a block.
#pragma once

#include <cstdint>
#include <memory>

#include "tools/archive/ArchiveAssembler.h"
#include "tools/archive/MemberPacker.h"
#include "tools/archive/OrderedJob.h"

namespace tools {

/// The jobs of a file's blocks have to be added one behind the other, from the first to the last:
/// the first one begins the member and the last one ends it.
class FileBlockJob : public OrderedJob {
 public:
  /// `assembler` must outlive the job; `index` counts from 0.
  FileBlockJob(ArchiveAssembler& assembler, std::shared_ptr<const ArchiveSource> source,
               std::uint64_t index, std::size_t blockBytes);

  /// How many blocks a file of this size has.
  [[nodiscard]] static std::uint64_t Blocks(std::uint64_t fileBytes, std::size_t blockBytes);

  [[nodiscard]] std::size_t HeldBytes() const override;
  void Run(MemberPacker& packer, const std::stop_token& stop) override;
  void Deliver(const std::stop_token& stop) override;

 private:
  [[nodiscard]] bool IsLast() const;
  void StoreInstead(const std::stop_token& stop);

  ArchiveAssembler& assembler_;
  std::shared_ptr<const ArchiveSource> source_;
  std::uint64_t index_;
  std::size_t blockBytes_;
  PackedBlock block_;
  bool packed_ = false;
};

}  // namespace tools
