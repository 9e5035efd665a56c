#include "shell/PictureIconEngine.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <algorithm>
#include <utility>

namespace shell {

namespace {

constexpr qreal kFaded = 0.4;

// One colour channel: ink is what differs between the picture with black ink and that with white.
int WithInk(int black, int white, int ink) { return black + (white - black) * ink / 255; }

}  // namespace

PictureIconEngine::PictureIconEngine(QString blackFile, QString whiteFile)
    : blackFile_(std::move(blackFile)), whiteFile_(std::move(whiteFile)) {}

void PictureIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
                              QIcon::State /*state*/) {
  const QColor ink = QGuiApplication::palette().color(QPalette::Active, QPalette::WindowText);
  const int side = std::min(rect.width(), rect.height());
  const qreal scale = painter->device()->devicePixelRatioF();
  QImage picture = Draw(qRound(side * scale), ink);
  picture.setDevicePixelRatio(scale);
  painter->save();
  if (mode == QIcon::Disabled) painter->setOpacity(kFaded);
  painter->drawImage(rect.topLeft() + QPoint((rect.width() - side) / 2, (rect.height() - side) / 2),
                     picture);
  painter->restore();
}

QPixmap PictureIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) {
  QPixmap pixmap(size);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  paint(&painter, QRect(QPoint(0, 0), size), mode, state);
  return pixmap;
}

QIconEngine* PictureIconEngine::clone() const { return new PictureIconEngine(*this); }

QImage PictureIconEngine::Draw(int pixels, const QColor& ink) {
  const auto scaled = [pixels](QImage& picture, const QString& file) {
    if (picture.isNull()) {
      picture = QImage(file).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }
    return picture.scaled(pixels, pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
  };
  QImage result = scaled(black_, blackFile_);
  if (ink == QColor(Qt::black)) return result;  // most light desktops: half the work of the start
  const QImage white = scaled(white_, whiteFile_);
  for (int y = 0; y < result.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
    const auto* whiteLine = reinterpret_cast<const QRgb*>(white.constScanLine(y));
    for (int x = 0; x < result.width(); ++x) {
      const QRgb b = line[x];
      const QRgb w = whiteLine[x];
      line[x] =
          qRgba(WithInk(qRed(b), qRed(w), ink.red()), WithInk(qGreen(b), qGreen(w), ink.green()),
                WithInk(qBlue(b), qBlue(w), ink.blue()), qAlpha(b));
    }
  }
  return result;
}

}  // namespace shell
