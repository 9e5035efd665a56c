// Files and folders that exist only until they are whole, or until they are removed: how they are
// named, how those in use are told from what a killed program left behind, and private ones.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tools {

/// A new random name in the folder of `target`, hidden where a leading dot hides files. It is
/// short, so that it fits wherever the target's own name does.
[[nodiscard]] std::string TemporaryNameBeside(std::string_view target);
/// True when the file name of `path` is one that TemporaryNameBeside makes.
[[nodiscard]] bool IsTemporaryName(std::string_view path);

/// Marks a temporary file or folder as in use for as long as this object or its process lives: by a
/// lock on it (an open handle on Windows), which the system takes back when the process ends
/// however that happens. On file systems that cannot lock, nothing is marked and nothing is
/// removed.
class TemporaryHold {
 public:
  explicit TemporaryHold(const std::string& path);
  ~TemporaryHold();
  TemporaryHold(const TemporaryHold&) = delete;
  TemporaryHold& operator=(const TemporaryHold&) = delete;

  /// True when another program has taken it for a leftover before it was marked.
  [[nodiscard]] bool IsLost() const { return lost_; }

 private:
  struct Mark;
  std::unique_ptr<Mark> mark_;
  bool lost_ = false;
};

/// A temporary file or folder beside `target`, marked as in use. Its owner renames or removes it;
/// this object never does. A SettingsStore cannot write to a folder that is held: it locks it too.
class HeldTemporary {
 public:
  /// `create` makes the file or folder under the name that it is given, which nothing has yet. It
  /// is called again, with another name, when a program that tidies up was quicker than the mark.
  HeldTemporary(std::string_view target, const std::function<void(const std::string&)>& create);
  /// For what has a temporary name already, because it was renamed to be removed.
  explicit HeldTemporary(std::string path);

  [[nodiscard]] const std::string& Path() const { return path_; }

 private:
  std::string path_;
  std::unique_ptr<TemporaryHold> hold_;
};

/// False while a running program holds `path` (see TemporaryHold), or when it cannot be opened to
/// find out; what cannot be locked counts as nobody's. For callers who keep others from
/// taking hold of it meanwhile.
[[nodiscard]] bool IsOwnerGone(const std::string& path);
/// Removes the temporary files and folders in `folder` that have such a name, belong to this user,
/// and whose process has ended. What cannot be removed stays, for the next time.
void RemoveLeftovers(const std::string& folder) noexcept;

/// The system's part of RemoveLeftovers: calls `remove` when `path` belongs to this user and to no
/// running program.
void RemoveIfOwnerIsGone(const std::string& path, void (*remove)(const std::string&));

}  // namespace tools
