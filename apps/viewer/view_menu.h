// view_menu.h - the menu and the actions that change the view: zoom, fit, history, smoothing,
// frame.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_VIEW_MENU_H
#define ZAV_APPS_VIEWER_VIEW_MENU_H

#include <functional>
#include <optional>

#include <QList>
#include <QMenu>
#include <QPointer>

#include <platform/qt/geo_map_widget.h>

#include "icons.h"
#include "view_history.h"

class QAction;
class QActionGroup;
class QKeySequence;
class QSettings;
class QToolBar;

namespace zav {

// Keeps the map in the middle of a window that is larger than the map, and a fitted map fitted when
// the window changes.
class ViewMenu final : public QMenu, private TGeoMapObserver {
  Q_OBJECT

 public:
  // The widget must outlive the menu, which takes the map's OnResize and OnDataRendered.
  explicit ViewMenu(GeoMapWidget& Widget, QWidget* Parent = nullptr);
  ~ViewMenu() override;

  void addTo(QToolBar& ToolBar) const;

  // A map that has just been opened: the whole of it if it is larger than the window, else its
  // actual size; the history begins anew.
  void showOpened();
  // The whole map, enlarged twice at most.
  void showWhole();
  // Same point of the map in the middle; 0.5 to 2.
  void setMagnification(double Magnification);
  // Adds the view shown now to the history.
  void remember();
  // A map that was come to in another way: Place shows the part of it that is wanted. Exact: that
  // stays even where it reaches beyond the map's edge, until the view is changed. The history
  // begins with it.
  void showArrived(const std::function<void()>& Place, bool Exact);
  // The views of the map, and going back to them when it is shown again.
  ViewTrail trail() { return FHistory.trail(); }
  void showTrail(const ViewTrail& Trail);
  // Whether there are maps to go to before the first view and after the last.
  void setMapsAround(bool Before, bool After);

  void load(const QSettings& Settings);
  void save(QSettings& Settings) const;

 signals:
  void viewChanged();
  // The views of this map are used up: -1 for the map before, 1 for the one after.
  void mapWanted(int Direction);

 private:
  void ViewChanged(TGeoMap& Map) override;
  void ImageChanged(TGeoMap& Map) override;

  void addZoom();
  void addHistory();
  void addLook();
  QAction* addCommand(ViewerIcon Icon, const QString& Text, const QString& Tip,
                      const QList<QKeySequence>& Keys);
  TSize controlSize() const { return {FMap.Width(), FMap.Height()}; }
  TSize mapSize() const { return {FMap.MapImgWidth(), FMap.MapImgHeight()}; }
  void show(const TViewState& View);
  void showFitted(double Largest);
  void tidy();
  void resized();
  void updateActions();

  GeoMapWidget& FWidget;
  QPointer<GeoMapWidget> FAliveWidget;  // none once the window has deleted it before the menu
  TGeoMap& FMap;
  ViewHistory FHistory;
  // The view that was fitted to the window; it is fitted again until something else is shown.
  TViewState FFitted;
  double FFittedLargest = 0;  // 0 = none
  // The view that was arrived with; it is left as it is until something else is shown.
  std::optional<TViewState> FArrived;
  bool FArriving = false;
  bool FMapBefore = false;
  bool FMapAfter = false;

  QAction* FZoomIn = nullptr;
  QAction* FZoomOut = nullptr;
  QAction* FWhole = nullptr;
  QAction* FActualSize = nullptr;
  QAction* FBack = nullptr;
  QAction* FForward = nullptr;
  QAction* FSmooth = nullptr;
  QAction* FConfine = nullptr;
  QActionGroup* FFrames = nullptr;
};

}  // namespace zav

#endif
