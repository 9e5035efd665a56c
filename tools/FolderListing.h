// The names in one folder, as the system gives them.
#pragma once

#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace tools {

struct FolderItem {
  enum class Kind { File, Folder };

  std::string name;
  Kind kind = Kind::File;
  bool mayBeLink = false;  ///< false where the system says for nothing that it is none
};

/// The files (links to files among them) and subfolders (links to folders left out) of a folder, in
/// no particular order; everything else is passed over. `failure` says why it cannot be read.
[[nodiscard]] std::vector<FolderItem> ListFolder(std::string_view folder, std::error_code& failure);

}  // namespace tools
