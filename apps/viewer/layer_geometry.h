// layer_geometry.h - what of the Earth a view shows, and lines cut to what it shows.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LAYER_GEOMETRY_H
#define ZAV_APPS_VIEWER_LAYER_GEOMETRY_H

#include <vector>

#include <QPointF>
#include <QRectF>

#include <geodb/search/geo_box.h>
#include <geomap/calibration/calibration.h>

namespace zav {

// A region that holds all that lies in a part of the map image. It may be larger; without a fit it
// holds nothing.
TGeoRegion RegionOf(const TCalibration& Calibration, const QRectF& MapArea);

// A line is points in pixels; a point that is no number, and a step across half the Earth, are
// gaps.
using PixelLine = std::vector<QPointF>;
inline bool IsGap(QPointF Point) {
  return !(Point.x() - Point.x() == 0 && Point.y() - Point.y() == 0);
}

// The pieces of a line that lie inside Area; corners nearer to the one before than MinStep are left
// out, but not the ends.
std::vector<PixelLine> CutLine(const PixelLine& Line, const QRectF& Area, double MinStep);
// The same of an area. What runs along the edges of Area belongs to the result's outline.
PixelLine CutPolygon(const PixelLine& Polygon, const QRectF& Area);

// From a point to the nearest one of a line; infinite for a line without points.
double DistanceToLine(const PixelLine& Line, QPointF Point);
// By the even-odd rule.
bool PolygonHolds(const PixelLine& Polygon, QPointF Point);

}  // namespace zav

#endif
