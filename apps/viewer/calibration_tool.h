// calibration_tool.h - placing, moving and removing calibration points on the map, by mouse and
// keys.
//
// While it is active it takes the mouse and the keys of the map widget before the map does: a click
// on a free place asks for the position of a new point, a drag of a point moves it, a drag of
// anything else moves the map. The wheel stays with the map.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_CALIBRATION_TOOL_H
#define ZAV_APPS_VIEWER_CALIBRATION_TOOL_H

#include <optional>

#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QString>
#include <QTimer>

#include <platform/base/geometry.h>

#include "calibration_editor.h"
#include "calibration_magnifier.h"
#include "calibration_overlay.h"
#include "position_readout.h"

class QKeyEvent;
class QMouseEvent;

namespace zav {

class CalibDocument;
class GeoMapWidget;
struct CalibItem;

class CalibrationTool final : public QObject {
  Q_OBJECT

 public:
  static constexpr double GrabDistance = 10;  // control pixels

  CalibrationTool(GeoMapWidget& Widget, CalibDocument& Document, QObject* Parent);

  bool isActive() const { return FActive; }
  void setActive(bool Active);
  // Active, and no other tool of the map, such as the zoom box, has been chosen.
  bool hasMouse() const;
  CalibrationOverlay& overlay() { return *FOverlay; }
  CalibrationMagnifier& magnifier() { return *FMagnifier; }
  CalibrationEditor& editor() { return *FEditor; }

  int selected() const { return FSelected; }  // id of an item, 0 = none
  void select(int Id);
  // Selects and brings it into view.
  void goTo(int Id);
  void selectNext(int Step);

  void setMagnifierOn(bool On);
  bool magnifierOn() const { return FMagnifierOn; }
  // How positions are written, in proposals too.
  void setFormat(ReadoutFormat Format) { FFormat = Format; }

  // Asks for the position of a new point at the mouse, or in the middle of the view.
  void addAtMouse();
  void addAt(TPoint MapPixel);
  // Asks for another position of the selected point.
  void editSelected();
  void removeSelected();
  void removeNearestToMouse();
  // Ends what is under way: a drag is taken back, a question is closed.
  void abort();

 signals:
  void selectionChanged(int Id);
  // What was refused, and why.
  void refused(const QString& Reason);
  void activeChanged(bool Active);
  // The right button was pressed on a point, which is selected.
  void menuRequested(QPoint GlobalPosition);
  // Another factor was chosen with the wheel.
  void magnifierChanged();

 protected:
  bool eventFilter(QObject* Watched, QEvent* Event) override;

 private:
  // What the pressed button does.
  enum class Drag { None, Press, Pan, Item, Pending };

  bool handleMap(QEvent* Event);
  void tellMouse(const QMouseEvent& Event);
  void press(const QMouseEvent& Event);
  void move(const QMouseEvent& Event);
  void release(const QMouseEvent& Event);
  bool handleKey(const QKeyEvent& Event);
  bool moveSelected(QPoint Step);
  void nudgePending(QPoint Step);
  void setPending(std::optional<TPoint> MapPixel);
  void dragTo(QPointF Control);
  void startPan();

  CalibrationEditor::Question questionFor(const CalibItem* Item, TPoint Pixel);
  CalibrationEditor::Reading readText(const QString& Text) const;
  CalibrationEditor::Reading readLine(const QString& Text) const;
  QString proposalAt(TPoint Pixel) const;
  QString distanceText(const TCoords& Position) const;
  bool canPropose() const;
  void acceptAnswer(const QString& Position, const QString& Name);

  QPointF controlOf(TPoint MapPixel) const;
  TPoint pixelUnder(QPointF Control) const;
  int itemNear(QPointF Control) const;
  bool onImage(TPoint MapPixel) const;
  TPoint insideImage(TPoint MapPixel) const;
  void updateMagnifier();
  void updateCursor();

  GeoMapWidget& FWidget;
  CalibDocument& FDocument;
  CalibrationOverlay* FOverlay;
  CalibrationMagnifier* FMagnifier;
  CalibrationEditor* FEditor;
  bool FActive = false;
  bool FMagnifierOn = true;
  ReadoutFormat FFormat = ReadoutFormat::Degrees;
  int FSelected = 0;

  Drag FDrag = Drag::None;
  QPointF FPressed;
  QPointF FMouse;
  bool FMouseInside = false;
  bool FMoved = false;  // far enough to be a drag
  bool FSpaceDown = false;
  bool FTelling = false;           // a move is passed on to the map
  bool FCursorSet = false;         // by this tool
  TPoint FGrabbed;                 // the map pixel that was taken hold of
  TPoint FPanAnchor;               // where the view began to be dragged
  std::optional<TPoint> FPending;  // of the point that the editor asks about
  int FEdited = 0;                 // the item that the editor asks about, 0 = a new one
  bool FAsksLine = false;          // it asks for a graticule line
  QString FLastLine;               // the graticule line that was marked last
  QTimer FKeyPause;                // a pause between arrow keys ends the step of undo
};

}  // namespace zav

#endif
