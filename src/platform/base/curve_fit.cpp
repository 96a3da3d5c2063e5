// curve_fit.cpp - see curve_fit.h.
//
// With u = (x - mean of x) / greatest |x - mean of x| the polynomials p0 = 1, p1 = u and
// p2 = u^2 - a*u - b are orthogonal over the pairs when a = sum(u^3)/sum(u^2) and b = mean(u^2)
// (G. E. Forsythe, Generation and use of orthogonal polynomials for data-fitting with a digital
// computer, J. SIAM 5 (1957) 74-88), and every coefficient is a quotient of two sums.
// SPDX-License-Identifier: MIT
#include <platform/base/curve_fit.h>

#include <algorithm>
#include <cmath>

namespace zav {
namespace {

// A fit in the scaled abscissa: y = MeanY + c1*p1 + c2*p2.
struct TScaledFit {
  double MeanX = 0, MeanY = 0, Scale = 1;
  double A = 0, B = 0;
  double C1 = 0, C2 = 0;
  double Quality = 1;
};

// Below this share of the largest possible norm p2 is nothing but rounding: two different x only.
constexpr double SmallestNorm = 1e-24;

template <class TPairs>
void CentreAndScale(const TPairs& Pairs, TScaledFit& Fit) {
  const auto n = static_cast<double>(Pairs.size());
  // The first pair as the origin keeps the sums short where the values are large and close.
  double sumX = 0, sumY = 0;
  for (const auto& p : Pairs) {
    sumX += p.X - Pairs.front().X;
    sumY += p.Y - Pairs.front().Y;
  }
  Fit.MeanX = Pairs.front().X + sumX / n;
  Fit.MeanY = Pairs.front().Y + sumY / n;
  double reach = 0;
  for (const auto& p : Pairs) reach = std::max(reach, std::abs(p.X - Fit.MeanX));
  const auto sameX = [&](const auto& p) { return p.X == Pairs.front().X; };
  Fit.Scale = std::all_of(Pairs.begin(), Pairs.end(), sameX) ? 0 : reach;
}

template <class TPairs>
double ExplainedShare(const TPairs& Pairs, const TScaledFit& Fit) {
  double total = 0, rest = 0;
  for (const auto& p : Pairs) {
    const double u = Fit.Scale > 0 ? (p.X - Fit.MeanX) / Fit.Scale : 0;
    const double y = p.Y - Fit.MeanY;
    const double residual = y - Fit.C1 * u - Fit.C2 * (u * u - Fit.A * u - Fit.B);
    total += y * y;
    rest += residual * residual;
  }
  return total > 0 ? std::clamp(1 - rest / total, 0.0, 1.0) : 1.0;
}

template <class TPairs>
TScaledFit FitPairs(const TPairs& Pairs, int Degree) {
  TScaledFit fit;
  if (Pairs.empty()) return fit;
  CentreAndScale(Pairs, fit);
  if (fit.Scale > 0) {
    double u2 = 0, u3 = 0, uy = 0;
    for (const auto& p : Pairs) {
      const double u = (p.X - fit.MeanX) / fit.Scale;
      u2 += u * u;
      u3 += u * u * u;
      uy += u * (p.Y - fit.MeanY);
    }
    fit.C1 = uy / u2;
    if (Degree == 2) {
      fit.A = u3 / u2;
      fit.B = u2 / static_cast<double>(Pairs.size());
      double norm = 0, py = 0;
      for (const auto& p : Pairs) {
        const double u = (p.X - fit.MeanX) / fit.Scale;
        const double p2 = u * u - fit.A * u - fit.B;
        norm += p2 * p2;
        py += p2 * (p.Y - fit.MeanY);
      }
      if (norm > SmallestNorm * static_cast<double>(Pairs.size())) fit.C2 = py / norm;
    }
  }
  fit.Quality = ExplainedShare(Pairs, fit);
  return fit;
}

}  // namespace

void TCurveFit::EnterStatValue(double X, double Y) {
  if (std::isfinite(X) && std::isfinite(Y)) FPairs.push_back({X, Y});
}

void TCurveFit::CalcLinFit(double& k, double& d, double& FitQual) const {
  const TScaledFit fit = FitPairs(FPairs, 1);
  k = fit.Scale > 0 ? fit.C1 / fit.Scale : 0;
  d = fit.MeanY - k * fit.MeanX;
  FitQual = fit.Quality;
}

void TCurveFit::CalcParabolFit(double& k0, double& k1, double& k2, double& FitQual) const {
  const TScaledFit fit = FitPairs(FPairs, 2);
  // Coefficients of (x - MeanX), then of x.
  const double linear = fit.Scale > 0 ? (fit.C1 - fit.C2 * fit.A) / fit.Scale : 0;
  k2 = fit.Scale > 0 ? fit.C2 / fit.Scale / fit.Scale : 0;
  k1 = linear - 2 * k2 * fit.MeanX;
  k0 = fit.MeanY - fit.C2 * fit.B - linear * fit.MeanX + k2 * fit.MeanX * fit.MeanX;
  FitQual = fit.Quality;
}

TCurveStatistics TCurveFit::CalcStatistics() const {
  TCurveStatistics result;
  result.Count = Count();
  if (FPairs.empty()) return result;
  const auto n = static_cast<double>(FPairs.size());
  for (const TPair& p : FPairs) {
    result.MeanX += p.X / n;
    result.MeanY += p.Y / n;
    result.MeanDiff += (p.Y - p.X) / n;
  }
  if (FPairs.size() < 2) return result;
  double squares = 0;
  for (const TPair& p : FPairs) {
    const double deviation = p.Y - p.X - result.MeanDiff;
    squares += deviation * deviation;
  }
  result.StdDevDiff = std::sqrt(squares / (n - 1));
  return result;
}

}  // namespace zav
