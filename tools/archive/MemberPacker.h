// One thread's part of making an archive: deflates members and parts of members.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "tools/archive/BlockDeflate.h"
#include "tools/archive/BlockTaker.h"
#include "tools/archive/EarlierArchive.h"
#include "tools/archive/ZipFormat.h"

namespace tools {

/// A file of at most a block.
struct SmallFile {
  std::string memberName;
  std::string_view content;
  FileTime modified{};
  bool isNoted = false;  ///< the member will have a note
};

/// A part of a member whose source is packed in several blocks.
struct PackedBlock {
  std::string_view data{};
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
  /// `headerOffset` counting from the start of `bytes`.
  [[nodiscard]] ZipMember PackWhole(const SmallFile& file, std::string& bytes, bool& isTakenOver);

  /// Packs one block of a larger file. Deflated data is valid until the next call.
  [[nodiscard]] PackedBlock PackBlock(std::string_view content, BlockPlace place);

 private:
  [[nodiscard]] std::string_view Pack(std::string_view source, PackedForm form);

  BlockDeflater deflater_;
  BlockTaker taker_;
};

}  // namespace tools
