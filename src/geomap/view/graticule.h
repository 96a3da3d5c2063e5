/// @file
/// graticule.h - the parallels and meridians of a calibration as lines of map pixels.
///
/// They are computed once and kept as long as they stay the same; panning then only moves them.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_GRATICULE_H
#define ZAV_GEOMAP_VIEW_GRATICULE_H

#include <vector>

#include <geomap/calibration/calibration.h>
#include <platform/base/api.h>
#include <platform/base/geometry.h>

namespace zav {

/// A line of map pixels.
using TPolyline = std::vector<TPoint>;

/// Appends a point unless it is the last one again: no line, and no time spent on it.
inline void AddPoint(TPolyline& Line, TPoint P) {
  if (Line.empty() || Line.back() != P) Line.push_back(P);
}

/// Keeps the lines that were computed last.
class ZAVGEO_API TGraticule {
 public:
  /// The lines for a spacing in degrees, 0 for an automatic one, leaving out those that are less
  /// than a device pixel from the one before; Factor is device pixels a map pixel. Empty for a
  /// model without a graticule and for too few control points. InMapZone: see
  /// TMapLook::GratInMapZone. Points are map pixels, or parts of them, as many to a pixel as Parts
  /// says. Valid until the next call.
  const std::vector<TPolyline>& Lines(const TCalibration& Calibration, double GratLineDist,
                                      bool InMapZone, double Factor, int32_t Parts = 1);

 private:
  bool FValid = false;
  TCalibration FCalibration;
  double FGratLineDist = 0;
  bool FInMapZone = false;
  double FFactor = 0;
  int32_t FParts = 1;
  std::vector<TPolyline> FLines;
};

}  // namespace zav

#endif
