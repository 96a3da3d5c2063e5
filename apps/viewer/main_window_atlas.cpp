// main_window_atlas.cpp - the viewer's window: several maps as an atlas.
//
// The map's widget is that of a GeoAtlasWidget with its panel hidden; for a single map no maps are
// registered in it. So all tools, menus and panels work with one widget and one control.
// SPDX-License-Identifier: MIT
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QSettings>
#include <QStatusBar>
#include <QToolBar>

#include <geoatlas/atlas_list.h>
#include <platform/base/errors.h>
#include <platform/qt/geo_atlas_widget.h>
#include <platform/qt/qt_convert.h>
#include <platform/qt/qt_glyphs.h>

#include "atlas_navigator.h"
#include "atlas_sources.h"
#include "calibration_workbench.h"
#include "icons.h"
#include "landmark_workbench.h"
#include "main_window.h"
#include "message_bar.h"
#include "reason_text.h"
#include "recent_files.h"
#include "tool_menu.h"
#include "view_menu.h"

namespace zav {

namespace {
constexpr const char* FolderKey = "atlas/folder";
constexpr const char* OutlinesKey = "atlas/outlines";
}  // namespace

void MainWindow::makeAtlas(QMenu& File) {
  // Captions in the list are as they were spelled.
  const auto TitleOf = [this](int Index) {
    const int Row = FList->rowOf(FAtlas->mapFile(Index));
    return Row < 0 ? FAtlas->mapCaption(Index) : FList->sources()[Row].Caption;
  };
  FNavigator = new AtlasNavigator(*FAtlas, TitleOf, this);
  QAction* Before = File.actions().value(2);
  FSaveAtlas = new QAction(tr("Save List of &Maps As..."), &File);
  FSaveAtlas->setToolTip(tr("Write the names of the maps to a file that opens them all"));
  File.insertAction(Before, FSaveAtlas);
  connect(FSaveAtlas, &QAction::triggered, this, &MainWindow::askAtlasList);

  FView->addSeparator();
  FFiner =
      FView->addAction(MakeIcon(ViewerIcon::MapFiner), tr("&More Detailed Map"),
                       QKeySequence(Qt::ALT | Qt::Key_Down), this, [this] { goFromMiddle(1); });
  FCoarser =
      FView->addAction(MakeIcon(ViewerIcon::MapCoarser), tr("L&ess Detailed Map"),
                       QKeySequence(Qt::ALT | Qt::Key_Up), this, [this] { goFromMiddle(-1); });
  QAction* Outlines = FView->addAction(tr("O&utlines of Other Maps"));
  Outlines->setCheckable(true);
  Outlines->setChecked(FSettings == nullptr || FSettings->value(OutlinesKey, true).toBool());
  FAtlas->setMapOutlineVisible(Outlines->isChecked());
  connect(Outlines, &QAction::toggled, this, [this](bool On) {
    FAtlas->setMapOutlineVisible(On);
    if (FSettings != nullptr) FSettings->setValue(OutlinesKey, On);
  });

  connect(FNavigator, &AtlasNavigator::wheeled, this, &MainWindow::wheelTo);
  connect(FNavigator, &AtlasNavigator::clicked, this, &MainWindow::goTo);
  connect(FNavigator, &AtlasNavigator::nothingThere, this, [this](int Direction) {
    statusBar()->showMessage(Direction > 0 ? tr("No map of this place is more detailed")
                                           : tr("No map of this place is less detailed"),
                             5000);
  });
  connect(FView, &ViewMenu::mapWanted, this, &MainWindow::stepThroughMaps);
  makeAtlasTool();
  updateAtlas();
}

// Clicks that go to other maps take turns with the other tools of the mouse.
void MainWindow::makeAtlasTool() {
  FAtlasTool =
      new QAction(MakeIcon(ViewerIcon::AtlasZoom), tr("&Go to Other Maps by Clicks"), this);
  FAtlasTool->setCheckable(true);
  FAtlasTool->setShortcut(Qt::Key_G);
  FAtlasTool->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  FAtlasTool->setToolTip(
      tr("Click: a more detailed map of the place; right button: a less detailed one (G)"));
  FWidget->addAction(FAtlasTool);
  const QList<QAction*> Tools = FTools->actions();
  FTools->insertAction(Tools.value(1), FAtlasTool);
  findChild<QToolBar*>(QStringLiteral("mouse-tools"))->addAction(FAtlasTool);
  const auto TakeMouse = [this] {
    if (!FAtlasTool->isChecked()) return;
    FTools->setMouseTaken(true);
    for (QAction* Tool : FTools->actions())
      if (Tool != FAtlasTool && Tool->isChecked()) Tool->setChecked(false);
    FWidget->setCursor(MakeCursor(crGeoZoom, devicePixelRatioF()));
  };
  // After the map was changed, which gives the mouse back to the other tools.
  connect(FNavigator, &AtlasNavigator::clicked, this, TakeMouse, Qt::QueuedConnection);
  connect(FAtlasTool, &QAction::toggled, this, [this, TakeMouse](bool On) {
    if (On) {
      FCalibration->dock().hide();
      FLandmarks->dock().hide();
    }
    FNavigator->setClicks(On);
    if (!On)
      return FTools->setMouseTaken(FCalibration->tool().isActive() ||
                                   FLandmarks->tool().isActive());
    TakeMouse();
    statusBar()->showMessage(
        tr("Click: a more detailed map of the place. Right button: a less detailed one. Esc: end"),
        10000);
  });
  const auto Off = [this] { FAtlasTool->setChecked(false); };
  for (QAction* Tool : Tools)
    if (Tool->isCheckable()) connect(Tool, &QAction::triggered, this, Off);
  connect(FNavigator, &AtlasNavigator::givenUp, this, Off);
  connect(&FLandmarks->tool(), &LandmarkTool::activeChanged, this, [Off](bool On) {
    if (On) Off();
  });
  connect(&FCalibration->tool(), &CalibrationTool::activeChanged, this, [Off](bool On) {
    if (On) Off();
  });
}

// --- opening and saving

QString MainWindow::openAtlas(QList<MapSource> Sources) {
  if (!FCalibration->letGo()) return {};
  SortByScale(Sources);
  FAtlas->unregisterAll();
  int Calibrated = 0;
  for (const MapSource& Source : Sources) {
    // A map whose image is missing has an outline all the same.
    if (Source.Kind != MapSourceKind::Calibration) continue;
    if (++Calibrated <= TMapRegister::Capacity)
      FAtlas->atlas().RegisterMap(FromQString(Source.Path));
  }
  QString Problem = openList(Sources);
  QString Text = MissingText(FList->sources());
  if (Calibrated > TMapRegister::Capacity)
    Text = tr("Only the first %1 of %2 maps are gone to by clicks and the wheel; the list holds "
              "all.")
               .arg(TMapRegister::Capacity)
               .arg(Calibrated) +
           QLatin1Char(' ') + Text;
  if (!Text.isEmpty()) report(Problem.isEmpty() ? Text : Problem + QLatin1Char('\n') + Text);
  updateAtlas();
  return Problem;
}

// Another map, which none of the list is.
void MainWindow::closeAtlas() {
  if (FList->rowCount() == 0) return;
  FAtlas->unregisterAll();
  FList->setSources({});
  FDock->hide();
  updateAtlas();
}

void MainWindow::askAtlasList() {
  const QString Folder = FSettings != nullptr ? FSettings->value(FolderKey).toString() : QString();
  const QString First = FList->sources().value(0).Path;
  const QString Suggested =
      Folder.isEmpty()
          ? QFileInfo(First).dir().filePath(tr("atlas", "name of a file") + AtlasListExtension)
          : QDir(Folder).filePath(tr("atlas", "name of a file") + AtlasListExtension);
  QString Path = QFileDialog::getSaveFileName(this, tr("Save the List of Maps"), Suggested,
                                              tr("Lists of maps (*%1)").arg(AtlasListExtension));
  if (Path.isEmpty()) return;
  if (!IsAtlasList(Path)) Path += AtlasListExtension;
  if (FSettings != nullptr) FSettings->setValue(FolderKey, QFileInfo(Path).absolutePath());
  saveAtlasList(Path);
}

QString MainWindow::saveAtlasList(const QString& Path) {
  std::vector<std::string> Maps;
  for (const MapSource& Source : FList->sources()) Maps.push_back(FromQString(Source.Path));
  try {
    SaveAtlasList(FromQString(Path), Maps);
  } catch (const EInOutError& Error) {
    return report(tr("The list of maps \"%1\" cannot be written: %2. Choose another folder.")
                      .arg(QDir::toNativeSeparators(Path), ReasonText(Error.Reason())));
  }
  if (FSettings != nullptr) RecentFiles(*FSettings).add(Path);
  statusBar()->showMessage(tr("Saved: %1").arg(QDir::toNativeSeparators(Path)), 5000);
  return {};
}

void MainWindow::updateAtlas() {
  const bool Several = FList->rowCount() > 0;
  FSaveAtlas->setEnabled(Several);
  for (QAction* Action : {FFiner, FCoarser, FAtlasTool}) Action->setEnabled(FAtlas->mapCount() > 1);
  if (FAtlas->mapCount() < 2) FAtlasTool->setChecked(false);
  FView->setMapsAround(FVisits.neighbour(-1) != nullptr, FVisits.neighbour(1) != nullptr);
}

// --- from map to map

// Loads into the control what was found to be in order.
void MainWindow::loadMap(const MapSource& Source) {
  TGeoAtlas& Atlas = FAtlas->atlas();
  const std::string Path = FromQString(Source.Path);
  const int Index = Source.Kind == MapSourceKind::Calibration ? Atlas.Maps().Find(Path) : 0;
  map().Clear();
  if (Index > 0) {
    if (!Atlas.SelectMap(Index)) throw EZAVError(Atlas.Problem());
  } else {
    Atlas.MarkInList(-1);
    if (Source.Kind == MapSourceKind::Calibration) {
      const bool Complete = map().LoadCalDataFromXML(Path, "");
      // The format does not tell this model from an undefined one.
      if (Complete && map().CalibModel() == TCalibModel::cmUndefined)
        map().SetCalibModel(TCalibModel::cmParabolicIp);
    } else {
      map().SetMapImgName(Path);
    }
  }
  map().SetMapCaption(FromQString(Source.Caption));
}

MapSource MainWindow::sourceOf(int Index) const { return InspectMap(FAtlas->mapFile(Index)); }

void MainWindow::wheelTo(int Index, const AtlasPlace& Place) {
  // A question at each turn of the wheel would be too much.
  if (FCalibration->document().isModified())
    return statusBar()->showMessage(tr("Save the calibration before you go to another map"), 5000);
  const double Metres = FNavigator->metresOnScreen();
  showMap(sourceOf(Index), [this, Place, Metres] {
    FView->showArrived([&] { FNavigator->arriveUnder(Place, Metres); }, true);
  });
}

void MainWindow::goTo(int Index, const AtlasPlace& Place) {
  showMap(sourceOf(Index), [this, Place] {
    FView->showArrived([&] { FNavigator->arriveInTheMiddle(Place.Position); }, false);
  });
}

void MainWindow::goFromMiddle(int Direction) {
  const std::optional<AtlasPlace> Place = FNavigator->placeAt(FWidget->rect().center());
  const int Index = Place ? FNavigator->mapFrom(Place->Position, Direction) : 0;
  if (Index > 0)
    goTo(Index, *Place);
  else
    emit FNavigator->nothingThere(Direction);
}

void MainWindow::stepThroughMaps(int Direction) {
  const AtlasHistory::Visit* Visit = FVisits.neighbour(Direction);
  if (Visit == nullptr) return;
  const ViewTrail Trail = Visit->Trail;
  showMap(
      InspectMap(Visit->Path), [this, Trail] { FView->showTrail(Trail); }, Direction);
}

}  // namespace zav
