// Lets windows repaint in the middle of an operation without letting the user start another one.
#pragma once

#include <QObject>

class QWidget;

namespace tools {

/// While it lives, keys, mouse buttons, the wheel and close boxes do nothing: what the user does
/// then is dropped, not saved up. Releases pass, so that no widget believes a button still down.
class UserInputBlocker : public QObject {
  Q_OBJECT

 public:
  UserInputBlocker();
  ~UserInputBlocker() override;

  /// The mouse works in this window; it must outlive this object.
  void LetThrough(const QWidget& window) { window_ = &window; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  void EscapePressed();

 private:
  [[nodiscard]] bool IsInOpenWindow(const QObject* target) const;

  const QWidget* window_ = nullptr;
};

/// Handles every waiting event but the user's, which are dropped.
void PaintWithoutUserInput();

}  // namespace tools
