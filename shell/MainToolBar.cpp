#include "shell/MainToolBar.h"

#include <QAction>
#include <QHelpEvent>
#include <QKeySequence>
#include <QToolTip>

#include "model/TextTable.h"
#include "tools/desktop/QtText.h"

namespace shell {

using model::Text;

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
  AddButton(QStringLiteral("new"), Text::NewProject, QKeySequence::New);
  AddButton(QStringLiteral("open"), Text::OpenProject, QKeySequence::Open);
  AddButton(QStringLiteral("save"), Text::Save, QKeySequence::Save);
  AddButton(QStringLiteral("close"), Text::Close, QKeySequence::Close);
  addSeparator();
  AddButton(QStringLiteral("setupwiz"), Text::SetupWizard, Qt::CTRL | Qt::Key_B);
  AddButton(QStringLiteral("updatewiz"), Text::UpdateWizard, Qt::CTRL | Qt::Key_U);
}

QToolButton& MainToolBar::Button(const QString& key) const {
  return *qobject_cast<QToolButton*>(widgetForAction(findChild<QAction*>(key)));
}

void MainToolBar::AddButton(const QString& key, Text tooltip, const QKeySequence& shortcut) {
  const QString text = tools::ToQString(model::LoadText(tooltip));
  QAction* button = addAction(imlToolbar.Icon(key), text);
  button->setObjectName(key);
  button->setData(static_cast<int>(tooltip));
  button->setToolTip(text);
  button->setShortcut(shortcut);
  // Reached by Tab as well, not only by its shortcut.
  widgetForAction(button)->setFocusPolicy(Qt::TabFocus);
  widgetForAction(button)->setAccessibleName(text);
  widgetForAction(button)->installEventFilter(this);
  connect(button, &QAction::triggered, this, [this, key] { Q_EMIT ButtonClicked(key); });
}

// The tooltip that is shown tells the shortcut too; the button's own text stays that of its number.
bool MainToolBar::eventFilter(QObject* watched, QEvent* event) {
  const auto* button = qobject_cast<QToolButton*>(watched);
  if (event->type() != QEvent::ToolTip || button == nullptr || !button->defaultAction()) {
    return QToolBar::eventFilter(watched, event);
  }
  const QAction& action = *button->defaultAction();
  const QString keys = action.shortcut().toString(QKeySequence::NativeText);
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                     action.toolTip() + QStringLiteral(" (%1)").arg(keys));
  return true;
}

}  // namespace shell
