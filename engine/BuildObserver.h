// The options of a build, and the interface by which it reports and asks. The observer does the
// printing.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "model/Slots.h"
#include "tools/Progress.h"

namespace engine {

/// How much time an archive may take to become small.
enum class Compression {
  Fast,    ///< for builds that are only tried out
  Normal,  ///< smaller than what common zip programs make, in little more time than Fast
  Small    ///< for setups that many download; takes many times as long
};

/// The one named "fast", "normal" or "small"; nothing for another name.
[[nodiscard]] inline std::optional<Compression> CompressionNamed(std::string_view name) {
  if (name == "fast") return Compression::Fast;
  if (name == "normal") return Compression::Normal;
  if (name == "small") return Compression::Small;
  return std::nullopt;
}

struct BuildOptions {
  std::string folder;           ///< output folder as the user wrote it
  bool packaged = false;        ///< one archive instead of a tree
  bool includeWrapper = false;  ///< the setup wrapper goes beside the script
  bool includeRuntime = false;  ///< and so does the runtime's installer
  bool isConfined = false;      ///< nothing outside the product's folder is read or written
  Compression compression = Compression::Normal;
  /// Packs every file anew; otherwise packed data of an earlier setup in the output folder is taken
  /// over. The archive is the same either way.
  bool isFresh = false;
  int threads = 0;  ///< for packing; 0: one for each processor
};

enum class Severity { Warning, Error };

/// A problem, with its place in the product.
struct BuildMessage {
  Severity severity = Severity::Error;
  std::string text;                    ///< as in the log, without "Warning: " or "ERROR: "
  std::string detail;                  ///< the cause, where the log's text does not hold it
  model::ComponentSlot component = 0;  ///< component slot, 0 when it belongs to none
  std::string componentTitle;
  std::int32_t entry = 0;  ///< entry number in the component, 0 when it belongs to none
  std::string entryId{};   ///< of that entry, where it has one: numbers change when entries go
  std::string userText{};  ///< what a screen shows (German); empty: text and detail
};

/// Gets the reports and questions of a build. Every call comes on the thread that builds. None may
/// raise an error.
class BuildObserver {
 public:
  virtual ~BuildObserver() = default;
  BuildObserver() = default;
  BuildObserver(const BuildObserver&) = delete;
  BuildObserver& operator=(const BuildObserver&) = delete;

  /// A problem, as it is logged.
  virtual void OnMessage(const BuildMessage& message) = 0;
  /// How far the build has come; a few times a second, and at each step's begin and end. Without
  /// totals: what has been found so far, while sources are looked for.
  virtual void OnProgress(const tools::Progress& progress) = 0;
  /// Whether the files in the output folder may be deleted. The build ends when not.
  [[nodiscard]] virtual bool MayEmptyOutputFolder(const std::string& folder) = 0;
  /// Whether the user wants the build to end. Asked before each file and often within a large one.
  [[nodiscard]] virtual bool IsStopWanted() = 0;
};

/// Reports to the observer how far a build has come.
class BuildProgress {
 public:
  /// The references must outlive this object.
  BuildProgress(BuildObserver& observer, const tools::Clock& clock);

  /// Reports what the survey has found so far, unless the last report was a moment ago. Raises
  /// tools::Stopped.
  void Search(const tools::Progress& found);
  /// Sets the totals and reports them at once. Raises tools::Stopped as ThrowIfStopped does.
  void Start(std::uint64_t files, std::uint64_t bytes);
  /// Reports what has been done, unless the last report was a moment ago. Raises tools::Stopped.
  void Report(std::uint64_t files, std::uint64_t bytes);
  /// Reports the last state that Report was given.
  void Finish();
  /// Raises tools::Stopped when the observer wants the build to end. May be called often.
  void ThrowIfStopped();

 private:
  void Tell();

  BuildObserver& observer_;
  tools::ReportPace pace_;
  tools::Progress progress_;
};

}  // namespace engine
