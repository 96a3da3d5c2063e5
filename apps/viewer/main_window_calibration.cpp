// main_window_calibration.cpp - the viewer's window: calibrating by hand.
// SPDX-License-Identifier: MIT
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QStatusBar>

#include <platform/qt/geo_atlas_widget.h>
#include <platform/qt/qt_convert.h>

#include "atlas_navigator.h"
#include "autosave.h"
#include "calibration_menu.h"
#include "calibration_workbench.h"
#include "graticule_menu.h"
#include "landmark_menu.h"
#include "landmark_workbench.h"
#include "layer_dock.h"
#include "layers.h"
#include "main_window.h"
#include "message_bar.h"
#include "readout_button.h"
#include "recent_files.h"

namespace zav {

// What is told of a change must not find a window that is half gone.
MainWindow::~MainWindow() {
  delete FAutosave;
  delete FNavigator;
  delete FLayerDock;
  delete FLayers;
  delete FLandmarkMenu;
  delete FLandmarks;
  delete FCalibrationMenu;
  delete FCalibration;
}

void MainWindow::makeCalibration(QMenu& File, QMenu& Edit) {
  FCalibration = new CalibrationWorkbench(*this, *FWidget, *FReadout);
  FCalibrationMenu = new CalibrationMenu(*FCalibration, *FWidget, *FGraticule, this);
  menuBar()->addMenu(FCalibrationMenu);
  FCalibrationMenu->addToFile(File, File.actions().constLast());
  FCalibrationMenu->addToEdit(Edit, Edit.actions().constFirst());
  FCalibrationMenu->addHintTo(*statusBar());
  connect(FCalibration, &CalibrationWorkbench::problem, this, [this](const QString& Text) {
    Text.isEmpty() ? FMessage->hide() : FMessage->showMessage(Text);
  });
  connect(FCalibration, &CalibrationWorkbench::done, this,
          [this](const QString& Text) { statusBar()->showMessage(Text, 5000); });
  connect(FCalibration, &CalibrationWorkbench::modifiedChanged, this, &QWidget::setWindowModified);
  connect(FCalibration, &CalibrationWorkbench::saved, this, &MainWindow::calibrationSaved);
  connect(FWidget, &GeoMapWidget::calibrationChanged, this, &MainWindow::calibrationChanged);
}

void MainWindow::calibrationChanged() {
  FReadout->setMap(FWidget->map().CalibData().Ellipsoid, FWidget->map().CalibData().Resolution);
  FGraticule->updateForMap();
  updateStatus();
}

// The image that was opened is a map now.
void MainWindow::calibrationSaved(const QString& Path) {
  FShown = InspectMap(Path);
  // Its corners and detail may be others now.
  TGeoAtlas& Atlas = FAtlas->atlas();
  if (Atlas.Maps().Find(FromQString(Path)) > 0) {
    const int Line = Atlas.ListItemIndex();
    Atlas.RegisterMap(FromQString(Path));
    Atlas.MarkInList(Line);
  }
  if (FSettings != nullptr) RecentFiles(*FSettings).add(Path);
  updateStatus();
}

}  // namespace zav
