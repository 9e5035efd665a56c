#include "setup/TargetPath.h"

#include <algorithm>
#include <array>

#include "tools/Text.h"
#include "tools/files/Names.h"

namespace setup {

namespace {

struct Folder {
  std::int32_t number;
  std::string_view name;
};

constexpr std::array kFolders{
    Folder{2, "ProgramsDir"},
    Folder{5, "MyDocs"},
    Folder{6, "FavoritesDir"},
    Folder{7, "Startup"},
    Folder{9, "SendTo"},
    Folder{11, "StartMenu"},
    Folder{16, "DesktopDir"},
    Folder{19, "NetHood"},
    Folder{20, "Fonts"},
    Folder{21, "Templates"},
    Folder{22, "CommonStartMenu"},
    Folder{23, "CommonProgramsDir"},
    Folder{24, "CommonStartup"},
    Folder{25, "CommonDesktopDir"},
    Folder{26, "AppData"},
    Folder{27, "PrintHood"},
    Folder{28, "LocalAppData"},
    Folder{31, "SharedFavorites"},
    Folder{35, "CommonAppData"},
    Folder{36, "WinDir"},
    Folder{37, "WinSysDir"},
    Folder{38, "ProgramFiles"},
    Folder{39, "MyPictures"},
    Folder{40, "Profile"},
    Folder{43, "SharedFiles"},
    Folder{46, "SharedDocuments"},
    Folder{47, "CommonAdminTools"},
    Folder{48, "AdminTools"},
    Folder{2001, "InstallPath"},
    Folder{2002, kTemporaryFolder},
    Folder{2003, "SysRoot"},
    Folder{kCustomFolder, "CUSTOM"},
};

}  // namespace

bool IsFolderName(std::string_view name) {
  return std::ranges::find(kFolders, name, &Folder::name) != kFolders.end();
}

std::string_view FolderName(std::int32_t number) {
  const auto* const found = std::ranges::find(kFolders, number, &Folder::number);
  return found == kFolders.end() ? std::string_view{} : found->name;
}

namespace {

bool IsDriveLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

char UpperAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// Takes the top off the path.
TargetPath TakeTop(std::string_view& path) {
  TargetPath target{.kind = TargetPath::Kind::Root,
                    .top = "root",
                    .parts = {},
                    .climbs = false,
                    .climbsOut = false};
  const std::string_view first = path.substr(0, path.find_first_of("\\/"));
  if (first.size() > 2 && first.front() == '%' && first.back() == '%') {
    target.kind = TargetPath::Kind::Folder;
    target.top = first.substr(1, first.size() - 2);
    path.remove_prefix(first.size());
  } else if (first.size() >= 2 && first[1] == ':' && IsDriveLetter(first[0])) {
    target.kind = TargetPath::Kind::Drive;
    target.top = UpperAscii(first[0]);
    path.remove_prefix(2);
  }
  return target;
}

}  // namespace

TargetPath SplitTarget(std::string_view path) {
  TargetPath target = TakeTop(path);
  while (!path.empty()) {
    const std::string_view part = path.substr(0, path.find_first_of("\\/"));
    path.remove_prefix(std::min(path.size(), part.size() + 1));
    if (part == "..") {
      target.climbs = true;
      target.climbsOut = target.climbsOut || target.parts.empty();
      if (!target.parts.empty()) target.parts.pop_back();
    } else if (!part.empty() && part != ".") {
      target.parts.emplace_back(part);
    }
  }
  return target;
}

std::string ObjectionTo(const TargetPath& target) {
  if (target.kind == TargetPath::Kind::Folder && !IsFolderName(target.top)) {
    return "Der Zielordner %" + target.top + "% ist unbekannt.";
  }
  if (target.parts.empty()) return "Das Ziel nennt keine Datei.";
  for (const std::string& part : target.parts) {
    if (!tools::IsPortableFileName(part)) {
      return "Windows erlaubt diesen Namen nicht: \"" + part + "\".";
    }
  }
  return {};
}

std::string TargetKey(std::string_view path) {
  const TargetPath target = SplitTarget(path);
  std::string key = target.top;
  if (target.kind == TargetPath::Kind::Drive) key += ':';
  if (target.kind == TargetPath::Kind::Folder) key.insert(0, "%");
  for (const std::string& part : target.parts) key.append("\\").append(part);
  return tools::FoldCase(key);
}

std::string_view BelowFolder(std::string_view path, std::string_view folder) {
  const std::size_t prefix = folder.size() + 3;
  if (path.size() <= prefix || path[0] != '%' || path.substr(1, folder.size()) != folder ||
      path.substr(prefix - 2, 2) != "%\\") {
    return {};
  }
  return path.substr(prefix);
}

}  // namespace setup
