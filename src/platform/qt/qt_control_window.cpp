// qt_control_window.cpp - the buffer that holds a control's picture, and how it gets onto a widget.
// SPDX-License-Identifier: MIT
#include <platform/qt/qt_control_window.h>

#include <algorithm>
#include <cmath>

#include <QPainter>
#include <QRect>
#include <QRegion>
#include <QWidget>

#include <platform/host/scaled_canvas.h>
#include <platform/qt/qt_convert.h>
#include <platform/raster/raster_canvas.h>
#include <platform/raster/row_convert.h>

namespace zav {

namespace {

constexpr double MinScale = 0.1;
constexpr double MaxScale = 16;

// NaN counts as 1.
double CheckedScale(double Scale) {
  return std::isnan(Scale) ? 1 : std::clamp(Scale, MinScale, MaxScale);
}

// Qt draws high parts of a region in several threads. To wake them takes longer than to copy the
// edges of a box, so narrow parts are drawn in pieces that are not high.
constexpr int NarrowWidth = 128;
constexpr int NarrowRows = 64;

// A tiny excess, such as 1.1 * 10 has, does not add a pixel.
int32_t DevicePixels(int32_t Size, double Scale) {
  constexpr double MostPixels = 32767;
  return static_cast<int32_t>(std::min(std::ceil(Size * Scale - 1e-6), MostPixels));
}

// All device pixels that a rectangle of control pixels touches.
QRect DeviceArea(const QRect& Area, double Scale) {
  return QRectF(Area.x() * Scale, Area.y() * Scale, Area.width() * Scale, Area.height() * Scale)
      .toAlignedRect();
}

}  // namespace

TQtControlWindow::TQtControlWindow(TFontEngine& Fonts, double Scale, QWidget* Widget)
    : FScale(CheckedScale(Scale)),
      FWidget(Widget),
      FBuffer(TPixelFormat::pf15bit),
      FDeviceCanvas(std::make_unique<TRasterCanvas>(FBuffer, &Fonts)),
      FScaledCanvas(std::make_unique<TScaledCanvas>(*FDeviceCanvas, FScale)) {}

TQtControlWindow::~TQtControlWindow() = default;

TCanvas& TQtControlWindow::Canvas() {
  if (FScale == 1) return *FDeviceCanvas;
  return *FScaledCanvas;
}

TCanvas& TQtControlWindow::DeviceCanvas() { return *FDeviceCanvas; }

void TQtControlWindow::Resize(int32_t Width, int32_t Height) {
  FWidth = std::max(Width, 0);
  FHeight = std::max(Height, 0);
  FitBuffer();
}

void TQtControlWindow::SetScale(double Scale) {
  const double Checked = CheckedScale(Scale);
  if (Checked == FScale) return;
  FScale = Checked;
  FScaledCanvas = std::make_unique<TScaledCanvas>(*FDeviceCanvas, FScale);
  FitBuffer();
}

void TQtControlWindow::FitBuffer() {
  FBuffer.SetSize(DevicePixels(FWidth, FScale), DevicePixels(FHeight, FScale));
  FShadow = {};
}

void TQtControlWindow::Show(std::span<const TRect> Areas) {
  if (FWidget == nullptr || !FWidget->isVisible()) return;
  QRegion Region;
  // At a fractional scale a control pixel shares device pixels with its neighbours.
  const int Shared = FScale == std::floor(FScale) ? 0 : 1;
  for (const QRect& Area : ToQRegion(Areas))
    Region += Area.adjusted(-Shared, -Shared, Shared, Shared);
  Region &= FWidget->rect();
  if (Region.isEmpty()) return;
  // Qt cannot paint within a paint event, and need not when one comes anyway.
  if (FPaintPending || FWidget->testAttribute(Qt::WA_WState_InPaintEvent))
    FWidget->update(Region);
  else
    FWidget->repaint(Region);
}

void TQtControlWindow::UpdateShadow(const QRect& Area) {
  if (FShadow.isNull()) FShadow = QImage(FBuffer.Width(), FBuffer.Height(), QImage::Format_RGB32);
  for (int Y = Area.top(); Y <= Area.bottom(); ++Y)
    ConvertRow(TPixelFormat::pf32bit, FShadow.scanLine(Y) + ptrdiff_t{4} * Area.left(),
               TPixelFormat::pf15bit, FBuffer.Row(Y) + ptrdiff_t{2} * Area.left(), Area.width());
}

void TQtControlWindow::CopyTo(QPainter& Painter, const QRegion& Region) {
  if (FBuffer.Empty()) return;
  Painter.save();
  // From here on the painter counts device pixels, so that nothing is scaled. Where the widget lies
  // between device pixels, Qt moves picture and clip to the same whole one.
  Painter.scale(1 / FScale, 1 / FScale);
  const QRect Whole(0, 0, FBuffer.Width(), FBuffer.Height());
  for (const QRect& Part : Region) {
    const QRect Area = DeviceArea(Part, FScale) & Whole;
    if (Area.isEmpty()) continue;
    UpdateShadow(Area);
    const int Rows = Area.width() < NarrowWidth ? NarrowRows : Area.height();
    for (int Top = Area.top(); Top <= Area.bottom(); Top += Rows) {
      const QRect Rest(Area.left(), Top, Area.width(), Area.bottom() - Top + 1);
      const QRect Piece = Rest.intersected({Area.left(), Top, Area.width(), Rows});
      Painter.drawImage(Piece.topLeft(), FShadow, Piece);
    }
  }
  Painter.restore();
}

}  // namespace zav
