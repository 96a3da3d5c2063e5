// landmark_overlay.cpp - see landmark_overlay.h.
// SPDX-License-Identifier: MIT
#include "landmark_overlay.h"

#include <QEvent>
#include <QPainter>

namespace zav {

namespace {
constexpr double RingRadius = 12;
}  // namespace

LandmarkOverlay::LandmarkOverlay(QWidget& Widget) : QWidget(&Widget) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  setGeometry(Widget.rect());
  Widget.installEventFilter(this);
  hide();
}

void LandmarkOverlay::setShape(const QPolygonF& Shape) {
  if (FShape == Shape) return;
  FShape = Shape;
  setVisible(FRing || !FShape.isEmpty());
  update();
}

void LandmarkOverlay::setRing(const std::optional<QPointF>& Middle) {
  if (FRing == Middle) return;
  FRing = Middle;
  setVisible(FRing || !FShape.isEmpty());
  update();
}

bool LandmarkOverlay::eventFilter(QObject* Watched, QEvent* Event) {
  if (Event->type() == QEvent::Resize) setGeometry(parentWidget()->rect());
  return QWidget::eventFilter(Watched, Event);
}

void LandmarkOverlay::paintEvent(QPaintEvent*) {
  QPainter Painter(this);
  Painter.setRenderHint(QPainter::Antialiasing);
  if (FRing) {
    Painter.setBrush(Qt::NoBrush);
    Painter.setPen(QPen(Qt::white, 4));
    Painter.drawEllipse(*FRing, RingRadius, RingRadius);
    Painter.setPen(QPen(QColor(0x00, 0x60, 0xd0), 2));
    Painter.drawEllipse(*FRing, RingRadius, RingRadius);
  }
  if (FShape.isEmpty()) return;
  Painter.setBrush(QColor(0xd0, 0x10, 0x10, 40));
  Painter.setPen(QPen(Qt::white, 3));
  Painter.drawPolygon(FShape);
  Painter.setBrush(Qt::NoBrush);
  Painter.setPen(QPen(QColor(0xd0, 0x10, 0x10), 1.5, Qt::DashLine));
  Painter.drawPolygon(FShape);
}

}  // namespace zav
