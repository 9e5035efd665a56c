// Answers the program's real modal windows while the operation that opens them is running.
#pragma once

#include <QFileDialog>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>
#include <algorithm>
#include <deque>
#include <functional>
#include <vector>

#include "tests/support/ReportFailure.h"
#include "tests/support/desktop/Widgets.h"

namespace tests {

/// Waits for each expected modal window in its turn and acts on it once, as soon as it is active.
/// A modal window that nobody expects fails the test and is closed; so does an expectation that is
/// left when this object ends.
///
///     ModalScript script;
///     script.ExpectTyping("inputBox", "txtInput", "1.0.0");
class ModalScript {
 public:
  ModalScript() {
    // Windows' own file dialogs are no windows of this process.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    timer_.callOnTimeout([this] { Look(); });
    timer_.setSingleShot(true);
    timer_.start(kInterval);
  }
  ~ModalScript() {
    for (const Expectation& left : expected_) {
      ReportFailure("the window \"" + left.objectName + "\" did not come");
    }
  }

  /// Expects the modal window of that objectName and class. `act` has to close it in the end.
  template <typename Window>
  void Expect(const char* objectName, std::function<void(Window&)> act) {
    expected_.push_back({objectName, [act = std::move(act)](QWidget& window) {
                           auto* typed = qobject_cast<Window*>(&window);
                           if (typed == nullptr) qFatal("the window is of another class");
                           act(*typed);
                         }});
  }

  /// Expects a modal window and presses its button of that name.
  void ExpectAndPress(const char* objectName, const char* button) {
    Expect<QWidget>(objectName, [button](QWidget& window) { Press(window, button); });
  }

  /// Expects a modal window, types into its text box of that name and confirms by Enter.
  void ExpectTyping(const char* objectName, const char* field, const QString& text) {
    Expect<QWidget>(objectName, [field, text](QWidget& window) {
      Type(Child(window, field), text);
      QTest::keyClick(&Child(window, field), Qt::Key_Return);
    });
  }

  /// Expects a file dialog and chooses this path in it. All at once: what types ahead of the
  /// dialog's list of completions may end up in that.
  void ExpectChoosing(const char* objectName, const QString& path) {
    Expect<QFileDialog>(objectName, [path](QFileDialog& dialog) {
      auto& name = Child<QLineEdit>(dialog, "fileNameEdit");
      name.setText(path);
      QTest::keyClick(&name, Qt::Key_Return);
    });
  }

 private:
  static constexpr int kInterval = 5;  // milliseconds between two looks
  static constexpr int kMaximumLooksForFocus = 40;

  struct Expectation {
    std::string objectName;
    std::function<void(QWidget&)> act;
  };

  void Look() {
    timer_.start(kInterval);  // first, for acting may open the next window and come back after it
    QWidget* window = QApplication::activeModalWidget();
    std::erase_if(answered_, [](const auto& gone) { return !gone || !gone->isVisible(); });
    if (window == nullptr || !window->isActiveWindow()) return;
    // It comes back between two windows that it opens itself.
    if (std::find(answered_.begin(), answered_.end(), window) != answered_.end()) return;
    // The focus may come after the activation; some windows have nothing to give it to.
    if (window->focusWidget() == nullptr && ++looksForFocus_ < kMaximumLooksForFocus) return;
    looksForFocus_ = 0;
    const QPointer<QWidget> answered = answered_.emplace_back(window);
    const std::string name = window->objectName().toStdString();
    if (expected_.empty() || expected_.front().objectName != name) {
      ReportFailure("nobody expects the window " + name);
    } else {
      const Expectation expectation = std::move(expected_.front());
      expected_.pop_front();
      expectation.act(*window);
    }
    // An act that failed half-way has left its window open; not every window can be closed.
    if (answered == nullptr || !QTest::currentTestFailed()) return;
    if (auto* dialog = qobject_cast<QDialog*>(window)) dialog->done(QDialog::Rejected);
    if (answered != nullptr) answered->close();
  }

  int looksForFocus_ = 0;
  QTimer timer_;
  std::deque<Expectation> expected_;
  std::vector<QPointer<QWidget>> answered_;  ///< acted upon already, and not yet gone
};

/// Edits the row of that title of the page's property grid in the grid's dialog.
inline void Edit(ModalScript& script, const QWidget& page, const QString& title,
                 const QString& value) {
  script.ExpectTyping("frmEditProperty", "txtNewValue", value);
  DoubleClick(Grid(page), RowWith(Grid(page), title));
}

inline void Edit(const QWidget& page, const QString& title, const QString& value) {
  ModalScript script;
  Edit(script, page, title, value);
}

}  // namespace tests
