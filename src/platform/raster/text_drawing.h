// text_drawing.h - puts the coverage of a text and its ground on a bitmap.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_RASTER_TEXT_DRAWING_H
#define ZAV_PLATFORM_RASTER_TEXT_DRAWING_H

#include <platform/base/geometry.h>
#include <platform/host/font.h>
#include <platform/raster/bitmap.h>

namespace zav {

// Blends Color over the bitmap by the mask's coverage: 255 gives the colour itself, 0 leaves the
// pixel as it is. At is the top left corner of the text's box. A mask with too few bytes draws
// nothing.
void DrawTextMask(TBitmap& Target, TPoint At, const TTextMask& Mask, TColor Color) noexcept;

// Fills the pixels whose centre lies in a box of Size whose top left corner is At, turned about it
// by Direction degrees counter-clockwise.
void FillTurnedBox(TBitmap& Target, TPoint At, TSize Size, int32_t Direction,
                   TColor Color) noexcept;

}  // namespace zav

#endif
