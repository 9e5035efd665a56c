// What a build tells and asks its observer as it goes on; printing lives with the observer.
#pragma once

#include <cstdint>
#include <string>

#include "tools/Progress.h"

namespace engine {

enum class Severity { Warning, Error };

/// A problem, with its place in the product.
struct BuildMessage {
  Severity severity = Severity::Error;
  std::string text;            ///< as in the log, without "Warning: " or "ERROR: "
  std::string detail;          ///< the cause, where the log's text does not hold it
  std::int32_t component = 0;  ///< component slot, 0 when it belongs to none
  std::string componentTitle;
  std::int32_t entry = 0;  ///< entry number in the component, 0 when it belongs to none
};

/// Every call comes on the thread that builds. None may raise an error.
class BuildObserver {
 public:
  virtual ~BuildObserver() = default;
  BuildObserver() = default;
  BuildObserver(const BuildObserver&) = delete;
  BuildObserver& operator=(const BuildObserver&) = delete;

  /// A problem, as it is logged.
  virtual void OnMessage(const BuildMessage& message) = 0;
  /// How far the build has come; a few times a second, and at each step's begin and end.
  virtual void OnProgress(const tools::Progress& progress) = 0;
  /// Whether the files in the output folder may be deleted. The build ends when not.
  [[nodiscard]] virtual bool MayEmptyOutputFolder(const std::string& folder) = 0;
  /// Whether the user wants the build to end. Asked before each file and often within a large one.
  [[nodiscard]] virtual bool IsStopWanted() = 0;
};

}  // namespace engine
