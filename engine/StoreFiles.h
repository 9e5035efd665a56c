// The pass of a build that stores every file of the version, and what it stores them in: an archive
// or a folder tree.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/BuildLog.h"
#include "engine/InstallScript.h"
#include "engine/Survey.h"
#include "model/ICFile.h"
#include "tools/Error.h"
#include "tools/archive/ArchiveWriter.h"
#include "tools/files/Files.h"

namespace engine {

/// What became of one file.
struct StoredFile {
  tools::CopyResult copy;  ///< failed: the file is not stored
  std::string name;        ///< the stored name, as the installation script writes it
  std::string replaced;    ///< the source whose copy this one took the place of; mostly empty
};

class FileStore {
 public:
  virtual ~FileStore() = default;
  FileStore() = default;
  FileStore(const FileStore&) = delete;
  FileStore& operator=(const FileStore&) = delete;

  /// Stores one file. A failure is in the result. Raises tools::Stopped.
  [[nodiscard]] virtual StoredFile Store(const model::ICFile& entry,
                                         std::string_view sourcePath) = 0;

  /// What the log calls the place that files are copied to.
  [[nodiscard]] virtual std::string_view PlaceName() const = 0;

  /// Completes the store, after the last file. Returns the error that left it incomplete. Raises
  /// tools::Stopped.
  [[nodiscard]] virtual std::optional<tools::Error> Finish() = 0;

  [[nodiscard]] virtual const tools::ArchiveTotals& Totals() const = 0;
};

/// Stores the files of every surveyed entry in order and records their names. What the survey found
/// wrong is logged when its entry's turn comes, and so are copies that fail. Returns true when a
/// failure came from a full disk.
[[nodiscard]] bool StoreFiles(const Survey& survey, FileStore& store, StoredNameMap& names,
                              BuildLog& log);

}  // namespace engine
