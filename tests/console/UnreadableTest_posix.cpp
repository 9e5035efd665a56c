// Files and folders that are there and cannot be read, seen by a user without special rights.
#include <sys/stat.h>

#include "tests/support/CallFixture.h"
#include "tests/support/WithoutRights.h"

namespace console {

class UnreadableTest : public tests::CallFixture {
 protected:
  UnreadableTest() {
    product_.AddComponent("Gut", {Source("a.txt", "a")});
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
  /// Calls the program on the product; all that it says is in text_ then.
  ExitCode Run(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), folder_.Path("Produkt/Probe.product"));
    ExitCode code{};
    EXPECT_EQ(tests::ErrorWithoutRights([&] { code = Call(RunProgram, arguments); }), "no error");
    text_ = output_ + errors_;
    return code;
  }
  ExitCode Check(const std::string& output) {
    return Run({"1.0.0", "--check", "--output", folder_.Path(output)});
  }
  ExitCode Build(const std::string& output) {
    return Run({"1.0.0", "--no-zip", "--overwrite", "--output", folder_.Path(output)});
  }

  std::string locked_;
  std::string text_;
};

TEST_F(UnreadableTest, SettingsEndABuildBeforeItChangesAnything) {
  const std::string version = "Produkt/Version 1.0.0";
  for (const std::string& name :
       {std::string("Produkt/Probe.product"), version + "/product.version",
        version + "/component2.component", version}) {
    SCOPED_TRACE(name);
    Lock(name);
    const auto named = AllOf(HasSubstr(folder_.Path(name)), HasSubstr("Zugriff verweigert"));
    EXPECT_EQ(Build("aus"), ExitCode::Stopped);
    EXPECT_THAT(text_, named);
    EXPECT_EQ(folder_.Read("aus/alt.zip"), "alt");
    EXPECT_EQ(Run({"--list"}), ExitCode::Stopped);
    EXPECT_THAT(text_, named);
    EXPECT_EQ(Check("aus"), ExitCode::BuiltWithErrors);
    EXPECT_THAT(text_, named);
  }
}

TEST_F(UnreadableTest, ASourceCostsWhatItHoldsAlone) {
  SetMode("", 0777);
  for (const auto& [locked, words] : {std::pair{"baum/1", "Unable to read folder '"},
                                      {"quelle/a.txt", "Unable to copy file '"},
                                      {"quelle", "File missing: "}}) {
    SCOPED_TRACE(locked);
    Lock(locked);
    folder_.Write("baum/2/c.txt", locked);
    EXPECT_EQ(Build("neu"), ExitCode::BuiltWithErrors);
    EXPECT_THAT(folder_.Read("neu/build.log"),
                HasSubstr("ERROR: " + (words + folder_.Path(locked))));
    EXPECT_EQ(folder_.Read("neu/InstallPath/c.txt"), locked);
    EXPECT_EQ(Check("aus"), ExitCode::BuiltWithErrors);
    EXPECT_THAT(text_, AllOf(HasSubstr(folder_.Path(locked)), HasSubstr("1 Beanstandung.")));
  }
}

TEST_F(UnreadableTest, AnOutputFolderThatCannotBeWrittenToIsAFindingOfTheCheck) {
  folder_.MakeFolder("fest");
  SetMode("fest", 0555);
  for (const char* output : {"fest", "fest/neu", "fest/neu/tief"}) {
    EXPECT_EQ(Build(output), ExitCode::Stopped) << output;
    EXPECT_EQ(Check(output), ExitCode::BuiltWithErrors) << output;
    EXPECT_THAT(text_, HasSubstr("In den Ausgabeordner kann nicht geschrieben werden: "));
  }
}

TEST_F(UnreadableTest, AWriteProtectedFolderOfTheOldSetupIsReplacedToo) {
  SetMode("", 0777);
  folder_.Write("baum/2/tief/d.txt", "d");
  for (int build = 1; build <= 2; ++build) {
    EXPECT_EQ(Build("neu"), ExitCode::Built) << text_;
    SetMode("neu/InstallPath", 0555);
  }
  EXPECT_EQ(folder_.Read("neu/InstallPath/c.txt"), "c");
}

}  // namespace console
