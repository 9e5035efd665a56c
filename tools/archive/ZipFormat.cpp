#include "tools/archive/ZipFormat.h"

#include <algorithm>
#include <chrono>

#include "tools/Text.h"
#include "tools/archive/PackingNote.h"

namespace tools {

namespace {

constexpr std::uint32_t kLocalHeaderSignature = 0x04034b50;

constexpr std::uint16_t kUtf8Flag = 1U << 11U;  // 4.4.4
// 4.4.2 and 4.4.3: attributes are MS-DOS ones, the same on every machine; the version is the one
// that brought the features used.
constexpr std::uint16_t kVersionStored = 10;
constexpr std::uint16_t kVersionDeflated = 20;
constexpr std::uint16_t kVersionZip64 = 45;

std::uint16_t Low16(std::uint64_t value) {
  return static_cast<std::uint16_t>(std::min(value, kElsewhere16));
}

std::uint32_t Low32(std::uint64_t value) {
  return static_cast<std::uint32_t>(std::min(value, kElsewhere32));
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::uint16_t Flags(std::string_view name) {
  return !IsAscii(name) && IsValidUtf8(name) ? kUtf8Flag : std::uint16_t{0};
}

std::uint16_t VersionNeeded(const ZipMember& member, bool zip64) {
  if (zip64) return kVersionZip64;
  return member.method == ZipMethod::Stored ? kVersionStored : kVersionDeflated;
}

// The fields that both headers share, from "version needed" to the length of the name. Both sizes
// go to the Zip64 form when one has to, as the local header demands.
void AppendCommonFields(std::string& bytes, const ZipMember& member, std::uint16_t version) {
  const bool elsewhere = NeedsZip64(member);
  AppendNumber(bytes, version);
  AppendNumber(bytes, Flags(member.name));
  AppendNumber(bytes, static_cast<std::uint16_t>(member.method));
  AppendNumber(bytes, DosDateTime(member.modified));
  AppendNumber(bytes, member.crc32);
  AppendNumber(bytes, Low32(elsewhere ? kElsewhere32 : member.storedBytes));
  AppendNumber(bytes, Low32(elsewhere ? kElsewhere32 : member.sourceBytes));
  AppendNumber(bytes, Low16(member.name.size()));
}

std::string ExtraField(std::uint16_t id, const std::string& values) {
  std::string field;
  AppendNumber(field, id);
  AppendNumber(field, Low16(values.size()));
  return field + values;
}

std::string Zip64Sizes(const ZipMember& member) {
  std::string values;
  if (!NeedsZip64(member)) return values;
  AppendNumber(values, member.sourceBytes);
  AppendNumber(values, member.storedBytes);
  return values;
}

std::string Zip64Extra(const std::string& values) {
  return values.empty() ? values : ExtraField(kZip64ExtraId, values);
}

}  // namespace

bool NeedsZip64(const ZipMember& member) {
  return std::max(member.sourceBytes, member.storedBytes) >= kElsewhere32;
}

std::string LocalHeader(const ZipMember& member) {
  std::string extra = Zip64Extra(Zip64Sizes(member));
  const std::uint16_t version = VersionNeeded(member, !extra.empty());
  // Info-ZIP's unzip takes a name for UTF-8 only where an extra field follows: one that is in the
  // directory alone makes it complain that the names differ.
  if (member.isNoted) extra += ExtraField(kPackingNoteId, {});
  std::string header;
  AppendNumber(header, kLocalHeaderSignature);
  AppendCommonFields(header, member, version);
  AppendNumber(header, Low16(extra.size()));
  return header.append(member.name).append(extra);
}

void AppendCentralRecord(std::string& directory, const ZipMember& member) {
  std::string elsewhere = Zip64Sizes(member);
  if (member.headerOffset >= kElsewhere32) AppendNumber(elsewhere, member.headerOffset);
  std::string extra = Zip64Extra(elsewhere);
  const std::uint16_t version = VersionNeeded(member, !extra.empty());
  if (member.isNoted) extra += ExtraField(kPackingNoteId, member.note);
  AppendNumber(directory, kCentralRecordSignature);
  AppendNumber(directory, version);  // made by
  AppendCommonFields(directory, member, version);
  AppendNumber(directory, Low16(extra.size()));
  AppendNumber(directory, std::uint16_t{0});  // length of the comment
  AppendNumber(directory, std::uint16_t{0});  // disk number
  AppendNumber(directory, std::uint16_t{0});  // internal attributes
  AppendNumber(directory, std::uint32_t{0});  // external attributes
  AppendNumber(directory, Low32(member.headerOffset));
  directory.append(member.name).append(extra);
}

std::string DirectoryEnd(std::uint64_t members, std::uint64_t directoryBytes,
                         std::uint64_t directoryOffset, std::string_view comment) {
  std::string end;
  if (members >= kElsewhere16 || std::max(directoryBytes, directoryOffset) >= kElsewhere32) {
    constexpr std::uint64_t kBytesThatFollow = 44;
    AppendNumber(end, kZip64EndSignature);
    AppendNumber(end, kBytesThatFollow);
    AppendNumber(end, kVersionZip64);     // made by
    AppendNumber(end, kVersionZip64);     // needed
    AppendNumber(end, std::uint32_t{0});  // this disk
    AppendNumber(end, std::uint32_t{0});  // the directory's disk
    AppendNumber(end, members);           // on this disk
    AppendNumber(end, members);           // in all
    AppendNumber(end, directoryBytes);
    AppendNumber(end, directoryOffset);
    AppendNumber(end, kZip64LocatorSignature);
    AppendNumber(end, std::uint32_t{0});  // the disk of the record above
    AppendNumber(end, directoryOffset + directoryBytes);
    AppendNumber(end, std::uint32_t{1});  // disks in all
  }
  AppendNumber(end, kDirectoryEndSignature);
  AppendNumber(end, std::uint16_t{0});  // this disk
  AppendNumber(end, std::uint16_t{0});  // the directory's disk
  AppendNumber(end, Low16(members));    // on this disk
  AppendNumber(end, Low16(members));    // in all
  AppendNumber(end, Low32(directoryBytes));
  AppendNumber(end, Low32(directoryOffset));
  AppendNumber(end, Low16(comment.size()));
  return end.append(comment);
}

std::uint32_t DosDateTime(FileTime fileTime) {
  using namespace std::chrono;
  constexpr sys_seconds kFirst = sys_days{year{1980} / 1 / 1};
  constexpr sys_seconds kLast = sys_days{year{2107} / 12 / 31} + 23h + 59min + 58s;
  const sys_seconds time = std::clamp(floor<seconds>(fileTime), kFirst, kLast);
  const sys_days day = floor<days>(time);
  const year_month_day date{day};
  const hh_mm_ss clock{time - day};
  const auto number = [](auto count) { return static_cast<std::uint32_t>(count); };
  return (number(static_cast<int>(date.year()) - 1980) << 25U) |
         (static_cast<unsigned>(date.month()) << 21U) | (static_cast<unsigned>(date.day()) << 16U) |
         (number(clock.hours().count()) << 11U) | (number(clock.minutes().count()) << 5U) |
         (number(clock.seconds().count()) >> 1U);
}

}  // namespace tools
