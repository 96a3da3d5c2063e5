// database_layer.h - a geographic database that lies over the map.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_DATABASE_LAYER_H
#define ZAV_APPS_VIEWER_DATABASE_LAYER_H

#include <cstdint>
#include <vector>

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

  // What pixels() goes by from now on. To be called before a picture or a search: comparing it for
  // each item would take longer than all the rest.
  void setCalibration(const TCalibration& Calibration);
  // Map pixels of an item's points: of a town one, of a BLOB the middle of its box; gaps where the
  // map has no place for them.
  PixelLine pixels(int32_t RecNo);

 private:
  struct Pixel {
    float X;
    float Y;
  };
  // Where an item's pixels are in FPixels.
  struct Place {
    uint32_t First = 0;
    uint32_t Count = 0;  // 0: not known
  };

  QPointF pixelOf(double Latit, double Longit) const;
  // The same, a gap where the model folds a far place onto the map.
  QPointF checkedPixelOf(double Latit, double Longit) const;
  bool isBroken(const TSCoords& From, const TSCoords& To, QPointF A, QPointF B) const;
  PixelLine computePixels(int32_t RecNo);

  QString FPath;
  TGeoDB FDatabase;
  bool FShown = true;
  // Reading and converting points takes most of the time of drawing them.
  TCalibration FCalibration;
  std::vector<Place> FPlaces;  // by record number
  std::vector<Pixel> FPixels;
};

}  // namespace zav

#endif
