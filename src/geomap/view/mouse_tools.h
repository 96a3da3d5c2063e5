// mouse_tools.h - what the mouse does to a view: a state machine from mouse events to changes.
//
// It draws nothing and fires nothing; the control does what the results say.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_MOUSE_TOOLS_H
#define ZAV_GEOMAP_VIEW_MOUSE_TOOLS_H

#include <cstdint>
#include <optional>

#include <geomap/view/view_state.h>
#include <platform/base/geometry.h>
#include <platform/host/control.h>

namespace zav {

// What the left button does. Other values have no effect.
enum class TMouseActMode : uint8_t {
  maNone = 0,
  maPan = 1,
  maPanHorizontal = 2,
  maPanVertical = 3,
  maRubberBand = 5,
  maZoomBox = 7,
  maZoomDrag = 9,
  maSelectRect = 16,
  maMouseTrace = 17
};

// What the tools must know of the control at a mouse event.
struct TMouseContext {
  TMouseActMode Action = TMouseActMode::maNone;
  TViewState View;
  TSize Control;
  TSize Map;
  bool ConfinePan = true;
};

class TMouseTools {
 public:
  TPoint LastClick() const noexcept { return FLastClick; }  // map pixels
  TPoint LastMove() const noexcept { return FLastMove; }

  void Press(const TMouseContext& Context, TPoint Control) noexcept;
  // The view that the move leads to, when it does.
  std::optional<TViewState> Move(const TMouseContext& Context, TShiftState Shift,
                                 TPoint Control) noexcept;
  // Whether the release ends a step of the zoom history.
  bool Release(const TMouseContext& Context) const noexcept;
  // A drag under way begins anew with the next move, because something else has moved the view.
  void RestartDrag() noexcept { FDragging = false; }

  friend bool operator==(const TMouseTools&, const TMouseTools&) = default;

 private:
  TPoint FLastClick;
  TPoint FLastMove;
  bool FDragging = false;
  TPoint FDragStart;      // control pixels
  TPoint FAnchorTopLeft;  // the view's TopLeft at that moment
};

}  // namespace zav

#endif
