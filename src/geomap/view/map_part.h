/// @file
/// map_part.h - what is drawn of a map when it is not its window: a picture to keep, a page.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_MAP_PART_H
#define ZAV_GEOMAP_VIEW_MAP_PART_H

#include <platform/base/geometry.h>

namespace zav {

/// A part of a map, and the picture that it fills.
struct TMapPart {
  TPoint TopLeft;     ///< the map pixel at the canvas's pixel (0, 0)
  double Factor = 1;  ///< canvas pixels per map pixel, above 0
  double Scale =
      1;       ///< canvas pixels per control pixel, above 0: texts, markers and pens grow by it
  TSize Size;  ///< canvas pixels
  bool Paper = false;  ///< what is outside the map is white instead of the background's colour
};

/// Control pixels have this many to the inch.
constexpr double ControlPixelsPerInch = 96;
/// An inch, by definition.
constexpr double MetresPerInch = 0.0254;

/// Pixels of paper per map pixel at the scale 1:Denominator; Resolution is in metres per map pixel.
constexpr double PaperFactor(double Resolution, double Denominator, double PixelsPerInch) noexcept {
  return Resolution / Denominator / MetresPerInch * PixelsPerInch;
}

}  // namespace zav

#endif
