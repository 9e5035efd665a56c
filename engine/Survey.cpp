#include "engine/Survey.h"

#include <filesystem>
#include <limits>
#include <memory>
#include <utility>

#include "engine/ComponentFiles.h"
#include "engine/SettingsText.h"
#include "model/SettingNames.h"
#include "model/StoredNumbers.h"
#include "tools/Error.h"
#include "tools/Numbers.h"
#include "tools/Text.h"
#include "tools/files/Files.h"
#include "tools/files/LinksAndMounts.h"
#include "tools/files/Path.h"
#include "tools/settings/SettingsFile.h"

namespace engine {

namespace {

// Up to this count, entries that are not stored are surveyed too; above it one problem counts them.
constexpr std::int32_t kMaximumEntries = 1'000'000;
constexpr std::int32_t kAnyNumber = std::numeric_limits<std::int32_t>::max();

constexpr model::SettingName kTitle = model::setting::kComponentTitle;
constexpr model::SettingName kComponents = model::setting::kComponentCount;
constexpr model::SettingName kFiles = model::setting::kFileCount;

std::string InComponent(const std::string& title) { return " of component '" + title + "'"; }

SurveyProblem ValueProblem(std::string logText, std::string userText) {
  return {SourceFault::Value, Severity::Error, std::move(logText), std::move(userText)};
}

bool IsNoComponent(const tools::SettingsFile& settings) {
  // A loss of power can leave NULs in place of a part of a file.
  bool hasNul = false;
  settings.Render([&hasNul](std::string_view part) {
    hasNul = hasNul || part.find('\0') != std::string_view::npos;
  });
  if (hasNul) return true;
  if (settings.Find(kTitle.section, kTitle.key)) return false;
  bool hasSection = false;
  settings.ForEachSection([&](std::string_view name) {
    hasSection = hasSection || tools::EqualIgnoringAsciiCase(name, kTitle.section);
  });
  return !hasSection;
}

// What a build writes into script or log.
void NoteUnfitValues(SurveyedComponent& component, std::int32_t number, const model::ICFile& file) {
  const std::pair<std::string_view, const std::string*> values[] = {
      {"ID", &file.ID},
      {"SourcePath", &file.SourcePath},
      {"SourceName", &file.SourceName},
      {"TargetSubFolder", &file.TargetSubFolder},
      {"TargetName", &file.TargetName}};
  for (const auto& [key, value] : values) {
    if (tools::HasControlCharacter(*value)) component.unfitValues.push_back({number, file.ID, key});
  }
}

class Surveyor {
 public:
  Surveyor(const model::ModProject& project, model::VersionSlot version, std::string outputFolder,
           const SurveyWatch& watch)
      : project_(project),
        version_(version),
        watch_(watch),
        scope_{project.ProductFolder(), std::move(outputFolder), [this] { Tell(); },
               [this] { ++found_; }} {}

  std::set<std::string> RunForFolders() {
    onlyFolders_ = true;
    return Run().sourceFolders;
  }

  Survey Run() {
    project_.RequireSoundVersionFile(version_);
    const ComponentFiles files = ListComponentFiles(project_, version_, scope_.step);
    if (!files.slots.empty() || !files.misnamed.empty()) RequireCount();
    const std::int32_t count = project_.ComponentCount(version_);
    for (const model::ComponentSlot slot : files.slots) {
      if (slot <= count) VisitSlot(slot);
    }
    for (const MisnamedFile& file : files.misnamed) {
      if (file.slot <= count) VisitMisnamed(file);
    }
    return std::move(survey_);
  }

 private:
  void Tell() const {
    if (watch_) watch_({.filesDone = found_, .bytesDone = survey_.bytes});
  }

  // A version file that lost its end would build to an empty setup.
  void RequireCount() const {
    const std::string count =
        project_.ReadVersionSetting(version_, kComponents.section, kComponents.key, "");
    if (!tools::TrimBlanks(count).empty()) return;
    throw tools::Error("Die Anzahl der Komponenten fehlt: " + project_.VersionFilePath(version_) +
                       " ([Components] Count)");
  }

  void VisitSlot(model::ComponentSlot slot) {
    SurveyedComponent component;
    component.slot = slot;
    const std::string path = project_.ComponentFilePath(version_, slot);
    if (LookAt(path) == tools::PathKind::Folder) {
      NoteNoComponent(component, path, std::make_error_code(std::errc::is_a_directory));
    } else if (Load(slot, path)) {
      VisitComponent(component, path);
    } else {
      return;
    }
    const bool isFree = !component.isInstalled && component.problems.empty();
    if (!isFree) survey_.components.push_back(std::move(component));
  }

  // Somebody else's machine may take it for the component: it is not left out without a word.
  void VisitMisnamed(const MisnamedFile& file) {
    SurveyedComponent component;
    component.slot = file.slot;
    component.isInstalled = false;
    const std::string name = tools::FileNamePart(project_.ComponentFilePath(version_, file.slot));
    component.problems.push_back(
        ValueProblem("File is left out, it is not named '" + name + "': " + file.path,
                     "Die Komponentendatei heißt nicht genau '" + name + "': " + file.path));
    if (LookAt(file.path) == tools::PathKind::File && Load(file.slot, file.path)) {
      AddStoredLocations(kAnyNumber);
    }
    survey_.components.push_back(std::move(component));
  }

  // What cannot be read is noted for the caller: nothing may be deleted then.
  bool Load(model::ComponentSlot slot, const std::string& path) {
    settings_.reset();
    try {
      if (LookAt(path) == tools::PathKind::Absent) {
        throw tools::PathError("Die Datei kann nicht gelesen werden", path,
                               std::make_error_code(std::errc::no_such_file_or_directory));
      }
      settings_ = project_.Settings().Load(path);
    } catch (const tools::Error& error) {
      BuildMessage message;
      message.text = error.what();
      message.component = slot;
      survey_.unread.push_back(std::move(message));
    }
    return settings_ != nullptr;
  }

  void VisitComponent(SurveyedComponent& component, const std::string& path) {
    path_ = path;
    if (IsNoComponent(*settings_)) {
      NoteNoComponent(component, path, {});
      AddStoredLocations(kAnyNumber);
      return;
    }
    if (!TakeTitle(component)) return;
    std::int32_t count = kAnyNumber;
    try {
      RequireFileCount();
      count = model::ReadFileCount(read_, path_);
      if (component.isInstalled && !onlyFolders_) {
        VisitEntries(component, count);
        return;
      }
      if (!component.isInstalled && count > 0) NoteUntitled(component, count);
    } catch (const tools::Error& error) {
      component.problems.push_back(ValueProblem(
          "Files" + InComponent(component.title) + " cannot be counted: " + error.what(),
          std::string("Die Anzahl der Dateien ist ungültig: ") + error.what()));
    }
    AddStoredLocations(count);
  }

  // False for a title that is too long.
  bool TakeTitle(SurveyedComponent& component) {
    const std::string title = settings_->Read(kTitle.section, kTitle.key, "");
    component.isInstalled = false;
    try {
      model::RequireShortText(title, {path_, kTitle});
    } catch (const tools::Error& error) {
      component.problems.push_back(
          ValueProblem(std::string("Component is left out: ") + error.what(), error.what()));
      AddStoredLocations(kAnyNumber);
      return false;
    }
    component.title = title;
    component.isInstalled = !title.empty();
    return true;
  }

  // Without one, entries that are there would be left out without a word.
  void RequireFileCount() const {
    if (!tools::TrimBlanks(settings_->Read(kFiles.section, kFiles.key, "")).empty()) return;
    if (StoredEntries(*settings_, kAnyNumber).empty()) return;
    throw tools::Error("([Files] Count)");
  }

  static void NoteNoComponent(SurveyedComponent& component, const std::string& path,
                              std::error_code cause) {
    component.isInstalled = false;
    std::string reason = path;
    if (cause) reason.append(" (").append(tools::SystemErrorText(cause)).append(")");
    component.problems.push_back(ValueProblem("File holds no component: " + reason,
                                              "Die Datei enthält keine Komponente: " + reason));
  }

  static void NoteUntitled(SurveyedComponent& component, std::int32_t count) {
    const std::string files = std::to_string(count);
    component.problems.push_back(
        {SourceFault::Value, Severity::Warning,
         "Component " + std::to_string(component.slot) + " is left out: it has files (" + files +
             ") but no title",
         "Die Komponente hat Dateien (" + files + "), aber keine Bezeichnung"});
  }

  void VisitEntries(SurveyedComponent& component, std::int32_t count) {
    const std::vector<std::int32_t> stored = StoredEntries(*settings_, count);
    if (count <= kMaximumEntries) {
      std::int32_t next = 1;
      for (const std::int32_t number : stored) {
        VisitMissing(component, next, number - 1);
        VisitEntry(component, number);
        next = number + 1;
      }
      VisitMissing(component, next, count);
      return;
    }
    for (const std::int32_t number : stored) VisitEntry(component, number);
    if (stored.size() == static_cast<std::size_t>(count)) return;
    const std::string have = std::to_string(stored.size());
    const std::string want = std::to_string(count);
    component.problems.push_back(ValueProblem(
        "Only " + have + " of " + want + " files" + InComponent(component.title) + " are stored",
        "Nur " + have + " von " + want + " Dateien sind vorhanden"));
  }

  void VisitMissing(SurveyedComponent& component, std::int32_t first, std::int32_t last) {
    if (first > last) return;
    VisitEntry(component, first);
    component.entries.back().StandForMissing(last);
  }

  void VisitEntry(SurveyedComponent& component, std::int32_t number) {
    Tell();
    const std::uint64_t foundBefore = found_;
    model::ICFile entry;
    SourceList list;
    try {
      entry = model::ReadFileEntry(read_, path_, number, model::EntryUse::Build);
      model::RequireShortTexts(entry, path_, number);
      AddLocation(entry);
      if (entry.Exclude == 1) return;
      list = ListSources(entry, scope_);
      for (const std::string& path : list.links) AddLinkedLocation(path);
    } catch (const tools::Error& error) {
      AddUnreadLocation(number);
      if (IsExcluded(number)) return;
      entry = {};
      list.problems.push_back(ValueProblem("File " + std::to_string(number) +
                                               InComponent(component.title) +
                                               " is left out: " + error.what(),
                                           error.what()));
    }
    found_ = foundBefore + list.paths.size();
    for (const std::string& path : list.paths) {
      Tell();
      Measure(path);
    }
    NoteUnfitValues(component, number, entry);
    component.entries.emplace_back(number, entry, std::move(list));
  }

  [[nodiscard]] bool IsExcluded(std::int32_t number) const {
    const std::string text = settings_->Read(model::FileEntrySection(number), "Exclude", "0");
    return tools::LeadingNumber(text) == 1;
  }

  // Many entries share their folder: the set holds each place once.
  void AddLocation(const model::ICFile& entry) {
    if (entry.SourcePath.size() + entry.SourceName.size() > tools::kLongestPath) return;
    // Entries of types unknown here count as files: their sources are as dear to somebody.
    const bool scan = entry.Type == model::ICFile::kFolderScan;
    const std::string folder = SourceFolderOf(entry, scope_.productFolder);
    survey_.sourceFolders.insert(folder);
    if (scan) return;
    // The name may hold a folder part, and the file may be a link.
    const std::string path = tools::JoinPath(folder, entry.SourceName);
    survey_.sourceFolders.insert(tools::FolderOf(path));
    AddLinkedLocation(path);
  }

  // An entry that cannot be read has sources all the same, whose loss would hurt as much.
  void AddUnreadLocation(std::int32_t number) {
    const std::string section = model::FileEntrySection(number);
    model::ICFile entry;
    entry.SourcePath = settings_->Read(section, "SourcePath", "");
    entry.SourceName = settings_->Read(section, "SourceName", "");
    for (const std::int16_t type : {model::ICFile::kSingleFile, model::ICFile::kFolderScan}) {
      entry.Type = type;
      AddLocation(entry);
    }
  }

  void AddStoredLocations(std::int32_t count) {
    for (const std::int32_t number : StoredEntries(*settings_, count)) {
      AddUnreadLocation(number);
    }
  }

  // A source that is a link lies where the link leads, by way of other links maybe.
  void AddLinkedLocation(const std::string& path) {
    std::error_code ignored;
    if (!std::filesystem::is_symlink(tools::ToPath(path), ignored)) return;
    for (const std::string& place : tools::PlacesOnTheWay(path)) {
      survey_.sourceFolders.insert(tools::FolderOf(place));
    }
  }

  void Measure(const std::string& path) {
    ++survey_.files;
    try {
      survey_.bytes += tools::StampOf(path).size;
    } catch (const tools::Error&) {  // NOLINT(bugprone-empty-catch): reading the file tells it
    }
  }

  const model::ModProject& project_;
  model::VersionSlot version_;
  const SurveyWatch& watch_;
  SourceScope scope_;
  std::uint64_t found_ = 0;  ///< files, as far as is known
  bool onlyFolders_ = false;
  std::shared_ptr<const tools::SettingsFile> settings_;  ///< of the component that is visited
  std::string path_;                                     ///< of its file
  const model::SettingReader read_ = [this](std::string_view section, std::string_view key,
                                            std::string_view value) {
    return settings_->Read(section, key, value);
  };
  Survey survey_;
};

}  // namespace

Survey SurveyVersion(const model::ModProject& project, model::VersionSlot version,
                     const std::string& outputFolder, const SurveyWatch& watch) {
  return Surveyor(project, version, outputFolder, watch).Run();
}

std::set<std::string> SourceFoldersOf(const model::ModProject& project,
                                      model::VersionSlot version) {
  const SurveyWatch noWatch;
  return Surveyor(project, version, {}, noWatch).RunForFolders();
}

}  // namespace engine
