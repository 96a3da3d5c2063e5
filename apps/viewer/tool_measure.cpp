// tool_measure.cpp - see tool_measure.h.
// SPDX-License-Identifier: MIT
#include "tool_measure.h"

#include <QLocale>

#include <geobasics/geodesic.h>
#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_convert.h>

#include "measure_area.h"
#include "tool_overlay.h"

namespace zav {

namespace {

double ResolutionOf(const TGeoMap& Map) { return Map.CalibData().Resolution; }

}  // namespace

MeasureTool::MeasureTool(GeoMapWidget& Widget, ToolOverlay& Overlay, QObject* Parent)
    : QObject(Parent), FWidget(Widget), FOverlay(Overlay) {
  connect(&Widget, &GeoMapWidget::rubberBandBegun, this, [this](QPoint At) {
    // A selection begins like this, too.
    if (FAnchoring || FWidget.mouseMode() != GeoMapWidget::MouseMode::RubberBand) return;
    clear();
    add(At, false);
  });
  connect(&Widget, &GeoMapWidget::rubberBandContinued, this, [this](QPoint At) { add(At, false); });
  connect(&Widget, &GeoMapWidget::rubberBandEnded, this, [this](QPoint At) { add(At, true); });
  connect(&Widget, &GeoMapWidget::mousePositionChanged, this, &MeasureTool::follow);
  connect(&Widget, &GeoMapWidget::viewChanged, this, &MeasureTool::anchorAnew);
}

void MeasureTool::clear() {
  FLine.clear();
  FMeasured = {};
  FPiece = {};
  FOpen = false;
  tell();
}

void MeasureTool::interrupt() {
  if (!FOpen) return;
  FOpen = false;
  if (FLine.size() < 2) return clear();
  FPiece = LengthBetween(FWidget.map(), FLine.at(FLine.size() - 2), FLine.constLast());
  tell();
}

bool MeasureTool::takeBack() {
  if (FLine.isEmpty()) return false;
  FLine.removeLast();
  // The second point of a double click lies on the first.
  if (!FOpen)
    while (FLine.size() > 1 && FLine.constLast() == FLine.at(FLine.size() - 2)) FLine.removeLast();
  if (FLine.size() < (FOpen ? 1 : 2)) {
    FWidget.map().CancelMouse();
    clear();
    return true;
  }
  FMeasured = FPiece = {};
  for (qsizetype I = 1; I < FLine.size(); ++I) {
    FPiece = LengthBetween(FWidget.map(), FLine.at(I - 1), FLine.at(I));
    FMeasured = FMeasured + FPiece;
  }
  if (FOpen) FPiece = {};
  anchorAnew();
  tell();
  return true;
}

void MeasureTool::add(QPoint MapPixel, bool Last) {
  if (!FLine.isEmpty()) {
    // A double click ends the line where its first click has put a point.
    FPiece = LengthBetween(FWidget.map(), FLine.constLast(), MapPixel);
    FMeasured = FMeasured + FPiece;
  }
  FLine << MapPixel;
  FOpen = !Last;
  tell();
  // The lines that the control has left on the picture are drawn by the overlay from now on.
  FWidget.map().Paint();
}

void MeasureTool::follow(QPointF MapPixel) {
  if (!FOpen || FLine.isEmpty()) return;
  FPiece = LengthBetween(FWidget.map(), FLine.constLast(), MapPixel);
  emit changed();
}

// The rubber band starts at a place of the window; under another view it begins again at the same
// place of the map.
void MeasureTool::anchorAnew() {
  if (!FOpen || FAnchoring || FLine.isEmpty()) return;
  FAnchoring = true;
  TGeoMap& Map = FWidget.map();
  const TPoint At = Map.MapImageToControl(FromQPoint(FLine.constLast().toPoint()));
  Map.CancelMouse();
  Map.MouseDown(TMouseButton::mbLeft, ssLeft, At.X, At.Y);
  FAnchoring = false;
}

void MeasureTool::tell() {
  FOverlay.setLine(
      FLine, FLine.size() > 1 ? LengthText(FMeasured, ResolutionOf(FWidget.map())) : QString());
  emit changed();
}

MapLength MeasureTool::total() const { return FOpen ? FMeasured + FPiece : FMeasured; }

QString MeasureTool::totalText() const {
  if (FLine.isEmpty() || (FLine.size() < 2 && FPiece.Pixels == 0)) return {};
  return LengthText(total(), ResolutionOf(FWidget.map()));
}

QString MeasureTool::areaText() const {
  if (FLine.size() < 3) return {};
  const std::optional<double> Area = AreaOn(FWidget.map(), FLine);
  return Area ? AreaText(*Area) : QString();
}

QString MeasureTool::text() const {
  const QString Total = totalText();
  if (Total.isEmpty()) return {};
  const QString Piece = LengthText(FPiece, ResolutionOf(FWidget.map()));
  const int Pieces = static_cast<int>(FLine.size()) - (FOpen ? 0 : 1);
  QString Text = FPiece.Metres && *FPiece.Metres > 0
                     ? tr("%1 towards %2°").arg(Piece, QLocale().toString(FPiece.Azimuth, 'f', 0))
                     : Piece;
  if (Pieces > 1) Text = tr("Last piece %1, all %n pieces %2", nullptr, Pieces).arg(Text, Total);
  const QString Area = areaText();
  return Area.isEmpty() ? Text : tr("%1, encloses %2").arg(Text, Area);
}

// --- the trace

TraceTool::TraceTool(GeoMapWidget& Widget, QObject* Parent) : QObject(Parent), FWidget(Widget) {
  connect(&Widget, &GeoMapWidget::mousePositionChanged, this, &TraceTool::update);
  connect(&Widget, &GeoMapWidget::calibrationChanged, this, [this] {
    FCount = 0;
    update();
  });
  connect(&Widget, &GeoMapWidget::mapChanged, this, &TraceTool::update);
}

void TraceTool::clear() {
  FWidget.map().ClearMouseTrace();
  update();
}

void TraceTool::update() {
  const TGeoMap& Map = FWidget.map();
  const int Count = Map.NumMTracePoints();
  if (Count == FCount) return;
  if (Count < FCount || FCount == 0) {
    FCount = 0;
    FLength = {};
  }
  for (int Index = FCount + 1; Index <= Count; ++Index) {
    if (!Map.MouseTrace().Connected(Index)) continue;
    const TMouseTracePoint& From = Map.MouseTrace().Point(Index - 1);
    const TMouseTracePoint& To = Map.MouseTrace().Point(Index);
    FLength = FLength + LengthBetween(Map, {From.X, From.Y}, {To.X, To.Y});
  }
  FCount = Count;
  emit changed();
}

QString TraceTool::totalText() const {
  return FCount < 2 ? QString() : LengthText(FLength, ResolutionOf(FWidget.map()));
}

QString TraceTool::text() const {
  if (FCount == MaxMTracePoints)
    return tr("The trace is full with %1; clear it to draw on").arg(totalText());
  const QString Total = totalText();
  return Total.isEmpty() ? Total : tr("Trace %1").arg(Total);
}

}  // namespace zav
