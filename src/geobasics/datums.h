/// @file
/// datums.h - the table of geodetic datums: where they hold and how they lie to WGS 84.
///
/// A datum has a row for each area with parameters of its own. Rows are counted from 1; names are
/// those of the classic list and stand more than once.
///
/// - Source: EPSG geodetic parameter data set and ESRI's registry, as PROJ ships them; order, and
///   what they lack, from DMA TR 8350.2, "Department of Defense World Geodetic System 1984".
/// - Units: metres, parts per million, arc seconds. The parameters lead from the datum's cartesian
///   coordinates to those of WGS 84; rotations are those of the position vector.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_DATUMS_H
#define ZAV_GEOBASICS_DATUMS_H

#include <array>
#include <string_view>
#include <vector>

#include <geobasics/ellipsoids.h>
#include <platform/base/api.h>

namespace zav {

/// A datum in one area: its ellipsoid, and the parameters that lead to WGS 84.
struct TDatumRow {
  std::string_view Name;                              ///< at most 35 bytes
  std::string_view Area;                              ///< where the parameters hold
  TGeoEllipsoid Ellipsoid = TGeoEllipsoid::gelWGS84;  ///< of the datum
  double Dx = 0;                                      ///< translation, metres
  double Dy = 0;                                      ///< metres
  double Dz = 0;                                      ///< metres
  double Ds = 0;                                      ///< scale difference, parts per million
  double Rx = 0;                                      ///< rotations, arc seconds
  double Ry = 0;                                      ///< arc seconds
  double Rz = 0;                                      ///< arc seconds
  std::string_view Source;  ///< the registry's code of the parameters, "EPSG:1569", or "TR 8350.2"
  /// False where no public source has parameters of this datum: they are another datum's of the
  /// same area then, with its ellipsoid, and good for no more than finding one's way.
  bool Published = true;
};

/// Number of rows of the table.
inline constexpr int NumDatumRows = 271;
/// The row of WGS 84 itself, whose parameters are all 0.
inline constexpr int WGS84DatumRow = 269;

/// A row from 1 to NumDatumRows; null outside.
ZAVGEO_API const TDatumRow* DatumRow(int Row) noexcept;

/// The rows of the name, in order; upper and lower case, blanks and punctuation do not count. None
/// for an unknown name.
ZAVGEO_API std::vector<int> FindDatumRows(std::string_view Name);

}  // namespace zav

#endif
