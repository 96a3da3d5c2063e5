// map_source.h - what a file on the disk has to offer as a map, found out before anything is shown.
//
// Reads the calibration and the header of the image; the picture itself is not decoded.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_MAP_SOURCE_H
#define ZAV_APPS_VIEWER_MAP_SOURCE_H

#include <QSize>
#include <QString>
#include <QStringList>

#include <geomap/calibration/calib_data.h>

namespace zav {

enum class MapSourceKind { Calibration, Image, Other };

struct MapSource {
  MapSourceKind Kind = MapSourceKind::Other;
  QString Path;     // absolute
  QString Caption;  // for people: as spelled in the file, else the file's name
  TCalibModel Model = TCalibModel::cmUndefined;
  QString ImagePath;      // of the image that was found, empty = none
  QSize ImageSize;        // empty when it could not be told
  double Resolution = 0;  // metres per pixel as the calibration tells it, 0 = not known
  QString Problem;        // why it cannot be shown and what to do; empty = it can
};

// Looks at a calibration file or an image. Never throws: what is wrong is told in Problem.
MapSource InspectMap(const QString& Path);

// The maps of a folder in the order of their names: its calibration files, damaged ones too, and
// the images that none of them names. XML files of other kinds are left out.
QList<MapSource> InspectFolder(const QString& Folder);

// Name of the model for people.
QString ModelName(TCalibModel Model);

// Why the library refused, with the file's name and what to do about it.
QString LoadProblem(const QString& Path, const QString& Reason);

}  // namespace zav

#endif
