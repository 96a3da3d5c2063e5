/// @file
/// stretch.h - draws a part of a bitmap larger or smaller.
///
/// Plain mode takes the source pixel under the centre of each target pixel. Smooth mode averages
/// all source pixels under a target pixel, by the area that lies under it, on an axis that shrinks,
/// and interpolates between neighbours on one that is enlarged.
///
/// The mapping belongs to the source image: it is computed from the two whole rectangles, whichever
/// part of them is visible, and its origin is that of the image. So a picture drawn in two halves
/// has the same pixels as one drawn whole, and one drawn again with the source moved by whole
/// target pixels has the same pixels moved; panning does not shimmer.
///
/// A target pixel whose centre lies outside the source bitmap is left as it is. Averages and
/// interpolations use what of the image there is, also outside the source rectangle.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_RASTER_STRETCH_H
#define ZAV_PLATFORM_RASTER_STRETCH_H

#include <platform/base/api.h>
#include <platform/base/geometry.h>
#include <platform/host/canvas.h>
#include <platform/raster/bitmap.h>

namespace zav {

/// Stretches SourceRect over DestRect, clipped to Dest; formats are converted. Draws nothing when
/// either rectangle is empty, turned round or not finite. Dest and Source may be the same bitmap.
/// Throws std::bad_alloc when there is no memory for the tables.
ZAVGEO_API void Stretch(TBitmap& Dest, const TRect& DestRect, const TBitmap& Source,
                        const TRectDouble& SourceRect, TStretchMode Mode);

}  // namespace zav

#endif
