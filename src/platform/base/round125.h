/// @file
/// round125.h - round numbers for grids and scales.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_ROUND125_H
#define ZAV_PLATFORM_BASE_ROUND125_H

#include <platform/base/api.h>

namespace zav {

/// The nearest number of the series ..., 0.1, 0.2, 0.5, 1, 2, 5, 10, 20, 50, ...; half way between
/// two the larger one. Negative values alike with their sign; 0 and NaN give 0, infinities
/// themselves.
ZAVGEO_API double Round125(double Value);

}  // namespace zav

#endif
