// Fits, matrices, angles, distances, lines, dates and other number helpers.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <platform/base/curve_fit.h>
#include <platform/base/date_time.h>
#include <platform/base/degrees.h>
#include <platform/base/great_circle.h>
#include <platform/base/line2d.h>
#include <platform/base/matrix.h>
#include <platform/base/progress.h>
#include <platform/base/random.h>
#include <platform/base/round125.h>
#include <platform/base/short_string.h>

#include <GeographicLib/Geodesic.hpp>
#include <cmath>
#include <limits>
#include <type_traits>

namespace zav {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();

TEST(Matrix, IsAddressedByColumnAndRowFromOne) {
  TMatrix m(2, 3);
  m.SetVal(2, 1, 21);
  m.SetVal(1, 3, 13);
  m.SetVal(3, 1, 99);
  m.SetVal(0, 1, 99);
  EXPECT_EQ(m.RowData(1)[1], 21);
  EXPECT_EQ(m.RowData(3)[0], 13);
  EXPECT_EQ(m.GetVal(3, 1), 0) << "outside";
  TMatrix copy;
  copy.Clone(m);
  EXPECT_EQ(copy, m);
  copy.SetVal(2, 3, 1);
  EXPECT_NE(copy, m);
  m.Resize(-1, 5);
  EXPECT_TRUE(m.NumColumns() == 0 && m.GetVal(1, 1) == 0);
  TVector v(2);
  v.SetVal(2, 5);
  v.SetVal(3, 6);
  EXPECT_TRUE(v.GetVal(2) == 5 && v.GetVal(3) == 0 && v.GetVal(0) == 0);
}

TCurveFit FitOf(std::initializer_list<std::pair<double, double>> Pairs) {
  TCurveFit fit;
  for (const auto& [x, y] : Pairs) fit.EnterStatValue(x, y);
  return fit;
}

// Worked by hand with the normal equations.
TEST(CurveFit, AgreesWithHandComputedFits) {
  double k = 0, d = 0, quality = 0, k0 = 0, k1 = 0, k2 = 0;
  FitOf({{1, 2}, {2, 3}, {3, 5}, {4, 4}}).CalcLinFit(k, d, quality);
  EXPECT_NEAR(k, 0.8, 1e-15);
  EXPECT_NEAR(d, 1.5, 1e-15);
  EXPECT_NEAR(quality, 0.64, 1e-15);
  FitOf({{-2, 4}, {-1, 1}, {0, 1}, {1, 3}, {2, 10}}).CalcParabolFit(k0, k1, k2, quality);
  EXPECT_NEAR(k0, 4.6 / 7, 1e-14);
  EXPECT_NEAR(k1, 1.4, 1e-14);
  EXPECT_NEAR(k2, 11.0 / 7, 1e-14);
  // The residuals are -5, 6, 12, -22 and 9 thirty-fifths.
  EXPECT_NEAR(quality, 1 - 770 / 1225.0 / 54.8, 1e-14);
}

TEST(CurveFit, KeepsDigitsFarFromTheOrigin) {
  TCurveFit fit;
  const auto parabola = [](double x) { return 7e6 + 0.25 * x + 1e-4 * x * x; };
  for (int i = 0; i <= 10; ++i) fit.EnterStatValue(5e6 + i, parabola(i) + 0.0);
  double k0 = 0, k1 = 0, k2 = 0, quality = 0;
  fit.CalcParabolFit(k0, k1, k2, quality);
  EXPECT_NEAR(k2, 1e-4, 1e-9);
  for (int i = 0; i <= 10; ++i) {
    const double x = 5e6 + i;
    EXPECT_NEAR(std::fma(std::fma(k2, x, k1), x, k0), parabola(i), 1e-5);
  }
}

TEST(CurveFit, DegenerateInputIsDefined) {
  double k = 1, d = 1, quality = 0, k0 = 1, k1 = 1, k2 = 1;
  FitOf({}).CalcLinFit(k, d, quality);
  EXPECT_TRUE(k == 0 && d == 0 && quality == 1);
  FitOf({{3, 1}, {3, 2}}).CalcLinFit(k, d, quality);
  EXPECT_TRUE(k == 0 && d == 1.5 && quality == 0);
  FitOf({{0.1, 1}, {0.1, 1}, {0.7, 4}}).CalcParabolFit(k0, k1, k2, quality);
  EXPECT_EQ(k2, 0) << "two different abscissae make a line";
  EXPECT_NEAR(k0 + 0.7 * k1, 4, 1e-14);
  FitOf({{0.3, 8}, {0.3, 8}, {0.3, 8}}).CalcParabolFit(k0, k1, k2, quality);
  EXPECT_TRUE(k0 == 8 && k1 == 0 && k2 == 0);
  EXPECT_EQ(FitOf({{NAN, 1}, {1, Infinity}}).Count(), 0);
}

TEST(CurveFit, Statistics) {
  const TCurveStatistics s = FitOf({{0, 1}, {10, 12}, {20, 23}, {30, 34}}).CalcStatistics();
  EXPECT_EQ(s.Count, 4);
  EXPECT_DOUBLE_EQ(s.MeanX, 15);
  EXPECT_DOUBLE_EQ(s.MeanY, 17.5);
  EXPECT_DOUBLE_EQ(s.StdDevDiff, std::sqrt(5.0 / 3));
  EXPECT_EQ(FitOf({}).CalcStatistics(), TCurveStatistics{});
  EXPECT_EQ(FitOf({{1, 5}}).CalcStatistics().StdDevDiff, 0);
}

TEST(Progress, CountsThenAsksTheCallback) {
  TProgress progress;
  EXPECT_TRUE(progress.Step());
  progress.Feedback = [&](int64_t counter) { progress.Abort = counter >= 3; };
  EXPECT_TRUE(progress.Step());
  EXPECT_FALSE(progress.Step());
}

TEST(Degrees, CarriesUpwards) {
  struct TCase {
    double Value;
    int Format;
    int32_t Decimals;
    const char* Text;
  };
  for (const TCase& c : {TCase{47.5, 0, 0, "48°"},
                         {46.5, 0, 0, "46°"},
                         {47.123456, 0, 3, "47.123°"},
                         {47.5, 1, 0, "47°30'"},
                         {47.5, 2, 0, "47°30'00\""},
                         {0.05, 1, 2, "0°03.00'"},
                         {46.99999999, 1, 3, "47°00.000'"},
                         {12 + 59.9996 / 60, 1, 3, "13°00.000'"},
                         {12 + 59.9994 / 60, 1, 3, "12°59.999'"},
                         {47.9999999, 2, 2, "48°00'00.00\""},
                         {47 + 59 / 60.0 + 59.5 / 3600, 2, 1, "47°59'59.5\""},
                         {10 + 59.6 / 3600, 2, 0, "10°01'00\""},
                         {179.99999999, 0, 4, "180.0000°"},
                         {-8.25, 2, 0, "-8°15'00\""},
                         {-0.0001, 1, 1, "0°00.0'"},
                         {-0.4, 1, 0, "-0°24'"},
                         {1.0 / 3, 2, 12, "0°20'00.000000000000\""},
                         {5, 1, -3, "5°00'"},
                         {NAN, 1, 2, "nan"},
                         {-Infinity, 0, 2, "-inf"}}) {
    EXPECT_EQ(DegreeToStr(c.Value, static_cast<TDegreeFormat>(c.Format), c.Decimals), c.Text);
  }
}

TEST(GreatCircle, AgreesWithGeographicLib) {
  const double radius = 6378000;
  const GeographicLib::Geodesic sphere(radius, 0);
  TRandom random(1);
  const double scales[] = {180, 1, 1e-3, 1e-6, 1e-9};
  for (int i = 0; i < 500; ++i) {
    const double lat1 = random.NextDouble() * 180 - 90;
    const double long1 = random.NextDouble() * 360 - 180;
    const double scale = scales[i % 5];
    const double step = (random.NextDouble() - 0.5) * scale;
    const bool opposite = i % 2 == 1;
    const double lat2 = std::clamp((opposite ? -lat1 : lat1) + step, -90.0, 90.0);
    const double long2 = long1 + (opposite ? 180 : 0) + (random.NextDouble() - 0.5) * scale;
    double expected = 0;
    sphere.Inverse(lat1, long1, lat2, long2, expected);
    const double actual = SphereGreatCircleDist(radius, lat1, long1, lat2, long2);
    EXPECT_NEAR(actual, expected, 2e-8) << lat1 << " " << long1 << " " << lat2 << " " << long2;
  }
  EXPECT_EQ(SphereGreatCircleDist(radius, 10, 20, 10, 20), 0);
  EXPECT_NEAR(SphereGreatCircleDist(1, 0, -170, 0, 730), M_PI, 1e-12) << "two turns";
}

TEST(Round125, TakesTheNearest) {
  const double cases[][2] = {{1, 1},       {1.49, 1},    {1.5, 2},       {3.49, 2},
                             {3.5, 5},     {7.49, 5},    {7.5, 10},      {9.9, 10},
                             {14, 10},     {15.1, 20},   {0.07, 0.05},   {0.076, 0.1},
                             {1e-9, 1e-9}, {2.6e5, 2e5}, {4e300, 5e300}, {-3.6, -5},
                             {0, 0},       {NAN, 0},     {1000, 1000},   {0.001, 0.001}};
  for (const auto& c : cases) EXPECT_EQ(Round125(c[0]), c[1]) << c[0];
  EXPECT_EQ(Round125(Infinity), Infinity);
  EXPECT_GT(Round125(std::numeric_limits<double>::denorm_min()), 0);
  EXPECT_TRUE(std::isfinite(Round125(std::numeric_limits<double>::max())));
}

TEST(Random, IsTheSameOnEveryMachine) {
  TRandom random(0);
  EXPECT_EQ(random.Next(), 0xE220A8397B1DCDAFU);  // first values published with the generator
  EXPECT_EQ(random.Next(), 0x6E789E6AA1B965F4U);
  int hits = 0;
  for (int i = 0; i < 10000; ++i) hits += BRandom(random, 0.3);
  EXPECT_NEAR(hits, 3000, 200);
  for (int i = 0; i < 1000; ++i) ASSERT_TRUE(BRandom(random, 1) && !BRandom(random, 0));
}

TEST(Line, IsClippedToABox) {
  struct TCase {
    double Points[4], Box[4];
    bool Meets;
    double Clipped[4];
  };
  const TCase cases[] = {
      {{0, 0, 10, 10}, {2, 0, 8, 20}, true, {2, 2, 8, 8}},
      {{10, 10, 0, 0}, {2, 0, 8, 20}, true, {8, 8, 2, 2}},  // keeps its direction
      {{4, 5, 5, 5}, {0, 0, 10, 10}, true, {0, 5, 10, 5}},  // a line has no ends
      {{5, 7, 5, 8}, {0, 10, 10, 0}, true, {5, 0, 5, 10}},  // box given upside down
      {{0, 11, 10, 11}, {0, 0, 10, 10}, false, {}},
      {{-1, 1, 1, -1}, {0, 0, 10, 10}, true, {0, 0, 0, 0}},  // touches a corner
      {{3, 3, 3, 3}, {0, 0, 10, 10}, false, {}},
      {{0, 0, Infinity, 1}, {0, 0, 10, 10}, false, {}},
      {{0, 0, NAN, 1}, {0, 0, 10, 10}, false, {}},
  };
  for (const TCase& c : cases) {
    TSLine line;
    line.LineFrom2Points(c.Points[0], c.Points[1], c.Points[2], c.Points[3]);
    double r[4] = {};
    EXPECT_EQ(line.ClipBox(c.Box[0], c.Box[1], c.Box[2], c.Box[3], r[0], r[1], r[2], r[3]),
              c.Meets);
    for (int i = 0; i < 4; ++i) EXPECT_DOUBLE_EQ(r[i], c.Clipped[i]) << c.Points[0] << " " << i;
  }
}

TEST(DateTime, CountsDaysFromTheEndOf1899) {
  const std::pair<TDateTimeParts, double> cases[] = {
      {{1899, 12, 30, 0, 0, 0}, 0},   {{1899, 12, 29, 6, 0, 0}, -1.25},
      {{1970, 1, 1, 0, 0, 0}, 25569}, {{2000, 2, 29, 18, 0, 0}, 36585.75},
      {{1, 1, 1, 0, 0, 0}, -693593},  {{9999, 12, 31, 23, 59, 59}, 2958465 + 86399 / 86400.0}};
  for (const auto& [parts, value] : cases) {
    double encoded = 0;
    EXPECT_TRUE(EncodeDateTime(parts, encoded));
    EXPECT_EQ(encoded, value);
    EXPECT_EQ(DecodeDateTime(value), parts) << value;
  }
  for (int i = 0; i < 2958; ++i) {
    const double day = -693593 + i * 1234.56789;
    double encoded = 0;
    EXPECT_TRUE(EncodeDateTime(DecodeDateTime(day), encoded));
    EXPECT_NEAR(encoded, day, 0.5001 / 86400);
  }
  EXPECT_EQ(DecodeDateTime(1.9999999), (TDateTimeParts{1900, 1, 1, 0, 0, 0})) << "carried";
  EXPECT_EQ(DecodeDateTime(NAN), TDateTimeParts{});
  EXPECT_EQ(DecodeDateTime(2958465.9999999), TDateTimeParts{});
}

TEST(ShortString, IsCutAtACharacterAndReadSafely) {
  static_assert(sizeof(TShortString<15>) == 16 && std::is_trivially_copyable_v<TShortString<15>>);
  TShortString<4> text("aé東");
  EXPECT_EQ(text.Text(), "aé");
  text = "abcd";
  EXPECT_EQ(text.View(), "abcd");
  text.Length = 200;  // as a damaged file may say
  EXPECT_EQ(text.View(), "abcd");
  EXPECT_EQ(text, TShortString<4>("abcdef"));
}

}  // namespace
}  // namespace zav
