// position_parser_test.cpp - positions as people type them.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <random>

#include <geobasics/utm.h>

#include "position_parser.h"
#include "position_readout.h"

namespace zav {
namespace {

std::string Shown(const TypedPosition& Typed) {
  return Typed.Position ? TypedText(*Typed.Position).toStdString() : Typed.Problem.toStdString();
}

// The spellings are geobasics' own to test; here is what becomes of each notation.
TEST(PositionParser, EveryNotationIsAPositionOfTheCalibration) {
  const struct {
    const char* Text;
    CalibPosition Position;
  } Cases[] = {
      {"47,5; 8,25", CalibPosition::OfDegrees(47.5, 8.25)},
      {"47\u00b030'36\" N, 8\u00b015'00\" W", CalibPosition::OfDegrees(47.51, -8.25)},
      {"\u221233.4489 \u221270.6693", CalibPosition::OfDegrees(-33.4489, -70.6693)},
      {"32T 470693,25 5150563,5", CalibPosition::OfUtm(5150563.5, 470693.25, 32, false)},
      {"19 south 344846 6297700", CalibPosition::OfUtm(6297700, 344846, 19, true)},
      {"470693 5150563", CalibPosition::OfUtm(5150563, 470693)},
      {"32T MS 70693 50563", CalibPosition::OfUtm(5150563.5, 470693.5, 32, false)},
      {"Z 2000000 mE 2000000 mN", CalibPosition::OfDegrees(90, 180)},
  };
  for (const auto& Case : Cases) {
    const TypedPosition Typed = ParseTypedPosition(QString::fromUtf8(Case.Text));
    ASSERT_TRUE(Typed.Position) << Case.Text << ": " << Typed.Problem.toStdString();
    EXPECT_EQ(*Typed.Position, Case.Position) << Case.Text << ": " << Shown(Typed);
    EXPECT_TRUE(Typed.Problem.isEmpty() && Typed.Note.isEmpty()) << Case.Text;
  }
  EXPECT_TRUE(ParseTypedPosition("19S 344846 6297700").Note.contains("southern hemisphere"));
  for (const char* Text : {"", "47.5", "91 8", "32T 470693", "32T MS 7069 505", "\u00b0 47 8"}) {
    const TypedPosition Typed = ParseTypedPosition(QString::fromUtf8(Text));
    EXPECT_FALSE(Typed.Position) << Text << ": " << Shown(Typed);
    EXPECT_FALSE(Typed.Problem.isEmpty()) << Text;
  }
}

TEST(PositionParser, OneAngle) {
  constexpr auto Meridian = TGratLineKind::gtlMeridian;
  constexpr auto Parallel = TGratLineKind::gtlParallel;
  EXPECT_EQ(ParseTypedAngle("10,5", Meridian).Degrees, 10.5);
  EXPECT_EQ(ParseTypedAngle("10 30 W", Meridian).Degrees, -10.5);
  EXPECT_EQ(ParseTypedAngle("47\u00b030' S", Parallel).Degrees, -47.5);
  for (const char* Text : {"", "10 30 N", "361", "10; 20", "1 2 3 4"})
    EXPECT_FALSE(ParseTypedAngle(Text, Meridian).Degrees) << Text;
  EXPECT_FALSE(ParseTypedAngle("90.5", Parallel).Degrees);
  EXPECT_FALSE(ParseTypedAngle("10 E", Parallel).Problem.isEmpty());
}

// What the window shows can be typed back: to half a unit of its last digit.
TEST(PositionParser, ReadsWhatTheReadOutShows) {
  std::mt19937 Random(7);
  std::uniform_real_distribution<double> Lat(-80, 84);
  std::uniform_real_distribution<double> Long(-180, 180);
  for (int i = 0; i < 3000; ++i) {
    const TCoords P{Lat(Random), Long(Random)};
    const double MetresPerPixel = i % 3 == 0 ? 0 : std::pow(10, i % 7 - 1);
    for (const ReadoutFormat Format : AllReadoutFormats) {
      const QString Text = PositionText(P, Format, TGeoEllipsoid::gelWGS84, MetresPerPixel);
      const bool Ups = Format == ReadoutFormat::Ups;
      if (Ups && P.Latit > -79.5 && P.Latit < 83.5) continue;  // told in words
      const TypedPosition Typed = ParseTypedPosition(Text);
      ASSERT_TRUE(Typed.Position) << Text.toStdString() << ": " << Typed.Problem.toStdString();
      const double HalfUnit = 0.5000001 * std::pow(10, -ReadoutDecimals(Format, MetresPerPixel));
      if (Ups) {  // metres on a grid that may be turned against the meridians
        EXPECT_NEAR(Typed.Position->Degrees.Latit, P.Latit, 1.5 * HalfUnit / 111000);
        EXPECT_NEAR(std::remainder(Typed.Position->Degrees.Longit - P.Longit, 360), 0,
                    1.5 * HalfUnit / 111000 / std::cos(P.Latit / 180 * 3.14159));
        continue;
      }
      // Of MGRS it is the middle of the square.
      if (Format == ReadoutFormat::Utm || Format == ReadoutFormat::Mgrs) {
        int Zone = 0;
        double Easting = 0;
        double Northing = 0;
        LatLongToUTM(P.Latit, P.Longit, TGeoEllipsoid::gelWGS84, Zone, Easting, Northing);
        EXPECT_EQ(Typed.Position->Zone, Zone) << Text.toStdString();
        EXPECT_EQ(Typed.Position->South, P.Latit < 0) << Text.toStdString();
        EXPECT_NEAR(Typed.Position->Metres.Easting, Easting, HalfUnit);
        EXPECT_NEAR(Typed.Position->Metres.Northing, Northing, HalfUnit);
        continue;
      }
      const double Units = Format == ReadoutFormat::Degrees          ? 1
                           : Format == ReadoutFormat::DegreesMinutes ? 60
                                                                     : 3600;
      EXPECT_NEAR(Typed.Position->Degrees.Latit, P.Latit, HalfUnit / Units) << Text.toStdString();
      EXPECT_NEAR(Typed.Position->Degrees.Longit, P.Longit, HalfUnit / Units);
    }
  }
}

TEST(PositionParser, TypedTextLosesNothing) {
  std::mt19937 Random(11);
  std::uniform_real_distribution<double> Unit(0, 1);
  for (int i = 0; i < 3000; ++i) {
    const double Tiny = i % 10 == 0 ? 1e-12 : 1;
    const CalibPosition Position =
        i % 2 == 0 ? CalibPosition::OfDegrees((Unit(Random) * 180 - 90) * Tiny,
                                              (Unit(Random) * 720 - 360) * Tiny)
                   : CalibPosition::OfUtm(Unit(Random) * 1e7, 1e5 + Unit(Random) * 8e5, i % 61,
                                          Unit(Random) < 0.5);
    const TypedPosition Typed = ParseTypedPosition(TypedText(Position));
    ASSERT_TRUE(Typed.Position) << TypedText(Position).toStdString();
    EXPECT_EQ(*Typed.Position, Position) << TypedText(Position).toStdString();
  }
}

}  // namespace
}  // namespace zav
