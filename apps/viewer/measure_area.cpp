// measure_area.cpp - see measure_area.h.
// SPDX-License-Identifier: MIT
#include "measure_area.h"

#include <algorithm>
#include <cmath>

#include <QCoreApplication>
#include <QLocale>

#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/PolygonArea.hpp>

#include <geomap/geo_map.h>

namespace zav {

std::optional<double> AreaOn(const TGeoMap& Map, const QPolygonF& Line) {
  const TEllipsoidAxes Axes = AxesOf(Map.CalibData().Ellipsoid);
  const GeographicLib::Geodesic Geodesic(Axes.A, (Axes.A - Axes.B) / Axes.A);
  GeographicLib::PolygonArea Polygon(Geodesic);
  QPolygonF Corners;
  for (const QPointF& Pixel : Line) {
    // A double click puts its point twice.
    if (!Corners.isEmpty() && Corners.constLast() == Pixel) continue;
    TCoords Position;
    if (!Map.Calibration().ToGeo(Pixel.x(), Pixel.y(), Position)) return std::nullopt;
    if (std::fabs(Position.Latit) > 90) return std::nullopt;
    Corners << Pixel;
    Polygon.AddPoint(Position.Latit, Position.Longit);
  }
  if (Corners.size() > 1 && Corners.constFirst() == Corners.constLast()) Corners.removeLast();
  if (Corners.size() < 3) return std::nullopt;
  double Perimeter = 0;
  double Area = 0;
  Polygon.Compute(false, true, Perimeter, Area);
  if (!std::isfinite(Area)) return std::nullopt;
  return std::fabs(Area);
}

QString AreaText(double SquareMetres) {
  const bool Small = SquareMetres < 100000;
  const double Value = Small ? SquareMetres : SquareMetres / 1e6;
  const int Digits = Value > 0 ? static_cast<int>(std::floor(std::log10(Value))) + 1 : 1;
  const QString Number = QLocale().toString(Value, 'f', std::clamp(3 - Digits, 0, 3));
  const QString Text = Small ? QCoreApplication::translate("MeasureArea", "%1 m\u00b2")
                             : QCoreApplication::translate("MeasureArea", "%1 km\u00b2");
  return Text.arg(Number);
}

}  // namespace zav
