#include <utility>

#include "tools/Error.h"
#include "tools/files/Files.h"
#include "tools/files/FindFiles.h"
#include "tools/files/Path.h"
#include "tools/files/SystemFiles_win.h"

namespace tools {

namespace {

/// For a link to a file. One that cannot be looked at leads somewhere: reading it tells more.
bool LeadsNowhere(const std::string& path) {
  try {
    return !StampOf(path).exists;
  } catch (const Error&) {
    return false;
  }
}

}  // namespace

std::vector<FolderEntry> ListEntries(std::string_view folder, std::error_code& failure) {
  std::vector<FolderEntry> entries;
  FolderSearch search(LongPath(folder));
  if (!search.IsOpen()) {
    failure = LastSystemError();
    return entries;
  }
  do {
    if (search.IsDots()) continue;
    const DWORD attributes = search.Data().dwFileAttributes;
    FolderEntry::Kind kind = FolderEntry::Kind::File;
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
      kind = IsFolderLink(attributes) ? FolderEntry::Kind::Other : FolderEntry::Kind::Folder;
    }
    entries.push_back({FromWide(search.Data().cFileName), kind});
  } while (search.Next());
  if (GetLastError() != ERROR_NO_MORE_FILES) failure = LastSystemError();
  return entries;
}

std::vector<FolderItem> ListFolder(std::string_view folder, std::error_code& failure,
                                   const ListingStep& step) {
  std::vector<FolderItem> items;
  FolderSearch search(LongPath(folder));
  if (!search.IsOpen()) {
    failure = LastSystemError();
    return items;
  }
  do {
    if (search.IsDots()) continue;
    if (step) step();
    const DWORD attributes = search.Data().dwFileAttributes;
    const bool isFolder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    FolderItem item{FromWide(search.Data().cFileName),
                    isFolder ? FolderItem::Kind::Folder : FolderItem::Kind::File,
                    (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0,
                    {}};
    if (IsFolderLink(attributes)) {
      item.kind = FolderItem::Kind::FolderLink;
    } else if (item.mayBeLink && LeadsNowhere(JoinPath(folder, item.name))) {
      item.kind = FolderItem::Kind::Dead;
      item.cause = std::make_error_code(std::errc::no_such_file_or_directory);
    }
    items.push_back(std::move(item));
  } while (search.Next());
  if (GetLastError() != ERROR_NO_MORE_FILES) failure = LastSystemError();
  return items;
}

}  // namespace tools
