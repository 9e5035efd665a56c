// What an author does with components that are there: copy them, move them to another version,
// rename them. Adding and deleting is with the versions (ModProjectOperations).
//
// Each operation happens as a whole or not at all, an error or a loss of power in the middle
// included. A component that is no longer what the tree shows (another program changed the product)
// is refused by a message box, and the tree is refreshed. tools::Error of the storage ends an
// operation and reaches the caller.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "model/MainView.h"
#include "model/ModProject.h"
#include "model/TextTable.h"
#include "model/Undo.h"
#include "tools/Dialogs.h"
#include "tools/files/Disk.h"

namespace model {

/// A component by its slots, with the stored texts that the tree was told of it.
struct ShownComponent {
  VersionSlot version = 0;
  ComponentSlot component = 0;
  std::string shownVersion;
  std::string shownTitle;
};

class ComponentOperations {
 public:
  /// The references must outlive this object.
  ComponentOperations(ModProject& project, tools::Disk& disk, tools::Dialogs& dialogs,
                      MainView& view);

  /// The components of a version, ascending. Raises tools::Error.
  [[nodiscard]] std::vector<ShownComponent> ComponentsOf(VersionSlot version) const;

  /// Copies the stored state of the components into a version: sources and settings as they are,
  /// file entries with new GUIDs; where the version has the title already, the copy says that it is
  /// one. One copy takes the first free slot. Several take the first ones of a version without
  /// components, else those behind the last used one. Does nothing for no component.
  void Copy(const std::vector<ShownComponent>& components, VersionSlot toVersion);
  /// Moves a component, as it is, to the first free slot of another version, and returns that slot;
  /// 0 when it was refused, or is in that version already.
  ComponentSlot Move(const ShownComponent& component, VersionSlot toVersion);
  /// Says for the status bar that the components are in a version now.
  [[nodiscard]] std::string WhereText(const std::vector<std::string>& titles,
                                      VersionSlot version) const;
  /// Asks for another title; true when the component has it then.
  bool Rename(const ShownComponent& component);

 private:
  using Lock = tools::SettingsStore::Lock;
  using File = std::shared_ptr<const tools::SettingsFile>;

  /// Releases the lock before it says so.
  [[nodiscard]] bool IsOutdated(const ShownComponent& component, Text caption, Lock& lock);
  [[nodiscard]] std::shared_ptr<tools::SettingsFile> CopyOf(const ShownComponent& component) const;
  [[nodiscard]] std::vector<std::string> TitlesIn(VersionSlot version) const;
  /// `count` slots of a version that hold no component, ascending, not below `first`. Raises
  /// tools::Error where a component that nobody sees is in their way.
  [[nodiscard]] std::vector<ComponentSlot> FreeSlots(VersionSlot version, ComponentSlot first,
                                                     std::size_t count) const;
  void AddOne(VersionSlot version, const tools::SettingsFile& file);
  void AddSeveral(VersionSlot version, const std::vector<File>& files);
  /// Writes the version's component count, to be put back by `undo`.
  void WriteCount(VersionSlot version, std::int32_t count, Undo& undo);
  void WriteComponent(const std::string& path, const tools::SettingsFile& file, Undo& undo);
  void Change(const std::function<void(Undo&)>& steps);

  ModProject& project_;
  tools::Disk& disk_;
  tools::Dialogs& dialogs_;
  MainView& view_;
};

}  // namespace model
