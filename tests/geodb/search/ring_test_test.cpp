// ring_test_test.cpp - closed point lists beside exact whole numbers and hand-made cases.
// SPDX-License-Identifier: MIT
#include <geodb/search/ring_test.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

namespace zav {
namespace {

struct TPosition {
  float Latit;
  float Longit;
};
using TRing = std::vector<TPosition>;

TEST(RingTest, KnowsInsideOutsideAndTheLineItself) {
  const TRing Square = {{0, 0}, {0, 10}, {10, 10}, {10, 0}};
  const TRing Closed = {{0, 0}, {0, 10}, {10, 10}, {10, 0}, {0, 0}};
  const TRing Spike = {
      {0, 0}, {5, 10}, {0, 20}, {10, 10}};  // a point of the list on the meridian 10
  const TRing Bow = {{0, 0}, {10, 10}, {10, 0}, {0, 10}};
  // Across 180 degrees, with and without points on it, written either way.
  const TRing Fiji = {{-20, 177}, {-20, -178}, {-12, -178}, {-12, 177}};
  const TRing Split = {{-20, 177}, {-20, 180}, {-20, -180}, {-20, -178}, {-12, -178}, {-12, 177}};
  const TRing Far = {{-20, 177}, {-20, 182}, {-12, 182}, {-12, 177}};
  // Around the poles: as it comes from a flat map, with the edges of the map, and without.
  const TRing South = {{-60, -180}, {-70, -90}, {-65, 0},   {-70, 90},
                       {-60, 180},  {-90, 180}, {-90, -180}};
  const TRing Arctic = {{70, 0}, {80, 120}, {70, -120}};
  const struct {
    const TRing& Ring;
    double Lat, Long;
    bool Contains;
  } Cases[] = {
      {Square, 5, 5, true},
      {Square, 5, 365, true},
      {Square, 5, -355, true},
      {Square, 0, 0, true},
      {Square, 10, 0, true},
      {Square, 0, 5, true},
      {Square, 5, 0, true},
      {Square, 10, 5, true},
      {Square, 5, 10, true},
      {Square, 5, 10.0000001, false},
      {Square, -1e-300, 5, false},
      {Square, 5, -1e-300, false},
      {Square, 11, 0, false},
      {Square, -1, 10, false},
      {Square, 5, 185, false},
      {Closed, 5, 5, true},
      {Closed, 0, 0, true},
      {Closed, 5, 0, true},
      {Closed, 5, -1, false},
      {Spike, 6, 10, true},
      {Spike, 5, 10, true},
      {Spike, 4, 10, false},
      {Spike, 11, 10, false},
      {Spike, 2, 2, true},
      {Bow, 5, 5, true},
      {Bow, 5, 1, false},
      {Bow, 8, 5, true},
      {Fiji, -15, 179, true},
      {Fiji, -15, -179, true},
      {Fiji, -15, 180, true},
      {Fiji, -15, -180, true},
      {Fiji, -15, 0, false},
      {Fiji, -15, 176, false},
      {Fiji, -20, 180, true},
      {Fiji, -21, 180, false},
      {Split, -15, 179, true},
      {Split, -15, -179, true},
      {Split, -15, 180, true},
      {Split, -15, 0, false},
      {Split, -20, -180, true},
      {Far, -15, -179, true},
      {Far, -15, 181, true},
      {Far, -15, 175, false},
      {South, -89, 45, true},
      {South, -90, 0, true},
      {South, -66, 0, true},
      {South, -64, 0, false},
      {South, -65, 0, true},
      {South, -75, 180, true},
      {South, -50, 180, false},
      {South, 80, 10, false},
      {Arctic, 85, 77, true},
      {Arctic, 90, 0, true},
      {Arctic, 71, 0, true},
      {Arctic, 69, 0, false},
      {Arctic, -80, 0, false},
      {Arctic, 70, 180, false},
      {{}, 0, 0, false},
      {{{1, 2}}, 1, 2, true},
      {{{1, 2}}, 1, 3, false},
      {{{0, 0}, {2, 2}}, 1, 1, true},
      {{{0, 0}, {2, 2}}, 1, 1.5, false},
      {Square, NAN, 5, false},
      {Square, 5, INFINITY, false},
  };
  for (const auto& Case : Cases)
    EXPECT_EQ(RingContains(Case.Ring, Case.Lat, Case.Long), Case.Contains)
        << Case.Ring.size() << " points: " << Case.Lat << ' ' << Case.Long;
}

// The same by whole numbers and another way: a ray to the east, crossings counted by latitude.
bool ContainsWhole(const std::vector<std::pair<int64_t, int64_t>>& Ring, int64_t Y, int64_t X) {
  bool Inside = false;
  for (size_t i = 0, j = Ring.size() - 1; i < Ring.size(); j = i++) {
    const auto [Y1, X1] = Ring[j];
    const auto [Y2, X2] = Ring[i];
    const int64_t Side = (X2 - X1) * (Y - Y1) - (Y2 - Y1) * (X - X1);
    if (Side == 0 && std::min(X1, X2) <= X && X <= std::max(X1, X2) && std::min(Y1, Y2) <= Y &&
        Y <= std::max(Y1, Y2))
      return true;
    if ((Y1 > Y) != (Y2 > Y) && (Side > 0) == (Y2 > Y1)) Inside = !Inside;
  }
  return Inside;
}

TEST(RingTest, IsExactOnGridsAnywhere) {
  std::mt19937 Random(11);
  // Degrees of a grid step: a few positions on a coarse grid meet points and lines all the time.
  for (const double Step : {1.0, 0.25, 1.0 / 4096}) {
    for (int Round = 0; Round < 3000; ++Round) {
      const double Origin = Round % 3 == 0 ? 178.0 : Round % 3 == 1 ? -3.0 : 100.5;
      std::vector<std::pair<int64_t, int64_t>> Whole;
      TRing Ring;
      for (uint32_t i = 3 + Random() % 8; i > 0; --i) {
        Whole.emplace_back(Random() % 12, Random() % 12);
        double Long = Origin + Step * static_cast<double>(Whole.back().second);
        if (Long > 180) Long -= 360;
        Ring.push_back({static_cast<float>(20 + Step * static_cast<double>(Whole.back().first)),
                        static_cast<float>(Long)});
      }
      for (int64_t Y = -1; Y <= 12; ++Y)
        for (int64_t X = -1; X <= 12; ++X)
          ASSERT_EQ(RingContains(Ring, 20 + Step * static_cast<double>(Y),
                                 Origin + Step * static_cast<double>(X)),
                    ContainsWhole(Whole, Y, X))
              << Step << ' ' << Origin << ' ' << Y << ' ' << X;
    }
  }
}

// Areas that share their lines leave no gap: every position is in one of them at least.
TEST(RingTest, NeighboursLeaveNoGap) {
  std::mt19937 Random(5);
  std::uniform_real_distribution<float> Place(-1, 1);
  std::uniform_real_distribution<double> Part(0, 1);
  for (int Round = 0; Round < 20000; ++Round) {
    const TPosition Centre{Place(Random) * 0.5F, Place(Random) * 0.5F};
    const TPosition Corners[] = {{-1, -1}, {-1, 1}, {1, 1}, {1, -1}};
    // A position next to the line from the centre to a corner.
    const double T = Part(Random);
    const double Lat = Centre.Latit + T * (1 - Centre.Latit);
    const double Long = Centre.Longit + T * (1 - Centre.Longit);
    int Holders = 0;
    for (int i = 0; i < 4; ++i)
      Holders += RingContains(TRing{Centre, Corners[i], Corners[(i + 1) % 4]}, Lat, Long);
    ASSERT_GE(Holders, 1);
  }
}

}  // namespace
}  // namespace zav
