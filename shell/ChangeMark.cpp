#include "shell/ChangeMark.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <algorithm>

namespace shell {

namespace {

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

QIcon ChangeMark() { return QIcon(new MarkEngine({})); }

QIcon WithChangeMark(const QIcon& icon) { return QIcon(new MarkEngine(icon)); }

}  // namespace shell
