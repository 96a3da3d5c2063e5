// great_circle.cpp - see great_circle.h.
// SPDX-License-Identifier: MIT
#include <platform/base/great_circle.h>

#include <cmath>
#include <numbers>

namespace zav {

double SphereGreatCircleDist(double Radius, double Lat1, double Long1, double Lat2, double Long2) {
  constexpr double RadiansPerDegree = std::numbers::pi / 180;
  const double sinLat1 = std::sin(Lat1 * RadiansPerDegree);
  const double cosLat1 = std::cos(Lat1 * RadiansPerDegree);
  const double cosLat2 = std::cos(Lat2 * RadiansPerDegree);
  // Sines of half the differences: cosines near 1 would hide a short way.
  const double halfLat = std::sin((Lat2 - Lat1) * RadiansPerDegree / 2);
  const double difference = std::remainder(Long2 - Long1, 360.0) * RadiansPerDegree;
  const double halfLong = std::sin(difference / 2);
  const double east = cosLat2 * std::sin(difference);
  // cosLat1 * sinLat2 - sinLat1 * cosLat2 * cos(difference)
  const double north =
      std::sin((Lat2 - Lat1) * RadiansPerDegree) + 2 * sinLat1 * cosLat2 * halfLong * halfLong;
  const double scalar = 1 - 2 * (halfLat * halfLat + cosLat1 * cosLat2 * halfLong * halfLong);
  return Radius * std::atan2(std::hypot(east, north), scalar);
}

}  // namespace zav
