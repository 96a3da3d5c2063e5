/// @file
/// qt_control_window.h - the buffer that holds a control's picture, and how it gets onto a widget.
///
/// The buffer counts device pixels: ceil(size * scale), 15 bits a pixel as the control draws them.
/// A paint event of the widget only copies from it.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_QT_QT_CONTROL_WINDOW_H
#define ZAV_PLATFORM_QT_QT_CONTROL_WINDOW_H

#include <memory>

#include <QImage>

#include <platform/base/api.h>
#include <platform/host/control.h>
#include <platform/raster/bitmap.h>

class QPainter;
class QRegion;
class QWidget;

namespace zav {

class TScaledCanvas;
class TRasterCanvas;

/// The buffer of one control.
class ZAVGEO_API TQtControlWindow final : public TControlWindow {
 public:
  /// Without a widget the picture is in memory only. Fonts and the widget must outlive the window.
  /// The scale is kept within 0.1 to 16.
  TQtControlWindow(TFontEngine& Fonts, double Scale, QWidget* Widget);
  ~TQtControlWindow() override;

  double Scale() const override { return FScale; }
  void Resize(int32_t Width, int32_t Height) override;
  TCanvas& Canvas() override;
  TCanvas& DeviceCanvas() override;
  void Show(std::span<const TRect> Areas) override;

  /// Changes the device pixels per control pixel; the picture has to be drawn anew then.
  void SetScale(double Scale);
  /// While true, Show() leaves the widget to the paint event that Qt is about to send.
  void SetPaintPending(bool Pending) noexcept { FPaintPending = Pending; }

  /// Copies the part of the picture that covers Region (control pixels) to the painter of the
  /// widget, each device pixel onto one of the screen.
  void CopyTo(QPainter& Painter, const QRegion& Region);

  /// The picture in device pixels.
  const TBitmap& Buffer() const noexcept { return FBuffer; }

 private:
  void FitBuffer();
  void UpdateShadow(const QRect& Area);

  double FScale = 1;
  int32_t FWidth = 0;
  int32_t FHeight = 0;
  QWidget* FWidget;
  bool FPaintPending = false;
  TBitmap FBuffer;
  std::unique_ptr<TRasterCanvas> FDeviceCanvas;
  std::unique_ptr<TScaledCanvas> FScaledCanvas;
  QImage FShadow;  // what of the buffer was shown last, 32 bits a pixel
};

}  // namespace zav

#endif
