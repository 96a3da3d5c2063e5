// qt_host.cpp - the host of controls in a Qt application.
// SPDX-License-Identifier: MIT
#include <platform/qt/qt_host.h>

#include <QCoreApplication>
#include <QWidget>

#include <platform/qt/qt_control_window.h>

namespace zav {

TQtHost::TQtHost(double Scale) : FScale(Scale) {}

TQtHost::TQtHost(QWidget& Widget) : FWidget(&Widget), FScale(Widget.devicePixelRatioF()) {}

std::unique_ptr<TControlWindow> TQtHost::CreateControlWindow(TCustomControl& /*Control*/) {
  return std::make_unique<TQtControlWindow>(FFonts, FScale, FWidget);
}

void TQtHost::ProcessMessages() {
  if (QCoreApplication::instance() != nullptr) QCoreApplication::processEvents();
}

}  // namespace zav
