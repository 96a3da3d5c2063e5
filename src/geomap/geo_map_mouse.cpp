// geo_map_mouse.cpp - mouse events of the map control, and the trace they leave.
// SPDX-License-Identifier: MIT
#include <geomap/geo_map.h>

#include <algorithm>
#include <array>

#include <geomap/view/passes.h>
#include <geomap/view/value_guard.h>
#include <platform/base/rounding.h>
#include <platform/host/host.h>
#include <platform/raster/raster_canvas.h>

namespace zav {

TMouseContext TGeoMap::MouseContext() const {
  return {FMouseAction, FView, ControlSize(), FImage.Size(), FConfinePan};
}

void TGeoMap::SetMouseAction(TMouseActMode Action) {
  if (Action == FMouseAction) return;
  const auto Alive = Life();
  CancelMouse();
  if (!Alive.expired()) FMouseAction = Action;
}

void TGeoMap::SetAllowPan(bool Value) {
  SetMouseAction(Value ? TMouseActMode::maPan : TMouseActMode::maNone);
}

// --- mouse events --------------------------------------------------------------------------------

void TGeoMap::MouseDown(TMouseButton Button, TShiftState Shift, int32_t X, int32_t Y) {
  const auto Alive = Life();
  Perform(FMouse.Press(MouseContext(), Button, Shift, {X, Y}));
  if (!Alive.expired()) TCustomControl::MouseDown(Button, Shift, X, Y);
  if (Alive.expired()) return;
  NotifyWith([&](TGeoMapObserver& Each) { Each.MousePressed(*this, Button, Shift, {X, Y}); });
}

void TGeoMap::MouseMove(TShiftState Shift, int32_t X, int32_t Y) {
  const auto Alive = Life();
  const TMouseResult Result = FMouse.Move(MouseContext(), Shift, {X, Y});
  Perform(Result);
  if (!Alive.expired()) TCustomControl::MouseMove(Shift, Result.At.X, Result.At.Y);
  if (Alive.expired()) return;
  NotifyWith([&](TGeoMapObserver& Each) { Each.MouseMoved(*this, Shift, Result.At); });
}

void TGeoMap::MouseUp(TMouseButton Button, TShiftState Shift, int32_t X, int32_t Y) {
  const auto Alive = Life();
  TCustomControl::MouseUp(Button, Shift, X, Y);
  if (!Alive.expired())
    NotifyWith([&](TGeoMapObserver& Each) { Each.MouseReleased(*this, Button, Shift, {X, Y}); });
  if (!Alive.expired()) Perform(FMouse.Release(MouseContext(), Button, {X, Y}));
}

void TGeoMap::Perform(const TMouseResult& Result) {
  const auto Alive = Life();
  if (Result.EndsStroke) FTrace.EndStroke();
  if (Result.KeepShape) FFeedback.Forget();
  if (Result.Feedback) FFeedback.Show(*Result.Feedback, Window());
  if (!Alive.expired() && Result.Limit != TZoomLimit::zlNone) {
    ChangeView(*Result.View);
    if (Alive.expired()) return;
    throw EZAVError(ComponentMessage(Result.Limit == TZoomLimit::zlTooHigh
                                         ? "Magnification factor too high"
                                         : "Magnification factor too small"));
  }
  if (!Alive.expired() && Result.View) {
    ChangeViewAndPaint(*Result.View);
    if (!Alive.expired()) DoZoomPanEvent();
  }
  if (Alive.expired()) return;
  if (Result.EndsStep) ZoomStateOnStack();
  if (Result.Traces) TraceMouse(Result.At);
  if (!Alive.expired()) TellNews(Result);
}

void TGeoMap::TellNews(const TMouseResult& Result) {
  const auto Tell = [&](TOnRubberBandActionEvent TGeoMap::*Slot,
                        void (TGeoMapObserver::*What)(TGeoMap&, TPoint)) {
    const auto Alive = Life();
    if (const TOnRubberBandActionEvent Handler = this->*Slot) Handler(this, Result.From);
    if (Alive.expired()) return;
    NotifyWith([&](TGeoMapObserver& Each) { (Each.*What)(*this, Result.From); });
  };
  switch (Result.News) {
    case TMouseNews::mnBandBegun:
      return Tell(&TGeoMap::OnBeginRubberBand, &TGeoMapObserver::RubberBandBegun);
    case TMouseNews::mnBandContinued:
      return Tell(&TGeoMap::OnContinueRubberBand, &TGeoMapObserver::RubberBandContinued);
    case TMouseNews::mnBandEnded:
      return Tell(&TGeoMap::OnEndRubberBand, &TGeoMapObserver::RubberBandEnded);
    case TMouseNews::mnSelected:
      return SelectRect(Result.From, Result.To);
    case TMouseNews::mnNone:
      break;
  }
}

void TGeoMap::SelectRect(TPoint From, TPoint To) {
  const auto Alive = Life();
  NotifyWith([&](TGeoMapObserver& Each) { Each.PixelsSelected(*this, From, To); });
  if (Alive.expired()) return;
  std::array<double, 4> Degrees{};
  bool Valid = true;
  size_t Known = 0;
  for (const TPoint Corner : {From, To}) {
    if (Valid) Degrees[Known++] = FCalibration.CalcLongitude(Corner, Valid);
    if (Valid) Degrees[Known++] = FCalibration.CalcLatitude(Corner, Valid);
  }
  if (Valid) return DoSelectRectEvent(1, Degrees[0], Degrees[1], Degrees[2], Degrees[3]);
  DoSelectRectEvent(0, From.X, From.Y, To.X, To.Y);
}

// --- giving up -----------------------------------------------------------------------------------

void TGeoMap::CancelMouse() {
  FMouse.Cancel();
  EndMouseDrag();
}

// What a held button began would never end, because its release goes elsewhere. The rubber band
// needs none, and goes on when the control is shown again.
void TGeoMap::Hidden() { EndMouseDrag(); }

void TGeoMap::EndMouseDrag() {
  if (FMouseAction == TMouseActMode::maMouseTrace) FTrace.EndStroke();
  FMouse.LetGo();
  FFeedback.Show({}, Window());
}

void TGeoMap::MouseBoxAbort() {
  const bool Pending = FMouse.BoxPending();
  FMouse.AbortBox();
  if (Pending) FFeedback.Show({}, Window());
}

bool TGeoMap::MouseBox(int32_t& X1, int32_t& Y1, int32_t& X2, int32_t& Y2) {
  if (!Visible()) return false;
  const auto Alive = Life();
  const TValueGuard Mode(*this, FMouseAction, TMouseActMode::maNone);
  FMouse.LetGo();
  FFeedback.Show({}, Window());
  if (Alive.expired()) return false;
  FMouse.ArmBox();
  try {
    Notify(&TGeoMapObserver::MouseBoxChanged);
    if (Alive.expired()) return false;
    const auto Done = [&] { return Alive.expired() || !FMouse.BoxPending(); };
    const bool Ended = Host().ProcessMessages(Done);
    if (Alive.expired()) return false;
    if (!Ended) MouseBoxAbort();
  } catch (...) {
    if (!Alive.expired()) MouseBoxAbort();
    throw;
  }
  if (Alive.expired()) return false;
  const std::optional<TRect> Box = FMouse.TakeBox();
  if (Box) {
    X1 = Box->Left;
    Y1 = Box->Top;
    X2 = Box->Right;
    Y2 = Box->Bottom;
  }
  Notify(&TGeoMapObserver::MouseBoxChanged);
  return Box.has_value();
}

// --- trace ---------------------------------------------------------------------------------------

// Adds a point, and draws the line to it on the window only: the next picture has it anyway.
void TGeoMap::TraceMouse(TPoint Control) {
  if (!FTrace.Add(ControlToMapImage(Control), FTraceColor, FTraceInvert)) return;
  const int32_t Last = FTrace.Count();
  if (!FTrace.Connected(Last)) return;
  TMouseTrace Segment;
  for (const int32_t I : {Last - 1, Last}) Segment.Add(FTrace.Point(I));
  // In device pixels, as the next picture draws it.
  DrawTrace(Segment, FView, DeviceScale(), {0, 0}, Window().DeviceCanvas());
  const auto At = [&](int32_t I) {
    return MapImageToDevice(FView, 1, FTrace.Point(I).X, FTrace.Point(I).Y);
  };
  std::vector<TRect> Areas;
  AddFeedbackAreas({TFeedbackKind::fkLine, At(Last - 1), At(Last)}, Areas);
  if (!Areas.empty()) Window().Show(Areas);
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
