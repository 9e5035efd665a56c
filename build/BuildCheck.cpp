#include "build/BuildCheck.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "build/InstallScript.h"
#include "build/OutputFolder.h"
#include "build/StoredNameMap.h"
#include "build/Survey.h"
#include "build/TreeStore.h"
#include "model/FolderTable.h"
#include "tools/Error.h"
#include "tools/Names.h"
#include "tools/Path.h"
#include "tools/Text.h"

namespace build {

namespace {

// Values stand between double quotes in a script line, and cannot be escaped there.
bool BreaksScriptLine(std::string_view value) {
  return std::any_of(value.begin(), value.end(),
                     [](char c) { return c == '"' || (c >= 0 && c < ' '); });
}

bool IsWholeNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// Paths that Windows takes for one get one key.
std::string PathKey(std::string_view path) {
  std::string key = tools::LowerCase(tools::ReplaceAll(path, "/", "\\"));
  const auto doubled = [](char a, char b) { return a == '\\' && b == '\\'; };
  key.erase(std::unique(key.begin(), key.end(), doubled), key.end());
  return key;
}

/// A file of the version: where it comes from in the product.
struct Origin {
  const SurveyedComponent* component;
  std::int32_t entry;
  std::string_view path;
};

class Checker {
 public:
  Checker(const model::ModProject& project, const BuildOptions& options, std::int32_t version,
          const SurveyStep& step)
      : project_(project),
        options_(options),
        version_(version),
        survey_(SurveyVersion(project, version, step)) {}

  std::vector<BuildMessage> Run() {
    CheckOutputFolder();
    CheckTitle();
    CheckCatalogue();
    for (const SurveyedComponent& component : survey_.components) {
      for (const SurveyedEntry& entry : component.entries) CheckEntry(component, entry);
      if (component.problem) Report(*component.problem, {component.slot, component.title, 0});
    }
    return std::move(findings_);
  }

 private:
  void CheckOutputFolder() {
    if (!NormalizeOutputFolder(options_.folder, project_, survey_.locations).empty()) return;
    Report("Der Ausgabeordner ist ungültig: " + options_.folder);
  }

  void CheckTitle() {
    const std::string title = project_.ProductTitle();
    // The second is the longest of the names made from it.
    if (!tools::IsPortableFileName(title) || !tools::IsPortableFileName(title + ".install")) {
      Report("Die Produktbezeichnung kann kein Dateiname sein: " + title);
    }
    CheckValue("Die Produktbezeichnung", title, {});
  }

  // Without a key the script registers nothing.
  void CheckCatalogue() {
    const auto tessel = [this](std::string_view key, std::string_view value) {
      return project_.ReadVersionSetting(version_, "Tessel", key, value);
    };
    const std::string key = tessel("Key", "");
    if (key.empty()) return;
    CheckValue("Der Tessel-Anwendungsschlüssel", key, {});
    CheckValue("Die Programmbezeichnung der Tessel-Datenbank", tessel("Title", ""), {});
    const std::string type = tessel("Type", "1");
    if (!IsWholeNumber(type)) Report("Der Programmtyp ist keine Zahl: " + type);
  }

  void CheckEntry(const SurveyedComponent& component, const SurveyedEntry& surveyed) {
    const Place place = component.PlaceOf(surveyed);
    if (surveyed.problem) Report(*surveyed.problem, place);
    if (surveyed.problem && surveyed.problem->fault == SourceFault::None) return;
    const model::ICFile& entry = surveyed.file;
    if (!IsInstalled(entry)) return;
    if (model::FolderMacro(entry.TargetFolder).empty()) {
      Report("Unbekannte Nummer des Zielordners: " + std::to_string(entry.TargetFolder), place);
    }
    for (const std::string& path : surveyed.sources) {
      CheckFile(entry, {&component, surveyed.number, path}, place);
    }
  }

  static bool IsInstalled(const model::ICFile& entry) {
    return entry.Type == model::ICFile::kSingleFile || entry.Type == model::ICFile::kFolderScan;
  }

  void CheckFile(const model::ICFile& entry, const Origin& origin, const Place& place) {
    const std::string target = ScriptTarget(entry, origin.path);
    CheckValue("Der Zielpfad", target, place);
    CheckMeeting(targets_, "Gleiches Ziel '" + target + "'", PathKey(target), origin, place);
    if (options_.packaged) {
      const std::string extension = tools::Extension(origin.path);
      CheckValue("Die Dateinamenserweiterung", extension, place);
      std::string key = entry.ID + "\n";
      CheckMeeting(stored_, "Gleiche ID '" + entry.ID + "' und Quelle", key.append(origin.path),
                   origin, place);
    } else {
      const std::string stored = TreeStoredName(entry, origin.path);
      CheckValue("Der Ablagename", stored, place);
      CheckTreeName(stored, origin, place);
    }
  }

  void CheckTreeName(const std::string& stored, const Origin& origin, const Place& place) {
    try {
      std::string key;
      for (const std::string& part : PlainParts(stored)) key.append("\\").append(part);
      CheckMeeting(stored_, "Gleicher Ablagename '" + stored + "'", PathKey(key), origin, place);
    } catch (const tools::Error& error) {
      Report(error.what(), place);
    }
  }

  using Meetings = std::unordered_map<std::string, Origin>;

  void CheckMeeting(Meetings& seen, const std::string& what, std::string key, const Origin& origin,
                    const Place& place) {
    const auto [first, added] = seen.try_emplace(std::move(key), origin);
    if (added) return;
    const Origin& other = first->second;
    std::string text = what + " für '";
    text.append(origin.path).append("' wie für '").append(other.path);
    text.append("' (Komponente '").append(other.component->title).append("', Datei ");
    Report(text.append(std::to_string(other.entry)).append(")"), place);
  }

  void CheckValue(std::string_view what, const std::string& value, const Place& place) {
    if (!BreaksScriptLine(value)) return;
    std::string text(what);
    Report(text.append(" enthält ein Zeichen, das im Installationsskript nicht stehen kann: ")
               .append(value),
           place);
  }

  void Report(const SurveyProblem& problem, const Place& place) {
    Report(problem.userText, place);
    findings_.back().severity = problem.severity;
  }

  void Report(const std::string& text, const Place& place = {}) {
    BuildMessage finding;
    finding.text = text;
    finding.component = place.component;
    finding.componentTitle = place.componentTitle;
    finding.entry = place.entry;
    findings_.push_back(std::move(finding));
  }

  const model::ModProject& project_;
  BuildOptions options_;
  std::int32_t version_;
  Survey survey_;
  Meetings targets_;
  Meetings stored_;
  std::vector<BuildMessage> findings_;
};

}  // namespace

std::vector<BuildMessage> CheckBuild(const model::ModProject& project,
                                     const BuildSettings& settings, std::int32_t versionIndex,
                                     const SurveyStep& step) {
  return Checker(project, ReadBuildOptions(settings), versionIndex, step).Run();
}

}  // namespace build
