// Lets windows repaint in the middle of an operation without letting the user start another one.
#pragma once

#include <QObject>

namespace tools {

/// While it lives, keys, mouse buttons, the wheel and close boxes do nothing: what the user does
/// then is dropped, not saved up. Releases pass, so that no widget believes a button still down.
class UserInputBlocker : public QObject {
  Q_OBJECT

 public:
  UserInputBlocker();
  ~UserInputBlocker() override;

  bool eventFilter(QObject* watched, QEvent* event) override;
};

/// Handles every waiting event but the user's, which are dropped.
void PaintWithoutUserInput();

}  // namespace tools
