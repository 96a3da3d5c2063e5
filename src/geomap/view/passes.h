// passes.h - the layers of a picture, each a function from a scene to calls of a canvas.
//
// The canvas counts device pixels. A pass sets all of pen and brush that it uses and leaves them.
// It draws nothing when the scene does not ask for its layer.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_PASSES_H
#define ZAV_GEOMAP_VIEW_PASSES_H

#include <geomap/view/graticule.h>
#include <geomap/view/landmark_layer.h>
#include <geomap/view/map_image.h>
#include <geomap/view/mouse_trace.h>
#include <geomap/view/render_scene.h>
#include <platform/base/api.h>
#include <platform/host/canvas.h>

namespace zav {

// The map image, from the scaled cache where that holds the magnification, and the background where
// the image does not reach.
ZAVGEO_API void DrawImage(const TRenderScene& Scene, TMapImage& Image, TCanvas& Device);

// Parallels and meridians of the models that are fitted to control points.
ZAVGEO_API void DrawGraticule(const TRenderScene& Scene, TGraticule& Graticule, TCanvas& Device);

// cmParabolicIp: the calibration's own lines as parabolas, and the points digitised on them.
ZAVGEO_API void DrawCalibLines(const TRenderScene& Scene, TCanvas& Device);

// The grid of northings and eastings, cmUTM.
ZAVGEO_API void DrawUTMGrid(const TRenderScene& Scene, TCanvas& Device);

// The control points, all models but cmParabolicIp.
ZAVGEO_API void DrawMarkers(const TRenderScene& Scene, TCanvas& Device);
// One marker about the map pixel.
ZAVGEO_API void DrawMarker(const TRenderScene& Scene, TPoint Map, TCanvas& Device);

// Symbols and captions of the landmarks of visible classes, in the list's order; the hook is asked
// about those out of view, too. Landmarks that have no place on the map are left out, and so are
// all without a calibration model. False when the hook ended the picture.
ZAVGEO_API bool DrawLandMarks(const TRenderScene& Scene, TLandMarkCache& Cache, TCanvas& Device,
                              TCanvas& Control, const TDrawLandMarkHook& Hook);
// The highlighted landmark's symbol again, in its own colours; never thinned out.
ZAVGEO_API bool DrawHighLight(const TRenderScene& Scene, TLandMarkCache& Cache, TCanvas& Device,
                              TCanvas& Control, const TDrawLandMarkHook& Hook);

// The trace on a canvas whose pixel Origin is the control's top left; pen and brush are as before
// afterwards.
ZAVGEO_API void DrawTrace(const TMouseTrace& Trace, const TViewState& View, double Scale,
                          TPoint Origin, TCanvas& Device);

inline bool ShowsPoints(TShowGrat Show) noexcept {
  return Show == TShowGrat::sgPoints || Show == TShowGrat::sgPointsAndLines;
}
inline bool ShowsLines(TShowGrat Show) noexcept {
  return Show == TShowGrat::sgLines || Show == TShowGrat::sgPointsAndLines;
}
inline bool ShowsUTMGrid(TShowGrat Show) noexcept {
  return Show == TShowGrat::sgUTMGrid || Show == TShowGrat::sgPointsAndUTMGrid;
}

}  // namespace zav

#endif
