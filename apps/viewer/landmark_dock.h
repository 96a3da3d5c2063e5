// landmark_dock.h - the panel of the viewer in which landmarks are found and edited.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LANDMARK_DOCK_H
#define ZAV_APPS_VIEWER_LANDMARK_DOCK_H

#include <QDockWidget>

class QLabel;
class QLineEdit;
class QTableView;
class QToolBar;

namespace zav {

class LandmarkClasses;
class LandmarkDocument;
class LandmarkPalette;
class LandmarkPanel;
class LandmarkTableModel;
class TGeoMap;

class LandmarkDock final : public QDockWidget {
  Q_OBJECT

 public:
  LandmarkDock(LandmarkDocument& Document, TGeoMap& Map, QWidget* Parent);

  QToolBar& toolBar() { return *FToolBar; }
  LandmarkPanel& panel() { return *FPanel; }
  LandmarkPalette& palette() { return *FPalette; }
  LandmarkClasses& classes() { return *FClasses; }
  LandmarkTableModel& model() { return *FModel; }
  QTableView& table() { return *FTable; }
  // Marks the row of a landmark; 0 = none.
  void select(int Landmark);
  void focusSearch();
  void showClasses();
  // What was refused; empty takes it away.
  void tell(const QString& Reason);

 signals:
  void selected(int Landmark);
  // Escape was pressed in a field.
  void left();

 protected:
  void keyPressEvent(QKeyEvent* Event) override;

 private:
  QWidget* makeSearch();
  void updateSummary();

  LandmarkTableModel* FModel;
  QToolBar* FToolBar;
  QLineEdit* FSearch = nullptr;
  QLabel* FSummary = nullptr;
  QTableView* FTable = nullptr;
  LandmarkPalette* FPalette;
  LandmarkPanel* FPanel;
  LandmarkClasses* FClasses;
  QLabel* FHint;
  int FSelected = 0;
  bool FUpdating = false;
};

}  // namespace zav

#endif
