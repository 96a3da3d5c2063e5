/// @file
/// qt_host.h - the host of controls in a Qt application.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_QT_QT_HOST_H
#define ZAV_PLATFORM_QT_QT_HOST_H

#include <functional>
#include <memory>

#include <platform/base/api.h>
#include <platform/host/host.h>
#include <platform/qt/qt_clipboard.h>
#include <platform/qt/qt_fonts.h>
#include <platform/qt/qt_printer.h>

class QPrinter;
class QWidget;

namespace zav {

/// Must outlive the controls that it hosts. Texts need a QGuiApplication (the platform "offscreen"
/// will do), all else works without one.
class ZAVGEO_API TQtHost final : public THost {
 public:
  /// A host for pictures that are never on a screen, such as those of a command-line tool: each
  /// control draws on a buffer of its own, Scale device pixels a control pixel (0.1 to 16).
  explicit TQtHost(double Scale = 1);
  /// A host for the control that fills Widget, which must outlive the host.
  explicit TQtHost(QWidget& Widget);
  ~TQtHost() override;

  TFontEngine& Fonts() override { return FFonts; }
  std::unique_ptr<TControlWindow> CreateControlWindow(TCustomControl& Control) override;
  TClipboard& Clipboard() override { return FClipboard; }
  /// The printer that was set, else the desktop's default printer with its settings. Throws
  /// EPrinterError when there is none.
  TPrinter& Printer() override;
  /// Prints there from now on, such as into a TPdfPrinter; it must live as long as it is used.
  /// None: the default printer again.
  void SetPrinter(TPrinter* Printer) noexcept { FPrinter = Printer; }
  /// False without a QCoreApplication, too.
  bool ProcessMessages(const std::function<bool()>& Done) override;

 private:
  TQtFontEngine FFonts;
  TQtClipboard FClipboard;
  TPrinter* FPrinter = nullptr;
  std::unique_ptr<QPrinter> FDesktopPrinter;
  std::unique_ptr<TQtPrinter> FDefaultPrinter;
  QWidget* FWidget = nullptr;
  double FScale = 1;
};

}  // namespace zav

#endif
