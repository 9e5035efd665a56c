// Icons drawn from scalable pictures, sharp at every size and on every screen.
#pragma once

#include <QByteArray>
#include <QIconEngine>

namespace shell {

/// Draws an SVG picture. Its parts coloured "currentColor" take the colour of the desktop's window
/// text, so that one picture serves light and dark desktops; a disabled icon is drawn faded.
class SvgIconEngine : public QIconEngine {
 public:
  /// `picture` is the SVG file's content.
  explicit SvgIconEngine(QByteArray picture);

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
  [[nodiscard]] QIconEngine* clone() const override;

 private:
  QByteArray picture_;
};

}  // namespace shell
