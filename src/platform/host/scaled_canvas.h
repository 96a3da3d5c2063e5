/// @file
/// scaled_canvas.h - a canvas of control pixels on one of device pixels.
///
/// Symbols, captions and the user's handlers count control pixels; on a screen of high resolution
/// and on a page they are drawn larger by this canvas. It draws nothing itself.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_HOST_SCALED_CANVAS_H
#define ZAV_PLATFORM_HOST_SCALED_CANVAS_H

#include <vector>

#include <platform/base/api.h>
#include <platform/host/canvas.h>

namespace zav {

/// device = RoundHalfEven(origin) + RoundHalfEven(control pixel * scale); pen widths are scaled to
/// at least one device pixel, text to Scale times its size. Every pixel of a bitmap becomes Scale
/// device pixels wide. At scale 1 and origin 0 every call is passed on as it is.
class ZAVGEO_API TScaledCanvas final : public TCanvas {
 public:
  /// The device must outlive this canvas; its pen, brush and font are overwritten by each call. A
  /// scale that is not above 0 counts as 1.
  TScaledCanvas(TCanvas& Device, double Scale, double OriginX = 0, double OriginY = 0);

  /// Device pixels per control pixel.
  double Scale() const noexcept { return FScale; }
  /// The device pixel of a position in control pixels.
  int32_t DeviceX(double X) const noexcept;
  /// The same for a row.
  int32_t DeviceY(double Y) const noexcept;
  /// The device pixels of a rectangle of control pixels.
  TRect DeviceRect(const TRect& Area) const noexcept;

  void MoveTo(int32_t X, int32_t Y) override;
  void LineTo(int32_t X, int32_t Y) override;
  void Polyline(std::span<const TPoint> Points) override;
  void Polygon(std::span<const TPoint> Points) override;
  void Rectangle(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) override;
  void Ellipse(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) override;
  void FillRect(const TRect& Area) override;
  void TextOut(int32_t X, int32_t Y, std::string_view Text) override;
  /// In control pixels, rounded up so that the box holds the text.
  TSize TextExtent(std::string_view Text) override;
  void CopyRect(int32_t X, int32_t Y, const TBitmap& Bitmap, const TRect& Source) override;
  void StretchDraw(const TRect& Dest, const TBitmap& Bitmap, const TRectDouble& Source,
                   TStretchMode Mode) override;

 private:
  void PassState();
  void PassFont();
  std::span<const TPoint> DevicePoints(std::span<const TPoint> Points);

  TCanvas& FDevice;
  double FScale;
  double FOriginX;
  double FOriginY;
  std::vector<TPoint> FPoints;  // kept, so that lines cost no allocation each
};

}  // namespace zav

#endif
