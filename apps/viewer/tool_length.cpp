// tool_length.cpp - see tool_length.h.
// SPDX-License-Identifier: MIT
#include "tool_length.h"

#include <algorithm>
#include <cmath>

#include <QCoreApplication>
#include <QLineF>
#include <QLocale>

#include <geobasics/geodesic.h>
#include <geomap/geo_map.h>

namespace zav {

namespace {

struct Texts {
  Q_DECLARE_TR_FUNCTIONS(ToolLength)
};

// As many as give three or four digits, but none that is finer than a pixel.
int Decimals(double Value, double UnitsPerPixel) {
  const int Wanted = Value >= 100 ? 0 : Value >= 10 ? 1 : 2;
  if (!(UnitsPerPixel > 0)) return Wanted;
  const auto Known = static_cast<int>(std::floor(-std::log10(UnitsPerPixel) + 0.3));
  return std::clamp(std::min(Wanted + 1, Known), 0, 3);
}

}  // namespace

MapLength LengthBetween(const TGeoMap& Map, QPointF FromPixel, QPointF ToPixel) {
  MapLength Length;
  Length.Pixels = QLineF(FromPixel, ToPixel).length();
  Length.Metres.reset();
  const TCalibration& Calibration = Map.Calibration();
  TCoords From;
  TCoords To;
  if (!Calibration.ToGeo(FromPixel.x(), FromPixel.y(), From)) return Length;
  if (!Calibration.ToGeo(ToPixel.x(), ToPixel.y(), To)) return Length;
  const TGeodesic Line = GeodesicBetween(AxesOf(Map.CalibData().Ellipsoid), From.Latit, From.Longit,
                                         To.Latit, To.Longit);
  if (!std::isfinite(Line.Distance)) return Length;
  Length.Metres = Line.Distance;
  Length.Azimuth = Line.Azimuth;
  return Length;
}

MapLength operator+(const MapLength& A, const MapLength& B) {
  MapLength Sum;
  Sum.Pixels = A.Pixels + B.Pixels;
  Sum.Metres.reset();
  if (A.Metres && B.Metres) Sum.Metres = *A.Metres + *B.Metres;
  return Sum;
}

QString LengthText(const MapLength& Length, double MetresPerPixel) {
  const QLocale Locale;
  if (!Length.Metres) return Texts::tr("%1 pixels").arg(Locale.toString(Length.Pixels, 'f', 0));
  const double Metres = *Length.Metres;
  if (Metres < 1000) {
    const int Digits = MetresPerPixel > 0 && MetresPerPixel < 0.5 && Metres < 100 ? 1 : 0;
    return Texts::tr("%1 m").arg(Locale.toString(Metres, 'f', Digits));
  }
  const double Kilometres = Metres / 1000;
  return Texts::tr("%1 km").arg(
      Locale.toString(Kilometres, 'f', Decimals(Kilometres, MetresPerPixel / 1000)));
}

}  // namespace zav
