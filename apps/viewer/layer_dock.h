// layer_dock.h - the panel of the databases over the map: what is shown, how, and finding items.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LAYER_DOCK_H
#define ZAV_APPS_VIEWER_LAYER_DOCK_H

#include <QDockWidget>

#include "layers.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QTreeWidget;

namespace zav {

class LayerDock final : public QDockWidget {
  Q_OBJECT

 public:
  LayerDock(Layers& Layers, QWidget* Parent);

  // Lists items found at a place of the map; the first one is selected. None clears the list.
  void showItems(const std::vector<LayerItem>& Items);
  // The keyboard goes to the search.
  void startSearch();

 signals:
  void openWanted();
  void selectedShown();  // the view was moved to the selected item

 private:
  QWidget* makeLayers();
  QWidget* makeKinds();
  QWidget* makeSearch();
  void fill();
  void fillKinds();
  void search();
  void list(const std::vector<LayerItem>& Items);
  void tellSelected();
  void chooseColor(QListWidgetItem* Item);

  Layers& FLayers;
  QListWidget* FList = nullptr;
  QListWidget* FKinds = nullptr;
  QLineEdit* FSearch = nullptr;
  QTreeWidget* FFound = nullptr;
  QLabel* FDetails = nullptr;
  bool FFilling = false;
};

}  // namespace zav

#endif
