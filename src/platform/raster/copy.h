/// @file
/// copy.h - copies a rectangle of one bitmap to another, pixel by pixel.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_RASTER_COPY_H
#define ZAV_PLATFORM_RASTER_COPY_H

#include <cstdint>

#include <platform/base/api.h>
#include <platform/base/geometry.h>
#include <platform/raster/bitmap.h>

namespace zav {

/// Copies SourceRect so that its top left corner falls on (X, Y). What lies outside either bitmap
/// is left out; formats are converted. Both may be the same bitmap, also with overlapping
/// rectangles.
ZAVGEO_API void CopyPixels(TBitmap& Dest, int32_t X, int32_t Y, const TBitmap& Source,
                           const TRect& SourceRect) noexcept;

}  // namespace zav

#endif
