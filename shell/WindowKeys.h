// Keys that work anywhere in the main window: the next page, the next pane, the user guide.
#pragma once

#include <QObject>
#include <functional>
#include <vector>

class QTabBar;
class QWidget;

namespace shell {

/// Gives the keyboard to a pane, or to its first control that takes it; false when none does.
bool FocusPane(QWidget& pane);

/// Puts a part of a window behind all else in the order of Tab, its widgets in their order.
void PutLastInTabOrder(QWidget& part);

/// Ctrl+Tab and Ctrl+Shift+Tab show the next and the previous page, F6 and Shift+F6 go to the next
/// and the previous pane that can be used, F1 calls for help.
class WindowKeys : public QObject {
  Q_OBJECT

 public:
  /// What is given must outlive this object. A pane is the widget that the keyboard goes to; the
  /// function gives it anew each time, null where there is none.
  using Pane = std::function<QWidget*()>;
  WindowKeys(QWidget& window, QTabBar& pages, std::vector<Pane> panes, std::function<void()> help);

 private:
  void ShowPage(int step);
  void GoToPane(int step);

  QTabBar& pages_;
  std::vector<Pane> panes_;
};

}  // namespace shell
