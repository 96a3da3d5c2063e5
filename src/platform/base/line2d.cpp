// line2d.cpp - see line2d.h.
// SPDX-License-Identifier: MIT
#include <platform/base/line2d.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace zav {
namespace {

// The stretch of the line's parameter in which one coordinate lies between two bounds.
struct TStretch {
  double Low = -std::numeric_limits<double>::infinity();
  double High = std::numeric_limits<double>::infinity();
};

// Cuts the stretch to where Start + t * Step lies in Low..High; false when nothing is left. That is
// the method of Y.-D. Liang and B. A. Barsky, ACM Transactions on Graphics 3 (1984) 1-22.
bool Cut(TStretch& Stretch, double Start, double Step, double Low, double High) noexcept {
  if (Step == 0) return Start >= Low && Start <= High;
  const double a = (Low - Start) / Step;
  const double b = (High - Start) / Step;
  Stretch.Low = std::max(Stretch.Low, std::min(a, b));
  Stretch.High = std::min(Stretch.High, std::max(a, b));
  return Stretch.Low <= Stretch.High;
}

}  // namespace

void TSLine::LineFrom2Points(double X1, double Y1, double X2, double Y2) noexcept {
  const double dx = X2 - X1;
  const double dy = Y2 - Y1;
  const bool usable = std::isfinite(dx) && std::isfinite(dy);
  FX = X1;
  FY = Y1;
  FDx = usable ? dx : 0;
  FDy = usable ? dy : 0;
}

bool TSLine::ClipBox(double Left, double Top, double Right, double Bottom, double& X1, double& Y1,
                     double& X2, double& Y2) const noexcept {
  if (FDx == 0 && FDy == 0) return false;
  const auto [left, right] = std::minmax(Left, Right);
  const auto [top, bottom] = std::minmax(Top, Bottom);
  TStretch stretch;
  if (!Cut(stretch, FX, FDx, left, right) || !Cut(stretch, FY, FDy, top, bottom)) return false;
  if (!std::isfinite(stretch.Low) || !std::isfinite(stretch.High)) return false;
  // Rounding must not carry an end out of the box.
  X1 = std::clamp(FX + stretch.Low * FDx, left, right);
  Y1 = std::clamp(FY + stretch.Low * FDy, top, bottom);
  X2 = std::clamp(FX + stretch.High * FDx, left, right);
  Y2 = std::clamp(FY + stretch.High * FDy, top, bottom);
  return true;
}

}  // namespace zav
