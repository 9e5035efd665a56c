#include "setup/Setup.h"
#include "tests/support/SampleScript.h"
#include "tests/support/Testing.h"
#include "tests/support/ZipMaker.h"

namespace setup {

using testing::HasSubstr;
using testing::StartsWith;

/// The bytes of a file of the setup; the error in their place when there is one.
static std::string Content(const std::string& path, std::size_t place = 0) {
  std::string bytes;
  const std::string error = tests::ErrorOf([&] {
    const Setup setup = OpenSetup(path);
    const PlannedFile& file = setup.plan.files.at(place);
    ContentReader(setup).Read(file, [&bytes](std::string_view more) { bytes += more; });
    EXPECT_EQ(SizeOf(setup, file), bytes.size());
  });
  return error == "no error" ? bytes : error;
}

TEST(Setup, GivesItsFilesPackagedOrNot) {
  const tests::TemporaryFolder folder;
  folder.Write("Probe.zip", tests::MakeZip({{"1.dll", "verpackt", true}, {"2.txt", ""}}));
  folder.Write("InstallPath/c", "lose");
  const std::string script = folder.Write("Probe.install", tests::kSampleScript);
  EXPECT_EQ(Content(folder.Path()), "verpackt");
  EXPECT_EQ(Content(script, 2), "lose");
}

TEST(Setup, NamesWhatKeepsItFromBeingRead) {
  const tests::TemporaryFolder folder;
  EXPECT_THAT(Content(folder.Path("fehlt")), StartsWith("Das Setup wurde nicht gefunden: "));
  EXPECT_THAT(Content(folder.MakeFolder("leer")), HasSubstr("kein Setup"));
  folder.Write("zwei/a.install", tests::kSampleScript);
  folder.Write("zwei/B.INSTALL", tests::kSampleScript);
  EXPECT_THAT(Content(folder.Path("zwei")),
              AllOf(HasSubstr("mehrere Setups"), HasSubstr("a.install"), HasSubstr("B.INSTALL")));
  const std::string script = folder.Write("s/Probe.install", tests::kSampleScript);
  EXPECT_THAT(Content(script), HasSubstr("Probe.zip"));
  folder.Write("s/Probe.zip", tests::MakeZip({{"2.txt", ""}}));
  EXPECT_THAT(Content(script), HasSubstr("nicht: 1.dll"));
  EXPECT_THAT(Content(script, 2), HasSubstr(folder.Path("s/InstallPath/c")));
}

TEST(Setup, LooksForAnArchiveThatItsScriptDoesNotUse) {
  const tests::TemporaryFolder folder;
  const auto head = tests::kSampleScript.substr(0, tests::kSampleScript.find("'Install files"));
  const std::string script = folder.Write("a.install", std::string(head) + "End Sub\n");
  EXPECT_EQ(OpenSetup(script).archive, nullptr);
  folder.Write("a.zip", tests::MakeZip({{"1.txt", "x"}}));
  EXPECT_EQ(OpenSetup(script).archive->Members().size(), 1U);
}

}  // namespace setup
