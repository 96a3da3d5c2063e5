// renderer.h - draws a picture of a map: the passes in their order.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_RENDERER_H
#define ZAV_GEOMAP_VIEW_RENDERER_H

#include <functional>

#include <geomap/view/map_image.h>
#include <geomap/view/render_scene.h>
#include <platform/host/canvas.h>

namespace zav {

// Called between the passes with a canvas in control pixels. False ends the picture at once; the
// image is not touched after the first call.
struct TRenderHooks {
  std::function<bool(TCanvas&)> BeforeData;    // the map image is drawn
  std::function<bool(TCanvas&)> DataRendered;  // everything that belongs to the map is drawn
};

// Draws the scene on a canvas of device pixels that is at least Scene.DeviceSize() large. May make
// or replace the image's scaled cache. True when the picture was finished.
bool RenderMap(const TRenderScene& Scene, TMapImage& Image, TCanvas& Device,
               const TRenderHooks& Hooks);

}  // namespace zav

#endif
