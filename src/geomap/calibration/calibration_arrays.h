/// @file
/// calibration_arrays.h - pixels and positions of whole arrays of points by a calibration.
///
/// Each point comes out as by TCalibration::ToPixel and ToGeo, not rounded, within 1e-8 m of the
/// ground; where those return false both results are NaN. The functions return how many points were
/// converted. All arrays of a call have the same length, else EZAVGeoMapError is thrown and nothing
/// happens. A result may be the very array of an argument; other overlaps are not allowed.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_CALIBRATION_CALIBRATION_ARRAYS_H
#define ZAV_GEOMAP_CALIBRATION_CALIBRATION_ARRAYS_H

#include <cstddef>
#include <span>

#include <geomap/calibration/calibration.h>
#include <platform/base/api.h>

namespace zav {

/// Pixels of positions in degrees.
ZAVGEO_API size_t ToPixels(const TCalibration& Calibration, std::span<const double> Lat,
                           std::span<const double> Long, std::span<double> X, std::span<double> Y);
/// Positions, in degrees, of pixels.
ZAVGEO_API size_t ToPositions(const TCalibration& Calibration, std::span<const double> X,
                              std::span<const double> Y, std::span<double> Lat,
                              std::span<double> Long);

}  // namespace zav

#endif
