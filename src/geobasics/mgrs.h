/// @file
/// mgrs.h - the Military Grid Reference System: letters and digits of a square in UTM or UPS.
///
/// - Source: J. W. Hager, L. L. Fry, S. S. Jacks, D. R. Hill, "Datums, Ellipsoids, Grids, and Grid
///   Reference Systems", DMA TM 8358.1 (1990), chapter 3; the lettering of WGS 84 (AA) on every
///   ellipsoid.
/// - Units: metres.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_MGRS_H
#define ZAV_GEOBASICS_MGRS_H

#include <optional>
#include <string>
#include <string_view>

#include <geobasics/ellipsoids.h>
#include <platform/base/api.h>

namespace zav {

/// The reference "32T MS 70693 50563" of a position in degrees, in UTM from 80 south to 84 north,
/// in UPS beyond ("Z AH 00000 00000"). Digits of each coordinate: 0 (squares of 100 km) to 8 (of a
/// millimetre); digits are cut, not rounded, so that the reference names the square that the
/// position lies in. Throws EZAVGeoBasicsError for a position that is not on the globe.
ZAVGEO_API std::string ToMGRS(double Lat, double Long, int Digits,
                              TGeoEllipsoid Ellipsoid = TGeoEllipsoid::gelWGS84);

/// A square of the reference system, as its text tells.
struct TMGRSSquare {
  int Zone = 0;         ///< UTM zone, 0 for UPS
  bool South = false;   ///< hemisphere
  double Easting = 0;   ///< of the south-western corner
  double Northing = 0;  ///< of the same corner
  double Size = 0;      ///< 100000, 10000, ... metres
};

/// Whether the text is shaped like a reference: zone and band, two letters, digits. Such a text may
/// still be none.
ZAVGEO_API bool LooksLikeMGRS(std::string_view Text) noexcept;

/// Reads a reference, with or without blanks between its parts, upper and lower case alike. Throws
/// EPositionTextError.
ZAVGEO_API TMGRSSquare ParseMGRS(std::string_view Text);

}  // namespace zav

#endif
