// Builds compare whole scripts, and proofs each statement; here is the title in a script.
#include "engine/InstallScript.h"
#include "tests/support/Testing.h"

namespace engine {

TEST(InstallScriptTest, ProposesAFolderThatWindowsAllows) {
  std::string text;
  InstallScript script(
      [&text](std::string_view part) { text += part; },
      {.year = 2031, .author = "Änne", .toolVersion = {1, 2, 30}, .productTitle = "Foto: 2"});
  script.Begin();
  EXPECT_THAT(text, HasSubstr("PathStr(\"%ProgramFiles%\\Foto_ 2\")"));
}

}  // namespace engine
