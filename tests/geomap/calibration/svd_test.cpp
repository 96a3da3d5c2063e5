// svd_test.cpp - the least-squares solver against normal equations in long double.
// SPDX-License-Identifier: MIT
#include <geomap/calibration/svd.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "normal_equations.h"

namespace zav {
namespace {

TMatrix RandomMatrix(int Columns, int Rows, std::mt19937& Random) {
  std::normal_distribution<double> Normal;
  TMatrix A(Columns, Rows);
  for (int I = 1; I <= Rows; ++I) {
    for (int J = 1; J <= Columns; ++J) A.SetVal(J, I, Normal(Random) * std::pow(10.0, J - 1));
  }
  return A;
}

TEST(Svd, EqualsNormalEquationsInLongDouble) {
  std::mt19937 Random(7);
  std::normal_distribution<double> Normal;
  for (int Round = 0; Round < 60; ++Round) {
    const int Columns = 1 + Round % 6;
    const int Rows = Columns + Round * 3;
    const TMatrix A = RandomMatrix(Columns, Rows, Random);
    TVector B(Rows);
    for (int I = 1; I <= Rows; ++I) B.SetVal(I, Normal(Random));
    TVector X;
    TVector S;
    bool Singular = true;
    ASSERT_TRUE(MultiLinRegSVD(A, B, X, &S, Singular));
    EXPECT_FALSE(Singular);
    const test::TSolution Want = test::SolveNormalEquations(A, B);
    for (int J = 1; J <= Columns; ++J) {
      const auto K = static_cast<size_t>(J - 1);
      // Errors grow with the condition, which the column scales make up to 10^5.
      const double Tolerance = 1e-9 * std::fabs(S.GetVal(J));
      EXPECT_NEAR(X.GetVal(J), static_cast<double>(Want.X[K]), Tolerance) << Columns << "x" << Rows;
      EXPECT_NEAR(S.GetVal(J) / std::sqrt(static_cast<double>(Want.Variance[K])), 1, 1e-9);
    }
  }
}

// The solution of least norm is the only one that solves the system and lies in the space of the
// rows: adding any vector that all rows are orthogonal to makes it longer.
TEST(Svd, TooLowRankHasSolutionOfLeastNorm) {
  // One equation; two equal ones; three in one direction; a zero column.
  const struct {
    int Columns, Rows;
    double A[16];
    double Want[4];
    double B[4];
  } Cases[] = {{3, 1, {1, 2, 2}, {1, 2, 2}, {9}},
               {2, 2, {3, 4, 3, 4}, {0.6, 0.8}, {5, 5}},
               {3, 3, {1, 1, 0, 2, 2, 0, 3, 3, 0}, {0.5, 0.5, 0}, {1, 2, 3}},
               {3, 4, {1, 0, 1, 1, 0, 2, 1, 0, 3, 1, 0, 4}, {10, 0, -2}, {8, 6, 4, 2}},
               // bidiagonal, with a zero that must be rotated out through two rows
               {4,
                4,
                {1, 1, 0, 0, 0, 0, 1, 0, 0, 0, 1, 1, 0, 0, 0, 1},
                {1, 1, 4 / 3.0, 10 / 3.0},
                {2, 1, 5, 3}}};
  for (const auto& Case : Cases) {
    TMatrix A(Case.Columns, Case.Rows);
    TVector B(Case.Rows);
    for (int I = 1; I <= Case.Rows; ++I) {
      B.SetVal(I, Case.B[I - 1]);
      for (int J = 1; J <= Case.Columns; ++J) {
        A.SetVal(J, I, Case.A[(I - 1) * Case.Columns + J - 1]);
      }
    }
    TVector X;
    bool Singular = false;
    ASSERT_TRUE(MultiLinRegSVD(A, B, X, nullptr, Singular));
    EXPECT_TRUE(Singular);
    ASSERT_EQ(X.Size(), Case.Columns);
    for (int J = 1; J <= Case.Columns; ++J) EXPECT_NEAR(X.GetVal(J), Case.Want[J - 1], 1e-13);
  }
}

TEST(Svd, ReportsProgressAndStopsWhenTold) {
  std::mt19937 Random(3);
  const TMatrix A = RandomMatrix(4, 20, Random);
  std::vector<int64_t> Counts;
  TProgress Progress;
  Progress.Feedback = [&](int64_t Count) { Counts.push_back(Count); };
  TSingularValues Svd;
  ASSERT_TRUE(Svd.Decompose(A, Progress));
  EXPECT_EQ(Counts, (std::vector<int64_t>{1, 2, 3, 4, 5, 6, 7, 8}));
  for (int64_t Last = 1; Last <= 8; ++Last) {
    TProgress Aborted;
    Aborted.Feedback = [&](int64_t Count) { Aborted.Abort = Count == Last; };
    TVector X;
    bool Singular = false;
    EXPECT_FALSE(MultiLinRegSVD(A, TVector(20), X, nullptr, Singular, Aborted));
    EXPECT_EQ(Aborted.Counter, Last);
    EXPECT_EQ(X.Size(), 0);
  }
}

TEST(Svd, RefusesWhatIsNoNumberAndSurvivesExtremes) {
  TSingularValues Svd;
  for (const double Bad : {std::nan(""), std::numeric_limits<double>::infinity()}) {
    TMatrix A(2, 2);
    A.SetVal(1, 2, Bad);
    EXPECT_FALSE(Svd.Decompose(A));
  }
  EXPECT_TRUE(Svd.Decompose(TMatrix(3, 0)));
  EXPECT_TRUE(Svd.Singular());
  for (const double Scale : {1e-300, 1e300}) {
    TMatrix A(2, 2);
    A.SetVal(1, 1, 3 * Scale);
    A.SetVal(2, 2, 2 * Scale);
    A.SetVal(1, 2, Scale);
    ASSERT_TRUE(Svd.Decompose(A));
    // The product of the singular values is the determinant.
    EXPECT_NEAR(Svd.Values()[0] / Scale * (Svd.Values()[1] / Scale), 6, 1e-12);
  }
}

}  // namespace
}  // namespace zav
