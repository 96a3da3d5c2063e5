/// @file
/// ring_test.h - whether a closed point list contains a position.
///
/// Points are joined by straight lines on a map whose axes are degrees, the last with the first. A
/// line takes the shorter way around the globe, so a list may cross 180 degrees. Where lines cross
/// themselves, a position is inside when a line from it to the pole crosses an odd number of them.
///
/// A list that goes once around the globe holds the pole on its side of the equator (by the mean of
/// its lowest and highest latitude).
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_SEARCH_RING_TEST_H
#define ZAV_GEODB_SEARCH_RING_TEST_H

#include <cstddef>

#include <platform/base/api.h>

namespace zav {

/// Takes the points of a list one by one, so that it need not be in memory.
class ZAVGEO_API TRingTest {
 public:
  /// The position that is asked for, in degrees; the longitude may be off by any turns.
  TRingTest(double Lat, double Long) noexcept;

  /// The next point, in degrees. Points that are not finite give a list that may contain anything.
  void Add(double Lat, double Long) noexcept;

  /// Whether the list of the points so far contains the position. Points and lines belong to the
  /// list; a list of no points contains nothing. More points may be added afterwards.
  bool Contains() const noexcept;

 private:
  // A point as it lies from the position: degrees north and east of it.
  struct TOffset {
    double North = 0;
    double East = 0;  // -180 to 180
  };
  struct TCrossings {
    int North = 0;    // lines that cross the meridian of the position north of it, modulo 2
    int South = 0;    // and south
    int Turns = 0;    // eastward crossings less westward ones
    bool On = false;  // the position lies on a line
  };
  static void Cross(const TOffset& From, const TOffset& To, TCrossings& Crossings) noexcept;

  double FLat;
  double FLong;
  size_t FCount = 0;
  TOffset FFirst;
  TOffset FLast;
  double FLowest = 0;  // latitudes of the points
  double FHighest = 0;
  TCrossings FCrossings;
};

/// The same for a whole list of points with members Latit and Longit.
template <class TPoints>
bool RingContains(const TPoints& Points, double Lat, double Long) noexcept {
  TRingTest Test(Lat, Long);
  for (const auto& Point : Points) Test.Add(Point.Latit, Point.Longit);
  return Test.Contains();
}

}  // namespace zav

#endif
