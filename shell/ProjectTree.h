// The tree of the open product: the product, its versions and their components.
#pragma once

#include <QTreeWidget>

#include "model/ModProject.h"
#include "shell/ErrorList.h"
#include "shell/IconList.h"
#include "shell/NodeKey.h"
#include "tools/desktop/PopUpMenu.h"

namespace shell {

/// What the product held when a node was shown.
struct ShownTexts {
  std::string version;    ///< the version's text
  std::string component;  ///< the component's title, empty for a version
};

/// What happens to a component that goes into another version.
enum class Transfer { Copy, Move };

/// A click beside the nodes leaves the selected one selected. Pressing the right button does not
/// select: the menu belongs to the node that is selected already, wherever the pointer is.
class ProjectTree : public QTreeWidget {
  Q_OBJECT

 public:
  explicit ProjectTree(QWidget* parent);

  /// Shows the product's nodes as they are in its files: its own node and that of `latestVersion`
  /// expanded, the node that was selected still selected where it is visible. Empties the tree when
  /// no product is open. A file that cannot be read leaves out only its own nodes, and is added
  /// to `errors`.
  void Fill(const model::ModProject& project, model::VersionSlot latestVersion, ErrorList& errors);
  /// Changes the product node's text.
  void SetProductTitle(const std::string& title);
  /// Selects that node; those above it stay folded.
  void Select(const Node& node);
  /// Marks that node alone as one with unsaved changes; a default node: none.
  void MarkChanged(const Node& node);

  /// Selects a node and unfolds those above it, without a click; false when there is no such node.
  bool SelectNode(const Node& node);
  /// The selected node; the default one when none is.
  [[nodiscard]] Node SelectedNode() const;
  [[nodiscard]] bool HasChildren(const Node& node) const;
  /// The stored texts that the selected version or component was shown with.
  [[nodiscard]] ShownTexts SelectedTexts() const { return TextsOf(SelectedNode()); }
  /// Those of a node; both empty where the tree does not show it.
  [[nodiscard]] ShownTexts TextsOf(const Node& node) const;

 Q_SIGNALS:
  /// The user clicked a node, also one selected already, or selected another by key or by
  /// collapsing a node above the selected one.
  void NodeClicked();
  /// The user asked for the selected node's menu.
  void MenuWanted(const QPoint& globalPosition, tools::OpenedBy by);
  void PointerMoved();
  /// The user has dragged a component onto a version, or onto a component of it. Comes when the
  /// drag is over.
  void ComponentDropped(const shell::Node& component, const shell::Node& target,
                        shell::Transfer transfer);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(
      const QModelIndex& index, const QEvent* event) const override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void startDrag(Qt::DropActions supportedActions) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

 private:
  [[nodiscard]] QTreeWidgetItem* SelectedItem() const;
  [[nodiscard]] QTreeWidgetItem* MakeItem(const Node& node, const std::string& text) const;
  void AddComponents(const model::ModProject& project, model::VersionSlot version,
                     QTreeWidgetItem& parent, ErrorList& errors) const;
  [[nodiscard]] QTreeWidgetItem* Find(const Node& node) const;
  [[nodiscard]] const QIcon& IconOf(const Node& node) const;
  /// Shows whether the item's node is the marked one.
  void ShowMark(QTreeWidgetItem& item) const;
  void SelectInsteadOfHidden(QTreeWidgetItem* collapsed);
  void ShowMenuAtSelection();
  [[nodiscard]] static Node DraggedNode(const QDropEvent& event);
  [[nodiscard]] static bool IsCopy(const QDropEvent& event);
  /// The node that a drop would act on; a default one when there is none.
  [[nodiscard]] Node DropTarget(const QDropEvent& event) const;
  /// Frames the version that a drop would reach; a default node: none.
  void FrameVersion(const Node& version);

  QIcon productIcon_;
  QIcon versionIcon_;
  QIcon componentIcon_;
  bool itemClicked_ = false;  ///< in the mouse event that is being handled
  Node nodeAtPress_;          ///< selected when the mouse button went down
  Node marked_;
  Node framed_;
};

}  // namespace shell
