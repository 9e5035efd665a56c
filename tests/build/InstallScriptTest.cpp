// Builds compare whole scripts; here are the choices within them.
#include "build/InstallScript.h"
#include "build/ScriptPath.h"
#include "tests/support/Testing.h"
#include "tools/Text.h"

namespace build {

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
  const struct {
    std::int16_t overwrite;
    const char* extension;
    std::int16_t selfRegister;
    const char* statement;  // "@" stands for the paths
    bool registers;
  } rows[] = {{0, "bin", 0, "Add(@)", false},
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
  for (const auto& row : rows) {
    model::ICFile entry;
    entry.Overwrite = row.overwrite;
    entry.SelfRegisterDLL = row.selfRegister;
    entry.TargetFolder = 38;
    const std::string stored = std::string("3.") + row.extension;
    const std::string paths = "\"%TempPath%\\" + stored + "\", \"%ProgramFiles%\\b.bin\"";
    const std::string expected =
        R"S('Install files for "K"
If Extract("%SrcPath%\Foto: 2.zip", "STORED", "%TempPath%\STORED") Then
If Not STATEMENT Then
ErrMsg "Eine Datei konnte nicht installiert werden (%ProgramFiles%\b.bin)", "Fehler"
CancelInstall "Fehler beim Installieren von Dateien"
Else
)S" +
        std::string(row.registers ? "'Self-register this file\nSelfReg \"%ProgramFiles%\\b.bin\"\n"
                                  : "") +
        "End If\nDel \"%TempPath%\\STORED\"\nEnd If\n\n";
    const std::string statement = tools::ReplaceAll(row.statement, "@", paths);
    EXPECT_EQ(
        Script([&](InstallScript& script) {
          script.BeginComponent("K");
          script.AddFile(entry, "/quelle/b.bin", stored);
          script.EndComponent();
        }),
        tools::ReplaceAll(tools::ReplaceAll(expected, "STATEMENT", statement), "STORED", stored));
  }
}

TEST(InstallScriptTest, TargetsAreFolderSubfolderAndName) {
  const struct {
    std::int32_t folder;
    const char* subFolder;
    const char* name;
    const char* target;
  } rows[] = {{38, "", "", "%ProgramFiles%\\b.txt"},
              {38, "x\\y", "", "%ProgramFiles%\\x\\y\\b.txt"},
              {0, "x\\y", "", "\\x\\y\\b.txt"},
              {2004, "C:\\Ziel", "c.txt", "C:\\Ziel\\c.txt"}};
  for (const auto& row : rows) {
    model::ICFile entry;
    entry.TargetFolder = row.folder;
    entry.TargetSubFolder = row.subFolder;
    entry.TargetName = row.name;
    EXPECT_EQ(ScriptTarget(entry, "/a/b.txt"), row.target);
  }
  EXPECT_EQ(ScriptFileName("a.b\\c/d"), "c/d");
  EXPECT_EQ(ScriptExtension("a.b\\c"), "");
  EXPECT_EQ(ScriptExtension("a\\b.c.dll"), "dll");
  EXPECT_EQ(ScriptExtension("7."), "");
}

}  // namespace build
