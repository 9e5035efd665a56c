#include "setup/Setup.h"
#include "tests/support/SampleScript.h"
#include "tests/support/Testing.h"
#include "tests/support/ZipMaker.h"

namespace setup {

/// The bytes of a file of the setup; the error in their place when there is one.
static std::string Content(const std::string& path, std::size_t place = 0) {
  std::string bytes;
  const std::string error = ErrorOf([&] {
    const Setup setup = OpenSetup(path);
    const PlannedFile& file = setup.plan.files.at(place);
    ContentReader(setup).Read(file, [&bytes](std::string_view more) { bytes += more; });
    EXPECT_EQ(SizeOf(setup, file), bytes.size());
  });
  return error == "no error" ? bytes : error;
}

TEST(Setup, NamesWhatKeepsItFromBeingRead) {
  const TemporaryFolder folder;
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

}  // namespace setup
