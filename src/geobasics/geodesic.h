/// @file
/// geodesic.h - the shortest line between two points on an ellipsoid.
///
/// - Source: T. Vincenty, "Direct and inverse solutions of geodesics on the ellipsoid with
///   application of nested equations", Survey Review 23 (176), 1975, the inverse solution. Exact to
///   a millimetre. It does not converge for points that lie nearly opposite, within about a degree;
///   there the great circle of the mean radius is told instead, half a percent off at most.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_GEODESIC_H
#define ZAV_GEOBASICS_GEODESIC_H

#include <geobasics/ellipsoids.h>
#include <platform/base/api.h>

namespace zav {

/// Length and direction of a geodesic.
struct TGeodesic {
  double Distance = 0;  ///< metres
  double Azimuth = 0;   ///< at the first point, degrees clockwise from north, 0 to below 360
};

/// Latitudes and longitudes in degrees; longitudes may differ by any number of turns, latitudes
/// beyond a pole count as the pole. The same point: 0, 0. A number that is not finite: NaN.
ZAVGEO_API TGeodesic GeodesicBetween(const TEllipsoidAxes& Ellipsoid, double Lat1, double Long1,
                                     double Lat2, double Long2);

}  // namespace zav

#endif
