// Writes the installation script of a setup, line by line, in the Tessel script language. The
// runtime executes it on the user's machine: it asks for confirmation, registers the product, lets
// the user pick a folder, and unpacks and installs each file.
//
// Values are inserted as they are: a quotation mark in one is neither escaped nor doubled. Paths in
// a script use "\" whatever machine writes it; "%name%" macros in them are the runtime's.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "model/ICFile.h"
#include "tools/Versions.h"

namespace engine {

/// What the script's head is made from.
struct ScriptHead {
  int year = 0;
  std::string author;
  tools::Version toolVersion;
  std::string productTitle;
  std::string catalogueKey;  ///< empty leaves the registration out
  std::string catalogueTitle;
  std::string catalogueType;  ///< written without quotes
};

/// Where an entry's file is installed: the entry's folder macro (or custom path) and subfolder, and
/// its target name or else the file name of `sourcePath`.
[[nodiscard]] std::string ScriptTarget(const model::ICFile& entry, std::string_view sourcePath);

class InstallScript {
 public:
  /// Receives the script's text in pieces of any length.
  using Sink = std::function<void(std::string_view text)>;

  /// `packaged`: the files come out of an archive named after the product.
  InstallScript(Sink sink, ScriptHead head, bool packaged);

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
  void WriteScriptLine(std::string_view line);
  void WriteRegistration();
  void WriteFailure(const model::ICFile& entry, const std::string& target);

  Sink sink_;
  ScriptHead head_;
  bool packaged_;
};

}  // namespace engine
