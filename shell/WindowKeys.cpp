#include "shell/WindowKeys.h"

#include <QApplication>
#include <QShortcut>
#include <QTabBar>
#include <utility>

namespace shell {

WindowKeys::WindowKeys(QWidget& window, QTabBar& pages, std::vector<Pane> panes,
                       std::function<void()> help)
    : QObject(&window), pages_(pages), panes_(std::move(panes)) {
  const auto on = [&window, this](const QKeySequence& keys, std::function<void()> command) {
    connect(new QShortcut(keys, &window), &QShortcut::activated, this, std::move(command));
  };
  on(Qt::CTRL | Qt::Key_Tab, [this] { ShowPage(1); });
  // Shift makes another key of Tab.
  on(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab, [this] { ShowPage(-1); });
  on(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, [this] { ShowPage(-1); });
  on(Qt::Key_F6, [this] { GoToPane(1); });
  on(Qt::SHIFT | Qt::Key_F6, [this] { GoToPane(-1); });
  on(Qt::Key_F1, std::move(help));
}

void WindowKeys::ShowPage(int step) {
  const int count = pages_.count();
  if (count > 1) pages_.setCurrentIndex((pages_.currentIndex() + step + count) % count);
}

void WindowKeys::GoToPane(int step) {
  const int count = static_cast<int>(panes_.size());
  const QWidget* focused = QApplication::focusWidget();
  int at = step > 0 ? count - 1 : 0;  // from nowhere to the first, or the last
  for (int i = 0; i < count; ++i) {
    const QWidget* pane = panes_[static_cast<std::size_t>(i)]();
    if (pane != nullptr && focused != nullptr && (pane == focused || pane->isAncestorOf(focused))) {
      at = i;
    }
  }
  for (int tried = 1; tried <= count; ++tried) {
    QWidget* pane =
        panes_[static_cast<std::size_t>((at + (step * tried) % count + count) % count)]();
    if (pane != nullptr && FocusPane(*pane)) return;
  }
}

bool FocusPane(QWidget& pane) {
  if (!pane.isEnabled() || !pane.isVisible()) return false;
  QWidget* target = &pane;
  const auto takesIt = [&] {
    return target->focusPolicy() != Qt::NoFocus || target->focusProxy() != nullptr;
  };
  for (QWidget* next = pane.nextInFocusChain(); !takesIt() && next != &pane;
       next = next->nextInFocusChain()) {
    const bool canHaveIt = (next->focusPolicy() & Qt::TabFocus) != 0 && next->isEnabled() &&
                           next->isVisible() && pane.isAncestorOf(next);
    if (canHaveIt) target = next;
  }
  if (!takesIt()) return false;
  target->setFocus(Qt::TabFocusReason);
  return true;
}

void PutLastInTabOrder(QWidget& part) {
  if (part.isWindow()) return;
  QWidget* last = nullptr;
  std::vector<QWidget*> moved;
  for (QWidget* next = part.window()->nextInFocusChain(); next != part.window();
       next = next->nextInFocusChain()) {
    if (next->focusPolicy() == Qt::NoFocus) continue;  // setTabOrder does nothing for them
    if (part.isAncestorOf(next)) {
      moved.push_back(next);
    } else {
      last = next;
    }
  }
  for (QWidget* widget : moved) {
    QWidget::setTabOrder(last, widget);
    last = widget;
  }
}

}  // namespace shell
