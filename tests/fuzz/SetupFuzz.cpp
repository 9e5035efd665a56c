// Feeds damaged setups to everything that reads one:
//
//   setup_fuzz [INPUTS] [SEED]
//
// Each input is a setup whose script, archive and files are damaged, with names and targets as an
// attacker would choose them. Every script is read; one in twenty setups is written to the disk,
// proven and installed. Only tools::Error may come of it, nothing may be written outside the folder
// of a test installation, nothing from outside the setup may be installed, and a setup whose proof
// finds nothing must install what it was made from.
#include <filesystem>
#include <map>

#include "setup/Comparison.h"
#include "setup/Proof.h"
#include "setup/ScriptReader.h"
#include "setup/TargetPath.h"
#include "setup/TestInstallation.h"
#include "tests/fuzz/Fuzzer.h"
#include "tests/support/SampleScript.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ZipMaker.h"
#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/files/Files.h"
#include "tools/files/InputFile.h"
#include "tools/files/Path.h"

namespace {

namespace fs = std::filesystem;
using tests::OneOf;
using tests::Random;

const std::string kSecret = "not part of any setup";
const std::string kProgram = std::string(3000, 'p') + "end";
const std::string kText = "a text";
const std::string kLoose = "not packaged";

/// A setup before it is written.
struct Parts {
  std::vector<std::string> script = tools::SplitList(tests::kSampleScript, '\n', '\0');
  std::vector<tests::ZipMember> members{{"1.dll", kProgram, true}, {"2.txt", kText}};
  std::string archive;
  bool linked = false;  ///< the loose file is a link out of the setup

  [[nodiscard]] bool AreWhole() const {
    return !linked && script == Parts().script && archive == tests::MakeZip(Parts().members);
  }
  [[nodiscard]] std::string ScriptText() const {
    std::string text;
    for (const std::string& line : script) text.append(line).append("\r\n");
    return text;
  }
};

/// A name or target of the setup becomes another one everywhere.
void Rename(Parts& parts, Random& random) {
  static const std::vector<std::string> kOld =
      tools::SplitList(R"(1.dll|2.txt|%InstallPath%\a.dll|C:\Texte|x\c|%SrcPath%\InstallPath\c|)"
                       R"(%TempPath%|InstallPath|Probe.zip)",
                       '|', '\0');
  static const std::vector<std::string> kNew = tools::SplitList(
      R"(..|../../out.txt|..\..\out.txt|/out.txt|\out.txt|C:\out.txt|C:\..\..\out.txt|)"
      R"(%InstallPath%\..\..\..\out.txt|%SrcPath%\..\secret.txt|%TempPath%\2.txt|)"
      R"(%SrcPath%\Probe.install|\\server\share\out.txt|InstallPath/../..|out.txt:stream|)"
      R"(nul|2.txt)",
      '|', '\0');
  const std::string& from = OneOf(kOld, random);
  const std::string& to = OneOf(kNew, random);
  for (std::string& line : parts.script) line = tools::ReplaceAll(line, from, to);
  for (tests::ZipMember& member : parts.members) {
    if (member.name == from) member.name = to;
  }
}

/// Drops, doubles, exchanges or damages up to three lines.
void DamageScript(std::vector<std::string>& lines, Random& random) {
  static const std::vector<std::string> kPieces{"\"", "%",  "\\",  "..", "(",    ")",    ",",
                                                " ",  "\t", "Not", "If", "End ", "\xFF", "ü"};
  for (std::uint64_t damage = random() % 4; damage > 0 && !lines.empty(); --damage) {
    const auto at = lines.begin() + static_cast<std::ptrdiff_t>(random() % lines.size());
    std::string& other = lines[random() % lines.size()];
    const std::uint64_t kind = random() % 4;
    if (kind == 0) {
      lines.erase(at);
    } else if (kind == 1) {
      lines.insert(at, other);
    } else if (kind == 2) {
      std::swap(*at, other);
    } else {
      const std::string byte(1, static_cast<char>(random()));
      at->replace(random() % (at->size() + 1), random() % 3,
                  random() % 4 == 0 ? byte : OneOf(kPieces, random));
    }
  }
}

void DamageMember(std::vector<tests::ZipMember>& members, Random& random) {
  tests::ZipMember& member = members[random() % members.size()];
  const auto number = static_cast<std::uint32_t>(random());
  const std::function<void()> damages[] = {
      [&] { member.size = number >> (random() % 32U); },
      [&] { member.checksum = number; },
      [&] { member.flags = static_cast<std::uint16_t>(1U << (number % 16U)); },
      [&] { member.deflated = false, member.method = static_cast<std::uint16_t>(number % 20); },
      [&] { member.content[number % member.content.size()] ^= 1; },
      [&] { members.push_back(member); }};
  damages[random() % std::size(damages)]();
}

void DamageBytes(std::string& bytes, Random& random) {
  if (random() % 4 == 0) bytes.resize(1 + random() % bytes.size());
  for (std::uint64_t damage = random() % 4; damage > 0; --damage) {
    bytes[random() % bytes.size()] = static_cast<char>(random());
  }
}

Parts MakeParts(Random& random) {
  Parts parts;
  if (random() % 2 == 0) Rename(parts, random);
  if (random() % 2 == 0) DamageScript(parts.script, random);
  if (random() % 3 == 0) DamageMember(parts.members, random);
  parts.archive = tests::MakeZip(parts.members);
  if (random() % 4 == 0) DamageBytes(parts.archive, random);
  parts.linked = random() % 8 == 0;
  return parts;
}

/// What an undamaged setup installs.
setup::ExpectedSetup Expected(const tests::TemporaryFolder& folder) {
  setup::ExpectedSetup expected;
  expected.title = "Probe";
  expected.author = "Änne by Müller";
  expected.confirmation = "Probe installieren?";
  expected.cancellation = "Abbruch";
  expected.failure = {"Fehler bei %file%", "Fehler", "Fehler beim Installieren von Dateien"};
  expected.registration = setup::Registration{"probe", "Die Probe", "3"};
  expected.latestYear = 2031;
  expected.entries.resize(3);
  for (setup::ExpectedEntry& entry : expected.entries) {
    entry.componentTitle = "Das \"Programm\"";
    entry.targetFolder = 2001;
  }
  setup::ExpectedEntry& program = expected.entries[0];
  program.overwrites = program.registersItself = program.pathReminder = program.vital = true;
  program.sources = {folder.Write("sources/a.dll", kProgram)};
  setup::ExpectedEntry& text = expected.entries[1];
  text.targetFolder = 2004;
  text.targetSubFolder = "C:\\Texte";
  text.registersItself = true;
  text.sources = {folder.Write("sources/b.txt", kText)};
  setup::ExpectedEntry& loose = expected.entries[2];
  loose.targetSubFolder = "x";
  loose.overwrites = true;
  loose.sources = {folder.Write("sources/c", kLoose)};
  return expected;
}

/// The name of the rule that the script breaks; empty when it keeps them all.
std::string RuleOfScript(const std::vector<std::string>& lines) {
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

/// A folder in which setups are written, installed and looked at.
class Playground {
 public:
  Playground() : expected_(Expected(folder_)) {
    folder_.Write("secret.txt", kSecret);
    fs::current_path(tools::ToPath(folder_.MakeFolder("working folder")));
  }
  ~Playground() { fs::current_path(fs::temp_directory_path()); }
  Playground(const Playground&) = delete;
  Playground& operator=(const Playground&) = delete;

  /// The name of the rule that the setup breaks; empty when it keeps them all.
  std::string BrokenRule(const Parts& parts) {
    tools::RemoveFolderTree(folder_.Path("setup"));
    tools::RemoveFolderTree(folder_.Path("probe"));
    Write(parts);
    const auto before = FilesOutside();
    std::string rule;
    try {
      rule = Read(parts.AreWhole());
    } catch (const tools::Error& error) {
      if (std::string(error.what()).empty()) return "an error has a text";
    }
    if (FilesOutside() != before) return "nothing is written outside the folder";
    return rule.empty() ? RuleOfInstalled() : rule;
  }

 private:
  void Write(const Parts& parts) {
    folder_.Write("setup/Probe.install", parts.ScriptText());
    folder_.Write("setup/Probe.zip", parts.archive);
    const fs::path loose = tools::ToPath(folder_.MakeFolder("setup/InstallPath")) / "c";
    std::error_code impossible;  // links need a right under Windows
    if (parts.linked) fs::create_symlink("../../secret.txt", loose, impossible);
    if (!parts.linked || impossible) folder_.Write("setup/InstallPath/c", kLoose);
  }

  /// Everything that is not a part of the test installation, with its size.
  [[nodiscard]] std::map<fs::path, std::uintmax_t> FilesOutside() const {
    std::map<fs::path, std::uintmax_t> files;
    for (fs::recursive_directory_iterator it(tools::ToPath(folder_.Path())); it != end(it); ++it) {
      if (it.depth() == 0 && it->path().filename() == "probe") {
        it.disable_recursion_pending();
      } else {
        files[it->path()] = it->is_regular_file() ? it->file_size() : 0;
      }
    }
    return files;
  }

  std::string Read(bool whole) {
    setup::Setup setup = setup::OpenSetup(folder_.Path("setup"));
    const bool proven = setup::Prove(setup, expected_, 1, [](auto&) {}).findings.empty();
    if (whole && !proven) return "what is whole is proven";
    const std::string rule = setup.findings.empty() ? Install(setup, proven) : "";
    if (!rule.empty()) return rule;
    const setup::SetupContents contents = setup::TakeContents(setup, [](auto&) {});
    const bool likeItself = setup::CompareSetups(contents, contents).differences.empty();
    return likeItself ? "" : "a setup is like itself";
  }

  std::string Install(const setup::Setup& setup, bool proven) {
    try {
      tools::SystemDisk disk;
      (void)setup::InstallInto(setup, folder_.Path("probe"), disk, {[](auto&) {}, [](auto&) {}});
    } catch (const tools::Error&) {
      return proven ? "what is proven can be installed" : "";
    }
    const bool arrived = !proven || (folder_.Read("probe/InstallPath/a.dll") == kProgram &&
                                     folder_.Read("probe/C/Texte/b.txt") == kText &&
                                     folder_.Read("probe/InstallPath/x/c") == kLoose);
    return arrived ? "" : "what is proven arrives";
  }

  [[nodiscard]] std::string RuleOfInstalled() const {
    std::error_code missing;
    for (const fs::directory_entry& entry :
         fs::recursive_directory_iterator(tools::ToPath(folder_.Path("probe")), missing)) {
      if (entry.is_symlink()) return "no links are made";
      if (entry.is_directory()) continue;
      if (tools::ReadWholeFile(tools::FromPath(entry.path())) == kSecret) {
        return "nothing from outside the setup is installed";
      }
    }
    return {};
  }

  tests::TemporaryFolder folder_;
  setup::ExpectedSetup expected_;
};

}  // namespace

int main(int argc, char** argv) {
  Playground playground;
  return tests::RunFuzzer(argc, argv, [&](Random& random) {
    const Parts parts = MakeParts(random);
    std::string rule = RuleOfScript(parts.script);
    if (rule.empty() && random() % 20 == 0) rule = playground.BrokenRule(parts);
    return tests::FuzzedInput{parts.ScriptText(), rule};
  });
}
