// What the page host needs of the main window.
#pragma once

#include <QWidget>
#include <string>

namespace shell {

class EditorArea {
 public:
  virtual ~EditorArea() = default;
  EditorArea() = default;
  EditorArea(const EditorArea&) = delete;
  EditorArea& operator=(const EditorArea&) = delete;

  /// The widget that pages are made in.
  [[nodiscard]] virtual QWidget* PageParent() = 0;
  /// Places a page in the editor area, below the tabs.
  virtual void PositionExtender(QWidget& page) = 0;
  /// Shows a hint in the status bar.
  virtual void ShowStatusText(const std::string& text) = 0;
};

}  // namespace shell
