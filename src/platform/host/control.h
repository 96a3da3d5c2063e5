/// @file
/// control.h - a control with a canvas and mouse events, and the window that the host gives it.
///
/// The host's widget translates its own events into calls of TCustomControl; the control draws on
/// its window's canvas, a persistent buffer, and says what is to be shown.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_HOST_CONTROL_H
#define ZAV_PLATFORM_HOST_CONTROL_H

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

#include <platform/base/api.h>
#include <platform/base/geometry.h>
#include <platform/host/canvas.h>
#include <platform/host/component.h>

namespace zav {

class THost;
class TCustomControl;

/// A mouse button.
enum class TMouseButton : uint8_t {
  mbLeft,   ///< the main one
  mbRight,  ///< the other one
  mbMiddle  ///< or the wheel, pressed
};

/// Keys and buttons held during a mouse event, one bit each.
using TShiftState = uint8_t;
constexpr TShiftState ssShift = 1;    ///< the Shift key
constexpr TShiftState ssAlt = 2;      ///< the Alt key
constexpr TShiftState ssCtrl = 4;     ///< the Ctrl key
constexpr TShiftState ssLeft = 8;     ///< the left button
constexpr TShiftState ssRight = 16;   ///< the right button
constexpr TShiftState ssMiddle = 32;  ///< the middle button

/// The host's side of one control: the buffer that holds its picture.
class ZAVGEO_API TControlWindow {
 public:
  virtual ~TControlWindow() = default;

  /// Device pixels per control pixel, 1 on an ordinary screen.
  virtual double Scale() const = 0;
  /// Gives the buffer the control's size in control pixels; its content is kept as far as it fits.
  virtual void Resize(int32_t Width, int32_t Height) = 0;
  /// The buffer in control pixels: everything drawn is Scale() times larger in the buffer.
  virtual TCanvas& Canvas() = 0;
  /// The buffer in device pixels, the same canvas as Canvas() when the scale is 1.
  virtual TCanvas& DeviceCanvas() = 0;
  /// Shows the given parts of the buffer (control pixels) on the screen before it returns. Does
  /// nothing while the window is hidden.
  virtual void Show(std::span<const TRect> Areas) = 0;
  /// The mouse's shape over the control and what lies in it, as the framework numbers them: 0 is
  /// the ordinary one. Without effect where there is no mouse.
  virtual void SetCursor(int32_t /*Cursor*/) {}
};

/// A control: a part of a window that draws itself and takes events of the mouse.
class ZAVGEO_API TCustomControl : public TComponent {
 public:
  /// The host must outlive the control.
  TCustomControl(TComponent* Owner, THost& Host);
  ~TCustomControl() override;

  /// The host that was given to the constructor.
  THost& Host() const noexcept { return FHost; }
  /// The control's window, which the host has made.
  TControlWindow& Window() noexcept { return *FWindow; }
  /// The window's buffer in control pixels; may be drawn on at any time.
  TCanvas& Canvas() { return FWindow->Canvas(); }

  /// Control pixels, 0 or more.
  int32_t Width() const noexcept { return FWidth; }
  /// Control pixels, 0 or more.
  int32_t Height() const noexcept { return FHeight; }
  /// Sizes in control pixels; negative ones count as 0. Calls Resize() and Paint() when different.
  void SetSize(int32_t Width, int32_t Height);
  /// Whether the control is shown, as far as the program says. True at first.
  bool Visible() const noexcept { return FVisible; }
  /// Showing paints, hiding ends what the mouse has begun.
  void SetVisible(bool Visible);

  /// Draws the whole control and shows it, before it returns.
  virtual void Paint() {}

  /// Called by the host for each event; positions are control pixels. The base versions fire the
  /// events of the same name.
  virtual void MouseDown(TMouseButton Button, TShiftState Shift, int32_t X, int32_t Y);
  /// The mouse was moved.
  virtual void MouseMove(TShiftState Shift, int32_t X, int32_t Y);
  /// A button was let go.
  virtual void MouseUp(TMouseButton Button, TShiftState Shift, int32_t X, int32_t Y);

  /// The user's handlers. The sender is the first argument.
  using TMouseEvent =
      std::function<void(TCustomControl*, TMouseButton, TShiftState, int32_t X, int32_t Y)>;
  /// Handler of a move of the mouse.
  using TMouseMoveEvent = std::function<void(TCustomControl*, TShiftState, int32_t X, int32_t Y)>;
  /// Handler of what needs no arguments.
  using TNotifyEvent = std::function<void(TCustomControl*)>;
  TMouseEvent OnMouseDown;      ///< a button was pressed
  TMouseMoveEvent OnMouseMove;  ///< the mouse was moved
  TMouseEvent OnMouseUp;        ///< a button was let go
  TNotifyEvent OnResize;        ///< the control has another size

 protected:
  /// The control's size has changed; the window's buffer already has the new size.
  virtual void Resize();
  /// The control is no longer visible.
  virtual void Hidden() {}

 private:
  THost& FHost;
  int32_t FWidth = 0;
  int32_t FHeight = 0;
  bool FVisible = true;
  std::unique_ptr<TControlWindow> FWindow;
};

}  // namespace zav

#endif
