#include <algorithm>

#include "model/NodeSettings.h"
#include "tests/support/Testing.h"

namespace model {

/// The product's node, with a page that reads and writes "A" and "B" of the section "S".
class NodeSettingsTest : public testing::Test {
 protected:
  /// Another program writes the whole file.
  void Put(const std::string& settings) { path_ = folder_.Write("d.product", "[S]\n" + settings); }
  [[nodiscard]] std::string Stored() const { return folder_.Read("d.product").substr(4); }

  /// Opens the page.
  void Open(const std::string& settings) {
    Put(settings);
    project_.SetProductPath(path_);
    node_.Select(0, 0);
    (void)node_.Read("S", "A", "a");
    (void)node_.Read("S", "B", "");
  }

  /// Saves the page, `meanwhile` running in the midst of it. Returns what the author was asked.
  std::string Save(
      const char* a, const char* b, const std::function<void()>& meanwhile = [] {}) {
    std::string asked;
    node_.InOneWrite(
        [&] {
          node_.Save("S", "A", a);
          node_.Save("S", "B", b);
          meanwhile();
        },
        [&](const std::string& file) { asked = file == path_ ? "asked" : file; });
    return asked;
  }

  TemporaryFolder folder_;
  std::string path_;
  tools::SystemDisk disk_;
  tools::SettingsStore store_{disk_};
  ModProject project_{store_};
  NodeSettings node_{project_, [](std::string_view text) {
                       std::string shown(text);
                       std::replace(shown.begin(), shown.end(), '\xFF', '?');
                       return shown;
                     }};
};

TEST_F(NodeSettingsTest, LeavesWhatIsNotEditedToOtherPrograms) {
  struct Row {
    const char* seen;
    const char* a;  ///< what the page writes
    const char* b;
    const char* meanwhile;  ///< what another program has made of the file
    const char* asked;
    const char* result;
  };
  const Row rows[] = {
      {"A=1\nB=2\n", "1", "2", "A=9\nC=1\n", "", "A=9\nC=1\n"},
      {"A=1\nB=2\n", "3", "2", "C=1\nA=1\nB=2\n", "", "C=1\nA=3\nB=2\n"},
      {"A=1\nB=2\n", "3", "2", "A=1\nB=9\n", "asked", "A=3\nB=2\n"},
      {"A=1\nB=2\n", "3", "2", "A=9\nB=2\n", "asked", "A=3\nB=2\n"},
      {"A=1\nB=2\n", "3", "2", "A=1\n", "asked", "A=3\nB=2\n"},
      {"A=1\nB=2\n", "3", "2", "A=3\nB=2\n", "", "A=3\nB=2\n"},
      {"", "a", "", "C=1\n", "", "C=1\nA=a\nB=\n"},
      {"", "a", "0", "A=9\n", "", "A=9\nB=0\n"},
      {"", "b", "", "A=9\n", "asked", "A=b\nB=\n"},
      {"A=\xFF\nB=\xFF\n", "?", "?", "A=\xFF\nB=\xFF\nC=\n", "", "A=\xFF\nB=\xFF\nC=\n"},
      {"A=\xFF\nB=\xFF\n", "?", "2", "A=9\nB=\xFF\n", "asked", "A=\xFF\nB=2\n"},
  };
  for (const Row& row : rows) {
    Open(row.seen);
    Put(row.meanwhile);
    EXPECT_EQ(Save(row.a, row.b), row.asked) << row.seen << row.meanwhile;
    EXPECT_EQ(Stored(), row.result) << row.seen << row.meanwhile;
  }
}

TEST_F(NodeSettingsTest, AnEditThatAnotherProgramMadeTooCanBeTakenBack) {
  Open("A=1\nB=2\n");
  Put("A=3\nB=2\n");
  EXPECT_EQ(Save("3", "2"), "");
  EXPECT_FALSE(node_.HasChangedOutside());
  EXPECT_EQ(Save("1", "2"), "");
  EXPECT_EQ(Stored(), "A=1\nB=2\n");
}

TEST_F(NodeSettingsTest, ManyReadsSeeTheFileAsItWasSelectedUnlessItCouldNotBeRead) {
  Open("A=1\nB=2\n");
  Put("A=9\nB=9\n");
  node_.InOneRead([&] { EXPECT_EQ(node_.Read("S", "A", ""), "1"); });
  EXPECT_EQ(node_.Read("S", "A", ""), "9");

  std::filesystem::remove(path_);
  std::filesystem::create_directory(path_);
  node_.Select(0, 0);
  node_.InOneRead([&] { EXPECT_THROW((void)node_.Read("S", "A", ""), tools::Error); });
}

TEST_F(NodeSettingsTest, AnEmptyNumberWrittenAsZeroIsNoEditButAZeroInATextIs) {
  struct Row {
    const char* seen;
    const char* key;  ///< "N", a number, or "B", a text
    const char* value;
    const char* meanwhile;
    const char* result;  ///< with "?" where the author was asked
  };
  const Row rows[] = {
      {"N=\n", "N", "0", "N=\n", "N=\n"},    {"N=\n", "N", "0", "N=5\n", "N=5\n"},
      {"", "N", "0", "N=5\n", "N=5\n"},      {"", "N", "0", "C=1\n", "C=1\nN=0\n"},
      {"N=\n", "N", "2", "N=5\n", "N=2\n?"}, {"N=5\n", "N", "0", "N=5\n", "N=0\n"},
      {"B=\n", "B", "0", "B=\n", "B=0\n"},
  };
  for (const Row& row : rows) {
    Open(row.seen);
    (void)node_.Read("S", "N", "0");
    Put(row.meanwhile);
    std::string asked;
    node_.InOneWrite([&] { node_.Save("S", row.key, row.value); },
                     [&](const std::string&) { asked = "?"; });
    EXPECT_EQ(Stored() + asked, row.result) << row.seen << row.value << row.meanwhile;
  }
}

TEST_F(NodeSettingsTest, AShorterListLosesNoOtherChangeUnasked) {
  const std::string seen = "Count=3\n[E1]\nK=a\n[E2]\nK=b\n[E3]\nK=";
  const auto saveWithoutTheFirst = [&] {
    bool isAsked = false;
    node_.InOneWrite(
        [&] {
          node_.Save("S", "Count", "2");
          node_.Save("E1", "K", "b");
          node_.Save("E2", "K", "c");
        },
        [&](const std::string&) { isAsked = true; });
    return isAsked;
  };
  Open(seen + "c\n");
  Put(seen + "changed\n");
  EXPECT_TRUE(saveWithoutTheFirst());
  Open(seen + "c\n");
  Put("; another program's\n" + seen + "c\n");
  EXPECT_FALSE(saveWithoutTheFirst());
  Open("[Files]\nCount=1\n[File1]\nVital=1\n");
  Put("[Files]\nCount=1\n[File1]\nVital=0\n");
  bool isAsked = false;
  node_.InOneWrite([&] { node_.Save("Files", "Count", "0"); },
                   [&](const auto&) { isAsked = true; });
  EXPECT_TRUE(isAsked) << "none is left";
}

TEST_F(NodeSettingsTest, AFileThatIsGoneIsNotMadeAgainFromAPage) {
  Open("B=2\n");
  const auto vanish = [&] { tools::DeleteFile(path_); };
  for (int save = 0; save < 2; ++save) {
    EXPECT_THROW((void)Save("a", "3", vanish), tools::Error) << save;
    EXPECT_FALSE(folder_.Holds("d.product")) << save;
  }
}

TEST_F(NodeSettingsTest, AnEditIsNotWrittenToAnotherVersionInTheSameSlot) {
  Open("[Versions]\nCount=1\nVer1=1.0\n");
  folder_.Write("Version 1.0/product.version", "[S]\nA=1\nB=\n");
  node_.Select(1, 0);
  Put("[Versions]\nCount=1\nVer1=2.0\n");
  for (const std::string stored : {"[S]\nA=1\nB=\n", "[S]\nA=5\nB=\n"}) {
    folder_.Write("Version 2.0/product.version", stored);
    EXPECT_THROW((void)Save("5", ""), tools::Error) << stored;
    EXPECT_EQ(folder_.Read("Version 2.0/product.version"), stored);
  }
  EXPECT_THROW(node_.RequireNode(), tools::Error);
  EXPECT_TRUE(node_.HasChangedOutside());
}

TEST_F(NodeSettingsTest, WhatAnotherPageHasNotSeenStaysUnseen) {
  Open("B=2\n");
  Put("B=9\n");
  node_.InOneWrite([&] { node_.Save("S", "A", "3"); }, [](const auto&) { FAIL() << "asked"; });
  EXPECT_EQ(Save("3", "2"), "");
  EXPECT_EQ(Stored(), "B=9\nA=3\n");
}

TEST_F(NodeSettingsTest, WhatAPageHasNotReadStaysUnseen) {
  Open("A=1\nB=2\n");
  EXPECT_EQ(Save("3", "2"), "");
  EXPECT_EQ(Save("4", "2", [&] { Put("A=3\nB=9\n"); }), "") << "the commit joins both";
  EXPECT_EQ(Stored(), "A=4\nB=9\n");
  EXPECT_EQ(Save("4", "2"), "");
  EXPECT_EQ(Stored(), "A=4\nB=9\n");
  EXPECT_EQ(Save("5", "2"), "asked");
  EXPECT_EQ(Save("6", "2"), "");
  Put("A=6\nB=8\n");
  EXPECT_EQ(node_.Read("S", "B", ""), "8");
  for (const char* b : {"7", "8"}) {
    EXPECT_EQ(Save("6", b), "") << "read anew";
    EXPECT_EQ(Stored(), std::string("A=6\nB=") + b + "\n");
  }
}

}  // namespace model
