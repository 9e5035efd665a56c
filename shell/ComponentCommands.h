// The commands on components that are there: copy, cut, paste, rename, take over from another
// version; as items of the nodes' menus, by key, and by drag and drop in the tree.
#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "model/ComponentOperations.h"
#include "model/ModProject.h"
#include "model/ModProjectOperations.h"
#include "shell/ProjectTree.h"
#include "tools/Dialogs.h"

class QAction;
class QMenu;
class QMimeData;
class QWidget;

namespace shell {

/// The clipboard holds what was copied as text (the titles) and in a form of the program's own, so
/// that a second window with the same product can paste it.
class ComponentCommands : public QObject {
  Q_OBJECT

 public:
  struct Services {
    model::ModProject& project;
    model::ModProjectOperations& operations;
    model::ComponentOperations& components;
    tools::Dialogs& dialogs;
    /// Closes the open pages, offering their changes; false when some stay.
    std::function<bool()> closePages;
    /// Selects a node where it is visible, and opens the pages of the selected one.
    std::function<void(const Node& node)> openNode;
    std::function<void(const std::string& text)> showStatus;
  };

  /// `tree` and what the services refer to must outlive this object.
  ComponentCommands(ProjectTree& tree, Services services);

  /// Adds the items to the end of the menus, below a separator.
  void AddTo(QMenu& versionMenu, QMenu& componentMenu);

  /// Lets the author choose another version, whose components are then copied into this one.
  void TakeOver(model::VersionSlot version);

 private:
  QAction* AddItem(const char* name, model::Text text, const QKeySequence& shortcut,
                   std::function<void()> command);
  /// Those that would do nothing now are disabled.
  void EnableUsableItems();
  void EnableAllItems();
  void PutOnClipboard(Transfer transfer);
  void Paste();
  void Rename();
  /// Gives a component that is on the clipboard the title that it has now.
  void RenameOnClipboard(const model::ShownComponent& before);
  void ShowSelectedNode();
  [[nodiscard]] bool IsTitleOfSeveral(const std::string& title, model::VersionSlot version) const;
  /// Copies or moves into the version of `target`.
  void Place(const std::vector<model::ShownComponent>& components, Transfer transfer,
             const Node& target);
  /// The selected component, or those of the selected version.
  [[nodiscard]] std::vector<model::ShownComponent> Selected() const;
  [[nodiscard]] QMimeData* Pack(const std::vector<model::ShownComponent>& components,
                                Transfer transfer) const;
  /// What the clipboard holds of the open product; `transfer` gets what is to be done with it.
  [[nodiscard]] std::vector<model::ShownComponent> OnClipboard(Transfer* transfer = nullptr) const;

  ProjectTree& tree_;
  Services services_;
  QAction* mnuCopy;
  QAction* mnuCut;
  QAction* mnuPaste;
  QAction* mnuRename;
  QAction* mnuTakeOver;
};

}  // namespace shell
