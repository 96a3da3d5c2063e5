// pass_markers.cpp - the points of a calibration.
// SPDX-License-Identifier: MIT
#include <array>

#include <geomap/view/passes.h>
#include <platform/host/scaled_canvas.h>

namespace zav {
namespace {

constexpr int32_t InnerRadius = 8;
constexpr int32_t WhiteRadius = 9;  // keeps the marker visible on any ground
constexpr int32_t OuterRadius = 10;

void DrawDiamond(TCanvas& Canvas, int32_t R) {
  const std::array<TPoint, 5> Points = {{{-R, 0}, {0, -R}, {R, 0}, {0, R}, {-R, 0}}};
  Canvas.Polyline(Points);
}

}  // namespace

void DrawMarker(const TRenderScene& Scene, TPoint Map, TCanvas& Device) {
  const TPoint Center = Scene.ToDevice(Map.X, Map.Y);
  TScaledCanvas Canvas(Device, Scene.Scale, Center.X, Center.Y);
  Canvas.Pen = {Scene.Look.ColorCalibPoints};
  Canvas.MoveTo(-InnerRadius, 0);
  Canvas.LineTo(InnerRadius, 0);
  Canvas.MoveTo(0, -InnerRadius);
  Canvas.LineTo(0, InnerRadius);
  DrawDiamond(Canvas, InnerRadius);
  Canvas.Pen.Color = clWhite;
  DrawDiamond(Canvas, WhiteRadius);
  Canvas.Pen.Color = Scene.Look.ColorCalibPoints;
  DrawDiamond(Canvas, OuterRadius);
}

void DrawMarkers(const TRenderScene& Scene, TCanvas& Device) {
  const TCalibModel Model = Scene.Calibration.Model();
  const TShowGrat Show = Scene.Look.ShowGraticule;
  const bool IsUTM = Model == TCalibModel::cmUTM;
  if (Model == TCalibModel::cmParabolicIp || Model == TCalibModel::cmUndefined) return;
  if (!ShowsPoints(Show) && !(IsUTM && Show == TShowGrat::sgPointsAndUTMGrid)) return;
  const TCalibData& Data = Scene.Calibration.Data();
  for (int32_t I = 0; I < Data.NumCalQuads; ++I) {
    const TCalQuad& Point = Data.CalQuads[static_cast<size_t>(I)];
    DrawMarker(Scene, {Point.MapX, Point.MapY}, Device);
  }
}

}  // namespace zav
