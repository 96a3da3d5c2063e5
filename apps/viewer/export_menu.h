// export_menu.h - the commands that take a map out of the viewer: pictures, PDF, print, clipboard,
// and a copy of image and calibration.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_EXPORT_MENU_H
#define ZAV_APPS_VIEWER_EXPORT_MENU_H

#include <optional>

#include <QList>
#include <QObject>
#include <QRect>
#include <QString>
#include <QStringList>

#include <geomap/view/map_part.h>

#include "map_source.h"

class QAction;
class QMenu;
class QSettings;
class QWidget;

namespace zav {

class GeoMapWidget;

class ExportMenu final : public QObject {
  Q_OBJECT

 public:
  // Widget, settings (may be null) and window must outlive it.
  ExportMenu(GeoMapWidget& Widget, QSettings* Settings, QWidget& Window);

  // Puts the commands before the action Before.
  void addToFile(QMenu& File, QAction* Before);
  void addToEdit(QMenu& Edit);
  // What is shown now; nothing without a map.
  void setMap(const std::optional<MapSource>& Source);

  // Asks for a name and writes a rectangle of map pixels as a picture.
  void saveRectangle(const QRect& MapPixels);
  // Writes image and calibration as a map of their own; the map shown stays the one it is. Returns
  // what went wrong, empty = nothing.
  QString saveMapTo(const QString& Path);

 signals:
  // For people.
  void problem(const QString& Text);
  void done(const QString& Text);

 private:
  QAction* add(QMenu& Menu, QAction* Before, const QString& Text, void (ExportMenu::*Command)());
  void savePart(const TMapPart& Part);
  void copyPart(const TMapPart& Part);
  void saveView();
  void saveWhole();
  void copyView();
  void copyWhole();
  void exportPdf();
  void print();
  void saveMap();
  void openPrintDialog(bool Pdf);
  QStringList protectedFiles() const;
  QString proposal() const;

  GeoMapWidget& FWidget;
  QSettings* FSettings;
  QWidget& FWindow;
  std::optional<MapSource> FSource;
  QList<QAction*> FActions;
};

}  // namespace zav

#endif
