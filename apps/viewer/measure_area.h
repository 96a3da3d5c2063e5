// measure_area.h - the area that a line on a map encloses when its ends are joined, on the
// ellipsoid.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_MEASURE_AREA_H
#define ZAV_APPS_VIEWER_MEASURE_AREA_H

#include <optional>

#include <QPolygonF>
#include <QString>

namespace zav {

class TGeoMap;

// Square metres between the geodesics through the points (pixels of the map image), whichever way
// round they go; nothing with fewer than three different points, or where one has no position.
// Lines that cross themselves count parts against each other. Source: C. F. F. Karney, "Algorithms
// for geodesics", J. Geodesy 87 (2013).
std::optional<double> AreaOn(const TGeoMap& Map, const QPolygonF& Line);

// "845 m\u00b2", "0.845 km\u00b2" in the language's own digits, three or four of them.
QString AreaText(double SquareMetres);

}  // namespace zav

#endif
