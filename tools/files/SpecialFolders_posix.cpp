#include <pwd.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <string_view>

#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/files/Path.h"
#include "tools/files/SpecialFolders.h"

namespace tools {

namespace {

/// The value of an environment variable that must hold an absolute path (as the XDG base directory
/// specification asks), without separators at its end; empty when it holds none.
std::string FolderVariable(const char* name) {
  const char* value = getenv(name);
  if (value == nullptr || !IsAbsolutePath(value)) return {};
  std::string folder(value);
  while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
  return folder;
}

std::string Home() {
  std::string home = FolderVariable("HOME");
  if (!home.empty()) return home;
  const passwd* user = getpwuid(getuid());
  return user == nullptr || user->pw_dir == nullptr ? "/" : user->pw_dir;
}

/// A folder of the XDG base directory specification.
std::string BaseFolder(const char* variable, std::string_view belowHome) {
  std::string folder = FolderVariable(variable);
  return folder.empty() ? JoinPath(Home(), belowHome) : folder;
}

/// The folder that a line of user-dirs.dirs names: NAME="$HOME/PATH" or NAME="/PATH", with
/// backslashes before quotes. Empty for any other line.
std::string FolderOfLine(std::string_view line, std::string_view name) {
  line = TrimBlanks(line);
  if (!line.starts_with(name)) return {};
  line.remove_prefix(name.size());
  if (!line.starts_with("=\"")) return {};
  line.remove_prefix(2);
  const bool inHome = line.starts_with("$HOME/");
  if (inHome) line.remove_prefix(6);
  if (!inHome && !line.starts_with('/')) return {};
  std::string path;
  for (std::size_t i = 0; i < line.size() && line[i] != '"'; ++i) {
    if (line[i] == '\\' && i + 1 < line.size()) ++i;
    path += line[i];
  }
  if (inHome) path = JoinPath(Home(), path);
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

/// A folder of xdg-user-dirs; the home folder when the user has none of its own.
std::string UserFolder(std::string_view name) {
  std::ifstream file(JoinPath(BaseFolder("XDG_CONFIG_HOME", ".config"), "user-dirs.dirs"));
  std::string result;
  for (std::string line; std::getline(file, line);) {
    const std::string folder = FolderOfLine(line, name);
    // The file is a shell script: the last assignment counts.
    if (!folder.empty()) result = folder;
  }
  return result.empty() ? Home() : result;
}

}  // namespace

std::string SpecialFolder(std::int32_t number) {
  switch (number) {
    case kDocumentsFolder:
      return UserFolder("XDG_DOCUMENTS_DIR");
    case kUserDataFolder:
      return BaseFolder("XDG_CONFIG_HOME", ".config");
    case kProfileFolder:
      return Home();
    case kTemporaryFolder: {
      std::string folder = FolderVariable("TMPDIR");
      return folder.empty() ? "/tmp" : folder;
    }
    default:
      return {};
  }
}

std::vector<std::string> HomeFolders() {
  std::vector<std::string> homes{Home()};
  ::setpwent();
  while (const passwd* user = ::getpwent()) {
    if (user->pw_dir != nullptr && IsAbsolutePath(user->pw_dir)) homes.emplace_back(user->pw_dir);
  }
  ::endpwent();
  return homes;
}

}  // namespace tools
