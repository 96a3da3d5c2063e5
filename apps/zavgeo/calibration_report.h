// calibration_report.h - residuals and their summary on standard output.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_ZAVGEO_CALIBRATION_REPORT_H
#define ZAV_APPS_ZAVGEO_CALIBRATION_REPORT_H

#include <vector>

#include "common/calibration_residuals.h"

namespace zav {

// Prints the table of residuals and, as comment lines, what they come to.
void PrintResiduals(const TCalibration& Calibration, const std::vector<TResidual>& Table);

}  // namespace zav

#endif
