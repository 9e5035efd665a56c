#include "tools/files/Files.h"

#include "tools/Error.h"
#include "tools/files/FindFiles.h"
#include "tools/files/Path.h"

namespace tools {

namespace {

/// Raises the error of a path of which the system cannot tell what is there.
PathKind RequireKind(std::string_view path, const char* what) {
  std::error_code failure;
  const PathKind kind = KindOf(path, failure);
  if (failure) throw PathError(what, path, failure);
  return kind;
}

/// Appends each folder that it creates to `made`.
void MakeMissing(const std::string& path, std::vector<std::string>& made) {
  std::error_code cause = CreateOneFolder(path);
  if (cause == std::errc::no_such_file_or_directory) {
    const std::string parent = FolderOf(path);
    if (!parent.empty() && parent.size() < path.size()) {
      MakeMissing(parent, made);
      cause = CreateOneFolder(path);
    }
  }
  std::error_code ignored;
  if (!cause) {
    made.push_back(path);
  } else if (KindOf(path, ignored) != PathKind::Folder) {
    throw PathError("Der Ordner kann nicht angelegt werden", path, cause);
  }
}

}  // namespace

bool FileExists(std::string_view path) {
  return RequireKind(path, "Die Datei kann nicht gelesen werden") == PathKind::File;
}

bool FolderExists(std::string_view path) {
  return RequireKind(path, "Der Ordner kann nicht gelesen werden") == PathKind::Folder;
}

std::vector<std::string> MakeFolder(std::string_view path) {
  std::vector<std::string> made;
  try {
    MakeMissing(std::string(path), made);
  } catch (...) {
    while (!made.empty()) {
      RemoveEmptyFolder(made.back());
      made.pop_back();
    }
    throw;
  }
  return made;
}

void SetTreeTime(const std::string& folder, FileTime time) {
  std::error_code failure;
  for (const FolderItem& item : ListFolder(folder, failure)) {
    const std::string path = JoinPath(folder, item.name);
    if (item.kind == FolderItem::Kind::Folder) SetTreeTime(path, time);
    if (item.kind == FolderItem::Kind::File) SetModificationTime(path, time);
  }
  if (failure) throw PathError("Der Ordner kann nicht gelesen werden", folder, failure);
  SetModificationTime(folder, time);
}

}  // namespace tools
