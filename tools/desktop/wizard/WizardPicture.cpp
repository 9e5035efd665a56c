#include "tools/desktop/wizard/WizardPicture.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace tools {

namespace {

// The program's own colours, the same on light and dark desktops.
const QColor kGroundTop(0x1f, 0x4e, 0x79);
const QColor kGroundBottom(0x0d, 0x24, 0x3f);
const QColor kGlow(0xff, 0xff, 0xff, 22);
const QColor kFront(0xd9, 0xa2, 0x5f);
const QColor kSide(0xb9, 0x80, 0x42);
const QColor kInside(0x6e, 0x47, 0x22);
const QColor kFlap(0xe9, 0xbd, 0x84);
const QColor kTape(0x2f, 0x9e, 0x8f);

constexpr int kWidthInCharacters = 26;

void FillPolygon(QPainter& painter, const QColor& color, const QPolygonF& unitPoints) {
  painter.setBrush(color);
  painter.drawPolygon(unitPoints);
}

}  // namespace

void DrawParcel(QPainter& painter, const QRectF& area) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.translate(area.topLeft());
  painter.scale(area.width() / 100, area.height() / 100);
  // A cube seen from its front edge; its lid's four flaps stand open.
  FillPolygon(painter, kFlap, {{50, 24}, {88, 40}, {98, 26}, {62, 12}});
  FillPolygon(painter, kFlap, {{50, 24}, {12, 40}, {2, 26}, {38, 12}});
  FillPolygon(painter, kInside, {{50, 24}, {88, 40}, {50, 57}, {12, 40}});
  FillPolygon(painter, kFront, {{12, 40}, {50, 57}, {50, 98}, {12, 80}});
  FillPolygon(painter, kSide, {{88, 40}, {50, 57}, {50, 98}, {88, 80}});
  FillPolygon(painter, kTape, {{26, 46.3}, {36, 50.7}, {36, 65}, {26, 60.5}});
  FillPolygon(painter, kFlap.darker(104), {{12, 40}, {50, 57}, {40, 71}, {3, 53}});
  FillPolygon(painter, kFlap.darker(112), {{88, 40}, {50, 57}, {60, 71}, {97, 53}});
  painter.restore();
}

WizardPicture::WizardPicture(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

void WizardPicture::SetImage(const QString& path) {
  image_ = path.isEmpty() ? QPixmap() : QPixmap(path);
  update();
}

QSize WizardPicture::sizeHint() const {
  const int width = kWidthInCharacters * fontMetrics().averageCharWidth();
  return {width, 2 * width};
}

void WizardPicture::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (!image_.isNull()) {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QSizeF scaled = QSizeF(image_.size()).scaled(size(), Qt::KeepAspectRatioByExpanding);
    const QPointF corner((width() - scaled.width()) / 2, (height() - scaled.height()) / 2);
    painter.drawPixmap(QRectF(corner, scaled), image_, QRectF(image_.rect()));
    return;
  }
  QLinearGradient ground(0, 0, 0, height());
  ground.setColorAt(0, kGroundTop);
  ground.setColorAt(1, kGroundBottom);
  painter.fillRect(rect(), ground);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kGlow);
  const double side = width();
  for (const double radius : {0.95, 0.7, 0.45}) {
    painter.drawEllipse(QPointF(side / 2, height() - side * 0.62), side * radius, side * radius);
  }
  const double parcel = side * 0.66;
  DrawParcel(painter,
             QRectF((side - parcel) / 2, height() - side * 0.62 - parcel / 2, parcel, parcel));
}

}  // namespace tools
