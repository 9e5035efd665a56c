// From an entry to the files it stands for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "build/BuildStatus.h"
#include "model/ICFile.h"

namespace build {

/// Why an entry stands for no file.
enum class SourceFault {
  None,
  Missing,     ///< a single file that is not there
  NoMatch,     ///< a folder scan that finds nothing
  Unreadable,  ///< a folder scan that failed
};

struct SourceList {
  std::vector<std::string> paths;  ///< full paths, in the order of installation
  std::vector<std::string> links;  ///< those of a folder scan that may be links
  SourceFault fault = SourceFault::None;
  std::string logText;   ///< the fault as the log tells it
  std::string userText;  ///< the same for the screen (German)
};

/// The entry's source folder; a relative one is taken from the product's folder.
[[nodiscard]] std::string SourceFolderOf(const model::ICFile& entry,
                                         const std::string& productFolder);

/// A single file gives its path, a folder scan every file it finds, any other type nothing and no
/// fault.
[[nodiscard]] SourceList ListSources(const model::ICFile& entry, const std::string& productFolder);

}  // namespace build
