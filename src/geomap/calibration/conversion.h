/// @file
/// conversion.h - between pixels and positions with a fitted model.
///
/// Pure evaluations, for TCalibration and whoever holds coefficients of his own. Divisions by a
/// slope of zero give infinities or NaN unless stated otherwise.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_CALIBRATION_CONVERSION_H
#define ZAV_GEOMAP_CALIBRATION_CONVERSION_H

#include <cstdint>

#include <geobasics/ellipsoids.h>
#include <geomap/calibration/calib_data.h>
#include <geomap/calibration/fitting.h>
#include <platform/base/api.h>
#include <platform/base/matrix.h>

namespace zav {

/// A model with its coefficients. Refers to them: use it while they live.
struct TFittedModel {
  TCalibModel Model;               ///< which of the rest counts
  const TCalibCoefficients& Coef;  ///< of the fit
  const TMatrix& GratMat;          ///< lines of cmParabolicIp, as TCalibration::GratMat
  int32_t UTMZone;                 ///< of the map, 1..60 under cmUTM
  bool UTMSouth;                   ///< hemisphere of the zone
  TGeoEllipsoid Ellipsoid;         ///< that positions are taken on
};

/// A pixel position with its squares, which whole pixels form in 32-bit integers.
struct ZAVGEO_API TPixelTerms {
  double X;   ///< column
  double Y;   ///< row
  double XX;  ///< X squared
  double YY;  ///< Y squared

  /// Of a whole pixel, as the conversions with whole pixels take it.
  static TPixelTerms Whole(int32_t X, int32_t Y) noexcept;
  /// Of any position.
  static TPixelTerms Exact(double X, double Y) noexcept { return {X, Y, X * X, Y * Y}; }
};

/// A pixel position that is not rounded.
struct TExactPixel {
  double X = 0;  ///< to the right
  double Y = 0;  ///< down
};

/// Latitude and longitude of a pixel in degrees; 0 and Valid = false where the model gives nothing.
ZAVGEO_API double PixelToLatitude(const TFittedModel& Fit, const TPixelTerms& P,
                                  bool& Valid) noexcept;
/// The same for the longitude.
ZAVGEO_API double PixelToLongitude(const TFittedModel& Fit, const TPixelTerms& P,
                                   bool& Valid) noexcept;

/// What is rounded on the way.
enum class TPixelRounding : uint8_t {
  None,  ///< nothing
  Row    ///< the conic model computes the column from the rounded row
};

/// What became of a position.
enum class TPixelResult : uint8_t {
  Found,     ///< P is its pixel
  Diverged,  ///< parabolic model: the pixel is where the iteration was stopped
  Nothing    ///< no pixel, the argument is unchanged
};

/// Pixel of a position in degrees. Under cmUTM the position is projected in the zone it lies in,
/// not in the zone of the map. A cone that is not fitted gives (0, 0).
ZAVGEO_API TPixelResult PositionToPixel(const TFittedModel& Fit, double Lat, double Long,
                                        TPixelRounding Rounding, TExactPixel& P) noexcept;

/// Whether there is a fit, so that the conversions mean something.
ZAVGEO_API bool IsFitted(const TFittedModel& Fit) noexcept;

/// The first-order polynomial from UTM metres to pixels.
ZAVGEO_API TExactPixel UTMToPixel(const TCalibCoefficients& Coef, double Northing,
                                  double Easting) noexcept;

}  // namespace zav

#endif
