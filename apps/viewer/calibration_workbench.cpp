// calibration_workbench.cpp - calibrating by hand in the viewer: document, map and files.
// SPDX-License-Identifier: MIT
#include "calibration_workbench.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>

#include <platform/qt/geo_map_widget.h>

#include "readout_button.h"
#include "reason_text.h"

namespace zav {

namespace {

QString TableFilter() { return CalibrationWorkbench::tr("Tables (*.csv *.CSV);;All files (*)"); }

}  // namespace

CalibrationWorkbench::CalibrationWorkbench(QMainWindow& Window, GeoMapWidget& Widget,
                                           ReadoutButton& Readout)
    : QObject(&Window),
      FWindow(Window),
      FWidget(Widget),
      FDock(new CalibrationDock(FDocument, &Window)),
      FTool(new CalibrationTool(Widget, FDocument, this)) {
  Window.addDockWidget(Qt::RightDockWidgetArea, FDock);
  Window.resizeDocks({FDock}, {440}, Qt::Horizontal);
  FDock->hide();
  connect(&FDocument, &CalibDocument::changed, this, &CalibrationWorkbench::documentChanged);
  connect(FDock, &CalibrationDock::selected, FTool, &CalibrationTool::goTo);
  connect(FTool, &CalibrationTool::selectionChanged, FDock, &CalibrationDock::select);
  connect(FTool, &CalibrationTool::refused, this, &CalibrationWorkbench::problem);
  const auto FollowFormat = [this, &Readout] {
    FDock->setFormat(Readout.format());
    FTool->setFormat(Readout.format());
  };
  connect(&Readout, &ReadoutButton::formatChanged, this, FollowFormat);
  FollowFormat();
}

// They refer to the document.
CalibrationWorkbench::~CalibrationWorkbench() {
  delete FTool;
  delete FDock;
}

bool CalibrationWorkbench::tell(const QString& Reason) {
  emit problem(Reason);
  return Reason.isEmpty();
}

// --- the map shown

void CalibrationWorkbench::mapOpened(const MapSource& Source) {
  FSource = Source;
  reload();
  FDock->updateWarnings();
  const QStringList Notes = FDocument.loadNotes();
  if (!Notes.isEmpty()) emit problem(Notes.join(QLatin1Char('\n')));
}

void CalibrationWorkbench::mapClosed() {
  FSource = {};
  reload();
}

// Back to what is on the disk.
void CalibrationWorkbench::reload() {
  FTool->abort();
  FTool->select(0);
  QString Reason;
  if (FSource.Kind == MapSourceKind::Calibration)
    Reason = FDocument.load(FSource.Path);
  else if (FSource.Kind == MapSourceKind::Image)
    Reason = FDocument.newFromImage(FSource.Path);
  else
    FDocument.clear();
  if (!Reason.isEmpty()) {
    FDocument.clear();
    emit problem(Reason);
  }
}

void CalibrationWorkbench::documentChanged() {
  if (!FDocument.isEmpty() && !FWidget.imageFile().isEmpty()) {
    try {
      // Without points the image is not calibrated, whatever model it is going to have.
      const bool Bare = FDocument.itemCount() == 0;
      FWidget.map().SetCalibration(FDocument.data(),
                                   Bare ? TCalibModel::cmUndefined : FDocument.model());
    } catch (const std::exception& Error) {
      emit problem(ReasonText(Error.what()));
    }
  }
  if (FModified == FDocument.isModified()) return;
  FModified = FDocument.isModified();
  emit modifiedChanged(FModified);
}

// --- unsaved work

bool CalibrationWorkbench::letGo() {
  FTool->abort();
  if (!FDocument.isModified()) return true;
  const QString Name =
      FDocument.fileName().isEmpty() ? FDocument.imagePath() : FDocument.fileName();
  QMessageBox Question(
      QMessageBox::Warning, tr("Unsaved Calibration"),
      tr("The calibration of \"%1\" has been changed.").arg(QFileInfo(Name).fileName()),
      QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &FWindow);
  Question.setInformativeText(tr("Save it? Otherwise the changes are lost."));
  Question.setDefaultButton(QMessageBox::Save);
  switch (Question.exec()) {
    case QMessageBox::Save:
      return save();
    case QMessageBox::Discard:
      reload();
      return true;
    default:
      return false;
  }
}

void CalibrationWorkbench::revert() {
  if (letGo()) FDock->updateWarnings();
}

void CalibrationWorkbench::startNew() {
  const QString Image = FDocument.imagePath();
  if (Image.isEmpty() || !letGo()) return;
  FTool->select(0);
  tell(FDocument.newFromImage(Image));
  FDock->show();
}

// --- files

bool CalibrationWorkbench::save() {
  FTool->abort();
  if (!FDocument.fileName().isEmpty()) return saveTo(FDocument.fileName());
  const QString Suggested = FDocument.suggestedFileName();
  // Only what is not there yet is written without a question.
  return QFileInfo::exists(Suggested) ? saveAs() : saveTo(Suggested);
}

bool CalibrationWorkbench::saveAs() {
  FTool->abort();
  const QString Suggested =
      FDocument.fileName().isEmpty() ? FDocument.suggestedFileName() : FDocument.fileName();
  const QString FileName = QFileDialog::getSaveFileName(
      &FWindow, tr("Save the Calibration"), Suggested, tr("Calibrations (*.xml *.XML)"));
  return !FileName.isEmpty() && saveTo(FileName);
}

bool CalibrationWorkbench::saveTo(const QString& FileName) {
  QString Path = FileName;
  if (QFileInfo(Path).suffix().isEmpty()) Path += QStringLiteral(".xml");
  const bool Same = Path == FDocument.fileName();
  if (!tell(Same ? FDocument.save() : FDocument.saveAs(Path))) return false;
  FSource.Kind = MapSourceKind::Calibration;
  FSource.Path = FDocument.fileName();
  emit saved(FDocument.fileName());
  emit done(tr("Saved %1").arg(QDir::toNativeSeparators(FDocument.fileName())));
  return true;
}

void CalibrationWorkbench::importPoints() {
  const QString FileName =
      QFileDialog::getOpenFileName(&FWindow, tr("Import Points"),
                                   QFileInfo(FDocument.imagePath()).absolutePath(), TableFilter());
  if (FileName.isEmpty()) return;
  CalibImport Mode = CalibImport::Replace;
  if (FDocument.itemCount() > 0) {
    QMessageBox Question(QMessageBox::Question, tr("Import Points"),
                         tr("There are points already. Add the new ones to them, or replace them?"),
                         QMessageBox::Cancel, &FWindow);
    const QPushButton* Add = Question.addButton(tr("&Add"), QMessageBox::AcceptRole);
    const QPushButton* Replace = Question.addButton(tr("&Replace"), QMessageBox::DestructiveRole);
    Question.exec();
    if (Question.clickedButton() != Add && Question.clickedButton() != Replace) return;
    if (Question.clickedButton() == Add) Mode = CalibImport::Append;
  }
  importFrom(FileName, Mode);
}

bool CalibrationWorkbench::importFrom(const QString& FileName, CalibImport Mode) {
  FTool->abort();
  if (!tell(FDocument.importPoints(FileName, Mode))) return false;
  emit done(tr("%n point(s) now", nullptr, FDocument.itemCount()));
  return true;
}

void CalibrationWorkbench::exportPoints() {
  const QFileInfo Image(FDocument.imagePath());
  const QString Suggested = Image.dir().filePath(Image.completeBaseName() + ".points.csv");
  const QString FileName =
      QFileDialog::getSaveFileName(&FWindow, tr("Export Points"), Suggested, TableFilter());
  if (!FileName.isEmpty()) exportTo(FileName);
}

bool CalibrationWorkbench::exportTo(const QString& FileName) {
  if (!tell(FDocument.exportPoints(FileName))) return false;
  emit done(tr("Wrote %1").arg(QDir::toNativeSeparators(FileName)));
  return true;
}

bool CalibrationWorkbench::recover(const RecoveryText& Work) {
  if (!tell(FDocument.recover(Work.Lines))) return false;
  FDock->show();
  FDock->updateWarnings();
  emit done(tr("Recovered, not saved yet"));
  return true;
}

// --- points

void CalibrationWorkbench::removeSelected() {
  const bool InTable = FDock->isAncestorOf(QApplication::focusWidget());
  const std::vector<int> Marked = FDock->selectedItems();
  if (InTable && Marked.size() > 1)
    FDocument.removeItems(Marked);
  else
    FTool->removeSelected();
}

void CalibrationWorkbench::restoreRemoved() { tell(FDocument.restoreLastRemoved()); }

}  // namespace zav
