// landmark_tool.h - placing, picking, moving and deleting landmarks on the map with the mouse.
//
// While it is active it takes from the map's mouse what it needs: a drag of a landmark, a click, or
// a drag of the shape in which landmarks are deleted. All else, such as dragging the map, stays
// with the map.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LANDMARK_TOOL_H
#define ZAV_APPS_VIEWER_LANDMARK_TOOL_H

#include <optional>

#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QString>
#include <QTimer>

#include <geomap/calibration/calib_data.h>
#include <geomap/landmarks/landmark.h>

#include "landmark_picker.h"

class QKeyEvent;
class QMouseEvent;

namespace zav {

class GeoMapWidget;
class LandmarkDocument;
class LandmarkOverlay;

enum class LandmarkMode { Select, Add, Delete, DeleteCircle, DeleteRectangle };

class LandmarkTool final : public QObject {
  Q_OBJECT

 public:
  static constexpr double GrabDistance = 10;  // control pixels

  // Both must outlive the tool.
  LandmarkTool(GeoMapWidget& Widget, LandmarkDocument& Document, QObject* Parent);

  bool isActive() const { return FActive; }
  void setActive(bool Active);
  // Active, on a map, and no other tool of the map has been chosen.
  bool hasMouse() const;
  LandmarkMode mode() const { return FMode; }
  void setMode(LandmarkMode Mode);

  // How new landmarks look; its position counts not.
  const TLandMark& look() const { return FLook; }
  void setLook(const TLandMark& Look) { FLook = Look; }

  int selected() const { return FSelected; }  // 0 = none
  void select(int Landmark);
  // Selects and brings it into view.
  void goTo(int Landmark);
  void removeSelected();
  // Ends what is under way: a drag is taken back, a shape is dropped.
  void abort();

 signals:
  void activeChanged(bool Active);
  void modeChanged();
  void selectionChanged(int Landmark);
  void added(int Landmark);
  // For people: what was done, and what could not be.
  void done(const QString& Text);
  void refused(const QString& Text);
  // The right button was pressed on a landmark, which is selected.
  void menuRequested(QPoint GlobalPosition);

 protected:
  bool eventFilter(QObject* Watched, QEvent* Event) override;

 private:
  enum class Drag { None, Landmark, Shape };

  bool handleMap(QEvent* Event);
  bool press(const QMouseEvent& Event);
  bool move(const QMouseEvent& Event);
  bool release(const QMouseEvent& Event);
  bool handleKey(const QKeyEvent& Event);
  bool moveSelected(QPoint Step);
  void click(QPoint Control);
  void addAt(QPointF Control);
  void moveTo(QPointF Control);
  void showShape(QPointF To);
  void removeInShape(QPointF To);
  void removeVisible(const QString& Text, const std::function<bool(const TLandMark&)>& Inside);
  void updateCursor();
  void updateRing();

  int landmarkAt(QPointF Control);
  std::optional<TCoords> positionAt(QPointF Control) const;
  QPointF controlOf(const TCoords& Position, bool& Known) const;

  GeoMapWidget& FWidget;
  LandmarkDocument& FDocument;
  LandmarkOverlay* FOverlay;
  LandmarkPicker FPicker;
  TLandMark FLook;
  LandmarkMode FMode = LandmarkMode::Select;
  bool FActive = false;
  bool FCursorSet = false;
  int FSelected = 0;
  Drag FDrag = Drag::None;
  bool FMoved = false;  // far enough to be a drag
  QPointF FPressed;
  QPointF FMouse;
  QPointF FGrabbed;  // where the landmark was in the control
  QTimer FKeyPause;  // a pause between arrow keys ends the step of undo
};

}  // namespace zav

#endif
