// An atlas of all maps of a folder: the zoom button and a click go to a finer map of the place.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QDir>
#include <QMessageBox>

#include <platform/qt/geo_atlas_widget.h>

int main(int argc, char** argv) {
  QApplication App(argc, argv);
  zav::GeoAtlasWidget Atlas;
  QObject::connect(&Atlas, &zav::GeoAtlasWidget::errorOccurred, &Atlas,
                   [](const QString& Text) { qWarning("%s", qUtf8Printable(Text)); });
  QObject::connect(&Atlas, &zav::GeoAtlasWidget::currentMapChanged, &Atlas,
                   [&](int Index) { Atlas.setWindowTitle(Atlas.mapCaption(Index)); });
  const QDir Folder(argc > 1 ? argv[1] : ".");
  for (const QString& File : Folder.entryList({"*.xml"}, QDir::Files))
    Atlas.registerMap(Folder.filePath(File));
  Atlas.setMapOutlineVisible(true);
  Atlas.resize(1000, 700);
  Atlas.show();
  Atlas.selectMap(Atlas.mapCount());
  Atlas.setZoomMode(true);
  return QApplication::exec();
}
