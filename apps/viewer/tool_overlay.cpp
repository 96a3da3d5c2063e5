// tool_overlay.cpp - see tool_overlay.h.
// SPDX-License-Identifier: MIT
#include "tool_overlay.h"

#include <algorithm>

#include <QEvent>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_convert.h>

namespace zav {

namespace {

const QColor LineColor(0xc0, 0x10, 0x60);
const QColor Edge(255, 255, 255, 220);
constexpr double Dot = 3.5;

}  // namespace

ToolOverlay::ToolOverlay(GeoMapWidget& Widget) : QWidget(&Widget), FWidget(Widget) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  setGeometry(Widget.rect());
  Widget.installEventFilter(this);
  connect(&Widget, &GeoMapWidget::viewChanged, this, QOverload<>::of(&QWidget::update));
  hide();
}

bool ToolOverlay::eventFilter(QObject* Watched, QEvent* Event) {
  if (Event->type() == QEvent::Resize) setGeometry(FWidget.rect());
  return QWidget::eventFilter(Watched, Event);
}

void ToolOverlay::setLine(const QPolygonF& Line, const QString& Label) {
  FLine = Line;
  FLabel = Label;
  updateShown();
}

void ToolOverlay::setRectangle(const std::optional<QRect>& Rectangle) {
  FRectangle = Rectangle;
  updateShown();
}

void ToolOverlay::updateShown() {
  setVisible(!FLine.isEmpty() || FRectangle);
  update();
}

QPointF ToolOverlay::controlOf(QPointF MapPixel) const {
  const TViewState& View = FWidget.map().View();
  return (MapPixel - ToQPoint(View.TopLeft)) * View.Magnification;
}

void ToolOverlay::paintEvent(QPaintEvent* /*Event*/) {
  QPainter Painter(this);
  if (FRectangle) drawRectangle(Painter);
  Painter.setRenderHint(QPainter::Antialiasing);
  if (!FLine.isEmpty()) drawLine(Painter);
}

void ToolOverlay::drawLine(QPainter& Painter) const {
  QPolygonF Line;
  for (const QPointF& Point : FLine) Line << controlOf(Point) + QPointF(0.5, 0.5);
  if (Line.size() > 2) {
    // What the area is that of.
    QColor Inside = LineColor;
    Inside.setAlpha(28);
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(Inside);
    Painter.drawPolygon(Line);
    Painter.setPen(QPen(LineColor, 1, Qt::DashLine));
    Painter.drawLine(Line.constLast(), Line.constFirst());
  }
  Painter.setBrush(Qt::NoBrush);
  Painter.setPen(QPen(Edge, 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  Painter.drawPolyline(Line);
  Painter.setPen(QPen(LineColor, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  Painter.drawPolyline(Line);
  Painter.setPen(QPen(Edge, 1.5));
  Painter.setBrush(LineColor);
  for (const QPointF& Point : Line) Painter.drawEllipse(Point, Dot, Dot);
  if (!FLabel.isEmpty()) drawLabel(Painter, Line.constLast());
}

// At the right of the point, or at its left where there is no room.
void ToolOverlay::drawLabel(QPainter& Painter, QPointF Beside) const {
  const QFontMetricsF Metrics(Painter.font());
  QRectF Box(0, 0, Metrics.horizontalAdvance(FLabel) + 10, Metrics.height() + 4);
  const bool Right = Beside.x() + 10 + Box.width() <= width();
  Box.moveLeft(Right ? Beside.x() + 10 : Beside.x() - 10 - Box.width());
  Box.moveTop(
      std::clamp(Beside.y() - Box.height() / 2, 0.0, std::max(0.0, height() - Box.height())));
  Painter.setPen(Qt::NoPen);
  Painter.setBrush(QColor(255, 255, 255, 230));
  Painter.drawRoundedRect(Box, 3, 3);
  Painter.setPen(LineColor.darker(130));
  Painter.drawText(Box, Qt::AlignCenter, FLabel);
}

void ToolOverlay::drawRectangle(QPainter& Painter) const {
  const QRectF Box(
      controlOf(FRectangle->topLeft()),
      controlOf(FRectangle->topLeft() + QPoint(FRectangle->width(), FRectangle->height())));
  Painter.setBrush(Qt::NoBrush);
  Painter.setPen(QPen(Qt::white, 1));
  Painter.drawRect(Box.toRect().adjusted(0, 0, -1, -1));
  QPen Dashes(Qt::black, 1);
  Dashes.setDashPattern({4, 4});
  Painter.setPen(Dashes);
  Painter.drawRect(Box.toRect().adjusted(0, 0, -1, -1));
}

}  // namespace zav
