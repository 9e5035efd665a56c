// Icons that take the colour of the desktop's text.
#pragma once

#include <QIconEngine>
#include <QImage>
#include <QString>

namespace shell {

/// Draws one picture at any size. Its ink takes the colour of the desktop's window text, so that
/// one picture serves light and dark desktops; a disabled icon is drawn faded.
class PictureIconEngine : public QIconEngine {
 public:
  /// The files of the picture as it is with black and with white ink; same size, otherwise equal.
  /// They are read when it is first drawn.
  PictureIconEngine(QString blackFile, QString whiteFile);

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
  [[nodiscard]] QIconEngine* clone() const override;

 private:
  [[nodiscard]] QImage Draw(int pixels, const QColor& ink);

  QString blackFile_;
  QString whiteFile_;
  QImage black_;
  QImage white_;
};

}  // namespace shell
