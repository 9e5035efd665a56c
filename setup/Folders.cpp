#include "setup/Folders.h"

#include <algorithm>
#include <array>

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

}  // namespace setup
