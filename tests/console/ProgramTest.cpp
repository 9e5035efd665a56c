#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "console/Program.h"
#include "console/TextReport.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/Files.h"

namespace console {
namespace {

class ProgramTest : public testing::Test {
 protected:
  ProgramTest() {
    folder_.Write("p/demo.product",
                  "[General]\nVersion=1.0\n[Product]\nTitle=Demo\nAuthor=Ich\n"
                  "[Versions]\nCount=2\nVer1=1.0.0\nVer2=1.1.0\n");
    folder_.Write("p/Version 1.0.0/product.version", "[Components]\nCount=1\n");
    folder_.Write(
        "p/Version 1.0.0/component1.component",
        "[Component]\nTitle=Programm\n[Files]\nCount=2\n"
        "[File1]\nID={1}\nType=1\nSourcePath=src\nSourceName=lies.txt\nTargetFolder=2001\n"
        "[File2]\nID={2}\nType=1\nSourcePath=src\nSourceName=zwei.txt\nTargetFolder=2001\n");
    folder_.Write("p/src/lies.txt", std::string(5000, 'a'));
    folder_.Write("p/src/zwei.txt", "zwei");
  }

  ExitCode Run(const std::vector<std::string>& arguments) {
    output_.str({});
    errors_.str({});
    return RunProgram(arguments, {.streams = {output_, errors_, false},
                                  .workingFolder = folder_.Path(),
                                  .programFolder = folder_.Path(),
                                  .interrupted = interrupted_});
  }

  std::vector<nlohmann::json> JsonLines() {
    std::vector<nlohmann::json> lines;
    std::istringstream text(output_.str());
    for (std::string line; std::getline(text, line);) lines.push_back(nlohmann::json::parse(line));
    return lines;
  }

  [[nodiscard]] std::vector<std::string> AllFiles() const {
    return tools::FindFiles(folder_.Path(), "*", true);
  }

  tests::TemporaryFolder folder_;
  std::ostringstream output_;
  std::ostringstream errors_;
  Report::InterruptTest interrupted_ = [] { return false; };
  const std::string product_ = "p/demo.product";
};

TEST_F(ProgramTest, BuildsIntoTheActiveConfigurationsFolder) {
  EXPECT_EQ(Run({product_, "1.0.0"}), ExitCode::Built) << errors_.str();
  EXPECT_TRUE(folder_.Holds("p/Ausgabe/Debug/Demo.zip"));
  EXPECT_TRUE(folder_.Holds("p/Ausgabe/Debug/Demo.install"));
  EXPECT_NE(output_.str().find("Dateien:    2"), std::string::npos) << output_.str();
  EXPECT_EQ(errors_.str(), "");

  folder_.Write("p/Version 1.0.0/product.version",
                "[Components]\nCount=1\n[BuildCommon]\nActiveConfig=2\n"
                "[Build2]\nOutputFolder=fertig\n");
  EXPECT_EQ(Run({product_, "1.0.0", "--no-zip", "--quiet"}), ExitCode::Built);
  EXPECT_TRUE(folder_.Holds("p/fertig/InstallPath/zwei.txt"));
  EXPECT_EQ(output_.str(), "");
}

TEST_F(ProgramTest, RefusesAnOutputFolderWithFilesUnlessTold) {
  folder_.Write("aus/wichtig.txt", "x");
  EXPECT_EQ(Run({product_, "1.0.0", "--output", "aus"}), ExitCode::Stopped);
  EXPECT_TRUE(folder_.Holds("aus/wichtig.txt"));
  EXPECT_NE(errors_.str().find("--overwrite"), std::string::npos);
  EXPECT_EQ(Run({product_, "1.0.0", "--output", "aus", "--overwrite"}), ExitCode::Built);
  EXPECT_FALSE(folder_.Holds("aus/wichtig.txt"));
  for (const char* folder : {"p", "", " "}) {
    EXPECT_EQ(Run({product_, "1.0.0", "--output", folder, "--overwrite"}), ExitCode::Stopped);
  }
  EXPECT_TRUE(folder_.Holds("aus/Demo.zip"));
  EXPECT_TRUE(folder_.Holds("p/demo.product"));
}

TEST_F(ProgramTest, NamesComponentAndEntryOfAProblem) {
  tools::DeleteFile(folder_.Path("p/src/zwei.txt"));
  EXPECT_EQ(Run({product_, "1.0.0", "--wrapper"}), ExitCode::BuiltWithErrors);
  EXPECT_NE(errors_.str().find("zwei.txt [Komponente 1 \"Programm\", Eintrag 2]"),
            std::string::npos)
      << errors_.str();
  EXPECT_NE(errors_.str().find("setup wrapper"), std::string::npos);

  EXPECT_EQ(Run({product_, "1.0.0", "--overwrite", "--json"}), ExitCode::BuiltWithErrors);
  const std::vector<nlohmann::json> lines = JsonLines();
  EXPECT_EQ(lines.front()["event"], "error");
  EXPECT_EQ(lines.front()["component"], 1);
  EXPECT_EQ(lines.front()["entry"], 2);
  EXPECT_EQ(lines.back()["event"], "summary");
  EXPECT_EQ(lines.back()["files"], 1);
  EXPECT_EQ(lines.back()["errors"], 1);
  EXPECT_EQ(lines.back()["outcome"], "finished");
  EXPECT_EQ(errors_.str(), "");
}

TEST_F(ProgramTest, CheckWritesNothing) {
  const std::vector<std::string> before = AllFiles();
  EXPECT_EQ(Run({product_, "1.0.0", "--check"}), ExitCode::Built) << errors_.str();
  tools::DeleteFile(folder_.Path("p/src/zwei.txt"));
  EXPECT_EQ(Run({product_, "1.0.0", "--check", "--json"}), ExitCode::BuiltWithErrors);
  EXPECT_EQ(JsonLines().back()["findings"], 1);
  EXPECT_EQ(AllFiles().size(), before.size() - 1);
  EXPECT_FALSE(tools::FolderExists(folder_.Path("p/Ausgabe")));
}

TEST_F(ProgramTest, ListsVersionsAndComponents) {
  EXPECT_EQ(Run({product_, "--list"}), ExitCode::Built);
  EXPECT_EQ(output_.str(), "Demo\n  1.0.0\n    1  Programm\n  1.1.0\n");
  EXPECT_EQ(Run({product_, "--list", "--json"}), ExitCode::Built);
  EXPECT_EQ(JsonLines().front()["versions"][0]["components"][0]["title"], "Programm");
}

TEST_F(ProgramTest, TellsWhatIsWrongWithACall) {
  const std::vector<std::vector<std::string>> calls = {
      {},
      {product_},
      {product_, "1.0.0", "--unbekannt"},
      {product_, "1.0.0", "--output"},
      {product_, "9.9.9"},
      {"p/fehlt.product", "1.0.0"},
      {"p/src/zwei.txt", "1.0.0"},
      {"p", "1.0.0"},
      {product_, "--list", "--check"},
      {product_, "1.0.0", "--zip", "--no-zip"},
      {product_, "1.0.0", "--zip=false"},
  };
  for (const auto& call : calls) {
    EXPECT_EQ(Run(call), ExitCode::BadCall) << testing::PrintToString(call);
    EXPECT_TRUE(errors_.str().starts_with("packwright-build: ")) << errors_.str();
    EXPECT_EQ(output_.str(), "");
  }
  EXPECT_EQ(Run({"--help"}), ExitCode::Built);
  EXPECT_NE(output_.str().find("--overwrite"), std::string::npos);
  EXPECT_EQ(Run({"--version"}), ExitCode::Built);
  EXPECT_TRUE(output_.str().starts_with("packwright-build "));
}

TEST_F(ProgramTest, AnInterruptedBuildLeavesNoArchive) {
  interrupted_ = [] { return true; };
  EXPECT_EQ(Run({product_, "1.0.0", "--output", "aus"}), ExitCode::Stopped);
  EXPECT_EQ(errors_.str(), "packwright-build: Abgebrochen.\n");
  EXPECT_TRUE(tools::FindFiles(folder_.Path("aus"), "*", true).empty());
}

TEST(ByteTextTest, RoundsToOneDigitAfterTheComma) {
  EXPECT_EQ(ByteText(0), "0 Bytes");
  EXPECT_EQ(ByteText(999), "999 Bytes");
  EXPECT_EQ(ByteText(1500), "1,5 kB");
  EXPECT_EQ(ByteText(2'000'000'000), "2,0 GB");
}

}  // namespace
}  // namespace console
