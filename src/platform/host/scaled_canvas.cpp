// scaled_canvas.cpp - see scaled_canvas.h.
// SPDX-License-Identifier: MIT
#include <platform/host/scaled_canvas.h>

#include <algorithm>
#include <cmath>

#include <platform/base/rounding.h>

namespace zav {

TScaledCanvas::TScaledCanvas(TCanvas& Device, double Scale, double OriginX, double OriginY)
    : FDevice(Device),
      FScale(Scale > 0 ? Scale : 1),
      FOriginX(RoundHalfEven(OriginX)),
      FOriginY(RoundHalfEven(OriginY)) {}

int32_t TScaledCanvas::DeviceX(double X) const noexcept {
  return RoundHalfEven(FOriginX + RoundHalfEven(X * FScale));
}

int32_t TScaledCanvas::DeviceY(double Y) const noexcept {
  return RoundHalfEven(FOriginY + RoundHalfEven(Y * FScale));
}

TRect TScaledCanvas::DeviceRect(const TRect& Area) const noexcept {
  return {DeviceX(Area.Left), DeviceY(Area.Top), DeviceX(Area.Right), DeviceY(Area.Bottom)};
}

void TScaledCanvas::PassState() {
  FDevice.Pen = Pen;
  FDevice.Pen.Width = std::max(RoundHalfEven(Pen.Width * FScale), 1);
  FDevice.Brush = Brush;
}

void TScaledCanvas::PassFont() {
  FDevice.Font = Font;
  FDevice.Font.Size = Font.Size * FScale;
}

std::span<const TPoint> TScaledCanvas::DevicePoints(std::span<const TPoint> Points) {
  FPoints.clear();
  for (const TPoint& p : Points) FPoints.push_back({DeviceX(p.X), DeviceY(p.Y)});
  return FPoints;
}

void TScaledCanvas::MoveTo(int32_t X, int32_t Y) { FDevice.MoveTo(DeviceX(X), DeviceY(Y)); }

void TScaledCanvas::LineTo(int32_t X, int32_t Y) {
  PassState();
  FDevice.LineTo(DeviceX(X), DeviceY(Y));
}

void TScaledCanvas::Polyline(std::span<const TPoint> Points) {
  PassState();
  FDevice.Polyline(DevicePoints(Points));
}

void TScaledCanvas::Polygon(std::span<const TPoint> Points) {
  PassState();
  FDevice.Polygon(DevicePoints(Points));
}

void TScaledCanvas::Rectangle(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) {
  PassState();
  FDevice.Rectangle(DeviceX(X1), DeviceY(Y1), DeviceX(X2), DeviceY(Y2));
}

void TScaledCanvas::Ellipse(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) {
  PassState();
  FDevice.Ellipse(DeviceX(X1), DeviceY(Y1), DeviceX(X2), DeviceY(Y2));
}

void TScaledCanvas::FillRect(const TRect& Area) {
  PassState();
  FDevice.FillRect(DeviceRect(Area));
}

void TScaledCanvas::TextOut(int32_t X, int32_t Y, std::string_view Text) {
  PassState();
  PassFont();
  FDevice.TextOut(DeviceX(X), DeviceY(Y), Text);
}

TSize TScaledCanvas::TextExtent(std::string_view Text) {
  PassFont();
  const TSize size = FDevice.TextExtent(Text);
  return {RoundHalfEven(std::ceil(size.Width / FScale)),
          RoundHalfEven(std::ceil(size.Height / FScale))};
}

void TScaledCanvas::CopyRect(int32_t X, int32_t Y, const TBitmap& Bitmap, const TRect& Source) {
  PassState();
  if (FScale == 1) {
    FDevice.CopyRect(DeviceX(X), DeviceY(Y), Bitmap, Source);
    return;
  }
  const TRect dest = {DeviceX(X), DeviceY(Y), DeviceX(static_cast<double>(X) + Source.Width()),
                      DeviceY(static_cast<double>(Y) + Source.Height())};
  const TRectDouble source = {static_cast<double>(Source.Left), static_cast<double>(Source.Top),
                              static_cast<double>(Source.Right),
                              static_cast<double>(Source.Bottom)};
  FDevice.StretchDraw(dest, Bitmap, source, TStretchMode::smColorOnColor);
}

void TScaledCanvas::StretchDraw(const TRect& Dest, const TBitmap& Bitmap, const TRectDouble& Source,
                                TStretchMode Mode) {
  PassState();
  FDevice.StretchDraw(DeviceRect(Dest), Bitmap, Source, Mode);
}

}  // namespace zav
