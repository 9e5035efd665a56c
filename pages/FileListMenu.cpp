#include "pages/FileListMenu.h"

#include <QActionGroup>
#include <QHeaderView>
#include <utility>

#include "pages/FileListModel.h"
#include "pages/PageText.h"
#include "pages/TargetFolders.h"

namespace pages {

using namespace Qt::StringLiterals;

namespace {

/// Behind a tab, a menu shows a text in the place of the shortcut.
QString WithKey(const QString& text, const QString& keyName) {
  return keyName.isEmpty() ? text : text + u'\t' + keyName;
}

}  // namespace

QAction* AddItem(QMenu& menu, QWidget& page, const QString& name, Text text, const QString& keyName,
                 const QList<QKeySequence>& keys) {
  QAction* item = menu.addAction(WithKey(Caption(text), keyName));
  item->setObjectName(name);
  item->setShortcuts(keys);
  item->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  page.addAction(item);
  return item;
}

void AddUndoItems(QMenu& menu, QWidget& page, QUndoStack& steps) {
  const auto caption = [](Text command, const QString& step, const QString& keyName) {
    const QString text = Caption(command);
    return WithKey(step.isEmpty() ? text : text + u": "_s + step, keyName);
  };
  const QString undoKey = u"Strg+Z"_s;
  const QString redoKey = u"Strg+Y"_s;
  QAction* undo =
      AddItem(menu, page, u"mnuUndo"_s, Text::UndoStep, undoKey, {Qt::CTRL | Qt::Key_Z});
  QAction* redo = AddItem(menu, page, u"mnuRedo"_s, Text::RedoStep, redoKey,
                          {Qt::CTRL | Qt::Key_Y, Qt::CTRL | Qt::SHIFT | Qt::Key_Z});
  undo->setEnabled(false);
  redo->setEnabled(false);
  QObject::connect(undo, &QAction::triggered, &steps, &QUndoStack::undo);
  QObject::connect(redo, &QAction::triggered, &steps, &QUndoStack::redo);
  QObject::connect(&steps, &QUndoStack::canUndoChanged, undo, &QAction::setEnabled);
  QObject::connect(&steps, &QUndoStack::canRedoChanged, redo, &QAction::setEnabled);
  QObject::connect(&steps, &QUndoStack::undoTextChanged, undo, [=](const QString& step) {
    undo->setText(caption(Text::UndoStep, step, undoKey));
  });
  QObject::connect(&steps, &QUndoStack::redoTextChanged, redo, [=](const QString& step) {
    redo->setText(caption(Text::RedoStep, step, redoKey));
  });
}

QString ToldOfChange(const QString& field, const model::ICFile& entry, std::size_t count) {
  if (field == "TargetFolder"_L1) {
    return Caption(count == 1 ? Text::EntryWentTo : Text::EntriesWentTo)
        .replace(u"%count%"_s, GermanNumber(static_cast<qlonglong>(count)))
        .replace(u"%folder%"_s, TargetFolderCaption(entry.TargetFolder));
  }
  const bool installs =
      entry.Type == model::ICFile::kSingleFile || entry.Type == model::ICFile::kFolderScan;
  return field == "Type"_L1 && !installs ? Caption(Text::TypeInstallsNothing) : QString();
}

QString ToldOfHidden(std::size_t count) {
  if (count == 0) return {};
  return count == 1 ? Caption(Text::FilterHidesOne)
                    : tools::ToQString(Counted(Text::FilterHides, count));
}

std::string ToldOfRepetition(const QUndoStack& steps, FileListDocument::By by) {
  const bool undone = by == FileListDocument::By::Undo;
  return tools::ReplaceAll(model::LoadText(undone ? Text::StepUndone : Text::StepRepeated),
                           "%step%", tools::ToUtf8(undone ? steps.undoText() : steps.redoText()));
}

void AddSortMenu(QMenu& menu, QTreeView& list) {
  QMenu* columns = menu.addMenu(Caption(Text::SortBy));
  columns->setObjectName(u"mnuSort"_s);
  QHeaderView& header = *list.header();
  auto* orders = new QActionGroup(columns);
  const auto add = [&](Text text, int column) {
    QAction* order = orders->addAction(columns->addAction(Caption(text)));
    order->setCheckable(true);
    order->setChecked(column == header.sortIndicatorSection());
    QObject::connect(order, &QAction::triggered, &header,
                     [&header, column] { header.setSortIndicator(column, Qt::AscendingOrder); });
    QObject::connect(&header, &QHeaderView::sortIndicatorChanged, order,
                     [order, column](int sorted) { order->setChecked(sorted == column); });
  };
  add(Text::FileNameColumn, FileListModel::kFileName);
  add(Text::TargetColumn, FileListModel::kTarget);
  add(Text::EntryOrder, -1);
}

}  // namespace pages
