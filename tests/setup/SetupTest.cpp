#include "setup/Setup.h"
#include "tests/support/Testing.h"
#include "tests/support/ZipMaker.h"

namespace setup {

using testing::HasSubstr;
using testing::StartsWith;

namespace {

const std::string kHead =
    "' QUILLON PACKWRIGHT INSTALLATION SCRIPT FOR TESSEL\r\n' Copyright (C) 2031 by A\r\n"
    "' Created with Quillon Packwright 1.2.3\r\nSub InstallMain()\r\n'Install files for \"A\"\r\n";
const std::string kPackaged =
    kHead +
    "If Extract(\"%SrcPath%\\a.zip\", \"1.txt\", \"%TempPath%\\1.txt\") Then\r\n"
    "If Not Add(\"%TempPath%\\1.txt\", \"C:\\a.txt\") Then\r\nEnd If\r\n"
    "Del \"%TempPath%\\1.txt\"\r\nEnd If\r\nEnd Sub\r\n";
const std::string kTree =
    kHead + "If Not Add(\"%SrcPath%\\C\\x.txt\", \"C:\\a.txt\") Then\r\nEnd If\r\nEnd Sub\r\n";

std::string Content(const std::string& path) {
  std::string bytes;
  const std::string error = tests::ErrorOf([&] {
    const Setup setup = OpenSetup(path);
    const PlannedFile& file = setup.plan.files.at(0);
    ContentReader(setup).Read(file, [&bytes](std::string_view more) { bytes += more; });
    EXPECT_EQ(SizeOf(setup, file), bytes.size());
  });
  return error == "no error" ? bytes : error;
}

}  // namespace

TEST(Setup, GivesItsFilesPackagedOrNot) {
  const tests::TemporaryFolder folder;
  folder.Write("zip/a.zip", tests::MakeZip({{"1.txt", "verpackt", true}}));
  const std::string script = folder.Write("zip/a.install", kPackaged);
  EXPECT_EQ(Content(folder.Path("zip")), "verpackt");
  EXPECT_EQ(Content(script), "verpackt");
  folder.Write("baum/a.install", kTree);
  folder.Write("baum/C/x.txt", "lose");
  EXPECT_EQ(Content(folder.Path("baum")), "lose");
}

TEST(Setup, NamesWhatKeepsItFromBeingRead) {
  const tests::TemporaryFolder folder;
  EXPECT_THAT(Content(folder.Path("fehlt")), StartsWith("Das Setup wurde nicht gefunden: "));
  EXPECT_THAT(Content(folder.MakeFolder("leer")), HasSubstr("kein Setup"));
  folder.Write("zwei/a.install", kTree);
  folder.Write("zwei/B.INSTALL", kTree);
  EXPECT_THAT(Content(folder.Path("zwei")),
              AllOf(HasSubstr("mehrere Setups"), HasSubstr("a.install"), HasSubstr("B.INSTALL")));
  EXPECT_THAT(Content(folder.Write("b.install", kPackaged)), HasSubstr("a.zip"));
  folder.Write("c/a.zip", tests::MakeZip({{"2.txt", ""}}));
  EXPECT_THAT(Content(folder.Write("c/a.install", kPackaged)), HasSubstr("nicht: 1.txt"));
  EXPECT_THAT(Content(folder.Write("d/a.install", kTree)), HasSubstr("x.txt"));
}

TEST(Setup, LooksForAnArchiveThatItsScriptDoesNotUse) {
  const tests::TemporaryFolder folder;
  const std::string script = folder.Write("a.install", kHead + "End Sub\r\n");
  EXPECT_EQ(OpenSetup(script).archive, nullptr);
  folder.Write("a.zip", tests::MakeZip({{"1.txt", "x"}}));
  EXPECT_EQ(OpenSetup(script).archive->Members().size(), 1U);
}

}  // namespace setup
