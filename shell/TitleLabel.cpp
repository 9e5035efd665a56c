#include "shell/TitleLabel.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

namespace shell {

namespace {

constexpr int kTitleMargin = 6;
/// How much of the text's colour an inactive title has in its ground: enough to stand out from the
/// window, little enough to read the text on it.
constexpr double kInactiveShade = 0.15;

QColor Blend(const QColor& ground, const QColor& ink, double share) {
  const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
  return {mix(ground.red(), ink.red()), mix(ground.green(), ink.green()),
          mix(ground.blue(), ink.blue())};
}

}  // namespace

TitleLabel::TitleLabel(QWidget* parent) : QLabel(parent) {
  QFont bold = font();
  bold.setBold(true);
  setFont(bold);
  setContentsMargins(kTitleMargin, kTitleMargin / 2, kTitleMargin, kTitleMargin / 2);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void TitleLabel::SetActive(bool active) {
  active_ = active;
  update();
}

void TitleLabel::paintEvent(QPaintEvent* /*event*/) {
  const QPalette palette = QGuiApplication::palette();
  const QColor window = palette.color(QPalette::Active, QPalette::Window);
  QColor ink = palette.color(QPalette::Active, QPalette::WindowText);
  QColor ground = Blend(window, ink, kInactiveShade);
  if (active_) {
    ground = palette.color(QPalette::Active, QPalette::Highlight);
    ink = palette.color(QPalette::Active, QPalette::HighlightedText);
  }
  QPainter painter(this);
  painter.fillRect(rect(), ground);
  painter.setPen(ink);
  const QRect area = contentsRect();
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, area.width());
  painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter, shown);
}

}  // namespace shell
