/// @file
/// line2d.h - straight lines in the plane.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_LINE2D_H
#define ZAV_PLATFORM_BASE_LINE2D_H

#include <platform/base/api.h>

namespace zav {

/// A straight line without ends, with the direction from the first of its two points to the second.
class ZAVGEO_API TSLine {
 public:
  /// The line through two points. Two equal points, infinities and NaN make no line.
  void LineFrom2Points(double X1, double Y1, double X2, double Y2) noexcept;

  /// The part of the line in a box whose sides may come in any order, in the line's direction.
  /// False, and the results untouched, when no part of the line lies in the box; the box's sides
  /// and corners belong to it.
  bool ClipBox(double Left, double Top, double Right, double Bottom, double& X1, double& Y1,
               double& X2, double& Y2) const noexcept;

 private:
  // X + t * Dx, Y + t * Dy; no line while both are 0.
  double FX = 0;
  double FY = 0;
  double FDx = 0;
  double FDy = 0;
};

}  // namespace zav

#endif
