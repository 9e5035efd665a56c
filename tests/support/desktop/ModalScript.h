// Answers the program's real modal windows while the operation that opens them is running.
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>

namespace tests {

/// Waits for each expected modal window in its turn and acts on it once, as soon as it is active.
/// A modal window that nobody expects fails the test and is closed; so does an expectation that is
/// left when this object ends.
///
///     ModalScript script;
///     script.ExpectTyping("inputBox", "txtInput", "1.0.0");
class ModalScript : public QObject {
  Q_OBJECT

 public:
  ModalScript();
  ~ModalScript() override;

  /// Expects the modal window of that objectName and class. `act` has to close it in the end.
  template <typename Window>
  void Expect(const char* objectName, std::function<void(Window&)> act) {
    Add(objectName, [act = std::move(act)](QWidget& window) {
      auto* typed = qobject_cast<Window*>(&window);
      if (typed != nullptr) act(*typed);
      return typed != nullptr;
    });
  }

  /// Expects a modal window and presses its button of that name.
  void ExpectAndPress(const char* objectName, const char* buttonName);
  /// Expects a modal window, types into its text box of that name and confirms by Enter.
  void ExpectTyping(const char* objectName, const char* fieldName, const QString& text);

 private:
  struct Expectation {
    QString objectName;
    std::function<bool(QWidget&)> act;  ///< false when the window is of another class
  };

  void Add(const char* objectName, std::function<bool(QWidget&)> act);
  void Look();

  QTimer timer_;
  std::deque<Expectation> expected_;
  QPointer<QWidget> answered_;  ///< acted upon already, and not yet gone
};

}  // namespace tests
