// utm_test.cpp - UTM and the projection below it, against GeographicLib.
// SPDX-License-Identifier: MIT
#include <geobasics/transverse_mercator.h>
#include <geobasics/utm.h>
#include <gtest/gtest.h>

#include <GeographicLib/EllipticFunction.hpp>
#include <GeographicLib/TransverseMercator.hpp>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

namespace zav {
namespace {

using enum TGeoEllipsoid;

constexpr double DegreeMetres = 111320;  // of a degree of latitude, or of longitude at the equator
constexpr double Tolerance = 1e-4;

constexpr double Radians(double Degrees) { return Degrees * std::numbers::pi / 180; }

struct TSample {
  int Zone;
  double Lat;
  double Long;
};

// Corners, edges and centres of the zones' useful area, and random positions in all zones.
std::vector<TSample> Samples(size_t Random) {
  std::vector<TSample> Result;
  for (const double Lat : {-80.0, -45.0, -1e-9, 0.0, 1e-9, 30.0, 72.0, 80.0, 84.0})
    for (const double Off : {-3.0, -1e-9, 0.0, 1.5, 3.0}) {
      Result.push_back({1, Lat, -177 + Off});
      Result.push_back({60, Lat, 177 + Off});
    }
  std::mt19937 Engine(4326);
  std::uniform_real_distribution<double> Lat(-80, 84);
  std::uniform_real_distribution<double> Off(-3, 3);
  std::uniform_int_distribution<int> Zone(1, 60);
  for (size_t i = 0; i < Random; ++i) {
    const int Z = Zone(Engine);
    Result.push_back({Z, Lat(Engine), Z * 6 - 183 + Off(Engine)});
  }
  return Result;
}

TEST(Utm, AgreesWithGeographicLibInTheZone) {
  for (const TGeoEllipsoid Ellipsoid : {gelWGS84, gelBess41, gelClrk80RGS, gelEver30Ind, gelKrass40,
                                        gelAiry30, gelSphere, gelNahrwan29}) {
    SCOPED_TRACE(GeoEllipsoidId[static_cast<size_t>(Ellipsoid)]);
    const auto [A, B] = AxesOf(Ellipsoid);
    const GeographicLib::TransverseMercator Judge(A, (A - B) / A, 0.9996);
    for (const TSample& S : Samples(3000)) {
      SCOPED_TRACE(testing::Message() << S.Zone << ' ' << S.Lat << ' ' << S.Long);
      double X = 0;
      double Y = 0;
      Judge.Forward(S.Zone * 6 - 183, S.Lat, S.Long, X, Y);
      double Easting = 0;
      double Northing = 0;
      LatLongToUTMZone(S.Lat, S.Long, S.Zone, Ellipsoid, Easting, Northing);
      ASSERT_NEAR(Easting, X + 500000, Tolerance);
      ASSERT_NEAR(Northing, Y < 0 ? Y + 10000000 : Y, Tolerance);
      double Lat = 0;
      double Long = 0;
      UTMToLatLong(X + 500000, S.Lat < 0 ? Y + 10000000 : Y, S.Zone, S.Lat < 0, Ellipsoid, Lat,
                   Long);
      ASSERT_NEAR(Lat * DegreeMetres, S.Lat * DegreeMetres, Tolerance);
      ASSERT_NEAR((Long - S.Long) * DegreeMetres * std::cos(Radians(S.Lat)), 0, Tolerance);
    }
  }
}

TEST(Utm, MeridianArcIsTheEllipticIntegral) {
  for (const TGeoEllipsoid Ellipsoid : {gelWGS84, gelClrk80RGS, gelSphere}) {
    const auto [A, B] = AxesOf(Ellipsoid);
    const GeographicLib::EllipticFunction Judge(1 - A * A / (B * B));
    for (int Lat = -90; Lat <= 90; Lat += 5) {
      const double Reduced = std::atan(B / A * std::tan(Radians(Lat)));
      EXPECT_NEAR(ArcLengthOfMeridian(Radians(Lat), Ellipsoid), B * Judge.E(Reduced), 1e-5) << Lat;
    }
  }
}

TEST(Utm, ZonesAndBands) {
  struct {
    double Lat, Long;
    const char* Zone;
  } const Cases[] = {
      {48.2, 16.37, "33U"},   {0, 0, "31N"},      {-1e-9, 0, "31M"},   {0, -180, "1N"},
      {0, 180, ""},           {0, -180.1, ""},    {84, 10, "33X"},     {84.0001, 10, ""},
      {-80, 0, "31C"},        {-80.0001, 0, ""},  {71.999, 20, "34W"}, {72, 20, "33X"},
      {47.999, 5.999, "31T"}, {48, 6, "32U"},     {-16, 174, "60L"},   {-16.01, 173.999, "59K"},
      {60, 5, "32V"},         {60, 2.9, "31V"},   {60, 3, "32V"},      {60, 11.999, "32V"},
      {60, 12, "33V"},        {55.999, 5, "31U"}, {64, 5, "31W"},      {75, 8.9, "31X"},
      {75, 9, "33X"},         {75, 20.9, "33X"},  {75, 21, "35X"},     {75, 33, "37X"},
      {75, 41.9, "37X"},      {75, 42, "38X"},    {75, -0.001, "30X"}, {75, 0, "31X"},
      {8, 100, "47P"},        {-8.1, 100, "47L"}, {7.999, 100, "47N"}, {40, -120.001, "10T"},
  };
  for (const auto& Case : Cases) {
    SCOPED_TRACE(testing::Message() << Case.Lat << ' ' << Case.Long);
    EXPECT_EQ(GeoToUTMZone(Case.Lat, Case.Long), Case.Zone);
    int Zone = -1;
    char Band = '?';
    GeoToUTMZone(Case.Lat, Case.Long, Zone, Band);
    EXPECT_EQ(Zone == 0 ? "" : std::to_string(Zone) + Band, Case.Zone);
    EXPECT_EQ(Zone == 0, Band == ' ');
  }
  // The last longitude of the last zone, where the sum with 180 rounds up to 360.
  EXPECT_EQ(GeoToUTMZone(0, std::nextafter(180.0, 0)), "60N");
  EXPECT_EQ(GeoToUTMZone(std::numeric_limits<double>::quiet_NaN(), 0), "");
  EXPECT_EQ(GeoToUTMZone(0, std::numeric_limits<double>::infinity()), "");
}

TEST(Utm, CentralMeridians) {
  for (const auto& [Zone, Degrees] :
       {std::pair{0, 0}, {61, 0}, {-1, 0}, {1, -177}, {32, 9}, {60, 177}})
    EXPECT_NEAR(UTMCentralMeridian(Zone), Radians(Degrees), 1e-15) << Zone;
}

TEST(Utm, ZoneHemisphereAndFalseOriginOfAPosition) {
  int Zone = -1;
  double Easting = 0;
  double Northing = 0;
  LatLongToUTM(60, 5, gelWGS84, Zone, Easting, Northing);  // Bergen's widened zone
  EXPECT_EQ(Zone, 32);
  double X = 0;
  double Y = 0;
  GeographicLib::TransverseMercator::UTM().Forward(9, 60, 5, X, Y);
  EXPECT_NEAR(Easting, X + 500000, Tolerance);
  EXPECT_NEAR(Northing, Y, Tolerance);

  LatLongToUTM(-33, 151, gelWGS84, Zone, Easting, Northing);
  EXPECT_EQ(Zone, 56);
  double Lat = 0;
  double Long = 0;
  UTMToLatLong(Easting, Northing, Zone, true, gelWGS84, Lat, Long);
  EXPECT_NEAR(Lat, -33, 1e-9);
  UTMToLatLong(Easting, Northing, Zone, false, gelWGS84, Lat, Long);
  EXPECT_GT(Lat, 0);

  // Outside the UTM area the meridian of Greenwich is the central one.
  LatLongToUTM(86, 2, gelWGS84, Zone, Easting, Northing);
  EXPECT_EQ(Zone, 0);
  GeographicLib::TransverseMercator::UTM().Forward(0, 86, 2, X, Y);
  EXPECT_NEAR(Easting, X + 500000, Tolerance);
  EXPECT_NEAR(Northing, Y, Tolerance);
}

}  // namespace
}  // namespace zav
