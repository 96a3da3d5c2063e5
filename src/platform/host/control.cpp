// control.cpp - see control.h.
//
// A handler may destroy the control it is called for, and with it the event that holds the handler;
// so a copy is called, and nothing of the control is touched afterwards without asking for its
// life.
// SPDX-License-Identifier: MIT
#include <platform/host/control.h>

#include <algorithm>

#include <platform/host/host.h>

namespace zav {

TCustomControl::TCustomControl(TComponent* Owner, THost& Host)
    : TComponent(Owner), FHost(Host), FWindow(Host.CreateControlWindow(*this)) {}

TCustomControl::~TCustomControl() = default;

void TCustomControl::SetSize(int32_t Width, int32_t Height) {
  const int32_t width = std::max(Width, 0);
  const int32_t height = std::max(Height, 0);
  if (width == FWidth && height == FHeight) return;
  // The buffer first: when there is no memory for it, the control keeps its size.
  FWindow->Resize(width, height);
  FWidth = width;
  FHeight = height;
  const std::weak_ptr<const void> life = Life();
  Resize();
  if (!life.expired()) Paint();
}

void TCustomControl::SetVisible(bool Visible) {
  if (Visible == FVisible) return;
  FVisible = Visible;
  if (FVisible)
    Paint();
  else
    Hidden();
}

void TCustomControl::MouseDown(TMouseButton Button, TShiftState Shift, int32_t X, int32_t Y) {
  if (const TMouseEvent handler = OnMouseDown) handler(this, Button, Shift, X, Y);
}

void TCustomControl::MouseMove(TShiftState Shift, int32_t X, int32_t Y) {
  if (const TMouseMoveEvent handler = OnMouseMove) handler(this, Shift, X, Y);
}

void TCustomControl::MouseUp(TMouseButton Button, TShiftState Shift, int32_t X, int32_t Y) {
  if (const TMouseEvent handler = OnMouseUp) handler(this, Button, Shift, X, Y);
}

void TCustomControl::Resize() {
  if (const TNotifyEvent handler = OnResize) handler(this);
}

}  // namespace zav
