/// @file
/// empty_map.h - a generated map: a white rectangle of degrees with labelled parallels and
/// meridians, and the calibration that goes with it. Needs no control.
///
/// Rows and columns are proportional to degrees. The rectangle fills the bitmap, or with a margin
/// the part that lies 30 pixels inside it; row Height (without margin) is the lower border, one
/// below the last row of pixels.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_EMPTY_MAP_H
#define ZAV_GEOMAP_VIEW_EMPTY_MAP_H

#include <cstdint>
#include <string>
#include <vector>

#include <geomap/calibration/calib_data.h>
#include <platform/base/api.h>
#include <platform/host/canvas.h>

namespace zav {

/// Pixels from the bitmap's edge to the rectangle, with a margin.
constexpr int32_t EmptyMapMargin = 30;
/// Pixels of either side, at least.
constexpr int32_t MinEmptyMapSide = 100;

/// What a generated map shows and how large it is.
struct ZAVGEO_API TEmptyMap {
  double LatLow = 0;                 ///< southern edge, degrees
  double LongLow = 0;                ///< western edge, degrees
  double LatHigh = 0;                ///< northern edge, degrees
  double LongHigh = 0;               ///< eastern edge, degrees
  double LatGridDist = 1;            ///< degrees, above 0
  double LongGridDist = 1;           ///< degrees, above 0
  int32_t Width = MinEmptyMapSide;   ///< pixels of the whole bitmap
  int32_t Height = MinEmptyMapSide;  ///< pixels of the whole bitmap
  bool Margin = false;               ///< whether the rectangle lies inside the bitmap, in a frame

  /// Pixels from the bitmap's edge to the rectangle.
  int32_t Inset() const noexcept { return Margin ? EmptyMapMargin : 0; }
  /// Pixels of a position, not rounded. The rectangle must not be empty.
  double PixelX(double Long) const noexcept;
  /// The row of a latitude.
  double PixelY(double Lat) const noexcept;
};

/// Brings the values into order: corners sorted, a grid distance not above 0 becomes 1, a side
/// below 100 pixels 100. Throws EZAVGeoMapError, with the bare reason, for a corner that is not
/// finite.
ZAVGEO_API TEmptyMap MakeEmptyMap(double Lat1, double Long1, double Lat2, double Long2,
                                  double LatGridDist, double LongGridDist, int32_t Width,
                                  int32_t Height, bool Margin);

/// The text beside a parallel or a meridian, such as " 45" (degree sign) "30' N ", with as many
/// parts as the grid distance needs: degrees for whole degrees, seconds up to 0.06 degrees, else
/// minutes.
ZAVGEO_API std::string EmptyMapLatitudeText(double Lat, double GridDist);
/// The same beside a meridian.
ZAVGEO_API std::string EmptyMapLongitudeText(double Long, double GridDist);

/// A label and its place.
struct TEmptyMapLabel {
  std::string Text;     ///< what is written
  TPoint At;            ///< where the text begins: its top left corner
  bool Upward = false;  ///< turned, to be read from below
  TRect Box;            ///< what it covers
};

/// The labels that are drawn: none overlaps another or leaves the bitmap. Canvas measures them in
/// its font.
ZAVGEO_API std::vector<TEmptyMapLabel> EmptyMapLabels(const TEmptyMap& Map, TCanvas& Canvas);

/// Draws on a canvas of Width x Height pixels. Of lines closer than one pixel some are left out.
/// The canvas has its usual pen, brush and font afterwards.
ZAVGEO_API void DrawEmptyMap(const TEmptyMap& Map, TCanvas& Canvas);

/// For cmEquiRect: the corners and nine control points, 3 by 3, from the lower left.
ZAVGEO_API TCalibData EmptyMapCalibration(const TEmptyMap& Map);

}  // namespace zav

#endif
