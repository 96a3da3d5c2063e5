/// @file
/// utm.h - the Universal Transverse Mercator grid: zones, bands, eastings and northings.
///
/// - Source: J. W. Hager, J. F. Behensky, B. W. Drew, "The Universal Grids: UTM and UPS", DMA TM
///   8358.2 (1989), with the widened zones of southern Norway and Svalbard.
/// - Limits: 80 degrees south to 84 degrees north, longitude -180 (included) to 180 (excluded).
/// - Units: degrees and metres, north and east positive. Scale 0.9996 on the central meridian,
///   false easting 500000 m, false northing 10000000 m in the south.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_UTM_H
#define ZAV_GEOBASICS_UTM_H

#include <string>

#include <geobasics/ellipsoids.h>
#include <platform/base/api.h>

namespace zav {

/// Central meridian of a zone in radians; 0 for a zone outside 1..60.
ZAVGEO_API double UTMCentralMeridian(int Zone) noexcept;

/// Zone 1..60 and band letter "C".."X" of a position; zone 0 and a blank outside the UTM area.
ZAVGEO_API void GeoToUTMZone(double Lat, double Long, int& Zone, char& Band) noexcept;
/// Zone and band as text, "32U"; empty outside the UTM area.
ZAVGEO_API std::string GeoToUTMZone(double Lat, double Long);

/// Grid coordinates of a position, in the zone of GeoToUTMZone. A position outside the UTM area is
/// projected about the meridian of Greenwich, with zone 0. The hemisphere is the latitude's sign.
ZAVGEO_API void LatLongToUTM(double Lat, double Long, TGeoEllipsoid Ellipsoid, int& Zone,
                             double& Easting, double& Northing) noexcept;
/// The same in the given zone, where a map or a border needs the neighbour's grid; about the
/// meridian of Greenwich for a zone outside 1..60.
ZAVGEO_API void LatLongToUTMZone(double Lat, double Long, int Zone, TGeoEllipsoid Ellipsoid,
                                 double& Easting, double& Northing) noexcept;

/// Position of grid coordinates. The caller knows the hemisphere: a southern northing taken as a
/// northern one gives a northern latitude.
ZAVGEO_API void UTMToLatLong(double Easting, double Northing, int Zone, bool SouthHemi,
                             TGeoEllipsoid Ellipsoid, double& Lat, double& Long) noexcept;

}  // namespace zav

#endif
