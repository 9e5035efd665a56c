#include "setup/ScriptReader.h"

#include <algorithm>
#include <utility>

#include "setup/TargetPath.h"
#include "tools/SetupNames.h"
#include "tools/Text.h"
#include "tools/files/Names.h"

namespace setup {

namespace {

constexpr std::string_view kReminder = "TO-DO: Register path for this file...";

constexpr std::string_view kExpectedInMain =
    "If Ask, SetAppKey, RegPrd, SelectInstallFolder, If Extract, If Not Add, If Not ReplSafe, "
    "If Not Copy oder End Sub";
// What the runtime takes in each block, as a finding names it.
constexpr std::string_view kExpected[] = {
    "Sub InstallMain()",
    kExpectedInMain,
    "CancelInstall oder End If",
    "If Not Add, If Not ReplSafe, If Not Copy, Del oder End If",
    "ErrMsg, CancelInstall, Else oder End If",
    "SelfReg oder End If",
    "End If",
};

std::string_view FileNameOf(std::string_view scriptPath) {
  return scriptPath.substr(scriptPath.find_last_of("\\/") + 1);
}

// Windows leaves the dot at the end out, which the name of a file without extension has.
bool IsTemporaryName(const std::string& name) {
  return tools::IsPortableFileName(name.ends_with('.') ? name.substr(0, name.size() - 1) : name);
}

// A path below the folder of the setup without detours, as the system finds it; empty for one that
// leads out.
std::string PathInSetup(std::string_view path) {
  const TargetPath target = SplitTarget(path);
  std::string stored;
  if (target.kind != TargetPath::Kind::Root || target.climbsOut) return stored;
  for (const std::string& part : target.parts) {
    if (!stored.empty()) stored += '\\';
    stored += part;
  }
  return stored;
}

}  // namespace

ScriptReader::ScriptReader(std::string path) : path_(std::move(path)) {}

bool ScriptReader::IsFirstLine(std::string_view line) { return line == tools::kScriptHead; }

void ScriptReader::Report(std::string text) {
  if (reading_.findings.size() == kKeptFindings) {
    ++reading_.furtherFindings;
    return;
  }
  Finding finding{.file = path_, .line = line_, .text = std::move(text)};
  const Plan& plan = reading_.plan;
  if (!plan.components.empty()) finding.componentTitle = plan.components.back();
  reading_.findings.push_back(std::move(finding));
}

void ScriptReader::Misplaced() {
  std::string_view expected = kExpected[static_cast<std::size_t>(blocks_.back())];
  if (HoldsUnpackedFile()) expected = "Del oder End If";
  if (ended_) expected = "das Ende des Skripts";
  Report("Diese Anweisung kann hier nicht stehen; erwartet: " + std::string(expected) + ".");
}

void ScriptReader::Line(std::string_view line) {
  ++line_;
  const ParsedLine parsed = ParseScriptLine(line);
  if (parsed.expected.empty()) {
    if (line_ <= 3) HeadLine(line);
    Accept(parsed.statement);
    return;
  }
  Report("Die Laufzeit kann diese Zeile nicht lesen; erwartet in Spalte " +
         std::to_string(parsed.column) + ": " + parsed.expected + ".");
  unreadableInExtract_ = true;
  if (parsed.opensBlock) blocks_.push_back(Block::Unreadable);
}

void ScriptReader::HeadLine(std::string_view line) {
  constexpr std::string_view kCopyright = "' Copyright (C) ";
  constexpr std::string_view kTool = "' Created with Quillon Packwright ";
  ScriptHead& head = reading_.plan.head;
  if (line_ == 1) {
    if (!IsFirstLine(line)) Report("Erwartet: " + std::string(tools::kScriptHead));
  } else if (line_ == 2) {
    const std::size_t by = line.find(" by ");
    if (!line.starts_with(kCopyright) || by == std::string_view::npos) {
      Report("Erwartet: " + std::string(kCopyright) + "Jahr by Autor");
      return;
    }
    head.year = line.substr(kCopyright.size(), by - kCopyright.size());
    head.author = line.substr(by + 4);
  } else if (line.starts_with(kTool)) {
    head.toolVersion = line.substr(kTool.size());
  } else {
    Report("Erwartet: " + std::string(kTool) + "Version");
  }
}

void ScriptReader::Comment(std::string_view comment) {
  constexpr std::string_view kComponent = "Install files for \"";
  if (blocks_.back() == Block::Installed && comment == kReminder) file_.pathReminder = true;
  if (blocks_.back() != Block::Main || !comment.starts_with(kComponent)) return;
  // A quotation mark in a title does no harm in a comment.
  comment.remove_prefix(kComponent.size());
  reading_.plan.components.emplace_back(comment.substr(0, comment.find_last_of('"')));
}

// One file is installed from each Extract. With more, a long name would be kept for each of them.
bool ScriptReader::HoldsUnpackedFile() const {
  return blocks_.back() == Block::Extract && reading_.plan.files.size() > firstOfExtract_;
}

bool ScriptReader::MayStandHere(Kind kind) const {
  switch (blocks_.back()) {
    case Block::Outside:
      return kind == Kind::Sub && !ended_;
    case Block::Main:
      return kind == Kind::EndSub || kind == Kind::IfAsk || kind == Kind::SetAppKey ||
             kind == Kind::RegPrd || kind == Kind::SelectInstallFolder || kind == Kind::IfExtract ||
             kind == Kind::IfNotInstalled;
    case Block::Ask:
      return kind == Kind::CancelInstall || kind == Kind::EndIf;
    case Block::Extract:
      return (kind == Kind::IfNotInstalled && !HoldsUnpackedFile()) || kind == Kind::Del ||
             kind == Kind::EndIf;
    case Block::Install:
      return kind == Kind::ErrMsg || kind == Kind::CancelInstall || kind == Kind::Else ||
             kind == Kind::EndIf;
    case Block::Installed:
      return kind == Kind::SelfReg || kind == Kind::EndIf;
    case Block::Unreadable:
      return kind != Kind::Sub && kind != Kind::EndSub;
  }
  return false;
}

void ScriptReader::Accept(const Statement& statement) {
  if (statement.kind == Kind::Blank) return;
  if (statement.kind == Kind::Comment) {
    Comment(statement.arguments[0]);
    return;
  }
  const bool opens = statement.kind == Kind::IfAsk || statement.kind == Kind::IfExtract ||
                     statement.kind == Kind::IfNotInstalled;
  if (!MayStandHere(statement.kind)) {
    Misplaced();
    if (opens) blocks_.push_back(Block::Unreadable);
    if (statement.kind == Kind::EndSub && blocks_.size() > 1) {
      blocks_.resize(1);
      ended_ = true;
    }
    return;
  }
  if (blocks_.back() == Block::Unreadable) {
    if (opens) blocks_.push_back(Block::Unreadable);
    if (statement.kind == Kind::EndIf) EndBlock();
    return;
  }
  Perform(statement);
}

void ScriptReader::Perform(const Statement& statement) {
  switch (statement.kind) {
    case Kind::Sub:
      blocks_.push_back(Block::Main);
      break;
    case Kind::EndSub:
      blocks_.pop_back();
      ended_ = true;
      break;
    case Kind::IfAsk:
      BeginAsk(statement);
      break;
    case Kind::IfExtract:
      BeginExtract(statement);
      break;
    case Kind::IfNotInstalled:
      BeginInstall(statement);
      break;
    case Kind::Else:
      blocks_.back() = Block::Installed;
      break;
    case Kind::EndIf:
      EndBlock();
      break;
    case Kind::CancelInstall:
      Cancel(statement.arguments[0]);
      break;
    case Kind::ErrMsg:
      failure_.message = tools::ReplaceAll(statement.arguments[0], file_.target, "%file%");
      failure_.caption = statement.arguments[1];
      break;
    case Kind::SetAppKey:
    case Kind::RegPrd:
      Register(statement);
      break;
    case Kind::SelectInstallFolder:
      ProposeFolder(statement.arguments[0]);
      break;
    case Kind::SelfReg:
      SelfRegister(statement.arguments[0]);
      break;
    case Kind::Del:
      DeleteTemporary(statement.arguments[0]);
      break;
    case Kind::Blank:
    case Kind::Comment:
      break;
  }
}

void ScriptReader::BeginAsk(const Statement& statement) {
  std::string& confirmation = reading_.plan.confirmation;
  if (!confirmation.empty()) Report("Die Rückfrage steht zum zweiten Mal da.");
  confirmation = statement.arguments[0];
  blocks_.push_back(Block::Ask);
}

void ScriptReader::BeginExtract(const Statement& statement) {
  blocks_.push_back(Block::Extract);
  firstOfExtract_ = reading_.plan.files.size();
  unreadableInExtract_ = false;
  const std::string_view archive = BelowFolder(statement.arguments[0], kSetupFolder);
  member_ = statement.arguments[1];
  extractedTo_ = statement.arguments[2];
  std::string& known = reading_.plan.archive;
  if (archive.empty() || FileNameOf(archive) != archive) {
    Report("Erwartet: ein Archiv im Ordner %SrcPath%.");
  } else if (known.empty()) {
    known = archive;
  } else if (known != archive) {
    Report("Erwartet: das Archiv %SrcPath%\\" + known + ".");
  }
  const std::string name(FileNameOf(member_));
  if (extractedTo_ != "%TempPath%\\" + name || !IsTemporaryName(name)) {
    Report("Erwartet: das Entpacken nach %TempPath%\\ unter dem Namen im Archiv.");
  }
}

void ScriptReader::BeginInstall(const Statement& statement) {
  file_ = {};
  failure_ = {};
  file_.line = line_;
  std::vector<std::string>& components = reading_.plan.components;
  if (components.empty()) {
    Report("Erwartet: 'Install files for \"Komponente\" vor der ersten Datei.");
    components.emplace_back();
  }
  file_.component = static_cast<std::uint32_t>(components.size() - 1);
  if (statement.function == "ReplSafe") file_.rule = CopyRule::ReplaceSafely;
  if (statement.function == "Copy") file_.rule = CopyRule::Copy;
  file_.registersItself = statement.flag;
  file_.target = statement.arguments[1];
  TakeSource(statement.arguments[0]);
  const std::string objection = ObjectionTo(SplitTarget(file_.target));
  if (!objection.empty()) Report(objection);
  blocks_.push_back(Block::Install);
}

void ScriptReader::TakeSource(std::string_view source) {
  file_.packaged = blocks_.back() == Block::Extract;
  if (file_.packaged) {
    if (source != extractedTo_) Report("Erwartet: die entpackte Datei " + extractedTo_ + ".");
    file_.stored = member_;
    return;
  }
  file_.stored = PathInSetup(BelowFolder(source, kSetupFolder));
  if (file_.stored.empty()) Report("Erwartet: eine Datei unter %SrcPath%.");
}

void ScriptReader::EndBlock() {
  const Block block = blocks_.back();
  blocks_.pop_back();
  std::vector<PlannedFile>& files = reading_.plan.files;
  if (block == Block::Install || block == Block::Installed) {
    EndFile();
  } else if (block == Block::Extract && files.size() == firstOfExtract_ && !unreadableInExtract_) {
    Report("Die entpackte Datei " + member_ + " wird nicht installiert.");
  }
}

void ScriptReader::EndFile() {
  // Most files share a few texts: comparing with the last ones is enough.
  constexpr std::size_t kLookedAt = 8;
  std::vector<FailureText>& known = reading_.plan.failures;
  const auto end =
      known.rend() - static_cast<std::ptrdiff_t>(known.size() - std::min(kLookedAt, known.size()));
  auto found = std::find(known.rbegin(), end, failure_);
  if (found == end) {
    known.push_back(failure_);
    found = known.rbegin();
  }
  file_.failure = static_cast<std::uint32_t>(known.rend() - found - 1);
  reading_.plan.files.push_back(std::move(file_));
}

void ScriptReader::Cancel(std::string_view reason) {
  if (blocks_.back() == Block::Ask) {
    reading_.plan.cancellation = reason;
  } else {
    file_.vital = true;
    failure_.cancellation = reason;
  }
}

void ScriptReader::Register(const Statement& statement) {
  std::optional<Registration>& registration = reading_.plan.registration;
  const std::string_view key = statement.arguments[0];
  const std::string_view title = statement.arguments[1];
  const bool first = statement.kind == Kind::SetAppKey;
  if (first ? registration.has_value() : !registration || !registration->type.empty()) {
    Report("Erwartet: einmal SetAppKey, dann einmal RegPrd.");
  } else if (!first && (registration->key != key || registration->title != title)) {
    Report("Erwartet: Schlüssel und Bezeichnung wie bei SetAppKey.");
  }
  registration = {std::string(key), std::string(title), std::string(statement.arguments[2])};
}

void ScriptReader::ProposeFolder(std::string_view path) {
  std::string& proposal = reading_.plan.folderProposal;
  if (!proposal.empty()) Report("Der Installationsordner wird zum zweiten Mal gewählt.");
  proposal = path;
  const std::string objection = ObjectionTo(SplitTarget(path));
  if (!objection.empty()) Report(objection);
}

void ScriptReader::SelfRegister(std::string_view path) {
  if (path != file_.target) Report("Erwartet: die installierte Datei " + file_.target + ".");
  file_.registersItself = true;
}

void ScriptReader::DeleteTemporary(std::string_view path) {
  if (path != extractedTo_) Report("Erwartet: die entpackte Datei " + extractedTo_ + ".");
  if (HoldsUnpackedFile()) reading_.plan.files.back().deletesTemporary = true;
}

ScriptReading ScriptReader::Finish() {
  ++line_;
  if (!ended_) {
    Report("Das Skript endet zu früh; erwartet: " +
           std::string(blocks_.size() == 1 ? "Sub InstallMain()" : "End Sub") + ".");
  }
  return std::move(reading_);
}

}  // namespace setup
