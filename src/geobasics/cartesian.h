/// @file
/// cartesian.h - geographic positions to earth-centred cartesian coordinates and back.
///
/// X points to the equator at Greenwich, Y to the equator at 90 degrees east, Z to the north pole.
///
/// - Source: B. R. Bowring, "Transformation from spatial to geographical coordinates", Survey
///   Review 23 (181), 1976; the start value is of his "The accuracy of geodetic latitude and height
///   equations", Survey Review 28 (218), 1985.
/// - Units: degrees and metres, north and east positive; heights are above the ellipsoid.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_CARTESIAN_H
#define ZAV_GEOBASICS_CARTESIAN_H

#include <geobasics/ellipsoids.h>
#include <platform/base/api.h>

namespace zav {

/// Cartesian coordinates of a position; exact, on every ellipsoid and on spheres.
ZAVGEO_API void GeoToCartesian(double Lat, double Long, double Height, TGeoEllipsoid Ellipsoid,
                               double& X, double& Y, double& Z) noexcept;

/// Position of cartesian coordinates in one step, without iteration; to 1e-9 degrees and 0.1 mm
/// from 5 km below the surface to 10 km above it. The longitude is the arctangent of Y/X and lies
/// between -90 and 90: where X is negative it is 180 degrees off. NaN on a sphere. On the earth's
/// axis (X = Y = 0) nothing is promised. New programs take ExactCartesianToGeo.
ZAVGEO_API void CartesianToGeo(double X, double Y, double Z, TGeoEllipsoid Ellipsoid, double& Lat,
                               double& Long, double& Height) noexcept;

/// The same for every quadrant, every height and for spheres: longitude -180 to 180, 0 on the axis;
/// 1e-13 degrees and 1e-8 m. Within 50 km of the earth's centre, where several
/// latitudes belong to one point, it tells one of them; the centre itself is below the north pole.
ZAVGEO_API void ExactCartesianToGeo(double X, double Y, double Z, TGeoEllipsoid Ellipsoid,
                                    double& Lat, double& Long, double& Height) noexcept;

}  // namespace zav

#endif
