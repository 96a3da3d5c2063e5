// geojson_coordinates.h - the nested lists of a member "coordinates".
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_COMMON_GEOJSON_COORDINATES_H
#define ZAV_APPS_COMMON_GEOJSON_COORDINATES_H

#include <geodb/gdb_records.h>
#include <platform/base/text_format.h>

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "common/item_reader.h"

namespace zav {

// Nested lists of positions, as they stand in the text.
struct TGeometry {
  struct TEnd {
    uint32_t Depth;   // of a list that ended: 1 is the outermost
    uint32_t Points;  // how many positions stand before its end
  };
  std::string Type;
  TgdbPolygon Points;
  std::vector<TEnd> Ends;  // of lists that are no positions
  uint32_t PositionDepth = 0;
  std::optional<double> Altitude;  // of the last position that has one
};

// Follows the lists of one member "coordinates". After the first problem only their ends count.
class TCoordinates {
 public:
  void Begin() {
    ++FDepth;
    FNumbers = 0;
  }
  void AddNumber(TGeometry& Geometry, double Value) {
    if (FNumbers == 0 && Geometry.PositionDepth == 0) Geometry.PositionDepth = FDepth;
    if (FDepth != Geometry.PositionDepth) SetProblem("coordinates are nested unevenly");
    if (FNumbers < 3) FPosition[FNumbers++] = Value;
  }
  // True when the outermost list has ended.
  bool End(TGeometry& Geometry) {
    if (FProblem.empty()) {
      if (FNumbers > 0) {
        AddPosition(Geometry);
      } else {
        Geometry.Ends.push_back({FDepth, static_cast<uint32_t>(Geometry.Points.size())});
      }
    }
    FNumbers = 0;
    return --FDepth == 0;
  }
  void SetProblem(const std::string& Problem) {
    if (FProblem.empty()) FProblem = Problem;
  }
  const std::string& Problem() const { return FProblem; }

 private:
  void AddPosition(TGeometry& Geometry) {
    const double Long = FPosition[0];
    const double Lat = FPosition[1];
    if (FNumbers < 2) {
      SetProblem("a position needs longitude and latitude");
    } else if (!(std::fabs(Lat) <= 90) || !(std::fabs(Long) <= 360)) {
      SetProblem("position " + ShortestNumber(Long) + ", " + ShortestNumber(Lat) +
                 " is outside longitudes -360..360 or latitudes -90..90");
    } else {
      Geometry.Points.push_back(
          {static_cast<float>(Lat), static_cast<float>(TurnedLongitude(Long))});
      if (FNumbers == 3) Geometry.Altitude = FPosition[2];
    }
  }

  uint32_t FDepth = 0;
  size_t FNumbers = 0;
  double FPosition[3] = {};
  std::string FProblem;
};

}  // namespace zav

#endif
