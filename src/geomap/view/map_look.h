/// @file
/// map_look.h - how a map is drawn: colours, frame, graticule, and what is shown of it.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_MAP_LOOK_H
#define ZAV_GEOMAP_VIEW_MAP_LOOK_H

#include <cstdint>
#include <string>

#include <platform/base/color.h>
#include <platform/host/frame.h>

namespace zav {

/// What of the calibration is shown.
enum class TShowGrat : uint8_t {
  sgNone = 0,             ///< nothing
  sgPoints = 1,           ///< calibration points
  sgLines = 2,            ///< graticule
  sgPointsAndLines = 3,   ///< both
  sgUTMGrid = 4,          ///< lines of whole UTM metres
  sgPointsAndUTMGrid = 5  ///< grid and calibration points
};

/// The scaled map is kept below 2/3 at most.
constexpr double MaxCacheMagLimit = 0.6666666666666666;

/// How a map looks; see the functions of the same names in TGeoMap.
struct TMapLook {
  TColor ColorBackGnd = clSilver;                  ///< around the map
  TColor ColorGraticule = clBlue;                  ///< graticule and grid
  TColor ColorCalibPoints = clRed;                 ///< calibration points and lines
  TColor ColorFrame = clBlack;                     ///< of the message that stands for an empty map
  TColor ColorFrameDark = clBlack;                 ///< inner dark of the frame
  TColor ColorFrameShadow = clGray;                ///< shadow of the frame
  TColor ColorFrameLight = clWhite;                ///< lit edge of the frame
  TFrameStyle FrameStyle = TFrameStyle::fsSunken;  ///< frame round the control
  std::string EmptyMsg = "GeoMap: empty";          ///< one line
  bool AntiAlias = true;                           ///< image scaled smoothly
  double CacheMagLimit = MaxCacheMagLimit;         ///< 0..MaxCacheMagLimit
  TShowGrat ShowGraticule = TShowGrat::sgNone;     ///< what of the calibration is drawn
  double GratLineDist = 0;                         ///< degrees, 0 = automatic
  /// Whether graticule and grid of a UTM map are drawn in the map's own zone beyond the zone's
  /// edges, too. Otherwise each point is taken in the zone it lies in: a graticule line that leaves
  /// the zone jumps, and the grid has no eastings when the map's lower corners lie in different
  /// zones, and it ends too early on a map that begins inside the window.
  bool GratInMapZone = false;
  int32_t UTMGridDist = 0;  ///< metres, 0 = automatic
};

}  // namespace zav

#endif
