// landmark_classes.h - the classes that landmarks are in: how many, and which are shown.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LANDMARK_CLASSES_H
#define ZAV_APPS_VIEWER_LANDMARK_CLASSES_H

#include <QTimer>
#include <QWidget>

class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace zav {

class LandmarkDocument;
class TGeoMap;

class LandmarkClasses final : public QWidget {
  Q_OBJECT

 public:
  // Both must outlive the widget.
  LandmarkClasses(LandmarkDocument& Document, TGeoMap& Map, QWidget* Parent);

  QTreeWidget& list() { return *FList; }
  // The class of the current row, -1 = none.
  int current() const;
  // Landmarks are counted a moment after the last change, while the list is seen; this does it at
  // once.
  void refresh();

 signals:
  // Which classes are shown has changed.
  void shownChanged();
  void removeRequested(int Class);
  // The look of the selected landmark, or of new ones, for all of a class.
  void lookRequested(int Class);

 protected:
  void showEvent(QShowEvent* Event) override;

 private:
  void show(const std::function<bool(int Class)>& Shown);
  void itemChanged(const QTreeWidgetItem* Item);
  void updateButtons();

  LandmarkDocument& FDocument;
  TGeoMap& FMap;
  QTreeWidget* FList;
  QPushButton* FOnly;
  QPushButton* FLook;
  QPushButton* FRemove;
  QTimer FDelay;
  bool FUpdating = false;
};

}  // namespace zav

#endif
