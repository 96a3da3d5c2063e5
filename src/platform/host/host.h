/// @file
/// host.h - what the library asks of the framework it runs in.
///
/// One host object is passed to every control; nothing here is global. There are two hosts: the Qt
/// adapter's, and the one of the tests, which needs no display.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_HOST_HOST_H
#define ZAV_PLATFORM_HOST_HOST_H

#include <functional>
#include <memory>

#include <platform/base/api.h>
#include <platform/host/clipboard.h>
#include <platform/host/control.h>
#include <platform/host/font.h>
#include <platform/host/printer.h>
#include <platform/host/widgets.h>

namespace zav {

/// What a framework gives to the controls that run in it.
class ZAVGEO_API THost {
 public:
  virtual ~THost() = default;

  /// Measures and draws texts; lives as long as the host.
  virtual TFontEngine& Fonts() = 0;
  /// Makes the window of a control. Called once by the control's constructor; the control owns it.
  virtual std::unique_ptr<TControlWindow> CreateControlWindow(TCustomControl& Control) = 0;
  /// Makes the panel at the top of a compound control, which owns it.
  virtual std::unique_ptr<TPanel> CreatePanel(TCustomControl& /*Parent*/, int32_t Height) {
    return MakeUnseenPanel(Height);
  }
  /// Delivers the application's events, asleep between them, until Done() is true. False when it
  /// never will be, because the application ends: whoever waits for the user gives up then. The
  /// host and its controls may be destroyed meanwhile.
  virtual bool ProcessMessages(const std::function<bool()>& Done) = 0;

  /// Lives as long as the host. A host that has none throws EZAVError.
  virtual TClipboard& Clipboard() { throw EZAVError("There is no clipboard"); }
  /// Where the maps that use this host print; lives as long as the host. A host that has none
  /// throws EPrinterError.
  virtual TPrinter& Printer() { throw EPrinterError("There is no printer"); }
};

}  // namespace zav

#endif
