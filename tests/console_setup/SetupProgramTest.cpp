#include "console/setup/SetupProgram.h"
#include "tests/support/CallFixture.h"

namespace console {

class SetupProgramTest : public tests::CallFixture {
 protected:
  SetupProgramTest() {
    options_.packaged = true;
    product_.AddComponent(
        "Über",
        {Source("a.exe", std::string(1500, 'a'),
                "Overwrite=1\nSelfRegisterDLL=1\nTargetName=ä.exe\n"),
         Source("b.txt", "bb", "Overwrite=1\nVital=0\nTargetSubFolder=x\n"), Source("c", "")});
  }

  ExitCode Call(const std::vector<std::string>& arguments, bool isTerminal = false) {
    return CallFixture::Call(RunSetupProgram, arguments, isTerminal);
  }
};

TEST_F(SetupProgramTest, ListsWhatASetupWouldInstallForPeople) {
  Run();
  EXPECT_EQ(Call({"list", "aus"}, true), ExitCode::Built) << errors_;
  EXPECT_THAT(output_, HasSubstr("Tessel-Datenbank     keine\n"
                                 "Installationsordner  %ProgramFiles%\\Probe\n"
                                 "Archiv               Probe.zip\n"
                                 "Dateien              3, 1,5 kB\n\n"));
  EXPECT_THAT(
      output_,
      HasSubstr(
          "\nKomponente \"Über\"\n"
          "  Ziel                     Größe  Vorhandene Datei  Registrierung  Bei Fehler  Abgelegt "
          "als\n"
          "  %InstallPath%\\ä.exe     1,5 kB  ersetzt (sicher)  ja             Abbruch     1.exe\n"
          "  %InstallPath%\\x\\b.txt  2 Bytes  ersetzt           nein           weiter      2.txt\n"
          "  %InstallPath%\\c        0 Bytes  bleibt            nein           Abbruch     3.\n"));
}

TEST_F(SetupProgramTest, ListsTheSameForPrograms) {
  const std::string rows =
      "Über\t%InstallPath%\\ä.exe\t1500\tersetzt (sicher)\tja\tAbbruch\t1.exe\n"
      "Über\t%InstallPath%\\x\\b.txt\t2\tersetzt\tnein\tweiter\t2.txt\n"
      "Über\t%InstallPath%\\c\t0\tbleibt\tnein\tAbbruch\t3.\n";
  Run();
  EXPECT_EQ(Call({"list", "--quiet", "aus/Probe.install"}), ExitCode::Built) << errors_;
  EXPECT_EQ(output_, rows);
  EXPECT_EQ(Call({"list", "--json", "aus"}), ExitCode::Built);
  EXPECT_THAT(output_,
              HasSubstr("\"target\":\"%InstallPath%\\\\x\\\\b.txt\",\"size\":2,\"rule\":\"copy\""));
}

TEST_F(SetupProgramTest, InstallsIntoAnEmptyFolder) {
  product_.AddComponent("Fest",
                        {Source("d.txt", "d", "TargetFolder=2004\nTargetSubFolder=C:\\D\n")});
  Run();
  EXPECT_EQ(Call({"unpack", "aus", "--into", "probe"}), ExitCode::Built) << errors_;
  EXPECT_THAT(output_, HasSubstr("C:\\D\\d.txt -> C/D/d.txt\nZur Probe installiert: "));
  EXPECT_EQ(folder_.Read("probe/InstallPath/x/b.txt"), "bb");
  EXPECT_EQ(folder_.Read("probe/C/D/d.txt"), "d");
  EXPECT_EQ(Call({"unpack", "aus", "--into", "probe"}), ExitCode::Stopped);
  EXPECT_THAT(errors_, HasSubstr("nicht leer"));
  folder_.Write("aus/Probe.install", tools::ReplaceAll(Out("Probe.install"), "End Sub", ""));
  EXPECT_EQ(Call({"unpack", "aus", "--into", "neu"}), ExitCode::BuiltWithErrors);
  EXPECT_FALSE(folder_.Holds("neu"));
}

TEST_F(SetupProgramTest, ProvesASetup) {
  Run();
  const std::vector<std::string> call{"prove",     "aus",  "--product", "Produkt/Probe.product",
                                      "--version", "1.0.0"};
  folder_.Write("aus/Probe.install", tools::ReplaceAll(Out("Probe.install"), "2031", "2020"));
  EXPECT_EQ(Call(call), ExitCode::Built) << errors_;
  EXPECT_EQ(output_,
            "Bewiesen: 3 Dateien, 1,5 kB kommen ganz und unverändert an, und sonst nichts.\n");
  sourceDate_ = "1000000001";  // in 2001
  EXPECT_EQ(Call(call), ExitCode::BuiltWithErrors);
  EXPECT_THAT(errors_, HasSubstr("Jahr: \"2020\""));
  sourceDate_ = "gestern";
  EXPECT_EQ(Call(call), ExitCode::BadCall);
  sourceDate_.clear();
  folder_.Write("quelle/b.txt", "bc");
  EXPECT_EQ(Call(call), ExitCode::BuiltWithErrors);
  EXPECT_THAT(errors_, HasSubstr("[Komponente 1 \"Über\", Eintrag 2]\n1 Beanstandung.\n"));
}

TEST_F(SetupProgramTest, SaysWhatANewSetupDoesOtherwise) {
  product_.AddComponent("Zwei", {Source("alt.txt", "alt"), Source("wandert.txt", "wandert")});
  options_.folder = folder_.Path("alt");
  Run();
  options_.folder = folder_.Path("baum");
  options_.packaged = false;
  Run();
  EXPECT_EQ(Call({"compare", "alt", "baum"}), ExitCode::Built) << errors_;
  EXPECT_EQ(output_, "Kein Unterschied.\nDateien: 5 -> 5, 1,5 kB -> 1,5 kB\n");

  project_.WriteVersionSetting(1, "Components", "Count", "1");
  project_.WriteVersionSetting(1, "Tessel", "Key", "k");
  product_.AddComponent(
      "Zwei",
      {Source("b2.txt", "anders", "TargetSubFolder=X\nTargetName=B.txt\n"),
       Source("neu.txt", "neu"), Source("wandert.txt", "wandert", "TargetName=hierher.txt\n")});
  options_.folder = folder_.Path("neu");
  Run();
  EXPECT_EQ(Call({"compare", "alt", "neu", "--quiet"}), ExitCode::BuiltWithErrors);
  EXPECT_THAT(tools::SplitList(output_, '\n', '\0'),
              ElementsAre("Tessel-Schlüssel:  -> k", "Tessel-Bezeichnung:  -> Probe",
                          "Tessel-Programmtyp:  -> 1",
                          "umbenannt: %InstallPath%\\wandert.txt -> %InstallPath%\\hierher.txt",
                          "entfernt: %InstallPath%\\alt.txt", "neu: %InstallPath%\\neu.txt",
                          "neu: %InstallPath%\\X\\B.txt", ""));
  folder_.Write("neu/InstallPath/c", "c");
  folder_.Write("neu/Probe.install",
                tools::ReplaceAll(folder_.Read("neu/Probe.install"), "Not Copy(", "Not Add("));
  EXPECT_EQ(Call({"compare", "neu", "alt", "--json"}), ExitCode::BuiltWithErrors);
  EXPECT_THAT(
      output_,
      AllOf(HasSubstr("\"what\":\"Inhalt\",\"oldValue\":\"1 Bytes\",\"newValue\":\"0 Bytes\""),
            HasSubstr(
                "\"what\":\"Vorhandene Datei\",\"oldValue\":\"bleibt\",\"newValue\":\"ersetzt\"")));
}

TEST_F(SetupProgramTest, NoNameSteersTheTerminal) {
  if (tools::kPathSeparator == '\\') GTEST_SKIP() << "Windows has no such names";
  Run();
  folder_.Write("\x1B[2J/x", "");
  for (const std::vector<std::string>& call : {std::vector<std::string>{"list", "\x1B[2J"},
                                               {"unpack", "aus", "--into", "\x1B[2J"},
                                               {"unpack", "aus", "--into", "\x1B[2Jneu"}}) {
    (void)Call(call);
    EXPECT_THAT(output_ + errors_, AllOf(HasSubstr("[2J"), Not(HasSubstr("\x1B"))));
  }
}

TEST_F(SetupProgramTest, TellsFindingsWithTheirPlace) {
  Run();
  std::string script = Out("Probe.install");
  script = tools::ReplaceAll(script, "\"2.txt\"", "\"4.txt\"");
  script = tools::ReplaceAll(script, "%TempPath%\\2.txt", "%TempPath%\\4.txt");
  folder_.Write("aus/Probe.install", tools::ReplaceAll(script, "End Sub", "Unfug\r\nEnd Sub"));
  EXPECT_EQ(Call({"list", "aus"}), ExitCode::BuiltWithErrors);
  const std::string path = folder_.Path("aus/Probe.install");
  EXPECT_THAT(
      tools::SplitList(errors_, '\n', '\0'),
      ElementsAre("Fehler: " + path +
                      ", Zeile 39: Die Laufzeit kann diese Zeile nicht lesen; "
                      "erwartet in Spalte 1: eine bekannte Anweisung. [Komponente \"Über\"]",
                  "Fehler: " + path +
                      ", Zeile 24: Das Setup enthält diese Datei nicht: 4.txt "
                      "[Komponente \"Über\"]",
                  "2 Beanstandungen.", ""));
}

TEST_F(SetupProgramTest, RefusesCallsThatItCannotCarryOut) {
  Run();
  const struct {
    std::vector<std::string> arguments;
    std::string text;
  } cases[] = {
      {{}, "Der Befehl fehlt."},
      {{"list"}, "Ein Argument fehlt: SETUP"},
      {{"list", "aus", "--bunt"}, "Unbekanntes Argument: --bunt"},
      {{"zeige", "aus"}, "Unbekanntes Argument:"},
      {{"prove", "aus", "--product", "nichts.product", "--version", "1.0.0"},
       "Die Produktdatei wurde nicht gefunden"},
      {{"list", "nirgends"}, "Das Setup wurde nicht gefunden: "},
  };
  for (const auto& one : cases) {
    EXPECT_EQ(Call(one.arguments), ExitCode::BadCall) << one.text;
    EXPECT_THAT(errors_, HasSubstr("packwright-setup: " + one.text));
  }
  EXPECT_EQ(Call({"--version"}), ExitCode::Built);
  EXPECT_THAT(output_, HasSubstr("packwright-setup "));
}

}  // namespace console
