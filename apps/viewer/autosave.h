// autosave.h - keeps unsaved work in a folder of its own while it is worked on.
//
// Work is kept a moment after it was changed, and now and then while it changes on; when it is
// saved or given up, what was kept is removed. The user's own files are never touched.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_AUTOSAVE_H
#define ZAV_APPS_VIEWER_AUTOSAVE_H

#include <QObject>
#include <QString>
#include <QTimer>

#include "recovery_folder.h"

namespace zav {

class CalibDocument;
class LandmarkDocument;

class Autosave final : public QObject {
  Q_OBJECT

 public:
  static constexpr int Pause = 2000;     // milliseconds after the last change
  static constexpr int Longest = 10000;  // after the first one

  // The documents must outlive it.
  Autosave(CalibDocument& Calibration, LandmarkDocument& Landmarks, const QString& Folder,
           QObject* Parent);

  RecoveryFolder& folder() { return FFolder; }
  // What is waiting is kept now. False when it cannot be.
  bool saveNow();
  // The work is over: nothing is kept from now on.
  void finish();

 signals:
  // Told once: work cannot be kept, and why.
  void failed(const QString& Reason);

 private:
  // One of the documents.
  struct Part {
    bool Kept = false;     // there is a file
    bool Waiting = false;  // changed since it was kept
    FileStamp Stamp;       // of the document's own file when it was as the document
  };

  void calibrationChanged();
  void landmarksChanged();
  void follow(Part& Of, RecoveryKind Kind, bool Modified, const QString& FileName);
  bool keep(Part& Of, RecoveryHead Head, const std::string& Body);

  CalibDocument& FCalibration;
  LandmarkDocument& FLandmarks;
  RecoveryFolder FFolder;
  Part FCalibrationPart;
  Part FLandmarksPart;
  QTimer FPause;
  QTimer FLongest;
  bool FToldFailure = false;
  bool FFinished = false;
};

}  // namespace zav

#endif
