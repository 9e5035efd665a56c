#include "engine/OutputFolder.h"
#include "engine/Survey.h"
#include "tests/support/BuildFixture.h"
#include "tools/files/SpecialFolders.h"

namespace engine {

class OutputFolderTest : public tests::BuildFixture {
 protected:
  OutputFolder Accept(const std::string& text) {
    const ProtectedPlaces places(project_, 1, SurveyVersion(project_, 1, {}).sourceFolders,
                                 folder_.Path("programm"));
    return AcceptOutputFolder(text, project_, places);
  }
  /// The rule that refuses each of these folders, as a letter: "-" for one that is accepted.
  std::string Refused(const std::vector<std::string>& names) {
    std::string refused;
    for (const std::string& name : names) {
      const OutputFolder folder = Accept(folder_.Path(name));
      refused += "-brhpsfugovmMU"[static_cast<std::size_t>(folder.refusal)];
      EXPECT_EQ(folder.IsAccepted(), folder.reason.empty()) << name;
      EXPECT_EQ(folder.IsAccepted(), !folder.path.empty()) << name;
    }
    return refused;
  }
};

TEST_F(OutputFolderTest, TakesRelativeTextFromTheProductFolder) {
  EXPECT_EQ(Accept(" Ausgabe\\x/../Debug\t").path, folder_.Path("Produkt/Ausgabe/Debug"));
  EXPECT_EQ(Accept("..\\aus\\").path, folder_.Path("aus"));
  EXPECT_EQ(Accept(folder_.Path("neu/tief/")).path, folder_.Path("neu/tief"));
}

TEST_F(OutputFolderTest, RefusesFoldersAboveAllOthers) {
  const std::string home = tools::SpecialFolder(tools::kProfileFolder);
  const std::string root = tools::FromPath(tools::ToPath(folder_.Path()).root_path());
  const std::pair<std::string, FolderRefusal> rows[] = {
      {"", FolderRefusal::Blank},
      {" \t ", FolderRefusal::Blank},
      {root, FolderRefusal::Root},
      {root + "x/..", FolderRefusal::Root},
      {home, FolderRefusal::Home},
      {home + "/x/..", FolderRefusal::Home},
      {home + "/packwright-test-output", FolderRefusal::None}};
  for (const auto& [text, refusal] : rows) EXPECT_EQ(Accept(text).refusal, refusal) << text;
  EXPECT_FALSE(Accept(tools::FolderOf(home)).IsAccepted());
  for (const std::string& others : tools::HomeFolders()) {
    EXPECT_FALSE(Accept(others).IsAccepted()) << others;
  }
  EXPECT_EQ(Accept(root).reason, "Er ist der oberste Ordner eines Datenträgers: " + root);
}

TEST_F(OutputFolderTest, RefusesFoldersThatHoldTheProduct) {
  project_.WriteProductSetting("Versions", "Count", "2");
  project_.WriteProductSetting("Versions", "Ver2", "2.0.0");
  project_.WriteProductSetting("Versions", "Ver9", "beyond the count");
  EXPECT_EQ(Refused({"", "Produkt", "Produkt/.", "Produkt/Version 1.0.0", "Produkt/Version 2.0.0",
                     "Produkt/x/../Version 1.0.0", "Produkt/Version beyond the count",
                     "Produkt/Version 3.0.0", "Produkt2"}),
            "ppppppp--");
}

TEST_F(OutputFolderTest, RefusesFoldersThatHoldSourcesWhateverTheirEntriesSay) {
  product_.AddComponent("A", {Source("a/a.txt", "a"), Source("b/b.txt", "b", "Exclude=1\n"),
                              tests::TestProduct::Scan(folder_.Path("quelle/c"), "*.txt")});
  product_.AddComponent("B", {Source("d/d.txt", "d", "Vital=99999\n")});
  product_.AddComponent("", {Source("e/e.txt", "e")});
  product_.AddComponent("C", {Source("f/f.txt", "f")});
  project_.WriteComponentSetting(1, 4, "Files", "Count", "3000000000");
  product_.AddComponent("D", {Source("g/g.txt", "g")});
  project_.WriteComponentSetting(1, 5, "Files", "Count", "-1");
  product_.AddComponent("E", {Source("h/h.txt", "h")});
  project_.WriteComponentSetting(1, 6, "Files", "Count", "");
  product_.AddComponent("F", {Source("i/i.txt", "i", "Type=0\n")});
  folder_.Write("quelle/c/aus/liste.txt", "");
  EXPECT_EQ(
      Refused({"quelle", "quelle/a", "quelle/b", "quelle/c", "quelle/d", "quelle/e", "quelle/f",
               "quelle/g", "quelle/h", "quelle/i", "quelle/a/aus", "quelle/c/aus"}),
      "ssssssssss--");
}

TEST_F(OutputFolderTest, RefusesWhatBelongsToOthers) {
  project_.WriteProductSetting("Versions", "Ver9", "2.0.0");
  folder_.Write("Produkt/Version 2.0.0/component7.component",
                "[File3]\nSourcePath=../anders\nSourceName=1/a.txt\n"
                "[File8]\nType=2\nSourcePath=" +
                    folder_.Path("scan") + "\nSourceName=*\n");
  folder_.MakeFolder("depot/.git/refs");
  folder_.Write("zweig/.git", "gitdir: anderswo");
  folder_.MakeFolder("alt/.svn");
  EXPECT_EQ(
      Refused({"anders", "anders/1", "anders/2", "scan", "scan/aus", "programm", "programm/aus",
               "depot", "depot/.git", "depot/.git/refs", "depot/aus", "zweig", "alt", "neu/.hg"}),
      "oo-o-g-vvv-vvv");
}

TEST_F(OutputFolderTest, RefusesAFolderWhoseContentBelongsToVersionControl) {
  folder_.Write("aus/unten/.git/HEAD", "x");
  const OutputFolder folder = Accept(folder_.Path("aus"));
  ASSERT_TRUE(folder.IsAccepted());
  const ProtectedPlaces places(project_, 1, {}, {});
  const OutputFolder refused = AcceptContent(folder, ContentOf(folder.path), places);
  EXPECT_EQ(refused.refusal, FolderRefusal::VersionControl);
  EXPECT_EQ(refused.reason,
            "Er gehört zu einer Versionsverwaltung: " + folder_.Path("aus/unten/.git"));
}

TEST_F(OutputFolderTest, RefusesAPlaceThatAFileTakes) {
  folder_.Write("datei", "x");
  EXPECT_EQ(Refused({"datei", "datei/tief/er", "datei2"}), "ff-");
}

}  // namespace engine
