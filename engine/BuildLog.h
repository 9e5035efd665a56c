// The log of one build: every problem is one line, errors are counted.
//
//   Quillon Packwright Build Log
//   Created: <date and time of the start>
//   <empty line>
//   Warning: <text>  or  ERROR: <text>, in the order of logging
//
// Every line ends in CR LF. The text is written as it grows: a log of a million messages costs no
// memory.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "engine/BuildObserver.h"
#include "tools/Clock.h"
#include "tools/files/Disk.h"

namespace engine {

/// Where in the product a problem lies; zeros and empty text for a problem without such a place.
struct Place {
  model::ComponentSlot component = 0;  ///< component slot
  std::string_view componentTitle;     ///< must live as long as this object
  std::int32_t entry = 0;              ///< entry number in the component
  std::string_view entryId{};          ///< must live as long as this object
};

class BuildLog {
 public:
  /// Each message also goes to `observer`. Both must outlive the log. The log is empty.
  BuildLog(const tools::Clock& clock, BuildObserver& observer);

  /// Starts the log anew with its three header lines.
  void BeginBuildLog();
  /// Writes the log, with all that it holds already, to a file that becomes `path`. `disk` must
  /// outlive the log. Raises tools::Error.
  void WriteTo(tools::Disk& disk, const std::string& path);
  /// Ends the file. Raises tools::Error.
  void EndBuildLog();

  // These raise tools::Error when the file cannot be written, or the count overflows.

  // `userText` and `detail`, a cause that the text does not hold, are for the observer alone.

  void LogWarning(std::string_view text, const Place& place, std::string_view userText);
  void LogError(std::string_view text, const Place& place, std::string_view userText,
                std::string_view detail = {});

  [[nodiscard]] std::int32_t ErrorCount() const { return errors_; }
  [[nodiscard]] std::int32_t WarningCount() const { return warnings_; }

 private:
  void Append(std::string_view prefix, std::string_view text);
  void WriteOut();
  void Tell(BuildMessage message, const Place& place);

  const tools::Clock& clock_;
  BuildObserver& observer_;
  std::string unwritten_;  ///< text that is not in the file yet
  std::unique_ptr<tools::ReplacementFile> file_;
  std::int32_t errors_ = 0;
  std::int32_t warnings_ = 0;
};

}  // namespace engine
