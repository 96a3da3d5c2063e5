// tool_menu.h - what the left mouse button does on the map: a menu, a tool bar, cursors and hints.
//
// Measured lengths and the selected rectangle belong to the tools and are kept here. Esc ends what
// was begun, else takes these away and goes back to moving the map.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_TOOL_MENU_H
#define ZAV_APPS_VIEWER_TOOL_MENU_H

#include <functional>

#include <QCursor>
#include <QList>
#include <QMenu>
#include <QPointF>
#include <QRect>
#include <QString>

#include <platform/qt/geo_map_widget.h>

class QAction;
class QActionGroup;
class QLabel;
class QStatusBar;
class QToolBar;

namespace zav {

class MeasureTool;
class SelectionTool;
class ToolOverlay;
class TraceTool;

class ToolMenu final : public QMenu {
  Q_OBJECT

 public:
  using Tool = GeoMapWidget::MouseMode;

  // The widget must outlive the menu. TextAt: a pixel of the map image as text for people.
  ToolMenu(GeoMapWidget& Widget, std::function<QString(QPointF)> TextAt, QWidget* Parent);

  void addTo(QToolBar& Bar) const;
  // How the tool is used, or what was measured.
  void addHintTo(QStatusBar& Bar);

  void choose(Tool Mode);
  // Another tool of the program has the mouse while the map is not measured, selected or zoomed:
  // cursor and hint are its own then.
  void setMouseTaken(bool Taken);
  // The left button moves the map, and nothing else.
  bool hasHand() const { return tool() == Tool::Pan && !FMouseTaken; }
  // Whether an error of the widget was that a zooming tool met a limit. That is dealt with: a box
  // that is too small for the largest magnification is shown in the middle.
  bool dealsWith(const QString& Error);

  MeasureTool& measure() { return *FMeasure; }
  SelectionTool& selection() { return *FSelection; }
  TraceTool& trace() { return *FTrace; }

 signals:
  // A word for the status bar.
  void told(const QString& Text);
  void copyText(const QString& Text);
  void saveRectangle(const QRect& MapPixels);
  // The view was changed by a tool that is not the control's own.
  void viewChosen();

 protected:
  bool eventFilter(QObject* Watched, QEvent* Event) override;

 private:
  QAction* addTool(Tool Mode);
  void addResults();
  Tool tool() const { return FWidget.mouseMode(); }
  bool busy() const;
  bool handleEscape();
  void clearResults();
  QString resultText() const;
  QString lengthText() const;
  void zoomTo(const QRect& MapPixels);
  void showTool();
  void showCursor(bool Pressed);
  void update();

  GeoMapWidget& FWidget;
  ToolOverlay* FOverlay;
  MeasureTool* FMeasure;
  SelectionTool* FSelection;
  TraceTool* FTrace;
  QActionGroup* FTools;
  QAction* FCopyLength = nullptr;
  QAction* FCopyArea = nullptr;
  QAction* FClear = nullptr;
  QStatusBar* FStatus = nullptr;
  QLabel* FHint = nullptr;
  bool FMouseTaken = false;
};

}  // namespace zav

#endif
