#include "model/FolderTable.h"
#include "tests/support/Testing.h"

namespace model {

TEST(FolderTable, HoldsEveryFolder) {
  std::string folders;
  for (std::int32_t number = -100; number < 3000; ++number) {
    const std::string macro = FolderMacro(number);
    EXPECT_EQ(macro.empty(), FolderDisplayName(number).empty()) << number;
    if (macro.empty()) continue;
    folders += std::to_string(number) + macro + FolderDisplayName(number) + "\n";
  }
  EXPECT_EQ(folders, R"(2%ProgramsDir%Startmenü Programme
5%MyDocs%Eigene Dateien
6%FavoritesDir%Favoriten
7%Startup%Autostart
9%SendTo%Senden an
11%StartMenu%Startmenü
16%DesktopDir%Desktop
19%NetHood%Netzwerkumgebung
20%Fonts%Schriftarten
21%Templates%Vorlagen
22%CommonStartMenu%Startmenü (alle Benutzer)
23%CommonProgramsDir%Startmenü Programme (alle Benutzer)
24%CommonStartup%Autostart (alle Benutzer)
25%CommonDesktopDir%Desktop (alle Benutzer)
26%AppData%Anwendungsdaten
27%PrintHood%Druckerumgebung
28%LocalAppData%Lokale Anwendungsdaten
31%SharedFavorites%Favoriten (alle Benutzer)
35%CommonAppData%Anwendungsdaten (alle Benutzer)
36%WinDir%Windows
37%WinSysDir%System
38%ProgramFiles%Programme
39%MyPictures%Eigene Bilder
40%Profile%Profil
43%SharedFiles%Gemeinsame Dateien
46%SharedDocuments%Gemeinsame Dokumente
47%CommonAdminTools%Verwaltung (alle Benutzer)
48%AdminTools%Verwaltung
2001%InstallPath%Installationsordner
2002%TempPath%Temporäres Installationsverzeichnis
2003%SysRoot%Stammverzeichnis
2004%CUSTOM%Benutzerdefiniert
)");
}

}  // namespace model
