/// @file
/// render_scene.h - everything a picture of a map is made from, taken at one moment.
///
/// A copy of the control's state: a handler that is called while the picture is drawn may change
/// the control, or destroy it, without the picture falling apart.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_RENDER_SCENE_H
#define ZAV_GEOMAP_VIEW_RENDER_SCENE_H

#include <geomap/calibration/calibration.h>
#include <geomap/view/landmark_layer.h>
#include <geomap/view/map_look.h>
#include <geomap/view/mouse_trace.h>
#include <geomap/view/view_state.h>
#include <platform/base/api.h>
#include <platform/base/geometry.h>

namespace zav {

/// All values that a picture is drawn from.
struct ZAVGEO_API TRenderScene {
  TSize Control;         ///< control pixels
  double Scale = 1;      ///< device pixels per control pixel, above 0
  TViewState View;       ///< the part of the map that is shown
  TMapLook Look;         ///< colours, frame, graticule
  bool ShowMap = false;  ///< false: only background and message
  bool Visible = true;   ///< false: neither map nor message
  /// False for a picture to keep and for a page: without frame, and the image is placed exactly and
  /// not taken from the cache, which holds what a screen needs.
  bool OnScreen = true;
  TSize Map;                 ///< the image's size
  TCalibration Calibration;  ///< ties pixels to positions
  TLandMarkLayer LandMarks;  ///< what lies on the map
  TMouseTrace Trace;         ///< what the mouse has left

  /// The size of the picture in device pixels; a part of a pixel counts.
  TSize DeviceSize() const noexcept;
  /// The device pixel of a map position.
  TPoint ToDevice(double MapX, double MapY) const noexcept {
    return MapImageToDevice(View, Scale, MapX, MapY);
  }
  /// Lines are placed by whole map pixels, but for pictures and pages that show a map pixel larger
  /// than a control ever does: how many parts of one are told apart.
  int32_t PartsOfPixel() const noexcept {
    return OnScreen || View.Magnification * Scale <= MaxMagnification ? 1 : 16;
  }
  /// The device pixels of a length in control pixels, at least 1.
  int32_t PenWidth() const noexcept;
};

}  // namespace zav

#endif
