// Where a setup is made until it is whole: a hidden folder inside the output folder.
//
// The output folder itself is never removed or replaced, only its content: it may be a mounted one,
// or lie in a folder that nobody may write to.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "engine/OutputContent.h"
#include "tools/Error.h"
#include "tools/files/Disk.h"
#include "tools/files/FolderLock.h"
#include "tools/files/TemporaryFiles.h"

namespace engine {

class SetupStage {
 public:
  /// Puts right what killed builds left in an output folder: completes a setup that was moving in,
  /// and moves back one that was being set aside. Removes nothing. Call it before looking at what
  /// the folder holds. Raises tools::Error naming what could not be moved.
  static void Recover(tools::Disk& disk, const tools::FolderClaim& output);

  /// Creates the hidden folder in the output folder, and removes what killed builds left there.
  /// Both references must outlive the stage. Raises tools::Error.
  SetupStage(tools::Disk& disk, const tools::FolderClaim& output);
  /// Removes what was not published.
  ~SetupStage();
  SetupStage(const SetupStage&) = delete;
  SetupStage& operator=(const SetupStage&) = delete;

  /// The folder that the new setup is made in.
  [[nodiscard]] const std::string& Path() const { return new_; }

  /// `text` with the paths that the user knows in place of those in the hidden folder.
  [[nodiscard]] std::string WithUsersPaths(const std::string& text) const;

  /// Takes the old content of the output folder away and moves the new one to its place. `old` is
  /// what may be deleted, as it was seen before the build; null when the folder held no files.
  /// Files that came since are an error. Raises tools::Error naming what stood in the way; the old
  /// content is then back in its place (or the error says where it lies). Returns the error when
  /// the new setup is in its place but some of the old content could not be deleted.
  [[nodiscard]] std::optional<tools::Error> Publish(const OutputContent* old);

 private:
  void Remove() noexcept;
  [[noreturn]] static void FailForNewFile(const std::string& path);
  void SetOldAside(const OutputContent* old, const std::vector<std::string>& newNames);
  void Move(const std::string& from, const std::string& to, const std::string& usersPath);
  /// Returns false when something could not go back.
  bool MoveBack();
  [[nodiscard]] std::string InOutput(const std::string& name) const;

  tools::Disk& disk_;
  const tools::FolderClaim& output_;
  std::optional<tools::HeldTemporary> hold_;  ///< the hidden folder; the next three lie in it
  std::string new_;                           ///< the new setup
  std::string old_;                           ///< the old content, file by file as it is set aside
  std::string replaced_;                      ///< all old content, while the new setup moves in
  bool isKept_ = false;  ///< the old content could not be put back, and is still in the stage
  std::vector<std::pair<std::string, std::string>> moved_;  ///< from and to
};

}  // namespace engine
