// The part of the check that looks at the files of a version: whether they can be read, where they
// go, and which of them meet there.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

#include "engine/BuildObserver.h"
#include "engine/Findings.h"
#include "engine/Survey.h"
#include "engine/TreePlaces.h"

namespace engine {

/// True for a value that cannot stand between the double quotes of a script line. What breaks the
/// line itself is found elsewhere (CheckSettings.h).
[[nodiscard]] bool BreaksScriptLine(std::string_view value);

class FileCheck {
 public:
  /// `outputFolder` is empty when it was refused. The survey and the findings must outlive the
  /// check.
  FileCheck(const BuildOptions& options, const std::string& title, std::string outputFolder,
            Findings& findings);

  /// Checks the component's entries and files, and reports what the survey found wrong with them.
  /// Raises what `step` raises, which is called for each file.
  void Check(const SurveyedComponent& component, const SurveyStep& step);

 private:
  /// A file of the version: where it comes from in the product.
  struct Origin {
    const SurveyedComponent* component;
    std::int32_t entry;
    std::string_view path;
  };
  using Collisions = std::unordered_map<std::string, Origin>;

  void CheckEntry(const SurveyedComponent& component, const SurveyedEntry& surveyed,
                  const SurveyStep& step);
  void CheckNames(const model::ICFile& entry, const Place& place);
  void CheckFile(const model::ICFile& entry, const Origin& origin, const Place& place);
  void CheckTreePlace(const model::ICFile& entry, const Origin& origin, const Place& place);
  void CheckCollision(Collisions& seen, const std::string& what, std::string key,
                      const Origin& origin, const Place& place);
  void CheckValue(std::string_view what, const std::string& value, const Place& place);
  [[nodiscard]] static std::string Named(const Origin& origin);
  void Report(std::span<const SurveyProblem> problems, const Place& place);

  bool packaged_;
  std::string outputFolder_;
  Findings& findings_;
  TreePlaces places_;
  std::unordered_map<const char*, Origin> origins_;  ///< by the paths that places_ was given
  Collisions targets_;
  Collisions ids_;
};

}  // namespace engine
