// position_text_test.cpp - positions as people type them, read and written.
// SPDX-License-Identifier: MIT
#include <geobasics/geodesic.h>
#include <geobasics/position_text.h>
#include <geobasics/utm.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace zav {
namespace {

using enum TNotation;
using enum TGeoEllipsoid;

TEST(PositionText, AnglesInEverySpelling) {
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
      {"\u201333.4489 70.6693", -33.4489, 70.6693},
      {"+47.5 +8.25", 47.5, 8.25},
      {".5 .25", 0.5, 0.25},
      {"5. 6.", 5, 6},
      {"N47.5 E8.25", 47.5, 8.25},
      {"N47.5E8.25", 47.5, 8.25},
      {"n 47.5 w 8.25", 47.5, -8.25},
      {"47.5n 8.25w", 47.5, -8.25},
      {"8.25 E 47.5 N", 47.5, 8.25},
      {"8.25 east, 47.5 south", -47.5, 8.25},
      {"47.5 N 8.25", 47.5, 8.25},
      {"8.25 E; 47.5", 47.5, 8.25},
      {"lat 47.5 lon 8.25", 47.5, 8.25},
      {"Lat: 47.5, Long: -8.25", 47.5, -8.25},
      {"longitude 8.25, latitude -47.5", -47.5, 8.25},
      {"47 30 8 15", 47.5, 8.25},
      {"47 30,5 8 15,25", 47.5 + 0.5 / 60, 8.25 + 0.25 / 60},
      {"47 30 00, 8 15 00", 47.5, 8.25},
      {"47 30 00,8 15 00", 47.5, 8.25},
      {"47 30; 8.25", 47.5, 8.25},
      {"47\u00b030'36\" N, 8\u00b015'00\" E", 47.51, 8.25},
      {"47\u00ba30\u203236\u2033N 8\u00ba15\u2032W", 47.51, -8.25},
      {"47\u00b030\u201936\u201dN 8\u00b015\u2019W", 47.51, -8.25},
      {"47\u02da30\u00b436''N 8\u00b0E", 47.51, 8},
      {"N 47\u00b0 30' 36\" E 8\u00b0 15'", 47.51, 8.25},
      {"47\u00b0\u00a030'\u202f8\u00b0\u00a015'", 47.5, 8.25},
      {"47\u00b0 8\u00b0", 47, 8},
      {"47 deg 30 min 36 sec N 8 deg E", 47.51, 8},
      {"47 degrees 30 minutes, 8 degrees", 47.5, 8},
      {"47d30 8d15", 47.5, 8.25},
      {"47d30m 8d15m", 0, 0},  // "m" is metres: refused
      {"47:30:36 8:15:00", 47.51, 8.25},
      {"47:30:36N 8:15W", 47.51, -8.25},
      {"47:30 8:15:36", 47.5, 8.26},
      {"-47:30, -8:15", -47.5, -8.25},
      {"S 0 30 W 0 15", -0.5, -0.25},
      {"-0 30 -0 15", -0.5, -0.25},
      {"-12.5 190.25", -12.5, 190.25},
      {"90 180", 90, 180},
      {"-90 -360", -90, -360},
      {"59 59 59.999 179 59 59.999", 60 - 0.001 / 3600, 180 - 0.001 / 3600},
      // Every digit counts.
      {"47.123456789012345 8.000000000000001", 47.123456789012345, 8.000000000000001},
      {"0000047.5 8.2500000000000000000000000000", 47.5, 8.25},
  };
  for (const auto& Case : Cases) {
    SCOPED_TRACE(Case.Text);
    if (Case.Lat == 0) {
      EXPECT_THROW(ParsePositionText(Case.Text), EPositionTextError);
      continue;
    }
    const TWrittenPosition Found = ParsePositionText(Case.Text);
    EXPECT_LE(Found.Notation, ntDegreesMinutesSeconds);
    EXPECT_EQ(Found.Degrees, (TGeoPosition{Case.Lat, Case.Long}))
        << Found.Degrees.Lat << ' ' << Found.Degrees.Long;
    EXPECT_EQ(Found.Note, "");
  }
}

TEST(PositionText, GridsInEverySpelling) {
  const struct {
    const char* Text;
    TNotation Notation;
    int Zone;
    bool South;
    double Easting, Northing;
  } Cases[] = {
      {"32T 470693 5150563", ntUTM, 32, false, 470693, 5150563},
      {"32t470693,5150563", ntUTM, 32, false, 470693, 5150563},
      {"32N 470693.25 mE 5150563.5 mN", ntUTM, 32, false, 470693.25, 5150563.5},
      {"32T 470693,25 5150563,5", ntUTM, 32, false, 470693.25, 5150563.5},
      {"32T, 470693.25, 5150563.5", ntUTM, 32, false, 470693.25, 5150563.5},
      {"zone 32 north 470693 m E; 5150563 m N", ntUTM, 32, false, 470693, 5150563},
      {"UTM 32T 470693E 5150563N", ntUTM, 32, false, 470693, 5150563},
      {"UTM zone 32T E 470693 N 5150563", ntUTM, 32, false, 470693, 5150563},
      {"32T N5150563 E470693", ntUTM, 32, false, 470693, 5150563},
      {"32T easting 470693 northing 5150563", ntUTM, 32, false, 470693, 5150563},
      {"19 south 344846 6297700", ntUTM, 19, true, 344846, 6297700},
      {"19S 344846 6297700", ntUTM, 19, true, 344846, 6297700},
      {"33S 500000 4000000", ntUTM, 33, false, 500000, 4000000},
      {"470693 5150563", ntUTM, 0, false, 470693, 5150563},
      {"5150563N 470693E", ntUTM, 0, false, 470693, 5150563},
      {"5150563 470693", ntUTM, 0, false, 470693, 5150563},
      {"60N 500000 12.5", ntUTM, 60, false, 500000, 12.5},
      {"1M 500000 10000000", ntUTM, 1, true, 500000, 10000000},
      {"Z 2426773 mE 1530125 mN", ntUPS, 0, false, 2426773, 1530125},
      {"y1573227,1530125", ntUPS, 0, false, 1573227, 1530125},
      {"UPS north 2000000 2000000", ntUPS, 0, false, 2000000, 2000000},
      {"ups S 2426773.5 1530125.25", ntUPS, 0, true, 2426773.5, 1530125.25},
      {"south 2426773 1530125", ntUPS, 0, true, 2426773, 1530125},
      {"UPS B E 2426773 N 1530125", ntUPS, 0, true, 2426773, 1530125},
      {"A N 1530125 E 1426773", ntUPS, 0, true, 1426773, 1530125},
      {"32T MS 70693 50563", ntMGRS, 32, false, 470693.5, 5150563.5},
      {"32TMS7069350563", ntMGRS, 32, false, 470693.5, 5150563.5},
      {" 32 t ms 70693 50563 ", ntMGRS, 32, false, 470693.5, 5150563.5},
      {"32TMS 7069 5056", ntMGRS, 32, false, 470695, 5150565},
      {"32TMS75", ntMGRS, 32, false, 475000, 5155000},
      {"32T MS", ntMGRS, 32, false, 450000, 5150000},
      {"4QFJ12345678", ntMGRS, 4, false, 612345, 2356785},
      {"13SEC1234512345", ntMGRS, 13, false, 512345.5, 4212345.5},
      {"32TMS 706931 505632", ntMGRS, 32, false, 470693.15, 5150563.25},
      {"19HCC 44846 97700", ntMGRS, 19, true, 344846.5, 6297700.5},
      {"ZAH0000000000", ntMGRS, 0, false, 2000000.5, 2000000.5},
      {"YZG 9 9", ntMGRS, 0, false, 1995000, 1995000},
      {"BAN 00000 00000", ntMGRS, 0, true, 2000000.5, 2000000.5},
  };
  for (const auto& Case : Cases) {
    SCOPED_TRACE(Case.Text);
    TWrittenPosition Found;
    ASSERT_NO_THROW(Found = ParsePositionText(Case.Text));
    EXPECT_EQ(Found.Notation, Case.Notation);
    EXPECT_EQ(Found.Zone, Case.Zone);
    EXPECT_EQ(Found.South, Case.South);
    EXPECT_NEAR(Found.Easting, Case.Easting, Case.Notation == ntMGRS ? 1e-6 : 0);
    EXPECT_NEAR(Found.Northing, Case.Northing, Case.Notation == ntMGRS ? 1e-6 : 0);
    const bool TwoMeanings = Found.Notation == ntUTM && std::string(Case.Text).find("S ") == 2;
    EXPECT_EQ(Found.Note.empty(), !TwoMeanings) << Found.Note;
    EXPECT_EQ(DegreesOf(Found, gelWGS84).has_value(), Found.Notation != ntUTM || Found.Zone != 0);
  }
}

TEST(PositionText, WhatIsDoubtfulIsRefusedWithItsColumn) {
  const struct {
    const char* Text;
    int Column;
    const char* Reason;  // a part of it
  } Cases[] = {
      {"", 1, "Type a position"},
      {" \t", 1, "Type a position"},
      {"47.5", 5, "one coordinate"},
      {"47,5,8,25", 5, "semicolon"},
      {"47.5,8.25,3", 5, "semicolon"},
      {"47.5.1 8", 5, "two points"},
      {"47 30 8", 8, "second coordinate begins"},
      {"91 8", 1, "latitude 91 is beyond 90"},
      {"100 47.5", 1, "latitude comes first"},
      {"47 361", 4, "longitude 361"},
      {"47 60 8 15", 4, "below 60"},
      {"47 30 60 8 15 0", 7, "below 60"},
      {"47.5 30 8 15", 6, "last number"},
      {"47 -30 8 15", 4, "sign"},
      {"-47.5 S 8", 1, "sign and a letter"},
      {"47.5 N 8.25 N", 8, "Both coordinates are latitudes"},
      {"47.5 E 8.25 W", 8, "Both coordinates are longitudes"},
      {"47.5 N 8.25 O", 13, "east in German"},
      {"47.5 X 8.25", 6, "directions are N, S, E and W"},
      {"lat 47.5 lat 8", 10, "Both coordinates are latitudes"},
      {"47.5 lat 8 lon", 6, "one letter"},
      {"47-30 8-15", 3, "within a number"},
      {"47.5 8.25 !", 11, "no meaning"},
      {"47\u00b0 8\u00b0 \u00fc", 8, "\u00fc"},
      {"\u00b0 47 8", 1, "no number before it"},
      {"1 2 3 4 5 6 7 8", 7, "degrees, then minutes"},
      {"47:30:36:5 8", 9, "two colons"},
      {"47 :30 8", 4, "no number before"},
      {"- 47 8", 1, "stands alone"},
      {"61T 470693 5150563", 1, "1 to 60"},
      {"0N 470693 5150563", 1, "1 to 60"},
      {"32I 470693 5150563", 3, "no UTM band"},
      {"32Y 470693 5150563", 3, "no UTM band"},
      {"32 470693 5150563", 4, "lacks its band"},
      {"32T 470693", 11, "zone, the easting"},
      {"32T 470693 5150563 12", 20, "zone, the easting"},
      {"32T 1470693 5150563", 5, "beyond 1000000"},
      {"32T 470693 51505630", 12, "beyond 10000000"},
      {"32T -470693 5150563", 5, "not negative"},
      {"32T 470693 mE 5150563 mE", 15, "both are northings"},
      {"32T 470693 mE mE 5150563", 15, "one letter"},
      {"32T 470693 1000000", 12, "band T, 40 to 48 degrees north"},
      {"19H 344846 9297700", 12, "band H, 32 to 40 degrees south"},
      {"Z 426773 1530125", 10, "from the pole"},
      {"Z 1426773 1530125", 1, "does not lie in Z"},
      {"UPS 2426773 1530125", 5, "lacks its hemisphere"},
      {"UPS T 2426773 1530125", 5, "no hemisphere"},
      {"32TMS 7069 50563", 12, "as many digits"},
      {"32TMS 70693505", 0, ""},  // four and four
      {"32TMS 706935056", 16, "as many digits"},
      {"32TMS 123456789123456789", 7, "at most 8"},
      {"61TMT 7069 5056", 1, "1 to 60"},
      {"32IMT 7069 5056", 3, "no UTM band"},
      {"32TAT 7069 5056", 4, "no square AT"},
      {"32TMI 7069 5056", 5, "no square MI"},
      {"32TMA 7069 5056", 5, "no square MA"},
      {"32XMH 7069 5056", 3, "no zone 32X"},
      {"ZIH 0 0", 2, "no square IH"},
      {"BAO 0 0", 3, "no square AO"},
      {"12 deg 30", 10, "second coordinate begins"},
      {"47\u00b0 30' 8 15", 13, "second coordinate begins"},
      {"47 8 \xff", 6, "no meaning"},
      {"1e5 1e6", 6, "one letter"},
      {"nan inf", 1, "nan"},
  };
  for (const auto& Case : Cases) {
    SCOPED_TRACE(Case.Text);
    if (Case.Column == 0) {
      EXPECT_NO_THROW(ParsePositionText(Case.Text));
      continue;
    }
    try {
      const TWrittenPosition Found = ParsePositionText(Case.Text);
      ADD_FAILURE() << "read as " << Found.Degrees.Lat << ' ' << Found.Degrees.Long << ' '
                    << Found.Easting << ' ' << Found.Northing;
    } catch (const EPositionTextError& Error) {
      EXPECT_EQ(Error.Column(), Case.Column) << Error.what();
      EXPECT_NE(std::string(Error.what()).find(Case.Reason), std::string::npos) << Error.what();
    }
  }
  EXPECT_THROW(ParsePositionText(std::string(100000, '1')), EPositionTextError);
  EXPECT_THROW(PositionFromText("470693 5150563"), EPositionTextError);
  EXPECT_THROW(PositionFromText("3S 70693 50563"), EPositionTextError);  // beyond 89 south
  EXPECT_EQ(LatitudeFromText("47\u00b030' S"), -47.5);
  EXPECT_EQ(LongitudeFromText("190,5"), 190.5);
  EXPECT_THROW(LongitudeFromText("10 30 N"), EPositionTextError);
  EXPECT_THROW(LatitudeFromText("90.5"), EPositionTextError);
  EXPECT_THROW(LatitudeFromText("10; 20"), EPositionTextError);
}

TEST(PositionText, IsWrittenAsPeopleDo) {
  const struct {
    TGeoPosition Position;
    TNotation Notation;
    int Decimals;
    const char* Text;
  } Cases[] = {
      {{47.5, 8.25}, ntDegrees, 5, "47.50000\u00b0 N, 8.25000\u00b0 E"},
      {{-47.5, -8.25}, ntDegreesMinutes, 3, "47\u00b030.000' S, 8\u00b015.000' W"},
      {{47.5, 8.25}, ntDegreesMinutesSeconds, 1, "47\u00b030'00.0\" N, 8\u00b015'00.0\" E"},
      {{46.9999999, -0.9999999}, ntDegreesMinutes, 3, "47\u00b000.000' N, 1\u00b000.000' W"},
      {{-0.000001, -0.000001}, ntDegrees, 5, "0.00000\u00b0 N, 0.00000\u00b0 E"},
      {{10, 190.5}, ntDegrees, 1, "10.0\u00b0 N, 169.5\u00b0 W"},
      {{48.2082, 16.3738}, ntUTM, 0, "33U 602065 mE 5340354 mN"},
      {{-33.4489, -70.6693}, ntUTM, 1, "19H 344846.7 mE 6297700.2 mN"},
      {{-12.5, 180}, ntUTM, 0, "1L 173901 mE 8616307 mN"},
      {{90, 77}, ntUPS, 0, "Z 2000000 mE 2000000 mN"},
      {{-90, 0}, ntUPS, 2, "B 2000000.00 mE 2000000.00 mN"},
      {{48.2082, 16.3738}, ntMGRS, 0, "33U XP 02065 40353"},
      {{48.2082, 16.3738}, ntMGRS, -3, "33U XP 02 40"},
      {{48.2082, 16.3738}, ntMGRS, -5, "33U XP"},
      {{90, 0}, ntMGRS, 0, "Z AH 00000 00000"},
  };
  for (const auto& Case : Cases)
    EXPECT_EQ(PositionToText(Case.Position, Case.Notation, Case.Decimals), Case.Text);
  EXPECT_THROW(PositionToText({84.5, 0}, ntUTM, 0), EZAVGeoBasicsError);
  EXPECT_THROW(PositionToText({83.4, 0}, ntUPS, 0), EZAVGeoBasicsError);
  for (const TNotation Notation : {ntDegrees, ntUTM, ntUPS, ntMGRS}) {
    EXPECT_THROW(PositionToText({90.1, 0}, Notation, 0), EZAVGeoBasicsError);
    EXPECT_THROW(PositionToText({std::nan(""), 0}, Notation, 0), EZAVGeoBasicsError);
    EXPECT_THROW(PositionToText({0, HUGE_VAL}, Notation, 0), EZAVGeoBasicsError);
  }
  for (size_t i = 0; i < NotationId.size(); ++i)
    EXPECT_EQ(FindNotation(NotationId[i]), static_cast<TNotation>(i));
  EXPECT_EQ(FindNotation("MGRS"), ntMGRS);
  EXPECT_EQ(FindNotation("mgr"), std::nullopt);
}

// Poles, the equator, edges of zones and bands, Norway, Svalbard, and everywhere else.
std::vector<TGeoPosition> Samples() {
  std::vector<TGeoPosition> Found;
  for (const double Lat : {-90.0, -89.99999, -80.00001, -80.0, -72.0,    -1e-9,    -1e-18, 0.0,
                           1e-9,  40.0,      55.99999,  56.0,  60.0,     63.99999, 64.0,   71.99999,
                           72.0,  78.0,      83.99999,  84.0,  84.00001, 89.99999, 90.0})
    for (const double Long :
         {-180.0,   -179.99999, -90.0, -6.0,     -1e-12,    0.0,      2.99999, 3.0,
          5.9,      8.99999,    9.0,   11.99999, 12.0,      20.99999, 21.0,    33.0,
          41.99999, 42.0,       90.0,  177.0,    179.99999, 180.0})
      Found.push_back({Lat, Long});
  std::mt19937 Random(8358);
  std::uniform_real_distribution<double> Lat(-90, 90);
  std::uniform_real_distribution<double> Long(-180, 180);
  for (int i = 0; i < 3000; ++i) Found.push_back({Lat(Random), Long(Random)});
  return Found;
}

double Metres(const TGeoPosition& A, const TGeoPosition& B) {
  return GeodesicBetween(AxesOf(gelWGS84), A.Lat, A.Long, B.Lat, B.Long).Distance;
}

TEST(PositionText, WhatIsWrittenIsReadBackWithinTheLastDigit) {
  int Count = 0;
  for (const TGeoPosition& P : Samples())
    for (const TNotation Notation :
         {ntDegrees, ntDegreesMinutes, ntDegreesMinutesSeconds, ntUTM, ntUPS, ntMGRS}) {
      const int Decimals = Notation == ntMGRS ? Count % 9 - 5 : Count % 8;
      ++Count;
      std::string Text;
      try {
        Text = PositionToText(P, Notation, Decimals);
      } catch (const EZAVGeoBasicsError&) {
        ASSERT_TRUE(Notation == ntUTM ? P.Lat < -80 || P.Lat > 84
                                      : Notation == ntUPS && P.Lat > -79.5 && P.Lat < 83.5);
        continue;
      }
      SCOPED_TRACE(testing::Message() << P.Lat << ' ' << P.Long << ": " << Text);
      TGeoPosition Back;
      ASSERT_NO_THROW(Back = PositionFromText(Text));
      ASSERT_LE(std::fabs(Back.Lat), 90);
      const double Digit = std::pow(10, -Decimals);
      if (Notation <= ntDegreesMinutesSeconds) {
        const double Half = 0.5000001 * Digit / std::pow(60, static_cast<int>(Notation)) + 2e-14;
        ASSERT_NEAR(Back.Lat, P.Lat, Half);
        ASSERT_NEAR(std::remainder(Back.Long - P.Long, 360), 0, Half);
      } else {
        // Half a unit each way in a grid whose scale is nearly 1; the series of UTM are good for a
        // tenth of a millimetre, a few at the far edges of the widened zones.
        ASSERT_LT(Metres(Back, P), 0.7072 * Digit * 1.007 + 3e-3);
      }
      if (Notation != ntMGRS) continue;
      // The middle of a square is in that square, unless the zone or band ends before it.
      const std::string Again = PositionToText(Back, ntMGRS, Decimals);
      if (Again.substr(0, Again.find(' ')) == Text.substr(0, Text.find(' '))) {
        ASSERT_EQ(Again, Text);
      }
    }
  EXPECT_GT(Count, 10000);
}

// On other ellipsoids the same.
TEST(PositionText, EveryEllipsoidReadsItsOwnGridText) {
  for (size_t i = 0; i < NumGeoEllipsoids; ++i)
    for (const TGeoPosition& P : std::vector<TGeoPosition>{
             {47.99999, 8}, {-47.99999, 8}, {0, 3}, {71.9999, 12.5}, {-79.9, 170}, {87, -120}}) {
      const auto Ellipsoid = static_cast<TGeoEllipsoid>(i);
      for (const TNotation Notation : {ntUTM, ntUPS, ntMGRS}) {
        if (Notation == (std::fabs(P.Lat) > 84 ? ntUTM : ntUPS)) continue;
        const std::string Text = PositionToText(P, Notation, 2, Ellipsoid);
        const TGeoPosition Back = PositionFromText(Text, Ellipsoid);
        EXPECT_LT(Metres(Back, P), 0.02) << Text << ' ' << GeoEllipsoidId[i];
      }
    }
}

// Whatever is typed gives a position on the globe or a reason at a column of the text.
TEST(PositionText, RandomText) {
  const char* const Pieces[] = {"4",         "47",
                                "5150563",   ".",
                                ",",         ";",
                                " ",         "-",
                                "+",         "°",
                                "'",         "\"",
                                "N",         "s",
                                "E",         "W",
                                "32T",       "m",
                                "mE",        "deg",
                                "\n",        ":",
                                "O",         "north",
                                "zone",      "MT",
                                "60",        "1e9",
                                "\xff",      "UPS",
                                "Z",         "lat",
                                "706931",    "\xe2\x88\x92",
                                "\U0001f30d"};
  std::mt19937 Random(3);
  for (int i = 0; i < 60000; ++i) {
    std::string Text;
    for (auto k = Random() % 9; k > 0; --k) Text += Pieces[Random() % std::size(Pieces)];
    SCOPED_TRACE(Text);
    try {
      const TWrittenPosition Found = ParsePositionText(Text);
      if (const auto Degrees = DegreesOf(Found, gelWGS84)) {
        ASSERT_TRUE(std::isfinite(Degrees->Lat) && std::isfinite(Degrees->Long));
        ASSERT_LE(std::fabs(Degrees->Long), 360);
        ASSERT_TRUE(std::fabs(Degrees->Lat) <= 90);
      }
    } catch (const EPositionTextError& Error) {
      ASSERT_GE(Error.Column(), 1);
      ASSERT_LE(Error.Column(), static_cast<int>(Text.size()) + 1);
    }
  }
}

}  // namespace
}  // namespace zav
