// calib_data.h - what a calibration is made of: its model, its points and lines, its corners.
//
// Plain values that can be copied and compared. Pixels are those of the map image: X to the right,
// Y down, (0, 0) the centre of the top left pixel. Angles are degrees, north and east positive.
// Items are numbered from 1 at the interface of the classes that use this record, and stored from
// 0.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_CALIBRATION_CALIB_DATA_H
#define ZAV_GEOMAP_CALIBRATION_CALIB_DATA_H

#include <array>
#include <cstdint>
#include <string>

#include <geobasics/ellipsoids.h>
#include <platform/base/geometry.h>

namespace zav {

enum class TCalibModel : uint8_t {
  cmParabolicIp = 0,        // parabolas through points of graticule lines
  cmBiquadraticPn = 1,      // second-order polynomial
  cmConicConformal = 2,     // cone with a pole pixel
  cmMillerCylindrical = 3,  // Miller's cylindrical projection
  cmEquiRect = 4,           // first-order polynomial in degrees
  cmUTM = 5,                // first-order polynomial in UTM metres
  cmUndefined = 6
};

enum class TGratLineKind : uint8_t { gtlMeridian = 0, gtlParallel = 1 };

// Counter-clockwise from the top left.
enum TCorners : uint8_t { gcoTopLeft = 0, gcoBottomLeft = 1, gcoBottomRight = 2, gcoTopRight = 3 };

// A position in degrees.
struct TCoords {
  double Latit = 0;
  double Longit = 0;
  friend bool operator==(const TCoords&, const TCoords&) = default;
};

// Indexed by TCorners.
using TCornerArray = std::array<TCoords, 4>;

constexpr int32_t MaxCalLines = 25;
constexpr int32_t MaxCalLinePoints = 10;
constexpr int32_t MaxCalQuads = 200;

// A control point. Under cmUTM Latitude holds the northing and Longitude the easting, in metres.
struct TCalQuad {
  double Latitude = 0;
  double Longitude = 0;
  int32_t MapX = 0;
  int32_t MapY = 0;
  friend bool operator==(const TCalQuad&, const TCalQuad&) = default;
};

// A graticule line with the points digitised on it.
struct TCalibLine {
  TGratLineKind LineType = TGratLineKind::gtlMeridian;
  double LineValue = 0;   // longitude of a meridian, latitude of a parallel
  int32_t NumPoints = 0;  // 0..MaxCalLinePoints
  std::array<TPoint, MaxCalLinePoints> CalPoints{};
  friend bool operator==(const TCalibLine&, const TCalibLine&) = default;
};

struct TCalibData {
  std::string MapFName;  // the map image's file name
  std::string Caption;
  TCornerArray Corners{};  // positions of the image's corners
  double Resolution = 0;   // metres per pixel, 0 = unknown
  int32_t NumCalLines = 0;
  std::array<TCalibLine, MaxCalLines> CalLines{};
  int32_t NumCalQuads = 0;
  std::array<TCalQuad, MaxCalQuads> CalQuads{};
  int32_t UTMZone = -1;  // 1..60, -1 = not set
  bool UTMSouth = false;
  TGeoEllipsoid Ellipsoid = TGeoEllipsoid::gelWGS84;
  friend bool operator==(const TCalibData&, const TCalibData&) = default;
};

}  // namespace zav

#endif
