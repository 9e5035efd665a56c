#include "shell/ProjectTree.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTreeWidgetItemIterator>
#include <memory>
#include <utility>

#include "model/TextTable.h"
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
  connect(this, &QTreeWidget::itemClicked, this, [this] { itemClicked_ = true; });
  connect(this, &QTreeWidget::itemCollapsed, this, &ProjectTree::SelectInsteadOfHidden);
}

QTreeWidgetItem* ProjectTree::SelectedItem() const {
  const QList<QTreeWidgetItem*> selected = selectedItems();
  return selected.isEmpty() ? nullptr : selected.front();
}

Node ProjectTree::SelectedNode() const { return NodeOf(SelectedItem()); }

ShownTexts ProjectTree::SelectedTexts() const {
  const QTreeWidgetItem* item = SelectedItem();
  if (SelectedNode().tag != kComponentTag) return {StoredTextOf(item), {}};
  return {StoredTextOf(item->parent()), StoredTextOf(item)};
}

QTreeWidgetItem* ProjectTree::MakeItem(const Node& node, const std::string& text) const {
  auto* item = new QTreeWidgetItem;
  item->setText(0, tools::ToQString(text));
  item->setData(0, kKeyRole, tools::ToQString(node.key));
  item->setData(0, kTagRole, tools::ToQString(node.tag));
  item->setIcon(0, node.tag == kProductTag   ? productIcon_
                   : node.tag == kVersionTag ? versionIcon_
                                             : componentIcon_);
  return item;
}

void ProjectTree::AddComponents(const model::ModProject& project, std::int32_t version,
                                QTreeWidgetItem& parent, ErrorList& errors) const {
  std::vector<std::int32_t> slots;
  errors.Try([&] { slots = project.PossibleComponentSlots(version); });
  QList<QTreeWidgetItem*> items;
  for (const std::int32_t slot : slots) {
    errors.Try([&] {
      const std::string title = project.ComponentTitle(version, slot);
      if (title.empty()) return;
      items.append(MakeItem(ComponentNode(version, slot), title));
      items.back()->setData(0, kStoredRole, QByteArray::fromStdString(title));
    });
  }
  parent.addChildren(items);
}

void ProjectTree::Fill(const model::ModProject& project, std::int32_t latestVersion,
                       ErrorList& errors) {
  const Node selected = SelectedNode();
  clear();
  if (!project.IsOpen()) return;
  std::string title = tools::FileNamePart(project.ProductPath());
  std::vector<std::int32_t> versions;
  errors.Try([&] { title = project.ProductTitle(); });
  errors.Try([&] { versions = project.VersionSlots(); });
  std::unique_ptr<QTreeWidgetItem> product(MakeItem(ProductNode(), title));
  QTreeWidgetItem* latest = nullptr;
  for (const std::int32_t slot : versions) {
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
  // Making a hidden node the current one would expand those above it.
  QTreeWidgetItem* again = ItemOf(selected);
  if (again == nullptr) return;
  if (again->parent() == nullptr || again->parent()->isExpanded()) setCurrentItem(again);
}

void ProjectTree::SetProductTitle(const std::string& title) {
  if (topLevelItemCount() > 0) topLevelItem(0)->setText(0, tools::ToQString(title));
}

QTreeWidgetItem* ProjectTree::ItemOf(const Node& node) {
  if (node.key.empty()) return nullptr;
  for (QTreeWidgetItemIterator item(this); *item != nullptr; ++item) {
    if (NodeOf(*item) == node) return *item;
  }
  return nullptr;
}

bool ProjectTree::SelectNode(const Node& node) {
  QTreeWidgetItem* item = ItemOf(node);
  if (item != nullptr) setCurrentItem(item);
  return item != nullptr;
}

void ProjectTree::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::RightButton) {
    if (SelectedItem() != nullptr) Q_EMIT MenuWanted(event->globalPosition().toPoint());
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

void ProjectTree::ShowMenuAtSelection() {
  const QTreeWidgetItem* item = SelectedItem();
  if (item == nullptr) return;
  const QRect area = visualItemRect(item).intersected(viewport()->rect());
  Q_EMIT MenuWanted(viewport()->mapToGlobal(area.isNull() ? QPoint() : area.bottomLeft()));
}

}  // namespace shell
