// calibration_menu.h - the menu of calibrating by hand, and its commands in the menus File and Edit
// and in the tool bars.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_CALIBRATION_MENU_H
#define ZAV_APPS_VIEWER_CALIBRATION_MENU_H

#include <QKeySequence>
#include <QMenu>

#include <platform/qt/geo_map_widget.h>

class QAction;
class QActionGroup;
class QLabel;
class QSettings;
class QStatusBar;

namespace zav {

class CalibrationWorkbench;
class GraticuleMenu;

class CalibrationMenu final : public QMenu {
  Q_OBJECT

 public:
  // All must outlive the menu.
  CalibrationMenu(CalibrationWorkbench& Workbench, GeoMapWidget& Widget, GraticuleMenu& Graticule,
                  QWidget* Parent);

  // Shows and hides the panel.
  QAction* calibrate() const { return FCalibrate; }
  // Saving before an entry of the menu File, undoing at the top of the menu Edit.
  void addToFile(QMenu& File, QAction* Before);
  void addToEdit(QMenu& Edit, QAction* Before);
  // What the mouse does, while points are edited.
  void addHintTo(QStatusBar& Bar);

  void load(const QSettings& Settings);
  void save(QSettings& Settings) const;

 private:
  QAction* add(const QString& Text, const QKeySequence& Key, const QString& Tip,
               const std::function<void()>& Run);
  void addFiles();
  void addPointCommands();
  void addLook();
  void fillDock();
  void setEditing(bool On);
  void updateHint();
  void showGraticule(bool On);
  void setFactor(int Factor);
  void update();

  CalibrationWorkbench& FWorkbench;
  GeoMapWidget& FWidget;
  GraticuleMenu& FGraticuleMenu;
  QAction* FCalibrate = nullptr;
  QAction* FNew = nullptr;
  QAction* FSave = nullptr;
  QAction* FSaveAs = nullptr;
  QAction* FRevert = nullptr;
  QAction* FUndo = nullptr;
  QAction* FRedo = nullptr;
  QAction* FAdd = nullptr;
  QAction* FEdit = nullptr;
  QAction* FSwitch = nullptr;
  QAction* FRemove = nullptr;
  QAction* FRemoveNearest = nullptr;
  QAction* FRestore = nullptr;
  QAction* FNext = nullptr;
  QAction* FPrevious = nullptr;
  QAction* FImport = nullptr;
  QAction* FExport = nullptr;
  QAction* FMagnifier = nullptr;
  QActionGroup* FFactors = nullptr;
  QAction* FNames = nullptr;
  QActionGroup* FResiduals = nullptr;
  QAction* FGraticule = nullptr;
  QLabel* FHint = nullptr;
  bool FGraticuleShown = false;  // by this menu
  GeoMapWidget::Graticule FGraticuleBefore = GeoMapWidget::Graticule::NoGraticule;
};

}  // namespace zav

#endif
