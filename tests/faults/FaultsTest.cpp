// Runs a save, both kinds of build and the operations on a product with one system call failing at
// a time, or with the process gone at that call, and looks at what is left. FAULTS_ALL=1 in the
// environment tries every call with every error; otherwise the calls are spread over the errors.
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <map>
#include <random>

#include "tests/support/Testing.h"
#include "tools/files/Files.h"
#include "tools/files/InputFile.h"
#include "tools/files/Path.h"
#include "tools/files/TemporaryFiles.h"

namespace {

using testing::HasSubstr;
using Content = std::map<std::string, std::string>;

constexpr std::array kErrors{ENOSPC, EIO, EDQUOT, EACCES, EMFILE, EINTR, 0 /* a short write */};
constexpr int kKill = -1;
constexpr int kStopped = 3;
constexpr int kKilled = 137;

class FaultsTest : public testing::Test {
 protected:
  FaultsTest() {
    Write("P.product",
          "[General]\nVersion=1.0\n[Product]\nTitle=P\nAuthor=A\n[Versions]\nCount=1\nVer1=1.0\n");
    Write("Version 1.0/product.version", "[Components]\nCount=1\n");
    Write("Version 1.0/component1.component",
          "[Component]\nTitle=Main\n[Files]\nCount=1\n[File1]\nType=2\nID={1}\nTargetFolder=2001\n"
          "IncludeChildren=1\nSourceName=*.*\nSourcePath=../sources\n");
    for (const char* name : {"a.txt", "b/c.txt", "b/d.txt"}) {
      folder_.Write(std::string("whole/sources/") + name, std::string(name) + " is here\n");
    }
    folder_.Write("whole/sources/large.bin", std::string(200'000, 'x'));
    folder_.MakeFolder("whole/tmp");
    Restore();
  }
  void Write(const std::string& name, const std::string& content) {
    folder_.Write("whole/product/" + name, content);
  }

  /// Has everything as at the beginning.
  void Restore() const {
    std::filesystem::remove_all(tools::ToPath(work_));
    std::filesystem::copy(tools::ToPath(folder_.Path("whole")), tools::ToPath(work_),
                          std::filesystem::copy_options::recursive);
  }
  /// What is there now becomes the beginning.
  void Keep() const {
    std::filesystem::remove_all(tools::ToPath(folder_.Path("whole")));
    std::filesystem::copy(tools::ToPath(work_), tools::ToPath(folder_.Path("whole")),
                          std::filesystem::copy_options::recursive);
  }

  /// Runs a program with the `at`-th call failing (0: none) and returns its exit code.
  int Run(const std::string& command, long at, int error) {
    std::string line = "LD_PRELOAD='" FAULT_SHIM "' SOURCE_DATE_EPOCH=1000000000 TMPDIR='" + work_ +
                       "/tmp' FAULT_ROOT='" + work_ + "' FAULT_REPORT='" + folder_.Path("report") +
                       "' FAULT_AT=" + std::to_string(at) +
                       " FAULT_ERROR=" + std::to_string(error) +
                       " FAULT_ROOM=" + std::to_string(room_);
    line += " " + command + " >'" + folder_.Path("output") + "' 2>'" + folder_.Path("errors") + "'";
    tools::DeleteFile(folder_.Path("report"));
    const int status = std::system(line.c_str());
    output_ = folder_.Read("output");
    errors_ = folder_.Read("errors");
    report_ = folder_.Read("report");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  int Run(const std::string& command) { return Run(command, 0, EIO); }
  [[nodiscard]] std::string Edit(const std::string& operation) const {
    return "'" EDIT_PRODUCT "' '" + work_ + "/product/P.product' '" + operation + "'";
  }
  [[nodiscard]] std::string Build(const std::string& kind) const {
    return "'" PACKWRIGHT_BUILD "' '" + work_ + "/product/P.product' 1.0 --quiet --overwrite " +
           "--output '" + work_ + "/out' " + kind;
  }
  /// How many calls a command makes.
  long Calls(const std::string& command, int error) {
    Run(command, 0, error);
    const long calls = std::atol(report_.substr(report_.find(' ') + 1).c_str());
    Restore();
    return calls;
  }

  /// Every file and folder but those of temporary names, whose paths `temporary` receives.
  Content Look(std::vector<std::string>& temporary) const {
    temporary.clear();
    Content content;
    std::filesystem::recursive_directory_iterator walk(tools::ToPath(work_));
    for (auto entry = begin(walk); entry != end(walk); ++entry) {
      const std::string path = tools::FromPath(entry->path());
      if (tools::IsTemporaryName(path)) {
        temporary.push_back(path);
        entry.disable_recursion_pending();
      } else {
        content[path.substr(work_.size())] =
            entry->is_directory() ? "folder" : tools::ReadWholeFile(path);
      }
    }
    return content;
  }

  /// Runs the command with each single failure.
  void FailEverywhere(const std::string& command) {
    std::vector<std::string> temporary;
    const Content old = Look(temporary);
    ASSERT_EQ(Run(command), 0) << errors_;
    const Content whole = Look(temporary);
    ASSERT_NE(old, whole);
    ASSERT_TRUE(temporary.empty());
    Restore();
    for (std::size_t i = 0; i < kErrors.size(); ++i) {
      const long calls = Calls(command, kErrors.at(i));
      ASSERT_GT(calls, 0);
      const long first = everything_ ? 1 : 1 + static_cast<long>(i);
      const long step = everything_ ? 1 : static_cast<long>(kErrors.size());
      for (long at = first; at <= calls; at += step) {
        const int code = Run(command, at, kErrors.at(i));
        SCOPED_TRACE("call " + std::to_string(at) + ", errno " + std::to_string(kErrors.at(i)) +
                     ", " + report_ + errors_ + output_);
        const Content content = Look(temporary);
        JudgeEnd(code, content, temporary.empty(), old, whole);
        // What is hidden is named only where it could not be removed.
        if (temporary.empty()) {
          EXPECT_THAT(errors_, Not(HasSubstr(".packwright-")));
        }
        JudgeLeftovers(temporary, command, whole);
        Restore();
        if (HasFailure()) return;
      }
    }
  }

  void JudgeEnd(int code, const Content& content, bool isTidy, const Content& old,
                const Content& whole) {
    if (code == 0) {
      EXPECT_TRUE(content == whole);
      return;
    }
    EXPECT_THAT(errors_, HasSubstr(work_));
    if (code == kStopped) {
      EXPECT_TRUE(content == old || (content == whole && !isTidy));
      return;
    }
    EXPECT_EQ(code, 1);  // a source is left out, and said to be
    EXPECT_THAT(content.at("/out/build.log"), HasSubstr("ERROR: "));
    EXPECT_TRUE(content.contains("/out/P.install"));
    for (const auto& [name, bytes] : content) {
      const bool tells = name == "/out/build.log" || name == "/out/P.install";
      const bool isSame = tells || name == "/out/P.zip" || whole.at(name) == bytes;
      EXPECT_TRUE(isSame) << name;
    }
  }

  /// Only what could not be removed is left, and the next run removes it.
  void JudgeLeftovers(std::vector<std::string>& temporary, const std::string& command,
                      const Content& whole) {
    if (temporary.empty()) return;
    EXPECT_THAT(report_, testing::ContainsRegex("^(unlink|rmdir|openat|readdir)"))
        << temporary.front();
    EXPECT_EQ(Run(command), 0) << errors_;
    EXPECT_TRUE(Look(temporary) == whole);
    EXPECT_THAT(temporary, testing::IsEmpty());
  }

  void JudgeNextOperation(const std::string& killed, bool isUndone, const std::string& after);

  tests::TemporaryFolder folder_;
  std::string work_ = folder_.Path("work");
  long room_ = 0;  ///< on the disk, in bytes; 0: no end
  bool everything_ = std::getenv("FAULTS_ALL") != nullptr;
  std::string output_;
  std::string errors_;
  std::string report_;  ///< the call that failed and its path
};

TEST_F(FaultsTest, ASaveLeavesTheOldOrTheNew) { FailEverywhere(Edit("save")); }

TEST_F(FaultsTest, APackagedBuildLeavesTheOldOrTheNew) {
  ASSERT_EQ(Run(Build("--no-zip")), 0) << errors_;
  Keep();
  FailEverywhere(Build("--zip"));
}

TEST_F(FaultsTest, AnUnpackagedBuildLeavesTheOldOrTheNew) {
  ASSERT_EQ(Run(Build("--zip")), 0) << errors_;
  Keep();
  FailEverywhere(Build("--no-zip"));
}

TEST_F(FaultsTest, FourWritersUndoNothingOfEachOther) {
  const std::string times = everything_ ? "1000" : "60";
  const std::string product = work_ + "/product/P.product";
  for (const char* ticks : {"", " seconds"}) {
    std::string line;
    std::string end;
    for (const std::string key : {"A", "B", "C", "D"}) {
      line += "'" EDIT_PRODUCT "' '" + product + "' write " + key + " " + times + ticks + " & ";
      line += key + "=$!; ";
      end += (end.empty() ? "wait $" : " && wait $") + key;
    }
    EXPECT_EQ(std::system((line + end).c_str()), 0);
    const std::string content = tools::ReadWholeFile(product);
    for (const char* key : {"A1=", "A2=", "B1=", "B2=", "C1=", "C2=", "D1=", "D2="}) {
      EXPECT_THAT(content, HasSubstr(key + times + "\n"));
    }
    Restore();
  }
}

TEST_F(FaultsTest, TwoProgramsThatAddToOneProductKeepWhatTheOtherAdds) {
  const std::string add = "'" EDIT_PRODUCT "' '" + work_ + "/product/P.product' add ";
  EXPECT_EQ(std::system((add + "A 5 & A=$!; " + add + "B 5 && wait $A").c_str()), 0);
  ASSERT_EQ(Run(Edit("list")), 0) << errors_;
  EXPECT_EQ(std::count(output_.begin(), output_.end(), '|'), 1 + 10);
  EXPECT_EQ(std::count(output_.begin(), output_.end(), ','), 1 + 10 + 20);
}

TEST_F(FaultsTest, AFullDiskLeavesTheOld) {
  std::string noise(3'000'000, '\0');  // which no compression makes smaller
  std::mt19937 random(1);
  for (char& byte : noise) byte = static_cast<char>(random());
  folder_.Write("whole/sources/large.bin", noise);
  Restore();
  ASSERT_EQ(Run(Build("--no-zip")), 0) << errors_;
  Keep();
  std::vector<std::string> temporary;
  const Content old = Look(temporary);
  const std::pair<std::string, std::vector<long>> cases[] = {
      {Edit("save"), {1, 1'000}},
      {Edit("add version"), {1, 2}},
      {Build("--zip"), {1, 1'000, 2'000'000}},
      {Build("--no-zip"), {1, 1'000, 2'000'000}}};
  for (const auto& [command, rooms] : cases) {
    for (const long room : rooms) {
      SCOPED_TRACE(command + " with room for " + std::to_string(room));
      room_ = room;
      EXPECT_EQ(Run(command), kStopped);
      EXPECT_THAT(errors_, testing::AnyOf(HasSubstr("Kein Speicherplatz"),
                                          HasSubstr("Der Datenträger ist voll")));
      EXPECT_THAT(errors_, HasSubstr(work_));
      EXPECT_TRUE(Look(temporary) == old);
      EXPECT_THAT(temporary, testing::IsEmpty());
      Restore();
    }
  }
}

TEST_F(FaultsTest, AKilledBuildIsMadeGoodByTheNext) {
  ASSERT_EQ(Run(Build("--no-zip")), 0) << errors_;
  for (const char* kind : {"--zip", "--no-zip"}) {
    Keep();
    const std::string command = Build(kind);
    std::vector<std::string> temporary;
    const Content old = Look(temporary);
    ASSERT_EQ(Run(command), 0) << errors_;
    const Content whole = Look(temporary);
    Restore();
    const long calls = Calls(command, kKill);
    for (long at = 1; at <= calls; at += everything_ ? 1 : 5) {
      ASSERT_EQ(Run(command, at, kKill), kKilled);
      SCOPED_TRACE(kind + (" at " + std::to_string(at) + ", " + report_));
      // Never a mixture.
      EXPECT_THAT(Look(temporary),
                  testing::AnyOf(testing::IsSubsetOf(old), testing::IsSubsetOf(whole)));
      EXPECT_EQ(Run(command), 0) << errors_;
      EXPECT_TRUE(Look(temporary) == whole);
      EXPECT_THAT(temporary, testing::IsEmpty());
      Restore();
      if (HasFailure()) return;
    }
    ASSERT_EQ(Run(command), 0) << errors_;
  }
}

/// In a new process it goes through, and the leftovers go.
void FaultsTest::JudgeNextOperation(const std::string& killed, bool isUndone,
                                    const std::string& after) {
  const bool isDeletion = killed == "delete version";
  if (!isUndone && !isDeletion) return;
  EXPECT_EQ(Run(Edit(isUndone ? killed : "add version")), 0) << errors_;
  std::vector<std::string> temporary;
  EXPECT_FALSE(isDeletion && Look(temporary).contains("/product/Version 1.0"));
  (void)Look(temporary);
  EXPECT_THAT(temporary, testing::IsEmpty());
  EXPECT_EQ(Run(Edit("list")), 0) << errors_;
  if (isUndone) {
    EXPECT_EQ(output_, after);
  }
}

TEST_F(FaultsTest, AKilledOperationLeavesAProductThatOpensAsBeforeOrAsAfter) {
  ASSERT_EQ(Run(Edit("list")), 0) << errors_;
  const std::string before = output_;
  for (const char* operation : {"save", "add version", "delete version", "add component",
                                "copy component", "delete component"}) {
    ASSERT_EQ(Run(Edit(operation)), 0) << errors_;
    ASSERT_EQ(Run(Edit("list")), 0) << errors_;
    const std::string after = output_;
    ASSERT_NE(before, after);
    Restore();
    const long calls = Calls(Edit(operation), kKill);
    for (long at = 1; at <= calls; ++at) {
      ASSERT_EQ(Run(Edit(operation), at, kKill), kKilled);
      SCOPED_TRACE(operation + (" at " + std::to_string(at) + ", " + report_));
      EXPECT_EQ(Run(Edit("list")), 0) << errors_;
      EXPECT_THAT(output_, testing::AnyOf(before, after));
      JudgeNextOperation(operation, output_ == before, after);
      Restore();
      if (HasFailure()) return;
    }
  }
}

}  // namespace
