// tool_overlay.h - a measured line and a selected rectangle, drawn over the map in the window. They
// are no part of the map: pictures and pages do not have them.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_TOOL_OVERLAY_H
#define ZAV_APPS_VIEWER_TOOL_OVERLAY_H

#include <optional>

#include <QPolygonF>
#include <QRect>
#include <QString>
#include <QWidget>

namespace zav {

class GeoMapWidget;

class ToolOverlay final : public QWidget {
  Q_OBJECT

 public:
  // Lies over the widget, which owns it. Invisible when there is nothing to draw.
  explicit ToolOverlay(GeoMapWidget& Widget);

  // Both in pixels of the map image. The label stands at the line's end.
  void setLine(const QPolygonF& Line, const QString& Label);
  void setRectangle(const std::optional<QRect>& Rectangle);

  // Where a pixel of the map image is in the widget.
  QPointF controlOf(QPointF MapPixel) const;

 protected:
  bool eventFilter(QObject* Watched, QEvent* Event) override;
  void paintEvent(QPaintEvent* Event) override;

 private:
  void updateShown();
  void drawLine(QPainter& Painter) const;
  void drawLabel(QPainter& Painter, QPointF Beside) const;
  void drawRectangle(QPainter& Painter) const;

  GeoMapWidget& FWidget;
  QPolygonF FLine;
  QString FLabel;
  std::optional<QRect> FRectangle;
};

}  // namespace zav

#endif
