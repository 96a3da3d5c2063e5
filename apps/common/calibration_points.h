// calibration_points.h - control points and points of graticule lines read from tables.
//
// Columns by their header names, in any order; others are ignored:
//   lat,long,pixel_x,pixel_y                                 control points in degrees
//   northing,easting[,zone,hemisphere],pixel_x,pixel_y       control points in UTM metres
//   kind,value,pixel_x,pixel_y                               points of meridians and parallels
// and with any of them: name, and enabled ("false", "off", "no" or "0" for a point that is not to
// be used). One table may hold all of them: a row whose kind is meridian or parallel is a line's
// point, and a row without northing is in degrees. Fractions of pixels are rounded.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_COMMON_CALIBRATION_POINTS_H
#define ZAV_APPS_COMMON_CALIBRATION_POINTS_H

#include <geomap/calibration/calib_data.h>

#include <optional>
#include <string>
#include <vector>

namespace zav {

struct TPointRow {
  std::optional<TGratLineKind> Line;  // empty: a control point
  double Value = 0;                   // of the line, degrees
  bool IsUtm = false;
  bool HasDegrees = false;  // a row in metres may have them, too
  TCoords Degrees;
  double Northing = 0;  // IsUtm
  double Easting = 0;
  std::optional<int> Zone;  // IsUtm: where the row tells
  std::optional<bool> South;
  TPoint Pixel;
  std::string Name;
  bool Enabled = true;
  int64_t FileLine = 0;  // where it begins, from 1
};

// The rows of a table ("-" for standard input). A table without header has the first columns above
// that fit: kind,value,... under cmParabolicIp or where it begins so, northing,easting,zone,... for
// more than four columns under cmUTM, else lat,long,... Throws EInOutError with the line that is
// wrong; nothing is skipped, because a map must not be calibrated with a part of its points.
std::vector<TPointRow> ReadPointRows(const std::string& File, TCalibModel Model);

// The error of a row, to be thrown by who uses it: "FILE:LINE" and the reason.
[[noreturn]] void FailPointRow(const std::string& File, const TPointRow& Row,
                               const std::string& Reason);

struct TPointsOptions {
  TCalibModel Model = TCalibModel::cmUndefined;
  std::optional<int> Zone;    // cmUTM: where the table does not tell, or tells the same
  std::optional<bool> South;  // cmUTM: the same
  TGeoEllipsoid Ellipsoid = TGeoEllipsoid::gelWGS84;
};

// The enabled rows that the model uses, as it wants them: lines' points under cmParabolicIp, metres
// of one zone under cmUTM, degrees else. Throws like ReadPointRows, also beyond the limits of
// TCalibData.
TCalibData ReadCalibrationItems(const std::string& File, const TPointsOptions& Options);

}  // namespace zav

#endif
