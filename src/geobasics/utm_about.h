// utm_about.h - UTM about a central meridian in radians instead of a zone; for geobasics itself.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_UTM_ABOUT_H
#define ZAV_GEOBASICS_UTM_ABOUT_H

#include <geobasics/ellipsoids.h>

namespace zav {

inline constexpr double UTMScale = 0.9996;
inline constexpr double UTMFalseEasting = 500000.0;
inline constexpr double UTMFalseNorthing = 10000000.0;

void LatLongToUTMAbout(double Lat, double Long, double Meridian, TGeoEllipsoid Ellipsoid,
                       double& Easting, double& Northing) noexcept;
void UTMToLatLongAbout(double Easting, double Northing, double Meridian, bool SouthHemi,
                       TGeoEllipsoid Ellipsoid, double& Lat, double& Long) noexcept;

}  // namespace zav

#endif
