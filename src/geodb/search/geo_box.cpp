// geo_box.cpp - see geo_box.h.
// SPDX-License-Identifier: MIT
#include <geodb/search/geo_box.h>

#include <platform/base/great_circle.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zav {
namespace {

constexpr double RadiansPerDegree = std::numbers::pi / 180;

// The nearest single-precision number that is not above, or not below.
float AtMost(double Value) noexcept {
  const auto Rounded = static_cast<float>(Value);
  return Rounded > Value ? std::nextafter(Rounded, -HUGE_VALF) : Rounded;
}
float AtLeast(double Value) noexcept {
  const auto Rounded = static_cast<float>(Value);
  return Rounded < Value ? std::nextafter(Rounded, HUGE_VALF) : Rounded;
}

// Turned into -180 to 180.
double Turned(double Long) noexcept {
  return std::fabs(Long) <= 180 ? Long : std::remainder(Long, 360.0);
}

// Degrees of longitude, 0 to 180, from a meridian to the nearest of a range of meridians.
double LongitudeGap(double West, double East, double Long) noexcept {
  if (!(West <= East && East - West < 360)) return 0;  // all of them
  for (const double Same : {Long, Long - 360, Long + 360})
    if (West <= Same && Same <= East) return 0;
  return std::min(std::fabs(std::remainder(West - Long, 360.0)),
                  std::fabs(std::remainder(East - Long, 360.0)));
}

double DistanceToMeridian(double South, double North, double Gap, double Lat) noexcept {
  const auto To = [&](double Of) {
    return SphereGreatCircleDist(MeanEarthRadius, Lat, 0, Of, Gap);
  };
  if (South == North) return To(South);
  // On a full meridian the nearest latitude is that of the foot of the perpendicular; beyond 90
  // degrees of longitude this lies on the far half, and an end of the piece is nearest.
  const double Angle = Gap * RadiansPerDegree;
  const double Phi = Lat * RadiansPerDegree;
  const double Foot = std::atan2(std::sin(Phi), std::cos(Phi) * std::cos(Angle)) / RadiansPerDegree;
  if (Gap <= 90) return To(std::clamp(Foot, South, North));
  return std::min(To(South), To(North));
}

}  // namespace

TRegionTest::TRegionTest(const TGeoRegion& Region) noexcept {
  if (!(Region.South <= Region.North) || std::isnan(Region.West) || std::isnan(Region.East)) return;
  FEmpty = false;
  FSouth = AtLeast(Region.South);
  FNorth = AtMost(Region.North);
  if (Region.East - Region.West >= 360) return;  // all longitudes
  const double West = Turned(Region.West);
  const double East = Turned(Region.East);
  FCrosses = West > East ? -1 : 0;
  FWest = AtLeast(West);
  FEast = AtMost(East);
}

bool BoxMeetsRegion(const TGeoBox& Box, const TGeoRegion& Region) noexcept {
  const TRegionTest Test(Region);
  return !Test.IsEmpty() && !IsEmptyBox(Box) &&
         Test.Meets(Box.LatLow, Box.LatHigh, Box.LongLow, Box.LongHigh);
}

bool BoxContains(const TGeoBox& Box, double Lat, double Long) noexcept {
  return BoxMeetsRegion(Box, {Lat, Long, Lat, Long});
}

double DistanceToBox(const TGeoBox& Box, double Lat, double Long) noexcept {
  if (IsEmptyBox(Box)) return HUGE_VAL;
  const double South = std::clamp<double>(Box.LatLow, -90, 90);
  const double North = std::clamp<double>(Box.LatHigh, -90, 90);
  const double Phi = std::clamp(Lat, -90.0, 90.0);
  double East = Box.LongHigh;
  if (Box.LongLow > Box.LongHigh) East += 360;  // the box crosses 180 degrees
  const double Gap = LongitudeGap(Box.LongLow, East, Turned(Long));
  if (Gap > 0) return DistanceToMeridian(South, North, Gap, Phi);
  if (South <= Phi && Phi <= North) return 0;
  return SphereGreatCircleDist(MeanEarthRadius, Phi, 0, Phi < South ? South : North, 0);
}

}  // namespace zav
