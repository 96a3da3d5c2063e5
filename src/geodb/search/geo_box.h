/// @file
/// geo_box.h - boxes of items and regions that are searched, in degrees.
///
/// Latitudes run from -90 to 90, longitudes from -180 to 180, north and east positive. Edges belong
/// to a box. Longitudes are compared as they stand: 180 and -180 are one meridian only to a box or
/// a region that crosses it, which is one whose western edge is greater than its eastern.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_SEARCH_GEO_BOX_H
#define ZAV_GEODB_SEARCH_GEO_BOX_H

#include <cstdint>
#include <limits>

#include <platform/base/api.h>

namespace zav {

/// The box of an item, as records hold it.
struct TGeoBox {
  float LatLow = 0;    ///< south
  float LatHigh = 0;   ///< north
  float LongLow = 0;   ///< west
  float LongHigh = 0;  ///< east
  friend bool operator==(const TGeoBox&, const TGeoBox&) = default;
};

/// A box whose southern edge is above its northern, or that holds a NaN, holds no position: it is
/// the box of an item without points. It meets no region.
constexpr bool IsEmptyBox(const TGeoBox& Box) noexcept {
  return !(Box.LatLow <= Box.LatHigh) || Box.LongLow != Box.LongLow || Box.LongHigh != Box.LongHigh;
}

/// Edges of any size: a region that is 360 degrees wide or wider has all longitudes, others are
/// turned into -180 to 180. South above North, or a NaN, is a region that holds nothing.
struct TGeoRegion {
  double South = 0;  ///< degrees
  double West = 0;   ///< degrees
  double North = 0;  ///< degrees
  double East = 0;   ///< degrees
};

/// A region made ready for many tests. Edges are rounded to the single-precision number next
/// inside, which changes no result.
class ZAVGEO_API TRegionTest {
 public:
  /// Turns and rounds the edges.
  explicit TRegionTest(const TGeoRegion& Region) noexcept;

  /// Whether nothing lies in the region.
  bool IsEmpty() const noexcept { return FEmpty; }
  /// Whether the region and a box have a position in common; neither may be empty. For edges that
  /// are numbers, or vectors of numbers; the result is then a vector of truth values.
  template <class T>
  auto Meets(T LatLow, T LatHigh, T LongLow, T LongHigh) const noexcept {
    const auto WestMeets = LongHigh >= FWest;
    const auto EastMeets = LongLow <= FEast;
    const auto Turned = LongLow > LongHigh;
    // Of two ranges of longitudes that both cross 180 degrees, each holds 180; of one that does and
    // one that does not, one edge is enough.
    return (LatLow <= FNorth) & (LatHigh >= FSouth) &
           ((WestMeets & EastMeets) | ((WestMeets | EastMeets) & (Turned | FCrosses)) |
            (Turned & FCrosses));
  }

 private:
  float FSouth = 0;
  float FNorth = 0;
  float FWest = -std::numeric_limits<float>::infinity();
  float FEast = std::numeric_limits<float>::infinity();
  int32_t FCrosses = 0;  // 180 degrees: all bits or none
  bool FEmpty = true;
};

/// Whether a box and a region have a position in common.
ZAVGEO_API bool BoxMeetsRegion(const TGeoBox& Box, const TGeoRegion& Region) noexcept;

/// Whether a position lies in a box.
ZAVGEO_API bool BoxContains(const TGeoBox& Box, double Lat, double Long) noexcept;

/// The mean radius of the Earth in metres, (2 a + b) / 3 of GRS 80 (H. Moritz, Geodetic Reference
/// System 1980, Journal of Geodesy 74, 2000).
constexpr double MeanEarthRadius = 6371008.7714;

/// Metres on the sphere of MeanEarthRadius from a position to the nearest point of a box; 0 within
/// it and infinite for an empty one. Latitudes of the box beyond the poles count as the poles.
ZAVGEO_API double DistanceToBox(const TGeoBox& Box, double Lat, double Long) noexcept;

}  // namespace zav

#endif
