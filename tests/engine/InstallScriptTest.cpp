// Builds compare whole scripts; here are the choices within them.
#include <tuple>

#include "engine/InstallScript.h"
#include "tests/support/Testing.h"
#include "tools/Text.h"

namespace engine {

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
  EXPECT_THAT(Script([](InstallScript& script) { script.Begin(); }), testing::EndsWith(R"S(
End If

'Allow the user to select installation folder
SelectInstallFolder PathStr("%ProgramFiles%\Foto_ 2")

)S"));
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
    entry.TargetFolder = 38;
    const std::string stored = std::string("3.") + extension;
    SCOPED_TRACE(stored + ": " + statement);
    const std::string script =
        Script([&](InstallScript& to) { to.AddFile(entry, "/b.bin", stored); });
    const std::string paths = "\"%TempPath%\\" + stored + "\", \"%ProgramFiles%\\b.bin\"";
    EXPECT_THAT(script, testing::HasSubstr("\nIf Not " + tools::ReplaceAll(statement, "@", paths) +
                                           " Then\nErrMsg "));
    EXPECT_EQ(script.find("\nSelfReg \"%ProgramFiles%\\b.bin\"\n") < script.size(), registers);
  }
}

TEST(InstallScriptTest, TargetsAreFolderSubfolderAndName) {
  const auto target = [](std::int32_t folder, const char* subFolder, const char* name) {
    model::ICFile entry;
    entry.TargetFolder = folder;
    entry.TargetSubFolder = subFolder;
    entry.TargetName = name;
    return ScriptTarget(entry, "/a/b.txt");
  };
  EXPECT_EQ(target(38, "", ""), "%ProgramFiles%\\b.txt");
  EXPECT_EQ(target(0, "x\\y", ""), "\\x\\y\\b.txt");
  EXPECT_EQ(target(2004, "C:\\Ziel", "c.txt"), "C:\\Ziel\\c.txt");
}

}  // namespace engine
