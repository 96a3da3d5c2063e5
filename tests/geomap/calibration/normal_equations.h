// normal_equations.h - least squares in the plainest way, in long double, as a judge.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_GEOMAP_CALIBRATION_NORMAL_EQUATIONS_H
#define ZAV_TESTS_GEOMAP_CALIBRATION_NORMAL_EQUATIONS_H

#include <platform/base/matrix.h>

#include <cmath>
#include <utility>
#include <vector>

namespace zav::test {

struct TSolution {
  std::vector<long double> X;
  std::vector<long double> Variance;  // diagonal of the inverse of A^T A
};

// Gauss-Jordan elimination with pivoting on [A^T A | A^T B | unit matrix].
inline TSolution SolveNormalEquations(const TMatrix& A, const TVector& B) {
  const auto N = static_cast<size_t>(A.NumColumns());
  std::vector<std::vector<long double>> M(N, std::vector<long double>(2 * N + 1));
  for (int Row = 1; Row <= A.NumRows(); ++Row) {
    for (size_t I = 0; I < N; ++I) {
      const long double Left = A.RowData(Row)[I];
      for (size_t J = 0; J < N; ++J) M[I][J] += Left * A.RowData(Row)[J];
      M[I][N] += Left * B.GetVal(Row);
    }
  }
  for (size_t I = 0; I < N; ++I) M[I][N + 1 + I] = 1;
  for (size_t I = 0; I < N; ++I) {
    size_t Pivot = I;
    for (size_t J = I + 1; J < N; ++J) {
      if (std::fabs(M[J][I]) > std::fabs(M[Pivot][I])) Pivot = J;
    }
    std::swap(M[I], M[Pivot]);
    for (size_t J = 0; J < N; ++J) {
      if (J == I) continue;
      const long double Factor = M[J][I] / M[I][I];
      for (size_t K = 0; K < M[J].size(); ++K) M[J][K] -= Factor * M[I][K];
    }
  }
  TSolution Solution;
  for (size_t I = 0; I < N; ++I) {
    Solution.X.push_back(M[I][N] / M[I][I]);
    Solution.Variance.push_back(M[I][N + 1 + I] / M[I][I]);
  }
  return Solution;
}

}  // namespace zav::test

#endif
