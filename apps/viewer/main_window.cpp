// main_window.cpp - the viewer's window: opening maps and telling about them.
// SPDX-License-Identifier: MIT
#include "main_window.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QImageWriter>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QMimeData>
#include <QPixmap>
#include <QRectF>
#include <QSaveFile>
#include <QSettings>
#include <QStatusBar>
#include <QUrl>

#include <platform/base/errors.h>
#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_convert.h>

#include "atlas_sources.h"
#include "autosave.h"
#include "calibration_menu.h"
#include "calibration_workbench.h"
#include "export_menu.h"
#include "graticule_menu.h"
#include "landmark_menu.h"
#include "landmark_workbench.h"
#include "layers.h"
#include "message_bar.h"
#include "readout_button.h"
#include "reason_text.h"
#include "recent_files.h"
#include "view_menu.h"

namespace zav {

TGeoMap& MainWindow::map() { return FWidget->map(); }

QString MainWindow::message() const { return FMessage->text(); }

// --- opening

QString MainWindow::openAll(const QStringList& Files) {
  QList<MapSource> Sources;
  QString Problem;
  const QStringList Paths = openDatabases(openLandmarks(Files, Problem), Problem);
  if (Paths.isEmpty()) return Problem;
  bool Folder = false;
  for (const QString& Path : Paths) {
    if (IsAtlasList(Path)) {
      Folder = true;
      try {
        Sources += InspectAtlasList(Path);
      } catch (const EInOutError& Error) {
        Problem = LoadProblem(Path, ReasonText(Error.Reason()));
      }
    } else if (QFileInfo(Path).isDir()) {
      Folder = true;
      const QList<MapSource> Found = InspectFolder(Path);
      if (Found.isEmpty() && Problem.isEmpty())
        Problem = tr("There is no map in the folder \"%1\". Maps are calibration files (.xml) and "
                     "images (.jpg, .jpeg, .bmp).")
                      .arg(QDir::toNativeSeparators(Path));
      Sources += Found;
    } else {
      Sources.append(InspectMap(Path));
      if (Problem.isEmpty()) Problem = Sources.constLast().Problem;
    }
  }
  if (FSettings != nullptr && !Sources.isEmpty())
    for (const QString& Path : Paths)
      if (QFileInfo::exists(Path)) RecentFiles(*FSettings).add(Path);

  QString Shown;
  if (Folder || Sources.size() > 1) {
    if (!Sources.isEmpty()) Shown = openAtlas(Sources);
  } else {
    const QString Path = Sources.constFirst().Path;
    Shown = showMap(Sources.constFirst());
    if (FShown && FShown->Path == Path && FList->rowOf(Path) < 0) closeAtlas();
  }
  if (Problem.isEmpty() || Problem == Shown) return Shown;
  return report(Problem);
}

// Shows the list, and the first map of it that can be shown. Some turn out to be damaged only then.
QString MainWindow::openList(const QList<MapSource>& Sources) {
  FList->setSources(Sources);
  FDock->show();
  QString FirstProblem;
  bool Shown = false;
  for (const MapSource& Source : Sources) {
    if (!Source.Problem.isEmpty()) continue;
    const QString Problem = showMap(Source);
    Shown = Problem.isEmpty();
    if (Shown) break;
    FList->setProblem(Source.Path, Problem);
    if (FirstProblem.isEmpty()) FirstProblem = Problem;
  }
  if (!Shown && FirstProblem.isEmpty()) FirstProblem = Sources.constFirst().Problem;
  return FirstProblem.isEmpty() ? QString() : report(FirstProblem);
}

QString MainWindow::showMap(const MapSource& Source, const std::function<void()>& Arrive,
                            int Step) {
  // A map that cannot be shown leaves the one that is.
  if (!Source.Problem.isEmpty()) return reportSource(Source);
  if (!FCalibration->letGo()) {
    updateStatus();  // the list marks the map that stays
    return {};
  }
  QString Problem;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  bool Begun = false;
  try {
    // A picture that is damaged inside leaves the map that is shown, too.
    map().KeepImage(FromQString(Source.ImagePath));
    if (FShown) FVisits.leave(FView->trail());
    Begun = true;
    map().SetSuppressPaint(true);
    loadMap(Source);
    FShown = Source;
  } catch (const EInOutError& Error) {
    Problem = LoadProblem(ToQString(Error.Path()), ReasonText(Error.Reason()));
  } catch (const std::exception& Error) {
    Problem = LoadProblem(Source.Path, ReasonText(Error.what()));
  }
  if (!Begun) {
    QApplication::restoreOverrideCursor();
    updateStatus();
    return report(Problem);
  }
  if (!Problem.isEmpty()) {
    // Calibration and picture may be those of different maps now.
    map().Clear();
    FShown.reset();
  }
  FMessage->hide();
  if (Problem.isEmpty())
    FCalibration->mapOpened(Source);
  else
    FCalibration->mapClosed();
  if (!mouseIsOnMap()) FMousePixel.reset();
  FReadout->setMap(map().CalibData().Ellipsoid, map().CalibData().Resolution);
  if (Problem.isEmpty() && Arrive)
    Arrive();
  else
    FView->showOpened();
  if (Problem.isEmpty()) FVisits.arrive(Source.Path, Step);
  FView->setMapsAround(FVisits.neighbour(-1) != nullptr, FVisits.neighbour(1) != nullptr);
  FGraticule->updateForMap();
  map().SetSuppressPaint(false);
  QApplication::restoreOverrideCursor();
  updateStatus();
  if (!Problem.isEmpty()) return report(Problem);
  FWidget->setFocus();
  return {};
}

QString MainWindow::report(const QString& Problem) {
  FMessage->showMessage(Problem);
  return Problem;
}

// --- the command line's wishes

QString MainWindow::applyView(const ViewerOptions& Options) {
  const TCalibModel Model = map().CalibModel();
  if (Options.Graticule) {
    const bool Grid = *Options.Graticule == GeoMapWidget::Graticule::UtmGrid ||
                      *Options.Graticule == GeoMapWidget::Graticule::PointsAndUtmGrid;
    if (Grid && Model != TCalibModel::cmUTM)
      return report(
          tr("This map has no UTM grid: it is not calibrated in UTM. Choose lines instead."));
    FGraticule->setKind(*Options.Graticule);
  }
  if (Options.Fit) FView->showWhole();
  if (Options.Magnification) FView->setMagnification(*Options.Magnification);
  if (!Options.Center) {
    FView->remember();
    return {};
  }
  const TCoords& Center = *Options.Center;
  if (Model == TCalibModel::cmUndefined)
    return report(tr("A position cannot be found on this map: it is not calibrated."));
  if (!map().IsPositionWithinMap(Center.Latit, Center.Longit))
    return report(tr("The position %1 is not on this map.").arg(FReadout->textFor(Center)));
  FWidget->centerOn(Center.Latit, Center.Longit);
  FView->remember();
  return {};
}

QString MainWindow::saveScreenshot(const QString& Path) {
  QByteArray Format = QFileInfo(Path).suffix().toLatin1().toLower();
  if (Format != "jpg" && Format != "jpeg" && Format != "bmp") Format = "png";
  QSaveFile File(Path);
  if (File.open(QIODevice::WriteOnly)) {
    QImageWriter Writer(&File, Format);
    if (Writer.write(grab().toImage()) && File.commit()) return {};
  }
  return tr("The picture \"%1\" cannot be written: %2.")
      .arg(QDir::toNativeSeparators(Path), File.errorString());
}

// --- positions

QPointF MainWindow::mapPixelAt(QPointF Control) {
  const TViewState& View = map().View();
  return middleOfPixel(QPointF(View.TopLeft.X, View.TopLeft.Y) + Control / View.Magnification);
}

// Events tell a pixel of the control by its corner, which is half a pixel off its middle.
QPointF MainWindow::middleOfPixel(QPointF MapPosition) {
  const double Half = 0.5 / map().Magnification() - 0.5;
  return MapPosition + QPointF(Half, Half);
}

std::optional<TCoords> MainWindow::positionAt(QPointF MapPixel) {
  TCoords Position;
  const QRectF Image(0, 0, map().MapImgWidth(), map().MapImgHeight());
  if (!Image.contains(MapPixel)) return std::nullopt;
  if (!map().Calibration().ToGeo(MapPixel.x(), MapPixel.y(), Position)) return std::nullopt;
  return Position;
}

// The position, or the pixel on a map without calibration.
QString MainWindow::textAt(QPointF MapPixel) {
  const std::optional<TCoords> Position = positionAt(MapPixel);
  return Position ? FReadout->textFor(*Position) : PixelText(MapPixel);
}

void MainWindow::copyText(const QString& Text) {
  if (Text.isEmpty()) return;
  QApplication::clipboard()->setText(Text);
  statusBar()->showMessage(tr("Copied: %1").arg(Text), 3000);
}

void MainWindow::updateReadout() {
  const bool Known = FMousePixel && FShown;
  FCopy->setEnabled(Known);
  FCopyPixel->setEnabled(Known);
  if (!Known) {
    FReadout->setPosition(std::nullopt);
    FPixel->clear();
    return;
  }
  FReadout->setPosition(positionAt(*FMousePixel));
  FPixel->setText(tr("Pixel %1").arg(PixelText(*FMousePixel)));
}

void MainWindow::updateStatus() {
  FExport->setMap(FShown);
  updateReadout();
  if (!FShown) {
    setWindowTitle(tr("zavgeo viewer") + QLatin1String("[*]"));
    FName->clear();
    FZoom->clear();
    FScale->clear();
    return;
  }
  setWindowTitle(tr("%1[*] - zavgeo viewer").arg(FShown->Caption));
  FName->setText(tr("%1 (%2)").arg(FShown->Caption, ModelName(map().CalibModel())));
  FName->setToolTip(QDir::toNativeSeparators(FShown->Path));
  FZoom->setText(tr("%1 %").arg(locale().toString(map().Magnification() * 100, 'f', 0)));
  FScale->setText(ScaleText(map().CalibData().Resolution, map().Magnification(), logicalDpiX()));
  const int Row = FList->rowOf(FShown->Path);
  if (Row >= 0) FListView->setCurrentIndex(FList->index(Row));
}

// --- events

void MainWindow::showMapMenu(QPoint Position) {
  if (!FShown) return;
  const QPointF Pixel = mapPixelAt(Position);
  const QString Text = textAt(Pixel);
  QMenu Menu;
  QAction* Copy = Menu.addAction(tr("&Copy %1").arg(Text));
  QAction* CopyPixel = Menu.addAction(tr("Copy P&ixel %1").arg(PixelText(Pixel)));
  Menu.addMenu(FReadout->formatMenu());
  Menu.addSeparator();
  QAction* Center = Menu.addAction(tr("Bring &Here to the Middle"));
  const QAction* Chosen = Menu.exec(FWidget->mapToGlobal(Position));
  if (Chosen == Copy) copyText(Text);
  if (Chosen == CopyPixel) copyText(PixelText(Pixel));
  if (Chosen == Center) map().BringMapPixelToCenter(FromQPoint(Pixel.toPoint()));
}

void MainWindow::dragEnterEvent(QDragEnterEvent* Event) {
  for (const QUrl& Url : Event->mimeData()->urls())
    if (Url.isLocalFile()) return Event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* Event) {
  QStringList Paths;
  for (const QUrl& Url : Event->mimeData()->urls())
    if (Url.isLocalFile()) Paths << Url.toLocalFile();
  Event->acceptProposedAction();
  openAll(Paths);
}

void MainWindow::closeEvent(QCloseEvent* Event) {
  if (!FCalibration->letGo() || !FLandmarks->letGo()) return Event->ignore();
  if (FAutosave != nullptr) FAutosave->finish();
  FCalibration->dock().hide();  // its graticule goes with it
  FLandmarks->dock().hide();
  if (FSettings != nullptr) {
    FSettings->setValue("window/geometry", saveGeometry());
    FSettings->setValue("window/state", saveState(LayoutVersion));
    FSettings->setValue("readout/format", static_cast<int>(FReadout->format()));
    FView->save(*FSettings);
    FGraticule->save(*FSettings);
    FCalibrationMenu->save(*FSettings);
    FLandmarkMenu->save(*FSettings);
    FLayers->style().save(*FSettings);
  }
  QMainWindow::closeEvent(Event);
}

}  // namespace zav
