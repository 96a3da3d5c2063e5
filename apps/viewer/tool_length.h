// tool_length.h - lengths on a map, in metres and kilometres where it is calibrated, else in
// pixels.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_TOOL_LENGTH_H
#define ZAV_APPS_VIEWER_TOOL_LENGTH_H

#include <optional>

#include <QPointF>
#include <QString>

namespace zav {

class TGeoMap;

// The straight way between two pixels of a map.
struct MapLength {
  double Pixels = 0;
  // On the map's ellipsoid, when both ends have a position.
  std::optional<double> Metres = 0;
  double Azimuth = 0;  // degrees clockwise from north, where Metres is known
};

MapLength LengthBetween(const TGeoMap& Map, QPointF FromPixel, QPointF ToPixel);
// Metres of the whole are known when those of all parts are.
MapLength operator+(const MapLength& A, const MapLength& B);

// "845 m", "12.4 km" in the language's own digits, no finer than a pixel of MetresPerPixel (not
// known: 0) is worth; without metres "123 pixels".
QString LengthText(const MapLength& Length, double MetresPerPixel);

}  // namespace zav

#endif
