// A finished setup: its script, read, and the place its files come from.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "setup/Archive.h"
#include "setup/ScriptReader.h"

namespace setup {

/// Shared by threads: several may read one at the same time, each with a ContentReader of its own,
/// while nobody changes it.
struct Setup {
  std::string folder;      ///< full path
  std::string scriptPath;  ///< full path
  Plan plan;
  std::vector<Finding> findings;     ///< of the script
  std::size_t furtherFindings = 0;   ///< how many more there are
  std::unique_ptr<Archive> archive;  ///< null when there is none
};

/// Opens the setup in an output folder, or the one of a script. Raises tools::Error that names the
/// file: no setup there, two scripts, a script of another program, an archive that is missing or
/// cannot be read.
[[nodiscard]] Setup OpenSetup(const std::string& path);

/// The path of a file of the setup that is not packaged.
[[nodiscard]] std::string TreePath(const Setup& setup, const PlannedFile& file);

/// The size of a file in bytes; nothing when the setup does not hold it.
[[nodiscard]] std::optional<std::uint64_t> SizeOf(const Setup& setup, const PlannedFile& file);

/// Reads files of a setup, packaged or not. Each thread has its own.
class ContentReader {
 public:
  /// `setup` must outlive this object.
  explicit ContentReader(const Setup& setup);

  /// Gives the file's bytes to `sink`. Raises tools::Error that names the file when it is missing,
  /// damaged, or a link that leads out of the setup.
  void Read(const PlannedFile& file, const ByteSink& sink);

 private:
  void ReadTreeFile(const std::string& path, const ByteSink& sink);

  const Setup& setup_;
  const std::string folder_;  ///< of the setup, without links
  Unpacker unpacker_;
  std::string buffer_;
};

}  // namespace setup
