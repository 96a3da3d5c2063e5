// geo_map_view.cpp - what the control shows of the map, and the history of that.
// SPDX-License-Identifier: MIT
#include <geomap/geo_map.h>

#include <cmath>

namespace zav {

void TGeoMap::ChangeView(const TViewState& View) {
  if (View == FView) return;
  FView = View;
  Notify(&TGeoMapObserver::ViewChanged);
}

void TGeoMap::ChangeViewAndPaint(const TViewState& View) {
  const auto Alive = Life();
  ChangeView(View);
  if (!Alive.expired()) Paint();
}

void TGeoMap::SetTopLeft(TPoint TopLeft) { ChangeViewAndPaint({TopLeft, FView.Magnification}); }

void TGeoMap::SetMagnification(double Magnification) {
  if (!(Magnification >= MinMagnification)) {
    throw EZAVError(ComponentMessage("Magnification factor too low"));
  }
  if (Magnification > MaxMagnification) {
    throw EZAVError(ComponentMessage("Magnification factor too high"));
  }
  ChangeViewAndPaint({FView.TopLeft, Magnification});
}

void TGeoMap::SetView(TPoint TopLeft, double Magnification) {
  if (!(Magnification > 0)) throw EZAVError(ComponentMessage("Magnification factor too low"));
  if (std::isinf(Magnification)) {
    throw EZAVError(ComponentMessage("Magnification factor too high"));
  }
  ChangeViewAndPaint({TopLeft, Magnification});
}

TPoint TGeoMap::ControlToMapImage(TPoint Control) const noexcept {
  return zav::ControlToMapImage(FView, Control);
}

TPoint TGeoMap::MapImageToControl(TPoint Map) const noexcept {
  return zav::MapImageToControl(FView, Map);
}

void TGeoMap::BringMapPixelToCenter(TPoint Map) {
  ChangeViewAndPaint(Confine(CenterOn(FView, Map, ControlSize()), ControlSize(), FImage.Size()));
}

void TGeoMap::BringLocationToCenter(double Lat, double Long) {
  TPoint Map;
  if (!FCalibration.CalcPixelCoords(Lat, Long, Map.X, Map.Y)) return;
  ChangeViewAndPaint(CenterInside(FView, Map, ControlSize(), FImage.Size()));
}

void TGeoMap::PanMapToFillWindow() { ChangeView(Confine(FView, ControlSize(), FImage.Size())); }

void TGeoMap::ZoomFitPage() { ChangeViewAndPaint(FitPage(FView, ControlSize(), FImage.Size())); }

void TGeoMap::SetConfinePan(bool Value) {
  FConfinePan = Value;
  if (Value) PanMapToFillWindow();
}

// --- by wheel and keyboard -----------------------------------------------------------------------

bool TGeoMap::MoveViewByUser(const TViewState& View) {
  if (View == FView) return false;
  FMouse.RestartDrag();
  const auto Alive = Life();
  ChangeViewAndPaint(View);
  if (!Alive.expired()) DoZoomPanEvent();
  return true;
}

bool TGeoMap::ZoomAt(TPoint Control, int Steps) {
  const TSize ConfineTo = FConfinePan ? FImage.Size() : TSize{};
  return MoveViewByUser(FZoomGesture.Zoom(FView, Control, Steps, ControlSize(), ConfineTo));
}

bool TGeoMap::PanBy(TPoint Control) {
  const TViewState View = zav::PanBy(FView, FView.TopLeft, Control);
  return MoveViewByUser(FConfinePan ? Confine(View, ControlSize(), FImage.Size()) : View);
}

// --- zoom history --------------------------------------------------------------------------------

void TGeoMap::ZoomStateOnStack() {
  if (!Loading()) FZoomRing.Push(FView);
}

TgmZoomStackEntry TGeoMap::GetZoomStackEntry(int32_t Index) const noexcept {
  return FZoomRing.Entry(Index);
}

void TGeoMap::ZoomHistory(int32_t Index) {
  const TgmZoomStackEntry Entry = FZoomRing.Entry(Index);
  if (Entry != TgmZoomStackEntry{}) ChangeViewAndPaint({{Entry.Left, Entry.Top}, Entry.MagF});
}

void TGeoMap::ClearZoomHistory() {
  FZoomRing.Clear();
  ZoomStateOnStack();
}

}  // namespace zav
