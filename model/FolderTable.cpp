#include "model/FolderTable.h"

#include <algorithm>
#include <array>

#include "model/TextTable.h"

namespace model {

namespace {

struct Folder {
  std::int32_t number;
  const char* macro;
  Text displayText;
};

constexpr std::array kFolders{
    Folder{2, "ProgramsDir", Text::FolderPrograms},
    Folder{5, "MyDocs", Text::FolderMyDocuments},
    Folder{6, "FavoritesDir", Text::FolderFavorites},
    Folder{7, "Startup", Text::FolderStartup},
    Folder{9, "SendTo", Text::FolderSendTo},
    Folder{11, "StartMenu", Text::FolderStartMenu},
    Folder{16, "DesktopDir", Text::FolderDesktop},
    Folder{19, "NetHood", Text::FolderNetHood},
    Folder{20, "Fonts", Text::FolderFonts},
    Folder{21, "Templates", Text::FolderTemplates},
    Folder{22, "CommonStartMenu", Text::FolderCommonStartMenu},
    Folder{23, "CommonProgramsDir", Text::FolderCommonPrograms},
    Folder{24, "CommonStartup", Text::FolderCommonStartup},
    Folder{25, "CommonDesktopDir", Text::FolderCommonDesktop},
    Folder{26, "AppData", Text::FolderAppData},
    Folder{27, "PrintHood", Text::FolderPrintHood},
    Folder{28, "LocalAppData", Text::FolderLocalAppData},
    Folder{31, "SharedFavorites", Text::FolderSharedFavorites},
    Folder{35, "CommonAppData", Text::FolderCommonAppData},
    Folder{36, "WinDir", Text::FolderWindows},
    Folder{37, "WinSysDir", Text::FolderSystem},
    Folder{38, "ProgramFiles", Text::FolderProgramFiles},
    Folder{39, "MyPictures", Text::FolderMyPictures},
    Folder{40, "Profile", Text::FolderProfile},
    Folder{43, "SharedFiles", Text::FolderSharedFiles},
    Folder{46, "SharedDocuments", Text::FolderSharedDocuments},
    Folder{47, "CommonAdminTools", Text::FolderCommonAdminTools},
    Folder{48, "AdminTools", Text::FolderAdminTools},
    Folder{2001, "InstallPath", Text::FolderInstallation},
    Folder{2002, "TempPath", Text::FolderTemporary},
    Folder{2003, "SysRoot", Text::FolderSystemRoot},
    Folder{kCustomFolder, "CUSTOM", Text::FolderCustom},
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
