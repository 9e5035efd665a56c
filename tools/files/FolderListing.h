// The names in one folder, as the system gives them.
#pragma once

#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace tools {

struct FolderItem {
  enum class Kind {
    File,
    Folder,
    Dead  ///< a link that leads nowhere, or something that cannot be looked at
  };

  std::string name;
  Kind kind = Kind::File;
  bool mayBeLink = false;   ///< false where the system says for nothing that it is none
  std::error_code cause{};  ///< why it is Dead
};

/// The files (links to files among them), subfolders (links to folders left out) and dead names of
/// a folder, in no particular order; everything else is passed over. `failure` says why it cannot
/// be read to its end.
[[nodiscard]] std::vector<FolderItem> ListFolder(std::string_view folder, std::error_code& failure);

}  // namespace tools
