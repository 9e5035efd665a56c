// Feeds damaged setups to everything that reads one:
//
//   setup_fuzz [INPUTS] [SEED]
//
// Each input is a setup whose script, archive and files are damaged, with names and targets as an
// attacker would choose them. Only tools::Error may come of it, nothing may be written outside the
// folder of a test installation, nothing from outside the setup may be installed, and a setup whose
// proof finds nothing must install what it was made from.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "setup/Comparison.h"
#include "setup/Proof.h"
#include "setup/TestInstallation.h"
#include "tests/fuzz/DamagedScript.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ZipMaker.h"
#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/files/Path.h"

namespace {

using tests::Random;

const std::string kSecret = "not part of any setup";
const std::string kProgram = std::string(3000, 'p') + "end";
const std::string kText = "a text";
const std::string kLoose = "not packaged";

/// A setup before it is written.
struct Parts {
  std::vector<std::string> script{
      "' QUILLON PACKWRIGHT INSTALLATION SCRIPT FOR TESSEL",
      "' Copyright (C) 2031 by A",
      "' Created with Quillon Packwright 1.2.3",
      "Sub InstallMain()",
      "If Ask(\"Weiter?\") = False Then",
      "CancelInstall \"Abbruch\", True",
      "End If",
      "SelectInstallFolder PathStr(\"%ProgramFiles%\\T\")",
      "'Install files for \"K\"",
      "If Extract(\"%SrcPath%\\T.zip\", \"1.dll\", \"%TempPath%\\1.dll\") Then",
      "If Not ReplSafe(\"%TempPath%\\1.dll\", \"%InstallPath%\\a.dll\", , True) Then",
      "ErrMsg \"Fehler: %InstallPath%\\a.dll\", \"Fehler\"",
      "CancelInstall \"Ende\"",
      "End If",
      "Del \"%TempPath%\\1.dll\"",
      "End If",
      "If Extract(\"%SrcPath%\\T.zip\", \"2.txt\", \"%TempPath%\\2.txt\") Then",
      "If Not Add(\"%TempPath%\\2.txt\", \"C:\\D\\b.txt\") Then",
      "ErrMsg \"Fehler: C:\\D\\b.txt\", \"Fehler\"",
      "End If",
      "Del \"%TempPath%\\2.txt\"",
      "End If",
      "If Not Copy(\"%SrcPath%\\InstallPath\\c\", \"%InstallPath%\\x\\c\") Then",
      "ErrMsg \"Fehler: %InstallPath%\\x\\c\", \"Fehler\"",
      "End If",
      "End Sub"};
  std::vector<tests::ZipMember> members{{"1.dll", kProgram, true}, {"2.txt", kText}};
  std::string archive;
  bool linked = false;  ///< the loose file is a link out of the setup
};

/// A name or target of the setup becomes another one everywhere.
void Rename(Parts& parts, Random& random) {
  static constexpr const char* kOld[] = {"1.dll",      "2.txt",       "%InstallPath%\\a.dll",
                                         "C:\\D",      "x\\c",        "%SrcPath%\\InstallPath\\c",
                                         "%TempPath%", "InstallPath", "T.zip"};
  static constexpr const char* kNew[] = {"..",
                                         "../../out.txt",
                                         "..\\..\\out.txt",
                                         "/out.txt",
                                         "\\out.txt",
                                         "C:\\out.txt",
                                         "%InstallPath%\\..\\..\\..\\out.txt",
                                         "C:\\..\\..\\out.txt",
                                         "%SrcPath%\\..\\secret.txt",
                                         "%TempPath%\\2.txt",
                                         "%SrcPath%\\T.install",
                                         "\\\\server\\share\\out.txt",
                                         "InstallPath/../..",
                                         "out.txt:stream",
                                         "nul",
                                         "2.txt"};
  const std::string from = kOld[random() % std::size(kOld)];
  const std::string to = kNew[random() % std::size(kNew)];
  for (std::string& line : parts.script) line = tools::ReplaceAll(line, from, to);
  for (tests::ZipMember& member : parts.members) {
    if (member.name == from) member.name = to;
  }
}

void DamageMember(Parts& parts, Random& random) {
  tests::ZipMember& member = parts.members[random() % parts.members.size()];
  const auto number = static_cast<std::uint32_t>(random());
  switch (random() % 6) {
    case 0:
      member.size = number >> (random() % 32U);
      break;
    case 1:
      member.checksum = number;
      break;
    case 2:
      member.flags = static_cast<std::uint16_t>(1U << (number % 16U));
      break;
    case 3:
      member.deflated = false;
      member.method = static_cast<std::uint16_t>(number % 20);
      break;
    case 4:
      member.content[number % member.content.size()] ^= 1;
      break;
    default: {
      const tests::ZipMember again = member;
      parts.members.push_back(again);
    }
  }
}

void DamageBytes(std::string& bytes, Random& random) {
  if (random() % 4 == 0) {
    bytes.resize(random() % bytes.size());
    return;
  }
  for (std::uint64_t damage = 1 + random() % 4; damage > 0; --damage) {
    bytes[random() % bytes.size()] = static_cast<char>(random());
  }
}

Parts MakeParts(Random& random) {
  Parts parts;
  if (random() % 2 == 0) Rename(parts, random);
  if (random() % 2 == 0) tests::DamageScript(parts.script, random);
  if (random() % 3 == 0) DamageMember(parts, random);
  parts.archive = tests::MakeZip(parts.members);
  if (random() % 4 == 0) DamageBytes(parts.archive, random);
  parts.linked = random() % 8 == 0;
  return parts;
}

setup::ExpectedSetup Expected(const tests::TemporaryFolder& folder) {
  setup::ExpectedSetup expected;
  expected.title = "T";
  expected.author = "A";
  expected.confirmation = "Weiter?";
  expected.cancellation = "Abbruch";
  expected.failure = {"Fehler: %file%", "Fehler", "Ende"};
  expected.latestYear = 2031;
  setup::ExpectedEntry program{.component = 1,
                               .componentTitle = "K",
                               .entry = 1,
                               .targetFolder = 2001,
                               .targetSubFolder = {},
                               .targetName = {},
                               .overwrites = true,
                               .registersItself = true,
                               .vital = true,
                               .sources = {folder.Write("sources/a.dll", kProgram)}};
  setup::ExpectedEntry text = program;
  text.targetFolder = 2004;
  text.targetSubFolder = "C:\\D";
  text.overwrites = text.registersItself = text.vital = false;
  text.sources = {folder.Write("sources/b.txt", kText)};
  setup::ExpectedEntry loose = text;
  loose.targetFolder = 2001;
  loose.targetSubFolder = "x";
  loose.overwrites = true;
  loose.sources = {folder.Write("sources/c", kLoose)};
  expected.entries = {program, text, loose};
  return expected;
}

/// A folder in which setups are written, installed and looked at.
class Playground {
 public:
  Playground() : expected_(Expected(folder_)) {
    folder_.Write("secret.txt", kSecret);
    std::filesystem::current_path(tools::ToPath(folder_.MakeFolder("working folder")));
  }
  ~Playground() { std::filesystem::current_path(std::filesystem::temp_directory_path()); }
  Playground(const Playground&) = delete;
  Playground& operator=(const Playground&) = delete;

  /// The name of the rule that the setup breaks; empty when it keeps them all.
  std::string BrokenRule(const Parts& parts) {
    std::filesystem::remove_all(tools::ToPath(folder_.Path("setup")));
    std::filesystem::remove_all(tools::ToPath(folder_.Path("probe")));
    Write(parts);
    const auto before = FilesOutside();
    const std::string rule = Read();
    if (FilesOutside() != before) return "nothing is written outside the folder";
    return rule.empty() ? RuleOfInstalled() : rule;
  }

 private:
  void Write(const Parts& parts) {
    folder_.Write("setup/T.install", tests::ScriptText(parts.script));
    folder_.Write("setup/T.zip", parts.archive);
    std::error_code impossible;  // links need a right under Windows
    if (parts.linked) {
      folder_.MakeFolder("setup/InstallPath");
      std::filesystem::create_symlink(
          "../../secret.txt", tools::ToPath(folder_.Path("setup/InstallPath/c")), impossible);
    }
    if (!parts.linked || impossible) folder_.Write("setup/InstallPath/c", kLoose);
  }

  /// Everything that is not a part of the test installation, with its size.
  [[nodiscard]] std::map<std::filesystem::path, std::uintmax_t> FilesOutside() const {
    namespace fs = std::filesystem;
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

  std::string Read() {
    try {
      setup::Setup setup = setup::OpenSetup(folder_.Path("setup"));
      const bool readable = setup.findings.empty();
      const bool proven = setup::Prove(setup, expected_, 1, [](auto&) {}).findings.empty();
      const std::string rule = readable ? Install(setup, proven) : "";
      if (!rule.empty()) return rule;
      const setup::SetupContents contents = setup::TakeContents(setup, [](auto&) {});
      if (!setup::CompareSetups(contents, contents).differences.empty()) {
        return "a setup is like itself";
      }
    } catch (const tools::Error& error) {
      if (std::string(error.what()).empty()) return "an error has a text";
    }
    return {};
  }

  std::string Install(const setup::Setup& setup, bool proven) {
    try {
      tools::SystemDisk disk;
      (void)setup::InstallInto(setup, folder_.Path("probe"), disk, {[](auto&) {}, [](auto&) {}});
    } catch (const tools::Error&) {
      return proven ? "what is proven can be installed" : "";
    }
    if (proven && (folder_.Read("probe/InstallPath/a.dll") != kProgram ||
                   folder_.Read("probe/C/D/b.txt") != kText ||
                   folder_.Read("probe/InstallPath/x/c") != kLoose)) {
      return "what is proven arrives";
    }
    return {};
  }

  [[nodiscard]] std::string RuleOfInstalled() const {
    namespace fs = std::filesystem;
    const fs::path probe = tools::ToPath(folder_.Path("probe"));
    if (!fs::exists(probe)) return {};
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(probe)) {
      if (entry.is_symlink()) return "no links are made";
      if (entry.is_directory()) continue;
      std::ifstream file(entry.path(), std::ios::binary);
      const std::string content{std::istreambuf_iterator<char>(file), {}};
      if (content == kSecret) return "nothing from outside the setup is installed";
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
    return tests::FuzzedInput{tests::ScriptText(parts.script), playground.BrokenRule(parts)};
  });
}
