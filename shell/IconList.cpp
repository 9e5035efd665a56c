#include "shell/IconList.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <algorithm>
#include <utility>

// A static library's resources are only linked in when somebody asks for them, and Qt's macro for
// that works outside namespaces only.
static void InitialiseIcons() { Q_INIT_RESOURCE(icons); }

namespace shell {

namespace {

constexpr qreal kFaded = 0.4;

// One colour channel: ink is what differs between the picture with black ink and that with white.
int WithInk(int black, int white, int ink) { return black + (white - black) * ink / 255; }

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

// Stands out from light and from dark grounds (3.4 to 1 and more).
const QColor kMark(0xc7, 0x73, 0x16);

/// Draws an icon, if there is one, and the dot.
class MarkEngine : public QIconEngine {
 public:
  explicit MarkEngine(QIcon below) : below_(std::move(below)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    below_.paint(painter, rect, Qt::AlignCenter, mode, state);
    const double side = std::min(rect.width(), rect.height());
    const double radius = side * (below_.isNull() ? 0.25 : 0.26);
    const QPointF middle = below_.isNull() ? QRectF(rect).center()
                                           : QRectF(rect).bottomRight() - QPointF(radius, radius);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    // A gap between the dot and the icon under it, whatever that one's colours are.
    const QColor ground = QGuiApplication::palette().color(QPalette::Active, QPalette::Base);
    painter->setPen(below_.isNull() ? QPen(Qt::NoPen) : QPen(ground, side / 12));
    painter->setBrush(kMark);
    painter->drawEllipse(middle, radius, radius);
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return pixmap;
  }

  [[nodiscard]] QIconEngine* clone() const override { return new MarkEngine(*this); }

 private:
  QIcon below_;
};

}  // namespace

IconList::IconList() { InitialiseIcons(); }

QIcon IconList::Icon(const QString& key) const {
  const QString black = QStringLiteral(":/icons/black/%1.png").arg(key);
  if (!QFile::exists(black)) return {};
  const QString white = QStringLiteral(":/icons/white/%1.png").arg(key);
  return QIcon(new PictureIconEngine(black, white));
}

QIcon ChangeMark() { return QIcon(new MarkEngine({})); }

QIcon WithChangeMark(const QIcon& icon) { return QIcon(new MarkEngine(icon)); }

}  // namespace shell
