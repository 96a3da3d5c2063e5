/// @file
/// ups.h - the Universal Polar Stereographic grid of the polar caps.
///
/// - Source: J. W. Hager, J. F. Behensky, B. W. Drew, "The Universal Grids: UTM and UPS", DMA TM
///   8358.2 (1989); J. P. Snyder, "Map Projections - A Working Manual", USGS PP 1395 (1987),
///   chapter 21.
/// - Limits: defined for whole hemispheres, used beyond 84 degrees north and 80 degrees south.
/// - Units: degrees and metres, north and east positive. Scale 0.994 at the pole, which lies at x =
///   y = 2000000 m.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_UPS_H
#define ZAV_GEOBASICS_UPS_H

#include <geobasics/ellipsoids.h>
#include <platform/base/api.h>

namespace zav {

/// Grid coordinates of a position: on the northern grid for a latitude of 0 or more, else on the
/// southern one. A longitude beyond -180..180 is turned once. Axes of the grid are met exactly.
ZAVGEO_API void LatLongToUPS(double Lat, double Long, TGeoEllipsoid Ellipsoid, double& X,
                             double& Y) noexcept;

/// Position of grid coordinates.
ZAVGEO_API void UPSToLatLong(double X, double Y, bool SouthHemi, TGeoEllipsoid Ellipsoid,
                             double& Lat, double& Long) noexcept;

}  // namespace zav

#endif
