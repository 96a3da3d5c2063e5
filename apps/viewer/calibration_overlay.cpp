// calibration_overlay.cpp - the points of a calibration drawn over the map.
//
// Every sign has a white edge, so that it shows on any map, and what is told by colour is told by
// shape as well: a point that is off is dashed, the worst one stands in a square, the selected one
// in a second ring.
// SPDX-License-Identifier: MIT
#include "calibration_overlay.h"

#include <cmath>

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>

#include <platform/qt/geo_map_widget.h>

#include "calib_document.h"

namespace zav {

namespace {

constexpr double Radius = 6;
constexpr double ArmFrom = 2.5;  // the pixel itself stays visible
constexpr double ArmTo = 10;
const QColor OffColor(0x60, 0x60, 0x60);
const QColor WorstColor(0xd0, 0x10, 0x10);
const QColor SelectedColor(0x00, 0x60, 0xd0);

void Stroke(QPainter& Painter, const QPainterPath& Path, const QColor& Color, double Width,
            Qt::PenStyle Style = Qt::SolidLine) {
  Painter.setBrush(Qt::NoBrush);
  Painter.setPen(QPen(QColor(255, 255, 255, 220), Width + 2, Qt::SolidLine, Qt::RoundCap));
  Painter.drawPath(Path);
  Painter.setPen(QPen(Color, Width, Style, Qt::FlatCap));
  Painter.drawPath(Path);
}

QPainterPath Sign(QPointF At, bool WithRing) {
  QPainterPath Path;
  if (WithRing) Path.addEllipse(At, Radius, Radius);
  for (const QPointF& Arm : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)}) {
    Path.moveTo(At + Arm * ArmFrom);
    Path.lineTo(At + Arm * ArmTo);
  }
  return Path;
}

}  // namespace

QPointF ControlOf(const TViewState& View, TPoint MapPixel) {
  return QPointF(MapPixel.X - View.TopLeft.X + 0.5, MapPixel.Y - View.TopLeft.Y + 0.5) *
         View.Magnification;
}

TPoint MapPixelUnder(const TViewState& View, QPointF Control) {
  // Events tell a control pixel by its corner.
  const QPointF Map = (Control + QPointF(0.5, 0.5)) / View.Magnification;
  return {View.TopLeft.X + static_cast<int32_t>(std::floor(Map.x())),
          View.TopLeft.Y + static_cast<int32_t>(std::floor(Map.y()))};
}

CalibrationOverlay::CalibrationOverlay(GeoMapWidget& Widget, const CalibDocument& Document)
    : QWidget(&Widget), FWidget(Widget), FDocument(Document) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  setGeometry(Widget.rect());
  Widget.installEventFilter(this);
  connect(&Document, &CalibDocument::changed, this, QOverload<>::of(&QWidget::update));
  connect(&Widget, &GeoMapWidget::viewChanged, this, QOverload<>::of(&QWidget::update));
  hide();
}

bool CalibrationOverlay::eventFilter(QObject* Watched, QEvent* Event) {
  if (Event->type() == QEvent::Resize) setGeometry(FWidget.rect());
  if (Event->type() == QEvent::FocusIn || Event->type() == QEvent::FocusOut) update();
  return QWidget::eventFilter(Watched, Event);
}

void CalibrationOverlay::setSelected(int Id) {
  FSelected = Id;
  update();
}

void CalibrationOverlay::setPending(std::optional<TPoint> MapPixel) {
  FPending = MapPixel;
  update();
}

void CalibrationOverlay::setShowNames(bool On) {
  FShowNames = On;
  update();
}

void CalibrationOverlay::setResidualFactor(int Factor) {
  FResidualFactor = Factor;
  update();
}

void CalibrationOverlay::paintEvent(QPaintEvent*) {
  if (FWidget.imageFile().isEmpty()) return;
  QPainter Painter(this);
  Painter.setRenderHint(QPainter::Antialiasing);
  int Selected = -1;
  for (int i = 0; i < FDocument.itemCount(); ++i) {
    if (FDocument.item(i).Id == FSelected)
      Selected = i;
    else
      drawItem(Painter, i);
  }
  if (Selected >= 0) drawItem(Painter, Selected);
  // The keys work on the map now.
  if (FWidget.hasFocus()) {
    Painter.setBrush(Qt::NoBrush);
    Painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    Painter.drawRect(QRectF(rect()).adjusted(1, 1, -1, -1));
  }
  if (FPending)
    Stroke(Painter, Sign(ControlOf(FWidget.map().View(), *FPending), true), SelectedColor, 2);
}

void CalibrationOverlay::drawItem(QPainter& Painter, int Index) const {
  const CalibItem& Item = FDocument.item(Index);
  const bool Used = FDocument.isUsed(Item.Kind);
  const QPointF At = ControlOf(FWidget.map().View(), Item.Pixel);
  const QRectF Near = QRectF(rect()).adjusted(-200, -200, 200, 200);
  const CalibResidual Residual = Used ? FDocument.residual(Index) : CalibResidual{};
  if (!Near.contains(At)) return;
  if (Used && Residual.Valid && Item.Enabled) drawResidual(Painter, At, Residual);
  const bool On = Used && Item.Enabled;
  Stroke(Painter, Sign(At, Used), On ? FWidget.calibrationPointColor() : OffColor, On ? 1.6 : 1.2,
         On ? Qt::SolidLine : Qt::DotLine);
  if (Residual.Worst) {
    QPainterPath Square;
    Square.addRect(QRectF(-9, -9, 18, 18).translated(At));
    Stroke(Painter, Square, WorstColor, 1.6);
  }
  if (Item.Id == FSelected) {
    QPainterPath Ring;
    Ring.addEllipse(At, 13, 13);
    Stroke(Painter, Ring, SelectedColor, 2.4);
  }
  if (FShowNames && Used) drawName(Painter, At, Index);
}

void CalibrationOverlay::drawResidual(QPainter& Painter, QPointF At,
                                      const CalibResidual& Residual) const {
  if (FResidualFactor == 0) return;
  const QPointF Vector =
      QPointF(Residual.Dx, Residual.Dy) * FResidualFactor * FWidget.map().View().Magnification;
  const double Length = std::hypot(Vector.x(), Vector.y());
  constexpr double Longest = 2000;  // beyond, the fit is of no use anyway
  if (!(Length > 1) || !std::isfinite(Length)) return;
  const QPointF Unit = Vector / Length;
  const QPointF Tip = At + Unit * std::min(Length, Longest);
  const QPointF Side(-Unit.y(), Unit.x());
  QPainterPath Arrow;
  Arrow.moveTo(At);
  Arrow.lineTo(Tip);
  const double Head = std::min(7.0, Length / 2);
  Arrow.moveTo(Tip - Unit * Head + Side * Head / 2);
  Arrow.lineTo(Tip);
  Arrow.lineTo(Tip - Unit * Head - Side * Head / 2);
  Stroke(Painter, Arrow, Residual.Worst ? WorstColor : QColor(Qt::black), 1.8);
}

void CalibrationOverlay::drawName(QPainter& Painter, QPointF At, int Index) const {
  const CalibItem& Item = FDocument.item(Index);
  const QString Text = Item.Name.isEmpty() ? QString::number(Index + 1) : Item.Name;
  QPainterPath Path;
  Path.addText(At + QPointF(12, -6), font(), Text);
  Painter.setPen(QPen(QColor(255, 255, 255, 220), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  Painter.setBrush(Qt::NoBrush);
  Painter.drawPath(Path);
  Painter.fillPath(Path, Item.Enabled ? QColor(Qt::black) : OffColor);
}

}  // namespace zav
