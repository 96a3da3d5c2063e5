// mgrs_test.cpp - grid references against GeographicLib.
// SPDX-License-Identifier: MIT
#include <geobasics/geodesic.h>
#include <geobasics/mgrs.h>
#include <geobasics/ups.h>
#include <geobasics/utm.h>
#include <gtest/gtest.h>

#include <GeographicLib/MGRS.hpp>
#include <GeographicLib/UTMUPS.hpp>
#include <algorithm>
#include <cmath>
#include <random>

namespace zav {
namespace {

using enum TGeoEllipsoid;

// As GeographicLib writes it: no blanks, zones of two digits.
std::string Plain(std::string Text) {
  std::erase(Text, ' ');
  return Text[0] <= '9' && Text[1] > '9' ? "0" + Text : Text;
}

struct TGrid {
  int Zone = 0;
  bool South = false;
  double X = 0;
  double Y = 0;
};

TGrid GridOf(double Lat, double Long) {
  TGrid Grid;
  LatLongToUTM(Lat, Long, gelWGS84, Grid.Zone, Grid.X, Grid.Y);
  if (Grid.Zone == 0) LatLongToUPS(Lat, Long, gelWGS84, Grid.X, Grid.Y);
  Grid.South = Lat < 0;
  return Grid;
}

TEST(Mgrs, IsGeographicLibsReference) {
  std::mt19937 Random(8358);
  std::uniform_real_distribution<double> Lat(-90, 90);
  std::uniform_real_distribution<double> Long(-180, 180);
  int SamePosition = 0;
  constexpr int Count = 20000;
  for (int i = 0; i < Count; ++i) {
    // A third near the poles, a third in the north with its wide zones.
    const double La = i % 3 == 0   ? std::copysign(90 - std::fabs(Lat(Random)) / 9, Lat(Random))
                      : i % 3 == 1 ? 56 + std::fabs(Lat(Random)) / 90 * 27.9
                                   : Lat(Random);
    const double Lo = i % 3 == 1 ? Long(Random) / 4 : Long(Random);
    const int Digits = i % 9;
    SCOPED_TRACE(testing::Message() << La << ' ' << Lo);
    const std::string Found = ToMGRS(La, Lo, Digits);
    const TGrid Grid = GridOf(La, Lo);
    // The letters and digits of the same metres are the same.
    std::string Expected;
    GeographicLib::MGRS::Forward(Grid.Zone, !Grid.South, Grid.X, Grid.Y, La, Digits, Expected);
    ASSERT_EQ(Plain(Found), Expected);
    // All of GeographicLib's own way: the last digits may differ where its metres do.
    int Zone = 0;
    bool North = false;
    double X = 0;
    double Y = 0;
    GeographicLib::UTMUPS::Forward(La, Lo, Zone, North, X, Y);
    GeographicLib::MGRS::Forward(Zone, North, X, Y, La, std::min(Digits, 5), Expected);
    SamePosition += Plain(ToMGRS(La, Lo, std::min(Digits, 5))) == Expected;

    const TMGRSSquare Square = ParseMGRS(Found);
    int Precision = 0;
    GeographicLib::MGRS::Reverse(Plain(Found), Zone, North, X, Y, Precision, false);
    ASSERT_EQ(Square.Zone, Zone);
    ASSERT_EQ(Square.South, !North);
    ASSERT_NEAR(Square.Easting, X, 1e-6);
    ASSERT_NEAR(Square.Northing, Y, 1e-6);
    ASSERT_NEAR(Square.Size, std::pow(10, 5 - Digits), 1e-12);
  }
  EXPECT_GT(SamePosition, Count - Count / 500);
}

// All combinations of zone, band and two letters: what GeographicLib reads, and only that.
TEST(Mgrs, TheSquaresThatExist) {
  int Found = 0;
  for (const int Zone : {0, 3, 31, 32})
    for (char Band = 'A'; Band <= 'Z'; ++Band)
      for (char Column = 'A'; Column <= 'Z'; ++Column)
        for (char Row = 'A'; Row <= 'Z'; ++Row) {
          const std::string Text = (Zone == 0 ? std::string() : std::to_string(Zone)) + Band +
                                   std::string(1, Column) + Row;
          bool Theirs = true;
          int TheirZone = 0;
          bool North = false;
          double X = 0;
          double Y = 0;
          int Precision = 0;
          try {
            GeographicLib::MGRS::Reverse(Text, TheirZone, North, X, Y, Precision, false);
          } catch (const GeographicLib::GeographicErr&) {
            Theirs = false;
          }
          bool Ours = LooksLikeMGRS(Text);
          TMGRSSquare Square;
          try {
            if (Ours) Square = ParseMGRS(Text + "55");
          } catch (const EZAVGeoBasicsError&) {
            Ours = false;
          }
          // Squares at a band's end, which hold a corner of it, or nearly: one of both may refuse.
          if (Text.ends_with("DEG") || Text == "INV") continue;  // a unit; nothing
          if (Ours && Theirs) {
            ++Found;
            EXPECT_EQ(Square.Zone, TheirZone) << Text;
            EXPECT_NEAR(Square.Easting, X + 50000, 1e-6) << Text;
            EXPECT_NEAR(Square.Northing, Y + 50000, 1e-6) << Text;
          } else if (Ours != Theirs && Zone != 0) {
            double Lat = 0;
            double Long = 0;
            const double North2 = Theirs ? Y : Square.Northing;
            UTMToLatLong(500000, North2, 31, Band < 'N', gelWGS84, Lat, Long);
            const double Low =
                -80 + 8.0 * static_cast<double>(std::string("CDEFGHJKLMNPQRSTUVWX").find(Band));
            EXPECT_TRUE(std::fabs(Lat - Low) < 2.5 ||
                        std::fabs(Lat - Low - (Band == 'X' ? 12 : 8)) < 2.5 ||
                        Text.find("32X") == 0)
                << Text << ' ' << Lat;
          } else {
            EXPECT_EQ(Ours, Theirs) << Text;
          }
        }
  EXPECT_GT(Found, 3 * 8 * 180);
}

TEST(Mgrs, EdgesOfTheGrids) {
  EXPECT_EQ(ToMGRS(-1e-18, 3, 5), "31N EA 00000 00000");
  EXPECT_EQ(ToMGRS(0, -180, 5), "1N AA 66021 00000");
  EXPECT_EQ(ToMGRS(0, 180, 5), ToMGRS(0, -180, 5));
  EXPECT_EQ(ToMGRS(10, 370, 5), ToMGRS(10, 10, 5));
  EXPECT_EQ(ToMGRS(90, 0, 0), "Z AH");
  EXPECT_EQ(ToMGRS(-90, 0, 9), "B AN 00000000 00000000");
  EXPECT_EQ(ToMGRS(10, 10, -1), "32P PS");
  EXPECT_THROW(ToMGRS(90.1, 0, 5), EZAVGeoBasicsError);
  EXPECT_THROW(ToMGRS(0, std::nan(""), 5), EZAVGeoBasicsError);
  for (const char* Text : {"", "32", "32T", "32T M T", "32T MT 1 2 3", "32TMT 1.5 2", "TMS12",
                           "132TMT", "47.5 8.25", "12 deg 30"})
    EXPECT_FALSE(LooksLikeMGRS(Text)) << Text;
}

}  // namespace
}  // namespace zav
