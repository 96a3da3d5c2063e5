// tool_measure.h - the length of a line of any number of straight pieces, measured with the rubber
// band; and that of the mouse's trace.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_TOOL_MEASURE_H
#define ZAV_APPS_VIEWER_TOOL_MEASURE_H

#include <QObject>
#include <QPointF>
#include <QPolygonF>
#include <QString>

#include "tool_length.h"

namespace zav {

class GeoMapWidget;
class ToolOverlay;

// Follows the rubber band while the widget's tool is that. What was measured stays on the map until
// the next line or clear(); zooming and moving the map in the middle of it are all right.
class MeasureTool final : public QObject {
  Q_OBJECT

 public:
  MeasureTool(GeoMapWidget& Widget, ToolOverlay& Overlay, QObject* Parent);

  bool isEmpty() const { return FLine.isEmpty(); }
  void clear();
  // The piece that follows the mouse is given up; the ones before it stay.
  void interrupt();
  // Takes the point put last away; the line goes on from the one before, or is gone. False when
  // there was none.
  bool takeBack();
  // The piece measured last or being measured, and the whole. Empty when there is nothing.
  QString text() const;
  // The area that the points enclose; empty for fewer than three, or without positions.
  QString areaText() const;
  // The whole alone.
  QString totalText() const;

 signals:
  void changed();

 private:
  void add(QPoint MapPixel, bool Last);
  void follow(QPointF MapPixel);
  void anchorAnew();
  void tell();
  MapLength total() const;

  GeoMapWidget& FWidget;
  ToolOverlay& FOverlay;
  QPolygonF FLine;      // pixels of the map image
  MapLength FMeasured;  // of the pieces that are fixed
  MapLength FPiece;     // the last of them, or the one that follows the mouse
  bool FOpen = false;   // a piece follows the mouse
  bool FAnchoring = false;
};

// The length of the trace as it grows.
class TraceTool final : public QObject {
  Q_OBJECT

 public:
  TraceTool(GeoMapWidget& Widget, QObject* Parent);

  bool isEmpty() const { return FCount == 0; }
  void clear();
  QString text() const;
  QString totalText() const;

 signals:
  void changed();

 private:
  void update();

  GeoMapWidget& FWidget;
  int FCount = 0;  // points that FLength has
  MapLength FLength;
};

}  // namespace zav

#endif
