// A link that stands by itself, such as those of empty states.
#pragma once

#include <QAbstractButton>

namespace tools {

/// A button that looks like a link: reached by Tab, pressed by Enter, Space and the mouse. A text
/// that is too long ends in an ellipsis.
class LinkButton : public QAbstractButton {
  Q_OBJECT

 public:
  explicit LinkButton(const QString& text, QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace tools
