// spans.h - horizontal runs of pixels: what shapes are made of.
//
// A shape that must touch each pixel once is collected as spans, put in order, and then painted.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_RASTER_SPANS_H
#define ZAV_PLATFORM_RASTER_SPANS_H

#include <cstdint>
#include <vector>

#include <platform/base/color.h>
#include <platform/base/geometry.h>
#include <platform/raster/bitmap.h>

namespace zav {

// What happens to a pixel: it becomes Color, or its exclusive-or with Color.
struct TInk {
  TColor Color = clBlack;
  bool Xor = false;
};

// Pixels Left..Right-1 of row Y.
struct TSpan {
  int32_t Y = 0;
  int32_t Left = 0;
  int32_t Right = 0;
  friend bool operator==(const TSpan&, const TSpan&) = default;
};

using TSpans = std::vector<TSpan>;

// Paints the part of a span inside the bitmap.
void FillSpan(TBitmap& Target, const TSpan& Span, const TInk& Ink) noexcept;
void FillSpans(TBitmap& Target, const TSpans& Spans, const TInk& Ink) noexcept;

// Adds what of row Y, Left..Right-1 lies in Clip.
void AddSpan(TSpans& Spans, const TRect& Clip, int64_t Y, int64_t Left, int64_t Right);

// Puts spans in order and joins those that overlap or touch, so that each pixel is in one only.
void MergeSpans(TSpans& Spans);

// What of A is not in B; both are merged.
TSpans SpansWithout(const TSpans& A, const TSpans& B);

}  // namespace zav

#endif
