// Proofs of real setups, whole and damaged.
#include <sstream>

#include "console/ProductProof.h"
#include "tests/support/BuildFixture.h"

namespace console {

class ProofTest : public tests::BuildFixture {
 protected:
  ProofTest() {
    options_.packaged = true;
    product_.AddComponent("Programm", {Source("a.exe", std::string(200'000, 'a'), "Overwrite=1\n"),
                                       Source("b.txt", "zwei", "Vital=0\nRegisterPath=1\n")});
    project_.WriteVersionSetting(1, "Tessel", "Key", "probe");
    Run();
  }

  std::vector<std::string> Findings() {
    std::vector<std::string> texts;
    const std::string error = ErrorOf([&] {
      const setup::ProofResult result =
          ProveVersion(setup::OpenSetup(folder_.Path("aus")), project_, 1, clock_,
                       [](const tools::Progress&) {});
      for (const setup::Finding& finding : result.findings) {
        texts.push_back(std::to_string(finding.component) + "/" + std::to_string(finding.entry) +
                        ": " + finding.text);
      }
    });
    if (error != "no error") texts = {error};
    return texts;
  }
  void Edit(const std::string& from, const std::string& to) {
    const std::string script = Out("Probe.install");
    ASSERT_THAT(script, HasSubstr(from));
    folder_.Write("aus/Probe.install", tools::ReplaceAll(script, from, to));
  }
};

TEST_F(ProofTest, NamesWhatAnEditedLineChanges) {
  const std::string script = Out("Probe.install");
  const struct {
    std::string from, to, finding;
  } cases[] = {
      {"(C) 2031", "(C) 9999", "0/0: Jahr: \"9999\""},
      {"Änne", "Anne", "0/0: Autor: \"Anne Müller\" statt \"Änne Müller\""},
      {"Möchten Sie", "Wollen Sie", "0/0: Rückfrage"},
      {"Abbruch durch Benutzer", "Ende", "0/0: Abbruch durch den Benutzer"},
      {"RegPrd \"probe\", \"Probe\", 1", "RegPrd \"probe\", \"Probe\", 2",
       "0/0: Tessel-Programmtyp"},
      {"\"probe\"", "\"Probe\"", "0/0: Tessel-Schlüssel: \"Probe\" statt \"probe\""},
      {"%ProgramFiles%\\Probe", "%ProgramFiles%\\P", "0/0: Installationsordner"},
      {"for \"Programm\"", "for \"P\"", "1/1: Komponente \"P\" statt \"Programm\""},
      {"%InstallPath%\\b.txt", "%InstallPath%\\c.txt",
       "1/2: Das Setup installiert diese Datei nicht"},
      {"%InstallPath%\\b.txt", "%InstallPath%\\c.txt", "0/0: Kein Eintrag verlangt diese Datei"},
      {"Not Add(", "Not Copy(", "1/2: Copy statt Add: %InstallPath%\\b.txt"},
      {", , False", ", , True", "1/1: Registrierung: ja statt nein"},
      {"CancelInstall \"Fehler beim Installieren von Dateien\"\r\n", "",
       "1/1: Abbruch bei Fehler: nein"},
      {"beim Installieren", "mit", "1/1: Die Meldung bei einem Fehler ist eine andere"},
      {"'TO-DO: Register path for this file...\r\n", "", "1/2: Hinweis auf den Pfad: nein"},
      {"Del \"%TempPath%\\2.txt\"\r\n", "", "1/2: Die entpackte Datei wird nicht gelöscht"},
      {"2.txt", "1.exe", "1/2: Der Inhalt weicht ab Byte 0"},
      {"2.txt", "3.txt", "1/2: Das Archiv enthält diese Datei nicht: 3.txt"},
      {"2.txt", "3.txt", "0/0: Keine Anweisung des Skripts verwendet diese Datei: 2.txt"},
      {"End Sub", "Unfug\r\nEnd Sub", "0/0: Die Laufzeit kann diese Zeile nicht lesen"},
  };
  for (const auto& one : cases) {
    folder_.Write("aus/Probe.install", script);
    Edit(one.from, one.to);
    EXPECT_THAT(Findings(), Contains(HasSubstr(one.finding))) << one.to;
  }
}

TEST_F(ProofTest, NamesTheFileWhoseBytesDoNotArrive) {
  std::string archive = Out("Probe.zip");
  archive[archive.find("zwei")] = 'Z';
  folder_.Write("aus/Probe.zip", archive);
  EXPECT_THAT(Findings(), ElementsAre(HasSubstr("1/2: Der Inhalt weicht ab Byte 0")));
  folder_.Write("quelle/b.txt", "Zwei");  // what was written is not what is said to be there
  EXPECT_THAT(Findings(), ElementsAre(AllOf(HasSubstr("1/2: Das Archiv ist beschädigt"),
                                            HasSubstr("2.txt: Prüfsumme"))));
  folder_.Write("quelle/a.exe", std::string(199'999, 'a'));
  EXPECT_THAT(Findings(), Contains(HasSubstr("1/1: Der Inhalt weicht ab Byte 199999")));
  folder_.Write("quelle/a.exe", std::string(200'001, 'a'));
  EXPECT_THAT(Findings(), Contains(HasSubstr("1/1: Der Inhalt weicht ab Byte 200000")));
  tools::SystemDisk().Discard(folder_.Path("quelle/a.exe"));
  EXPECT_THAT(Findings(), Contains(AllOf(HasSubstr("1/1: "), HasSubstr("a.exe"))));
}

TEST_F(ProofTest, NamesFilesThatMeet) {
  product_.AddComponent("Noch einmal", {Source("unter/B.TXT", "anders")});
  options_.packaged = false;
  Run();
  folder_.Write("aus/InstallPath/rest.txt", "");
  EXPECT_THAT(Findings(),
              AllOf(Contains(HasSubstr("2/1: Hier liegt schon die Datei aus Komponente 1 "
                                       "\"Programm\", Eintrag 2")),
                    Contains(HasSubstr("(wird nicht ersetzt, obwohl unverzichtbar)")),
                    Contains(HasSubstr("Keine Anweisung des Skripts verwendet diese Datei"))));
}

}  // namespace console
