#include "model/FolderTable.h"
#include "model/TextTable.h"
#include "tests/support/Testing.h"

namespace model {

TEST(TextTable, GivesTextsByNumber) {
  EXPECT_EQ(LoadText(200), "Packwright");
  EXPECT_EQ(LoadText(288), "Ordner \"%name%\"");
  EXPECT_EQ(LoadText(397),
            "Alle Werte, die für \"%key%\" gespeichert sind, werden unwiderruflich gelöscht!");
  for (const std::int32_t number : {INT32_MIN, -1, 0, 199, 398, INT32_MAX}) {
    EXPECT_EQ(LoadText(number), "") << number;
  }
}

TEST(FolderTable, GivesMacroAndDisplayName) {
  EXPECT_EQ(FolderMacro(38), "%ProgramFiles%");
  EXPECT_EQ(FolderMacro(kCustomFolder), "%CUSTOM%");
  EXPECT_EQ(FolderMacro(47), "%CommonAdminTools%");
  EXPECT_EQ(FolderDisplayName(47), "Verwaltung (alle Benutzer)");
  EXPECT_EQ(FolderDisplayName(2002), "Temporäres Installationsverzeichnis");
  for (const std::int32_t number : {-38, 0, 1, 3, 29, 44, 2000, 2005}) {
    EXPECT_EQ(FolderMacro(number) + FolderDisplayName(number), "") << number;
  }
}

}  // namespace model
