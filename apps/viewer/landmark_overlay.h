// landmark_overlay.h - a ring about the selected landmark, and the shape in which landmarks are
// going to be deleted, drawn over the map in the window. They are no part of the map.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LANDMARK_OVERLAY_H
#define ZAV_APPS_VIEWER_LANDMARK_OVERLAY_H

#include <optional>

#include <QPointF>
#include <QPolygonF>
#include <QWidget>

namespace zav {

class LandmarkOverlay final : public QWidget {
  Q_OBJECT

 public:
  // Lies over the widget, which owns it. Lets the mouse through.
  explicit LandmarkOverlay(QWidget& Widget);

  // Both in control pixels.
  void setShape(const QPolygonF& Shape);
  void setRing(const std::optional<QPointF>& Middle);

 protected:
  bool eventFilter(QObject* Watched, QEvent* Event) override;
  void paintEvent(QPaintEvent* Event) override;

 private:
  QPolygonF FShape;
  std::optional<QPointF> FRing;
};

}  // namespace zav

#endif
