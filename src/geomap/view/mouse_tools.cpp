// mouse_tools.cpp - see mouse_tools.h.
// SPDX-License-Identifier: MIT
#include <geomap/view/mouse_tools.h>

#include <algorithm>

#include <platform/base/rounding.h>

namespace zav {
namespace {

using enum TMouseActMode;

struct TZoomed {
  TViewState View;
  TZoomLimit Limit = TZoomLimit::zlNone;
};

bool IsPan(TMouseActMode Action) noexcept {
  return Action == maPan || Action == maPanHorizontal || Action == maPanVertical;
}

bool Inside(TPoint P, TSize Control) noexcept {
  return P.X >= 0 && P.X <= Control.Width && P.Y >= 0 && P.Y <= Control.Height;
}

TPoint Clamped(TPoint P, int32_t Low, TSize Control) noexcept {
  return {std::max(std::min(P.X, Control.Width), Low),
          std::max(std::min(P.Y, Control.Height), Low)};
}

// The view with another magnification, or what is left of it at a limit: only the magnification.
TZoomed Limited(const TViewState& View, double Magnification) noexcept {
  if (Magnification > MaxMagnification)
    return {{View.TopLeft, MaxMagnification}, TZoomLimit::zlTooHigh};
  if (!(Magnification >= MinMagnification))
    return {{View.TopLeft, MinMagnification}, TZoomLimit::zlTooSmall};
  return {{View.TopLeft, Magnification}};
}

// The whole drag counts at every move, so that zooming gathers speed. The centre stays.
TZoomed DragZoom(const TViewState& View, TPoint Start, TPoint Now, TSize Control) noexcept {
  const double M = View.Magnification;
  const double W = Control.Width;
  const double H = Control.Height;
  const double DX = static_cast<double>(Start.X) - Now.X;
  const double DY = static_cast<double>(Start.Y) - Now.Y;
  TZoomed Result = Limited(View, M * (1 - (DX / W * 0.05 - DY / H)));
  if (Result.Limit != TZoomLimit::zlNone) return Result;
  const double New = Result.View.Magnification;
  const auto Moved = [&](int32_t Corner, double Size) {
    return RoundHalfEven(static_cast<double>(Corner) + RoundHalfEven(Size / M / 2) -
                         RoundHalfEven(Size / New / 2));
  };
  Result.View.TopLeft = {Moved(View.TopLeft.X, W), Moved(View.TopLeft.Y, H)};
  return Result;
}

// The view in which the box of map pixels From..To, of which neither extent is 0, fills the control
// as far as its shape allows.
TZoomed ZoomToBox(const TViewState& View, TPoint From, TPoint To, TSize Control) noexcept {
  const double W = Control.Width;
  const double H = Control.Height;
  const double DX = static_cast<double>(To.X) - From.X;
  const double DY = static_cast<double>(To.Y) - From.Y;
  TZoomed Result = Limited(View, DY < DX ? W / DX : H / DY);
  if (Result.Limit != TZoomLimit::zlNone) return Result;
  const double M = Result.View.Magnification;
  Result.View.TopLeft = {
      RoundHalfEven(static_cast<double>(From.X) + RoundHalfEven((DX - W / M) / 2)),
      RoundHalfEven(static_cast<double>(From.Y) + RoundHalfEven((DY - H / M) / 2))};
  return Result;
}

}  // namespace

// --- press ---------------------------------------------------------------------------------------

TMouseResult TMouseTools::Press(const TMouseContext& Context, TMouseButton Button,
                                TShiftState Shift, TPoint Control) noexcept {
  TMouseResult Result;
  Result.At = Control;
  Result.From = FLastClick = ControlToMapImage(Context.View, Control);
  if (FBox == TBox::Armed) {
    FBox = Button == TMouseButton::mbRight ? TBox::Idle : TBox::Dragging;
    FBoxFrom = FBoxTo = Control;
  }
  if (Button != TMouseButton::mbLeft) return Result;
  if (Context.Action == maZoomBox && !FZoomBox && Inside(Control, Context.Control)) {
    FZoomBox = true;
    FBoxStart = Control;
  } else if (Context.Action == maSelectRect) {
    FSelecting = true;
    FBoxStart = Control;
    Result.News = TMouseNews::mnBandBegun;
  } else if (Context.Action == maRubberBand) {
    PressBand((Shift & ssCtrl) != 0, Result);
  }
  return Result;
}

void TMouseTools::PressBand(bool Ctrl, TMouseResult& Result) noexcept {
  if (!FBand) {
    FBand = true;
    Result.News = TMouseNews::mnBandBegun;
  } else if (Ctrl) {
    Result.KeepShape = true;
    Result.News = TMouseNews::mnBandContinued;
  } else {
    FBand = false;
    Result.Feedback.emplace();
    Result.News = TMouseNews::mnBandEnded;
  }
  FBandStart = Result.At;
}

// --- move ----------------------------------------------------------------------------------------

TMouseResult TMouseTools::Move(const TMouseContext& Context, TShiftState Shift,
                               TPoint Control) noexcept {
  TMouseResult Result;
  Result.At = Control;
  FLastMove = ControlToMapImage(Context.View, Control);
  if (FBox == TBox::Dragging) {
    Result.At = FBoxTo = Clamped(Control, 1, Context.Control);
    Result.Feedback = {TFeedbackKind::fkBox, FBoxFrom, FBoxTo};
  }
  const bool Left = (Shift & ssLeft) != 0;
  if (IsPan(Context.Action) || Context.Action == maZoomDrag) {
    Drag(Context, Shift, Result);
  } else if (Context.Action == maRubberBand && FBand) {
    Result.Feedback = {TFeedbackKind::fkLine, FBandStart, Result.At};
  } else if (Context.Action == maZoomBox && FZoomBox) {
    Result.At = Clamped(Control, 0, Context.Control);
    Result.Feedback = {TFeedbackKind::fkBox, FBoxStart, Result.At};
  } else if (Context.Action == maSelectRect && FSelecting && Left) {
    Result.At = Clamped(Control, 0, Context.Control);
    Result.Feedback = {TFeedbackKind::fkDottedBox, FBoxStart, Result.At};
  } else if (Context.Action == maMouseTrace && !FZoomBox && Left) {
    Result.At = Clamped(Control, 0, Context.Control);
    Result.Traces = true;
  }
  return Result;
}

void TMouseTools::Drag(const TMouseContext& Context, TShiftState Shift,
                       TMouseResult& Result) noexcept {
  if ((Shift & ssLeft) == 0) {
    FDragging = false;
    return;
  }
  if (!FDragging) {
    FDragging = true;
    FDragStart = Result.At;
    FAnchorTopLeft = Context.View.TopLeft;
    return;
  }
  const TSize Size = Context.Control;
  if (!Inside(Result.At, Size)) return;
  if (Context.Action == maZoomDrag) {
    if (Size.Width < 1 || Size.Height < 1) return;
    const TZoomed Zoomed = DragZoom(Context.View, FDragStart, Result.At, Size);
    Result.View = Zoomed.View;
    Result.Limit = Zoomed.Limit;
    return;
  }
  const TPoint Dragged = {RoundHalfEven(static_cast<double>(FDragStart.X) - Result.At.X),
                          RoundHalfEven(static_cast<double>(FDragStart.Y) - Result.At.Y)};
  TViewState View = PanBy(Context.View, FAnchorTopLeft, Dragged);
  if (Context.Action == maPanVertical) View.TopLeft.X = Context.View.TopLeft.X;
  if (Context.Action == maPanHorizontal) View.TopLeft.Y = Context.View.TopLeft.Y;
  Result.View = Context.ConfinePan ? Confine(View, Size, Context.Map) : View;
}

// --- release -------------------------------------------------------------------------------------

TMouseResult TMouseTools::Release(const TMouseContext& Context, TMouseButton Button,
                                  TPoint Control) noexcept {
  TMouseResult Result;
  Result.At = Control;
  const bool Left = Button == TMouseButton::mbLeft;
  if (FBox == TBox::Dragging) {
    FBox = Button == TMouseButton::mbRight ? TBox::Idle : TBox::Done;
    FBoxTo = Control;
    Result.Feedback.emplace();
  }
  if (Context.Action == maSelectRect && FSelecting && Left) {
    FSelecting = false;
    Result.Feedback.emplace();
    Result.News = TMouseNews::mnSelected;
    Result.From = ControlToMapImage(Context.View, FBoxStart);
    Result.To = ControlToMapImage(Context.View, Control);
  }
  if (Context.Action == maZoomBox && FZoomBox) ReleaseZoomBox(Context, Button, Result);
  if (Left) FDragging = false;
  if (IsPan(Context.Action) || Context.Action == maZoomDrag) Result.EndsStep = true;
  Result.EndsStroke = Context.Action == maMouseTrace;
  return Result;
}

void TMouseTools::ReleaseZoomBox(const TMouseContext& Context, TMouseButton Button,
                                 TMouseResult& Result) noexcept {
  if (Button == TMouseButton::mbMiddle) return;
  FZoomBox = false;
  Result.Feedback.emplace();
  if (Button == TMouseButton::mbRight) return;
  const auto [Left, Right] = std::minmax(FBoxStart.X, Result.At.X);
  const auto [Top, Bottom] = std::minmax(FBoxStart.Y, Result.At.Y);
  const TPoint From = ControlToMapImage(Context.View, {Left, Top});
  const TPoint To = ControlToMapImage(Context.View, {Right, Bottom});
  if (From.X == To.X || From.Y == To.Y) return;
  const TZoomed Zoomed = ZoomToBox(Context.View, From, To, Context.Control);
  Result.View = Zoomed.View;
  Result.Limit = Zoomed.Limit;
  Result.EndsStep = Zoomed.Limit == TZoomLimit::zlNone;
  FZoomBox = !Result.EndsStep;
}

// --- giving up -----------------------------------------------------------------------------------

std::optional<TRect> TMouseTools::TakeBox() noexcept {
  const bool Done = FBox == TBox::Done;
  FBox = TBox::Idle;
  if (!Done) return std::nullopt;
  const auto [Left, Right] = std::minmax(FBoxFrom.X, FBoxTo.X);
  const auto [Top, Bottom] = std::minmax(FBoxFrom.Y, FBoxTo.Y);
  return TRect{Left, Top, Right, Bottom};
}

void TMouseTools::LetGo() noexcept {
  FDragging = false;
  FZoomBox = false;
  FSelecting = false;
  FBox = TBox::Idle;
}

void TMouseTools::Cancel() noexcept {
  LetGo();
  FBand = false;
}

}  // namespace zav
