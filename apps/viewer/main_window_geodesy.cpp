// main_window_geodesy.cpp - the viewer's window: new maps, going to places.
// SPDX-License-Identifier: MIT
#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QSettings>
#include <QStatusBar>

#include <platform/qt/geo_atlas_widget.h>

#include "atlas_navigator.h"
#include "go_to_dialog.h"
#include "main_window.h"
#include "new_map_dialog.h"
#include "readout_button.h"
#include "view_menu.h"

namespace zav {

namespace {
constexpr const char* FolderKey = "files/folder";
}  // namespace

void MainWindow::makeGeodesy(QMenu& File, QMenu& Edit) {
  auto* New = new QAction(tr("&New Map..."), this);
  New->setShortcut(QKeySequence::New);
  New->setToolTip(tr("Make a map of parallels and meridians (%1)")
                      .arg(New->shortcut().toString(QKeySequence::NativeText)));
  connect(New, &QAction::triggered, this, &MainWindow::askNewMap);
  File.insertAction(File.actions().value(0), New);

  Edit.addSeparator();
  FPlaceMark = new PlaceMark(*FWidget);
  Edit.addAction(tr("&Go To..."), QKeySequence(Qt::CTRL | Qt::Key_G), this, [this] {
    if (FGoTo == nullptr) {
      FGoTo = new GoToDialog(this);
      connect(FGoTo, &GoToDialog::chosen, this, &MainWindow::goToPlace);
      // Off the middle of the map, where the places will be.
      FGoTo->adjustSize();
      FGoTo->move(FWidget->mapToGlobal(QPoint(FWidget->width() - FGoTo->width() - 24, 24)));
    }
    FGoTo->setEllipsoid(map().CalibData().Ellipsoid);
    FGoTo->show();
    FGoTo->raise();
    FGoTo->activateWindow();
    FGoTo->field().setFocus();
    FGoTo->field().selectAll();
  });
}

void MainWindow::askNewMap() {
  std::optional<TCornerArray> Around;
  if (map().Calibration().IsFitted() && map().MapImgWidth() > 0) Around = map().CalibData().Corners;
  NewMapDialog Dialog(Around, this);
  while (Dialog.exec() == QDialog::Accepted) {
    const std::optional<TEmptyMap> Plan = Dialog.plan();
    if (!Plan) continue;
    const QString Folder =
        FSettings != nullptr ? FSettings->value(FolderKey).toString() : QString();
    QString Path =
        QFileDialog::getSaveFileName(&Dialog, tr("New Map"), QDir(Folder).filePath(tr("map.xml")),
                                     tr("Calibration files, with the image beside them (*.xml)"));
    if (Path.isEmpty()) continue;
    const QString Problem = createMap(*Plan, Path);
    if (Problem.isEmpty()) return;
    QMessageBox::warning(&Dialog, tr("New Map"), Problem);
  }
}

QString MainWindow::createMap(const TEmptyMap& Plan, const QString& Given) {
  const bool Named =
      QFileInfo(Given).suffix().compare(QLatin1String("xml"), Qt::CaseInsensitive) == 0;
  const QString Path = Named ? Given : Given + QStringLiteral(".xml");
  const QFileInfo File(Path);
  // The question of the file dialog was for the calibration's name alone.
  const QString Image = File.dir().filePath(File.completeBaseName() + QStringLiteral(".bmp"));
  if (QFileInfo::exists(Image) && !File.exists())
    return tr("There is an image \"%1\" already; choose another name.")
        .arg(QDir::toNativeSeparators(Image));
  QString Problem = WriteEmptyMap(Plan, Path);
  if (!Problem.isEmpty()) return Problem;
  if (FSettings != nullptr) FSettings->setValue(FolderKey, File.absolutePath());
  return openAll({Path});
}

// On the map that is shown, else on the one of the list that comes next to its detail.
void MainWindow::goToPlace(const GoToPlace& Place) {
  const QString Where = FReadout->textFor(Place.Position);
  const QString Name = Place.Name.isEmpty() ? Where : Place.Name;
  const auto Show = [this, Place] {
    double X = 0;
    double Y = 0;
    if (!map().Calibration().ToPixel(Place.Position.Latit, Place.Position.Longit, X, Y))
      return false;
    if (X < -0.5 || Y < -0.5 || X >= map().MapImgWidth() || Y >= map().MapImgHeight()) return false;
    map().BringLocationToCenter(Place.Position.Latit, Place.Position.Longit);
    FPlaceMark->showAt({X, Y});
    return true;
  };
  bool Shown = Show();
  if (Shown) {
    FView->remember();
  } else {
    int Index = FNavigator->mapFrom(Place.Position, -1);
    if (Index <= 0) Index = FNavigator->mapFrom(Place.Position, 1);
    if (Index > 0) {
      goTo(Index, {Place.Position, {}});
      Shown = Show();
    }
  }
  if (FGoTo != nullptr)
    FGoTo->setProblem(Shown                             ? QString()
                      : !map().Calibration().IsFitted() ? tr("The map is not calibrated.")
                                                        : tr("%1 is not on this map.").arg(Name));
  if (Shown)
    statusBar()->showMessage(
        Place.Name.isEmpty() ? Where : QStringLiteral("%1: %2").arg(Name, Where), 8000);
}

}  // namespace zav
