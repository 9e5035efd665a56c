// One thread's part of making an archive: reads sources and deflates them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "tools/BlockDeflate.h"
#include "tools/Error.h"
#include "tools/Files.h"
#include "tools/InputFile.h"
#include "tools/ZipFormat.h"

namespace tools {

/// A file to pack, as it was when it was added.
struct ArchiveSource {
  std::string path;
  std::string memberName;
  FileStamp stamp;
};

/// A part of a member whose source is packed in several blocks.
struct PackedBlock {
  std::string data;
  std::uint32_t crc32 = 0;  ///< of the source's bytes
  std::size_t sourceBytes = 0;
};

/// Not for use by several threads at a time.
class MemberPacker {
 public:
  /// `level` is libdeflate's. Raises std::bad_alloc.
  MemberPacker(int level, std::size_t blockBytes);

  /// Appends local header and data of a whole member to `bytes` and returns its description, with
  /// `headerOffset` counting from the start of `bytes`. The member is what the file holds now.
  /// Raises Error when the file cannot be read or has grown to more than a block.
  [[nodiscard]] ZipMember PackWhole(const ArchiveSource& source, std::string& bytes);

  /// Packs block `index` of a file, counted from 0. Raises Error when the file cannot be read or is
  /// not the one that was added: blocks of two states of a file must not meet in one member.
  [[nodiscard]] PackedBlock PackBlock(const ArchiveSource& source, std::uint64_t index);

 private:
  [[nodiscard]] std::string_view Read(const InputFile& file, std::uint64_t offset,
                                      std::size_t wanted);

  std::size_t blockBytes_;
  std::unique_ptr<char[]> input_;  // one byte more than a block, to notice files that have grown
  BlockDeflater deflater_;
};

/// The error for a file that was changed while it was being packed.
[[nodiscard]] Error SourceChanged(const ArchiveSource& source);

}  // namespace tools
