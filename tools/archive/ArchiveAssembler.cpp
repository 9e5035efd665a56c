#include "tools/archive/ArchiveAssembler.h"

#include <stdexcept>
#include <utility>

#include "tools/archive/BlockDeflate.h"
#include "tools/archive/PackingNote.h"

namespace tools {

void ArchiveAssembler::AppendMembers(std::string_view bytes,
                                     const std::vector<ZipMember>& members) {
  for (ZipMember member : members) {
    member.headerOffset += archiveBytes_;
    AddToDirectory(member);
    sourceBytes_ += member.sourceBytes;
  }
  Write(bytes);
  members_ += members.size();
}

void ArchiveAssembler::BeginMember(ZipMember member) {
  member_ = std::move(member);
  member_.headerOffset = archiveBytes_;
  const std::string header = LocalHeader(member_);
  headerBytes_ = header.size();
  Write(header);
  ClearData();
}

void ArchiveAssembler::AppendData(std::string_view data, const PackedBlock& block) {
  Write(data);
  member_.crc32 = JoinCrc32(member_.crc32, block.crc32, block.sourceBytes);
  member_.storedBytes += data.size();
  member_.sourceBytes += block.sourceBytes;
  sourceBytes_ += block.sourceBytes;
  NotePart(member_.note, {static_cast<std::uint32_t>(data.size()), block.crc32, block.sum});
}

void ArchiveAssembler::RestartMember(ZipMethod method) {
  CutTo(member_.headerOffset + headerBytes_);
  member_.method = method;
}

void ArchiveAssembler::DropMember() { CutTo(member_.headerOffset); }

void ArchiveAssembler::EndMember() {
  const std::string header = LocalHeader(member_);
  if (header.size() != headerBytes_) throw std::logic_error("a member outgrew its header");
  file_.WriteAt(member_.headerOffset, header);
  AddToDirectory(member_);
  ++members_;
}

void ArchiveAssembler::CountTakenOver(std::uint64_t files, std::uint64_t sourceBytes) {
  filesTakenOver_ += files;
  bytesTakenOver_ += sourceBytes;
}

void ArchiveAssembler::Finish(std::string_view comment) {
  const std::uint64_t offset = archiveBytes_;
  for (const std::string& part : directory_) Write(part);
  Write(DirectoryEnd(members_, archiveBytes_ - offset, offset, comment));
}

void ArchiveAssembler::AddToDirectory(const ZipMember& member) {
  constexpr std::size_t kPartBytes = std::size_t{64} << 10U;
  if (directory_.empty() || directory_.back().size() >= kPartBytes) {
    directory_.emplace_back().reserve(kPartBytes + (kPartBytes >> 6U));
  }
  AppendCentralRecord(directory_.back(), member);
}

// Takes back the current member's data, and with it all that the archive has beyond so many bytes.
void ArchiveAssembler::CutTo(std::uint64_t archiveBytes) {
  file_.Truncate(archiveBytes);
  archiveBytes_ = archiveBytes;
  sourceBytes_ -= member_.sourceBytes;
  ClearData();
}

void ArchiveAssembler::ClearData() {
  member_.crc32 = 0;
  member_.storedBytes = 0;
  member_.sourceBytes = 0;
  member_.note.clear();
}

void ArchiveAssembler::Write(std::string_view bytes) {
  file_.Write(bytes);
  archiveBytes_ += bytes.size();
}

}  // namespace tools
