#include "engine/BuildCheck.h"

#include <algorithm>
#include <string_view>
#include <tuple>

#include "engine/CheckFiles.h"
#include "engine/CheckSettings.h"
#include "engine/ComponentFiles.h"
#include "engine/Findings.h"
#include "engine/OutputContent.h"
#include "engine/OutputFolder.h"
#include "engine/ProtectedPlaces.h"
#include "model/StoredOptions.h"
#include "tools/SetupNames.h"
#include "tools/files/Files.h"
#include "tools/files/InputFile.h"
#include "tools/files/Names.h"
#include "tools/files/Path.h"

namespace engine {

namespace {

bool IsWholeNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

class Checker {
 public:
  Checker(const model::ModProject& project, const BuildOptions& options, model::VersionSlot version,
          const std::string& programFolder)
      : project_(project), version_(version), options_(options), programFolder_(programFolder) {}

  std::vector<BuildMessage> Run(const SurveyStep& step) {
    CheckProductSettings(project_, version_, findings_);
    findings_.Try({}, [&] { LookAround(step); });
    for (const BuildMessage& unread : survey_.unread) {
      findings_.Report(unread.text, {unread.component, {}, 0});
    }
    findings_.Try({}, [this] {
      FindControlCharacters(
          project_, version_, survey_,
          [this](const std::string& text, const Place& place) { findings_.Report(text, place); });
    });
    findings_.Try({}, [this] { CheckOutputFolder(); });
    findings_.Try({}, [this] { CheckTitle(); });
    findings_.Try({}, [this] { CheckCatalogue(); });
    if (options_.includeWrapper) {
      CheckProgram(tools::kWrapperSource, "Das ausführbare Installationsprogramm");
    }
    if (options_.includeRuntime) {
      CheckProgram(tools::kRuntimeName, "Das Installationsprogramm für Tessel");
    }
    findings_.Try({}, [this] { CheckComponentFiles(); });
    FileCheck files(options_, title_, outputFolder_, findings_);
    for (const SurveyedComponent& component : survey_.components) files.Check(component, step);
    return InOrder();
  }

 private:
  void LookAround(const SurveyStep& step) {
    const std::string output = OutputFolderPath(options_.folder, project_);
    if (options_.isConfined) {
      RequireConfined(project_, version_, output, SourceFoldersOf(project_, version_));
    }
    survey_ = SurveyVersion(project_, version_, output, [&step](const tools::Progress& /*found*/) {
      if (step) step();
    });
    if (options_.isConfined) RequireConfined(project_, version_, output, survey_.sourceFolders);
  }

  void CheckOutputFolder() {
    const ProtectedPlaces places(project_, version_, survey_.sourceFolders, programFolder_);
    OutputFolder folder = AcceptOutputFolder(options_.folder, project_, places);
    outputFolder_ = folder.path;
    if (folder.IsAccepted()) folder = AcceptContent(folder, ContentOf(folder.path), places);
    if (!folder.IsAccepted()) {
      findings_.Report("Der Ausgabeordner ist ungültig. " + folder.reason);
    } else if (!tools::CanMakeFilesIn(folder.path)) {
      findings_.Report("In den Ausgabeordner kann nicht geschrieben werden: " + folder.path);
    }
  }

  void CheckTitle() {
    title_ = project_.ProductTitle();
    // The second is the longest of the names made from it.
    if (!tools::IsPortableFileName(title_) ||
        !tools::IsPortableFileName(title_ + tools::kScriptEnding)) {
      findings_.Report("Die Produktbezeichnung kann kein Dateiname sein: " + title_);
    }
    CheckValue("Die Produktbezeichnung", title_);
  }

  // Without a key the script registers nothing. The editor proposes "?" where it has no better one.
  void CheckCatalogue() {
    const auto [key, title, type] = model::StoredOptions(project_, version_).Catalogue({});
    if (key.empty()) return;
    if (key == "?") findings_.Report("Der Tessel-Anwendungsschlüssel ist noch \"?\"");
    if (title == "?")
      findings_.Report("Die Programmbezeichnung der Tessel-Datenbank ist noch \"?\"");
    CheckValue("Der Tessel-Anwendungsschlüssel", key);
    CheckValue("Die Programmbezeichnung der Tessel-Datenbank", title);
    if (!IsWholeNumber(type)) findings_.Report("Der Programmtyp ist keine Zahl: " + type);
  }

  // A narrow list shows only where its text begins and ends: the begin says which program it is.
  void CheckProgram(const char* name, const std::string& what) {
    const std::string path = tools::JoinPath(programFolder_, name);
    try {
      const tools::InputFile readable(path);
    } catch (const tools::Error& error) {
      findings_.Report(
          tools::PathError(what + " kann nicht gelesen werden", path, error.Cause()).what());
    }
  }

  void CheckComponentFiles() {
    const std::int32_t count = project_.ComponentCount(version_);
    const ComponentFiles files = ListComponentFiles(project_, version_);
    for (const model::ComponentSlot slot : files.slots) {
      CheckComponentSettings(project_, version_, slot, findings_);
      CheckWithin(count, slot, project_.ComponentFilePath(version_, slot));
    }
    for (const MisnamedFile& file : files.misnamed) CheckWithin(count, file.slot, file.path);
  }

  void CheckWithin(std::int32_t count, model::ComponentSlot slot, const std::string& path) {
    if (slot <= count) return;
    findings_.Report("Die Komponentendatei liegt jenseits der Anzahl der Komponenten (" +
                         std::to_string(count) + "): " + path,
                     {slot, {}, 0}, Severity::Warning);
  }

  void CheckValue(std::string_view what, const std::string& value) {
    if (!BreaksScriptLine(value)) return;
    std::string text(what);
    findings_.Report(
        text.append(" enthält ein Zeichen, das im Installationsskript nicht stehen kann: ")
            .append(value));
  }

  std::vector<BuildMessage> InOrder() {
    std::vector<BuildMessage> found = findings_.Take();
    std::stable_sort(found.begin(), found.end(), [](const BuildMessage& a, const BuildMessage& b) {
      return std::tie(a.component, a.entry) < std::tie(b.component, b.entry);
    });
    return found;
  }

  const model::ModProject& project_;
  model::VersionSlot version_;
  const BuildOptions& options_;
  std::string programFolder_;
  std::string title_;
  std::string outputFolder_;
  Survey survey_;
  Findings findings_;
};

}  // namespace

std::vector<BuildMessage> CheckBuild(const model::ModProject& project, const BuildOptions& options,
                                     model::VersionSlot versionIndex,
                                     const std::string& programFolder, const SurveyStep& step) {
  return Checker(project, options, versionIndex, programFolder).Run(step);
}

}  // namespace engine
