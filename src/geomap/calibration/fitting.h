/// @file
/// fitting.h - from calibration items to the coefficients that the conversions evaluate.
///
/// One function a model; each reads the items it uses and leaves the coefficients of the others
/// alone. Pixels are (X, Y), angles degrees. None of them throws.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_CALIBRATION_FITTING_H
#define ZAV_GEOMAP_CALIBRATION_FITTING_H

#include <array>
#include <cstdint>

#include <geomap/calibration/calib_data.h>
#include <platform/base/api.h>
#include <platform/base/matrix.h>
#include <platform/base/progress.h>

namespace zav {

/// What the fits leave behind; which of it counts depends on the model. Zero until fitted.
struct TCalibCoefficients {
  /// First order (cmEquiRect, cmUTM): latitude = [0] + [1]*X + [2]*Y.
  std::array<double, 3> CalCoefLat{};
  std::array<double, 3> CalCoefLong{};  ///< the same for the longitude
  std::array<double, 3> CalCoefPixX{};  ///< column = [0] + [1]*Lat + [2]*Long
  std::array<double, 3> CalCoefPixY{};  ///< the same for the row
  /// Second order, latitude: of 1, X, Y, X*X, X*Y, Y*Y.
  std::array<double, 6> BiqCoefLat{};
  std::array<double, 6> BiqCoefLong{};  ///< the same for the longitude
  std::array<double, 6> BiqCoefPixX{};  ///< column: of 1, Lat, Long, Lat*Lat, Lat*Long, Long*Long
  std::array<double, 6> BiqCoefPixY{};  ///< the same for the row
  /// Slope and intercept of Y against ln(tan(0.4 Lat + 45 deg)), then of X against the longitude in
  /// radians.
  std::array<double, 4> MillerParams{};
  /// Pole pixel X and Y; slope and intercept of the latitude against the radius; of the longitude
  /// against the angle.
  std::array<double, 6> ConicParams{};
  friend bool operator==(const TCalibCoefficients&, const TCalibCoefficients&) = default;
};

/// Least squares over the control points, in degrees (cmEquiRect) or UTM metres (cmUTM). Fewer than
/// three points, or points in one line, have the solution of least norm; no points, or an aborted
/// progress, leave zeros.
ZAVGEO_API void FitFirstOrder(const TCalibData& Data, TCalibCoefficients& Coef,
                              TProgress& Progress);

/// The same of second order; determined from six points on. Products of pixels are 32-bit integers.
ZAVGEO_API void FitBiquadratic(const TCalibData& Data, TCalibCoefficients& Coef,
                               TProgress& Progress);

/// Miller's cylindrical projection, upright. Below 3 control points the parameters stay.
///   J. P. Snyder, "Map projections - a working manual", USGS 1395 (1987), p. 88; the factor 1.25
///   is part of the fitted slope.
ZAVGEO_API void FitMiller(const TCalibData& Data, TCalibCoefficients& Coef);

/// A cone: searches the pole pixel by halving steps from 1000000 down to 1, five by five candidates
/// a step, each with a line through latitude against radius and one through longitude against
/// angle. Below 3 control points the parameters stay. The search starts from the middle of the
/// control points, the image's width and height being upper bounds for its lower end; pass 0 where
/// they are not known. The result does not depend on the order of the control points.
ZAVGEO_API void FitConic(const TCalibData& Data, int32_t ImageWidth, int32_t ImageHeight,
                         TCalibCoefficients& Coef);

/// Parabolas through the points of the graticule lines. GratMat gets 5 columns (1 = parallel or
/// 0 = meridian, value, c0, c1, c2) and one row a line: Y = c0 + c1*X + c2*X*X on a parallel,
/// X = c0 + c1*Y + c2*Y*Y on a meridian; c0..c2 are 0 for a line of fewer than 3 points. True with
/// at least 2 parallels and 2 meridians of 3 or more points; otherwise GratMat is one row of zeros.
ZAVGEO_API bool FitGraticule(const TCalibData& Data, TMatrix& GratMat);

}  // namespace zav

#endif
