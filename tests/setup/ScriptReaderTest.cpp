#include "setup/ScriptReader.h"
#include "tests/support/SampleScript.h"
#include "tests/support/Testing.h"

namespace setup {

namespace {

ScriptReading Read(std::string_view script) {
  ScriptReader reader("s.install");
  for (const std::string& line : tools::SplitList(script, '\n', '\0')) reader.Line(line);
  return reader.Finish();
}

std::string Changed(std::string_view from, std::string_view to) {
  EXPECT_NE(tests::kSampleScript.find(from), std::string_view::npos) << from;
  return tools::ReplaceAll(tests::kSampleScript, from, to);
}

std::vector<std::string> Texts(const ScriptReading& reading) {
  std::vector<std::string> texts;
  for (const Finding& finding : reading.findings) {
    texts.push_back(std::to_string(finding.line) + ": " + finding.text);
  }
  return texts;
}

}  // namespace

TEST(ScriptReader, ReadsAScriptIntoAPlan) {
  const ScriptReading reading = Read(tests::kSampleScript);
  EXPECT_THAT(Texts(reading), IsEmpty());
  const Plan& plan = reading.plan;
  EXPECT_EQ(plan.head.year + "|" + plan.head.author + "|" + plan.head.toolVersion,
            "2031|Änne by Müller|1.2.3");
  EXPECT_EQ(plan.confirmation, "Probe installieren?");
  EXPECT_EQ(plan.registration, (Registration{"probe", "Die Probe", "3"}));
  EXPECT_EQ(plan.folderProposal, "%ProgramFiles%\\Probe");
  EXPECT_EQ(plan.archive, "Probe.zip");
  EXPECT_THAT(plan.components, ElementsAre("Das \"Programm\""));
  // Each with a letter for each thing that is done with it.
  std::vector<std::string> files;
  for (const PlannedFile& file : plan.files) {
    files.push_back(file.stored + ">" + file.target + (file.packaged ? " p" : " ") +
                    (file.deletesTemporary ? "d" : "") + (file.vital ? "v" : "") +
                    (file.registersItself ? "r" : "") + (file.pathReminder ? "h" : "") +
                    (file.rule == CopyRule::Add    ? "A"
                     : file.rule == CopyRule::Copy ? "C"
                                                   : "S") +
                    std::to_string(file.line));
  }
  EXPECT_THAT(files,
              ElementsAre("1.dll>%InstallPath%\\a.dll pdvrhS18", "2.txt>C:\\Texte\\b.txt pdrA27",
                          "InstallPath\\c>%InstallPath%\\x\\c C35"));
}

TEST(ScriptReader, NamesWhatTheRuntimeExpects) {
  const struct {
    std::string_view from, to, finding;
  } cases[] = {
      // A quotation mark in a value ends it.
      {"\"Probe installieren?\"", "\"\"Probe\" installieren?\"",
       "7: Die Laufzeit kann diese Zeile nicht lesen; erwartet in Spalte 10: \")\"."},
      {"\"probe\", \"Die Probe\", 3", "\"probe\", \"Die Probe\", drei", "eine Zahl"},
      {"If Not Add", "If Add", "erwartet in Spalte 4: Ask, Extract oder Not"},
      {", , True)", ", True)", "erwartet in Spalte 60: \",\""},
      {", , True)", ", , Wahr)", "True oder False"},
      {") = False Then", ") Then", "erwartet in Spalte 31: \"=\""},
      {"Sub InstallMain()", "Sub Main()", "InstallMain"},
      {"RegPrd", "Reg", "eine bekannte Anweisung"},
      {"Del \"%TempPath%\\1.dll\"", "Del \"%TempPath%\\1.dll\" jetzt", "das Ende der Zeile"},
      {"SelfReg \"C:\\Texte\\b.txt\"", "SelfReg \"C:\\Texte\\b.txt", "schließendes"},
      {"Fehler bei", "Fehler\x01", "ein druckbares Zeichen"},
      {"Fehler bei", "Fehler\xFF", "Text in UTF-8"},
      {"End Sub", "End If\nEnd Sub",
       "39: Diese Anweisung kann hier nicht stehen; erwartet: If Ask"},
      {"End Sub", "End Sub\nDel \"x\"", "das Ende des Skripts"},
      {"Del \"%TempPath%\\1.dll\"",
       "If Not Add(\"%TempPath%\\1.dll\", \"C:\\x\") Then\nEnd If\nDel \"%TempPath%\\1.dll\"",
       "erwartet: Del oder End If"},
      {"\nEnd Sub", "", "Das Skript endet zu früh; erwartet: End Sub"},
      {"Else\n'Self", "'Self", "erwartet: ErrMsg, CancelInstall, Else oder End If"},
      {"Del \"%TempPath%\\1.dll\"", "Del \"%TempPath%\\2.dll\"",
       "die entpackte Datei %TempPath%\\1.dll"},
      {"SelfReg \"C:", "SelfReg \"D:", "die installierte Datei C:\\Texte\\b.txt"},
      {"ReplSafe(\"%TempPath%\\1.dll", "ReplSafe(\"%TempPath%\\2.dll", "die entpackte Datei"},
      {"\"%TempPath%\\2.txt\") Then", "\"%TempPath%\\..\\2.txt\") Then", "das Entpacken nach"},
      {"Probe.zip\", \"2.txt", "Probe2.zip\", \"2.txt", "das Archiv %SrcPath%\\Probe.zip"},
      {"%SrcPath%\\Probe.zip", "%SrcPath%\\..\\Probe.zip", "ein Archiv im Ordner %SrcPath%"},
      {"C:\\Texte\\b", "%Texte%\\b", "Der Zielordner %Texte% ist unbekannt."},
      {"Texte\\b.txt", "nul\\b.txt", "Windows erlaubt diesen Namen nicht: \"nul\"."},
      {"RegPrd \"probe\"", "RegPrd \"andere\"", "wie bei SetAppKey"},
      {"SetAppKey \"probe\", \"Die Probe\"", "", "einmal SetAppKey"},
      {"Copyright", "Copyleft", "2: Erwartet: ' Copyright (C) Jahr by Autor"},
      {"'Install files", "'Files", "vor der ersten Datei"},
  };
  for (const auto& one : cases) {
    const std::vector<std::string> found = Texts(Read(Changed(one.from, one.to)));
    EXPECT_THAT(found, Contains(HasSubstr(one.finding))) << one.to;
  }
}

TEST(ScriptReader, TakesSourcesFromTheSetupOnly) {
  const std::pair<const char*, const char*> rows[] = {
      {"%SrcPath%\\\\x.txt", "x.txt"}, {"%SrcPath%\\a\\..\\.\\x.txt", "x.txt"},
      {"%SrcPath%\\..\\x.txt", ""},    {"C:\\x.txt", ""},
      {"%SrcPath%\\C:\\x", ""},        {"%SrcPath%", ""},
      {"%SrcPath%\\a\\..\\..\\x", ""}, {"%TempPath%\\x.txt", ""}};
  for (const auto& [source, stored] : rows) {
    const ScriptReading reading = Read(
        Changed("'Install files", "'Install files for \"A\"\nIf Not Copy(\"" + std::string(source) +
                                      "\", \"C:\\x.txt\") Then\nEnd If\n'Install files"));
    EXPECT_EQ(reading.plan.files.at(0).stored, stored) << source;
    EXPECT_EQ(reading.findings.empty(), *stored != '\0') << source;
  }
}

TEST(ScriptReader, CountsFindingsThatItDoesNotKeep) {
  ScriptReader reader("s.install");
  reader.Line("' QUILLON PACKWRIGHT INSTALLATION SCRIPT FOR TESSEL");
  for (std::size_t i = 0; i < kKeptFindings + 10; ++i) reader.Line("Unfug");
  const ScriptReading reading = reader.Finish();
  EXPECT_EQ(reading.findings.size(), kKeptFindings);
  EXPECT_EQ(reading.furtherFindings, 11U);  // with the missing end
}

TEST(ScriptFile, NamesAFileThatIsNoScript) {
  const TemporaryFolder folder;
  const std::string script(tests::kSampleScript);
  const struct {
    std::string content, error;
  } cases[] = {
      {"", "Das ist kein Installationsskript von Packwright: "},
      {"; another tool's script\n", "Das ist kein Installationsskript von Packwright: "},
      {"\xEF\xBB\xBF" + script, "Das ist kein Installationsskript von Packwright: "},
      {script + "'" + std::string(kLongestScriptLine, 'x'), "Eine Zeile des Skripts ist zu lang: "},
  };
  for (const auto& one : cases) {
    const std::string path = folder.Write("falsch", one.content);
    EXPECT_EQ(ErrorOf([&] { (void)ReadScript(path); }), one.error + path);
  }
}

}  // namespace setup
