#include "engine/CheckFiles.h"

#include <algorithm>
#include <utility>

#include "engine/InstallScript.h"
#include "engine/OutputContent.h"
#include "model/FolderTable.h"
#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/files/InputFile.h"
#include "tools/files/Names.h"
#include "tools/files/Path.h"

namespace engine {

namespace {

constexpr std::size_t kLongestName = 255;  // bytes, as most file systems have it
// Most systems that limit a path allow 4,096 bytes with its end. The rest is for the hidden folder
// that a setup is made in.
constexpr std::size_t kLongestInOutput = 4000;

// The same key for all paths that are one under Windows.
std::string PathKey(std::string_view path) {
  std::string key = tools::LowerCase(tools::ReplaceAll(path, "/", "\\"));
  const auto doubled = [](char a, char b) { return a == '\\' && b == '\\'; };
  key.erase(std::unique(key.begin(), key.end(), doubled), key.end());
  return key;
}

}  // namespace

bool BreaksScriptLine(std::string_view value) { return value.find('"') != std::string_view::npos; }

FileCheck::FileCheck(const BuildOptions& options, const std::string& title,
                     std::string outputFolder, Findings& findings)
    : packaged_(options.packaged),
      outputFolder_(std::move(outputFolder)),
      findings_(findings),
      places_(OwnNamesInTree(options, title)) {}

void FileCheck::Check(const SurveyedComponent& component, const SurveyStep& step) {
  Report(component.problems, {component.slot, component.title, 0});
  for (const SurveyedEntry& entry : component.entries) CheckEntry(component, entry, step);
}

void FileCheck::CheckEntry(const SurveyedComponent& component, const SurveyedEntry& surveyed,
                           const SurveyStep& step) {
  const Place place = component.PlaceOf(surveyed);
  if (!surveyed.HasSection()) {
    const std::string first = std::to_string(surveyed.Number());
    const std::string last = std::to_string(surveyed.Last());
    findings_.Report(first == last ? "Eintrag " + first + ": ohne Abschnitt"
                                   : "Einträge " + first + " bis " + last + ": ohne Abschnitt",
                     place);
    return;
  }
  Report(surveyed.Problems(), place);
  const model::ICFile entry = surveyed.File();
  if (entry.Type != model::ICFile::kSingleFile && entry.Type != model::ICFile::kFolderScan) return;
  if (model::FolderMacro(entry.TargetFolder).empty()) {
    findings_.Report("Unbekannte Nummer des Zielordners: " + std::to_string(entry.TargetFolder),
                     place);
  }
  CheckNames(entry, place);
  for (const std::string_view path : surveyed.Sources()) {
    if (step) step();
    CheckFile(entry, {&component, surveyed.Number(), path}, place);
  }
}

void FileCheck::CheckNames(const model::ICFile& entry, const Place& place) {
  std::vector<std::string> names =
      tools::SplitList(tools::ReplaceAll(entry.TargetSubFolder, "/", "\\"), '\\', '\0');
  names.push_back(entry.TargetName);
  for (const std::string& name : names) {
    if (name.size() <= kLongestName) continue;
    findings_.Report("Ein Teil des Zielpfads ist als Name zu lang (" + std::to_string(name.size()) +
                         " Bytes, möglich sind 255): " + name.substr(0, 40) + "...",
                     place);
  }
}

void FileCheck::CheckFile(const model::ICFile& entry, const Origin& origin, const Place& place) {
  findings_.Try(place, [&] { const tools::InputFile readable{std::string(origin.path)}; });
  const std::string target = ScriptTarget(entry, origin.path);
  CheckValue("Der Zielpfad", target, place);
  CheckCollision(targets_, "Gleiches Ziel '" + target + "'", PathKey(target), origin, place);
  std::string key = entry.ID + "\n";
  CheckCollision(ids_, "Gleiche ID '" + entry.ID + "' und Quelle", key.append(origin.path), origin,
                 place);
  if (!packaged_) findings_.Try(place, [&] { CheckTreePlace(entry, origin, place); });
}

void FileCheck::CheckTreePlace(const model::ICFile& entry, const Origin& origin,
                               const Place& place) {
  const std::string stored = TreeStoredName(entry, origin.path);
  const std::string name = "Der Ablagename '" + stored + "'";
  CheckValue("Der Ablagename", stored, place);
  const TreePlace there = places_.Take(entry, origin.path);
  const auto other = there.other.empty() ? origins_.end() : origins_.find(there.other.data());
  const std::string otherNamed = other == origins_.end() ? std::string{} : Named(other->second);
  origins_.try_emplace(origin.path.data(), origin);
  switch (there.fault) {
    case TreePlace::Fault::OwnName:
      findings_.Report(name + " gehört zu einer Datei, die der Build selbst anlegt", place);
      return;
    case TreePlace::Fault::FileInTheWay:
      findings_.Report(name + " braucht einen Ordner, wo eine Datei liegt: " + otherNamed, place);
      return;
    case TreePlace::Fault::FolderInTheWay:
      findings_.Report(name + " ist schon der Name eines Ordners", place);
      return;
    case TreePlace::Fault::None:
      break;
  }
  if (!otherNamed.empty()) {
    findings_.Report("Gleicher Ablagename '" + stored + "' für '" + std::string(origin.path) +
                         "' wie für " + otherNamed,
                     place);
  }
  for (const std::string& part : tools::SplitList(there.path, tools::kPathSeparator, '\0')) {
    if (!tools::IsPortableFileName(part) && part.size() <= kLongestName) {
      findings_.Report(name + " enthält einen Namen, den Windows nicht zulässt: " + part, place);
    }
  }
  if (outputFolder_.size() + there.path.size() > kLongestInOutput) {
    findings_.Report("Der Ablagepfad ist zu lang: " + stored.substr(0, 80) + "...", place);
  }
}

void FileCheck::CheckCollision(Collisions& seen, const std::string& what, std::string key,
                               const Origin& origin, const Place& place) {
  const auto [first, added] = seen.try_emplace(std::move(key), origin);
  if (added) return;
  std::string text = what + " für '";
  text.append(origin.path).append("' wie für ").append(Named(first->second));
  findings_.Report(text, place);
}

void FileCheck::CheckValue(std::string_view what, const std::string& value, const Place& place) {
  if (!BreaksScriptLine(value)) return;
  std::string text(what);
  findings_.Report(
      text.append(" enthält ein Zeichen, das im Installationsskript nicht stehen kann: ")
          .append(value),
      place);
}

std::string FileCheck::Named(const Origin& origin) {
  std::string text("'");
  text.append(origin.path).append("' (Komponente '").append(origin.component->title);
  return text.append("', Datei ").append(std::to_string(origin.entry)).append(")");
}

// Values that cannot be read are found in the settings, where the reason is known better.
void FileCheck::Report(std::span<const SurveyProblem> problems, const Place& place) {
  for (const SurveyProblem& problem : problems) {
    if (problem.fault == SourceFault::Value && place.entry != 0) continue;
    findings_.Report(problem.userText, place, problem.severity);
  }
}

}  // namespace engine
