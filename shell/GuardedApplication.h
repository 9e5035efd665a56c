// The application object of the desktop program.
#pragma once

#include <QApplication>

#include "tools/Dialogs.h"

namespace shell {

/// Shows an exception that leaves an event handler as a message, and the program goes on.
class GuardedApplication : public QApplication {
  Q_OBJECT

 public:
  using QApplication::QApplication;

  /// What shows the messages; must outlive its use. Null: exceptions pass.
  void SetDialogs(tools::Dialogs* dialogs) { dialogs_ = dialogs; }

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  tools::Dialogs* dialogs_ = nullptr;
};

/// Has Qt's own texts (file dialogs, menus of text boxes) in German, like the program's.
void InstallGermanTexts(QApplication& application);

}  // namespace shell
