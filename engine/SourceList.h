// From an entry to the files it stands for.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "engine/BuildObserver.h"
#include "model/ICFile.h"

namespace engine {

/// Why an entry does not stand for all the files it should.
enum class SourceFault {
  Value,       ///< one of its values cannot be read
  Missing,     ///< a single file that is not there
  NoMatch,     ///< a folder scan that finds nothing
  Unreadable,  ///< a folder of a scan that cannot be read
  DeadLink,    ///< a link in a scan that leads nowhere
  FolderLink,  ///< a link to a folder in a scan: it is not followed
  Special,     ///< something in a scan that is no file: a pipe, device or socket
  Name,        ///< a file whose name holds a control character
  Type,        ///< its type is neither a single file nor a folder scan
};

/// A problem that is found before anything is built; the log gets it when the build reaches its
/// entry.
struct SurveyProblem {
  SourceFault fault = SourceFault::Value;
  Severity severity = Severity::Error;
  std::string logText;   ///< as the log tells it
  std::string userText;  ///< the same for the screen (German)
  std::string detail{};  ///< a cause that the log's text does not hold
};

struct SourceList {
  std::vector<std::string> paths;  ///< full paths, in the order of installation
  std::vector<std::string> links;  ///< of a folder scan: a superset of the links among `paths`
  std::vector<SurveyProblem> problems;
};

/// Called often; may raise an error to stop.
using SurveyStep = std::function<void()>;

/// Where sources are looked for.
struct SourceScope {
  std::string productFolder;  ///< relative source folders are taken from it
  /// Scans pass over this folder and what lies in it; empty: none.
  std::string outputFolder;
  /// Called before each entry of the version, each file, and each entry of a folder while a scan
  /// lists it.
  SurveyStep step{};
  /// Called once for each entry of such a folder, before `step`: for counting.
  SurveyStep listed{};
};

/// The entry's source folder; a relative one is taken from the product's folder.
[[nodiscard]] std::string SourceFolderOf(const model::ICFile& entry,
                                         const std::string& productFolder);

/// A single file gives its path, a folder scan every file it finds, any other type nothing.
[[nodiscard]] SourceList ListSources(const model::ICFile& entry, const SourceScope& scope);

}  // namespace engine
