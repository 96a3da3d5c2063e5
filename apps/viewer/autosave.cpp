// autosave.cpp - see autosave.h.
// SPDX-License-Identifier: MIT
#include "autosave.h"

#include <algorithm>
#include <utility>

#include <QDateTime>
#include <QElapsedTimer>
#include <QFileInfo>

#include "calib_document.h"
#include "landmark_document.h"

namespace zav {

namespace {
// A hundred thousand landmarks take a moment; it must not come again and again.
constexpr int PauseForWork = 50;
}  // namespace

Autosave::Autosave(CalibDocument& Calibration, LandmarkDocument& Landmarks, const QString& Folder,
                   QObject* Parent)
    : QObject(Parent), FCalibration(Calibration), FLandmarks(Landmarks), FFolder(Folder) {
  for (QTimer* Timer : {&FPause, &FLongest}) {
    Timer->setSingleShot(true);
    connect(Timer, &QTimer::timeout, this, &Autosave::saveNow);
  }
  FPause.setInterval(Pause);
  FLongest.setInterval(Longest);
  connect(&Calibration, &CalibDocument::changed, this, &Autosave::calibrationChanged);
  connect(&Landmarks, &LandmarkDocument::changed, this, &Autosave::landmarksChanged);
  calibrationChanged();
  landmarksChanged();
}

void Autosave::calibrationChanged() {
  follow(FCalibrationPart, RecoveryKind::Calibration, FCalibration.isModified(),
         FCalibration.fileName());
}

void Autosave::landmarksChanged() {
  follow(FLandmarksPart, RecoveryKind::Landmarks, FLandmarks.isModified(), FLandmarks.fileName());
}

void Autosave::follow(Part& Of, RecoveryKind Kind, bool Modified, const QString& FileName) {
  if (FFinished) return;
  Of.Waiting = Modified;
  if (Modified) {
    FPause.start();
    if (!FLongest.isActive()) FLongest.start();
    return;
  }
  if (std::exchange(Of.Kept, false)) FFolder.remove(Kind);
  Of.Stamp = StampOf(FileName);
}

bool Autosave::saveNow() {
  bool Done = true;
  FPause.stop();
  FLongest.stop();
  QElapsedTimer Clock;
  Clock.start();
  if (FCalibrationPart.Waiting) {
    const QString Image = FCalibration.imagePath();
    const QString File = FCalibration.fileName();
    const QString Caption = FCalibration.caption();
    const QString Title =
        Caption.isEmpty() ? QFileInfo(File.isEmpty() ? Image : File).fileName() : Caption;
    Done = keep(FCalibrationPart, {RecoveryKind::Calibration, Title, File, Image, {}, {}},
                FCalibration.recoveryText());
  }
  if (FLandmarksPart.Waiting) {
    const QString File = FLandmarks.fileName();
    Done &= keep(FLandmarksPart,
                 {RecoveryKind::Landmarks, QFileInfo(File).fileName(), File, {}, {}, {}},
                 FLandmarks.recoveryText());
  }
  FPause.setInterval(std::max<int>(Pause, static_cast<int>(Clock.elapsed()) * PauseForWork));
  FLongest.setInterval(std::max(Longest, FPause.interval()));
  return Done;
}

bool Autosave::keep(Part& Of, RecoveryHead Head, const std::string& Body) {
  Of.Waiting = false;
  Head.Saved = QDateTime::currentDateTimeUtc();
  Head.Stamp = Of.Stamp;
  const QString Reason = FFolder.write(Head, Body);
  if (Reason.isEmpty()) {
    Of.Kept = true;
  } else if (!std::exchange(FToldFailure, true)) {
    emit failed(Reason);
  }
  return Reason.isEmpty();
}

void Autosave::finish() {
  FFinished = true;
  FPause.stop();
  FLongest.stop();
  FFolder.remove(RecoveryKind::Calibration);
  FFolder.remove(RecoveryKind::Landmarks);
}

}  // namespace zav
