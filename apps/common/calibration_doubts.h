// calibration_doubts.h - what a person should look at before trusting a calibration.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_COMMON_CALIBRATION_DOUBTS_H
#define ZAV_APPS_COMMON_CALIBRATION_DOUBTS_H

#include <geomap/calibration/calibration.h>

#include <string>
#include <vector>

#include "common/calibration_residuals.h"

namespace zav {

enum class TDoubtKind {
  TooFew,               // points for the model
  Undetermined,         // the points lie in a row, or on one curve
  NothingToCheck,       // just as many points as the model needs
  IncompleteGraticule,  // fewer than two meridians and two parallels of three points
  ShortLine,            // a graticule line of fewer than three points
  OutsideImage,
  PoleAstray,  // the conic fit has not found where the meridians meet
  Disagrees    // a point that a fit of the others misses by far
};

struct TDoubt {
  TDoubtKind Kind;
  size_t Index = 0;   // OutsideImage, Disagrees: in the table of residuals; ShortLine: of the line
  double Pixels = 0;  // Disagrees: the miss; PoleAstray: about what a better fit would miss by
};

// The number of control points that determine the model; one more is needed to check them.
int32_t PointsNeeded(TCalibModel Model);

// Table is that of Residuals. A conic of many points takes some tenths of a second.
std::vector<TDoubt> FindDoubts(const TCalibration& Calibration,
                               const std::vector<TResidual>& Table);

// A doubt in words, as "point 3 at 47,8 is outside the image".
std::string DoubtText(const TDoubt& Doubt, const TCalibration& Calibration,
                      const std::vector<TResidual>& Table);

// How an error of one pixel in the points grows towards the image's corners: 1 or less among the
// points, more the farther a corner is from them. Indexed by TCorners; empty when it cannot be told
// (too few points, points in a row, no image size). Models other than the second-order polynomial
// are taken as of the first order, which they are at most a little worse than.
std::vector<double> GrowthAtCorners(const TCalibration& Calibration,
                                    const std::vector<TResidual>& Table);

}  // namespace zav

#endif
