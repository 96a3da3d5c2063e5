// empty_map.h - a generated map: a white rectangle of degrees with labelled parallels and
// meridians, and the calibration that goes with it. Needs no control.
//
// Rows and columns are proportional to degrees. The rectangle fills the bitmap, or with a margin
// the part that lies 30 pixels inside it; row Height (without margin) is the lower border, one
// below the last row of pixels.
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

constexpr int32_t EmptyMapMargin = 30;
constexpr int32_t MinEmptyMapSide = 100;

struct ZAVGEO_API TEmptyMap {
  double LatLow = 0;
  double LongLow = 0;
  double LatHigh = 0;
  double LongHigh = 0;
  double LatGridDist = 1;  // degrees, above 0
  double LongGridDist = 1;
  int32_t Width = MinEmptyMapSide;  // pixels of the whole bitmap
  int32_t Height = MinEmptyMapSide;
  bool Margin = false;

  int32_t Inset() const noexcept { return Margin ? EmptyMapMargin : 0; }
  // Pixels of a position, not rounded. The rectangle must not be empty.
  double PixelX(double Long) const noexcept;
  double PixelY(double Lat) const noexcept;
};

// Brings the values into order: corners sorted, a grid distance not above 0 becomes 1, a side below
// 100 pixels 100. Throws EZAVGeoMapError, with the bare reason, for a corner that is not finite.
ZAVGEO_API TEmptyMap MakeEmptyMap(double Lat1, double Long1, double Lat2, double Long2,
                                  double LatGridDist, double LongGridDist, int32_t Width,
                                  int32_t Height, bool Margin);

// The text beside a parallel or a meridian, such as " 45\u00B030' N ", with as many parts as the
// grid distance needs: degrees for whole degrees, seconds up to 0.06 degrees, else minutes.
ZAVGEO_API std::string EmptyMapLatitudeText(double Lat, double GridDist);
ZAVGEO_API std::string EmptyMapLongitudeText(double Long, double GridDist);

struct TEmptyMapLabel {
  std::string Text;
  TPoint At;  // where the text begins: its top left corner
  bool Upward = false;
  TRect Box;  // what it covers
};

// The labels that are drawn: none overlaps another or leaves the bitmap. Canvas measures them in
// its font.
ZAVGEO_API std::vector<TEmptyMapLabel> EmptyMapLabels(const TEmptyMap& Map, TCanvas& Canvas);

// Draws on a canvas of Width x Height pixels. Of lines closer than one pixel some are left out. The
// canvas has its usual pen, brush and font afterwards.
ZAVGEO_API void DrawEmptyMap(const TEmptyMap& Map, TCanvas& Canvas);

// For cmEquiRect: the corners and nine control points, 3 by 3, from the lower left.
ZAVGEO_API TCalibData EmptyMapCalibration(const TEmptyMap& Map);

}  // namespace zav

#endif
