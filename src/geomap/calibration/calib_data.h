/// @file
/// calib_data.h - what a calibration is made of: its model, its points and lines, its corners.
///
/// Plain values that can be copied and compared. Pixels are those of the map image: X to the right,
/// Y down, (0, 0) the centre of the top left pixel. Angles are degrees, north and east positive.
/// Items are numbered from 1 at the interface of the classes that use this record, and stored from
/// 0.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_CALIBRATION_CALIB_DATA_H
#define ZAV_GEOMAP_CALIBRATION_CALIB_DATA_H

#include <array>
#include <cstdint>
#include <string>

#include <geobasics/ellipsoids.h>
#include <platform/base/geometry.h>

namespace zav {

/// How pixels and positions are tied; docs/guide/calibrating.md tells which is for what.
enum class TCalibModel : uint8_t {
  cmParabolicIp = 0,        ///< parabolas through points of graticule lines
  cmBiquadraticPn = 1,      ///< second-order polynomial
  cmConicConformal = 2,     ///< cone with a pole pixel
  cmMillerCylindrical = 3,  ///< Miller's cylindrical projection
  cmEquiRect = 4,           ///< first-order polynomial in degrees
  cmUTM = 5,                ///< first-order polynomial in UTM metres
  cmUndefined = 6           ///< none
};

/// The direction of a graticule line.
enum class TGratLineKind : uint8_t {
  gtlMeridian = 0,  ///< one longitude
  gtlParallel = 1   ///< one latitude
};

/// Counter-clockwise from the top left.
enum TCorners : uint8_t {
  gcoTopLeft = 0,      ///< pixel (0, 0)
  gcoBottomLeft = 1,   ///< below it
  gcoBottomRight = 2,  ///< opposite
  gcoTopRight = 3      ///< right of the first
};

/// A position in degrees.
struct TCoords {
  double Latit = 0;   ///< latitude
  double Longit = 0;  ///< longitude
  friend bool operator==(const TCoords&, const TCoords&) = default;
};

/// Indexed by TCorners.
using TCornerArray = std::array<TCoords, 4>;

constexpr int32_t MaxCalLines = 25;       ///< graticule lines of a calibration
constexpr int32_t MaxCalLinePoints = 10;  ///< points of a graticule line
constexpr int32_t MaxCalQuads = 200;      ///< control points of a calibration

/// A control point. Under cmUTM Latitude holds the northing and Longitude the easting, in metres.
struct TCalQuad {
  double Latitude = 0;   ///< degrees, or northing
  double Longitude = 0;  ///< degrees, or easting
  int32_t MapX = 0;      ///< pixel
  int32_t MapY = 0;      ///< pixel
  friend bool operator==(const TCalQuad&, const TCalQuad&) = default;
};

/// A graticule line with the points digitised on it.
struct TCalibLine {
  TGratLineKind LineType = TGratLineKind::gtlMeridian;  ///< its direction
  double LineValue = 0;   ///< longitude of a meridian, latitude of a parallel
  int32_t NumPoints = 0;  ///< 0..MaxCalLinePoints
  std::array<TPoint, MaxCalLinePoints> CalPoints{};  ///< pixels, NumPoints of them in use
  friend bool operator==(const TCalibLine&, const TCalibLine&) = default;
};

/// A calibration as files hold it, but for its model.
struct TCalibData {
  std::string MapFName;                               ///< the map image's file name
  std::string Caption;                                ///< the map's name for people
  TCornerArray Corners{};                             ///< positions of the image's corners
  double Resolution = 0;                              ///< metres per pixel, 0 = unknown
  int32_t NumCalLines = 0;                            ///< 0..MaxCalLines
  std::array<TCalibLine, MaxCalLines> CalLines{};     ///< NumCalLines of them in use
  int32_t NumCalQuads = 0;                            ///< 0..MaxCalQuads
  std::array<TCalQuad, MaxCalQuads> CalQuads{};       ///< NumCalQuads of them in use
  int32_t UTMZone = -1;                               ///< 1..60, -1 = not set
  bool UTMSouth = false;                              ///< hemisphere of the zone
  TGeoEllipsoid Ellipsoid = TGeoEllipsoid::gelWGS84;  ///< of all positions of the map
  friend bool operator==(const TCalibData&, const TCalibData&) = default;
};

}  // namespace zav

#endif
