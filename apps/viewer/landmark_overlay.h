// landmark_overlay.h - the shape in which landmarks are going to be deleted, drawn over the map.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LANDMARK_OVERLAY_H
#define ZAV_APPS_VIEWER_LANDMARK_OVERLAY_H

#include <QPolygonF>
#include <QWidget>

namespace zav {

class LandmarkOverlay final : public QWidget {
  Q_OBJECT

 public:
  // Lies over the widget, which owns it. Lets the mouse through.
  explicit LandmarkOverlay(QWidget& Widget);

  // In control pixels; an empty one hides it.
  void setShape(const QPolygonF& Shape);

 protected:
  bool eventFilter(QObject* Watched, QEvent* Event) override;
  void paintEvent(QPaintEvent* Event) override;

 private:
  QPolygonF FShape;
};

}  // namespace zav

#endif
