// database_layer.h - a geographic database that lies over the map.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_DATABASE_LAYER_H
#define ZAV_APPS_VIEWER_DATABASE_LAYER_H

#include <unordered_map>

#include <QString>
#include <QStringList>

#include <geodb/geo_db.h>
#include <geomap/calibration/calibration.h>

#include "layer_geometry.h"

namespace zav {

// Whether a path names one of the seven files of a database.
bool IsDatabaseFile(const QString& Path);

class DatabaseLayer {
 public:
  // Opens it for reading only, by the path of any of its files. Throws EInOutError and
  // EZAVGeoDBError.
  explicit DatabaseLayer(const QString& Path);

  const QString& path() const { return FPath; }  // absolute, without extension
  QString title() const;                         // its description, else its file's name
  TGeoDB& database() { return FDatabase; }
  bool isShown() const { return FShown; }
  void setShown(bool Shown) { FShown = Shown; }

  // Map pixels of an item's points: of a town one, of a BLOB the middle of its box. Valid until the
  // next call; gaps where the map has no place for them.
  const PixelLine& pixels(int32_t RecNo, const TCalibration& Calibration);

 private:
  PixelLine computePixels(int32_t RecNo, const TCalibration& Calibration);

  QString FPath;
  TGeoDB FDatabase;
  bool FShown = true;
  // Reading and converting points takes most of the time of drawing them.
  TCalibration FCalibration;
  std::unordered_map<int32_t, PixelLine> FPixels;
  size_t FPixelCount = 0;
};

}  // namespace zav

#endif
