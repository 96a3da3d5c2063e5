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

TEST(PositionParser, Degrees) {
  const struct {
    const char* Text;
    double Lat, Long;
  } Cases[] = {
      {"47.5 8.25", 47.5, 8.25},
      {"47.5, 8.25", 47.5, 8.25},
      {"47.5,8.25", 47.5, 8.25},
      {"47,5 8,25", 47.5, 8.25},
      {"47,5; 8,25", 47.5, 8.25},
      {"47,5, 8,25", 47.5, 8.25},
      {"47,8", 47, 8},
      {"  -33.4489\t-70.6693 ", -33.4489, -70.6693},
      {"\u221233.4489 \u221270.6693", -33.4489, -70.6693},
      {"+47.5 +8.25", 47.5, 8.25},
      {".5 .25", 0.5, 0.25},
      {"N47.5 E8.25", 47.5, 8.25},
      {"N47.5E8.25", 47.5, 8.25},
      {"47.5n 8.25w", 47.5, -8.25},
      {"8.25 E 47.5 N", 47.5, 8.25},
      {"8.25 east, 47.5 south", -47.5, 8.25},
      {"47.5 N 8.25", 47.5, 8.25},
      {"8.25 E; 47.5", 47.5, 8.25},
      {"47 30 8 15", 47.5, 8.25},
      {"47 30,5 8 15,25", 47.5 + 0.5 / 60, 8.25 + 0.25 / 60},
      {"47 30 00, 8 15 00", 47.5, 8.25},
      {"47 30 00,8 15 00", 47.5, 8.25},
      {"47 30; 8.25", 47.5, 8.25},
      {"47\u00b030'36\" N, 8\u00b015'00\" E", 47.51, 8.25},
      {"47\u00ba30\u203236\u2033N 8\u00ba15\u2032W", 47.51, -8.25},
      {"47\u00b030'36''N 8\u00b0E", 47.51, 8},
      {"47\u00b030' 8\u00b015'", 47.5, 8.25},
      {"47\u00b0 8\u00b0", 47, 8},
      {"47 deg 30 min 36 sec N 8 deg E", 47.51, 8},
      {"47d30 8d15", 47.5, 8.25},
      {"S 0 30 W 0 15", -0.5, -0.25},
      {"-0 30 -0 15", -0.5, -0.25},
      {"-12.5 190.25", -12.5, 190.25},
      {"90 180", 90, 180},
      // Every digit counts.
      {"47.123456789012345 8.000000000000001", 47.123456789012345, 8.000000000000001},
      {"0000047.5 8.2500000000000000000000000000", 47.5, 8.25},
  };
  for (const auto& Case : Cases) {
    const TypedPosition Typed = ParseTypedPosition(Case.Text);
    ASSERT_TRUE(Typed.Position) << Case.Text << ": " << Typed.Problem.toStdString();
    EXPECT_FALSE(Typed.Position->IsUtm) << Case.Text;
    EXPECT_EQ(Typed.Position->Degrees, (TCoords{Case.Lat, Case.Long}))
        << Case.Text << ": " << Shown(Typed);
    EXPECT_TRUE(Typed.Problem.isEmpty() && Typed.Note.isEmpty()) << Case.Text;
  }
}

TEST(PositionParser, Utm) {
  const struct {
    const char* Text;
    CalibPosition Position;
  } Cases[] = {
      {"32T 470693 5150563", CalibPosition::OfUtm(5150563, 470693, 32, false)},
      {"32t470693,5150563", CalibPosition::OfUtm(5150563, 470693, 32, false)},
      {"32N 470693.25 mE 5150563.5 mN", CalibPosition::OfUtm(5150563.5, 470693.25, 32, false)},
      {"32T 470693,25 5150563,5", CalibPosition::OfUtm(5150563.5, 470693.25, 32, false)},
      {"33D 500000 2166914", CalibPosition::OfUtm(2166914, 500000, 33, true)},
      {"32T, 470693.25, 5150563.5", CalibPosition::OfUtm(5150563.5, 470693.25, 32, false)},
      {"zone 32 north 470693 m E; 5150563 m N", CalibPosition::OfUtm(5150563, 470693, 32, false)},
      {"19H 344846.7 mE 6297700.2 mN", CalibPosition::OfUtm(6297700.2, 344846.7, 19, true)},
      {"19 south 344846 6297700", CalibPosition::OfUtm(6297700, 344846, 19, true)},
      {"19S 344846 6297700", CalibPosition::OfUtm(6297700, 344846, 19, true)},
      {"33S 500000 4000000", CalibPosition::OfUtm(4000000, 500000, 33, false)},
      {"470693 5150563", CalibPosition::OfUtm(5150563, 470693)},
      {"470693E 5150563N", CalibPosition::OfUtm(5150563, 470693)},
      {"5150563N 470693E", CalibPosition::OfUtm(5150563, 470693)},
      {"5150563 470693", CalibPosition::OfUtm(5150563, 470693)},
      {"60N 500000 12.5", CalibPosition::OfUtm(12.5, 500000, 60, false)},
      {"1M 500000 10000000", CalibPosition::OfUtm(10000000, 500000, 1, true)},
  };
  for (const auto& Case : Cases) {
    const TypedPosition Typed = ParseTypedPosition(Case.Text);
    ASSERT_TRUE(Typed.Position) << Case.Text << ": " << Typed.Problem.toStdString();
    EXPECT_EQ(*Typed.Position, Case.Position) << Case.Text << ": " << Shown(Typed);
    const bool TwoMeanings = QString::fromLatin1(Case.Text).contains(QLatin1String("3S")) ||
                             QString::fromLatin1(Case.Text).contains(QLatin1String("9S"));
    EXPECT_EQ(Typed.Note.isEmpty(), !TwoMeanings) << Case.Text;
  }
}

TEST(PositionParser, WhatIsWrongIsTold) {
  const struct {
    const char* Text;
    const char* Problem;  // a part of it
  } Cases[] = {
      {"", "Type a position"},
      {"  ", "Type a position"},
      {"47.5", "one coordinate"},
      {"47,5", "latitude"},  // 47 and 5 is a position; see below
      {"47,5,8,25", "semicolon"},
      {"47.5,8.25,3", "semicolon"},
      {"47.5.1 8", "two points"},
      {"47 30 8", "second coordinate begins"},
      {"91 8", "latitude 91 is beyond 90"},
      {"100 47.5", "latitude comes first"},
      {"47 361", "longitude 361"},
      {"47 60 8 15", "below 60"},
      {"47 30 60 8 15 0", "below 60"},
      {"47.5 30 8 15", "last number"},
      {"47 -30 8 15", "sign"},
      {"-47.5 S 8", "sign and a letter"},
      {"47.5 N 8.25 N", "Both coordinates are latitudes"},
      {"47.5 E 8.25 W", "Both coordinates are longitudes"},
      {"47.5 N 8.25 O", "east in German"},
      {"47.5 X 8.25", "directions are N, S, E and W"},
      {"47-30 8-15", "within a number"},
      {"47.5 8.25 !", "no meaning"},
      {"\u00b0 47 8", "no number before it"},
      {"1 2 3 4 5 6 7 8", "degrees, then minutes"},
      {"61T 470693 5150563", "1 to 60"},
      {"0N 470693 5150563", "1 to 60"},
      {"32I 470693 5150563", "no UTM band"},
      {"32Y 470693 5150563", "no UTM band"},
      {"32 470693 5150563", "lacks its band"},
      {"32T 470693", "zone, the easting"},
      {"32T 1470693 5150563", "beyond 1000000"},
      {"32T 470693 51505630", "beyond 10000000"},
      {"32T -470693 5150563", "not negative"},
      {"32T 470693 mE 5150563 mE", "both are northings"},
      {"outside UTM (80\u00b0 S to 84\u00b0 N)", "no meaning"},
      {"1e5 1e6", ""},
      {"nan inf", ""},
  };
  for (const auto& Case : Cases) {
    const TypedPosition Typed = ParseTypedPosition(QString::fromUtf8(Case.Text));
    if (std::string(Case.Text) == "47,5") {
      EXPECT_EQ(Shown(Typed), "47, 5");
      continue;
    }
    EXPECT_FALSE(Typed.Position) << Case.Text << ": " << Shown(Typed);
    EXPECT_FALSE(Typed.Problem.isEmpty()) << Case.Text;
    EXPECT_TRUE(Typed.Problem.contains(QString::fromUtf8(Case.Problem)))
        << Case.Text << ": " << Typed.Problem.toStdString();
  }
  EXPECT_FALSE(ParseTypedPosition(QString(100000, QLatin1Char('1'))).Position);
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
      const TypedPosition Typed = ParseTypedPosition(Text);
      ASSERT_TRUE(Typed.Position) << Text.toStdString() << ": " << Typed.Problem.toStdString();
      const double HalfUnit = 0.5000001 * std::pow(10, -ReadoutDecimals(Format, MetresPerPixel));
      if (Format == ReadoutFormat::Utm) {
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

// Whatever is typed gives a position on the globe or a reason, never both, never a crash.
TEST(PositionParser, RandomText) {
  const QString Pieces[] = {"4",      "47", "5150563", ".",    ",",          ";",   " ",
                            "-",      "+",  "\u00b0",  "'",    "\"",         "N",   "s",
                            "E",      "W",  "32T",     "m",    "mE",         "deg", "\n",
                            "\u2212", "O",  "north",   "zone", "\U0001f30d", "60",  "1e9"};
  std::mt19937 Random(3);
  for (int i = 0; i < 50000; ++i) {
    QString Text;
    for (auto k = Random() % 9; k > 0; --k) Text += Pieces[Random() % std::size(Pieces)];
    const TypedPosition Typed = ParseTypedPosition(Text);
    ASSERT_NE(Typed.Position.has_value(), !Typed.Problem.isEmpty()) << Text.toStdString();
    if (Typed.Position && !Typed.Position->IsUtm) {
      EXPECT_LE(std::abs(Typed.Position->Degrees.Latit), 90);
      EXPECT_LE(std::abs(Typed.Position->Degrees.Longit), 360);
    }
  }
}

}  // namespace
}  // namespace zav
