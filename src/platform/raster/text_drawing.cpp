// SPDX-License-Identifier: MIT
#include "platform/raster/text_drawing.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include <platform/base/rounding.h>

#include "platform/raster/pixel.h"
#include "platform/raster/spans.h"

namespace zav {

namespace {

uint8_t Blend(uint32_t Below, uint32_t Above, uint32_t Coverage) {
  return static_cast<uint8_t>((Below * (255 - Coverage) + Above * Coverage + 127) / 255);
}

TColor BlendColors(TColor Below, TColor Above, uint32_t Coverage) {
  return RgbColor(Blend(RedOf(Below), RedOf(Above), Coverage),
                  Blend(GreenOf(Below), GreenOf(Above), Coverage),
                  Blend(BlueOf(Below), BlueOf(Above), Coverage));
}

// The part of 0..Length-1 that falls into 0..Limit-1 when it is moved by Shift.
struct TPart {
  int64_t First, Last;
};
TPart VisiblePart(int64_t Shift, int64_t Length, int64_t Limit) {
  return {std::max<int64_t>(0, -Shift), std::min(Length, Limit - Shift)};
}

struct TSineCosine {
  double Sine, Cosine;
};

// Exact for whole quarter turns, which must keep the box's pixels.
TSineCosine SineCosine(int32_t Degrees) {
  const int32_t Turned = (Degrees % 360 + 360) % 360;
  switch (Turned) {
    case 0:
      return {0, 1};
    case 90:
      return {1, 0};
    case 180:
      return {0, -1};
    case 270:
      return {-1, 0};
    default:
      break;
  }
  const double Angle = Turned * std::numbers::pi / 180;
  return {std::sin(Angle), std::cos(Angle)};
}

// Cuts First..Last down to the X with 0 <= Start + X * Slope < Length.
void CutRange(double& First, double& Last, double Start, double Slope, double Length) {
  if (Slope == 0) {
    if (Start < 0 || Start >= Length) Last = First - 1;
    return;
  }
  const double A = -Start / Slope;
  const double B = (Length - Start) / Slope;
  First = std::max(First, std::min(A, B));
  Last = std::min(Last, std::max(A, B));
}

}  // namespace

void DrawTextMask(TBitmap& Target, TPoint At, const TTextMask& Mask, TColor Color) noexcept {
  if (Mask.Width <= 0 || Mask.Height <= 0) return;
  const size_t Stride = static_cast<size_t>(Mask.Width);
  if (Mask.Coverage.size() / Stride < static_cast<size_t>(Mask.Height)) return;
  const int64_t ShiftX = static_cast<int64_t>(At.X) + Mask.Left;
  const int64_t ShiftY = static_cast<int64_t>(At.Y) + Mask.Top;
  const TPart Columns = VisiblePart(ShiftX, Mask.Width, Target.Width());
  const TPart Rows = VisiblePart(ShiftY, Mask.Height, Target.Height());
  WithPixelOf(Target.PixelFormat(), [&](auto Kind) {
    using TPixel = decltype(Kind);
    const TPixel Full = TPixel::Of(Color);
    for (int64_t Y = Rows.First; Y < Rows.Last; ++Y) {
      const uint8_t* Coverage = Mask.Coverage.data() + static_cast<size_t>(Y) * Stride;
      TPixel* Row = PixelRow<TPixel>(Target, static_cast<int32_t>(Y + ShiftY));
      for (int64_t X = Columns.First; X < Columns.Last; ++X) {
        TPixel& Pixel = Row[X + ShiftX];
        if (Coverage[X] == 255) {
          Pixel = Full;
        } else if (Coverage[X] != 0) {
          Pixel = TPixel::Of(BlendColors(Pixel.Color(), Color, Coverage[X]));
        }
      }
    }
  });
}

void FillTurnedBox(TBitmap& Target, TPoint At, TSize Size, int32_t Direction,
                   TColor Color) noexcept {
  const auto [Sine, Cosine] = SineCosine(Direction);
  const double Reach = std::hypot(Size.Width, Size.Height) + 1;
  const int32_t Top = RoundHalfEven(std::max(At.Y - Reach, 0.0));
  const int32_t Bottom = RoundHalfEven(std::min<double>(At.Y + Reach, Target.Height()));
  for (int32_t Y = Top; Y < Bottom; ++Y) {
    // The centre of pixel (X, Y) in the box's own directions: along the text and down from it.
    const double DY = Y + 0.5 - At.Y;
    const double DX = 0.5 - At.X;
    double First = 0;
    double Last = Target.Width();
    CutRange(First, Last, DX * Cosine - DY * Sine, Cosine, Size.Width);
    CutRange(First, Last, DX * Sine + DY * Cosine, Sine, Size.Height);
    if (!(First < Last)) continue;
    FillSpan(Target,
             {Y, static_cast<int32_t>(std::ceil(First)), static_cast<int32_t>(std::ceil(Last))},
             {Color, false});
  }
}

}  // namespace zav
