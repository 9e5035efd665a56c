#include "tools/desktop/wizard/WizardHeader.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include "tools/desktop/wizard/WizardPicture.h"

namespace tools {

using namespace Qt::StringLiterals;

namespace {

constexpr double kLargeTitle = 1.7;  // of the form's font size

QLabel* MakeLabel(const QString& name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

}  // namespace

WizardHeader::WizardHeader(QWidget* parent)
    : QFrame(parent),
      lblPageTitle_(MakeLabel(u"lblPageTitle"_s, this)),
      lblPageDescription_(MakeLabel(u"lblPageDescription"_s, this)) {
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(lblPageTitle_);
  layout->addWidget(lblPageDescription_);
  SetInner(true);
}

void WizardHeader::SetTexts(const QString& title, const QString& description) {
  lblPageTitle_->setText(title);
  lblPageDescription_->setText(description);
}

void WizardHeader::SetInner(bool inner) {
  inner_ = inner;
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
  if (!inner_) return;
  QPainter painter(this);
  const int size = EmblemSize();
  const int margin = fontMetrics().height();
  DrawParcel(painter, QRectF(width() - size - margin, (height() - size) / 2.0, size, size));
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawLine(0, height() - 1, width(), height() - 1);
}

}  // namespace tools
