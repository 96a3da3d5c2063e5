// symbol_stamps.cpp - see symbol_stamps.h.
// SPDX-License-Identifier: MIT
#include <geomap/landmarks/symbol_stamps.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>

#include <platform/base/rounding.h>
#include <platform/host/scaled_canvas.h>
#include <platform/raster/pixel.h>
#include <platform/raster/raster_canvas.h>

namespace zav {
namespace {

// Larger symbols are drawn each time.
constexpr int32_t LargestReach = 256;
constexpr size_t MostStamps = 4096;

// Colours by which a drawn shape is taken apart.
constexpr TColor OutlineKey = clRed;
constexpr TColor InsideKey = clLime;

// How far from its middle a symbol draws at most, in pixels.
int32_t ReachOf(const TSymbolShape& Shape, double Scale) noexcept {
  double Reach = std::fabs(static_cast<double>(Shape.Size));
  for (const TPoint& P : Shape.Points) {
    Reach =
        std::max({Reach, std::fabs(static_cast<double>(P.X)), std::fabs(static_cast<double>(P.Y))});
  }
  constexpr double Halo = 4;  // and the small cross of an unknown shape
  return RoundHalfEven(std::ceil((Reach + Halo) * Scale + Scale) + 2);
}

void DrawShape(TBitmap& Target, TPoint Center, const TSymbolShape& Shape, double Scale, TColor FG,
               TColor BG) {
  TRasterCanvas Device(Target);
  if (Scale == 1) return DrawSymbolShape(Device, Center.X, Center.Y, Shape, FG, BG);
  TScaledCanvas Canvas(Device, Scale, Center.X, Center.Y);
  DrawSymbolShape(Canvas, 0, 0, Shape, FG, BG);
}

}  // namespace

size_t TSymbolStamps::THash::operator()(const TKey& Key) const noexcept {
  uint64_t Sum = std::hash<double>()(Key.Scale);
  const auto Mix = [&](int64_t Value) {
    Sum = (Sum ^ static_cast<uint64_t>(Value)) * 0x9E3779B97F4A7C15U;
    Sum ^= Sum >> 29;
  };
  Mix(static_cast<int64_t>(Key.Shape.Kind) * 2 + (Key.Shape.Filled ? 1 : 0));
  Mix(Key.Shape.Size);
  for (const TPoint& P : Key.Shape.Points) Mix(int64_t{P.X} * 65537 + P.Y);
  return static_cast<size_t>(Sum);
}

TSymbolStamps::TStamp TSymbolStamps::Make(const TKey& Key, int32_t Reach) {
  const int32_t Side = 2 * Reach + 1;
  TBitmap Drawn(Side, Side, TPixelFormat::pf32bit);
  DrawShape(Drawn, {Reach, Reach}, Key.Shape, Key.Scale, OutlineKey, InsideKey);
  TStamp Stamp;
  Stamp.Box = {Reach, Reach, -Reach, -Reach};
  for (int32_t Y = 0; Y < Side; ++Y) {
    for (int32_t X = 0; X < Side;) {
      const TColor Color = Drawn.Pixel(X, Y);
      const int32_t Left = X;
      while (X < Side && Drawn.Pixel(X, Y) == Color) ++X;
      if (Color == clBlack) continue;
      Stamp.Runs.push_back({static_cast<int16_t>(Y - Reach), static_cast<int16_t>(Left - Reach),
                            static_cast<int16_t>(X - Reach), Color == OutlineKey});
      TRect& Box = Stamp.Box;
      Box = {std::min(Box.Left, Left - Reach), std::min(Box.Top, Y - Reach),
             std::max(Box.Right, X - Reach), std::max(Box.Bottom, Y - Reach + 1)};
    }
  }
  return Stamp;
}

void TSymbolStamps::Put(TBitmap& Target, TPoint Center, const TStamp& Stamp, TColor FG, TColor BG) {
  const int64_t CX = Center.X;
  const int64_t CY = Center.Y;
  const bool Inside = CX + Stamp.Box.Left >= 0 && CX + Stamp.Box.Right <= Target.Width() &&
                      CY + Stamp.Box.Top >= 0 && CY + Stamp.Box.Bottom <= Target.Height();
  WithPixelOf(Target.PixelFormat(), [&](auto Kind) {
    using TPixel = decltype(Kind);
    const TPixel Outline = TPixel::Of(FG);
    const TPixel Filling = TPixel::Of(BG);
    for (const TRun& Run : Stamp.Runs) {
      int64_t Left = CX + Run.Left;
      int64_t Right = CX + Run.Right;
      const int64_t Y = CY + Run.Y;
      if (!Inside) {
        Left = std::max<int64_t>(Left, 0);
        Right = std::min<int64_t>(Right, Target.Width());
        if (Y < 0 || Y >= Target.Height() || Left >= Right) continue;
      }
      TPixel* Row = PixelRow<TPixel>(Target, static_cast<int32_t>(Y));
      const TPixel Value = Run.Outline ? Outline : Filling;
      for (int64_t X = Left; X < Right; ++X) Row[X] = Value;
    }
  });
}

void TSymbolStamps::Draw(TBitmap& Target, TPoint Center, const TSymbolProperties& Symbol,
                         double Scale) {
  // Enlarged symbols are drawn about the origin of their own pixels.
  const TPoint At = Scale == 1 ? Center : TPoint{0, 0};
  const TKey Key = {ShapeOfSymbol(At.X, At.Y, Symbol), Scale};
  if (FLast == nullptr || !(Key == FLastKey)) {
    const int32_t Reach = ReachOf(Key.Shape, Scale);
    if (Reach > LargestReach) {
      return DrawShape(Target, Center, Key.Shape, Scale, Symbol.FGColor, Symbol.BGColor);
    }
    if (FStamps.size() >= MostStamps) {
      FStamps.clear();
      FLast = nullptr;
    }
    auto Found = FStamps.find(Key);
    if (Found == FStamps.end()) Found = FStamps.emplace(Key, Make(Key, Reach)).first;
    FLastKey = Key;
    FLast = &Found->second;
  }
  Put(Target, Center, *FLast, Symbol.FGColor, Symbol.BGColor);
}

}  // namespace zav
