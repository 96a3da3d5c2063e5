// main_window_parts.cpp - the viewer's window: how it is put together.
// SPDX-License-Identifier: MIT
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QListView>
#include <QMenuBar>
#include <QMessageBox>
#include <QSettings>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <platform/qt/geo_atlas_widget.h>
#include <platform/qt/qt_convert.h>

#include "calibration_menu.h"
#include "calibration_workbench.h"
#include "graticule_menu.h"
#include "icons.h"
#include "landmark_menu.h"
#include "layer_dock.h"
#include "main_window.h"
#include "message_bar.h"
#include "readout_button.h"
#include "recent_files.h"
#include "theme.h"
#include "view_menu.h"

namespace zav {

namespace {
constexpr const char* FolderKey = "files/folder";
}  // namespace

MainWindow::MainWindow(QSettings* Settings, QWidget* Parent)
    : QMainWindow(Parent), FSettings(Settings) {
  setAcceptDrops(true);
  resize(1280, 800);
  makeCenter();
  makeList();
  makeStatusBar();
  makeMenus();
  restore();
  updateStatus();
}

void MainWindow::makeCenter() {
  auto* Center = new QWidget(this);
  FMessage = new MessageBar(Center);
  FOffer = new MessageBar(Center);
  FAtlas = new GeoAtlasWidget(Center);
  FAtlas->setCommandPanelVisible(false);
  FWidget = &FAtlas->mapWidget();
  FWidget->setAcceptDrops(false);
  FWidget->setAccessibleName(tr("Map"));
  FWidget->map().SetGratInMapZone(true);
  FWidget->setContextMenuPolicy(Qt::CustomContextMenu);
  FWidget->setEmptyMessage(
      tr("No map is open. Open one with Ctrl+O, or drop files or a folder here."));
  connect(FWidget, &QWidget::customContextMenuRequested, this, &MainWindow::showMapMenu);
  connect(FWidget, &GeoMapWidget::mousePositionChanged, this, [this](QPointF MapPixel) {
    // The last position stays when the mouse goes to the status bar to change how it is written.
    if (!mouseIsOnMap()) return;
    FMousePixel = middleOfPixel(MapPixel);
    updateReadout();
  });
  auto* Layout = new QVBoxLayout(Center);
  Layout->setContentsMargins(0, 0, 0, 0);
  Layout->setSpacing(0);
  Layout->addWidget(FOffer);
  Layout->addWidget(FMessage);
  Layout->addWidget(FAtlas, 1);
  setCentralWidget(Center);
}

void MainWindow::makeList() {
  FList = new MapList(this);
  FListView = new QListView;
  FListView->setModel(FList);
  FListView->setItemDelegate(new MapListDelegate(FListView));
  FListView->setAccessibleName(tr("Maps"));
  FListView->setEditTriggers(QAbstractItemView::NoEditTriggers);
  FListView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  const auto Open = [this](const QModelIndex& Index) {
    showMap(InspectMap(Index.data(MapList::PathRole).toString()));
  };
  connect(FListView, &QListView::clicked, this, Open);
  connect(FListView, &QListView::activated, this, Open);
  FDock = new QDockWidget(tr("Maps"), this);
  FDock->setObjectName(QStringLiteral("maps"));
  FDock->setWidget(FListView);
  addDockWidget(Qt::LeftDockWidgetArea, FDock);
  resizeDocks({FDock}, {240}, Qt::Horizontal);
  FDock->hide();
}

void MainWindow::makeStatusBar() {
  FName = new QLabel;
  FPixel = new QLabel;
  FReadout = new ReadoutButton;
  FZoom = new QLabel;
  FScale = new QLabel;
  FPixel->setMinimumWidth(
      fontMetrics().horizontalAdvance(tr("Pixel %1").arg(QStringLiteral("-8888, -8888"))));
  FZoom->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("888 %")));
  FZoom->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  FZoom->setToolTip(tr("Magnification: screen pixels for each pixel of the map"));
  FScale->setToolTip(tr("Scale on this screen, along the middle row of the map"));
  for (QLabel* Label : {FName, FPixel, FZoom, FScale}) Label->setContentsMargins(6, 0, 6, 0);
  statusBar()->addWidget(FName, 1);
  for (QWidget* Widget : std::initializer_list<QWidget*>{FPixel, FReadout, FZoom, FScale})
    statusBar()->addPermanentWidget(Widget);
  connect(FReadout, &QWidget::customContextMenuRequested, this, [this](QPoint Position) {
    QMenu Menu;
    Menu.addAction(FCopy);
    Menu.addSeparator();
    Menu.addActions(FReadout->formatMenu()->actions());
    Menu.exec(FReadout->mapToGlobal(Position));
  });
}

void MainWindow::makeMenus() {
  QMenu* File = menuBar()->addMenu(tr("&File"));
  QAction* Open = File->addAction(MakeIcon(ViewerIcon::OpenFile), tr("&Open..."),
                                  QKeySequence::Open, this, &MainWindow::askFiles);
  Open->setToolTip(tr("Open a calibration file or an image (Ctrl+O)"));
  QAction* OpenFolder =
      File->addAction(MakeIcon(ViewerIcon::OpenFolder), tr("Open &Folder..."),
                      QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O), this, &MainWindow::askFolder);
  OpenFolder->setToolTip(tr("Open all maps of a folder (Ctrl+Shift+O)"));
  FRecent = File->addMenu(tr("Open &Recent"));
  FRecent->setEnabled(FSettings != nullptr);
  connect(FRecent, &QMenu::aboutToShow, this, &MainWindow::fillRecentMenu);
  File->addSeparator();
  File->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);

  QMenu* Edit = menuBar()->addMenu(tr("&Edit"));
  FCopy = Edit->addAction(MakeIcon(ViewerIcon::Copy), tr("&Copy Position"), QKeySequence::Copy,
                          this, [this] { copyText(textAt(*FMousePixel)); });
  FCopyPixel = Edit->addAction(tr("Copy P&ixel"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C),
                               this, [this] { copyText(PixelText(*FMousePixel)); });
  makeExport(*File, *Edit);

  FView = new ViewMenu(*FWidget, this);
  menuBar()->addMenu(FView);
  FGraticule = new GraticuleMenu(*FWidget, this);
  menuBar()->addMenu(FGraticule);
  makeCalibration(*File, *Edit);
  FView->addSeparator();
  FView->addMenu(FReadout->formatMenu());
  AddThemeMenu(*FView, FSettings);
  QAction* ShowList = FDock->toggleViewAction();
  ShowList->setIcon(MakeIcon(ViewerIcon::MapList));
  ShowList->setText(tr("&List of Maps"));
  ShowList->setShortcut(Qt::Key_F9);
  ShowList->setToolTip(tr("Show the list of maps (F9)"));
  FView->addAction(ShowList);
  connect(FView, &ViewMenu::viewChanged, this, [this] {
    FGraticule->updateForView();
    updateStatus();
  });

  QMenu* Help = menuBar()->addMenu(tr("&Help"));
  Help->addAction(tr("&About"), this, &MainWindow::showAbout);

  QToolBar* Bar = addToolBar(tr("Tools"));
  Bar->setObjectName(QStringLiteral("tools"));
  Bar->addActions({Open, OpenFolder, ShowList});
  Bar->addSeparator();
  FView->addTo(*Bar);
  Bar->addSeparator();
  auto* Graticule = new QToolButton;
  Graticule->setMenu(FGraticule);
  Graticule->setPopupMode(QToolButton::InstantPopup);
  Graticule->setIcon(MakeIcon(ViewerIcon::Graticule));
  Graticule->setToolTip(tr("Graticule, grid and calibration points"));
  Graticule->setAccessibleName(tr("Graticule"));
  Bar->addWidget(Graticule);
  Bar->addAction(FCalibrationMenu->calibrate());
  makeTools();
  makeLandmarks(*File, *Edit);
  makeLayers(*File);
  makeAtlas(*File);
  makeGeodesy(*File, *Edit);
  makePointer();
  Bar->addAction(FLandmarkMenu->editLandmarks());
}

void MainWindow::restore() {
  if (FSettings == nullptr) return;
  restoreGeometry(FSettings->value("window/geometry").toByteArray());
  restoreState(FSettings->value("window/state").toByteArray(), LayoutVersion);
  FDock->hide();  // it is empty yet
  FCalibration->dock().hide();
  const int Format = FSettings->value("readout/format").toInt();
  const int LastFormat = static_cast<int>(AllReadoutFormats.size()) - 1;
  FReadout->setFormat(AllReadoutFormats.at(static_cast<size_t>(qBound(0, Format, LastFormat))));
  FView->load(*FSettings);
  FGraticule->load(*FSettings);
  FCalibrationMenu->load(*FSettings);
  restoreLandmarks();
  FLayerDock->hide();
}

void MainWindow::fillRecentMenu() {
  FRecent->clear();
  RecentFiles Recent(*FSettings);
  const QStringList Paths = Recent.paths();
  int Number = 1;
  for (const QString& Path : Paths) {
    const QString Shown =
        QDir::toNativeSeparators(Path).replace(QLatin1Char('&'), QLatin1String("&&"));
    FRecent->addAction(QStringLiteral("&%1  %2").arg(Number++ % 10).arg(Shown), this,
                       [this, Path] { openAll({Path}); });
  }
  if (Paths.isEmpty()) {
    FRecent->addAction(tr("None yet"))->setEnabled(false);
    return;
  }
  FRecent->addSeparator();
  FRecent->addAction(tr("&Clear List"), this, [this] { RecentFiles(*FSettings).clear(); });
}

void MainWindow::askFiles() {
  const QString Folder = FSettings != nullptr ? FSettings->value(FolderKey).toString() : QString();
  const QStringList Paths =
      QFileDialog::getOpenFileNames(this, tr("Open Maps"), Folder,
                                    tr("Maps (*.xml *.XML *.jpg *.JPG *.jpeg *.JPEG *.bmp *.BMP "
                                       "*.zavatlas);;Scans of other kinds (*.png "
                                       "*.PNG *.tif *.TIF *.tiff *.TIFF);;All files (*)"));
  if (Paths.isEmpty()) return;
  if (FSettings != nullptr)
    FSettings->setValue(FolderKey, QFileInfo(Paths.constFirst()).absolutePath());
  openAll(Paths);
}

void MainWindow::askFolder() {
  const QString Folder = FSettings != nullptr ? FSettings->value(FolderKey).toString() : QString();
  const QString Path = QFileDialog::getExistingDirectory(this, tr("Open a Folder of Maps"), Folder);
  if (Path.isEmpty()) return;
  if (FSettings != nullptr) FSettings->setValue(FolderKey, Path);
  openAll({Path});
}

void MainWindow::showAbout() {
  QMessageBox::about(
      this, tr("About"),
      tr("<p><b>zavgeo viewer %1</b></p><p>Shows calibrated maps and reads positions off them.</p>"
         "<p>Wheel: zoom at the mouse. Drag: move the map. Click on the position in the status "
         "bar: "
         "another way to write it.</p><p>MIT licence.</p>")
          .arg(QApplication::applicationVersion()));
}

}  // namespace zav
