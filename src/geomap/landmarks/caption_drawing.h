/// @file
/// caption_drawing.h - the captions of landmarks, on any canvas.
///
/// For handlers that draw landmarks themselves, or choose which captions are drawn.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_LANDMARKS_CAPTION_DRAWING_H
#define ZAV_GEOMAP_LANDMARKS_CAPTION_DRAWING_H

#include <geomap/landmarks/landmark.h>
#include <platform/base/api.h>
#include <platform/base/geometry.h>
#include <platform/host/canvas.h>

namespace zav {

/// Where the text of a caption goes: its top left corner, about which it is turned, and its size.
struct TCaptionPlace {
  TPoint TopLeft;  ///< pixel of the canvas
  TSize Size;      ///< pixels, as if the text were not turned
};

/// The place for the landmark at the pixel At of the canvas; Scale enlarges text and offsets. Sets
/// the font of the canvas, which stays. An empty text has no size.
ZAVGEO_API TCaptionPlace PlaceCaption(TCanvas& Canvas, TPoint At, const TLMTextProperties& Caption,
                                      double Scale = 1);
/// The pixels that the turned text covers at most.
ZAVGEO_API TRect CaptionBox(const TCaptionPlace& Place, int32_t Direction) noexcept;

/// Draws the caption; sets font and brush, which stay. An empty text draws nothing.
ZAVGEO_API void DrawLandMarkCaption(TCanvas& Canvas, TPoint At, const TLMTextProperties& Caption,
                                    double Scale = 1);

}  // namespace zav

#endif
