// landmark_overlay.cpp - see landmark_overlay.h.
// SPDX-License-Identifier: MIT
#include "landmark_overlay.h"

#include <QEvent>
#include <QPainter>

namespace zav {

LandmarkOverlay::LandmarkOverlay(QWidget& Widget) : QWidget(&Widget) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  setGeometry(Widget.rect());
  Widget.installEventFilter(this);
  hide();
}

void LandmarkOverlay::setShape(const QPolygonF& Shape) {
  FShape = Shape;
  setVisible(!Shape.isEmpty());
  update();
}

bool LandmarkOverlay::eventFilter(QObject* Watched, QEvent* Event) {
  if (Event->type() == QEvent::Resize) setGeometry(parentWidget()->rect());
  return QWidget::eventFilter(Watched, Event);
}

void LandmarkOverlay::paintEvent(QPaintEvent*) {
  QPainter Painter(this);
  Painter.setRenderHint(QPainter::Antialiasing);
  Painter.setBrush(QColor(0xd0, 0x10, 0x10, 40));
  Painter.setPen(QPen(Qt::white, 3));
  Painter.drawPolygon(FShape);
  Painter.setBrush(Qt::NoBrush);
  Painter.setPen(QPen(QColor(0xd0, 0x10, 0x10), 1.5, Qt::DashLine));
  Painter.drawPolygon(FShape);
}

}  // namespace zav
