// The names in one folder, as the system gives them.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace tools {

struct FolderItem {
  enum class Kind {
    File,
    Folder,
    FolderLink,  ///< a link to a folder
    Special,     ///< a pipe, device or socket, or a link to one
    Dead         ///< a link that leads nowhere, or something that cannot be looked at
  };

  std::string name;
  Kind kind = Kind::File;
  bool mayBeLink = false;   ///< false if known, without an extra call, not to be a link
  std::error_code cause{};  ///< why it is Dead
};

/// One entry, links not followed.
struct FolderEntry {
  enum class Kind {
    File,    ///< a regular file
    Folder,  ///< a folder itself
    Other    ///< a link (on Windows: of a folder), a device, what cannot be looked at
  };

  std::string name;
  Kind kind = Kind::Other;
};

/// Called before each entry of a listing, which can take long; what it throws (Stopped, see
/// Progress.h) ends the listing. Empty: nothing is called.
using ListingStep = std::function<void()>;

/// Everything in a folder but "." and "..", in no particular order. `failure` as below.
[[nodiscard]] std::vector<FolderEntry> ListEntries(std::string_view folder,
                                                   std::error_code& failure);

/// All that lies in a folder, in no particular order; links to files count as files. `failure` says
/// why it cannot be read to its end.
[[nodiscard]] std::vector<FolderItem> ListFolder(std::string_view folder, std::error_code& failure,
                                                 const ListingStep& step = {});

}  // namespace tools
