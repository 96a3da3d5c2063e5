// view_state.cpp - see view_state.h.
// SPDX-License-Identifier: MIT
#include <geomap/view/view_state.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include <platform/base/rounding.h>

namespace zav {
namespace {

// The fourth roots of 1, 2, 4 and 8, so that every fourth step is exact.
constexpr std::array<double, TZoomGesture::StepsPerDoubling> StepFactors = {
    1.0, 1.189207115002721, 1.4142135623730951, 1.681792830507429};

double StepFactor(int Step) noexcept {
  constexpr int Count = TZoomGesture::StepsPerDoubling;
  const int Part = ((Step % Count) + Count) % Count;
  return std::ldexp(StepFactors[static_cast<size_t>(Part)], (Step - Part) / Count);
}

int32_t ConfineAxis(int32_t Origin, double Shown, int32_t MapSize) noexcept {
  if (Origin > MapSize - Shown) Origin = RoundHalfEven(MapSize - Shown);
  return std::max(Origin, 0);
}

// The first map pixel of a view whose middle is Center.
int32_t CenteredOrigin(int32_t Center, int32_t ControlSize, double Magnification) noexcept {
  return RoundHalfEven(static_cast<double>(Center) -
                       RoundHalfEven(ControlSize / Magnification / 2));
}

int32_t CenteredOriginInside(int32_t Center, int32_t ControlSize, double Magnification,
                             int32_t MapSize) noexcept {
  const double Half = RoundHalfEven(ControlSize / Magnification / 2);
  return std::max(RoundHalfEven(std::min(Center - Half, MapSize - 2 * Half)), 0);
}

}  // namespace

TPoint ControlToMapImage(const TViewState& View, TPoint Control) noexcept {
  const auto Axis = [&](int32_t Value, int32_t Origin) {
    return RoundHalfEven(static_cast<double>(RoundHalfEven(Value / View.Magnification)) + Origin);
  };
  return {Axis(Control.X, View.TopLeft.X), Axis(Control.Y, View.TopLeft.Y)};
}

TPoint MapImageToControl(const TViewState& View, TPoint Map) noexcept {
  return MapImageToDevice(View, 1, Map.X, Map.Y);
}

TPoint MapImageToDevice(const TViewState& View, double Scale, double MapX, double MapY) noexcept {
  const double Factor = View.Magnification * Scale;
  return {RoundHalfEven((MapX - View.TopLeft.X) * Factor),
          RoundHalfEven((MapY - View.TopLeft.Y) * Factor)};
}

TViewState Confine(const TViewState& View, TSize Control, TSize Map) noexcept {
  const double M = View.Magnification;
  return {{ConfineAxis(View.TopLeft.X, Control.Width / M, Map.Width),
           ConfineAxis(View.TopLeft.Y, Control.Height / M, Map.Height)},
          M};
}

TViewState CenterOn(const TViewState& View, TPoint MapPixel, TSize Control) noexcept {
  const double M = View.Magnification;
  return {
      {CenteredOrigin(MapPixel.X, Control.Width, M), CenteredOrigin(MapPixel.Y, Control.Height, M)},
      M};
}

TViewState CenterInside(const TViewState& View, TPoint MapPixel, TSize Control,
                        TSize Map) noexcept {
  const double M = View.Magnification;
  return {{CenteredOriginInside(MapPixel.X, Control.Width, M, Map.Width),
           CenteredOriginInside(MapPixel.Y, Control.Height, M, Map.Height)},
          M};
}

TViewState FitPage(const TViewState& View, TSize Control, TSize Map) noexcept {
  TViewState Fit{{0, 0}, View.Magnification};
  if (Control.Width < 1 || Control.Height < 1 || Map.Width < 1 || Map.Height < 1) return Fit;
  Fit.Magnification = std::min(static_cast<double>(Control.Height) / Map.Height,
                               static_cast<double>(Control.Width) / Map.Width);
  return Fit;
}

TViewState PanBy(const TViewState& View, TPoint AnchorTopLeft, TPoint Drag) noexcept {
  const auto Axis = [&](int32_t Anchor, int32_t By) {
    return RoundHalfEven(static_cast<double>(Anchor) + RoundHalfEven(By / View.Magnification));
  };
  return {{Axis(AnchorTopLeft.X, Drag.X), Axis(AnchorTopLeft.Y, Drag.Y)}, View.Magnification};
}

// --- zooming in steps ----------------------------------------------------------------------------

double TZoomGesture::MagnificationAt(int Step) const noexcept {
  const double Start = FStart.Magnification;
  if (Step == 0) return Start;
  const double Nearest = std::clamp(Start, MinMagnification, MaxMagnification);
  // From outside the limits the first step, either way, only leads to the nearest.
  if (Nearest != Start) Step -= Step > 0 ? 1 : -1;
  return std::clamp(Nearest * StepFactor(Step), MinMagnification, MaxMagnification);
}

void TZoomGesture::Hold(TPoint Center) noexcept {
  FCenter = Center;
  FMapX = FLeft + Center.X / FLast.Magnification;
  FMapY = FTop + Center.Y / FLast.Magnification;
}

void TZoomGesture::Begin(const TViewState& View) noexcept {
  FStart = FLast = View;
  FStep = 0;
  FLeft = View.TopLeft.X;
  FTop = View.TopLeft.Y;
}

TViewState TZoomGesture::Zoom(const TViewState& View, TPoint Center, int Steps, TSize Control,
                              TSize Map) {
  if (!FActive || View != FLast) {
    Begin(View);
    Hold(Center);
    FActive = FOnePoint = true;
  } else if (Center != FCenter) {
    Hold(Center);
    FOnePoint = false;
  }

  const int Direction = Steps > 0 ? 1 : -1;
  const int Before = FStep;
  for (; Steps != 0; Steps -= Direction) {
    if (MagnificationAt(FStep + Direction) == MagnificationAt(FStep)) break;
    FStep += Direction;
  }
  if (FStep == Before) return FLast;

  const double M = MagnificationAt(FStep);
  if (FStep == 0 && FOnePoint) {
    Begin(FStart);
    Hold(Center);
    return FLast;
  }
  FLeft = FMapX - Center.X / M;
  FTop = FMapY - Center.Y / M;
  FLast = {{RoundHalfEven(FLeft), RoundHalfEven(FTop)}, M};
  const TViewState Confined =
      Map.Width < 1 || Map.Height < 1 ? FLast : Confine(FLast, Control, Map);
  if (Confined != FLast) {
    // The map's edge has moved the picture: what lies under the point now is what stays there.
    FLast = Confined;
    FLeft = FLast.TopLeft.X;
    FTop = FLast.TopLeft.Y;
    Hold(Center);
  }
  return FLast;
}

}  // namespace zav
