/// @file
/// great_circle.h - distances on a sphere.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_GREAT_CIRCLE_H
#define ZAV_PLATFORM_BASE_GREAT_CIRCLE_H

#include <platform/base/api.h>

namespace zav {

/// The length of the shortest way between two points on a sphere, in the unit of Radius. Latitudes
/// and longitudes in degrees; longitudes may differ by any number of turns.
///
/// The angle is the arc tangent of the lengths of the cross and the scalar product of the two
/// directions (T. Vincenty, Survey Review 23 (176), 1975, for a flattening of 0), which keeps its
/// digits for points that are close to each other and for points that lie opposite.
ZAVGEO_API double SphereGreatCircleDist(double Radius, double Lat1, double Long1, double Lat2,
                                        double Long2);

}  // namespace zav

#endif
