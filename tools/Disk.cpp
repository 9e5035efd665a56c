#include "tools/Disk.h"

#include "tools/LinkTarget.h"
#include "tools/Path.h"
#include "tools/TemporaryName.h"

namespace tools {

ReplacementFile::ReplacementFile(Disk& disk, std::string_view target)
    : disk_(disk),
      target_(LinkTarget(target)),
      temporary_(TemporaryNameBeside(target_)),
      file_(disk.CreateNew(temporary_)) {}

ReplacementFile::~ReplacementFile() {
  if (temporary_.empty()) return;
  file_.reset();
  disk_.Discard(temporary_);
}

void ReplacementFile::Commit(Durability durability) {
  if (durability == Durability::Flushed) file_->Sync();
  file_->Close();
  file_.reset();
  disk_.Replace(temporary_, target_);
  temporary_.clear();
  if (durability == Durability::Flushed) disk_.SyncFolder(FolderOf(target_));
}

void WriteTextFile(Disk& disk, std::string_view path, std::string_view text,
                   ReplacementFile::Durability durability) {
  ReplacementFile replacement(disk, path);
  replacement.File().Write(text);
  replacement.Commit(durability);
}

}  // namespace tools
