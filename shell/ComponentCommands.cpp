#include "shell/ComponentCommands.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>
#include <algorithm>
#include <utility>

#include "model/TextTable.h"
#include "shell/ProjectTree.h"
#include "shell/VersionChoice.h"
#include "tools/Text.h"
#include "tools/desktop/Guard.h"
#include "tools/desktop/QtText.h"

namespace shell {

using model::LoadText;
using model::ShownComponent;
using model::Text;
using tools::ToQString;

namespace {

const QString kFormat = QStringLiteral("application/x-packwright-components");
const QByteArray kMove = QByteArrayLiteral("move");
constexpr char kBetween = '\n';  // no stored text holds one

}  // namespace

ComponentCommands::ComponentCommands(ProjectTree& tree, Services services)
    : QObject(&tree), tree_(tree), services_(std::move(services)) {
  mnuCopy = AddItem("mnuCopy", Text::Copy, QKeySequence::Copy,
                    [this] { PutOnClipboard(Transfer::Copy); });
  mnuCut =
      AddItem("mnuCut", Text::Cut, QKeySequence::Cut, [this] { PutOnClipboard(Transfer::Move); });
  mnuPaste = AddItem("mnuPaste", Text::Paste, QKeySequence::Paste, [this] { Paste(); });
  mnuRename = AddItem("mnuRename", Text::Rename, Qt::Key_F2, [this] { Rename(); });
  mnuTakeOver = AddItem("mnuTakeOver", Text::TakeOverComponents, {},
                        [this] { TakeOver(SlotsOf(tree_.SelectedNode()).version); });
  connect(
      &tree, &ProjectTree::ComponentDropped, this,
      tools::Guarded(services_.dialogs, [this](const Node& component, const Node& target,
                                               Transfer transfer) {
        // As the author saw it: another program may have put another one into its slot.
        const NodeSlots slots = SlotsOf(component);
        const ShownTexts shown = tree_.TextsOf(component);
        Place({{slots.version, slots.component, shown.version, shown.component}}, transfer, target);
      }));
}

QAction* ComponentCommands::AddItem(const char* name, Text text, const QKeySequence& shortcut,
                                    std::function<void()> command) {
  auto* item = new QAction(ToQString(LoadText(text)), &tree_);
  item->setObjectName(QString::fromLatin1(name));
  item->setShortcut(shortcut);
  item->setShortcutContext(Qt::WidgetShortcut);
  tree_.addAction(item);
  connect(item, &QAction::triggered, this, tools::Guarded(services_.dialogs, std::move(command)));
  return item;
}

void ComponentCommands::AddTo(QMenu& versionMenu, QMenu& componentMenu) {
  versionMenu.addSeparator();
  versionMenu.addActions({mnuCopy, mnuPaste, mnuTakeOver});
  componentMenu.addSeparator();
  componentMenu.addActions({mnuCopy, mnuCut, mnuPaste, mnuRename});
  for (const QMenu* menu : {&versionMenu, &componentMenu}) {
    connect(menu, &QMenu::aboutToShow, this, [this] { EnableUsableItems(); });
    // Disabled items would not answer their keys.
    connect(
        menu, &QMenu::aboutToHide, this, [this] { EnableAllItems(); }, Qt::QueuedConnection);
  }
}

void ComponentCommands::EnableUsableItems() {
  tools::Guard(services_.dialogs, [this] {
    mnuPaste->setEnabled(!OnClipboard().empty());
    mnuCopy->setEnabled(!Selected().empty());
  });
}

void ComponentCommands::EnableAllItems() {
  mnuPaste->setEnabled(true);
  mnuCopy->setEnabled(true);
}

std::vector<ShownComponent> ComponentCommands::Selected() const {
  const Node node = tree_.SelectedNode();
  const NodeSlots slots = SlotsOf(node);
  const ShownTexts shown = tree_.SelectedTexts();
  if (node.tag == kComponentTag) {
    return {{slots.version, slots.component, shown.version, shown.component}};
  }
  if (node.tag == kVersionTag) return services_.components.ComponentsOf(slots.version);
  return {};
}

void ComponentCommands::PutOnClipboard(Transfer transfer) {
  const bool move = transfer == Transfer::Move;
  const std::vector<ShownComponent> components = Selected();
  if (components.empty() || (move && tree_.SelectedNode().tag != kComponentTag)) {
    services_.showStatus(LoadText(Text::SelectComponentFirst));
    return;
  }
  QGuiApplication::clipboard()->setMimeData(Pack(components, transfer));
  // Copies are made of what is saved; a move offers to save first.
  if (!move && services_.operations.HasUnsaved()) {
    services_.showStatus(LoadText(Text::SavedStateIsCopied));
  } else {
    services_.showStatus(
        tools::ReplaceAll(LoadText(move ? Text::ReadyToMove : Text::ReadyToPaste), "%subject%",
                          components.size() == 1 ? components.front().shownTitle
                                                 : std::to_string(components.size())));
  }
}

QMimeData* ComponentCommands::Pack(const std::vector<ShownComponent>& components,
                                   Transfer transfer) const {
  QStringList titles;
  QByteArrayList fields{QByteArray::fromStdString(services_.project.ProductPath()),
                        transfer == Transfer::Move ? kMove : QByteArray("copy")};
  for (const ShownComponent& component : components) {
    titles += ToQString(component.shownTitle);
    fields << QByteArray::number(component.version) << QByteArray::number(component.component)
           << QByteArray::fromStdString(component.shownVersion)
           << QByteArray::fromStdString(component.shownTitle);
  }
  auto* data = new QMimeData;
  data->setText(titles.join(QLatin1Char('\n')));
  data->setData(kFormat, fields.join(kBetween));
  return data;
}

std::vector<ShownComponent> ComponentCommands::OnClipboard(Transfer* transfer) const {
  const QMimeData* data = QGuiApplication::clipboard()->mimeData();
  if (data == nullptr || !data->hasFormat(kFormat)) return {};
  const QByteArrayList fields = data->data(kFormat).split(kBetween);
  if (fields.size() < 2 || fields[0].toStdString() != services_.project.ProductPath()) return {};
  if (transfer != nullptr) *transfer = fields[1] == kMove ? Transfer::Move : Transfer::Copy;
  std::vector<ShownComponent> components;
  for (qsizetype i = 2; i + 4 <= fields.size(); i += 4) {
    components.push_back({fields[i].toInt(), fields[i + 1].toInt(), fields[i + 2].toStdString(),
                          fields[i + 3].toStdString()});
  }
  return components;
}

void ComponentCommands::Paste() {
  auto transfer = Transfer::Copy;
  const std::vector<ShownComponent> components = OnClipboard(&transfer);
  if (components.empty()) {
    services_.showStatus(LoadText(Text::NothingToPaste));
  } else {
    Place(components, transfer, tree_.SelectedNode());
  }
}

void ComponentCommands::Place(const std::vector<ShownComponent>& components, Transfer transfer,
                              const Node& target) {
  const bool move = transfer == Transfer::Move;
  const model::VersionSlot version = SlotsOf(target).version;
  const bool isThere = move && components.front().version == version;
  if (version == 0 || isThere) {
    services_.showStatus(LoadText(isThere ? Text::ComponentIsThere : Text::SelectVersionFirst));
    return;
  }
  if (!move) {
    services_.components.Copy(components, version);
    ShowSelectedNode();
    return;
  }
  if (!services_.closePages()) return;
  model::ComponentSlot slot;
  tools::Guard(services_.dialogs,
               [&] { slot = services_.components.Move(components.front(), version); });
  services_.openNode(slot != 0 ? ComponentNode(version, slot) : tree_.SelectedNode());
  if (slot == 0) return;
  QGuiApplication::clipboard()->clear();
  const std::string& title = components.front().shownTitle;
  services_.showStatus(services_.components.WhereText({title}, version) +
                       (IsTitleOfSeveral(title, version) ? LoadText(Text::OtherHasSameTitle) : ""));
}

bool ComponentCommands::IsTitleOfSeveral(const std::string& title,
                                         model::VersionSlot version) const {
  const std::vector<ShownComponent> all = services_.components.ComponentsOf(version);
  return std::count_if(all.begin(), all.end(),
                       [&](const ShownComponent& each) { return each.shownTitle == title; }) > 1;
}

// A refresh unfolds the latest version alone.
void ComponentCommands::ShowSelectedNode() { tree_.SelectNode(tree_.SelectedNode()); }

void ComponentCommands::Rename() {
  const std::vector<ShownComponent> selected = Selected();
  if (tree_.SelectedNode().tag != kComponentTag) {
    services_.showStatus(LoadText(Text::SelectComponentFirst));
    return;
  }
  const bool isRenamed = services_.components.Rename(selected.front());
  ShowSelectedNode();
  if (isRenamed) RenameOnClipboard(selected.front());
  const std::string& title = selected.front().shownTitle;
  if (tree_.SelectedTexts().component == title) {
    services_.showStatus(tools::ReplaceAll(LoadText(Text::NotRenamed), "%title%", title));
  }
}

// Under its old title it would look like one that another program has changed.
void ComponentCommands::RenameOnClipboard(const ShownComponent& before) {
  auto transfer = Transfer::Copy;
  std::vector<ShownComponent> held = OnClipboard(&transfer);
  const auto found = std::find_if(held.begin(), held.end(), [&before](const ShownComponent& each) {
    return each.version == before.version && each.component == before.component &&
           each.shownVersion == before.shownVersion && each.shownTitle == before.shownTitle;
  });
  if (found == held.end()) return;
  found->shownTitle = tree_.SelectedTexts().component;
  QGuiApplication::clipboard()->setMimeData(Pack(held, transfer));
}

void ComponentCommands::TakeOver(model::VersionSlot version) {
  if (version == 0) return;
  const model::VersionSlot from =
      ChooseVersion(services_.project, services_.components, version, tree_.window());
  if (from != 0) services_.components.Copy(services_.components.ComponentsOf(from), version);
}

}  // namespace shell
