// calibration_workbench.h - calibrating by hand in the viewer: brings together the document, the
// panel, the points on the map and the files.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_CALIBRATION_WORKBENCH_H
#define ZAV_APPS_VIEWER_CALIBRATION_WORKBENCH_H

#include <QObject>
#include <QString>

#include "calib_document.h"
#include "calibration_dock.h"
#include "calibration_tool.h"
#include "map_source.h"
#include "recovery_text.h"

class QMainWindow;

namespace zav {

class GeoMapWidget;
class ReadoutButton;

class CalibrationWorkbench final : public QObject {
  Q_OBJECT

 public:
  // Puts its panel into the window, hidden. Window, widget and read-out must outlive it.
  CalibrationWorkbench(QMainWindow& Window, GeoMapWidget& Widget, ReadoutButton& Readout);

  ~CalibrationWorkbench() override;

  CalibDocument& document() { return FDocument; }
  CalibrationDock& dock() { return *FDock; }
  CalibrationTool& tool() { return *FTool; }

  // To be called after the map shown has changed. What the calibration file cannot hold is put back
  // on the map.
  void mapOpened(const MapSource& Source);
  void mapClosed();
  // Asks what to do about unsaved work, if there is any, and does it. False: stay with it.
  bool letGo();

  // These ask for what they need, and tell what went wrong with problem().
  void startNew();
  bool save();
  bool saveAs();
  void revert();
  void importPoints();
  void exportPoints();
  // The same with the answer given.
  bool saveTo(const QString& FileName);
  bool importFrom(const QString& FileName, CalibImport Mode);
  bool exportTo(const QString& FileName);
  // Puts work that a crash has left in the place of what was opened, and shows it.
  bool recover(const RecoveryText& Work);

  void removeSelected();
  void restoreRemoved();

 signals:
  // For people. Empty: what was told before holds no more.
  void problem(const QString& Text);
  void done(const QString& Text);
  // The calibration was written to a file, or its state of being modified is another.
  void saved(const QString& FileName);
  void modifiedChanged(bool Modified);

 private:
  void documentChanged();
  bool tell(const QString& Reason);
  void reload();

  QMainWindow& FWindow;
  GeoMapWidget& FWidget;
  CalibDocument FDocument;
  CalibrationDock* FDock;
  CalibrationTool* FTool;
  MapSource FSource;
  bool FLoading = false;
  bool FModified = false;
};

}  // namespace zav

#endif
