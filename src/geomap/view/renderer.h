/// @file
/// renderer.h - draws a picture of a map: the passes in their order.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_RENDERER_H
#define ZAV_GEOMAP_VIEW_RENDERER_H

#include <functional>

#include <geomap/view/graticule.h>
#include <geomap/view/landmark_layer.h>
#include <geomap/view/map_image.h>
#include <geomap/view/render_scene.h>
#include <platform/base/api.h>
#include <platform/host/canvas.h>

namespace zav {

/// What a control keeps from one picture to the next, so that panning is fast.
struct TRenderStores {
  TMapImage& Image;                     ///< with its scaled cache
  TGraticule& Graticule;                ///< with the lines of the last picture
  TLandMarkCache* LandMarks = nullptr;  ///< none: nothing is kept
};

/// Called between the passes with a canvas in control pixels. False ends the picture at once, and
/// the stores, which may be gone, are not touched again.
struct TRenderHooks {
  std::function<bool(TCanvas&)> BeforeData;    ///< the map image is drawn
  std::function<bool(TCanvas&)> DataRendered;  ///< everything that belongs to the map is drawn
  TDrawLandMarkHook DrawLandMark = {};         ///< before each landmark and the highlighted one
};

/// Draws the scene on a canvas of device pixels that is at least Scene.DeviceSize() large. True
/// when the picture was finished.
ZAVGEO_API bool RenderMap(const TRenderScene& Scene, const TRenderStores& Stores, TCanvas& Device,
                          const TRenderHooks& Hooks);

}  // namespace zav

#endif
