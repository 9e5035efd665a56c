#include "shell/ProjectTree.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QDrag>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QTreeWidgetItemIterator>
#include <memory>
#include <utility>

#include "model/TextTable.h"
#include "shell/IconList.h"
#include "tools/desktop/QtText.h"
#include "tools/files/Path.h"

namespace shell {

using model::Text;

namespace {

constexpr int kKeyRole = Qt::UserRole;
constexpr int kTagRole = Qt::UserRole + 1;
constexpr int kStoredRole = Qt::UserRole + 2;  ///< the stored text, bytes that no screen shows too

Node NodeOf(const QTreeWidgetItem* item) {
  if (item == nullptr) return {};
  return {tools::ToUtf8(item->data(0, kTagRole).toString()),
          tools::ToUtf8(item->data(0, kKeyRole).toString())};
}

std::string StoredTextOf(const QTreeWidgetItem* item) {
  return item == nullptr ? std::string() : item->data(0, kStoredRole).toByteArray().toStdString();
}

/// Of this process alone: the nodes of another one are not those of this tree.
QString DragFormat() {
  return QStringLiteral("application/x-packwright-node-%1").arg(QCoreApplication::applicationPid());
}

bool IsArrowKey(int key) {
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Left || key == Qt::Key_Right ||
         key == Qt::Key_Home || key == Qt::Key_End;
}

}  // namespace

ProjectTree::ProjectTree(QWidget* parent) : QTreeWidget(parent) {
  const IconList icons;
  productIcon_ = icons.Icon(tools::ToQString(kProductTag));
  versionIcon_ = icons.Icon(tools::ToQString(kVersionTag));
  componentIcon_ = icons.Icon(tools::ToQString(kComponentTag));
  setHeaderHidden(true);
  setUniformRowHeights(true);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setMouseTracking(true);
  setDragEnabled(true);
  setAcceptDrops(true);
  setDropIndicatorShown(false);
  connect(this, &QTreeWidget::itemClicked, this, [this] { itemClicked_ = true; });
  connect(this, &QTreeWidget::itemCollapsed, this, &ProjectTree::SelectInsteadOfHidden);
}

QTreeWidgetItem* ProjectTree::SelectedItem() const {
  const QList<QTreeWidgetItem*> selected = selectedItems();
  return selected.isEmpty() ? nullptr : selected.front();
}

Node ProjectTree::SelectedNode() const { return NodeOf(SelectedItem()); }

ShownTexts ProjectTree::TextsOf(const Node& node) const {
  const QTreeWidgetItem* item = Find(node);
  if (item == nullptr || node.tag != kComponentTag) return {StoredTextOf(item), {}};
  return {StoredTextOf(item->parent()), StoredTextOf(item)};
}

QTreeWidgetItem* ProjectTree::MakeItem(const Node& node, const std::string& text) const {
  auto* item = new QTreeWidgetItem;
  item->setText(0, tools::ToQString(text));
  item->setData(0, kKeyRole, tools::ToQString(node.key));
  item->setData(0, kTagRole, tools::ToQString(node.tag));
  item->setIcon(0, IconOf(node));
  item->setFlags(node.tag == kComponentTag ? item->flags() | Qt::ItemIsDragEnabled
                                           : item->flags() & ~Qt::ItemIsDragEnabled);
  if (node == marked_) ShowMark(*item);
  return item;
}

const QIcon& ProjectTree::IconOf(const Node& node) const {
  return node.tag == kProductTag   ? productIcon_
         : node.tag == kVersionTag ? versionIcon_
                                   : componentIcon_;
}

void ProjectTree::ShowMark(QTreeWidgetItem& item) const {
  const Node node = NodeOf(&item);
  const bool marked = node == marked_;
  const QIcon& icon = IconOf(node);
  item.setIcon(0, marked ? WithChangeMark(icon) : icon);
  item.setData(0, Qt::AccessibleDescriptionRole,
               marked ? tools::ToQString(model::LoadText(Text::Changed)) : QVariant());
}

void ProjectTree::MarkChanged(const Node& node) {
  if (node == marked_) return;
  for (const Node& each : {std::exchange(marked_, node), node}) {
    if (QTreeWidgetItem* item = Find(each)) ShowMark(*item);
  }
}

void ProjectTree::AddComponents(const model::ModProject& project, model::VersionSlot version,
                                QTreeWidgetItem& parent, ErrorList& errors) const {
  std::vector<model::ComponentSlot> slots;
  errors.Try([&] { slots = project.PossibleComponentSlots(version); });
  QList<QTreeWidgetItem*> items;
  for (const model::ComponentSlot slot : slots) {
    errors.Try([&] {
      const std::string title = project.ComponentTitle(version, slot);
      if (title.empty()) return;
      items.append(MakeItem(ComponentNode(version, slot), title));
      items.back()->setData(0, kStoredRole, QByteArray::fromStdString(title));
    });
  }
  parent.addChildren(items);
}

void ProjectTree::Fill(const model::ModProject& project, model::VersionSlot latestVersion,
                       ErrorList& errors) {
  const Node selected = SelectedNode();
  clear();
  if (!project.IsOpen()) return;
  std::string title = tools::FileNamePart(project.ProductPath());
  std::vector<model::VersionSlot> versions;
  errors.Try([&] { title = project.ProductTitle(); });
  errors.Try([&] { versions = project.VersionSlots(); });
  // All nodes are made before the tree gets them: each one added to a tree on the screen costs a
  // layout, and a version whose reading fails must not leave half a tree.
  std::unique_ptr<QTreeWidgetItem> product(MakeItem(ProductNode(), title));
  QTreeWidgetItem* latest = nullptr;
  for (const model::VersionSlot slot : versions) {
    const std::string text = project.VersionString(slot);
    QTreeWidgetItem* version =
        MakeItem(VersionNode(slot), model::LoadText(Text::Version) + " " + text);
    version->setData(0, kStoredRole, QByteArray::fromStdString(text));
    product->addChild(version);
    if (slot == latestVersion) latest = version;
    AddComponents(project, slot, *version, errors);
  }
  addTopLevelItem(product.get());
  product.release()->setExpanded(true);
  if (latest != nullptr) latest->setExpanded(true);
  Select(selected);
}

void ProjectTree::SetProductTitle(const std::string& title) {
  if (topLevelItemCount() > 0) topLevelItem(0)->setText(0, tools::ToQString(title));
}

bool ProjectTree::HasChildren(const Node& node) const {
  const QTreeWidgetItem* item = Find(node);
  return item != nullptr && item->childCount() > 0;
}

QTreeWidgetItem* ProjectTree::Find(const Node& node) const {
  if (node.key.empty()) return nullptr;
  // The iterator takes no constant tree.
  for (QTreeWidgetItemIterator item(topLevelItem(0)); *item != nullptr; ++item) {
    if (NodeOf(*item) == node) return *item;
  }
  return nullptr;
}

bool ProjectTree::SelectNode(const Node& node) {
  QTreeWidgetItem* item = Find(node);
  if (item == nullptr) return false;
  setCurrentItem(item);
  scrollToItem(item);  // expands those above it, of a node too that was selected while hidden
  return true;
}

void ProjectTree::Select(const Node& node) {
  QTreeWidgetItem* item = Find(node);
  if (item == nullptr) return;
  // To scroll to a hidden node would expand those above it.
  const QTreeWidgetItem* parent = item->parent();
  setAutoScroll(parent == nullptr || parent->isExpanded());
  setCurrentItem(item);
  setAutoScroll(true);
}

void ProjectTree::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::RightButton) {
    if (SelectedItem() != nullptr) {
      Q_EMIT MenuWanted(event->globalPosition().toPoint(), tools::OpenedBy::Mouse);
    }
    return;
  }
  // Any other button would select a node without its pages.
  if (event->button() != Qt::LeftButton) return;
  nodeAtPress_ = SelectedNode();
  QTreeWidget::mousePressEvent(event);
}

// The click counts when the button goes up: whatever it opens then finds the mouse free.
void ProjectTree::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  // Qt tells of a click on a node (itemClicked), one that is selected already too, and of none
  // where the click only folded a node; that can have moved the selection all the same.
  itemClicked_ = false;
  QTreeWidget::mouseReleaseEvent(event);
  const Node before = std::exchange(nodeAtPress_, SelectedNode());
  if (itemClicked_ || nodeAtPress_ != before) Q_EMIT NodeClicked();
}

void ProjectTree::mouseMoveEvent(QMouseEvent* event) {
  Q_EMIT PointerMoved();
  QTreeWidget::mouseMoveEvent(event);
}

void ProjectTree::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
    ShowMenuAtSelection();
    return;
  }
  const Node before = SelectedNode();
  // The view would go on from the first node if the selected one cannot be seen.
  if (IsArrowKey(event->key())) SelectNode(before);
  // Getting the focus makes the first node the current one without selecting it: an arrow key would
  // go on from there.
  if (before.key.empty() && IsArrowKey(event->key()) && topLevelItemCount() > 0) {
    setCurrentItem(topLevelItem(0));
  } else {
    QTreeWidget::keyPressEvent(event);
  }
  if (SelectedNode() != before) Q_EMIT NodeClicked();
}

// Without a node the editor would have no pages: neither Ctrl nor a click beside the nodes
// deselects.
QItemSelectionModel::SelectionFlags ProjectTree::selectionCommand(const QModelIndex& index,
                                                                  const QEvent* /*event*/) const {
  return index.isValid() ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                         : QItemSelectionModel::NoUpdate;
}

void ProjectTree::contextMenuEvent(QContextMenuEvent* event) {
  // The mouse has its own rule, above.
  if (event->reason() == QContextMenuEvent::Keyboard) ShowMenuAtSelection();
}

// The mouse or key event that collapses a node finds another one selected in its end, and tells.
void ProjectTree::SelectInsteadOfHidden(QTreeWidgetItem* collapsed) {
  const QTreeWidgetItem* selected = SelectedItem();
  if (selected == nullptr) return;
  for (const auto* above = selected->parent(); above != nullptr; above = above->parent()) {
    if (above == collapsed) setCurrentItem(collapsed);
  }
}

// The button that starts a drag does not come up over the tree: the node that the pages belong to
// stays the selected one. Nothing is removed at the end, as the view's own drag would.
void ProjectTree::startDrag(Qt::DropActions /*supportedActions*/) {
  const Node dragged = SelectedNode();
  if (dragged.tag != kComponentTag) return;
  if (nodeAtPress_.key.empty()) {
    setCurrentItem(nullptr);
  } else {
    Select(nodeAtPress_);
  }
  auto* drag = new QDrag(this);
  auto* content = new QMimeData;
  content->setData(DragFormat(), QByteArray::fromStdString(dragged.key));
  drag->setMimeData(content);
  drag->setPixmap(componentIcon_.pixmap(iconSize().isValid() ? iconSize() : QSize(24, 24)));
  drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
  setState(NoState);
}

void ProjectTree::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasFormat(DragFormat())) {
    event->acceptProposedAction();
  } else {
    event->ignore();
  }
}

void ProjectTree::dragMoveEvent(QDragMoveEvent* event) {
  QTreeWidget::dragMoveEvent(event);  // scrolls at the edges
  const Node target = DropTarget(*event);
  if (target.key.empty()) {
    FrameVersion({});
    event->ignore();
  } else {
    FrameVersion(VersionNode(SlotsOf(target).version));
    event->setDropAction(IsCopy(*event) ? Qt::CopyAction : Qt::MoveAction);
    event->accept();
  }
}

void ProjectTree::dragLeaveEvent(QDragLeaveEvent* event) {
  FrameVersion({});
  QTreeWidget::dragLeaveEvent(event);
}

void ProjectTree::FrameVersion(const Node& version) {
  framed_ = version;
  viewport()->update();
}

void ProjectTree::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  QTreeWidget::drawRow(painter, option, index);
  if (framed_.key.empty() || NodeOf(itemFromIndex(index)) != framed_) return;
  painter->save();
  painter->setPen(palette().color(QPalette::Text));
  painter->drawRect(visualRect(index).adjusted(0, 0, -1, -1));
  painter->restore();
}

void ProjectTree::dropEvent(QDropEvent* event) {
  FrameVersion({});
  const Node target = DropTarget(*event);
  if (target.key.empty()) {
    event->ignore();
    return;
  }
  const auto transfer = IsCopy(*event) ? Transfer::Copy : Transfer::Move;
  event->setDropAction(Qt::CopyAction);
  event->accept();
  // What it asks and shows must not run within the drag.
  QMetaObject::invokeMethod(
      this,
      [this, dragged = DraggedNode(*event), target, transfer] {
        Q_EMIT ComponentDropped(dragged, target, transfer);
      },
      Qt::QueuedConnection);
}

bool ProjectTree::IsCopy(const QDropEvent& event) {
  return event.modifiers().testFlag(Qt::ControlModifier);
}

Node ProjectTree::DropTarget(const QDropEvent& event) const {
  const Node target = NodeOf(itemAt(event.position().toPoint()));
  const model::VersionSlot version = SlotsOf(target).version;
  if (version == 0) return {};
  return IsCopy(event) || version != SlotsOf(DraggedNode(event)).version ? target : Node();
}

Node ProjectTree::DraggedNode(const QDropEvent& event) {
  return {std::string(kComponentTag), event.mimeData()->data(DragFormat()).toStdString()};
}

void ProjectTree::ShowMenuAtSelection() {
  const QTreeWidgetItem* item = SelectedItem();
  if (item == nullptr) return;
  const QRect area = visualItemRect(item).intersected(viewport()->rect());
  const QPoint corner = area.isNull() ? QPoint() : area.bottomLeft();
  Q_EMIT MenuWanted(viewport()->mapToGlobal(corner), tools::OpenedBy::Key);
}

}  // namespace shell
