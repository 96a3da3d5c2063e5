// pass_graticule.cpp - parallels and meridians.
// SPDX-License-Identifier: MIT
#include <geomap/view/passes.h>

namespace zav {

void DrawGraticule(const TRenderScene& Scene, TGraticule& Graticule, TCanvas& Device) {
  if (!ShowsLines(Scene.Look.ShowGraticule)) return;
  const double Factor = Scene.View.Magnification * Scene.Scale;
  const int32_t Parts = Scene.PartsOfPixel();
  Device.Pen = {Scene.Look.ColorGraticule, TPenStyle::psSolid, TPenMode::pmCopy, Scene.PenWidth()};
  TPolyline Line;
  for (const TPolyline& Each : Graticule.Lines(Scene.Calibration, Scene.Look.GratLineDist,
                                               Scene.Look.GratInMapZone, Factor, Parts)) {
    Line.clear();
    for (const TPoint& P : Each)
      AddPoint(Line,
               Scene.ToDevice(static_cast<double>(P.X) / Parts, static_cast<double>(P.Y) / Parts));
    Device.Polyline(Line);
  }
}

}  // namespace zav
