// pass_graticule.cpp - parallels and meridians.
// SPDX-License-Identifier: MIT
#include <geomap/view/passes.h>

namespace zav {

void DrawGraticule(const TRenderScene& Scene, TGraticule& Graticule, TCanvas& Device) {
  if (!ShowsLines(Scene.Look.ShowGraticule)) return;
  const double Factor = Scene.View.Magnification * Scene.Scale;
  Device.Pen = {Scene.Look.ColorGraticule, TPenStyle::psSolid, TPenMode::pmCopy, Scene.PenWidth()};
  TPolyline Line;
  for (const TPolyline& Each : Graticule.Lines(Scene.Calibration, Scene.Look.GratLineDist,
                                               Scene.Look.GratInMapZone, Factor)) {
    Line.clear();
    for (const TPoint& P : Each) AddPoint(Line, Scene.ToDevice(P.X, P.Y));
    Device.Polyline(Line);
  }
}

}  // namespace zav
