/// @file
/// coordinate_arrays.h - the conversions of geobasics for whole arrays of points.
///
/// Each function does to every point what the single call of the same name does, several points at
/// a time. Results agree with the single call within 1e-8 m (in degrees: what such a distance is on
/// the ground); points outside the usual range (far from the zone, not finite, deep in the earth)
/// are converted by the single call itself. The same on every processor.
///
/// All arrays of a call have the same length, else EZAVGeoBasicsError is thrown and nothing
/// happens. A result may be the very array of an argument, in place; other overlaps are not
/// allowed. Units as in the single calls: degrees, metres, zones 1 to 60.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_COORDINATE_ARRAYS_H
#define ZAV_GEOBASICS_COORDINATE_ARRAYS_H

#include <span>

#include <geobasics/ellipsoids.h>
#include <platform/base/api.h>

namespace zav {

/// All in one zone; about the meridian of Greenwich for a zone outside 1..60.
ZAVGEO_API void LatLongToUTMZone(std::span<const double> Lat, std::span<const double> Long,
                                 int Zone, TGeoEllipsoid Ellipsoid, std::span<double> Easting,
                                 std::span<double> Northing);
/// Each in the zone it lies in, which is told.
ZAVGEO_API void LatLongToUTM(std::span<const double> Lat, std::span<const double> Long,
                             TGeoEllipsoid Ellipsoid, std::span<int> Zone,
                             std::span<double> Easting, std::span<double> Northing);

/// All of one zone and hemisphere.
ZAVGEO_API void UTMToLatLong(std::span<const double> Easting, std::span<const double> Northing,
                             int Zone, bool SouthHemi, TGeoEllipsoid Ellipsoid,
                             std::span<double> Lat, std::span<double> Long);
/// Each of a zone and hemisphere of its own.
ZAVGEO_API void UTMToLatLong(std::span<const double> Easting, std::span<const double> Northing,
                             std::span<const int> Zone, std::span<const THemisphere> Hemisphere,
                             TGeoEllipsoid Ellipsoid, std::span<double> Lat,
                             std::span<double> Long);

/// Each on the grid of its hemisphere.
ZAVGEO_API void LatLongToUPS(std::span<const double> Lat, std::span<const double> Long,
                             TGeoEllipsoid Ellipsoid, std::span<double> X, std::span<double> Y);
/// All on the grid of one hemisphere.
ZAVGEO_API void UPSToLatLong(std::span<const double> X, std::span<const double> Y, bool SouthHemi,
                             TGeoEllipsoid Ellipsoid, std::span<double> Lat,
                             std::span<double> Long);

/// The single call for each point; every ellipsoid and spheres.
ZAVGEO_API void GeoToCartesian(std::span<const double> Lat, std::span<const double> Long,
                               std::span<const double> Height, TGeoEllipsoid Ellipsoid,
                               std::span<double> X, std::span<double> Y, std::span<double> Z);
/// The exact inverse, for every quadrant and height.
ZAVGEO_API void ExactCartesianToGeo(std::span<const double> X, std::span<const double> Y,
                                    std::span<const double> Z, TGeoEllipsoid Ellipsoid,
                                    std::span<double> Lat, std::span<double> Long,
                                    std::span<double> Height);

/// -2 for a TargetDatum and -1 for a SourceDatum that does not exist; nothing is changed then. Else
/// a position that the single call refuses leaves its result as it was, and the code of the first
/// such position is returned; 0 when there is none.
ZAVGEO_API int ExactHelmertTransform(int SourceDatum, std::span<const double> Lat,
                                     std::span<const double> Long, std::span<const double> Height,
                                     int TargetDatum, std::span<double> Lat2,
                                     std::span<double> Long2, std::span<double> Height2);

}  // namespace zav

#endif
