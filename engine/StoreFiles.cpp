#include "engine/StoreFiles.h"

#include <span>
#include <string>
#include <string_view>

namespace engine {

namespace {

class Collector {
 public:
  Collector(FileStore& store, StoredNameMap& names, BuildLog& log)
      : store_(store), names_(names), log_(log) {}

  void Visit(const SurveyedComponent& component) {
    for (const SurveyedEntry& surveyed : component.entries) {
      Place place = component.PlaceOf(surveyed);
      for (; place.entry < surveyed.Last(); ++place.entry) LogProblems(surveyed.Problems(), place);
      LogProblems(surveyed.Problems(), place);
      const model::ICFile entry = surveyed.File();
      for (const std::string_view path : surveyed.Sources()) Store(entry, path, place);
    }
    LogProblems(component.problems, {component.slot, component.title, 0});
  }

  [[nodiscard]] bool DiskFull() const { return diskFull_; }

 private:
  void LogProblems(std::span<const SurveyProblem> problems, const Place& place) {
    for (const SurveyProblem& problem : problems) {
      if (problem.severity == Severity::Warning) {
        log_.LogWarning(problem.logText, place, problem.userText);
      } else {
        log_.LogError(problem.logText, place, problem.userText, problem.detail);
      }
    }
  }

  void Store(const model::ICFile& entry, std::string_view path, const Place& place) {
    const StoredFile stored = store_.Store(entry, path);
    const std::string quoted = "'" + std::string(path) + "'";
    if (!stored.copy.Succeeded()) {
      names_.RecordNone();
      diskFull_ = diskFull_ || tools::IsDiskFull(stored.copy.cause);
      std::string text = "Unable to copy file " + quoted + " to ";
      log_.LogError(text.append(store_.PlaceName()).append(": ").append(stored.copy.errorText),
                    place,
                    "Die Quelldatei kann nicht übernommen werden: " + quoted + " (" +
                        stored.copy.errorText + ")");
      return;
    }
    if (!stored.replaced.empty()) {
      std::string text = "File " + quoted + " replaces '" + stored.replaced;
      log_.LogWarning(text.append("': both are stored as '").append(stored.name).append("'"), place,
                      "Die Datei " + quoted + " ersetzt '" + stored.replaced +
                          "': Beide haben den Ablagenamen '" + stored.name + "'");
    }
    if (!names_.Record(entry.ID, path, stored.name)) {
      log_.LogWarning(
          "Stored name of " + quoted + " is already recorded under ID '" + entry.ID + "'", place,
          "Der Ablagename von " + quoted + " ist unter der ID '" + entry.ID + "' schon vermerkt");
    }
  }

  FileStore& store_;
  StoredNameMap& names_;
  BuildLog& log_;
  bool diskFull_ = false;
};

}  // namespace

bool StoreFiles(const Survey& survey, FileStore& store, StoredNameMap& names, BuildLog& log) {
  Collector collector(store, names, log);
  for (const SurveyedComponent& component : survey.components) collector.Visit(component);
  return collector.DiskFull();
}

}  // namespace engine
