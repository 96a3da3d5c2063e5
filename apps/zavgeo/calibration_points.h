// calibration_points.h - control points and graticule lines read from tables.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_ZAVGEO_CALIBRATION_POINTS_H
#define ZAV_APPS_ZAVGEO_CALIBRATION_POINTS_H

#include <geomap/calibration/calib_data.h>

#include <optional>
#include <string>

namespace zav {

struct TPointsOptions {
  TCalibModel Model = TCalibModel::cmUndefined;
  std::optional<int> Zone;    // cmUTM: where the table does not tell, or tells the same
  std::optional<bool> South;  // cmUTM: the same
  TGeoEllipsoid Ellipsoid = TGeoEllipsoid::gelWGS84;
};

// Reads the calibration items of a table ("-" for standard input):
//   kind,value,pixel_x,pixel_y                               points of meridians and parallels
//   (cmParabolicIp) northing,easting[,zone,hemisphere],pixel_x,pixel_y       control points (cmUTM)
//   lat,long,pixel_x,pixel_y                                 control points (every other model, and
//   cmUTM)
// Fractions of pixels are rounded. Throws EInOutError with the line that is wrong; nothing is
// skipped, because a map must not be calibrated with a part of its points.
TCalibData ReadCalibrationItems(const std::string& File, const TPointsOptions& Options);

}  // namespace zav

#endif
