#include <gtest/gtest.h>

#include "build/InstallScript.h"
#include "build/ScriptPath.h"
#include "tools/Text.h"

namespace build {
namespace {

constexpr const char* kStart = R"S(' QUILLON PACKWRIGHT INSTALLATION SCRIPT FOR TESSEL
' Copyright (C) 2031 by Änne
' Created with Quillon Packwright 1.2.30

Sub InstallMain()
'Display a message allowing the user to cancel installation
If Ask("Die Installation von Foto: 2 kann jetzt durchgeführt werden. Möchten Sie fortfahren?") = False Then
	CancelInstall "Abbruch durch Benutzer", True
End If

)S";
constexpr const char* kFolder = R"S('Allow the user to select installation folder
SelectInstallFolder PathStr("%ProgramFiles%\Foto_ 2")

)S";
constexpr const char* kEnd = R"S(End Sub

'--- End of installation script ---
)S";

ScriptHead Head() { return {2031, "Änne", {1, 2, 30}, "Foto: 2", "", "Foto", "1"}; }

model::ICFile Entry(std::int16_t overwrite, std::int16_t selfRegister) {
  model::ICFile entry;
  entry.Overwrite = overwrite;
  entry.SelfRegisterDLL = selfRegister;
  entry.TargetFolder = 38;
  return entry;
}

// The lines of one component titled "K" that holds one file; line ends are checked and shortened.
std::string FileLines(const model::ICFile& entry, const std::string& stored, bool packaged) {
  std::string text;
  InstallScript script([&text](std::string_view part) { text += part; }, Head(), packaged);
  script.BeginComponent("K");
  script.AddFile(entry, "/quelle/b.bin", stored);
  script.EndComponent();
  std::string lines = tools::ReplaceAll(text, "\r\n", "\n");
  EXPECT_EQ(tools::ReplaceAll(lines, "\n", "\r\n"), text);
  return lines;
}

std::string WholeScript(const ScriptHead& head) {
  std::string text;
  InstallScript script([&text](std::string_view part) { text += part; }, head, true);
  script.Begin();
  script.End();
  return text;
}

TEST(InstallScript, WithoutComponentsIsHeadFolderAndEnd) {
  const std::string expected = std::string(kStart) + kFolder + kEnd;
  EXPECT_EQ(WholeScript(Head()), tools::ReplaceAll(expected, "\n", "\r\n"));
}

TEST(InstallScript, RegistersTheProductWhenItHasACatalogueKey) {
  ScriptHead head = Head();
  head.catalogueKey = " ";
  head.catalogueTitle = "Foto \"gut\"";
  head.catalogueType = "x 7";
  std::string expected = kStart;
  expected += R"S('Register the program with Tessel if it's not already known
SetAppKey " ", "Foto "gut""
RegPrd " ", "Foto "gut"", x 7

)S";
  expected.append(kFolder).append(kEnd);
  EXPECT_EQ(WholeScript(head), tools::ReplaceAll(expected, "\n", "\r\n"));
}

TEST(InstallScript, WritesEveryConditionalLine) {
  model::ICFile entry = Entry(1, 1);
  entry.RegisterPath = 1;
  entry.TargetSubFolder = "a/b";
  entry.TargetName = "neu.txt";
  const char* expected = R"S('Install files for "K"
If Not Copy("%SrcPath%\ProgramFiles\a\b\b.bin", "%ProgramFiles%\a/b\neu.txt") Then
ErrMsg "Eine Datei konnte nicht installiert werden (%ProgramFiles%\a/b\neu.txt)", "Fehler"
CancelInstall "Fehler beim Installieren von Dateien"
Else
'TO-DO: Register path for this file...
'Self-register this file
SelfReg "%ProgramFiles%\a/b\neu.txt"
End If

)S";
  EXPECT_EQ(FileLines(entry, "ProgramFiles\\a\\b\\b.bin", false), expected);
}

TEST(InstallScript, OmitsEveryConditionalLine) {
  model::ICFile entry = Entry(0, 2);
  entry.RegisterPath = 2;
  entry.Vital = 0;
  const char* expected = R"S('Install files for "K"
If Not Add("%SrcPath%\ProgramFiles\b.bin", "%ProgramFiles%\b.bin") Then
ErrMsg "Eine Datei konnte nicht installiert werden (%ProgramFiles%\b.bin)", "Fehler"
Else
End If

)S";
  EXPECT_EQ(FileLines(entry, "ProgramFiles\\b.bin", false), expected);
}

struct Decision {
  std::int16_t overwrite;
  const char* extension;
  std::int16_t selfRegister;
  const char* statement;
  const char* selfRegisterLines;
};

class InstallScriptDecision : public testing::TestWithParam<Decision> {};

TEST_P(InstallScriptDecision, ChoosesStatementAndRegistration) {
  const Decision& decision = GetParam();
  std::string expected = R"S('Install files for "K"
If Extract("%SrcPath%\Foto: 2.zip", "@", "%TempPath%\@") Then
If Not STATEMENT Then
ErrMsg "Eine Datei konnte nicht installiert werden (%ProgramFiles%\b.bin)", "Fehler"
CancelInstall "Fehler beim Installieren von Dateien"
Else
REGISTEREnd If
Del "%TempPath%\@"
End If

)S";
  expected = tools::ReplaceAll(expected, "STATEMENT", decision.statement);
  expected = tools::ReplaceAll(expected, "REGISTER", decision.selfRegisterLines);
  const std::string stored = std::string("3.") + decision.extension;
  EXPECT_EQ(FileLines(Entry(decision.overwrite, decision.selfRegister), stored, true),
            tools::ReplaceAll(expected, "@", stored));
}

constexpr const char* kAdd = R"S(Add("%TempPath%\@", "%ProgramFiles%\b.bin"))S";
constexpr const char* kCopy = R"S(Copy("%TempPath%\@", "%ProgramFiles%\b.bin"))S";
constexpr const char* kTrue = R"S(ReplSafe("%TempPath%\@", "%ProgramFiles%\b.bin", , True))S";
constexpr const char* kFalse = R"S(ReplSafe("%TempPath%\@", "%ProgramFiles%\b.bin", , False))S";
constexpr const char* kRegister = "'Self-register this file\nSelfReg \"%ProgramFiles%\\b.bin\"\n";

INSTANTIATE_TEST_SUITE_P(
    Table, InstallScriptDecision,
    testing::Values(Decision{0, "bin", 0, kAdd, ""}, Decision{0, "dll", 0, kAdd, ""},
                    Decision{0, "dll", 1, kAdd, kRegister}, Decision{1, "ocx", 1, kTrue, ""},
                    Decision{-1, "DLL", 1, kTrue, ""}, Decision{1, "Exe", 0, kFalse, ""},
                    Decision{1, "dll", 2, kFalse, ""}, Decision{1, "bin", 0, kCopy, ""},
                    Decision{2, "bin", 1, kCopy, kRegister}, Decision{1, "bin", -1, kCopy, ""},
                    Decision{1, "", 0, kCopy, ""}));

TEST(ScriptTarget, JoinsFolderSubfolderAndName) {
  model::ICFile entry = Entry(0, 0);
  EXPECT_EQ(ScriptTarget(entry, "/a/b.txt"), "%ProgramFiles%\\b.txt");
  entry.TargetSubFolder = "x\\y";
  EXPECT_EQ(ScriptTarget(entry, "/a/b.txt"), "%ProgramFiles%\\x\\y\\b.txt");
  entry.TargetFolder = 0;
  EXPECT_EQ(ScriptTarget(entry, "/a/b.txt"), "\\x\\y\\b.txt");
  entry.TargetFolder = 2004;
  entry.TargetSubFolder = "C:\\Ziel";
  entry.TargetName = "c.txt";
  EXPECT_EQ(ScriptTarget(entry, "/a/b.txt"), "C:\\Ziel\\c.txt");
}

TEST(ScriptPath, HasPartsSeparatedByBackslashes) {
  EXPECT_EQ(ScriptFileName("a.b\\c/d"), "c/d");
  EXPECT_EQ(ScriptExtension("a.b\\c"), "");
  EXPECT_EQ(ScriptExtension("a\\b.c.dll"), "dll");
  EXPECT_EQ(ScriptExtension("7."), "");
}

}  // namespace
}  // namespace build
