// The small window that says what the program is busy with.
#pragma once

#include <QDialog>
#include <utility>

#include "tools/Dialogs.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace tools {

/// Appears at once, although the program handles no events while it works: every call that changes
/// the window also paints it. What the user does meanwhile elsewhere is dropped, and he cannot
/// close it. It is not modal: one that nobody withdraws stays until the window it belongs to goes,
/// and locks nothing. It grows with its texts.
///
/// `lblText` holds the text; from the first progress on, `prgProgress` shows the bytes done (the
/// files, where the bytes are not known) and `lblProgress` both as text. `cmdStop` is there for
/// work that can be stopped; Escape presses it, whatever window has the keyboard.
class BusyNotice : public QDialog {
  Q_OBJECT

 public:
  enum class Buttons { None, Stop };

  /// Shows itself centred over `parent`, on the screen's centre without one.
  BusyNotice(const QString& text, Buttons buttons, QWidget* parent);

  /// Paints at each call: reports come a few times a second.
  void ShowProgress(const Progress& progress);

  /// Whether the user has wished to stop the work since the last call.
  [[nodiscard]] bool TakeStopRequest() { return std::exchange(stopRequested_, false); }

  /// Drops what the user did while the program was busy and closes the window.
  void Withdraw();

  /// Escape does nothing.
  void reject() override {}

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void ShowAtOnce();
  void PaintNow();

  QLabel* lblProgress_;
  QProgressBar* prgProgress_;
  QPushButton* cmdStop_ = nullptr;
  bool stopRequested_ = false;
};

}  // namespace tools
