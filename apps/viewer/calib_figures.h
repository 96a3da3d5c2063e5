// calib_figures.h - how good a calibration is, and what is doubtful about it.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_CALIB_FIGURES_H
#define ZAV_APPS_VIEWER_CALIB_FIGURES_H

#include <vector>

#include <geomap/calibration/calibration.h>

#include "calib_document.h"
#include "calib_state.h"
#include "common/calibration_residuals.h"

namespace zav {

// A state, fitted.
struct CalibFit {
  explicit CalibFit(const CalibState& State);

  CalibRecord Record;
  TCalibration Calibration;
  std::vector<TResidual> Table;          // of the items in Record.Rows
  std::vector<CalibResidual> Residuals;  // of all items
  CalibQuality Quality;
};

std::vector<CalibWarning> WarningsOf(const CalibState& State, const CalibFit& Fit);

// "Point 3 (Church)", "Point 7 on meridian 10".
QString ItemTitle(const CalibState& State, size_t Index);

}  // namespace zav

#endif
