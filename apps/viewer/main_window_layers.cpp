// main_window_layers.cpp - the viewer's window: databases over the map.
// SPDX-License-Identifier: MIT
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMouseEvent>
#include <QSettings>
#include <QStatusBar>

#include <platform/qt/geo_map_widget.h>

#include "layer_dock.h"
#include "layers.h"
#include "main_window.h"
#include "recent_files.h"
#include "tool_menu.h"
#include "view_menu.h"

namespace zav {

namespace {
constexpr const char* FolderKey = "layers/folder";
constexpr double ReachOnScreen = 6;  // pixels around a click
constexpr int ClickShakes = 3;       // pixels that the mouse may move in a click
}  // namespace

void MainWindow::makeLayers(QMenu& File) {
  FLayers = new Layers(*FWidget, this);
  FLayerDock = new LayerDock(*FLayers, this);
  addDockWidget(Qt::RightDockWidgetArea, FLayerDock);
  FLayerDock->hide();
  QAction* Before = File.actions().value(2);
  auto* Open = new QAction(tr("Open &Database..."), &File);
  Open->setToolTip(tr("Lay a geographic database over the map"));
  File.insertAction(Before, Open);
  connect(Open, &QAction::triggered, this, &MainWindow::askDatabases);
  connect(FLayerDock, &LayerDock::openWanted, this, &MainWindow::askDatabases);
  connect(FLayerDock, &LayerDock::selectedShown, this, [this] { FView->remember(); });
  connect(FLayers, &Layers::problem, this, &MainWindow::report);
  QAction* Show = FLayerDock->toggleViewAction();
  Show->setText(tr("&Databases"));
  Show->setShortcut(Qt::Key_F7);
  FView->addAction(Show);
  // Ctrl+F finds landmarks.
  QAction* Find =
      FView->addAction(tr("Fi&nd in Databases"), Qt::CTRL | Qt::SHIFT | Qt::Key_F, this, [this] {
        FLayerDock->show();
        FLayerDock->startSearch();
      });
  const auto Update = [this, Find] { Find->setEnabled(FLayers->count() > 0); };
  connect(FLayers, &Layers::changed, this, Update);
  Update();
  if (FSettings != nullptr) {
    LayerStyle Style;
    Style.load(*FSettings);
    FLayers->setStyle(Style);
  }
  FWidget->installEventFilter(this);
}

void MainWindow::askDatabases() {
  const QString Folder = FSettings != nullptr ? FSettings->value(FolderKey).toString() : QString();
  const QStringList Paths = QFileDialog::getOpenFileNames(
      this, tr("Open Databases"), Folder, tr("Databases (*.zavgds *.ZAVGDS);;All files (*)"));
  if (Paths.isEmpty()) return;
  if (FSettings != nullptr)
    FSettings->setValue(FolderKey, QFileInfo(Paths.constFirst()).absolutePath());
  openAll(Paths);
}

// Opens the databases among the paths and gives back the others.
QStringList MainWindow::openDatabases(const QStringList& Paths, QString& Problem) {
  QStringList Others;
  bool Opened = false;
  for (const QString& Path : Paths) {
    if (!IsDatabaseFile(Path)) {
      Others << Path;
      continue;
    }
    const QString Wrong = FLayers->open(Path);
    if (Wrong.isEmpty()) Opened = true;
    if (Problem.isEmpty()) Problem = Wrong;
    if (FSettings != nullptr && Wrong.isEmpty()) RecentFiles(*FSettings).add(Path);
  }
  if (Opened) {
    FLayerDock->show();
    if (Others.isEmpty() && !map().Calibration().IsFitted())
      statusBar()->showMessage(tr("A database is seen over a calibrated map: open one"), 10000);
  }
  if (Others.isEmpty() && !Problem.isEmpty()) report(Problem);
  return Others;
}

// A click with the hand that does not drag asks what is there.
bool MainWindow::eventFilter(QObject* Watched, QEvent* Event) {
  const bool Press = Event->type() == QEvent::MouseButtonPress;
  if (Watched == FWidget && (Press || Event->type() == QEvent::MouseButtonRelease)) {
    const auto* Mouse = static_cast<QMouseEvent*>(Event);
    if (Mouse->button() == Qt::LeftButton && FTools->hasHand() && FLayers->count() > 0) {
      if (Press)
        FPressedAt = Mouse->position();
      else if (QLineF(FPressedAt, Mouse->position()).length() <= ClickShakes)
        FLayerDock->showItems(
            FLayers->itemsAt(mapPixelAt(Mouse->position()), ReachOnScreen / map().Magnification()));
    }
  }
  return QMainWindow::eventFilter(Watched, Event);
}

}  // namespace zav
