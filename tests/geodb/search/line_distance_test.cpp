// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include <geodb/search/geo_box.h>
#include <geodb/search/line_distance.h>
#include <gtest/gtest.h>
#include <platform/base/great_circle.h>

namespace zav {
namespace {

struct TPosition {
  double Latit;
  double Longit;
};

double Metres(const TPosition& A, const TPosition& B) {
  return SphereGreatCircleDist(MeanEarthRadius, A.Latit, A.Longit, B.Latit, B.Longit);
}

// A share of the way along the shortest line.
TPosition Along(const TPosition& A, const TPosition& B, double Share) {
  constexpr double Radians = std::numbers::pi / 180;
  const double Whole = Metres(A, B) / MeanEarthRadius;
  const double P = std::sin((1 - Share) * Whole) / std::sin(Whole);
  const double Q = std::sin(Share * Whole) / std::sin(Whole);
  const auto Mix = [&](auto Of) { return P * Of(A) + Q * Of(B); };
  const double X = Mix([](const TPosition& Each) {
    return std::cos(Each.Latit * Radians) * std::cos(Each.Longit * Radians);
  });
  const double Y = Mix([](const TPosition& Each) {
    return std::cos(Each.Latit * Radians) * std::sin(Each.Longit * Radians);
  });
  const double Z = Mix([](const TPosition& Each) { return std::sin(Each.Latit * Radians); });
  return {std::atan2(Z, std::hypot(X, Y)) / Radians, std::atan2(Y, X) / Radians};
}

TEST(LineDistance, IsThatOfTheNearestPointOfTheLine) {
  std::mt19937 Random(5);
  std::uniform_real_distribution<double> Lat(-90, 90);
  std::uniform_real_distribution<double> Long(-180, 180);
  constexpr int Steps = 2000;
  for (int Round = 0; Round < 200; ++Round) {
    std::vector<TPosition> Points;
    Points.reserve(4);
    for (int i = 0; i < 1 + Round % 4; ++i) Points.push_back({Lat(Random), Long(Random)});
    const TPosition From = {Lat(Random), Long(Random)};
    const bool Closed = Round % 2 == 0;
    double Least = Metres(From, Points[0]);
    const size_t Lines = Points.size() - (Closed ? 0 : 1);
    for (size_t i = 0; i < Lines && Points.size() > 1; ++i) {
      const TPosition& To = Points[(i + 1) % Points.size()];
      for (int Step = 0; Step <= Steps; ++Step) {
        Least = std::min(Least, Metres(From, Along(Points[i], To, Step / double{Steps})));
      }
    }
    const double Found = DistanceToLine(Points, Closed, From.Latit, From.Longit);
    // Half the way between two samples, at most 20000 km / 2000.
    EXPECT_LE(Found, Least + 1e-2) << Round;
    EXPECT_GE(Found, Least - 5100) << Round;
  }
  // On the line, beside it, beyond its end, across 180 degrees, without points.
  const std::vector<TPosition> Equator = {{0, 170}, {0, -170}};
  constexpr double Degree = MeanEarthRadius * std::numbers::pi / 180;
  EXPECT_NEAR(DistanceToLine(Equator, false, 0, 180), 0, 1e-6);
  EXPECT_NEAR(DistanceToLine(Equator, false, 1, -179), Degree, 1e-6);
  EXPECT_NEAR(DistanceToLine(Equator, false, 0, -160), 10 * Degree, 1e-6);
  EXPECT_EQ(DistanceToLine(std::vector<TPosition>{{NAN, 0}}, true, 0, 0), HUGE_VAL);
}

}  // namespace
}  // namespace zav
