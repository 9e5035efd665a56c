// One thread's part of making an archive: deflates members and parts of members.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "tools/Error.h"
#include "tools/archive/BlockDeflate.h"
#include "tools/archive/BlockTaker.h"
#include "tools/archive/EarlierArchive.h"
#include "tools/archive/ZipFormat.h"
#include "tools/files/Files.h"
#include "tools/files/InputFile.h"

namespace tools {

/// A file of more than a block, as it was when it was added.
struct ArchiveSource {
  std::string path;
  std::string memberName;
  FileStamp stamp;
};

/// A part of a member whose source is packed in several blocks.
struct PackedBlock {
  std::string data{};
  bool isDeflated = true;    ///< else `data` is the source's bytes
  bool isTakenOver = false;  ///< packed in an earlier archive
  std::uint32_t crc32 = 0;   ///< of the source's bytes
  std::uint32_t sum = 0;     ///< CRC-32 of deflated data; 0 where `data` is the source's bytes
  std::size_t sourceBytes = 0;
};

/// Not for use by several threads at a time.
class MemberPacker {
 public:
  /// `level` is libdeflate's. What `earlier` holds is taken over; it must outlive the packer.
  /// Raises std::bad_alloc.
  MemberPacker(int level, std::size_t blockBytes, const EarlierArchive& earlier);

  /// Appends local header and data of a whole member to `bytes` and returns its description, with
  /// `headerOffset` counting from the start of `bytes`. The content is no larger than a block.
  /// `isNoted`: the member will have a note.
  [[nodiscard]] ZipMember PackWhole(const std::string& memberName, const FileContent& content,
                                    bool isNoted, std::string& bytes, bool& isTakenOver);

  /// Packs block `index` of a file, counted from 0. Raises Error when the file cannot be read or is
  /// not the one that was added: blocks of two states of a file must not meet in one member.
  [[nodiscard]] PackedBlock PackBlock(const ArchiveSource& source, std::uint64_t index);

 private:
  [[nodiscard]] std::string_view Pack(std::string_view source, PackedForm form);

  std::size_t blockBytes_;
  std::unique_ptr<char[]> input_;  // a block
  BlockDeflater deflater_;
  BlockTaker taker_;
};

/// The error for a file that was changed while it was being packed.
[[nodiscard]] Error SourceChanged(const ArchiveSource& source);

}  // namespace tools
