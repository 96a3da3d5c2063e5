// conic_pole.h - whether a conic fit has found the point in which the meridians meet.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_COMMON_CONIC_POLE_H
#define ZAV_APPS_COMMON_CONIC_POLE_H

#include <geomap/calibration/calibration.h>

namespace zav {

// The fit looks for that point in large steps that get smaller, starting from the middle of the
// control points, and can end far from it, most of all when they cover only a part of the map. This
// searches from many starts instead. How many times smaller the error in degrees is there; 1 or
// less when nothing better was found, and for other models and fewer than four points. Some
// hundredths of a second for a full table.
double ConicSearchGain(const TCalibration& Calibration);

}  // namespace zav

#endif
