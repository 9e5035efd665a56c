// Where a setup is made until it is whole: a hidden folder inside the output folder.
//
// Inside it, because the output folder itself may be a mounted one, or lie in a folder that nobody
// may write to: it is never removed or replaced. What it holds is.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/Error.h"
#include "tools/files/Disk.h"
#include "tools/files/FolderLock.h"

namespace engine {

class SetupStage {
 public:
  /// Puts right what killed builds left in an output folder: a setup that was moving in goes on
  /// doing so, and one that was being set aside goes back. Removes nothing. Call it before looking
  /// at what the folder holds. Raises tools::Error naming what could not be moved.
  static void Recover(tools::Disk& disk, const std::string& outputFolder);

  /// Creates the output folder where it is missing and the hidden folder in it, and removes the
  /// hidden folders that no running build holds. `disk` must outlive the stage. Raises
  /// tools::Error.
  SetupStage(tools::Disk& disk, std::string outputFolder);
  /// Removes what was not published, and folders made for it that are empty.
  ~SetupStage();
  SetupStage(const SetupStage&) = delete;
  SetupStage& operator=(const SetupStage&) = delete;

  /// The folder that the new setup is made in.
  [[nodiscard]] const std::string& Path() const { return new_; }

  /// `text` with the paths that the user knows instead of those in the hidden folder.
  [[nodiscard]] std::string WithUsersPaths(const std::string& text) const;

  /// Takes the old content of the output folder away and moves the new one to its place. Without
  /// `mayDelete` the old content stays, and it is an error when it holds files. Raises tools::Error
  /// naming what stood in the way; the old content is then back in its place (or the error says
  /// where it lies). Gives the error when the new setup is in its place but some of the old content
  /// could not be deleted.
  [[nodiscard]] std::optional<tools::Error> Publish(bool mayDelete);

 private:
  void SetOldAside(bool mayDelete, const std::vector<std::string>& newNames);
  void Move(const std::string& from, const std::string& to, const std::string& usersPath);
  /// Returns false when something could not go back.
  bool MoveBack();
  [[nodiscard]] std::string InOutput(const std::string& name) const;

  tools::Disk& disk_;
  std::string outputFolder_;
  std::vector<std::string> madeFolders_;   ///< by the constructor, the outermost first
  std::string stage_;                      ///< the hidden folder, and in it
  std::string new_;                        ///< the new setup, and
  std::string old_;                        ///< the old content while it is set aside, and
  std::string replaced_;                   ///< all of it, while the new one moves in
  std::optional<tools::FolderLock> lock_;  ///< tells other builds that the stage is in use
  bool isKept_ = false;  ///< the old content could not be put back, and is still in the stage
  std::vector<std::pair<std::string, std::string>> moved_;  ///< from and to
};

}  // namespace engine
