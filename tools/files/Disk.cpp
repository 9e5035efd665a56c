#include "tools/files/Disk.h"

#include "tools/files/Files.h"
#include "tools/files/LinksAndMounts.h"
#include "tools/files/Path.h"
#include "tools/files/TemporaryFiles.h"

namespace tools {

void SystemDisk::DiscardFolder(const std::string& path) noexcept { RemoveEmptyFolder(path); }

std::vector<std::string> SystemDisk::MakeFolder(const std::string& path) {
  return tools::MakeFolder(path);
}

void SystemDisk::RemoveFolderTree(const std::string& path) { tools::RemoveFolderTree(path); }

void SystemDisk::MoveFolder(const std::string& from, const std::string& to) {
  tools::MoveFolder(from, to);
}

void SystemDisk::DeleteFile(const std::string& path) { tools::DeleteFile(path); }

CopyResult SystemDisk::CopyFile(const std::string& source, const std::string& target,
                                const CopyProgress& progress) {
  return tools::CopyFile(source, target, progress);
}

ReplacementFile::ReplacementFile(Disk& disk, std::string_view target)
    : disk_(disk),
      target_(LinkTarget(target)),
      temporary_(std::make_unique<HeldTemporary>(
          target_, [this](const std::string& path) { file_ = disk_.CreateNew(path, target_); })) {}

ReplacementFile::~ReplacementFile() {
  if (!temporary_) return;
  file_.reset();
  disk_.Discard(temporary_->Path());
}

void ReplacementFile::Commit(Durability durability) {
  if (durability == Durability::Flushed) file_->Sync();
  file_->Close();
  file_.reset();
  disk_.Replace(temporary_->Path(), target_);
  temporary_.reset();
  if (durability == Durability::Flushed) disk_.SyncFolder(FolderOf(target_));
}

void WriteTextFile(Disk& disk, std::string_view path, std::string_view text,
                   ReplacementFile::Durability durability) {
  ReplacementFile replacement(disk, path);
  replacement.File().Write(text);
  replacement.Commit(durability);
}

}  // namespace tools
