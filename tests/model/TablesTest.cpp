#include <set>

#include "model/FolderTable.h"
#include "model/TextTable.h"
#include "tests/support/Testing.h"

namespace model {

TEST(TextTable, GivesTextsByNumber) {
  EXPECT_EQ(LoadText(Text::ProgramName), "Packwright");
  EXPECT_EQ(LoadText(Text::NamedFolder), "Ordner \"%name%\"");
  EXPECT_EQ(LoadText(Text::AllValuesAreRemoved),
            "Alle Werte, die für \"%key%\" gespeichert sind, werden unwiderruflich gelöscht!");
  for (const std::int32_t number : {INT32_MIN, -1, 0, 199, 398, INT32_MAX}) {
    EXPECT_EQ(LoadText(Text{number}), "") << number;
  }
}

TEST(FolderTable, GivesEveryFolderAMacroOfItsOwn) {
  std::set<std::string> macros;
  std::set<std::string> names;
  for (std::int32_t number = -100; number < 3000; ++number) {
    const std::string macro = FolderMacro(number);
    EXPECT_EQ(macro.empty(), FolderDisplayName(number).empty()) << number;
    macros.insert(macro);
    names.insert(FolderDisplayName(number));
  }
  EXPECT_EQ(macros.size(), 32U + 1);
  EXPECT_EQ(names.size(), 32U + 1);
  EXPECT_EQ(FolderMacro(38) + FolderDisplayName(2004), "%ProgramFiles%Benutzerdefiniert");
}

}  // namespace model
