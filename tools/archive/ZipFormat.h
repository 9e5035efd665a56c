// The records of a zip archive as bytes. Layouts and numbers follow PKWARE's APPNOTE.TXT 6.3.9; the
// section of each is named beside it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "tools/Clock.h"

namespace tools {

/// Section 4.4.5.
enum class ZipMethod : std::uint16_t { Stored = 0, Deflated = 8 };

/// What the local header and the central record tell about one member.
struct ZipMember {
  std::string name;  ///< at most kZipNameBytes; "/" separates folders
  ZipMethod method = ZipMethod::Stored;
  FileTime modified{};
  std::uint32_t crc32 = 0;  ///< of the source's bytes
  std::uint64_t sourceBytes = 0;
  std::uint64_t storedBytes = 0;
  std::uint64_t headerOffset = 0;  ///< of the local header in the archive
  bool isNoted = false;            ///< has a note, which may still be missing in the local header
  std::string note{};              ///< for the directory alone: see PackingNote.h
};

inline constexpr std::size_t kZipNameBytes = 0xFFFF;

// What reading needs to know of the records.
inline constexpr std::uint32_t kCentralRecordSignature = 0x02014b50;
inline constexpr std::uint32_t kDirectoryEndSignature = 0x06054b50;
inline constexpr std::uint32_t kZip64EndSignature = 0x06064b50;
inline constexpr std::uint32_t kZip64LocatorSignature = 0x07064b50;
inline constexpr std::uint16_t kZip64ExtraId = 0x0001;    // 4.5.3
inline constexpr std::size_t kLocalHeaderBytes = 30;      // without name and extra field
inline constexpr std::size_t kLocalZip64ExtraBytes = 20;  // both sizes and the field's own header
inline constexpr std::size_t kLocalNoteBytes = 4;         // an empty field
inline constexpr std::size_t kCentralRecordBytes = 46;    // without name and extra field
inline constexpr std::size_t kDirectoryEndBytes = 22;     // without the comment
inline constexpr std::size_t kZip64EndBytes = 56;
inline constexpr std::size_t kZip64LocatorBytes = 20;
// A field of this value says that the Zip64 form has the real one.
inline constexpr std::uint64_t kElsewhere16 = 0xFFFF;
inline constexpr std::uint64_t kElsewhere32 = 0xFFFFFFFF;

/// True when the member's sizes need the Zip64 form. The local header is then longer, so that this
/// must be settled before the header is written; sizes put in later must not change it.
[[nodiscard]] bool NeedsZip64(const ZipMember& member);

/// Section 4.3.7 with 4.5.3, without a data descriptor: sizes and checksum stand in the header.
/// Its length depends on the name, on NeedsZip64 and on `isNoted` only.
[[nodiscard]] std::string LocalHeader(const ZipMember& member);

/// Appends a record of the central directory (4.3.12 with 4.5.3).
void AppendCentralRecord(std::string& directory, const ZipMember& member);

/// The end of the central directory (4.3.16), behind its Zip64 form (4.3.14, 4.3.15) where the
/// values ask for that. `comment` is the archive's, of at most 65535 bytes.
[[nodiscard]] std::string DirectoryEnd(std::uint64_t members, std::uint64_t directoryBytes,
                                       std::uint64_t directoryOffset,
                                       std::string_view comment = {});

/// Date (upper half) and time (lower half) in MS-DOS form (4.4.6), in steps of two seconds. It is
/// UTC: a zone's local time would make the archive's bytes depend on the machine. Times outside
/// 1980 to 2107 become the nearest one that the form can hold.
[[nodiscard]] std::uint32_t DosDateTime(FileTime time);

}  // namespace tools
