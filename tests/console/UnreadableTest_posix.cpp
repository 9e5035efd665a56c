// Files and folders that are there and cannot be read, seen by a user without special rights.
#include <sys/stat.h>

#include <sstream>

#include "console/Program.h"
#include "tests/support/TestProduct.h"
#include "tests/support/WithoutRights.h"

namespace console {

using testing::AllOf;
using testing::HasSubstr;

class UnreadableTest : public testing::Test {
 protected:
  UnreadableTest() {
    product_.AddComponent("Gut", {tests::TestProduct::File(folder_.Write("src/a.txt", "a"))});
    product_.AddComponent("Baum", {tests::TestProduct::Scan(folder_.Path("baum"), "*")});
    folder_.Write("baum/1/b.txt", "b");
    folder_.Write("baum/2/c.txt", "c");
    folder_.Write("aus/alt.zip", "alt");
    SetMode("", 0755);
    SetMode("aus", 0777);
  }
  ~UnreadableTest() override {
    if (!locked_.empty()) SetMode(locked_, 0755);
  }

  void SetMode(const std::string& name, mode_t mode) const {
    EXPECT_EQ(::chmod(folder_.Path(name).c_str(), mode), 0);
  }
  /// Takes all rights from a file or folder, and gives the one before it back.
  void Lock(const std::string& name) {
    if (!locked_.empty()) SetMode(locked_, 0755);
    locked_ = name;
    SetMode(name, 0);
  }
  ExitCode Run(std::vector<std::string> arguments) {
    std::ostringstream output;
    std::ostringstream errors;
    arguments.insert(arguments.begin(), folder_.Path("Produkt/Probe.product"));
    tools::SystemDisk disk;
    ExitCode code{};
    EXPECT_EQ(tests::ErrorWithoutRights([&] {
                code = RunProgram(arguments, {{output, errors, false}, "/", "/", disk});
              }),
              "no error");
    text_ = output.str() + errors.str();
    return code;
  }

  tests::TemporaryFolder folder_;
  tests::TestProduct product_{folder_};
  std::string locked_;
  std::string text_;
};

TEST_F(UnreadableTest, SettingsEndABuildBeforeItChangesAnythingAndAreAFindingOfTheCheck) {
  const std::string version = "Produkt/Version 1.0.0";
  for (const std::string& name :
       {std::string("Produkt/Probe.product"), version + "/product.version",
        version + "/component2.component", version}) {
    SCOPED_TRACE(name);
    Lock(name);
    const auto named = AllOf(HasSubstr(folder_.Path(name)), HasSubstr("Zugriff verweigert"));
    EXPECT_EQ(Run({"1.0.0", "--output", folder_.Path("aus"), "--overwrite"}), ExitCode::Stopped);
    EXPECT_THAT(text_, named);
    EXPECT_EQ(folder_.Read("aus/alt.zip"), "alt");
    EXPECT_EQ(Run({"--list"}), ExitCode::Stopped);
    EXPECT_THAT(text_, named);
    EXPECT_EQ(Run({"1.0.0", "--output", folder_.Path("aus"), "--check"}),
              ExitCode::BuiltWithErrors);
    EXPECT_THAT(text_, named);
  }
}

TEST_F(UnreadableTest, AFolderOfAScanCostsThatFolderAlone) {
  Lock("baum/1");
  SetMode("", 0777);
  const std::vector<std::string> call{"1.0.0", "--output", folder_.Path("neu"), "--overwrite",
                                      "--no-zip"};
  EXPECT_EQ(Run(call), ExitCode::BuiltWithErrors);
  EXPECT_THAT(folder_.Read("neu/build.log"),
              HasSubstr("\nERROR: Unable to read folder '" + folder_.Path("baum/1") +
                        "': Zugriff verweigert\r\n"));
  EXPECT_EQ(folder_.Read("neu/InstallPath/c.txt"), "c");
  EXPECT_EQ(Run({"1.0.0", "--check", "--output", folder_.Path("aus")}), ExitCode::BuiltWithErrors);
  EXPECT_THAT(text_, AllOf(HasSubstr("Der Ordner kann nicht gelesen werden: " +
                                     folder_.Path("baum/1") + " (Zugriff verweigert)"),
                           HasSubstr("1 Beanstandung.")));
  folder_.Write("baum/2/c.txt", "anders");
  for (const char* locked : {"baum/1", "src/a.txt", "src"}) {
    Lock(locked);
    EXPECT_EQ(Run(call), ExitCode::BuiltWithErrors) << locked;
    EXPECT_THAT(folder_.Read("neu/build.log"), HasSubstr(folder_.Path(locked)));
    EXPECT_EQ(folder_.Read("neu/InstallPath/c.txt"), "anders");
    EXPECT_EQ(Run({"1.0.0", "--check", "--output", folder_.Path("aus")}),
              ExitCode::BuiltWithErrors);
    EXPECT_THAT(text_, AllOf(HasSubstr(folder_.Path(locked)), HasSubstr("1 Beanstandung.")));
  }
}

TEST_F(UnreadableTest, AnOutputFolderThatCannotBeWrittenToIsAFindingOfTheCheck) {
  folder_.MakeFolder("fest");
  SetMode("fest", 0555);
  for (const char* output : {"fest", "fest/neu", "fest/neu/tief"}) {
    const std::vector<std::string> call{"1.0.0", "--output", folder_.Path(output)};
    EXPECT_EQ(Run(call), ExitCode::Stopped) << output;
    EXPECT_EQ(Run({"1.0.0", "--output", folder_.Path(output), "--check"}),
              ExitCode::BuiltWithErrors);
    EXPECT_THAT(text_, HasSubstr("In den Ausgabeordner kann nicht geschrieben werden: "));
  }
}

TEST_F(UnreadableTest, AWriteProtectedFolderOfTheOldSetupIsReplacedToo) {
  SetMode("", 0777);
  folder_.Write("baum/2/tief/d.txt", "d");
  for (int build = 1; build <= 2; ++build) {
    EXPECT_EQ(Run({"1.0.0", "--output", folder_.Path("neu"), "--overwrite", "--no-zip"}),
              ExitCode::Built)
        << text_;
    SetMode("neu/InstallPath", 0555);
  }
  EXPECT_EQ(folder_.Read("neu/InstallPath/c.txt"), "c");
}

}  // namespace console
