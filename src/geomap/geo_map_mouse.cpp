// geo_map_mouse.cpp - mouse events of the map control, and the trace they leave.
// SPDX-License-Identifier: MIT
#include <geomap/geo_map.h>

#include <algorithm>

#include <geomap/view/passes.h>
#include <platform/base/rounding.h>
#include <platform/raster/raster_canvas.h>

namespace zav {

void TGeoMap::SetAllowPan(bool Value) {
  FMouseAction = Value ? TMouseActMode::maPan : TMouseActMode::maNone;
}

TMouseContext TGeoMap::MouseContext() const {
  return {FMouseAction, FView, ControlSize(), FImage.Size(), FConfinePan};
}

void TGeoMap::MouseDown(TMouseButton Button, TShiftState Shift, int32_t X, int32_t Y) {
  FMouse.Press(MouseContext(), {X, Y});
  TCustomControl::MouseDown(Button, Shift, X, Y);
}

void TGeoMap::MouseMove(TShiftState Shift, int32_t X, int32_t Y) {
  const auto Alive = Life();
  if (const auto View = FMouse.Move(MouseContext(), Shift, {X, Y})) {
    ChangeViewAndPaint(*View);
    if (!Alive.expired()) DoZoomPanEvent();
    if (Alive.expired()) return;
  }
  if (FMouseAction == TMouseActMode::maMouseTrace && (Shift & ssLeft) != 0) {
    X = std::clamp(X, 0, Width());
    Y = std::clamp(Y, 0, Height());
    TraceMouse({X, Y});
  }
  TCustomControl::MouseMove(Shift, X, Y);
}

void TGeoMap::MouseUp(TMouseButton Button, TShiftState Shift, int32_t X, int32_t Y) {
  const auto Alive = Life();
  TCustomControl::MouseUp(Button, Shift, X, Y);
  if (Alive.expired()) return;
  if (FMouse.Release(MouseContext())) ZoomStateOnStack();
  if (FMouseAction == TMouseActMode::maMouseTrace) FTrace.EndStroke();
}

// --- trace ---------------------------------------------------------------------------------------

// Adds a point, and draws the line to it on the window only: the next picture has it anyway.
void TGeoMap::TraceMouse(TPoint Control) {
  if (!FTrace.Add(ControlToMapImage(Control), FTraceColor, FTraceInvert)) return;
  const int32_t Last = FTrace.Count();
  if (!FTrace.Connected(Last)) return;
  TMouseTrace Segment;
  for (const int32_t I : {Last - 1, Last}) Segment.Add(FTrace.Point(I));
  DrawTrace(Segment, FView, 1, {0, 0}, Canvas());
  const auto AtControl = [&](int32_t I) {
    return MapImageToDevice(FView, 1, FTrace.Point(I).X, FTrace.Point(I).Y);
  };
  const TPoint A = AtControl(Last - 1);
  const TPoint B = AtControl(Last);
  const TRect Drawn = {std::min(A.X, B.X) - 1, std::min(A.Y, B.Y) - 1, std::max(A.X, B.X) + 2,
                       std::max(A.Y, B.Y) + 2};
  Window().Show({&Drawn, 1});
}

TMouseTracePoint TGeoMap::GetMTracePoint(int32_t Index) const {
  TMouseTracePoint Point;
  Point.Flags = mtfInvalid;
  if (Index < 1 || Index > FTrace.Count()) return Point;
  Point = FTrace.Point(Index);
  const TPoint Map = {RoundHalfEven(Point.X), RoundHalfEven(Point.Y)};
  bool LongValid = false;
  bool LatValid = false;
  Point.X = FCalibration.CalcLongitude(Map, LongValid);
  Point.Y = FCalibration.CalcLatitude(Map, LatValid);
  if (!LongValid || !LatValid) Point.Flags = mtfInvalid;
  return Point;
}

void TGeoMap::ClearMouseTrace() {
  FTrace.Clear();
  Paint();
}

void TGeoMap::DrawMouseTrace(int32_t Left, int32_t Top, TBitmap& Bitmap) const {
  TRasterCanvas Canvas(Bitmap);
  DrawTrace(FTrace, FView, 1, {Left, Top}, Canvas);
}

}  // namespace zav
