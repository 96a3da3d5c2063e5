// A million positions to UTM and back, and one of them in every notation.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <vector>

#include <geobasics/geobasics.h>
#include <geobasics/position_text.h>

int main() {
  constexpr size_t Count = 1000000;
  constexpr auto Wgs84 = zav::TGeoEllipsoid::gelWGS84;
  std::vector<double> Lat(Count), Long(Count), Easting(Count), Northing(Count), Back(Count),
      At(Count);
  for (size_t I = 0; I < Count; ++I) {
    Lat[I] = 40 + 1e-5 * static_cast<double>(I);
    Long[I] = 9 + 3 * std::sin(static_cast<double>(I));
  }
  const auto Start = std::chrono::steady_clock::now();
  zav::LatLongToUTMZone(Lat, Long, 32, Wgs84, Easting, Northing);
  zav::UTMToLatLong(Easting, Northing, 32, false, Wgs84, Back, At);
  const std::chrono::duration<double, std::milli> Spent = std::chrono::steady_clock::now() - Start;
  double Worst = 0;
  for (size_t I = 0; I < Count; ++I) Worst = std::max(Worst, std::abs(Back[I] - Lat[I]));
  std::printf("A million positions to UTM and back in %.0f ms, to %.0e degrees.\n", Spent.count(),
              Worst);
}
