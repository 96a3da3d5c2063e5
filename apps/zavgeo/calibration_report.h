// calibration_report.h - how well a calibration meets its points, and what is doubtful about them.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_ZAVGEO_CALIBRATION_REPORT_H
#define ZAV_APPS_ZAVGEO_CALIBRATION_REPORT_H

#include <geomap/calibration/calibration.h>

#include <string>
#include <vector>

namespace zav {

// One calibration item and how far the fit misses it. Nothing here is rounded.
struct TResidual {
  TCoords Position;  // of the point; of a graticule line's point what the line does not tell is
                     // read off the map
  TPoint Pixel;
  bool Valid = false;  // false when the model gives no pixel for the position
  double Dx = 0;       // predicted minus given pixel
  double Dy = 0;
  double Pixels = 0;  // length of (Dx, Dy)
  double Metres = 0;  // from the position to the one read off the map at the given pixel
};

// One for each item, in their order.
std::vector<TResidual> Residuals(const TCalibration& Calibration);

// Prints the table of residuals and, as comment lines, what they come to.
void PrintResiduals(const TCalibration& Calibration, const std::vector<TResidual>& Table);

// What a person should look at before trusting the calibration: too few points, points in a row,
// points outside the image, points that do not agree with the others.
std::vector<std::string> Doubts(const TCalibration& Calibration,
                                const std::vector<TResidual>& Table);

}  // namespace zav

#endif
