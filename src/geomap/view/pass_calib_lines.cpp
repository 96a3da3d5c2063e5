// pass_calib_lines.cpp - the lines that a parabolic calibration is made of.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

#include <geomap/view/passes.h>
#include <platform/base/curve_fit.h>
#include <platform/base/rounding.h>

namespace zav {
namespace {

// Map pixels from one point of a parabola to the next: one, unless many would share a device pixel.
double StepAlong(const TRenderScene& Scene) {
  return std::max(std::floor(0.25 / (Scene.View.Magnification * Scene.Scale)), 1.0);
}

// The parabola through a line's points, drawn across the control. Along is the coordinate that the
// parabola takes: X for a parallel, Y for a meridian.
TPolyline ParabolaOf(const TCalibLine& Line, const TRenderScene& Scene) {
  const bool Parallel = Line.LineType == TGratLineKind::gtlParallel;
  TCurveFit Fit;
  for (int32_t I = 0; I < Line.NumPoints; ++I) {
    const TPoint P = Line.CalPoints[static_cast<size_t>(I)];
    if (Parallel) {
      Fit.EnterStatValue(P.X, P.Y);
    } else {
      Fit.EnterStatValue(P.Y, P.X);
    }
  }
  double C0 = 0;
  double C1 = 0;
  double C2 = 0;
  double Quality = 0;
  Fit.CalcParabolFit(C0, C1, C2, Quality);

  const TViewState& View = Scene.View;
  const double Begin = Parallel ? View.TopLeft.X : View.TopLeft.Y;
  const double Size = Parallel ? Scene.Control.Width : Scene.Control.Height;
  const double End = Begin + Size / View.Magnification;
  const double Step = StepAlong(Scene);
  TPolyline Points;
  for (double Along = Begin;; Along += Step) {
    const double Across = RoundHalfEven(C0 + C1 * Along + C2 * Along * Along);
    AddPoint(Points, Parallel ? Scene.ToDevice(Along, Across) : Scene.ToDevice(Across, Along));
    if (!(Along < End)) return Points;
  }
}

}  // namespace

void DrawCalibLines(const TRenderScene& Scene, TCanvas& Device) {
  if (Scene.Calibration.Model() != TCalibModel::cmParabolicIp) return;
  const TCalibData& Data = Scene.Calibration.Data();
  const TShowGrat Show = Scene.Look.ShowGraticule;
  for (int32_t I = 0; I < Data.NumCalLines; ++I) {
    const TCalibLine& Line = Data.CalLines[static_cast<size_t>(I)];
    if (ShowsLines(Show)) {
      Device.Pen = {Scene.Look.ColorGraticule, TPenStyle::psSolid, TPenMode::pmCopy,
                    Scene.PenWidth()};
      Device.Polyline(ParabolaOf(Line, Scene));
    }
    if (!ShowsPoints(Show)) continue;
    for (int32_t P = 0; P < Line.NumPoints; ++P) {
      DrawMarker(Scene, Line.CalPoints[static_cast<size_t>(P)], Device);
    }
  }
}

}  // namespace zav
