// ups_test.cpp - UPS against GeographicLib.
// SPDX-License-Identifier: MIT
#include <geobasics/ups.h>
#include <gtest/gtest.h>

#include <GeographicLib/PolarStereographic.hpp>
#include <cmath>
#include <numbers>
#include <random>

namespace zav {
namespace {

using enum TGeoEllipsoid;

constexpr double Tolerance = 1e-6;

TEST(Ups, AgreesWithGeographicLibInBothHemispheres) {
  std::mt19937 Engine(5041);
  std::uniform_real_distribution<double> Distance(0, 12);
  std::uniform_real_distribution<double> Longitude(-180, 180);
  for (const TGeoEllipsoid Ellipsoid : {gelWGS84, gelInt24, gelClrk80RGS, gelKrass40, gelSphere}) {
    SCOPED_TRACE(GeoEllipsoidId[static_cast<size_t>(Ellipsoid)]);
    const auto [A, B] = AxesOf(Ellipsoid);
    const GeographicLib::PolarStereographic Judge(A, (A - B) / A, 0.994);
    for (int i = 0; i < 4000; ++i) {
      const bool South = i % 2 != 0;
      // Near the pole, the edge of the cap, and once in a while far beyond it, to the equator.
      const double Z = i % 50 == 0 ? Distance(Engine) * 7.5 : Distance(Engine);
      const double Lat = South ? Z - 90 : 90 - Z;
      const double Long = Longitude(Engine);
      SCOPED_TRACE(testing::Message() << Lat << ' ' << Long);
      double X = 0;
      double Y = 0;
      Judge.Forward(!South, Lat, Long, X, Y);
      double OurX = 0;
      double OurY = 0;
      LatLongToUPS(Lat, Long, Ellipsoid, OurX, OurY);
      ASSERT_NEAR(OurX, X + 2000000, Tolerance);
      ASSERT_NEAR(OurY, Y + 2000000, Tolerance);
      double OurLat = 0;
      double OurLong = 0;
      UPSToLatLong(X + 2000000, Y + 2000000, South, Ellipsoid, OurLat, OurLong);
      ASSERT_NEAR(OurLat * 111320, Lat * 111320, Tolerance);
      ASSERT_NEAR((OurLong - Long) * std::numbers::pi / 180 * std::hypot(X, Y), 0, Tolerance);
    }
  }
}

TEST(Ups, AxesAndPoleAreExact) {
  constexpr double Origin = 2000000;
  double X = 0;
  double Y = 0;
  for (const double Pole : {90.0, -90.0})
    for (const double Long : {-180.0, -30.0, 0.0, 90.0, 180.0}) {
      LatLongToUPS(Pole, Long, gelWGS84, X, Y);
      EXPECT_EQ(X, Origin);
      EXPECT_EQ(Y, Origin);
    }
  for (const double Lat : {85.0, -85.0}) {
    const double Down = Lat > 0 ? -1 : 1;  // the direction of longitude 0 along Y
    for (const double Long : {180.0, -180.0, 540.0 - 360.0}) {
      LatLongToUPS(Lat, Long, gelWGS84, X, Y);
      EXPECT_EQ(X, Origin);
      EXPECT_LT(Down * (Y - Origin), -500000);
    }
    for (const double Long : {90.0, -90.0, 270.0, -270.0}) {
      LatLongToUPS(Lat, Long, gelWGS84, X, Y);
      EXPECT_EQ(Y, Origin) << Long;
      EXPECT_GT(std::abs(X - Origin), 500000);
    }
  }
  double Lat = 0;
  double Long = 0;
  UPSToLatLong(Origin, Origin, true, gelWGS84, Lat, Long);
  EXPECT_EQ(Lat, -90);
  UPSToLatLong(Origin, Origin + 500000, false, gelWGS84, Lat, Long);
  EXPECT_EQ(Long, 180);
  UPSToLatLong(Origin - 500000, Origin, false, gelWGS84, Lat, Long);
  EXPECT_EQ(Long, -90);
  LatLongToUPS(0, 0, gelWGS84, X, Y);  // the equator is on the northern grid
  EXPECT_LT(Y, -10000000);
}

}  // namespace
}  // namespace zav
