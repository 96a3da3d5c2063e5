// ring_test.cpp - see ring_test.h.
// SPDX-License-Identifier: MIT
#include <geodb/search/ring_test.h>

#include <algorithm>
#include <cmath>

namespace zav {
namespace {

// A difference of longitudes turned into -180 to 180. Exact for longitudes of up to 360 degrees.
double Turned(double Difference) noexcept {
  if (std::fabs(Difference) <= 180) return Difference;
  if (std::fabs(Difference) > 540) return std::remainder(Difference, 360.0);
  return Difference > 0 ? Difference - 360 : Difference + 360;
}

// A * D - B * C with the right sign: the rounding error of one product is taken into account (W.
// Kahan; C.-P. Jeannerod, N. Louvet, J.-M. Muller, Mathematics of Computation 82, 2013).
double Determinant(double A, double B, double C, double D) noexcept {
  const double Product = B * C;
  const double Error = std::fma(-B, C, Product);
  return std::fma(A, D, -Product) + Error;
}

}  // namespace

TRingTest::TRingTest(double Lat, double Long) noexcept : FLat(Lat), FLong(Long) {}

void TRingTest::Add(double Lat, double Long) noexcept {
  const TOffset Point{Lat - FLat, Turned(Long - FLong)};
  if (FCount == 0) {
    FFirst = Point;
    FLowest = FHighest = Lat;
  } else {
    Cross(FLast, Point, FCrossings);
  }
  FLowest = std::min(FLowest, Lat);
  FHighest = std::max(FHighest, Lat);
  FLast = Point;
  ++FCount;
}

// The meridian of the position belongs to its east, so a point on it is counted for one of the two
// lines that meet there.
void TRingTest::Cross(const TOffset& From, const TOffset& To, TCrossings& Crossings) noexcept {
  if (From.East == 0 && To.East == 0) {  // along the meridian
    Crossings.On |= std::min(From.North, To.North) <= 0 && std::max(From.North, To.North) >= 0;
    return;
  }
  Crossings.On |= To.East == 0 && To.North == 0;
  const bool FromWest = From.East < 0;
  const bool ToWest = To.East < 0;
  if (FromWest == ToWest) return;
  if (std::fabs(From.East - To.East) > 180) return;  // the shorter way is behind the globe
  Crossings.Turns += FromWest ? 1 : -1;
  if (From.North > 0 && To.North > 0) {
    ++Crossings.North;
  } else if (From.North < 0 && To.North < 0) {
    ++Crossings.South;
  } else {
    // The line crosses the meridian Side / (To.East - From.East) degrees north of the position.
    const double Side = Determinant(From.North, From.East, To.North, To.East);
    Crossings.On |= Side == 0;
    ++((Side > 0) == FromWest ? Crossings.North : Crossings.South);
  }
}

bool TRingTest::Contains() const noexcept {
  if (FCount == 0 || !std::isfinite(FLat) || !std::isfinite(FLong)) return false;
  TCrossings All = FCrossings;
  Cross(FLast, FFirst, All);
  if (All.On) return true;
  const bool HoldsNorthPole = All.Turns != 0 && FLowest + FHighest >= 0;
  return (HoldsNorthPole ? All.South : All.North) % 2 != 0;
}

}  // namespace zav
