// An installation script, for its reader.
#include "setup/ScriptReader.h"
#include "setup/TargetPath.h"
#include "tests/fuzz/Fuzz.h"

void tests::Fuzz(std::string_view input) {
  const std::vector<std::string> lines = Split(input, '\n');
  setup::ScriptReader reader("s.install");
  for (const std::string& line : lines) reader.Line(line);
  const setup::ScriptReading reading = reader.Finish();
  for (const setup::Finding& finding : reading.findings) {
    Require(finding.line != 0 && finding.line <= lines.size() + 1, "findings name a line");
    Require(!finding.text.empty(), "findings have a text");
  }
  if (!reading.findings.empty()) return;
  for (const setup::PlannedFile& file : reading.plan.files) {
    Require(file.component < reading.plan.components.size(), "files have a component");
    Require(!file.stored.empty(), "files have a source");
    Require(!file.packaged || !reading.plan.archive.empty(), "members have an archive");
    Require(setup::ObjectionTo(setup::SplitTarget(file.target)).empty(), "targets are possible");
  }
}
