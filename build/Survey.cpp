#include "build/Survey.h"

#include <filesystem>
#include <utility>

#include "model/SlotNumbers.h"
#include "tools/Error.h"
#include "tools/Files.h"
#include "tools/Numbers.h"
#include "tools/Path.h"
#include "tools/SettingsFile.h"

namespace build {

namespace {

// Entries up to this number are visited whether they are stored or not.
constexpr std::int32_t kMaximumEntries = 1'000'000;

std::string InComponent(const std::string& title) { return " of component '" + title + "'"; }

class Surveyor {
 public:
  Surveyor(const model::ModProject& project, std::int32_t version, const SurveyStep& step)
      : project_(project),
        version_(version),
        step_(step),
        productFolder_(project.ProductFolder()) {}

  Survey Run() {
    for (const std::int32_t slot : project_.ComponentSlots(version_)) VisitComponent(slot);
    return std::move(survey_);
  }

 private:
  void VisitComponent(std::int32_t slot) {
    SurveyedComponent component;
    component.slot = slot;
    component.title = project_.ComponentTitle(version_, slot);
    settings_ = project_.Settings().Load(project_.ComponentFilePath(version_, slot));
    try {
      VisitEntries(component, model::ReadFileCount(read_));
    } catch (const tools::Error& error) {
      AddProblem(component.problem,
                 "Files" + InComponent(component.title) + " cannot be counted: " + error.what(),
                 std::string("Die Anzahl der Dateien ist ungültig: ") + error.what());
    }
    survey_.components.push_back(std::move(component));
  }

  void VisitEntries(SurveyedComponent& component, std::int32_t count) {
    if (count <= kMaximumEntries) {
      for (std::int32_t number = 1; number <= count; ++number) VisitEntry(component, number);
      return;
    }
    const auto stored = model::SlotsNamedIn(settings_->Render(), "File", count);
    for (const std::int32_t number : stored) VisitEntry(component, number);
    if (stored.size() == static_cast<std::size_t>(count)) return;
    const std::string have = std::to_string(stored.size());
    const std::string want = std::to_string(count);
    AddProblem(
        component.problem,
        "Only " + have + " of " + want + " files" + InComponent(component.title) + " are stored",
        "Nur " + have + " von " + want + " Dateien sind vorhanden");
  }

  void VisitEntry(SurveyedComponent& component, std::int32_t number) {
    if (step_) step_();
    SurveyedEntry surveyed;
    surveyed.number = number;
    try {
      surveyed.file = model::ReadFileEntry(read_, number, model::kBuildDefaultType);
      const model::ICFile& entry = surveyed.file;
      AddLocation(entry);
      if (entry.Exclude == 1) return;
      SourceList list = ListSources(entry, productFolder_);
      if (list.fault != SourceFault::None) AddProblem(surveyed.problem, list);
      for (const std::string& path : list.links) AddLinkedLocation(path);
      surveyed.sources = std::move(list.paths);
    } catch (const tools::Error& error) {
      AddUnreadLocation(number);
      if (IsExcluded(number)) return;
      AddProblem(surveyed.problem,
                 "File " + std::to_string(number) + InComponent(component.title) +
                     " is left out: " + error.what(),
                 error.what());
    }
    for (const std::string& path : surveyed.sources) {
      if (step_) step_();
      Measure(path);
    }
    component.entries.push_back(std::move(surveyed));
  }

  [[nodiscard]] bool IsExcluded(std::int32_t number) const {
    const std::string section = "File" + std::to_string(number);
    return tools::LeadingNumber(settings_->Read(section, "Exclude", "0")) == 1;
  }

  // Many entries share their folder: the set holds each place once.
  void AddLocation(const model::ICFile& entry) {
    const bool scan = entry.Type == model::ICFile::kFolderScan;
    if (!scan && entry.Type != model::ICFile::kSingleFile) return;
    const bool below = scan && entry.IncludeChildren != 0;
    const std::string folder = SourceFolderOf(entry, productFolder_);
    survey_.locations.insert({folder, below ? entry.SourceName : std::string{}});
    if (scan) return;
    // The name may hold a folder part, and the file may be a link.
    const std::string path = tools::JoinPath(folder, entry.SourceName);
    survey_.locations.insert({tools::FolderOf(path), {}});
    AddLinkedLocation(path);
  }

  // An entry that cannot be read has sources all the same, whose loss would hurt as much.
  void AddUnreadLocation(std::int32_t number) {
    const std::string section = "File" + std::to_string(number);
    model::ICFile entry;
    entry.SourcePath = settings_->Read(section, "SourcePath", "");
    entry.SourceName = settings_->Read(section, "SourceName", "");
    entry.IncludeChildren = 1;
    for (const std::int16_t type : {model::ICFile::kSingleFile, model::ICFile::kFolderScan}) {
      entry.Type = type;
      AddLocation(entry);
    }
  }

  // A source that is a link lies where the link leads.
  void AddLinkedLocation(const std::string& path) {
    std::error_code ignored;
    if (!std::filesystem::is_symlink(tools::ToPath(path), ignored)) return;
    survey_.locations.insert({tools::FolderOf(tools::CanonicalPath(path)), {}});
  }

  void Measure(const std::string& path) {
    ++survey_.files;
    try {
      survey_.bytes += tools::StampOf(path).size;
    } catch (const tools::Error&) {  // NOLINT(bugprone-empty-catch): reading the file tells it
    }
  }

  static void AddProblem(std::unique_ptr<SurveyProblem>& problem, std::string logText,
                         std::string userText) {
    problem = std::make_unique<SurveyProblem>();
    problem->logText = std::move(logText);
    problem->userText = std::move(userText);
  }

  static void AddProblem(std::unique_ptr<SurveyProblem>& problem, const SourceList& list) {
    AddProblem(problem, list.logText, list.userText);
    problem->fault = list.fault;
    if (list.fault == SourceFault::NoMatch) problem->severity = Severity::Warning;
  }

  const model::ModProject& project_;
  std::int32_t version_;
  const SurveyStep& step_;
  std::string productFolder_;
  std::shared_ptr<const tools::SettingsFile> settings_;  ///< of the component that is visited
  const model::SettingReader read_ = [this](std::string_view section, std::string_view key,
                                            std::string_view value) {
    return settings_->Read(section, key, value);
  };
  Survey survey_;
};

}  // namespace

Survey SurveyVersion(const model::ModProject& project, std::int32_t version,
                     const SurveyStep& step) {
  (void)project.VersionFilePath(version);  // raises the error of an unsafe version text
  return Surveyor(project, version, step).Run();
}

}  // namespace build
