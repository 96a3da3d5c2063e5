// frame.cpp - see frame.h.
// SPDX-License-Identifier: MIT
#include <platform/host/frame.h>

namespace zav {
namespace {

// One ring of a frame, all of it inside Left..Right and Top..Bottom.
struct TRing {
  TColor TopLeft;
  TColor BottomRight;
};

// Sides as filled rectangles, which meet without gap on a scaled canvas too.
void DrawRing(TCanvas& Canvas, const TRing& Ring, int32_t Left, int32_t Top, int32_t Right,
              int32_t Bottom) {
  if (Right < Left || Bottom < Top) return;
  const auto fill = [&](TColor color, const TRect& side) {
    Canvas.Brush.Color = color;
    Canvas.FillRect(side);
  };
  // The bottom left and the top right corner belong to the lower right sides.
  fill(Ring.TopLeft, {Left, Top, Right, Top + 1});
  fill(Ring.TopLeft, {Left, Top, Left + 1, Bottom});
  fill(Ring.BottomRight, {Left, Bottom, Right + 1, Bottom + 1});
  fill(Ring.BottomRight, {Right, Top, Right + 1, Bottom});
}

}  // namespace

void DrawFrame(TCanvas& Canvas, TFrameStyle Style, int32_t Left, int32_t Top, int32_t Right,
               int32_t Bottom, TColor Light, TColor Face, TColor Shadow, TColor Dark,
               TColor Black) {
  const TBrush oldBrush = Canvas.Brush;
  Canvas.Brush.Style = TBrushStyle::bsSolid;
  const auto rings = [&](const TRing& outer, const TRing& inner) {
    DrawRing(Canvas, outer, Left, Top, Right, Bottom);
    DrawRing(Canvas, inner, Left + 1, Top + 1, Right - 1, Bottom - 1);
  };
  switch (Style) {
    case TFrameStyle::fsSunken:
      rings({Shadow, Light}, {Dark, Face});
      break;
    case TFrameStyle::fsRaised:
      rings({Light, Black}, {Face, Shadow});
      break;
    case TFrameStyle::fsSingle:
      DrawRing(Canvas, {Black, Black}, Left, Top, Right, Bottom);
      break;
    case TFrameStyle::fsEtched:
      rings({Shadow, Light}, {Light, Shadow});
      break;
    case TFrameStyle::fsNone:
      break;
  }
  Canvas.Brush = oldBrush;
}

}  // namespace zav
