// What a person does at the windows whose pictures are taken.
#pragma once

#include <QAbstractItemView>
#include <QDialog>
#include <QDir>
#include <QTreeWidget>
#include <functional>
#include <vector>

#include "model/TextTable.h"
#include "shell/frmMain.h"

namespace screenshots {

void ClickRow(const QAbstractItemView& view, const QModelIndex& row);
void DoubleClickRow(QAbstractItemView& view, const QModelIndex& row);
void ClickNode(const shell::frmMain& window, const QString& key);
/// Has the file page show the entries of a target folder.
void ChooseFolder(const QWidget& window, model::Text folder);
void PressKey(QWidget& widget, Qt::Key key);

/// Stores a picture of the window in the folder; false, with a message, when it cannot be written.
[[nodiscard]] bool StorePicture(QWidget& window, const QDir& folder, const QString& name);
/// The same with a list that has popped up over it.
[[nodiscard]] bool StoreWithPopup(QWidget& window, QWidget& popup, const QDir& folder,
                                  const QString& name);
/// A picture of one page of the selected node; `position` is that of its tab, from 1.
[[nodiscard]] bool PagePicture(const QWidget& window, int position, const QDir& folder,
                               const QString& name);

using Act = std::function<void(QDialog&)>;
/// Does each act with the next modal window that `open` brings up; it has to close the window.
void WithModals(const std::function<void()>& open, const std::vector<Act>& acts);

/// Returns when the label of that name, if it is shown, does not say `text` any more.
void WaitWhile(const QWidget& window, const QString& label, model::Text text);

/// The pictures of the file page.
[[nodiscard]] bool FilePictures(shell::frmMain& window, const QDir& product, const QDir& folder);
/// The pictures of builds and of what they come to.
[[nodiscard]] bool BuildPictures(shell::frmMain& window, const QDir& product, const QDir& folder);

}  // namespace screenshots
