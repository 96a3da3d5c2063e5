/// @file
/// transverse_mercator.h - latitude and longitude to the plane and back, about any central
/// meridian.
///
/// - Method: series in powers of the longitude difference, to the 8th order in the northing and the
///   7th in the easting; meridian arc and footpoint latitude by Helmert's series in the third
///   flattening n = (a - b)/(a + b).
/// - Source: J. P. Snyder, "Map Projections - A Working Manual", USGS Professional Paper 1395
///   (1987), chapter 8; B. Hofmann-Wellenhof, H. Lichtenegger, J. Collins, "GPS: Theory and
///   Practice" (1994), section 10.3, for the terms written here.
/// - Accuracy: better than 0.1 mm within 3 degrees of the central meridian up to 80 degrees
///   latitude (transverse_mercator_test). It falls off quickly beyond some 6 degrees.
/// - Units: radians and metres; no scale factor, no false origin; east and north positive.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_TRANSVERSE_MERCATOR_H
#define ZAV_GEOBASICS_TRANSVERSE_MERCATOR_H

#include <geobasics/ellipsoids.h>
#include <platform/base/api.h>

namespace zav {

/// Length of the meridian from the equator to the latitude Phi; negative in the south.
ZAVGEO_API double ArcLengthOfMeridian(double Phi, TGeoEllipsoid Ellipsoid) noexcept;

/// Projects a position; X and Y are counted from the central meridian Lambda0 and the equator. The
/// longitude difference is taken as it is, not reduced to -pi..pi.
ZAVGEO_API void LatLongToTM(double Phi, double Lambda, double Lambda0, TGeoEllipsoid Ellipsoid,
                            double& X, double& Y) noexcept;

/// The reverse of LatLongToTM.
ZAVGEO_API void TMToLatLong(double X, double Y, double Lambda0, TGeoEllipsoid Ellipsoid,
                            double& Phi, double& Lambda) noexcept;

}  // namespace zav

#endif
