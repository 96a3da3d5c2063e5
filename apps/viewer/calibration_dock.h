// calibration_dock.h - the panel of the viewer in which a map is calibrated: model, points, how
// good they are, what is doubtful.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_CALIBRATION_DOCK_H
#define ZAV_APPS_VIEWER_CALIBRATION_DOCK_H

#include <vector>

#include <QDockWidget>
#include <QTimer>

#include "calib_document.h"
#include "position_readout.h"

class QComboBox;
class QFormLayout;
class QGridLayout;
class QLabel;
class QListWidget;
class QSpinBox;
class QTableView;
class QToolBar;

namespace zav {

class CalibrationTable;

class CalibrationDock final : public QDockWidget {
  Q_OBJECT

 public:
  CalibrationDock(CalibDocument& Document, QWidget* Parent);

  // For commands beside the points.
  QToolBar& toolBar() { return *FToolBar; }
  QTableView& table() { return *FTable; }
  CalibrationTable& model() { return *FModel; }
  void setFormat(ReadoutFormat Format);
  // Marks the row of an item; 0 = none.
  void select(int Id);
  // The items of all marked rows.
  std::vector<int> selectedItems() const;
  // Warnings are computed a moment after the last change; this does it at once.
  void updateWarnings();

 signals:
  void selected(int Id);

 protected:
  bool eventFilter(QObject* Watched, QEvent* Event) override;

 private:
  static constexpr int FigureCount = 9;

  QWidget* makeModelPart();
  QWidget* makeTable();
  QWidget* makeFigures();
  void documentChanged();
  void updateModelPart();
  void updateFigures();
  void zoneEdited();
  void tell(const QString& Reason);

  CalibDocument& FDocument;
  CalibrationTable* FModel;
  QToolBar* FToolBar;
  QComboBox* FModels = nullptr;
  QLabel* FAdvice = nullptr;
  QWidget* FUtm = nullptr;
  QSpinBox* FZone = nullptr;
  QComboBox* FHemisphere = nullptr;
  QComboBox* FEllipsoid = nullptr;
  QTableView* FTable = nullptr;
  QLabel* FHint = nullptr;
  QLabel* FNames[FigureCount] = {};
  QLabel* FValues[FigureCount] = {};
  QListWidget* FWarnings = nullptr;
  QTimer FWarningDelay;
  int FSelected = 0;
  bool FUpdating = false;
};

}  // namespace zav

#endif
