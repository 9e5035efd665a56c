#include "engine/InstallScript.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "model/FolderTable.h"
#include "model/TextTable.h"
#include "tools/SetupNames.h"
#include "tools/StandardTexts.h"
#include "tools/Text.h"
#include "tools/files/Names.h"
#include "tools/files/Path.h"

namespace engine {

namespace {

std::string Quoted(std::string_view text) {
  std::string quoted("\"");
  quoted.append(text).append("\"");
  return quoted;
}

bool IsReplacedSafely(std::string_view scriptPath) {
  const std::string extension = tools::LowerCase(ScriptExtension(scriptPath));
  return extension == "ocx" || extension == "dll" || extension == "exe";
}

// The call that puts the file at its target; it is true where that succeeds. These are its name and
// what follows source and target.
std::pair<std::string_view, std::string_view> CopyCall(const model::ICFile& entry,
                                                       std::string_view source) {
  if (entry.Overwrite == 0) return {"Add", ""};
  if (!IsReplacedSafely(source)) return {"Copy", ""};
  return {"ReplSafe", entry.SelfRegisterDLL == 1 ? ", , True" : ", , False"};
}

bool RegistersItself(const model::ICFile& entry, std::string_view source) {
  return entry.SelfRegisterDLL == 1 && (entry.Overwrite == 0 || !IsReplacedSafely(source));
}

}  // namespace

std::string ScriptTarget(const model::ICFile& entry, std::string_view sourcePath) {
  std::string target;
  if (entry.TargetFolder == model::kCustomFolder) {
    target = entry.TargetSubFolder;
  } else {
    target = model::FolderMacro(entry.TargetFolder);
    if (!entry.TargetSubFolder.empty()) target.append("\\").append(entry.TargetSubFolder);
  }
  target += '\\';
  return target + (entry.TargetName.empty() ? tools::FileNamePart(sourcePath) : entry.TargetName);
}

InstallScript::InstallScript(Sink sink, ScriptHead head)
    : sink_(std::move(sink)),
      head_(std::move(head)),
      notInstalled_(model::LoadText(model::Text::ScriptFileNotInstalled)),
      errorCaption_(tools::StandardText(tools::kTextError)),
      failed_(model::LoadText(model::Text::ScriptInstallationFailed)) {}

void InstallScript::Begin() {
  WriteScriptLine(tools::kScriptHead);
  WriteScriptLine("' Copyright (C) " + std::to_string(head_.year) + " by " + head_.author);
  WriteScriptLine("' Created with Quillon Packwright " + tools::FormatVersion(head_.toolVersion));
  WriteScriptLine("");
  WriteScriptLine("Sub InstallMain()");
  WriteScriptLine("'Display a message allowing the user to cancel installation");
  const std::string ask = tools::ReplaceAll(model::LoadText(model::Text::ScriptConfirmation),
                                            "%title%", head_.productTitle);
  WriteScriptLine("If Ask(" + Quoted(ask) + ") = False Then");
  WriteScriptLine("\tCancelInstall " + Quoted(model::LoadText(model::Text::ScriptCancelledByUser)) +
                  ", True");
  WriteScriptLine("End If");
  WriteScriptLine("");
  if (!head_.catalogueKey.empty()) WriteRegistration();
  WriteScriptLine("'Allow the user to select installation folder");
  const std::string folder = tools::CleanFolderName(head_.productTitle, "X", 0, "_");
  WriteScriptLine("SelectInstallFolder PathStr(" + Quoted("%ProgramFiles%\\" + folder) + ")");
  WriteScriptLine("");
}

void InstallScript::WriteRegistration() {
  const std::string arguments = Quoted(head_.catalogueKey) + ", " + Quoted(head_.catalogueTitle);
  WriteScriptLine("'Register the program with Tessel if it's not already known");
  WriteScriptLine("SetAppKey " + arguments);
  WriteScriptLine("RegPrd " + arguments + ", " + head_.catalogueType);
  WriteScriptLine("");
}

void InstallScript::BeginComponent(std::string_view title) {
  WriteScriptLine("'Install files for " + Quoted(title));
}

void InstallScript::AddFile(const model::ICFile& entry, std::string_view sourcePath,
                            std::string_view storedName) {
  std::string source(head_.packaged ? "%TempPath%\\" : "%SrcPath%\\");
  source.append(storedName);
  const std::string target = ScriptTarget(entry, sourcePath);
  if (head_.packaged) {
    WriteScriptLine({"If Extract(\"%SrcPath%\\", head_.productTitle, ".zip\", \"", storedName,
                     "\", \"%TempPath%\\", ScriptFileName(storedName), "\") Then"});
  }
  const auto [call, arguments] = CopyCall(entry, source);
  WriteScriptLine({"If Not ", call, "(\"", source, "\", \"", target, "\"", arguments, ") Then"});
  WriteFailure(entry, target);
  WriteScriptLine("Else");
  if (entry.RegisterPath == 1) WriteScriptLine("'TO-DO: Register path for this file...");
  if (RegistersItself(entry, source)) {
    WriteScriptLine("'Self-register this file");
    WriteScriptLine({"SelfReg \"", target, "\""});
  }
  WriteScriptLine("End If");
  if (head_.packaged) {
    WriteScriptLine({"Del \"", source, "\""});
    WriteScriptLine("End If");
  }
}

void InstallScript::WriteFailure(const model::ICFile& entry, const std::string& target) {
  const std::string text = tools::ReplaceAll(notInstalled_, "%file%", target);
  WriteScriptLine({"ErrMsg \"", text, "\", \"", errorCaption_, "\""});
  if (entry.Vital != 0) WriteScriptLine({"CancelInstall \"", failed_, "\""});
}

void InstallScript::EndComponent() { WriteScriptLine(""); }

void InstallScript::End() {
  WriteScriptLine("End Sub");
  WriteScriptLine("");
  WriteScriptLine("'--- End of installation script ---");
}

void InstallScript::WriteScriptLine(std::initializer_list<std::string_view> parts) {
  for (const std::string_view part : parts) sink_(part);
  sink_("\r\n");
}

namespace {

// A settings value holds no line break, so none can blur where the ID ends.
std::string KeyOf(std::string_view id, std::string_view sourcePath) {
  std::string key;
  key.reserve(id.size() + 1 + sourcePath.size());
  key.append(id).append("\n").append(sourcePath);
  return key;
}

}  // namespace

StoredNameMap::StoredNameMap(const Survey& survey) {
  std::vector<std::string_view> ids;
  for (const SurveyedComponent& component : survey.components) {
    for (const SurveyedEntry& entry : component.entries) ids.push_back(entry.ID());
  }
  std::sort(ids.begin(), ids.end());
  for (auto id = ids.begin(); (id = std::adjacent_find(id, ids.end())) != ids.end(); ++id) {
    sharedIds_.insert(*id);
  }
}

bool StoredNameMap::Record(std::string_view id, std::string_view sourcePath,
                           std::string_view storedName) {
  const bool isShared = sharedIds_.contains(id);
  Append(isShared ? std::string_view{} : storedName);
  return !isShared || sharedNames_.try_emplace(KeyOf(id, sourcePath), storedName).second;
}

void StoredNameMap::Append(std::string_view name) {
  constexpr std::size_t kPartBytes = std::size_t{16} << 10U;
  if (parts_.empty() || parts_.back().capacity() - parts_.back().size() < name.size() + 1) {
    parts_.emplace_back().reserve(std::max(kPartBytes, name.size() + 1));
  }
  parts_.back().append(name).push_back('\0');
}

std::string_view StoredNameMap::Reader::Next(std::string_view id, std::string_view sourcePath) {
  if (offset_ == names_.parts_.at(part_).size()) {
    ++part_;
    offset_ = 0;
  }
  const std::string_view name(names_.parts_.at(part_).c_str() + offset_);
  offset_ += name.size() + 1;
  if (!names_.sharedIds_.contains(id)) return name;
  const auto found = names_.sharedNames_.find(KeyOf(id, sourcePath));
  return found == names_.sharedNames_.end() ? std::string_view{} : std::string_view(found->second);
}

namespace {

constexpr std::size_t kBufferSize = 64 * 1024;

class ScriptFile {
 public:
  ScriptFile(tools::Disk& disk, const std::string& path) : replacement_(disk, path) {}

  void Append(std::string_view text) {
    buffer_.append(text);
    if (buffer_.size() >= kBufferSize) Flush();
  }

  void Commit() {
    Flush();
    replacement_.Commit(tools::ReplacementFile::Durability::Cached);
  }

 private:
  void Flush() {
    replacement_.File().Write(buffer_);
    buffer_.clear();
  }

  tools::ReplacementFile replacement_;
  std::string buffer_;
};

void WriteComponent(InstallScript& script, const SurveyedComponent& component,
                    StoredNameMap::Reader& names) {
  script.BeginComponent(component.title);
  for (const SurveyedEntry& surveyed : component.entries) {
    const model::ICFile entry = surveyed.File();
    for (const std::string_view path : surveyed.Sources()) {
      const std::string_view stored = names.Next(entry.ID, path);
      if (!stored.empty()) script.AddFile(entry, path, stored);
    }
  }
  script.EndComponent();
}

}  // namespace

void WriteInstallScript(tools::Disk& disk, const std::string& path, ScriptHead head,
                        const Survey& survey, const StoredNameMap& names) {
  ScriptFile file(disk, path);
  InstallScript script([&file](std::string_view text) { file.Append(text); }, std::move(head));
  script.Begin();
  StoredNameMap::Reader reader(names);
  for (const SurveyedComponent& component : survey.components) {
    // One that is not installed has no entries.
    if (component.isInstalled) WriteComponent(script, component, reader);
  }
  script.End();
  file.Commit();
}

}  // namespace engine
