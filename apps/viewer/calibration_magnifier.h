// calibration_magnifier.h - a small window over the map that shows the pixels about one of them,
// four to eight times as large, with a cross hair on it.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_CALIBRATION_MAGNIFIER_H
#define ZAV_APPS_VIEWER_CALIBRATION_MAGNIFIER_H

#include <QPoint>
#include <QRect>
#include <QWidget>

#include <platform/base/geometry.h>

namespace zav {

class GeoMapWidget;

// A child of the map widget that takes no events.
class CalibrationMagnifier final : public QWidget {
  Q_OBJECT

 public:
  static constexpr int MinFactor = 4;
  static constexpr int MaxFactor = 8;

  explicit CalibrationMagnifier(GeoMapWidget& Widget);

  int factor() const { return FFactor; }
  // Values out of range are brought into it.
  void setFactor(int Factor);
  // The map pixel that the cross hair is on.
  TPoint center() const { return FCenter; }
  // Shows itself beside a point of the map widget, where there is room and it does not cover Avoid.
  void showAt(TPoint MapPixel, QPoint Beside, const QRect& Avoid = {});

 protected:
  void paintEvent(QPaintEvent* Event) override;

 private:
  // Map pixels in a row; odd, so that one is in the middle.
  int pixelsAcross() const;
  QImage pixels() const;
  void fitSize();

  GeoMapWidget& FWidget;
  int FFactor = 6;
  TPoint FCenter;
};

}  // namespace zav

#endif
