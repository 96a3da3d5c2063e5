// lines.h - straight lines of whole pixels.
//
// A line from A to B takes one pixel a step along its longer axis, from A on and without B. Across,
// the pixel nearest to the true line is taken, the upper or left one of two equally near. So the
// pixels are the same in both directions, but for the end that is left out, and the same whichever
// part is clipped: clipping advances the error term by exact arithmetic, for end points anywhere in
// the range of 32 bits.
//
// A dotted pen draws three pixels and leaves three, times its width; what it leaves is untouched. A
// pen wider than one pixel is a round brush put on each pixel of the line. It reaches one pixel
// further to the right and below than to the left and above when its width is even.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_RASTER_LINES_H
#define ZAV_PLATFORM_RASTER_LINES_H

#include <cstdint>
#include <span>

#include <platform/base/geometry.h>
#include <platform/host/canvas.h>
#include <platform/raster/bitmap.h>
#include <platform/raster/spans.h>

namespace zav {

// The steps of a line that lie in a clipping rectangle.
struct TLineSteps {
  int64_t Count = 0;    // visible pixels
  int64_t Skipped = 0;  // pixels before the first visible one
  int64_t Length = 0;   // pixels of the whole line
  int64_t X = 0;        // the first visible pixel
  int64_t Y = 0;
  int32_t MajorX = 0;  // one step along the longer axis
  int32_t MajorY = 0;
  int32_t MinorX = 0;  // added when the error reaches its limit
  int32_t MinorY = 0;
  uint64_t Error = 0;
  uint64_t ErrorStep = 0;
  uint64_t ErrorLimit = 0;
};

TLineSteps StepsOfLine(TPoint From, TPoint To, const TRect& Clip) noexcept;

// Draws one line. The pattern of a dotted pen continues from Phase, a number of pixels, which is
// moved on by the line's length.
void DrawLine(TBitmap& Target, TPoint From, TPoint To, const TPen& Pen, int64_t& Phase);

// Draws lines through the points, and back to the first when Closed. The pattern of a dotted pen
// runs on over the corners. In exclusive-or mode each pixel is changed once, however often the line
// passes it. A closed outline whose points all coincide is one pixel.
void DrawPolyline(TBitmap& Target, std::span<const TPoint> Points, bool Closed, const TPen& Pen);

// The pixels of such lines inside Clip, merged.
TSpans PolylineSpans(std::span<const TPoint> Points, bool Closed, const TPen& Pen,
                     const TRect& Clip);

}  // namespace zav

#endif
