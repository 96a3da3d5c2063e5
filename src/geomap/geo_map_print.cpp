// geo_map_print.cpp - parts of the map on bitmaps, pages and other canvases.
// SPDX-License-Identifier: MIT
#include <geomap/geo_map.h>

#include <algorithm>
#include <cmath>

#include <geomap/view/value_guard.h>
#include <platform/base/paths.h>
#include <platform/base/rounding.h>
#include <platform/host/host.h>
#include <platform/raster/raster_canvas.h>

namespace zav {
namespace {

// What one side of a map part takes on a canvas.
int32_t Extent(int32_t MapPixels, double Factor) { return RoundHalfEven(MapPixels * Factor); }

TSize SizeOf(const TRect& Area) noexcept { return {Area.Width(), Area.Height()}; }

}  // namespace

bool TGeoMap::DrawPart(TCanvas& Canvas, const TMapPart& Part) {
  if (FPainting || !(Part.Factor > 0) || !(Part.Scale > 0)) return true;
  const auto Alive = Life();
  const TValueGuard Painting(*this, FPainting, true);
  // Handlers ask the control where a position is.
  const TValueGuard View(*this, FView, {Part.TopLeft, Part.Factor / Part.Scale});
  TRenderScene Drawn = Scene();
  Drawn.Scale = Part.Scale;
  Drawn.Control = {RoundHalfEven(std::ceil(Part.Size.Width / Part.Scale)),
                   RoundHalfEven(std::ceil(Part.Size.Height / Part.Scale))};
  const TValueGuard Size(*this, FDrawnSize, Drawn.Control);
  Drawn.Visible = true;
  Drawn.OnScreen = false;
  if (Part.Paper) Drawn.Look.ColorBackGnd = clWhite;
  TGraticule Graticule;  // the control keeps that of its window
  RenderMap(Drawn, {FImage, Graticule, &FLandMarkCache}, Canvas, Hooks());
  return !Alive.expired();
}

void TGeoMap::CopyToBMP(TBitmap* Bitmap, TPoint TopLeft, double Scale, int32_t Left, int32_t Top,
                        int32_t Width, int32_t Height) {
  if (Bitmap == nullptr || Width < 1 || Height < 1 || FImage.Empty()) return;
  if (!(Scale > 0) || std::isinf(Scale)) {
    throw EZAVGeoMapError(ComponentMessage("CopyToBMP: the scale must be above 0"));
  }
  const int64_t Right = std::max(int64_t{Left} + Width, int64_t{Bitmap->Width()});
  const int64_t Bottom = std::max(int64_t{Top} + Height, int64_t{Bitmap->Height()});
  const int64_t Most = std::max<int64_t>(std::max(Right, Bottom), 1);
  const int64_t Pixels = std::max(Right * Bottom, int64_t{Width} * Height);
  if (Most > INT32_MAX || Pixels > MaxDecodablePixels) {
    throw EZAVGeoMapError(ComponentMessage("CopyToBMP: the bitmap would be too large"));
  }
  THost& Owner = Host();  // a handler may destroy the control
  TBitmap Drawn(Width, Height, Bitmap->PixelFormat());
  TRasterCanvas Canvas(Drawn, &Owner.Fonts());
  DrawPart(Canvas, {TopLeft, Scale, 1, {Width, Height}});
  Bitmap->SetSize(static_cast<int32_t>(Right), static_cast<int32_t>(Bottom));
  TRasterCanvas(*Bitmap).CopyRect(Left, Top, Drawn, {0, 0, Width, Height});
}

// --- printing ------------------------------------------------------------------------------------

// Printer pixels per map pixel for a part of the map of this size; 0 when it cannot be told.
double TGeoMap::PrintFactor(TSize MapPart, int32_t Denominator, TSize Page) const {
  if (MapPart.Width < 1 || MapPart.Height < 1 || Page.Width < 1 || Page.Height < 1) return 0;
  if (Denominator < 1) {
    return std::min(static_cast<double>(Page.Width) / MapPart.Width,
                    static_cast<double>(Page.Height) / MapPart.Height);
  }
  const double Factor =
      PaperFactor(CalibData().Resolution, Denominator, Host().Printer().PixelsPerInch());
  return Factor > 0 && std::isfinite(Factor) ? Factor : 0;
}

void TGeoMap::PrintPart(TPoint TopLeft, double Factor, const TRect& Area) {
  if (Area.Empty() || FImage.Empty()) return;
  if (Factor == 0) {
    throw EZAVGeoMapError(
        ComponentMessage("Printing at a true scale needs a map whose resolution is known"));
  }
  TPrinter& Printer = Host().Printer();
  const double Scale = Printer.PixelsPerInch() / ControlPixelsPerInch;
  DrawPart(Printer.PageCanvas(Area), {TopLeft, Factor, Scale, SizeOf(Area), true});
}

void TGeoMap::CalcExtentsOfPrint(const TRect& MapPart, int32_t Denominator, int32_t& Width,
                                 int32_t& Height) {
  Width = Height = 0;
  if (MapPart.Empty()) return;
  const double Factor = PrintFactor(SizeOf(MapPart), Denominator, Host().Printer().PageSize());
  Width = Extent(MapPart.Width(), Factor);
  Height = Extent(MapPart.Height(), Factor);
}

void TGeoMap::CopyToOpenPrinter(const TRect& MapPart, int32_t Denominator, int32_t Left,
                                int32_t Top) {
  if (MapPart.Empty() || FImage.Empty()) return;
  const TSize Page = Host().Printer().PageSize();
  const double Factor =
      PrintFactor(SizeOf(MapPart), Denominator, {Page.Width - Left, Page.Height - Top});
  // Nothing fits to the right of the page or below it; a true scale is told what it lacks.
  if (Factor == 0 && Denominator < 1) return;
  PrintPart({MapPart.Left, MapPart.Top}, Factor,
            {Left, Top, Left + std::max(Extent(MapPart.Width(), Factor), 1),
             Top + std::max(Extent(MapPart.Height(), Factor), 1)});
}

void TGeoMap::CopyToOpenPrinter(TPoint TopLeft, int32_t Denominator, int32_t Left, int32_t Top,
                                int32_t Width, int32_t Height) {
  const TSize Rest = {FImage.Width() - TopLeft.X, FImage.Height() - TopLeft.Y};
  if (Rest.Width < 1 || Rest.Height < 1 || Width < 1 || Height < 1) return;
  const double Factor = PrintFactor(Rest, Denominator, {Width, Height});
  PrintPart(TopLeft, Factor,
            {Left, Top, Left + std::min(Width, std::max(Extent(Rest.Width, Factor), 1)),
             Top + std::min(Height, std::max(Extent(Rest.Height, Factor), 1))});
}

void TGeoMap::CopyToOpenPrinter(int32_t& X, int32_t& Y, double Scale) {
  if (!(Scale > 0) || FImage.Width() < 1 || FImage.Height() < 1) return;
  const TSize Page = Host().Printer().PageSize();
  const double Factor =
      PrintFactor(FImage.Size(), 0, {Page.Width - X, Page.Height - Y}) * std::min(Scale, 1.0);
  if (Factor == 0) return;
  const TRect Area = {X, Y, X + std::max(Extent(FImage.Width(), Factor), 1),
                      Y + std::max(Extent(FImage.Height(), Factor), 1)};
  PrintPart({0, 0}, Factor, Area);
  X = Area.Right;
  Y = Area.Bottom;
}

void TGeoMap::PrintIt(double Scale) {
  if (!(Scale > 0) || FImage.Width() < 1 || FImage.Height() < 1) return;
  TPrinter& Printer = Host().Printer();
  const std::string& Caption = GetMapCaption();
  Printer.BeginDoc(Caption.empty() ? StripPath(FImage.Name()) : Caption);
  try {
    int32_t X = 0;
    int32_t Y = 0;
    CopyToOpenPrinter(X, Y, Scale);
    Printer.EndDoc();
  } catch (...) {
    Printer.Abort();
    throw;
  }
}

}  // namespace zav
