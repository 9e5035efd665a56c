// What a build tells its observer as it goes on; printing lives with the observer.
#pragma once

#include <cstdint>
#include <string>

#include "tools/Dialogs.h"

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

/// How a build ended.
enum class BuildOutcome {
  Finished,             ///< reached its end; problems are in the log
  InvalidOutputFolder,  ///< refused: the output folder is invalid
  OutputFolderInUse,    ///< refused: it holds files and the user kept them
  OutputFolderStuck,    ///< stopped: its old content could not be taken away, or not all of it
  Incomplete,           ///< stopped: files of the setup are missing, and the old one was kept
};

struct BuildSummary {
  BuildOutcome outcome = BuildOutcome::Finished;
  std::string reason;  ///< why a build that did not reach its end was refused or stopped (German)
  std::string outputFolder;
  std::uint64_t files = 0;     ///< files stored
  std::uint64_t bytesIn = 0;   ///< their size
  std::uint64_t bytesOut = 0;  ///< the archive's size, or the copies' size when not packaged
  std::int32_t warnings = 0;
  std::int32_t errors = 0;
  bool diskFull = false;  ///< some failure came from a full disk
};

/// Every call comes on the caller's own thread. Any of them may raise an error to stop the build;
/// what the build made for itself is then tidied up.
class BuildStatus {
 public:
  virtual ~BuildStatus() = default;
  BuildStatus() = default;
  BuildStatus(const BuildStatus&) = delete;
  BuildStatus& operator=(const BuildStatus&) = delete;

  virtual void OnMessage(const BuildMessage& message) = 0;
  /// While the files are still being looked for, `filesTotal` is 0.
  virtual void OnProgress(const tools::Progress& progress) = 0;
  /// The last call of a build that was not ended by an error.
  virtual void OnEnd(const BuildSummary& summary) = 0;
};

}  // namespace engine
