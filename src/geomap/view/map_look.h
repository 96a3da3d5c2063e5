// map_look.h - how a map is drawn: colours, frame, graticule, and what is shown of it.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_MAP_LOOK_H
#define ZAV_GEOMAP_VIEW_MAP_LOOK_H

#include <cstdint>
#include <string>

#include <platform/base/color.h>
#include <platform/host/frame.h>

namespace zav {

enum class TShowGrat : uint8_t {
  sgNone = 0,
  sgPoints = 1,  // calibration points
  sgLines = 2,   // graticule
  sgPointsAndLines = 3,
  sgUTMGrid = 4,
  sgPointsAndUTMGrid = 5
};

constexpr double MaxCacheMagLimit = 0.6666666666666666;

struct TMapLook {
  TColor ColorBackGnd = clSilver;
  TColor ColorGraticule = clBlue;
  TColor ColorCalibPoints = clRed;
  TColor ColorFrame = clBlack;  // of the message that stands for an empty map
  TColor ColorFrameDark = clBlack;
  TColor ColorFrameShadow = clGray;
  TColor ColorFrameLight = clWhite;
  TFrameStyle FrameStyle = TFrameStyle::fsSunken;
  std::string EmptyMsg = "GeoMap: empty";
  bool AntiAlias = true;
  double CacheMagLimit = MaxCacheMagLimit;
  TShowGrat ShowGraticule = TShowGrat::sgNone;
  double GratLineDist = 0;  // degrees, 0 = automatic
  // Whether graticule and grid of a UTM map are drawn in the map's own zone beyond the zone's
  // edges, too. Otherwise each point is taken in the zone it lies in: a graticule line that leaves
  // the zone jumps, and the grid has no eastings when the map's lower corners lie in different
  // zones, and it ends too early on a map that begins inside the window.
  bool GratInMapZone = false;
  int32_t UTMGridDist = 0;  // metres, 0 = automatic
};

}  // namespace zav

#endif
