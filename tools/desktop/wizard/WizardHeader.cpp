#include "tools/desktop/wizard/WizardHeader.h"

#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

namespace tools {

using namespace Qt::StringLiterals;

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

constexpr int kTextWidthInCharacters = 26;

void FillPolygon(QPainter& painter, const QColor& color, const QPolygonF& unitPoints) {
  painter.setBrush(color);
  painter.drawPolygon(unitPoints);
}

/// Draws an open parcel that fills the square `area`.
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

constexpr double kLargeTitle = 1.7;  // of the form's font size

QLabel* MakeLabel(const QString& name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

}  // namespace

WizardPicture::WizardPicture(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

void WizardPicture::SetImage(const QString& path) {
  image_ = path.isEmpty() ? QPixmap() : QPixmap(path);
  update();
}

QSize WizardPicture::sizeHint() const {
  const int width = kTextWidthInCharacters * fontMetrics().averageCharWidth();
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

WizardHeader::WizardHeader(QWidget* parent)
    : QFrame(parent),
      lblPageTitle_(MakeLabel(u"lblPageTitle"_s, this)),
      lblPageDescription_(MakeLabel(u"lblPageDescription"_s, this)) {
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(lblPageTitle_);
  layout->addWidget(lblPageDescription_);
  SetPage(Page::Inner);
}

void WizardHeader::SetTexts(const QString& title, const QString& description) {
  lblPageTitle_->setText(title);
  lblPageDescription_->setText(description);
}

void WizardHeader::SetPage(Page page) {
  page_ = page;
  const bool inner = page == Page::Inner;
  QFont titleFont = font();
  titleFont.setBold(inner);
  if (!inner) titleFont.setPointSizeF(titleFont.pointSizeF() * kLargeTitle);
  lblPageTitle_->setFont(titleFont);

  const int unit = fontMetrics().height();
  lblPageDescription_->setIndent(inner ? unit : 0);
  layout()->setSpacing(inner ? unit / 4 : unit);
  layout()->setContentsMargins(unit * 5 / 4, unit, inner ? EmblemSize() + 2 * unit : unit * 5 / 4,
                               unit);
  setAutoFillBackground(inner);
  setBackgroundRole(inner ? QPalette::Base : QPalette::Window);
  const QPalette::ColorRole text = inner ? QPalette::Text : QPalette::WindowText;
  lblPageTitle_->setForegroundRole(text);
  lblPageDescription_->setForegroundRole(text);
  setMinimumHeight(inner ? EmblemSize() + unit : 0);
  update();
}

int WizardHeader::EmblemSize() const { return fontMetrics().height() * 5 / 2; }

void WizardHeader::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  if (page_ == Page::Outer) return;
  QPainter painter(this);
  const int size = EmblemSize();
  const int margin = fontMetrics().height();
  DrawParcel(painter, QRectF(width() - size - margin, (height() - size) / 2.0, size, size));
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawLine(0, height() - 1, width(), height() - 1);
}

}  // namespace tools
