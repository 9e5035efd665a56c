// Writes the installation script of a setup, line by line, in the Tessel script language. The
// runtime executes it on the user's machine: it asks for confirmation, registers the product, lets
// the user pick a folder, and unpacks and installs each file.
//
// Values are inserted as they are: a quotation mark in one is neither escaped nor doubled. Paths in
// a script use "\" whatever machine writes it; "%name%" macros in them are the runtime's.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <initializer_list>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>

#include "engine/Survey.h"
#include "model/ICFile.h"
#include "tools/Versions.h"
#include "tools/files/Disk.h"

namespace engine {

/// Everything after the last "\" of a path in a script.
[[nodiscard]] constexpr std::string_view ScriptFileName(std::string_view path) {
  return path.substr(path.find_last_of('\\') + 1);
}

/// What follows the last "." of the file name; empty when there is none.
[[nodiscard]] constexpr std::string_view ScriptExtension(std::string_view path) {
  const std::string_view name = ScriptFileName(path);
  const std::size_t dot = name.find_last_of('.');
  return dot == std::string_view::npos ? std::string_view{} : name.substr(dot + 1);
}

/// What the script says of the setup as a whole.
struct ScriptHead {
  bool packaged = true;  ///< the files come out of an archive named after the product
  int year = 0;
  std::string author;
  tools::Version toolVersion;
  std::string productTitle;
  std::string catalogueKey{};  ///< empty leaves the registration out
  std::string catalogueTitle{};
  std::string catalogueType{};  ///< written without quotes
};

/// Where an entry's file is installed: the entry's folder macro (or custom path) and subfolder, and
/// its target name or else the file name of `sourcePath`.
[[nodiscard]] std::string ScriptTarget(const model::ICFile& entry, std::string_view sourcePath);

class InstallScript {
 public:
  /// Receives the script's text in pieces of any length.
  using Sink = std::function<void(std::string_view text)>;

  InstallScript(Sink sink, ScriptHead head);

  /// Everything up to the selection of the installation folder.
  void Begin();
  void BeginComponent(std::string_view title);
  /// The statements that install the file stored as `storedName` from `sourcePath`.
  void AddFile(const model::ICFile& entry, std::string_view sourcePath,
               std::string_view storedName);
  void EndComponent();
  /// The script's last lines.
  void End();

 private:
  /// A million files have ten million lines: they are given in parts, not put together first.
  void WriteScriptLine(std::initializer_list<std::string_view> parts);
  void WriteScriptLine(std::string_view line) { WriteScriptLine({line}); }
  void WriteRegistration();
  void WriteFailure(const model::ICFile& entry, const std::string& target);

  Sink sink_;
  ScriptHead head_;
  std::string notInstalled_;  ///< texts that every file's statements have
  std::string errorCaption_;
  std::string failed_;
};

/// Stored names by entry ID and source path: a folder scan stores many files for one ID, and one
/// file can be stored for several entries. Recorded and read in the order of the survey, so that a
/// name takes little more than its own bytes; only IDs that several entries share are looked up.
class StoredNameMap {
 public:
  /// For the files of `survey`, which must outlive the map.
  explicit StoredNameMap(const Survey& survey);

  /// Records the name of the next file. Returns false, and keeps the first name, when one is
  /// recorded for this ID and path already.
  bool Record(std::string_view id, std::string_view sourcePath, std::string_view storedName);
  /// The next file is not stored.
  void RecordNone() { Append({}); }

  /// Reads the names from the first file on.
  class Reader {
   public:
    /// `names` must outlive the reader, and gets no more names meanwhile.
    explicit Reader(const StoredNameMap& names) : names_(names) {}
    /// The name recorded for the next file; empty when there is none.
    [[nodiscard]] std::string_view Next(std::string_view id, std::string_view sourcePath);

   private:
    const StoredNameMap& names_;
    std::size_t part_ = 0;
    std::size_t offset_ = 0;  ///< in that part
  };

 private:
  void Append(std::string_view name);

  /// A NUL behind each name; empty for files without one, and for those of shared IDs. In parts,
  /// since one text would take its size once more whenever it grows.
  std::deque<std::string> parts_;
  std::set<std::string_view> sharedIds_;
  std::unordered_map<std::string, std::string> sharedNames_;  ///< by ID and source path
};

/// Writes the script of what was stored: creates or replaces the file at `path`. Files without a
/// stored name get no statement. The text goes to disk as it grows: a large product's script is
/// larger than the rest of a build's memory. Raises tools::Error; the path is then as it was.
void WriteInstallScript(tools::Disk& disk, const std::string& path, ScriptHead head,
                        const Survey& survey, const StoredNameMap& names);

}  // namespace engine
