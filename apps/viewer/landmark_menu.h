// landmark_menu.h - the menu of landmarks, and its commands in the menus File and Edit and in the
// panel.
//
// While landmarks are edited, undoing and saving mean them: the commands of that name which act on
// the calibration are hidden meanwhile.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LANDMARK_MENU_H
#define ZAV_APPS_VIEWER_LANDMARK_MENU_H

#include <functional>

#include <QKeySequence>
#include <QList>
#include <QMenu>

class QAction;
class QActionGroup;
class QLabel;
class QSettings;
class QStatusBar;

namespace zav {

class GeoMapWidget;
class LandmarkWorkbench;

class LandmarkMenu final : public QMenu {
  Q_OBJECT

 public:
  // Both must outlive the menu.
  LandmarkMenu(LandmarkWorkbench& Workbench, GeoMapWidget& Widget, QWidget* Parent);

  // Shows and hides the panel.
  QAction* editLandmarks() const { return FEdit; }
  // Before an entry of the menus; Instead are the entries that are hidden while landmarks are
  // edited.
  void addToFile(QMenu& File, QAction* Before, const QList<QAction*>& Instead);
  void addToEdit(QMenu& Edit, QAction* Before, const QList<QAction*>& Instead);
  // What the mouse does, while landmarks are edited.
  void addHintTo(QStatusBar& Bar);

  void load(const QSettings& Settings);
  void save(QSettings& Settings) const;

 private:
  QAction* add(const QString& Text, const QKeySequence& Key, const QString& Tip,
               const std::function<void()>& Run);
  void addFiles();
  void addModes();
  void addCommands();
  void addCaptions();
  void setEditing(bool On);
  void updateHint();
  void update();

  LandmarkWorkbench& FWorkbench;
  GeoMapWidget& FWidget;
  QAction* FEdit = nullptr;
  QAction* FSave = nullptr;
  QAction* FSaveAs = nullptr;
  QAction* FUndo = nullptr;
  QAction* FRedo = nullptr;
  QActionGroup* FModes = nullptr;
  QActionGroup* FCaptions = nullptr;
  QAction* FRemove = nullptr;
  QAction* FRemoveAll = nullptr;
  QList<QAction*> FMine;    // shown while landmarks are edited
  QList<QAction*> FOthers;  // hidden meanwhile
  QStatusBar* FStatus = nullptr;
  QLabel* FHint = nullptr;
};

}  // namespace zav

#endif
