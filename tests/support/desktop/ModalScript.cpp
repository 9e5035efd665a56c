#include "tests/support/desktop/ModalScript.h"

#include "tests/support/ReportFailure.h"
#include "tests/support/desktop/Widgets.h"

namespace tests {

namespace {

constexpr int kInterval = 5;  // milliseconds between two looks

}  // namespace

ModalScript::ModalScript() {
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, &ModalScript::Look);
  timer_.start(kInterval);
}

ModalScript::~ModalScript() {
  for (const Expectation& left : expected_) {
    ReportFailure("the window \"" + left.objectName.toStdString() + "\" did not come");
  }
}

void ModalScript::ExpectAndPress(const char* objectName, const char* buttonName) {
  Expect<QWidget>(objectName, [buttonName](QWidget& window) { Press(window, buttonName); });
}

void ModalScript::ExpectTyping(const char* objectName, const char* fieldName, const QString& text) {
  Expect<QWidget>(objectName, [fieldName, text](QWidget& window) {
    QWidget& field = Child(window, fieldName);
    Type(field, text);
    QTest::keyClick(&field, Qt::Key_Return);
  });
}

void ModalScript::Add(const char* objectName, std::function<bool(QWidget&)> act) {
  expected_.push_back({QString::fromUtf8(objectName), std::move(act)});
}

void ModalScript::Look() {
  timer_.start(kInterval);  // first, for acting may open the next window and come back after it
  QWidget* window = QApplication::activeModalWidget();
  if (window != answered_) answered_.clear();
  if (window == nullptr || window == answered_ || !window->isActiveWindow()) return;
  answered_ = window;
  if (!expected_.empty() && expected_.front().objectName == window->objectName()) {
    const Expectation expectation = std::move(expected_.front());
    expected_.pop_front();
    if (expectation.act(*window)) return;
  }
  const QString name =
      QStringLiteral("\"%1\" (%2)").arg(window->objectName(), window->windowTitle());
  ReportFailure("nobody expects this window of this class: " + name.toStdString());
  window->close();
}

}  // namespace tests
