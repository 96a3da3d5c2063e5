// SPDX-License-Identifier: MIT
#include "platform/raster/raster_canvas.h"

#include <cstddef>
#include <cstring>

#include "platform/raster/copy.h"
#include "platform/raster/lines.h"
#include "platform/raster/shapes.h"
#include "platform/raster/spans.h"
#include "platform/raster/stretch.h"
#include "platform/raster/text_drawing.h"

namespace zav {

void TRasterCanvas::LineTo(int32_t X, int32_t Y) {
  DrawLine(FTarget, FPosition, {X, Y}, Pen, FDotPhase);
  FPosition = {X, Y};
}

void TRasterCanvas::Polyline(std::span<const TPoint> Points) {
  DrawPolyline(FTarget, Points, false, Pen);
}

void TRasterCanvas::Polygon(std::span<const TPoint> Points) {
  DrawPolygon(FTarget, Points, Pen, Brush);
}

void TRasterCanvas::Rectangle(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) {
  DrawRectangle(FTarget, {X1, Y1, X2, Y2}, Pen, Brush);
}

void TRasterCanvas::Ellipse(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) {
  DrawEllipse(FTarget, {X1, Y1, X2, Y2}, Pen, Brush);
}

void TRasterCanvas::FillRect(const TRect& Area) {
  const TRect Visible = Intersection(Area, {0, 0, FTarget.Width(), FTarget.Height()});
  if (Visible.Empty()) return;
  FillSpan(FTarget, {Visible.Top, Visible.Left, Visible.Right}, {Brush.Color, false});
  // Copying the first row is several times faster than filling each.
  const auto PixelSize = static_cast<size_t>(BytesPerPixel(FTarget.PixelFormat()));
  const size_t Offset = static_cast<size_t>(Visible.Left) * PixelSize;
  const size_t Count = static_cast<size_t>(Visible.Width()) * PixelSize;
  for (int32_t Y = Visible.Top + 1; Y < Visible.Bottom; ++Y) {
    std::memcpy(FTarget.Row(Y) + Offset, FTarget.Row(Visible.Top) + Offset, Count);
  }
}

void TRasterCanvas::TextOut(int32_t X, int32_t Y, std::string_view Text) {
  if (FFonts == nullptr || Text.empty()) return;
  if (Brush.Style == TBrushStyle::bsSolid) {
    FillTurnedBox(FTarget, {X, Y}, FFonts->TextExtent(Font, Text), Font.Direction, Brush.Color);
  }
  DrawTextMask(FTarget, {X, Y}, FFonts->RenderText(Font, Text), Font.Color);
}

TSize TRasterCanvas::TextExtent(std::string_view Text) {
  return FFonts == nullptr ? TSize{} : FFonts->TextExtent(Font, Text);
}

void TRasterCanvas::CopyRect(int32_t X, int32_t Y, const TBitmap& Bitmap, const TRect& Source) {
  CopyPixels(FTarget, X, Y, Bitmap, Source);
}

void TRasterCanvas::StretchDraw(const TRect& Dest, const TBitmap& Bitmap, const TRectDouble& Source,
                                TStretchMode Mode) {
  Stretch(FTarget, Dest, Bitmap, Source, Mode);
}

}  // namespace zav
