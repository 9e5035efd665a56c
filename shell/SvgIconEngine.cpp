#include "shell/SvgIconEngine.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>
#include <utility>

namespace shell {

namespace {

constexpr qreal kFaded = 0.4;

}  // namespace

SvgIconEngine::SvgIconEngine(QByteArray picture) : picture_(std::move(picture)) {}

void SvgIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
                          QIcon::State /*state*/) {
  const QColor ink = QGuiApplication::palette().color(QPalette::Active, QPalette::WindowText);
  QByteArray coloured = picture_;
  coloured.replace("currentColor", ink.name().toLatin1());
  QSvgRenderer renderer(coloured);
  renderer.setAspectRatioMode(Qt::KeepAspectRatio);
  painter->save();
  if (mode == QIcon::Disabled) painter->setOpacity(kFaded);
  renderer.render(painter, QRectF(rect));
  painter->restore();
}

QPixmap SvgIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) {
  QPixmap pixmap(size);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  paint(&painter, QRect(QPoint(0, 0), size), mode, state);
  return pixmap;
}

QIconEngine* SvgIconEngine::clone() const { return new SvgIconEngine(*this); }

}  // namespace shell
