// Builds compare whole scripts; here are the choices within them.
#include <tuple>

#include "engine/InstallScript.h"
#include "tests/support/Testing.h"
#include "tools/Text.h"

namespace engine {

using testing::HasSubstr;
using testing::Not;

// What `write` makes a packaged script say, with short line ends.
template <typename Write>
static std::string Script(const Write& write) {
  std::string text;
  InstallScript script([&text](std::string_view part) { text += part; },
                       {2031, "Änne", {1, 2, 30}, "Foto: 2", "", "", "1"}, true);
  write(script);
  return tools::ReplaceAll(text, "\r\n", "\n");
}

TEST(InstallScriptTest, LeavesTheRegistrationOutWithoutACatalogueKey) {
  EXPECT_THAT(Script([](InstallScript& script) { script.Begin(); }),
              AllOf(Not(HasSubstr("RegPrd")), HasSubstr("PathStr(\"%ProgramFiles%\\Foto_ 2\")")));
}

TEST(InstallScriptTest, ChoosesStatementAndRegistrationByExtensionAndFlags) {
  // The paths of a statement are written as "@".
  const std::tuple<int, const char*, int, const char*, bool> rows[] = {
      {0, "bin", 0, "Add(@)", false},
      {0, "dll", 0, "Add(@)", false},
      {0, "dll", 1, "Add(@)", true},
      {1, "ocx", 1, "ReplSafe(@, , True)", false},
      {-1, "DLL", 1, "ReplSafe(@, , True)", false},
      {1, "Exe", 0, "ReplSafe(@, , False)", false},
      {1, "dll", 2, "ReplSafe(@, , False)", false},
      {1, "bin", 0, "Copy(@)", false},
      {2, "bin", 1, "Copy(@)", true},
      {1, "bin", -1, "Copy(@)", false},
      {1, "", 0, "Copy(@)", false}};
  for (const auto& [overwrite, extension, selfRegister, statement, registers] : rows) {
    model::ICFile entry;
    entry.Overwrite = static_cast<std::int16_t>(overwrite);
    entry.SelfRegisterDLL = static_cast<std::int16_t>(selfRegister);
    entry.TargetFolder = 0;  // none
    entry.TargetSubFolder = "x\\y";
    const std::string stored = std::string("3.") + extension;
    SCOPED_TRACE(stored + ": " + statement);
    const std::string script =
        Script([&](InstallScript& to) { to.AddFile(entry, "/b.bin", stored); });
    const std::string paths = "\"%TempPath%\\" + stored + "\", \"\\x\\y\\b.bin\"";
    EXPECT_THAT(script, HasSubstr("\nIf Not " + tools::ReplaceAll(statement, "@", paths) +
                                  " Then\nErrMsg "));
    EXPECT_EQ(script.find("\nSelfReg \"\\x\\y\\b.bin\"\n") < script.size(), registers);
  }
}

}  // namespace engine
