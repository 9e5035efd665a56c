#include "engine/BuildCheck.h"
#include "engine/SettingsText.h"
#include "tests/support/BuildFixture.h"

namespace engine {

using tests::TestProduct;

class BuildCheckTest : public tests::BuildFixture {
 protected:
  /// Findings as "component/entry text", and a check that the disk is as before.
  std::vector<std::string> Check() {
    const auto before = tools::FindFiles(folder_.Path(), "*", tools::Subfolders::Search);
    std::vector<std::string> found;
    for (const BuildMessage& finding :
         CheckBuild(project_, options_, 1, folder_.Path("programm"))) {
      found.push_back(std::to_string(finding.component) + "/" + std::to_string(finding.entry) +
                      " " + finding.text);
    }
    EXPECT_EQ(tools::FindFiles(folder_.Path(), "*", tools::Subfolders::Search), before);
    EXPECT_FALSE(folder_.Holds("aus"));
    return found;
  }
};

TEST_F(BuildCheckTest, ReportsTheProductFirst) {
  options_.folder = folder_.Path("Produkt");
  project_.SetProductTitle("Foto \"1\"");
  project_.WriteVersionSetting(1, "Tessel", "Key", "K\"");
  project_.WriteVersionSetting(1, "Tessel", "Title", "?");
  project_.WriteVersionSetting(1, "Tessel", "Type", "1a");
  options_.includeWrapper = true;
  EXPECT_THAT(
      Check(),
      ElementsAre("0/0 Der Ausgabeordner ist ungültig. Er enthält das Produkt oder eine seiner "
                  "Versionen: " +
                      folder_.Path("Produkt"),
                  "0/0 Die Produktbezeichnung kann kein Dateiname sein: Foto \"1\"",
                  StartsWith("0/0 Die Produktbezeichnung enthält ein Zeichen"),
                  "0/0 Die Programmbezeichnung der Tessel-Datenbank ist noch \"?\"",
                  StartsWith("0/0 Der Tessel-Anwendungsschlüssel enthält ein Zeichen"),
                  "0/0 Der Programmtyp ist keine Zahl: 1a",
                  StartsWith("0/0 Das ausführbare Installationsprogramm kann nicht gelesen")));
}

TEST_F(BuildCheckTest, ReportsWhatIsWrongInAnEntry) {
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

TEST_F(BuildCheckTest, CanBeStoppedAtEachFileOnceTheSurveyIsDone) {
  product_.AddComponent("A", {Source("a.txt", "a"), Source("b.txt", "b")});
  int steps = 0;
  const SurveyStep count = [&] { ++steps; };
  (void)SurveyVersion(project_, 1, options_.folder, [&](const tools::Progress&) { count(); });
  const int ofSurvey = std::exchange(steps, 0);
  (void)CheckBuild(project_, options_, 1, folder_.Path("programm"), count);
  EXPECT_EQ(steps, ofSurvey + 2);
}

TEST_F(BuildCheckTest, ReportsFilesThatMeetWithBothPlaces) {
  product_.AddComponent("A", {Source("1/Größe.txt", "1")});
  product_.AddComponent(
      "B", {Source("2/GRÖSSE.TXT", "2"), Source("3/größe.txt", "3", "TargetName=anders.txt\n")});
  options_.packaged = true;
  project_.WriteVersionSetting(1, "Tessel", "Type", "of no matter without a key");
  EXPECT_THAT(Check(), IsEmpty());
  product_.AddComponent("C", {Source("4/größe.TXT", "4")});
  EXPECT_THAT(Check(),
              ElementsAre("3/1 Gleiches Ziel '%InstallPath%\\größe.TXT' für '" +
                          folder_.Path("quelle/4/größe.TXT") + "' wie für '" +
                          folder_.Path("quelle/1/Größe.txt") + "' (Komponente 'A', Datei 1)"));
  options_.packaged = false;
  EXPECT_THAT(Check(),
              ElementsAre(StartsWith("2/2 Gleicher Ablagename 'InstallPath\\größe.txt'"),
                          StartsWith("3/1 Gleiches Ziel"), StartsWith("3/1 Gleicher Ablagename")));
}

TEST_F(BuildCheckTest, WorksOutWhereATreesFoldersLead) {
  const std::string tooLong(256, 'n');
  product_.AddComponent("A", {Source("1/a.txt", "1", "TargetSubFolder=y\n"),
                              Source("2/a.txt", "2", "TargetSubFolder=x\\..\\y\n"),
                              Source("3/b.txt", "3", "TargetSubFolder=..\\..\\x\n"),
                              Source("4/c.txt", "4", "TargetSubFolder=" + tooLong + "\n"),
                              Source("5/Build.LOG", "5", "TargetSubFolder=..\n"),
                              Source("6/d.txt", "6", "TargetSubFolder=y\\A.TXT.\n"),
                              Source("7/Y", "7"), Source("8/e.txt", "8", "TargetSubFolder=aux\n")});
  EXPECT_THAT(Check(), ElementsAre(StartsWith("1/2 Gleicher Ablagename"),
                                   StartsWith("1/3 Der Zielordner liegt außerhalb"),
                                   StartsWith("1/4 Ein Teil des Zielpfads ist als Name zu lang"),
                                   HasSubstr("gehört zu einer Datei, die der Build selbst anlegt"),
                                   HasSubstr("braucht einen Ordner, wo eine Datei liegt: '" +
                                             folder_.Path("quelle/2/a.txt") + "' (Komponente 'A'"),
                                   HasSubstr("ist schon der Name eines Ordners"),
                                   HasSubstr("den Windows nicht zulässt: aux")));
}

TEST_F(BuildCheckTest, ReportsDamagedSettings) {
  product_.AddComponent("A", {Source("a.txt", "a", "Permanent=99999\n"), Source("b.txt", "b")});
  product_.AddComponent("B", {Source("c.txt", "c", "Type=3\n") + "[File7]\n<<<<<<< unser\n"});
  product_.AddComponent("", {Source("d.txt", "d")});
  for (int slot = 4; slot <= 7; ++slot) product_.AddComponent("N", {});
  project_.WriteVersionSetting(1, "Components", "Count", "6");
  project_.WriteVersionSetting(1, "BuildCommon", "ActiveConfig", "1e");
  project_.WriteVersionSetting(1, "Build1", "Locale", "9999999999");
  const std::string component = "Produkt/Version 1.0.0/component";
  folder_.Write(component + "4.component", std::string(100, '\0'));
  folder_.Write(component + "5.component",
                "[Component]\nTitle=Gr\xFC\xDF"
                "e\n[files]\nCount=0\nCOUNT=1\n[FILES]\nCount=1\n");
  tools::DeleteFile(folder_.Path(component + "6.component"));
  const std::size_t conflict = ConflictLine(folder_.Read(component + "2.component"));
  EXPECT_THAT(
      Check(),
      ElementsAre(
          EndsWith("product.version ([Build1] Locale)"),
          EndsWith("component1.component ([File1] Permanent)"),
          "2/0 Die Datei enthält Konfliktmarken einer Zusammenführung: " +
              folder_.Path(component + "2.component (Zeile ") + std::to_string(conflict) + ")",
          "2/0 Abschnitte jenseits der Anzahl der Dateien (1): File7",
          "2/1 Der Eintragstyp ist weder 1 noch 2: 3",
          "3/0 Die Komponente hat Dateien (1), aber keine Bezeichnung",
          StartsWith("4/0 Die Datei ist beschädigt"),
          StartsWith("4/0 Die Datei enthält keine Komponente"),
          StartsWith("5/0 Die Datei ist nicht in UTF-8"),
          "5/0 Der Schlüssel COUNT steht mehrfach im Abschnitt [files]; es gilt der erste: " +
              folder_.Path(component + "5.component (Zeile 5)"),
          "5/0 Der Abschnitt [FILES] steht mehrfach in der Datei; es gilt der erste: " +
              folder_.Path(component + "5.component (Zeile 6)"),
          StartsWith("7/0 Die Komponentendatei liegt jenseits der Anzahl")));
}

TEST_F(BuildCheckTest, LeavesOutWhatHasTooLongAText) {
  const std::string text(4097, 'x');
  product_.AddComponent("A",
                        {Source("a.txt", "a"), Source("b.txt", "b", "TargetName=" + text + "\n")});
  product_.AddComponent(text, {Source("c.txt", "c")});
  const std::string tooLong = "Der Wert ist zu lang (4097 Bytes, möglich sind 4096): ";
  const std::string component = folder_.Path("Produkt/Version 1.0.0/component");
  EXPECT_THAT(Check(),
              ElementsAre("1/2 " + tooLong + component + "1.component ([File2] TargetName)",
                          "2/0 " + tooLong + component + "2.component ([Component] Title)"));
  Run();
  EXPECT_EQ(summary_->stored.files, 1U);
  EXPECT_EQ(summary_->errors, 2);
}

TEST_F(BuildCheckTest, SumsUpEntriesThatTheFileDoesNotHold) {
  product_.AddComponent("A", {Source("a.txt", "a")});
  const auto setCount = [&, whole = folder_.Read(TestProduct::kComponentFile)](const char* count) {
    folder_.Write(TestProduct::kComponentFile,
                  tools::ReplaceAll(whole, "Count=1", std::string("Count=") + count) + "[File3]\n" +
                      Source("b.txt", "b"));
  };
  setCount("1000000");
  EXPECT_THAT(Check(), ElementsAre("1/2 Eintrag 2: ohne Abschnitt",
                                   "1/4 Einträge 4 bis 1000000: ohne Abschnitt"));
  setCount("6");
  Run();
  ASSERT_EQ(messages_.size(), 4U);
  EXPECT_EQ(messages_.front().text, "File missing: " + folder_.Path("Produkt/"));
  EXPECT_EQ(messages_.back().entry, 6);
  setCount("2147483647");
  Run();
  EXPECT_EQ(summary_->errors, 1) << "one for all of them";
}

TEST_F(BuildCheckTest, NoValueWithAControlCharacterReachesASetup) {
  product_.AddComponent("A", {Source("a.txt", "a")});
  project_.WriteVersionSetting(1, "Tessel", "Key", "K");
  const char* const product = TestProduct::kFile;
  const char* const version = TestProduct::kVersionFile;
  const char* const component = TestProduct::kComponentFile;
  for (const auto& [file, before, after, key] :
       {std::tuple{product, "Author=", "Author=\x1B", "[Product] Author"},
        {version, "Key=K", "Key=\x7F", "[Tessel] Key"},
        {version, "Key=K", "Key=K\nTitle=a\tb", "[Tessel] Title"},
        {version, "Key=K", "Key=K\nType=1\xC2\x85", "[Tessel] Type"},
        {component, "Title=A", "Title=A\rB", "[Component] Title"},
        {component, "ID={", "ID={\xE2\x80\xA8", "[File1] ID"},
        {component, "Type=1", "TargetName=\x01", "[File1] TargetName"},
        {component, "Type=1", "TargetSubFolder=a\xC2\x9F", "[File1] TargetSubFolder"}}) {
    const std::string whole = folder_.Read(file);
    folder_.Write(file, tools::ReplaceAll(whole, before, after));
    const std::string text =
        "Ein Wert enthält ein Steuerzeichen: " + folder_.Path(file) + " (" + key + ")";
    EXPECT_THAT(Check(), Contains(EndsWith(text)));
    EXPECT_EQ(ErrorOf([&] { Run(); }), text);
    folder_.Write(file, whole);
  }
  EXPECT_THAT(Check(), IsEmpty());
  folder_.Write(component, tools::ReplaceAll(folder_.Read(component), "Type=1", "TargetName=\x01"));
  EXPECT_THAT(CheckBuild(project_, options_, 1, {}),
              Contains(AllOf(Field(&BuildMessage::text, StartsWith("Ein Wert enthält")),
                             Field(&BuildMessage::entryId, StartsWith("{")))));
}

}  // namespace engine
