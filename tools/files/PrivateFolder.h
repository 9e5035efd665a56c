// Creating a folder that only this user can enter.
#pragma once

#include <string>

namespace tools {

/// `path` must not exist yet: nobody can have prepared the folder. Raises Error.
void MakePrivateFolder(const std::string& path);

}  // namespace tools
