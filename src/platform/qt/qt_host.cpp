// qt_host.cpp - the host of controls in a Qt application.
// SPDX-License-Identifier: MIT
#include <platform/qt/qt_host.h>

#include <QCoreApplication>
#include <QPrinter>
#include <QPrinterInfo>
#include <QWidget>

#include <platform/qt/qt_control_window.h>

namespace zav {

TQtHost::TQtHost(double Scale) : FScale(Scale) {}

TQtHost::TQtHost(QWidget& Widget) : FWidget(&Widget), FScale(Widget.devicePixelRatioF()) {}

TQtHost::~TQtHost() = default;

TPrinter& TQtHost::Printer() {
  if (FPrinter != nullptr) return *FPrinter;
  if (FDefaultPrinter == nullptr) {
    // Without a printer Qt would write a file of its own choice.
    const QPrinterInfo Default = QPrinterInfo::defaultPrinter();
    if (Default.isNull()) throw EPrinterError("There is no printer");
    FDesktopPrinter = std::make_unique<QPrinter>(Default, QPrinter::HighResolution);
    FDefaultPrinter = std::make_unique<TQtPrinter>(*FDesktopPrinter);
  }
  return *FDefaultPrinter;
}

std::unique_ptr<TControlWindow> TQtHost::CreateControlWindow(TCustomControl& /*Control*/) {
  return std::make_unique<TQtControlWindow>(FFonts, FScale, FWidget);
}

void TQtHost::ProcessMessages() {
  if (QCoreApplication::instance() != nullptr) QCoreApplication::processEvents();
}

}  // namespace zav
