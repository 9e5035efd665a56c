// The program itself, with streams and limits as a shell can set them.
#include <sys/wait.h>

#include <cstdlib>

#include "console/CommandLine.h"
#include "console/Platform.h"
#include "tests/support/BuildFixture.h"
#include "tests/support/SampleBytes.h"

namespace console {

class StreamsTest : public tests::BuildFixture {
 protected:
  /// The exit code of a call; `surroundings` stands before it in the shell's command.
  ExitCode Run(const std::string& surroundings, const std::string& options) {
    const std::string command = surroundings + " '" + ProgramFolder() + "/packwright-build' '" +
                                folder_.Path("Produkt/Probe.product") + "' " + options + " 2>'" +
                                folder_.Path("fehler") + "'";
    const int status = std::system(command.c_str());
    EXPECT_TRUE(WIFEXITED(status)) << command;
    errors_ = folder_.Read("fehler");
    return static_cast<ExitCode>(WEXITSTATUS(status));
  }

  std::string output_ = "1.0.0 --quiet --overwrite --output '" + folder_.Path("aus") + "'";
  std::string errors_;
};

TEST_F(StreamsTest, AReportThatCannotBeWrittenIsNoSuccess) {
  product_.AddComponent("A", {});
  for (const std::string& options :
       {std::string("--list"), std::string("--list --json"), std::string("1.0.0 --check")}) {
    EXPECT_EQ(Run("", options + " >/dev/full"), ExitCode::Stopped) << options;
    EXPECT_EQ(errors_, "packwright-build: Die Ausgabe kann nicht geschrieben werden.\n");
  }
}

TEST_F(StreamsTest, ClosedStreamsAreNoPlaceForMessages) {
  product_.AddComponent("A", {tests::TestProduct::File(folder_.Path("fehlt"))});
  EXPECT_EQ(Run("<&- >&-", output_ + " --json"), ExitCode::BuiltWithErrors);
  EXPECT_EQ(Run("<&- >&-", "--list"), ExitCode::Built) << errors_;
  EXPECT_THAT(folder_.Read("aus/Probe.zip"), StartsWith("PK"));
  EXPECT_THAT(folder_.Read("aus/build.log"), EndsWith("fehlt\r\n"));
}

TEST_F(StreamsTest, ALimitOfFileSizesIsAnError) {
  product_.AddComponent("A", {Source("groß", tests::RandomBytes(2'000'000))});
  EXPECT_EQ(Run("ulimit -f 100; exec", output_), ExitCode::BuiltWithErrors);
  EXPECT_THAT(errors_, HasSubstr("Die Datei wird zu groß"));
  EXPECT_EQ(Run("ulimit -f 100; exec", output_ + " --no-zip"), ExitCode::BuiltWithErrors);
  EXPECT_THAT(folder_.Read("aus/build.log"),
              HasSubstr(folder_.Path("quelle/groß") + "' to new location: "));
}

}  // namespace console
