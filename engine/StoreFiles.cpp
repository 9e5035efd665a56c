#include "engine/StoreFiles.h"

namespace engine {

namespace {

/// Not what the system says of a source that has gone or turned into something else, nor of a
/// target that takes no such name or size.
bool KeepsFromReading(std::error_code cause) {
  return cause && !tools::IsDiskFull(cause) && cause != std::errc::no_such_file_or_directory &&
         cause != std::errc::not_a_directory && cause != std::errc::is_a_directory &&
         cause != std::errc::filename_too_long && cause != std::errc::file_too_large;
}

bool KeepsFromReading(const SurveyProblem& problem) {
  switch (problem.fault) {
    case SourceFault::Unreadable:
      return true;
    case SourceFault::Missing:
      return !problem.detail.empty();
    case SourceFault::DeadLink:
      return problem.severity == Severity::Error;
    default:
      return false;
  }
}

class Collector {
 public:
  Collector(FileStore& store, StoredNameMap& names, BuildLog& log)
      : store_(store), names_(names), log_(log) {}

  void Visit(const SurveyedComponent& component) {
    for (const SurveyedEntry& surveyed : component.entries) {
      Place place = component.PlaceOf(surveyed);
      for (; place.entry < surveyed.last; ++place.entry) LogProblems(surveyed.problems, place);
      LogProblems(surveyed.problems, place);
      for (const std::string& path : surveyed.sources) Store(surveyed.file, path, place);
    }
    LogProblems(component.problems, {component.slot, component.title, 0});
  }

  [[nodiscard]] const StoreFailures& Failures() const { return failures_; }

 private:
  void LogProblems(const std::vector<SurveyProblem>& problems, const Place& place) {
    for (const SurveyProblem& problem : problems) {
      if (KeepsFromReading(problem)) NoteUnread(problem.userText);
      if (problem.severity == Severity::Warning) {
        log_.LogWarning(problem.logText, place);
      } else {
        log_.LogError(problem.logText, place, problem.detail);
      }
    }
  }

  void Store(const model::ICFile& entry, const std::string& path, const Place& place) {
    const StoredFile stored = store_.Store(entry, path);
    if (!stored.copy.Succeeded()) {
      failures_.diskFull = failures_.diskFull || tools::IsDiskFull(stored.copy.cause);
      if (KeepsFromReading(stored.copy.cause)) {
        NoteUnread(path + " (" + tools::SystemErrorText(stored.copy.cause) + ")");
      }
      std::string text = "Unable to copy file '" + path + "' to ";
      log_.LogError(text.append(store_.PlaceName()).append(": ").append(stored.copy.errorText),
                    place);
      return;
    }
    if (!stored.replaced.empty()) {
      std::string text = "File '" + path + "' replaces '" + stored.replaced;
      log_.LogWarning(text.append("': both are stored as '").append(stored.name).append("'"),
                      place);
    }
    if (!names_.Record(entry.ID, path, stored.name)) {
      log_.LogWarning(
          "Stored name of '" + path + "' is already recorded under ID '" + entry.ID + "'", place);
    }
  }

  void NoteUnread(const std::string& what) {
    if (failures_.unread.empty()) failures_.unread = what;
  }

  FileStore& store_;
  StoredNameMap& names_;
  BuildLog& log_;
  StoreFailures failures_;
};

}  // namespace

StoreFailures StoreFiles(const Survey& survey, FileStore& store, StoredNameMap& names,
                         BuildLog& log) {
  Collector collector(store, names, log);
  for (const SurveyedComponent& component : survey.components) collector.Visit(component);
  return collector.Failures();
}

}  // namespace engine
