// Reads an installation script as the runtime does, into a plan of what it installs.
//
// The language is exactly that of the scripts that Packwright writes. A line that is anything else
// is a finding, and so is one in a place where it cannot stand; reading goes on behind it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "setup/Plan.h"
#include "setup/ScriptStatement.h"

namespace setup {

/// The longest line that is read, in bytes.
inline constexpr std::size_t kLongestScriptLine = 64 * 1024;
/// The largest script that is read, in bytes; 100,000 files make about 60 MB.
inline constexpr std::uint64_t kLargestScript = std::uint64_t{512} << 20U;
/// So many findings are kept; the rest is counted.
inline constexpr std::size_t kKeptFindings = 1000;

struct ScriptReading {
  Plan plan;
  std::vector<Finding> findings;
  std::size_t furtherFindings = 0;  ///< those that were not kept
};

/// Takes a script line by line. Never fails, whatever the lines hold.
class ScriptReader {
 public:
  /// `path` names the script in findings.
  explicit ScriptReader(std::string path);

  /// True when a script's first line says that Packwright wrote it.
  [[nodiscard]] static bool IsFirstLine(std::string_view line);

  /// The next line, without its line end.
  void Line(std::string_view line);
  /// After the last line. The reader is used up.
  [[nodiscard]] ScriptReading Finish();

 private:
  /// The block that the next line belongs to.
  enum class Block {
    Outside,     ///< before Sub and behind End Sub
    Main,        ///< inside Sub
    Ask,         ///< for a user who declines
    Extract,     ///< for a file that was unpacked
    Install,     ///< for a file that could not be installed
    Installed,   ///< the Else of that
    Unreadable,  ///< of an If that cannot be read: its lines are read one by one
  };
  using Kind = Statement::Kind;

  void Report(std::string text);
  void Misplaced();
  void HeadLine(std::string_view line);
  void Comment(std::string_view comment);
  void Accept(const Statement& statement);
  void Perform(const Statement& statement);
  [[nodiscard]] bool MayStandHere(Kind kind) const;
  /// True inside Extract behind the file that is installed from it.
  [[nodiscard]] bool HoldsUnpackedFile() const;
  void BeginAsk(const Statement& statement);
  void BeginExtract(const Statement& statement);
  void BeginInstall(const Statement& statement);
  void TakeSource(std::string_view source);
  void EndBlock();
  void EndFile();
  void Cancel(std::string_view reason);
  void Register(const Statement& statement);
  void ProposeFolder(std::string_view path);
  void SelfRegister(std::string_view path);
  void DeleteTemporary(std::string_view path);

  std::string path_;
  ScriptReading reading_;
  std::uint32_t line_ = 0;
  std::vector<Block> blocks_{Block::Outside};
  bool ended_ = false;

  std::string extractedTo_;         ///< inside Extract: the unpacked file
  std::string member_;              ///< and its name in the archive
  std::size_t firstOfExtract_ = 0;  ///< number of files before it
  bool unreadableInExtract_ = false;
  std::string titleOfKey_;  ///< of SetAppKey
  PlannedFile file_;        ///< inside Install and Installed
  FailureText failure_;     ///< of it
};

/// Reads the script file. Raises tools::Error that names it when it cannot be read, has an endless
/// line or was not written by Packwright.
[[nodiscard]] ScriptReading ReadScript(const std::string& path);

}  // namespace setup
