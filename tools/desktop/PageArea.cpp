#include "tools/desktop/PageArea.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QScrollArea>

namespace tools {

QScrollArea* MakePageArea(QWidget* page, int rightMargin, QWidget* parent) {
  auto* withMargin = new QWidget;
  auto* layout = new QHBoxLayout(withMargin);
  layout->setContentsMargins(0, 0, rightMargin, 0);
  layout->addWidget(page);

  auto* area = new QScrollArea(parent);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidgetResizable(true);
  area->setWidget(withMargin);
  // What stands above keeps its height, the page takes what is left.
  area->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  area->setMinimumHeight(1);
  for (QWidget* background : {area->viewport(), withMargin})
    background->setAutoFillBackground(false);
  // A click is on what can be seen; scrolling then would move it away under the pointer.
  QObject::connect(qApp, &QApplication::focusChanged, area, [area](QWidget*, QWidget* focused) {
    if (focused == nullptr || QGuiApplication::mouseButtons() != Qt::NoButton) return;
    if (area->widget()->isAncestorOf(focused)) area->ensureWidgetVisible(focused);
  });
  return area;
}

}  // namespace tools
