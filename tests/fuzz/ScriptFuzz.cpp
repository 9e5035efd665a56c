// Feeds damaged installation scripts to the reader:
//
//   script_fuzz [INPUTS] [SEED]
//
// Each input is a script with lines dropped, doubled, exchanged or damaged. Findings must name a
// line of the input, and a script without one must give a plan that can be carried out. The same
// numbers give the same inputs; a broken rule prints the input and ends with 1.
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "setup/ScriptReader.h"
#include "setup/TargetPath.h"

namespace {

using Random = std::mt19937_64;

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

void DamageLine(std::string& line, Random& random) {
  static constexpr const char* kPieces[] = {"\"", "%",  "\\",  "..", "(",    ")",    ",",
                                            " ",  "\t", "Not", "If", "End ", "\xFF", "ü"};
  const std::size_t at = random() % (line.size() + 1);
  const std::string piece = random() % 4 == 0 ? std::string(1, static_cast<char>(random()))
                                              : kPieces[random() % std::size(kPieces)];
  line.replace(at, random() % 3, piece);
}

std::vector<std::string> Input(Random& random) {
  std::vector<std::string> lines = Script();
  for (std::uint64_t damage = random() % 4; damage > 0; --damage) {
    const std::size_t at = random() % lines.size();
    const std::size_t other = random() % lines.size();
    const std::string copy = lines[other];
    switch (random() % 4) {
      case 0:
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
        break;
      case 1:
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), copy);
        break;
      case 2:
        std::swap(lines[at], lines[other]);
        break;
      default:
        DamageLine(lines[at], random);
    }
  }
  return lines;
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
  const std::uint64_t inputs = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 20'000;
  const std::uint64_t seed = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 1;
  Random random(seed);
  for (std::uint64_t i = 0; i < inputs; ++i) {
    const std::vector<std::string> input = Input(random);
    const std::string rule = BrokenRule(input);
    if (rule.empty()) continue;
    std::cout << "input " << i << " of seed " << seed << " breaks: " << rule << '\n';
    for (const std::string& line : input) std::cout << line << '\n';
    return 1;
  }
  std::cout << inputs << " inputs of seed " << seed << " kept every rule\n";
}
