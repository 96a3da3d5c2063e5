// geo_map_look.cpp - how the control draws the map: each setter and its consequence.
// SPDX-License-Identifier: MIT
#include <geomap/geo_map.h>

#include <algorithm>

namespace zav {
namespace {

constexpr double MaxGratLineDist = 60;
constexpr int32_t MaxUTMGridDist = 10000000;

// The value inside 0..High; 0 for NaN.
double Clamped(double Value, double High) { return Value > 0 ? std::min(Value, High) : 0; }

}  // namespace

void TGeoMap::SetAntiAlias(bool Value) { Store(FLook.AntiAlias, Value); }

void TGeoMap::SetCacheMagLimit(double Value) {
  FLook.CacheMagLimit = Clamped(Value, MaxCacheMagLimit);
  if (MaxCacheMagLimit > FView.Magnification) Paint();
}

void TGeoMap::SetColorBakGnd(TColor Color) { Store(FLook.ColorBackGnd, Color); }
void TGeoMap::SetColorGratLine(TColor Color) { Store(FLook.ColorGraticule, Color); }
void TGeoMap::SetColorGratPoints(TColor Color) { Store(FLook.ColorCalibPoints, Color); }
void TGeoMap::SetColorFrame(TColor Color) { Store(FLook.ColorFrame, Color); }
void TGeoMap::SetEmptyMsg(const std::string& Text) { Store(FLook.EmptyMsg, Text); }
void TGeoMap::SetFrameStyle(TFrameStyle Style) { StoreIfDifferent(FLook.FrameStyle, Style); }
void TGeoMap::SetShowGrat(TShowGrat Value) { StoreIfDifferent(FLook.ShowGraticule, Value); }

void TGeoMap::SetGratLineDist(double Degrees) {
  Store(FLook.GratLineDist, Clamped(Degrees, MaxGratLineDist));
}

void TGeoMap::SetGratInMapZone(bool Value) { StoreIfDifferent(FLook.GratInMapZone, Value); }

void TGeoMap::SetUTMGridDist(int32_t Metres) {
  Store(FLook.UTMGridDist, std::clamp(Metres, 0, MaxUTMGridDist));
}

}  // namespace zav
