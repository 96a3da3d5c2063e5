// qt_host.cpp - the host of controls in a Qt application.
// SPDX-License-Identifier: MIT
#include <platform/qt/qt_host.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>
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

bool TQtHost::ProcessMessages(const std::function<bool()>& Done) {
  const auto* Dispatcher = QAbstractEventDispatcher::instance();
  if (QCoreApplication::instance() == nullptr || Dispatcher == nullptr) return false;
  if (Done()) return true;
  // A loop that runs comes back, too, when the application is told to exit. Nothing of the host is
  // touched from here on.
  QEventLoop Loop;
  const auto LeaveWhenDone = [&] {
    if (Done()) Loop.quit();
  };
  QObject::connect(Dispatcher, &QAbstractEventDispatcher::aboutToBlock, &Loop, LeaveWhenDone);
  QObject::connect(Dispatcher, &QAbstractEventDispatcher::awake, &Loop, LeaveWhenDone);
  Loop.exec();
  return Done();
}

}  // namespace zav
