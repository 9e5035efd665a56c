#include "model/FolderTable.h"

#include <algorithm>
#include <array>

#include "model/TextTable.h"

namespace model {

namespace {

struct Folder {
  std::int32_t number;
  const char* macro;
  std::int32_t displayText;
};

constexpr std::array kFolders{
    Folder{2, "ProgramsDir", 278},
    Folder{5, "MyDocs", 267},
    Folder{6, "FavoritesDir", 268},
    Folder{7, "Startup", 282},
    Folder{9, "SendTo", 279},
    Folder{11, "StartMenu", 281},
    Folder{16, "DesktopDir", 266},
    Folder{19, "NetHood", 274},
    Folder{20, "Fonts", 269},
    Folder{21, "Templates", 285},
    Folder{22, "CommonStartMenu", 263},
    Folder{23, "CommonProgramsDir", 262},
    Folder{24, "CommonStartup", 264},
    Folder{25, "CommonDesktopDir", 259},
    Folder{26, "AppData", 256},
    Folder{27, "PrintHood", 275},
    Folder{28, "LocalAppData", 272},
    Folder{31, "SharedFavorites", 261},
    Folder{35, "CommonAppData", 258},
    Folder{36, "WinDir", 286},
    Folder{37, "WinSysDir", 283},
    Folder{38, "ProgramFiles", 277},
    Folder{39, "MyPictures", 273},
    Folder{40, "Profile", 276},
    Folder{43, "SharedFiles", 280},
    Folder{46, "SharedDocuments", 260},
    Folder{47, "CommonAdminTools", 257},
    Folder{48, "AdminTools", 255},
    Folder{2001, "InstallPath", 270},
    Folder{2002, "TempPath", 271},
    Folder{2003, "SysRoot", 284},
    Folder{kCustomFolder, "CUSTOM", 265},
};

const Folder* FindFolder(std::int32_t number) {
  const auto found = std::find_if(kFolders.begin(), kFolders.end(),
                                  [number](const Folder& f) { return f.number == number; });
  return found == kFolders.end() ? nullptr : &*found;
}

}  // namespace

std::string FolderMacro(std::int32_t folderNumber) {
  const Folder* folder = FindFolder(folderNumber);
  return folder == nullptr ? std::string{} : std::string("%").append(folder->macro).append("%");
}

std::string FolderDisplayName(std::int32_t folderNumber) {
  const Folder* folder = FindFolder(folderNumber);
  return folder == nullptr ? std::string{} : LoadText(folder->displayText);
}

}  // namespace model
