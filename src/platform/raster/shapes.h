// shapes.h - rectangles, ellipses and polygons with an outline and a filled inside.
//
// Rectangles and ellipses cover X1..X2-1 and Y1..Y2-1, whichever corner is given first; where the
// two are equal nothing is drawn. The outline of a wide pen grows into the box. A polygon is filled
// by the even-odd rule: what an outward line leaves over an odd number of sides is inside. Pixels
// whose centre is inside and that are not on the outline are filled, so that fill and outline
// always meet.
//
// The pen's mode holds for the fill too. Each pixel of a shape is touched once, by the pen or by
// the brush, so that drawing it again in exclusive-or mode restores what was there. With psClear
// the fill takes the place of the outline too.
//
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_RASTER_SHAPES_H
#define ZAV_PLATFORM_RASTER_SHAPES_H

#include <cstdint>
#include <span>

#include <platform/base/geometry.h>
#include <platform/host/canvas.h>
#include <platform/raster/bitmap.h>
#include <platform/raster/spans.h>

namespace zav {

void DrawRectangle(TBitmap& Target, const TRect& Box, const TPen& Pen, const TBrush& Brush);
// A dotted pen draws the outline of an ellipse as a solid one.
void DrawEllipse(TBitmap& Target, const TRect& Box, const TPen& Pen, const TBrush& Brush);
void DrawPolygon(TBitmap& Target, std::span<const TPoint> Points, const TPen& Pen,
                 const TBrush& Brush);

// The pixels of Clip whose centres are inside a polygon, merged. Centres exactly on a side count as
// inside on the left and upper sides only, so that polygons that share a side never share a pixel.
TSpans PolygonInside(std::span<const TPoint> Points, const TRect& Clip);

}  // namespace zav

#endif
