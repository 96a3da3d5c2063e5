/// @file
/// frame.h - frames round controls.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_HOST_FRAME_H
#define ZAV_PLATFORM_HOST_FRAME_H

#include <cstdint>

#include <platform/base/api.h>
#include <platform/host/canvas.h>

namespace zav {

/// The edges, from the outside to the inside; light comes from the top left.
enum class TFrameStyle : uint8_t {
  fsNone = 0,    ///< nothing
  fsSunken = 1,  ///< two pixels: shadow above light, then dark above face
  fsRaised = 2,  ///< two pixels: light above black, then face above shadow
  fsSingle = 3,  ///< one black line
  fsEtched = 4   ///< two pixels: a groove, shadow above light, then light above shadow
};

/// Draws the frame along the inside of the rectangle whose last column and row are Right and
/// Bottom. Nothing is filled; the canvas's brush is as before afterwards. A ring for which there is
/// no room is left out; a style that does not exist draws nothing.
ZAVGEO_API void DrawFrame(TCanvas& Canvas, TFrameStyle Style, int32_t Left, int32_t Top,
                          int32_t Right, int32_t Bottom, TColor Light, TColor Face, TColor Shadow,
                          TColor Dark, TColor Black);

}  // namespace zav

#endif
