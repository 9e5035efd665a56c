// What stands in the file page's menu below its given items.
#pragma once

#include <QMenu>
#include <QTreeView>
#include <QUndoStack>

#include "model/TextTable.h"

namespace pages {

/// Adds an item that a key reaches wherever the focus is on the page. The menu names the key in
/// German; `keys` says it to Qt.
QAction* AddItem(QMenu& menu, QWidget& page, const QString& name, model::Text text,
                 const QString& keyName = {}, const QList<QKeySequence>& keys = {});

/// Adds "Rückgängig" (Ctrl+Z) and "Wiederholen" (Ctrl+Y), each with the step that it concerns.
void AddUndoItems(QMenu& menu, QWidget& page, QUndoStack& steps);

/// Adds the menu that sorts the list as clicks on its header do.
void AddSortMenu(QMenu& menu, QTreeView& list);

}  // namespace pages
