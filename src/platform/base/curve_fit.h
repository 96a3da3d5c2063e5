/// @file
/// curve_fit.h - least-squares lines and parabolas through pairs of numbers.
///
/// The sums are taken about the means and over scaled abscissae, and the parabola is built from
/// polynomials that are orthogonal over the given abscissae, so that large offsets (map pixels,
/// metres of a grid) cost no digits.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_CURVE_FIT_H
#define ZAV_PLATFORM_BASE_CURVE_FIT_H

#include <cstdint>
#include <vector>

#include <platform/base/api.h>

namespace zav {

/// What TCurveFit::CalcStatistics tells about the pairs. All 0 without pairs.
struct TCurveStatistics {
  int32_t Count = 0;      ///< pairs
  double MeanX = 0;       ///< mean of x
  double MeanY = 0;       ///< mean of y
  double MeanDiff = 0;    ///< mean of y - x
  double StdDevDiff = 0;  ///< sample standard deviation (divisor n - 1) of y - x; 0 below 2 pairs
  friend bool operator==(const TCurveStatistics&, const TCurveStatistics&) = default;
};

/// Pairs of numbers, and the curves through them.
class ZAVGEO_API TCurveFit {
 public:
  /// Removes all pairs.
  void Init() noexcept { FPairs.clear(); }
  /// Adds a pair. A pair that holds an infinity or a NaN is not added.
  void EnterStatValue(double X, double Y);
  /// How many pairs there are.
  int32_t Count() const noexcept { return static_cast<int32_t>(FPairs.size()); }

  /// The line y = k*x + d with the least sum of squared residuals of y. Where all x are the same
  /// the line is level (k = 0, d the mean of y); without pairs k and d are 0. FitQual is the share
  /// of the variance of y that the line explains, 0..1; 1 where y does not vary.
  void CalcLinFit(double& k, double& d, double& FitQual) const;

  /// The same for the parabola y = k0 + k1*x + k2*x^2. With two different x the parabola is the
  /// line of CalcLinFit, with one it is level.
  void CalcParabolFit(double& k0, double& k1, double& k2, double& FitQual) const;

  /// Means and spread of the pairs; all 0 without pairs.
  TCurveStatistics CalcStatistics() const;

 private:
  struct TPair {
    double X;
    double Y;
  };
  std::vector<TPair> FPairs;
};

}  // namespace zav

#endif
