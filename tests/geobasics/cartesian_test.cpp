// cartesian_test.cpp - cartesian coordinates over the whole globe, against PROJ and GeographicLib.
// SPDX-License-Identifier: MIT
#include <geobasics/cartesian.h>
#include <gtest/gtest.h>

#include <GeographicLib/Geocentric.hpp>
#include <cmath>
#include <vector>

#include "proj_support.h"

namespace zav {
namespace {

using enum TGeoEllipsoid;

constexpr double Heights[] = {-5000, 0, 123.456, 9000, 400000, 2e7};

// A net over the globe with the poles, the equator and both sides of every quadrant.
std::vector<std::pair<double, double>> Globe() {
  std::vector<std::pair<double, double>> Net;
  for (int Lat = -90; Lat <= 90; Lat += 5)
    for (int Long = -180; Long <= 180; Long += 9) Net.emplace_back(Lat, Long);
  for (const double Lat : {-89.9999999, -1e-9, 1e-9, 45.123456789, 89.9999999})
    for (const double Long : {-179.9999999, -90.0000001, -89.9999999, -1e-9, 89.9999999, 135.5})
      Net.emplace_back(Lat, Long);
  return Net;
}

TEST(Cartesian, AgreesWithPROJAndGeographicLibOverTheGlobe) {
  for (const TGeoEllipsoid Ellipsoid : {gelWGS84, gelBess41, gelClrk80RGS, gelSphere}) {
    const auto [A, B] = AxesOf(Ellipsoid);
    const TPipeline Judge(LongLatDegrees + CartStep(Ellipsoid));
    const GeographicLib::Geocentric Reverse(A, (A - B) / A);
    for (const auto& [Lat, Long] : Globe())
      for (const double Height : Heights) {
        SCOPED_TRACE(testing::Message()
                     << int(Ellipsoid) << ' ' << Lat << ' ' << Long << ' ' << Height);
        const TTriple Expected = Judge({Long, Lat, Height});
        TTriple Found{};
        GeoToCartesian(Lat, Long, Height, Ellipsoid, Found[0], Found[1], Found[2]);
        for (size_t i = 0; i < 3; ++i) ASSERT_NEAR(Found[i], Expected[i], 2e-8);

        double Lat2 = 0;
        double Long2 = 0;
        double Height2 = 0;
        ExactCartesianToGeo(Found[0], Found[1], Found[2], Ellipsoid, Lat2, Long2, Height2);
        TTriple Geo{};
        Reverse.Reverse(Found[0], Found[1], Found[2], Geo[0], Geo[1], Geo[2]);
        ASSERT_NEAR(Lat2, Lat, 1e-13);
        ASSERT_NEAR(Lat2, Geo[0], 1e-13);
        ASSERT_NEAR(std::remainder(Long2 - Long, 360) * std::cos(Lat * M_PI / 180), 0, 1e-13);
        ASSERT_NEAR(Height2, Height, 1e-8);

        if (Ellipsoid == gelSphere || Height > 10000 || std::fabs(Lat) == 90) continue;
        CartesianToGeo(Found[0], Found[1], Found[2], Ellipsoid, Lat2, Long2, Height2);
        ASSERT_NEAR(Lat2, Lat, 1e-9);
        ASSERT_NEAR(Height2, Height, 1e-4);
        ASSERT_NEAR(std::remainder(Long2 - Long, 180) * std::cos(Lat * M_PI / 180), 0, 1e-13);
        ASSERT_LE(std::fabs(Long2), 90);
      }
  }
}

TEST(Cartesian, AxesOfTheEarth) {
  double X = -1;
  double Y = -1;
  double Z = -1;
  GeoToCartesian(0, 0, 0, gelWGS84, X, Y, Z);
  EXPECT_EQ(X, 6378137);
  EXPECT_EQ(Y, 0);
  EXPECT_EQ(Z, 0);
  double Lat = -1;
  double Long = -1;
  double Height = -1;
  CartesianToGeo(X, Y, Z, gelWGS84, Lat, Long, Height);
  EXPECT_EQ(Lat, 0);
  EXPECT_EQ(Long, 0);
  EXPECT_NEAR(Height, 0, 1e-9);
  CartesianToGeo(-X, 0, 0, gelWGS84, Lat, Long, Height);
  EXPECT_EQ(Long, 0);  // half a turn off
  CartesianToGeo(6e6, 1e6, 1e6, gelSphere, Lat, Long, Height);
  EXPECT_TRUE(std::isnan(Lat));

  const double B = AxesOf(gelWGS84).B;
  const struct {
    double X, Y, Z, Lat, Long, Height;
  } Cases[] = {{0, 0, B + 10, 90, 0, 10},           {0, 0, -B, -90, 0, 0},
               {-6378137, 0, 0, 0, 180, 0},         {0, 6378137, 0, 0, 90, 0},
               {0, -6378137 - 5, 0, 0, -90, 5},     {0, 0, 0, 90, 0, -B},
               {1e12, 0, 0, 0, 0, 1e12 - 6378137.0}};
  for (const auto& Case : Cases) {
    ExactCartesianToGeo(Case.X, Case.Y, Case.Z, gelWGS84, Lat, Long, Height);
    EXPECT_NEAR(Lat, Case.Lat, 1e-13);
    EXPECT_EQ(Long, Case.Long);
    EXPECT_NEAR(Height, Case.Height, 1e-8);
  }
  // Deep inside it is finite and on the globe, whatever it is.
  for (const double Small : {0.0, 1e-300, 1.0, 20000.0, 43000.0})
    for (const double Up : {-50000.0, -1.0, 1e-300, 42000.0}) {
      ExactCartesianToGeo(Small, -Small, Up, gelWGS84, Lat, Long, Height);
      EXPECT_LE(std::fabs(Lat), 90);
      EXPECT_TRUE(std::isfinite(Height));
    }
}

}  // namespace
}  // namespace zav
