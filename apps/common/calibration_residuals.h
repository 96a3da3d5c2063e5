// calibration_residuals.h - how well a calibration meets its points.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_COMMON_CALIBRATION_RESIDUALS_H
#define ZAV_APPS_COMMON_CALIBRATION_RESIDUALS_H

#include <geomap/calibration/calibration.h>

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

// Of a control point, which need not be one of the calibration's own.
TResidual ResidualOf(const TCalibration& Calibration, const TCalQuad& Quad);
// Of a point of a graticule line, likewise.
TResidual ResidualOf(const TCalibration& Calibration, TGratLineKind Line, double Value,
                     TPoint Pixel);
// One for each item that the model uses, in their order.
std::vector<TResidual> Residuals(const TCalibration& Calibration);

// What the valid residuals come to.
struct TResidualSummary {
  int Count = 0;
  double RmsX = 0, RmsY = 0;  // root mean squares, pixels
  double Rms = 0;
  double MaxPixels = 0;
  double RmsMetres = 0, MaxMetres = 0;
};

TResidualSummary SummaryOf(const std::vector<TResidual>& Table);

}  // namespace zav

#endif
