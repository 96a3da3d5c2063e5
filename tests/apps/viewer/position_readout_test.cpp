// position_readout_test.cpp - positions as people read them.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QLocale>

#include <limits>
#include <ostream>

#include "position_readout.h"

namespace zav {
namespace {

constexpr double Nan = std::numeric_limits<double>::quiet_NaN();
constexpr auto D = ReadoutFormat::Degrees;
constexpr auto DM = ReadoutFormat::DegreesMinutes;
constexpr auto DMS = ReadoutFormat::DegreesMinutesSeconds;
constexpr auto Utm = ReadoutFormat::Utm;
constexpr auto Ups = ReadoutFormat::Ups;
constexpr auto Mgrs = ReadoutFormat::Mgrs;

TEST(PositionReadout, TextOfPositions) {
  const struct {
    TCoords Position;
    ReadoutFormat Format;
    double MetresPerPixel;
    const char* Text;
  } Cases[] = {
      {{47.5, 8.25}, D, 0, "47.50000\u00b0 N, 8.25000\u00b0 E"},
      {{47.5, 8.25}, DM, 0, "47\u00b030.000' N, 8\u00b015.000' E"},
      {{47.5, 8.25}, DMS, 0, "47\u00b030'00.0\" N, 8\u00b015'00.0\" E"},
      // A carry goes up through minutes to degrees.
      {{46.9999999, -0.9999999}, DM, 0, "47\u00b000.000' N, 1\u00b000.000' W"},
      {{-59.99999, 179.99999}, DMS, 0, "60\u00b000'00.0\" S, 180\u00b000'00.0\" E"},
      // What is shown as zero is on no southern or western side.
      {{-0.000001, -0.000001}, D, 0, "0.00000\u00b0 N, 0.00000\u00b0 E"},
      {{-0.00001, -0.00001}, D, 0, "0.00001\u00b0 S, 0.00001\u00b0 W"},
      // No finer than the map: a pixel of 290 m is 0.0026 degrees, 0.16 minutes, 9.4 seconds.
      {{47.123456, 8.123456}, D, 290, "47.123\u00b0 N, 8.123\u00b0 E"},
      {{47.123456, 8.123456}, DM, 290, "47\u00b007.4' N, 8\u00b007.4' E"},
      {{47.123456, 8.123456}, DMS, 290, "47\u00b007'24\" N, 8\u00b007'24\" E"},
      {{47.123456, 8.123456}, D, 26000, "47.1\u00b0 N, 8.1\u00b0 E"},
      // The margins of a world map lie beyond the date line.
      {{10, 190.5}, D, 26000, "10.0\u00b0 N, 169.5\u00b0 W"},
      {{10, -190.5}, D, 26000, "10.0\u00b0 N, 169.5\u00b0 E"},
      // Eastings and northings as GeographicLib gives them; Bergen has a widened zone.
      {{48.2082, 16.3738}, Utm, 0, "33U 602065 mE 5340354 mN"},
      {{60.39, 5.32}, Utm, 85, "32V 297230 mE 6700510 mN"},
      {{-33.4489, -70.6693}, Utm, 0.5, "19H 344846.7 mE 6297700.2 mN"},
      {{-12.5, 180}, Utm, 0, "1L 173901 mE 8616307 mN"},
      {{84.5, 10}, Utm, 0, "outside UTM (80\u00b0 S to 84\u00b0 N)"},
      {{86.5, 90}, Ups, 0, "Z 2388699 mE 2000000 mN"},
      {{-90, 0}, Ups, 0.5, "B 2000000.0 mE 2000000.0 mN"},
      {{70, 10}, Ups, 0, "outside UPS (the poles to 79.5\u00b0 S and 83.5\u00b0 N)"},
      {{48.2082, 16.3738}, Mgrs, 0, "33U XP 02065 40353"},
      {{48.2082, 16.3738}, Mgrs, 85, "33U XP 0206 4035"},
      {{48.2082, 16.3738}, Mgrs, 1e6, "33U XP"},
      {{90.0001, 10}, D, 0, ""},
      {{Nan, 10}, DMS, 0, ""},
      {{10, std::numeric_limits<double>::infinity()}, Utm, 0, ""},
  };
  for (const auto& Case : Cases)
    EXPECT_EQ(PositionText(Case.Position, Case.Format, TGeoEllipsoid::gelWGS84, Case.MetresPerPixel)
                  .toStdString(),
              Case.Text);
}

TEST(PositionReadout, UtmIsOnTheMapsEllipsoid) {
  const TCoords Vienna{48.2082, 16.3738};
  EXPECT_NE(PositionText(Vienna, Utm, TGeoEllipsoid::gelBess41, 0),
            PositionText(Vienna, Utm, TGeoEllipsoid::gelWGS84, 0));
}

TEST(PositionReadout, ParsesPositionsUnderEveryLocale) {
  EXPECT_EQ(ParsePosition("46.5,-8.25"), (TCoords{46.5, -8.25}));
  EXPECT_EQ(ParsePosition("-90, 180"), (TCoords{-90, 180}));
  for (const char* Text :
       {"", "46.5", "46,5,8,25", "46.5;8", "90.1,0", "0,180.1", "x,1", "nan,0", "1,"})
    EXPECT_FALSE(ParsePosition(Text)) << Text;
}

TEST(PositionReadout, ScaleHasTwoDigits) {
  EXPECT_EQ(ScaleText(290, 1, 96).remove(QLocale().groupSeparator()), "Scale 1:1100000");
  EXPECT_EQ(ScaleText(290, 2, 96).remove(QLocale().groupSeparator()), "Scale 1:550000");
  EXPECT_EQ(ScaleText(0, 1, 96), "");
  EXPECT_EQ(ScaleText(Nan, 1, 96), "");
}

}  // namespace
}  // namespace zav
