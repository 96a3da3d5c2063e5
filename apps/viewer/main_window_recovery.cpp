// main_window_recovery.cpp - the viewer's window: unsaved work through a crash.
// SPDX-License-Identifier: MIT
#include <QDir>
#include <QFileInfo>
#include <QStatusBar>

#include "autosave.h"
#include "calibration_workbench.h"
#include "landmark_workbench.h"
#include "main_window.h"
#include "message_bar.h"

namespace zav {

namespace {

QString Named(const QString& FileName) { return QDir::toNativeSeparators(FileName); }

}  // namespace

void MainWindow::keepWork(const QString& Folder) {
  FAutosave = new Autosave(FCalibration->document(), FLandmarks->document(), Folder, this);
  connect(FAutosave, &Autosave::failed, this, [this](const QString& Reason) {
    statusBar()->showMessage(
        tr("Unsaved work would be lost in a crash, because it cannot be kept: %1").arg(Reason),
        15000);
  });
  QStringList Damaged;
  FLeft = FAutosave->folder().takeLeft(Damaged);
  for (QString& File : Damaged) File = Named(File);
  if (!Damaged.isEmpty())
    report(
        tr("Unsaved work that was kept before a crash is damaged and cannot be recovered. It was "
           "put aside: %1")
            .arg(Damaged.join(QStringLiteral(", "))));
  offerLeftWork();
}

// One after the other, in a line of its own: messages come and go.
void MainWindow::offerLeftWork() {
  if (FLeft.empty()) return FOffer->hide();
  const RecoveryHead& Head = FLeft.front().Work.Head;
  const QString Time = locale().toString(Head.Saved.toLocalTime(), QLocale::ShortFormat);
  QString Text;
  if (Head.Kind == RecoveryKind::Calibration)
    Text = tr("The viewer ended before the calibration of \"%1\" was saved (%2).")
               .arg(Head.Title, Time);
  else if (Head.Title.isEmpty())
    Text = tr("The viewer ended before the landmarks were saved (%1).").arg(Time);
  else
    Text = tr("The viewer ended before the landmarks of \"%1\" were saved (%2).")
               .arg(Head.Title, Time);
  if (StampOf(Head.FileName) != Head.Stamp)
    Text += QLatin1Char(' ') + tr("The file \"%1\" has been changed since. It stays as it is until "
                                  "you save the recovered work.")
                                   .arg(Named(Head.FileName));
  FOffer->showChoices(Text, {{tr("&Recover"), [this] { recoverLeftWork(); }},
                             {tr("&Discard"),
                              [this] {
                                RecoveryFolder::discard(FLeft.front());
                                FLeft.erase(FLeft.begin());
                                offerLeftWork();
                              }},
                             {tr("&Later"), [this] {
                                FLeft.erase(FLeft.begin());
                                offerLeftWork();
                              }}});
}

void MainWindow::recoverLeftWork() {
  const LeftWork Left = FLeft.front();
  const bool Calibration = Left.Work.Head.Kind == RecoveryKind::Calibration;
  const std::optional<bool> Done = Calibration ? recoverCalibration(Left) : recoverLandmarks(Left);
  // Given up by the user: the offer stays.
  if (!Done) return offerLeftWork();
  // What was left is not needed any more when this viewer keeps it itself.
  if (*Done && FAutosave->saveNow()) RecoveryFolder::discard(Left);
  FLeft.erase(FLeft.begin());
  offerLeftWork();
}

std::optional<bool> MainWindow::recoverCalibration(const LeftWork& Left) {
  const RecoveryHead& Head = Left.Work.Head;
  MapSource Source = InspectMap(Head.FileName.isEmpty() ? Head.ImagePath : Head.FileName);
  // The calibration file may be gone or have been spoilt; the image is all that is needed.
  if (!Source.Problem.isEmpty() && !Head.ImagePath.isEmpty()) Source = InspectMap(Head.ImagePath);
  if (!FCalibration->letGo()) return std::nullopt;
  if (!openAll({Source.Path}).isEmpty() || !FShown || FShown->Path != Source.Path) return false;
  return FCalibration->recover(Left.Work);
}

std::optional<bool> MainWindow::recoverLandmarks(const LeftWork& Left) {
  if (!FLandmarks->letGo()) return std::nullopt;
  return FLandmarks->recover(Left.Work);
}

}  // namespace zav
