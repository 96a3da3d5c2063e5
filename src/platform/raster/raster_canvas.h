/// @file
/// raster_canvas.h - a canvas that draws on a bitmap by the rules told in canvas.h.
///
/// Coordinates are pixels of the bitmap; whatever lies outside is clipped. The details that
/// canvas.h leaves open (dots, wide pens, fill rule, stretching) are told in lines.h, shapes.h and
/// stretch.h. FillRect fills whatever the brush style is. Bitmaps and text are always copied, never
/// inverted.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_RASTER_RASTER_CANVAS_H
#define ZAV_PLATFORM_RASTER_RASTER_CANVAS_H

#include <platform/base/api.h>
#include <platform/host/canvas.h>
#include <platform/raster/bitmap.h>

namespace zav {

/// Draws on a bitmap of any format.
class ZAVGEO_API TRasterCanvas final : public TCanvas {
 public:
  /// Both must outlive the canvas. Without a font engine text has no size and draws nothing.
  explicit TRasterCanvas(TBitmap& Target, TFontEngine* Fonts = nullptr) noexcept
      : FTarget(Target), FFonts(Fonts) {}

  /// What is drawn on.
  TBitmap& Target() noexcept { return FTarget; }

  /// The pattern of a dotted pen begins anew here and runs on over the following LineTo.
  void MoveTo(int32_t X, int32_t Y) override {
    FPosition = {X, Y};
    FDotPhase = 0;
  }
  void LineTo(int32_t X, int32_t Y) override;
  void Polyline(std::span<const TPoint> Points) override;
  void Polygon(std::span<const TPoint> Points) override;
  void Rectangle(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) override;
  void Ellipse(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) override;
  void FillRect(const TRect& Area) override;
  void TextOut(int32_t X, int32_t Y, std::string_view Text) override;
  TSize TextExtent(std::string_view Text) override;
  void CopyRect(int32_t X, int32_t Y, const TBitmap& Bitmap, const TRect& Source) override;
  void StretchDraw(const TRect& Dest, const TBitmap& Bitmap, const TRectDouble& Source,
                   TStretchMode Mode) override;

 private:
  TBitmap& FTarget;
  TFontEngine* FFonts;
  TPoint FPosition;
  int64_t FDotPhase = 0;  // where a dotted pen's pattern stands
};

}  // namespace zav

#endif
