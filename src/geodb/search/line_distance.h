/// @file
/// line_distance.h - how far a position is from a list of points that are joined by lines.
///
/// On a sphere of MeanEarthRadius; two points are joined by the shortest line on it (for points
/// opposite each other any one).
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_SEARCH_LINE_DISTANCE_H
#define ZAV_GEODB_SEARCH_LINE_DISTANCE_H

#include <array>
#include <cmath>

#include <platform/base/api.h>

namespace zav {

/// Takes the points one by one, so that they need not be in memory.
class ZAVGEO_API TLineDistance {
 public:
  /// The position that is asked for, in degrees.
  TLineDistance(double Lat, double Long) noexcept;

  /// The next point, in degrees. One that is not finite is left out.
  void Add(double Lat, double Long) noexcept;

  /// Metres to the nearest point of the line so far; infinite without points.
  double Metres() const noexcept;

 private:
  using TVector = std::array<double, 3>;
  static TVector VectorOf(double Lat, double Long) noexcept;

  TVector FPosition;
  TVector FLast = {};
  bool FAny = false;
  double FAngle = HUGE_VAL;  // radians
};

/// The same for a whole list of points with members Latit and Longit; of a closed one the last
/// point is joined with the first, too.
template <class TPoints>
double DistanceToLine(const TPoints& Points, bool Closed, double Lat, double Long) noexcept {
  TLineDistance Distance(Lat, Long);
  for (const auto& Point : Points) Distance.Add(Point.Latit, Point.Longit);
  if (Closed && !Points.empty()) Distance.Add(Points.front().Latit, Points.front().Longit);
  return Distance.Metres();
}

}  // namespace zav

#endif
