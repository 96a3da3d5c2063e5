// main_window.h - the viewer's window: map, list of maps, menus, tool bar, position in the status
// bar.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_MAIN_WINDOW_H
#define ZAV_APPS_VIEWER_MAIN_WINDOW_H

#include <functional>
#include <optional>
#include <vector>

#include <QMainWindow>
#include <QPointF>
#include <QString>
#include <QStringList>

#include "atlas_history.h"
#include "command_line.h"
#include "map_list.h"
#include "map_source.h"
#include "recovery_folder.h"

class QAction;
class QDockWidget;
class QLabel;
class QListView;
class QMenu;
class QSettings;

namespace zav {

class AtlasNavigator;
class Autosave;
class CalibrationMenu;
class CalibrationWorkbench;
class ExportMenu;
class GeoAtlasWidget;
class GeoMapWidget;
class GoToDialog;
class GraticuleMenu;
class LayerDock;
class Layers;
class LandmarkMenu;
class LandmarkWorkbench;
class MapPointer;
class MessageBar;
class PlaceMark;
class ReadoutButton;
class TGeoMap;
class ToolMenu;
class ViewMenu;
struct AtlasPlace;
struct GoToPlace;
struct TEmptyMap;

class MainWindow final : public QMainWindow {
  Q_OBJECT

 public:
  // The settings must outlive the window; without them nothing is remembered.
  explicit MainWindow(QSettings* Settings, QWidget* Parent = nullptr);
  ~MainWindow() override;

  // These return what went wrong, which is shown in the window too; empty = nothing.
  // Opens files and folders: more than one map makes a list, and the first of them that can be
  // shown is shown.
  QString openAll(const QStringList& Paths);
  // Sets graticule and view as the command line says.
  QString applyView(const ViewerOptions& Options);
  // Writes the window as a picture, PNG unless the name ends in .jpg, .jpeg or .bmp.
  QString saveScreenshot(const QString& Path);

  // Writes the maps of the list to a file that opens them all.
  QString saveAtlasList(const QString& Path);

  // From now on unsaved work is kept in a folder; offers what a viewer that crashed has left there.
  void keepWork(const QString& Folder);

  // Makes a map, writes it and opens it.
  QString createMap(const TEmptyMap& Plan, const QString& Path);
  // Shows the place on the map, or on one of the list that has it.
  void goToPlace(const GoToPlace& Place);

  GeoMapWidget& mapWidget() { return *FWidget; }
  GeoAtlasWidget& atlasWidget() { return *FAtlas; }
  QString message() const;
  // Nullptr unless unsaved work is kept.
  Autosave* autosave() { return FAutosave; }
  CalibrationWorkbench& calibration() { return *FCalibration; }
  ToolMenu& tools() { return *FTools; }
  LandmarkWorkbench& landmarks() { return *FLandmarks; }
  Layers& layers() { return *FLayers; }

 protected:
  bool eventFilter(QObject* Watched, QEvent* Event) override;
  void closeEvent(QCloseEvent* Event) override;
  void dragEnterEvent(QDragEnterEvent* Event) override;
  void dropEvent(QDropEvent* Event) override;

 private:
  static constexpr int LayoutVersion = 1;  // of docks and tool bars in the settings

  TGeoMap& map();
  void makeCenter();
  void makeList();
  void makeStatusBar();
  void makeMenus();
  void makeCalibration(QMenu& File, QMenu& Edit);
  void makeExport(QMenu& File, QMenu& Edit);
  void makeTools();
  void makePointer();
  bool mouseIsOnMap() const;
  void makeLandmarks(QMenu& File, QMenu& Edit);
  void restoreLandmarks();
  QStringList openLandmarks(const QStringList& Paths, QString& Problem);
  void makeGeodesy(QMenu& File, QMenu& Edit);
  void askNewMap();
  void makeLayers(QMenu& File);
  void askDatabases();
  QStringList openDatabases(const QStringList& Paths, QString& Problem);
  void makeAtlas(QMenu& File);
  void makeAtlasTool();
  QString openAtlas(QList<MapSource> Sources);
  void closeAtlas();
  void askAtlasList();
  void updateAtlas();
  void loadMap(const MapSource& Source);
  MapSource sourceOf(int Index) const;
  void wheelTo(int Index, const AtlasPlace& Place);
  void goTo(int Index, const AtlasPlace& Place);
  void goFromMiddle(int Direction);
  void stepThroughMaps(int Direction);
  void fillRecentMenu();
  void restore();

  void offerLeftWork();
  void recoverLeftWork();
  // Whether it was recovered; nothing when the user stays with the work that is open.
  std::optional<bool> recoverCalibration(const LeftWork& Left);
  std::optional<bool> recoverLandmarks(const LeftWork& Left);

  void askFiles();
  void askFolder();
  QString openList(const QList<MapSource>& Sources);
  // Arrive shows the part of the map that is wanted, the whole map without it. Step: the way to it
  // through the maps that were shown.
  QString showMap(const MapSource& Source, const std::function<void()>& Arrive = nullptr,
                  int Step = 0);
  QString report(const QString& Problem);
  QString reportSource(const MapSource& Source);
  void showMapMenu(QPoint Position);
  void showAbout();

  // What is at a point of the control.
  QPointF mapPixelAt(QPointF Control);
  QPointF middleOfPixel(QPointF MapPosition);
  std::optional<TCoords> positionAt(QPointF MapPixel);
  QString textAt(QPointF MapPixel);
  void copyText(const QString& Text);
  void updateReadout();
  void calibrationChanged();
  void calibrationSaved(const QString& Path);
  void updateStatus();

  QSettings* FSettings;
  GeoAtlasWidget* FAtlas = nullptr;
  GeoMapWidget* FWidget = nullptr;  // the atlas's
  AtlasNavigator* FNavigator = nullptr;
  AtlasHistory FVisits;
  QAction* FSaveAtlas = nullptr;
  QAction* FFiner = nullptr;
  QAction* FCoarser = nullptr;
  QAction* FAtlasTool = nullptr;
  MessageBar* FMessage = nullptr;
  MessageBar* FOffer = nullptr;  // of work that a crash has left
  Autosave* FAutosave = nullptr;
  std::vector<LeftWork> FLeft;
  MapList* FList = nullptr;
  QListView* FListView = nullptr;
  QDockWidget* FDock = nullptr;
  ViewMenu* FView = nullptr;
  GraticuleMenu* FGraticule = nullptr;
  CalibrationWorkbench* FCalibration = nullptr;
  CalibrationMenu* FCalibrationMenu = nullptr;
  QMenu* FRecent = nullptr;
  ExportMenu* FExport = nullptr;
  ToolMenu* FTools = nullptr;
  MapPointer* FPointer = nullptr;
  LandmarkWorkbench* FLandmarks = nullptr;
  LandmarkMenu* FLandmarkMenu = nullptr;
  Layers* FLayers = nullptr;
  LayerDock* FLayerDock = nullptr;
  GoToDialog* FGoTo = nullptr;
  PlaceMark* FPlaceMark = nullptr;
  QPointF FPressedAt;  // of the left button on the map
  QAction* FCopy = nullptr;
  QAction* FCopyPixel = nullptr;
  ReadoutButton* FReadout = nullptr;
  QLabel* FName = nullptr;
  QLabel* FPixel = nullptr;
  QLabel* FZoom = nullptr;
  QLabel* FScale = nullptr;

  std::optional<MapSource> FShown;
  std::optional<QPointF> FMousePixel;  // where the mouse was last on the map
};

}  // namespace zav

#endif
