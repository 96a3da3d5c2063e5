// mouse_tools.cpp - see mouse_tools.h.
// SPDX-License-Identifier: MIT
#include <geomap/view/mouse_tools.h>

namespace zav {
namespace {

bool IsPan(TMouseActMode Action) noexcept {
  return Action == TMouseActMode::maPan || Action == TMouseActMode::maPanHorizontal ||
         Action == TMouseActMode::maPanVertical;
}

}  // namespace

void TMouseTools::Press(const TMouseContext& Context, TPoint Control) noexcept {
  FLastClick = ControlToMapImage(Context.View, Control);
}

std::optional<TViewState> TMouseTools::Move(const TMouseContext& Context, TShiftState Shift,
                                            TPoint Control) noexcept {
  FLastMove = ControlToMapImage(Context.View, Control);
  if (!IsPan(Context.Action)) return std::nullopt;
  if ((Shift & ssLeft) == 0) {
    FDragging = false;
    return std::nullopt;
  }
  if (!FDragging) {
    FDragging = true;
    FDragStart = Control;
    FAnchorTopLeft = Context.View.TopLeft;
    return std::nullopt;
  }
  if (Control.X < 0 || Control.X > Context.Control.Width || Control.Y < 0 ||
      Control.Y > Context.Control.Height) {
    return std::nullopt;
  }
  TViewState View =
      PanBy(Context.View, FAnchorTopLeft, {FDragStart.X - Control.X, FDragStart.Y - Control.Y});
  if (Context.Action == TMouseActMode::maPanVertical) View.TopLeft.X = Context.View.TopLeft.X;
  if (Context.Action == TMouseActMode::maPanHorizontal) View.TopLeft.Y = Context.View.TopLeft.Y;
  return Context.ConfinePan ? Confine(View, Context.Control, Context.Map) : View;
}

bool TMouseTools::Release(const TMouseContext& Context) const noexcept {
  return IsPan(Context.Action);
}

}  // namespace zav
