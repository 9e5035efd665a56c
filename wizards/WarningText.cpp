#include "wizards/WarningText.h"

#include <QPainter>
#include <QStyle>

#include "tools/desktop/FormStyle.h"

namespace wizards {

namespace {

constexpr int kLines = 3;
constexpr int kFlags = Qt::TextWordWrap | Qt::AlignTop | Qt::AlignLeft;

}  // namespace

WarningText::WarningText(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize WarningText::sizeHint() const { return {0, kLines * fontMetrics().lineSpacing()}; }

QSize WarningText::minimumSizeHint() const { return sizeHint(); }

QString WarningText::Fitting() const {
  const auto broken = [this](const QString& text) {
    return tools::WithBreaksInLongWords(text, fontMetrics(), width());
  };
  const auto fits = [this](const QString& text) {
    return fontMetrics().boundingRect(0, 0, width(), 0, kFlags, text).height() <= height();
  };
  QString best = broken(text());
  if (fits(best)) return best;
  for (qsizetype least = 0, most = text().size(); least < most;) {
    const qsizetype kept = (least + most) / 2;
    const QString candidate =
        broken(text().left(kept / 2) + QChar(0x2026) + text().right(kept - kept / 2));
    if (fits(candidate)) {
      best = candidate;
      least = kept + 1;
    } else {
      most = kept;
    }
  }
  return best;
}

void WarningText::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  style()->drawItemText(&painter, rect(), kFlags, palette(), isEnabled(), Fitting(),
                        foregroundRole());
}

}  // namespace wizards
