// calibration_overlay.h - the points of a calibration drawn over the map.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_CALIBRATION_OVERLAY_H
#define ZAV_APPS_VIEWER_CALIBRATION_OVERLAY_H

#include <optional>

#include <QPointF>
#include <QWidget>

#include <geomap/view/view_state.h>

class QPainter;

namespace zav {

class CalibDocument;
class GeoMapWidget;
struct CalibItem;
struct CalibResidual;

// The middle of a map pixel in the control, and the map pixel that a point of the control lies in.
QPointF ControlOf(const TViewState& View, TPoint MapPixel);
TPoint MapPixelUnder(const TViewState& View, QPointF Control);

// A child of the map widget, as large as it, that takes no events.
class CalibrationOverlay final : public QWidget {
  Q_OBJECT

 public:
  CalibrationOverlay(GeoMapWidget& Widget, const CalibDocument& Document);

  void setSelected(int Id);
  // The place of a point that is about to be added.
  void setPending(std::optional<TPoint> MapPixel);
  void setShowNames(bool On);
  bool showNames() const { return FShowNames; }
  // How many times longer than they are residuals are drawn; 0 = not at all.
  void setResidualFactor(int Factor);
  int residualFactor() const { return FResidualFactor; }

 protected:
  void paintEvent(QPaintEvent* Event) override;
  bool eventFilter(QObject* Watched, QEvent* Event) override;

 private:
  void drawItem(QPainter& Painter, int Index) const;
  void drawResidual(QPainter& Painter, QPointF At, const CalibResidual& Residual) const;
  void drawName(QPainter& Painter, QPointF At, int Index) const;

  GeoMapWidget& FWidget;
  const CalibDocument& FDocument;
  int FSelected = 0;
  std::optional<TPoint> FPending;
  bool FShowNames = true;
  int FResidualFactor = 0;
};

}  // namespace zav

#endif
