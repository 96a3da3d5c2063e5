/// @file
/// landmark_layer.h - the landmarks of a picture, taken at one moment.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_LANDMARK_LAYER_H
#define ZAV_GEOMAP_VIEW_LANDMARK_LAYER_H

#include <cstdint>
#include <functional>

#include <geomap/landmarks/landmark_store.h>
#include <geomap/landmarks/symbol_stamps.h>
#include <geomap/view/landmark_pixels.h>
#include <platform/base/color.h>
#include <platform/base/geometry.h>
#include <platform/host/canvas.h>

namespace zav {

/// The highlighted landmark keeps its shape and size and takes these colours.
struct THighLight {
  int32_t Index = 0;          ///< from 1, 0 for none
  TColor FGColor = clBlue;    ///< outline
  TColor BGColor = clYellow;  ///< inside
  bool Transparent = false;   ///< no inside
};

/// All that a picture must know of the landmarks.
struct TLandMarkLayer {
  TLandMarkList List;                            ///< the landmarks
  TClassVisibility ClassVisible = AllClasses();  ///< whether each class is drawn
  THighLight HighLight;                          ///< one that stands out
  /// With more landmarks than this in view each is drawn with the probability that leaves about as
  /// many. The same seed leaves the same ones.
  int32_t DisplayThreshold = 20000;
  uint64_t ThinningSeed = 0;  ///< of the thinning
};

/// What is kept from one picture to the next.
struct TLandMarkCache {
  TLandMarkPixels Pixels;  ///< where landmarks lie
  TSymbolStamps Stamps;    ///< what they look like
};

/// Asks about a landmark before it is drawn, with a canvas in control pixels.
enum class TDrawAnswer : uint8_t {
  daDraw,     ///< it is drawn
  daHandled,  ///< it is drawn already, or not to be drawn
  daGone      ///< the picture ends at once; the cache, which may be gone, is not touched again
};
/// Called before a landmark is drawn.
using TDrawLandMarkHook =
    std::function<TDrawAnswer(TCanvas& Control, TPoint Position, const TLandMark& LandMark)>;

}  // namespace zav

#endif
