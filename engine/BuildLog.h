// The log of one build: every problem is one line, errors are counted.
//
//   Quillon Packwright Build Log
//   Created: <date and time of the start>
//   <empty line>
//   Warning: <text>  or  ERROR: <text>, in the order of logging
//
// Every line ends in CR LF. The build writes the text to "build.log" at its end.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/BuildObserver.h"
#include "tools/Clock.h"

namespace engine {

/// Where in the product a problem lies; zeros and empty text where it has no place there.
struct Place {
  std::int32_t component = 0;       ///< component slot
  std::string_view componentTitle;  ///< must live as long as this object
  std::int32_t entry = 0;           ///< entry number in the component
};

class BuildLog {
 public:
  /// Each message also goes to `observer`. Both must outlive the log. The log is empty.
  BuildLog(const tools::Clock& clock, BuildObserver& observer);

  /// Starts the log anew with its three header lines.
  void BeginBuildLog();
  void LogWarning(std::string_view text, const Place& place = {});
  /// `detail` is for the observer alone: a cause that the text does not hold. Raises tools::Error
  /// when the count overflows.
  void LogError(std::string_view text, const Place& place = {}, std::string_view detail = {});

  [[nodiscard]] const std::string& Text() const { return text_; }
  [[nodiscard]] std::int32_t ErrorCount() const { return errors_; }
  [[nodiscard]] std::int32_t WarningCount() const { return warnings_; }

 private:
  void Append(std::string_view prefix, std::string_view text);
  void Tell(Severity severity, std::string_view text, const Place& place, std::string_view detail);

  const tools::Clock& clock_;
  BuildObserver& observer_;
  std::string text_;
  std::int32_t errors_ = 0;
  std::int32_t warnings_ = 0;
};

}  // namespace engine
