// A window drawn in Qt Designer: the map, its properties and connections are all in map_window.ui.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QMainWindow>

#include "ui_map_window.h"

int main(int argc, char** argv) {
  QApplication App(argc, argv);
  QMainWindow Window;
  Ui::MapWindow Form;
  Form.setupUi(&Window);
  Window.show();
  if (argc > 1) Form.map->loadMap(argv[1]);
  Form.map->zoomToFit();
  return QApplication::exec();
}
