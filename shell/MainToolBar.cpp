#include "shell/MainToolBar.h"

#include <QAction>
#include <QKeySequence>

#include "model/TextTable.h"
#include "tools/desktop/QtText.h"

namespace shell {

namespace {

constexpr int kIconSize = 24;

}  // namespace

MainToolBar::MainToolBar(QWidget* parent) : QToolBar(parent) {
  setObjectName(QStringLiteral("tbrMain"));
  setAccessibleName(QStringLiteral("Werkzeuge"));
  setWindowTitle(accessibleName());
  setMovable(false);
  setIconSize(QSize(kIconSize, kIconSize));
  // Hiding it would leave no way to get it back.
  toggleViewAction()->setEnabled(false);
  setContextMenuPolicy(Qt::PreventContextMenu);
  AddButton(QStringLiteral("new"), 204, QKeySequence::New);
  AddButton(QStringLiteral("open"), 205, QKeySequence::Open);
  AddButton(QStringLiteral("save"), 218, QKeySequence::Save);
  AddButton(QStringLiteral("close"), 219, QKeySequence::Close);
  addSeparator();
  AddButton(QStringLiteral("setupwiz"), 317, Qt::CTRL | Qt::Key_B);
  AddButton(QStringLiteral("updatewiz"), 318, Qt::CTRL | Qt::Key_U);
}

void MainToolBar::AddButton(const QString& key, int tooltipNumber, const QKeySequence& shortcut) {
  const QString text = tools::ToQString(model::LoadText(tooltipNumber));
  QAction* button = addAction(imlToolbar.Icon(key), text);
  button->setObjectName(key);
  button->setData(tooltipNumber);
  button->setToolTip(text);
  button->setShortcut(shortcut);
  // Reached by Tab as well, not only by its shortcut.
  widgetForAction(button)->setFocusPolicy(Qt::TabFocus);
  widgetForAction(button)->setAccessibleName(text);
  connect(button, &QAction::triggered, this, [this, key] { Q_EMIT ButtonClicked(key); });
}

}  // namespace shell
