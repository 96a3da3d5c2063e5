// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <geobasics/geodesic.h>

#include <GeographicLib/Geodesic.hpp>

#include <cmath>
#include <random>

namespace zav {
namespace {

const TEllipsoidAxes Wgs84 = GeoEllipsoidData[0];

TEST(Geodesic, EqualsAnIndependentSolution) {
  std::mt19937 Random(11);
  const auto Number = [&](double Low, double High) {
    return std::uniform_real_distribution<double>(Low, High)(Random);
  };
  for (const TGeoEllipsoid Id : {TGeoEllipsoid::gelWGS84, TGeoEllipsoid::gelClrk80,
                                 TGeoEllipsoid::gelBess41, TGeoEllipsoid::gelSphere}) {
    const TEllipsoidAxes Axes = GeoEllipsoidData[static_cast<size_t>(Id)];
    const GeographicLib::Geodesic Judge(Axes.A, (Axes.A - Axes.B) / Axes.A);
    for (int I = 0; I < 3000; ++I) {
      // Far ones, and ones a few kilometres or metres apart as on a map.
      const double Reach = I % 3 == 0 ? 90 : I % 3 == 1 ? 0.05 : 0.0001;
      const double Lat1 = Number(-90, 90);
      const double Long1 = Number(-180, 180);
      const double Lat2 =
          I % 3 == 0 ? Number(-90, 90) : std::clamp(Lat1 + Number(-Reach, Reach), -90.0, 90.0);
      const double Long2 = Long1 + Number(-2 * Reach, 2 * Reach) + 360 * (I % 2);
      double Distance = 0;
      double Azimuth = 0;
      double AzimuthThere = 0;
      const double Arc = Judge.Inverse(Lat1, Long1, Lat2, Long2, Distance, Azimuth, AzimuthThere);
      const TGeodesic Line = GeodesicBetween(Axes, Lat1, Long1, Lat2, Long2);
      if (Arc > 178.5) {
        ASSERT_NEAR(Line.Distance, Distance, 0.006 * Distance);
        continue;
      }
      ASSERT_NEAR(Line.Distance, Distance, 1e-3) << Lat1 << " " << Long1 << " " << Lat2;
      ASSERT_GE(Line.Azimuth, 0);
      ASSERT_LT(Line.Azimuth, 360);
      // A metre gives no azimuth to nine digits, nor is there one at a pole.
      const double Across = std::remainder(Line.Azimuth - Azimuth, 360) * Distance / 57.3;
      if (std::abs(Lat1) < 89.9) {
        ASSERT_NEAR(Across, 0, 1e-2);
      }
    }
  }
}

TEST(Geodesic, PolesEquatorOppositeAndNothing) {
  const double Quarter = 10001965.729;  // of a meridian, WGS 84
  struct TCase {
    double Lat1, Long1, Lat2, Long2, Distance, Azimuth, Tolerance;
  };
  const double Degree = 6378137.0 * 3.14159265358979324 / 180;
  for (const TCase& C :
       {TCase{0, 0, 90, 77, Quarter, 0, 1e-3}, TCase{90, 12, -90, 30, 2 * Quarter, -1, 1e-3},
        TCase{0, 179, 0, -179, 2 * Degree, 90, 1e-3}, TCase{0, 10, 0, 9, Degree, 270, 1e-3},
        TCase{47, 8, 47, 368, 0, 0, 1e-6}, TCase{100, 0, 90, 50, 0, -1, 1e-6},
        TCase{0, 0, 0, 180, 2 * Quarter, -1, 1e5}, TCase{0, 0, 0.3, 179.7, 2 * Quarter, -1, 1e5}}) {
    const TGeodesic Line = GeodesicBetween(Wgs84, C.Lat1, C.Long1, C.Lat2, C.Long2);
    EXPECT_NEAR(Line.Distance, C.Distance, C.Tolerance) << C.Lat1 << " " << C.Lat2;
    if (C.Azimuth >= 0) {
      EXPECT_NEAR(Line.Azimuth, C.Azimuth, 1e-9);
    }
  }
  EXPECT_TRUE(std::isnan(GeodesicBetween(Wgs84, NAN, 0, 1, 1).Distance));
  EXPECT_TRUE(std::isnan(GeodesicBetween(Wgs84, 0, INFINITY, 1, 1).Distance));
}

}  // namespace
}  // namespace zav
