// The title of a pane, coloured like a window's title bar.
#pragma once

#include <QLabel>

namespace shell {

/// Takes the colours from the desktop's palette whenever it is drawn, so that it follows a change
/// between light and dark. It keeps them when the pane around it is disabled.
class TitleLabel : public QLabel {
  Q_OBJECT

 public:
  explicit TitleLabel(QWidget* parent);

  /// Colours it as the title of an active or of an inactive window.
  void SetActive(bool active);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool active_ = false;
};

}  // namespace shell
