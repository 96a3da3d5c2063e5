/// @file
/// mouse_tools.h - what the mouse does to a map: a state machine from mouse events to results.
///
/// It draws nothing and fires nothing; the control does what the results say. So it needs neither a
/// window nor a map.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_MOUSE_TOOLS_H
#define ZAV_GEOMAP_VIEW_MOUSE_TOOLS_H

#include <cstdint>
#include <optional>

#include <geomap/view/mouse_feedback.h>
#include <geomap/view/view_state.h>
#include <platform/base/api.h>
#include <platform/base/geometry.h>
#include <platform/host/control.h>

namespace zav {

/// What the left button does. Other values have no effect.
enum class TMouseActMode : uint8_t {
  maNone = 0,           ///< nothing
  maPan = 1,            ///< drags the map
  maPanHorizontal = 2,  ///< the same, to the left and right only
  maPanVertical = 3,    ///< the same, up and down only
  maRubberBand = 5,     ///< a click begins a line, the next ends it, or begins another with Ctrl
  maZoomBox = 7,        ///< drags a box that then fills the control
  maZoomDrag = 9,       ///< up zooms in, down out, about the control's centre
  maSelectRect = 16,    ///< drags a dotted box that is reported
  maMouseTrace = 17     ///< leaves a trace
};

/// What the tools must know of the control at a mouse event.
struct TMouseContext {
  TMouseActMode Action = TMouseActMode::maNone;  ///< of the left button
  TViewState View;                               ///< the part of the map that is shown
  TSize Control;                                 ///< control pixels
  TSize Map;                                     ///< map pixels
  bool ConfinePan = true;                        ///< whether the view stays inside the map
};

/// What a mouse event meant.
enum class TMouseNews : uint8_t {
  mnNone,           ///< nothing to be told
  mnBandBegun,      ///< a line begins
  mnBandContinued,  ///< a line ends and the next begins
  mnBandEnded,      ///< a line ends
  mnSelected        ///< a rectangle was selected
};
/// A limit that zooming has met.
enum class TZoomLimit : uint8_t {
  zlNone,     ///< none
  zlTooHigh,  ///< MaxMagnification
  zlTooSmall  ///< MinMagnification
};

/// What follows from a mouse event, in the order in which it is to be done.
struct TMouseResult {
  /// The control pixel, brought into the control where the tool does so.
  TPoint At;
  /// What is over the picture is no longer to be taken away.
  bool KeepShape = false;
  /// What is over the picture from now on instead of what was; fkNone takes it away.
  std::optional<TFeedbackShape> Feedback;
  /// The view to show. When Limit is set, the magnification was stopped at a limit: the view
  /// changes without being painted, and the user is told.
  std::optional<TViewState> View;
  TZoomLimit Limit = TZoomLimit::zlNone;  ///< the limit that was met
  /// The view is a step of the zoom history.
  bool EndsStep = false;
  /// Map pixels: of the event in From, and for mnSelected both corners.
  TMouseNews News = TMouseNews::mnNone;
  TPoint From;  ///< map pixel
  TPoint To;    ///< the opposite corner
  /// At is a point of the trace; the last point ends a stroke.
  bool Traces = false;
  bool EndsStroke = false;  ///< the trace's next point begins a new one
  friend bool operator==(const TMouseResult&, const TMouseResult&) = default;
};

/// The state of the tools from event to event. A value: an event changes nothing but this.
class ZAVGEO_API TMouseTools {
 public:
  TPoint LastClick() const noexcept { return FLastClick; }  ///< map pixels
  TPoint LastMove() const noexcept { return FLastMove; }    ///< map pixels
  /// A zoom box is being drawn, or was refused at its end: then it stays until the next release.
  bool ZoomBoxActive() const noexcept { return FZoomBox; }
  /// A line follows the mouse.
  bool RubberBandActive() const noexcept { return FBand; }
  /// Something is under way that ends when the button is let go.
  bool Dragging() const noexcept { return FDragging || FZoomBox || FSelecting || BoxPending(); }

  /// A button was pressed at a control pixel.
  TMouseResult Press(const TMouseContext& Context, TMouseButton Button, TShiftState Shift,
                     TPoint Control) noexcept;
  /// The mouse is at a control pixel.
  TMouseResult Move(const TMouseContext& Context, TShiftState Shift, TPoint Control) noexcept;
  /// A button was let go at a control pixel.
  TMouseResult Release(const TMouseContext& Context, TMouseButton Button, TPoint Control) noexcept;

  /// A box for the program, in any mode: armed, it waits for the next press, and is pending until a
  /// button other than the right one is let go. The right button, at either time, gives it up.
  void ArmBox() noexcept { FBox = TBox::Armed; }
  /// Gives the box up.
  void AbortBox() noexcept { FBox = TBox::Idle; }
  /// Whether it is waited for.
  bool BoxPending() const noexcept { return FBox == TBox::Armed || FBox == TBox::Dragging; }
  /// The box in control pixels, Left <= Right and Top <= Bottom, when there is one; idle then.
  std::optional<TRect> TakeBox() noexcept;

  /// A drag under way begins anew with the next move, because something else has moved the view.
  void RestartDrag() noexcept { FDragging = false; }
  /// Forgets all that a held button has begun, as if it had not been pressed.
  void LetGo() noexcept;
  /// The same, and the rubber band.
  void Cancel() noexcept;

  friend bool operator==(const TMouseTools&, const TMouseTools&) = default;

 private:
  enum class TBox : uint8_t { Idle, Armed, Dragging, Done };

  void PressBand(bool Ctrl, TMouseResult& Result) noexcept;
  void Drag(const TMouseContext& Context, TShiftState Shift, TMouseResult& Result) noexcept;
  void ReleaseZoomBox(const TMouseContext& Context, TMouseButton Button,
                      TMouseResult& Result) noexcept;

  TPoint FLastClick;
  TPoint FLastMove;

  bool FDragging = false;  // of panning and zooming
  TPoint FDragStart;       // control pixels, as are all that follow
  TPoint FAnchorTopLeft;   // but this one: the view's TopLeft at that moment

  bool FBand = false;
  TPoint FBandStart;

  bool FZoomBox = false;
  bool FSelecting = false;
  TPoint FBoxStart;  // of either

  TBox FBox = TBox::Idle;
  TPoint FBoxFrom;
  TPoint FBoxTo;
};

}  // namespace zav

#endif
