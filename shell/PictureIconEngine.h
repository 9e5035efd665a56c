// Icons that take the colour of the desktop's text.
#pragma once

#include <QIconEngine>
#include <QImage>

namespace shell {

/// Draws one picture at any size. Its ink takes the colour of the desktop's window text, so that
/// one picture serves light and dark desktops; a disabled icon is drawn faded.
class PictureIconEngine : public QIconEngine {
 public:
  /// The picture as it is with black and with white ink; same size, otherwise equal.
  PictureIconEngine(const QImage& black, const QImage& white);

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
  [[nodiscard]] QIconEngine* clone() const override;

 private:
  [[nodiscard]] QImage Draw(int pixels, const QColor& ink) const;

  QImage black_;
  QImage white_;
};

}  // namespace shell
