/// @file
/// helmert.h - positions from one geodetic datum to another, by seven parameters through WGS 84.
///
/// - Source: IOGP Publication 373-7-2, "Coordinate Conversions and Transformations including
///   Formulas", section 4.3.3, position vector transformation.
/// - Units: degrees and metres, north and east positive; heights are above the datum's ellipsoid.
///   Datums are rows of the table of datums.h.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_HELMERT_H
#define ZAV_GEOBASICS_HELMERT_H

#include <geobasics/datums.h>
#include <platform/base/api.h>

namespace zav {

/// Shifts a position. Away from WGS 84 the parameters are applied with turned signs, which leaves
/// the products of rotations and shift out: up to 3 cm for rotations of 10 seconds and shifts of
/// 600 m. The longitude is that of CartesianToGeo: between -90 and 90, so 180 degrees off on the
/// other half of the earth.
///
/// The result is 0, or tells the first thing that is wrong, in this order: -4 Long outside
/// -180..180, -3 Lat outside -90..90, -2 TargetDatum and -1 SourceDatum outside 1..NumDatumRows.
/// Lat2, Long2 and Height2 stay as they were then.
ZAVGEO_API int HelmertTransform(int SourceDatum, double Lat, double Long, double Height,
                                int TargetDatum, double& Lat2, double& Long2,
                                double& Height2) noexcept;

/// The same with the exact inverse of the transformation to WGS 84, in all quadrants and on
/// spheres; there and back is the same position to 1e-8 m.
ZAVGEO_API int ExactHelmertTransform(int SourceDatum, double Lat, double Long, double Height,
                                     int TargetDatum, double& Lat2, double& Long2,
                                     double& Height2) noexcept;

/// Cartesian coordinates of the datum to those of WGS 84, exactly; in place.
ZAVGEO_API void HelmertToWGS84(const TDatumRow& Datum, double& X, double& Y, double& Z) noexcept;
/// The way back, by the inverse of the very matrix.
ZAVGEO_API void ExactHelmertFromWGS84(const TDatumRow& Datum, double& X, double& Y,
                                      double& Z) noexcept;

}  // namespace zav

#endif
