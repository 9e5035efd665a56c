#include "build/BuildCheck.h"
#include "tests/support/BuildFixture.h"
#include "tools/Files.h"

namespace build {

using testing::ElementsAre;
using testing::StartsWith;
using tests::TestProduct;

class BuildCheckTest : public tests::BuildFixture {
 protected:
  /// Findings as "component/entry text", and a check that the disk is as before.
  std::vector<std::string> Check() {
    const auto before = tools::FindFiles(folder_.Path(), "*", true);
    std::vector<std::string> found;
    for (const BuildMessage& finding : CheckBuild(project_, settings_, 1)) {
      found.push_back(std::to_string(finding.component) + "/" + std::to_string(finding.entry) +
                      " " + finding.text);
    }
    EXPECT_EQ(tools::FindFiles(folder_.Path(), "*", true), before);
    EXPECT_FALSE(folder_.Holds("aus"));
    return found;
  }
};

TEST_F(BuildCheckTest, ReportsTheProductFirst) {
  settings_["folder"] = folder_.Path("Produkt");
  project_.SetProductTitle("Foto \"1\"");
  project_.WriteVersionSetting(1, "Tessel", "Key", "K\"");
  project_.WriteVersionSetting(1, "Tessel", "Type", "1a");
  EXPECT_THAT(Check(),
              ElementsAre("0/0 Der Ausgabeordner ist ungültig: " + folder_.Path("Produkt"),
                          "0/0 Die Produktbezeichnung kann kein Dateiname sein: Foto \"1\"",
                          StartsWith("0/0 Die Produktbezeichnung enthält ein Zeichen"),
                          StartsWith("0/0 Der Tessel-Anwendungsschlüssel enthält ein Zeichen"),
                          "0/0 Der Programmtyp ist keine Zahl: 1a"));
}

TEST_F(BuildCheckTest, ReportsSourcesTargetsAndValues) {
  product_.AddComponent("A", {TestProduct::File(folder_.Path("fehlt")),
                              TestProduct::File(folder_.Path("weg"), "Exclude=1\n"),
                              TestProduct::Scan(folder_.Path("leer"), "*.x")});
  product_.AddComponent("B", {Source("q.txt", "q", "TargetName=\"q\".txt\n"),
                              Source("u.txt", "u", "TargetFolder=29\n"),
                              Source("o.txt", "o", "TargetFolder=3000000000\n")});
  EXPECT_THAT(Check(),
              ElementsAre("1/1 Die Quelldatei fehlt: " + folder_.Path("fehlt"),
                          "1/3 Keine Datei im Ordner '" + folder_.Path("leer") + "' passt zu '*.x'",
                          StartsWith("2/1 Der Zielpfad enthält ein Zeichen"),
                          "2/2 Unbekannte Nummer des Zielordners: 29", StartsWith("2/3 Überlauf")));
}

TEST_F(BuildCheckTest, ReportsFilesThatMeetWithBothPlaces) {
  product_.AddComponent("A", {Source("1/Größe.txt", "1")});
  product_.AddComponent(
      "B", {Source("2/GRÖSSE.TXT", "2"), Source("3/größe.txt", "3", "TargetName=anders.txt\n")});
  settings_["makezip"] = "1";
  project_.WriteVersionSetting(1, "Tessel", "Type", "of no matter without a key");
  EXPECT_THAT(Check(), ElementsAre());
  product_.AddComponent("C", {Source("4/größe.TXT", "4")});
  EXPECT_THAT(Check(),
              ElementsAre("3/1 Gleiches Ziel '%InstallPath%\\größe.TXT' für '" +
                          folder_.Path("quelle/4/größe.TXT") + "' wie für '" +
                          folder_.Path("quelle/1/Größe.txt") + "' (Komponente 'A', Datei 1)"));
  settings_["makezip"] = "0";
  EXPECT_THAT(Check(),
              ElementsAre(StartsWith("2/2 Gleicher Ablagename 'InstallPath\\größe.txt'"),
                          StartsWith("3/1 Gleiches Ziel"), StartsWith("3/1 Gleicher Ablagename")));
}

TEST_F(BuildCheckTest, WorksOutWhereATreesFoldersLead) {
  product_.AddComponent("A", {Source("1/a.txt", "1", "TargetSubFolder=y\n"),
                              Source("2/a.txt", "2", "TargetSubFolder=x\\..\\y\n"),
                              Source("3/b.txt", "3", "TargetSubFolder=..\\..\\x\n")});
  EXPECT_THAT(Check(), ElementsAre(StartsWith("1/2 Gleicher Ablagename"),
                                   StartsWith("1/3 Der Zielordner liegt außerhalb")));
}

}  // namespace build
