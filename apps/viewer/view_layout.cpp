// view_layout.cpp - where the viewer puts a map in its window.
// SPDX-License-Identifier: MIT
#include "view_layout.h"

#include <algorithm>

#include <platform/base/rounding.h>

namespace zav {

namespace {

int32_t TidyOrigin(int32_t Origin, int32_t Control, int32_t Map, double Magnification) {
  const double Shown = Control / Magnification;
  if (Map <= Shown) return RoundHalfEven((Map - Shown) / 2);
  return std::clamp(Origin, 0, RoundHalfEven(Map - Shown));
}

}  // namespace

TViewState TidyView(const TViewState& View, TSize Control, TSize Map) {
  const double Magnification = View.Magnification;
  return {{TidyOrigin(View.TopLeft.X, Control.Width, Map.Width, Magnification),
           TidyOrigin(View.TopLeft.Y, Control.Height, Map.Height, Magnification)},
          Magnification};
}

TViewState WithMagnification(const TViewState& View, TSize Control, double Magnification) {
  const double Growth = 0.5 / View.Magnification - 0.5 / Magnification;
  return {{RoundHalfEven(View.TopLeft.X + Control.Width * Growth),
           RoundHalfEven(View.TopLeft.Y + Control.Height * Growth)},
          Magnification};
}

TViewState FittedView(const TViewState& View, TSize Control, TSize Map, double Largest) {
  if (Map.Width <= 0 || Map.Height <= 0 || Control.Width <= 0 || Control.Height <= 0) return View;
  TViewState Fitted = FitPage(View, Control, Map);
  Fitted.Magnification = std::min(Fitted.Magnification, Largest);
  return TidyView(Fitted, Control, Map);
}

void CoverMargin(const TViewState& View, TSize Control, TSize Map, TColor Color, TCanvas& Canvas) {
  const TPoint From = MapImageToControl(View, {0, 0});
  const TPoint To = MapImageToControl(View, {Map.Width, Map.Height});
  Canvas.Brush = {Color, TBrushStyle::bsSolid};
  for (const TRect& Side :
       {TRect{0, 0, Control.Width, From.Y}, TRect{0, To.Y, Control.Width, Control.Height},
        TRect{0, From.Y, From.X, To.Y}, TRect{To.X, From.Y, Control.Width, To.Y}})
    if (!Side.Empty()) Canvas.FillRect(Side);
}

double GraticuleSpacing(double MetresPerPixel, double Magnification) {
  if (!(MetresPerPixel > 0) || !(Magnification > 0)) return 0;
  constexpr double MetresPerDegree = 111320;
  constexpr double LeastPixels = 70;
  const double Least = LeastPixels * MetresPerPixel / Magnification / MetresPerDegree;
  for (const double Unit : {1.0 / 3600, 1.0 / 60})
    for (const double Count : {1.0, 2.0, 5.0, 10.0, 20.0, 30.0})
      if (Count * Unit >= Least) return Count * Unit;
  for (const double Degrees : {1.0, 2.0, 5.0, 10.0, 15.0, 30.0})
    if (Degrees >= Least) return Degrees;
  return 45;
}

}  // namespace zav
