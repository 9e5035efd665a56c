// What stands in the file page's menu below its given items, and what it says after them.
#pragma once

#include <QMenu>
#include <QTreeView>
#include <QUndoStack>

#include "model/ICFile.h"
#include "model/TextTable.h"
#include "pages/FileListDocument.h"

namespace pages {

/// Adds an item that a key reaches wherever the focus is on the page. `keyName` is how
/// the menu names the key, in German; `keys` is the same for Qt.
QAction* AddItem(QMenu& menu, QWidget& page, const QString& name, model::Text text,
                 const QString& keyName = {}, const QList<QKeySequence>& keys = {});

/// Adds "Rückgängig" (Ctrl+Z) and "Wiederholen" (Ctrl+Y), each with the step that it concerns.
void AddUndoItems(QMenu& menu, QWidget& page, QUndoStack& steps);

/// What the status bar says after that field was set for entries, of which `entry` is one; empty
/// where the list shows it all.
[[nodiscard]] QString ToldOfChange(const QString& field, const model::ICFile& entry,
                                   std::size_t count);

/// What it says after the filter has hidden so many of the changed entries; empty for none.
[[nodiscard]] QString ToldOfHidden(std::size_t count);

/// What the status bar says while the step that is undone or repeated is still the next one.
[[nodiscard]] std::string ToldOfRepetition(const QUndoStack& steps, FileListDocument::By by);

/// Adds the menu that sorts the list as clicks on its header do.
void AddSortMenu(QMenu& menu, QTreeView& list);

}  // namespace pages
