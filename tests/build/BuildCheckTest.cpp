#include <filesystem>

#include "build/BuildCheck.h"
#include "tests/support/BuildFixture.h"
#include "tools/Files.h"

namespace build {
namespace {

using tests::TestProduct;

class BuildCheckTest : public tests::BuildFixture {
 protected:
  /// Findings as "component/entry text", and a check that the disk is as before.
  std::vector<std::string> Check() {
    const auto before = tools::FindFiles(folder_.Path(), "*", true);
    std::vector<std::string> found;
    for (const BuildMessage& finding : CheckBuild(product_.Project(), settings_, 1)) {
      found.push_back(std::to_string(finding.component) + "/" + std::to_string(finding.entry) +
                      " " + finding.text);
    }
    EXPECT_EQ(tools::FindFiles(folder_.Path(), "*", true), before);
    EXPECT_FALSE(folder_.Holds("aus"));
    return found;
  }
};

TEST_F(BuildCheckTest, FindsNothingWrongWithASoundVersion) {
  product_.AddComponent("A", {Source("a.txt", "a"), Source("b.txt", "b")});
  product_.Project().WriteVersionSetting(1, "Tessel", "Type", "viele");
  EXPECT_EQ(Check(), std::vector<std::string>{});
}

TEST_F(BuildCheckTest, ReportsTheProductFirst) {
  settings_["folder"] = folder_.Path("Produkt");
  product_.Project().SetProductTitle("Foto \"1\"");
  product_.Project().WriteVersionSetting(1, "Tessel", "Key", "K\"");
  product_.Project().WriteVersionSetting(1, "Tessel", "Type", "1a");
  const auto found = Check();
  ASSERT_EQ(found.size(), 5U);
  EXPECT_EQ(found[0], "0/0 Der Ausgabeordner ist ungültig: " + folder_.Path("Produkt"));
  EXPECT_EQ(found[1], "0/0 Die Produktbezeichnung kann kein Dateiname sein: Foto \"1\"");
  EXPECT_EQ(found[4], "0/0 Der Programmtyp ist keine Zahl: 1a");
}

TEST_F(BuildCheckTest, ReportsSourcesTargetsAndValues) {
  model::ICFile quoted = Source("q.txt", "q");
  quoted.TargetName = "\"q\".txt";
  model::ICFile unknown = Source("u.txt", "u");
  unknown.TargetFolder = 29;
  model::ICFile overflow = Source("o.txt", "o");
  model::ICFile excluded = TestProduct::File(folder_.Path("weg"));
  excluded.Exclude = 1;
  product_.AddComponent("A", {TestProduct::File(folder_.Path("fehlt")), excluded,
                              TestProduct::Scan(folder_.Path("leer"), "*.x")});
  product_.AddComponent("B", {quoted, unknown, overflow});
  product_.Project().WriteComponentSetting(1, 2, "File3", "TargetFolder", "3000000000");
  const auto found = Check();
  ASSERT_EQ(found.size(), 5U);
  EXPECT_EQ(found[0], "1/1 Die Quelldatei fehlt: " + folder_.Path("fehlt"));
  EXPECT_EQ(found[1], "1/3 Keine Datei im Ordner '" + folder_.Path("leer") + "' passt zu '*.x'");
  EXPECT_TRUE(found[2].starts_with("2/1 Der Zielpfad enthält ein Zeichen")) << found[2];
  EXPECT_EQ(found[3], "2/2 Unbekannte Nummer des Zielordners: 29");
  EXPECT_TRUE(found[4].starts_with("2/3 Überlauf")) << found[4];
}

TEST_F(BuildCheckTest, ReportsFilesThatMeetWithBothPlaces) {
  model::ICFile first = Source("1/Größe.txt", "1");
  model::ICFile second = Source("2/GRÖSSE.TXT", "2");
  model::ICFile apart = Source("3/größe.txt", "3");
  apart.TargetName = "anders.txt";
  product_.AddComponent("A", {first});
  product_.AddComponent("B", {second, apart});
  settings_["makezip"] = "1";
  EXPECT_EQ(Check(), std::vector<std::string>{});
  second.SourceName = "größe.TXT";
  folder_.Write("quelle/2/größe.TXT", "2");
  product_.AddComponent("C", {second});
  EXPECT_EQ(Check(), std::vector<std::string>{"3/1 Gleiches Ziel '%InstallPath%\\größe.TXT' für '" +
                                              folder_.Path("quelle/2/größe.TXT") + "' wie für '" +
                                              folder_.Path("quelle/1/Größe.txt") +
                                              "' (Komponente 'A', Datei 1)"});
  settings_["makezip"] = "0";
  const auto found = Check();
  ASSERT_EQ(found.size(), 3U);
  EXPECT_TRUE(found[0].starts_with("2/2 Gleicher Ablagename 'InstallPath\\größe.txt'")) << found[0];
}

TEST_F(BuildCheckTest, WorksOutWhereATreesFoldersLead) {
  model::ICFile plain = Source("1/a.txt", "1");
  plain.TargetSubFolder = "y";
  model::ICFile winding = Source("2/a.txt", "2");
  winding.TargetSubFolder = "x\\..\\y";
  model::ICFile outside = Source("3/b.txt", "3");
  outside.TargetSubFolder = "..\\..\\x";
  product_.AddComponent("A", {plain, winding, outside});
  settings_["makezip"] = "0";
  const auto found = Check();
  ASSERT_EQ(found.size(), 2U);
  EXPECT_TRUE(found[0].starts_with("1/2 Gleicher Ablagename")) << found[0];
  EXPECT_TRUE(found[1].starts_with("1/3 Der Zielordner liegt außerhalb")) << found[1];
}

}  // namespace
}  // namespace build
