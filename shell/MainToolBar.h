// The main window's toolbar.
#pragma once

#include <QToolBar>
#include <QToolButton>

#include "model/TextTable.h"
#include "shell/IconList.h"

namespace shell {

/// Its buttons are known by their keys, which are also their objectNames: "new", "open", "save",
/// "close", "setupwiz", "updatewiz". Each has the image of its key and the tooltip whose number is
/// its tag. None is ever disabled.
class MainToolBar : public QToolBar {
  Q_OBJECT

 public:
  explicit MainToolBar(QWidget* parent);

  /// The button of that key.
  [[nodiscard]] QToolButton& Button(const QString& key) const;

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  void ButtonClicked(const QString& key);

 private:
  void AddButton(const QString& key, model::Text tooltip, const QKeySequence& shortcut);

  IconList imlToolbar;
};

}  // namespace shell
