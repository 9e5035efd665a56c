// Feeds damaged installation scripts to the reader:
//
//   script_fuzz [INPUTS] [SEED]
//
// Each input is a script with lines dropped, doubled, exchanged or damaged. Findings must name a
// line of the input, and a script without one must give a plan that can be carried out.
#include <string>
#include <vector>

#include "setup/ScriptReader.h"
#include "setup/TargetPath.h"
#include "tests/fuzz/DamagedScript.h"

namespace {

std::vector<std::string> Script() {
  return {"' QUILLON PACKWRIGHT INSTALLATION SCRIPT FOR TESSEL",
          "' Copyright (C) 2031 by A",
          "' Created with Quillon Packwright 1.2.3",
          "",
          "Sub InstallMain()",
          "If Ask(\"Weiter?\") = False Then",
          "\tCancelInstall \"Abbruch\", True",
          "End If",
          "SetAppKey \"k\", \"T\"",
          "RegPrd \"k\", \"T\", 1",
          "SelectInstallFolder PathStr(\"%ProgramFiles%\\T\")",
          "'Install files for \"Ü\"",
          "If Extract(\"%SrcPath%\\T.zip\", \"1.dll\", \"%TempPath%\\1.dll\") Then",
          "If Not ReplSafe(\"%TempPath%\\1.dll\", \"%InstallPath%\\a.dll\", , True) Then",
          "ErrMsg \"Fehler\", \"Fehler\"",
          "CancelInstall \"Fehler\"",
          "Else",
          "'TO-DO: Register path for this file...",
          "End If",
          "Del \"%TempPath%\\1.dll\"",
          "End If",
          "If Not Add(\"%SrcPath%\\InstallPath\\b\", \"C:\\b\") Then",
          "ErrMsg \"Fehler\", \"Fehler\"",
          "Else",
          "SelfReg \"C:\\b\"",
          "End If",
          "End Sub"};
}

/// The name of the rule that this input breaks; empty when it keeps them all.
std::string BrokenRule(const std::vector<std::string>& lines) {
  setup::ScriptReader reader("s.install");
  for (const std::string& line : lines) reader.Line(line);
  const setup::ScriptReading reading = reader.Finish();
  for (const setup::Finding& finding : reading.findings) {
    if (finding.line == 0 || finding.line > lines.size() + 1) return "findings name a line";
    if (finding.text.empty()) return "findings have a text";
  }
  if (!reading.findings.empty()) return {};
  for (const setup::PlannedFile& file : reading.plan.files) {
    if (file.component >= reading.plan.components.size()) return "files have a component";
    if (file.stored.empty()) return "files have a source";
    if (file.packaged && reading.plan.archive.empty()) return "members have an archive";
    if (!setup::ObjectionTo(setup::SplitTarget(file.target)).empty()) return "targets are possible";
  }
  return {};
}

}  // namespace

int main(int argc, char** argv) {
  return tests::RunFuzzer(argc, argv, [](tests::Random& random) {
    std::vector<std::string> lines = Script();
    tests::DamageScript(lines, random);
    return tests::FuzzedInput{tests::ScriptText(lines), BrokenRule(lines)};
  });
}
