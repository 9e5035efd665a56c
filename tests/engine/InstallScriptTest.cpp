// Builds compare whole scripts, and proofs each statement; here is the title in a script.
#include "engine/InstallScript.h"
#include "tests/support/Testing.h"

namespace engine {

TEST(InstallScriptTest, ProposesAFolderThatWindowsAllows) {
  std::string text;
  InstallScript script([&text](std::string_view part) { text += part; },
                       {2031, "Änne", {1, 2, 30}, "Foto: 2", "", "", "1"}, true);
  script.Begin();
  EXPECT_THAT(text, HasSubstr("PathStr(\"%ProgramFiles%\\Foto_ 2\")"));
}

}  // namespace engine
