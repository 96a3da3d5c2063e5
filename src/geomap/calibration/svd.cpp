// svd.cpp - linear least squares by singular value decomposition.
// SPDX-License-Identifier: MIT
#include <geomap/calibration/svd.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace zav {
namespace {

constexpr int MaxIterations = 30;
constexpr double RankTolerance = 1e-14;
constexpr int HarmlessExponent = 200;

// Turns the vector X (Count values, Stride apart) into the Householder vector that maps it onto its
// first axis; returns what remains there. Factor is 2 / (v . v), or 0 when there is nothing to do.
double MakeReflector(double* X, std::size_t Count, std::size_t Stride, double& Factor) {
  double Scale = 0;
  for (std::size_t I = 0; I < Count; ++I) Scale = std::max(Scale, std::fabs(X[I * Stride]));
  Factor = 0;
  if (Scale == 0) return 0;
  double Sum = 0;
  for (std::size_t I = 0; I < Count; ++I) {
    X[I * Stride] /= Scale;  // against overflow; the reflection does not depend on the length
    Sum += X[I * Stride] * X[I * Stride];
  }
  const double Length = -std::copysign(std::sqrt(Sum), X[0]);
  Factor = 1 / (Sum - X[0] * Length);
  X[0] -= Length;
  return Length * Scale;
}

void Reflect(const double* V, std::size_t VStride, double Factor, std::size_t Count, double* Y,
             std::size_t YStride) {
  double Dot = 0;
  for (std::size_t I = 0; I < Count; ++I) Dot += V[I * VStride] * Y[I * YStride];
  Dot *= Factor;
  for (std::size_t I = 0; I < Count; ++I) Y[I * YStride] -= Dot * V[I * VStride];
}

// A plane rotation that turns (F, H) into (length, 0).
struct TRotation {
  double C = 1;
  double S = 0;
  double Length = 0;

  TRotation(double F, double H) : Length(std::hypot(F, H)) {
    if (Length == 0) return;
    C = F / Length;
    S = H / Length;
  }

  void Apply(double* First, double* Second, std::size_t Count) const {
    for (std::size_t I = 0; I < Count; ++I) {
      const double A = First[I];
      const double B = Second[I];
      First[I] = A * C + B * S;
      Second[I] = B * C - A * S;
    }
  }
};

bool Negligible(double Value, double Norm) {
  return std::fabs(Value) <= std::numeric_limits<double>::epsilon() * Norm;
}

}  // namespace

bool TSingularValues::Decompose(const TMatrix& A, TProgress& Progress) {
  FCols = static_cast<std::size_t>(A.NumColumns());
  FDataRows = static_cast<std::size_t>(A.NumRows());
  FRows = std::max(FDataRows, FCols);
  FSingular = false;
  FA = A;
  FW.assign(FCols, 0.0);
  FE.assign(FCols, 0.0);
  FLeftFactor.assign(FCols, 0.0);
  FRightFactor.assign(FCols, 0.0);
  FReflectors.assign(FRows * FCols, 0.0);
  double Largest = 0;
  for (std::size_t J = 0; J < FCols; ++J) {
    for (std::size_t I = 0; I < FDataRows; ++I) {
      const double Value = A.GetVal(static_cast<int32_t>(J + 1), static_cast<int32_t>(I + 1));
      if (!std::isfinite(Value)) return false;
      FReflectors[J * FRows + I] = Value;
      Largest = std::max(Largest, std::fabs(Value));
    }
  }
  // Squares must not leave the range of a double; a power of two changes no digit.
  int Exponent = Largest > 0 ? std::ilogb(Largest) : 0;
  if (std::abs(Exponent) < HarmlessExponent) Exponent = 0;
  if (Exponent != 0) {
    for (double& Value : FReflectors) Value = std::ldexp(Value, -Exponent);
  }
  if (!Bidiagonalise(Progress)) return false;
  AccumulateRight();
  AccumulateLeft();
  if (!Diagonalise(Progress)) return false;

  Largest = FCols == 0 ? 0.0 : *std::max_element(FW.begin(), FW.end());
  for (double& Value : FW) {
    if (Value >= Largest * RankTolerance && Value > 0) {
      Value = std::ldexp(Value, Exponent);
      continue;
    }
    Value = 0;
    FSingular = true;
  }
  return true;
}

bool TSingularValues::Bidiagonalise(TProgress& Progress) {
  double* R = FReflectors.data();
  for (std::size_t I = 0; I < FCols; ++I) {
    if (!Progress.Step()) return false;
    double* Column = R + I * FRows + I;
    FW[I] = MakeReflector(Column, FRows - I, 1, FLeftFactor[I]);
    for (std::size_t J = I + 1; J < FCols; ++J) {
      Reflect(Column, 1, FLeftFactor[I], FRows - I, R + J * FRows + I, 1);
    }
    if (I + 1 == FCols) break;
    double* Row = R + (I + 1) * FRows + I;
    FE[I + 1] = MakeReflector(Row, FCols - I - 1, FRows, FRightFactor[I]);
    for (std::size_t K = I + 1; K < FRows; ++K) {
      Reflect(Row, FRows, FRightFactor[I], FCols - I - 1, R + (I + 1) * FRows + K, FRows);
    }
  }
  return true;
}

void TSingularValues::AccumulateRight() {
  FV.assign(FCols * FCols, 0.0);
  for (std::size_t I = 0; I < FCols; ++I) V(I)[I] = 1;
  for (std::size_t I = FCols < 2 ? 0 : FCols - 1; I-- > 0;) {
    const double* Row = &FReflectors[(I + 1) * FRows + I];
    for (std::size_t J = I + 1; J < FCols; ++J) {
      Reflect(Row, FRows, FRightFactor[I], FCols - I - 1, V(J) + I + 1, 1);
    }
  }
}

void TSingularValues::AccumulateLeft() {
  FU.assign(FRows * FCols, 0.0);
  for (std::size_t I = 0; I < FCols; ++I) U(I)[I] = 1;
  for (std::size_t I = FCols; I-- > 0;) {
    const double* Column = &FReflectors[I * FRows + I];
    for (std::size_t J = I; J < FCols; ++J) {
      Reflect(Column, 1, FLeftFactor[I], FRows - I, U(J) + I, 1);
    }
  }
}

bool TSingularValues::Diagonalise(TProgress& Progress) {
  double Norm = 0;
  for (std::size_t I = 0; I < FCols; ++I) {
    Norm = std::max(Norm, std::fabs(FW[I]) + std::fabs(FE[I]));
  }
  for (std::size_t K = FCols; K-- > 0;) {
    if (!Progress.Step() || !IterateValue(K, Norm)) return false;
    if (FW[K] >= 0) continue;
    FW[K] = -FW[K];
    for (std::size_t I = 0; I < FCols; ++I) V(K)[I] = -V(K)[I];
  }
  return true;
}

// Works on the block that ends in K until FW[K] stands alone.
bool TSingularValues::IterateValue(std::size_t K, double Norm) {
  for (int Iteration = 1;; ++Iteration) {
    const std::size_t L = FindSplit(K, Norm);
    if (L == K) return true;
    if (Iteration == MaxIterations) return false;
    QrStep(L, K);
  }
}

// First index of the block that ends in K and cannot be split further.
std::size_t TSingularValues::FindSplit(std::size_t K, double Norm) {
  for (std::size_t L = K; L > 0; --L) {
    if (Negligible(FE[L], Norm)) return L;
    if (Negligible(FW[L - 1], Norm)) {
      CancelAbove(L, K, Norm);
      return L;
    }
  }
  return 0;
}

// FW[L - 1] is 0: rotates the coupling FE[L] out of the rows L..K.
void TSingularValues::CancelAbove(std::size_t L, std::size_t K, double Norm) {
  double F = FE[L];
  FE[L] = 0;
  for (std::size_t I = L; I <= K && !Negligible(F, Norm); ++I) {
    const TRotation Rotation(FW[I], -F);
    FW[I] = Rotation.Length;
    F = I < K ? Rotation.S * FE[I + 1] : 0;
    if (I < K) FE[I + 1] *= Rotation.C;
    Rotation.Apply(U(L - 1), U(I), FRows);
  }
}

// One implicit-shift QR step on the rows L..K. The shift is the eigenvalue of the trailing 2 by 2
// block of B^T B that is nearer to its last element.
void TSingularValues::QrStep(std::size_t L, std::size_t K) {
  double X = FW[L];
  const double Y = FW[K - 1];
  const double Z = FW[K];
  const double G = FE[K - 1];
  const double H = FE[K];
  double F = ((Y - Z) * (Y + Z) + (G - H) * (G + H)) / (2 * H * Y);
  F = ((X - Z) * (X + Z) + H * (Y / (F + std::copysign(std::hypot(F, 1.0), F)) - H)) / X;
  double C = 1;
  double S = 1;
  for (std::size_t I = L + 1; I <= K; ++I) {
    const double Coupling = C * FE[I];
    const TRotation Right(F, S * FE[I]);
    FE[I - 1] = Right.Length;
    F = X * Right.C + Coupling * Right.S;
    const double NewCoupling = Coupling * Right.C - X * Right.S;
    const TRotation Left(F, FW[I] * Right.S);
    FW[I - 1] = Left.Length;
    const double Diagonal = FW[I] * Right.C;
    Right.Apply(V(I - 1), V(I), FCols);
    Left.Apply(U(I - 1), U(I), FRows);
    F = Left.C * NewCoupling + Left.S * Diagonal;
    X = Left.C * Diagonal - Left.S * NewCoupling;
    C = Left.C;
    S = Left.S;
  }
  FE[L] = 0;
  FE[K] = F;
  FW[K] = X;
}

void TSingularValues::Solve(const TVector& B, TVector& X) const {
  std::vector<double> Residual(FRows, 0.0);
  for (std::size_t I = 0; I < FDataRows; ++I) Residual[I] = B.GetVal(static_cast<int32_t>(I + 1));
  std::vector<double> Solution(FCols, 0.0);
  AddPseudoInverse(Residual, Solution);
  // Once more for what is left over: columns such as 1, northing, easting differ so much in size
  // that the first result lacks half of its digits.
  for (std::size_t I = 0; I < FDataRows; ++I) {
    const double* Row = FA.RowData(static_cast<int32_t>(I + 1));
    for (std::size_t J = 0; J < FCols; ++J) Residual[I] -= Row[J] * Solution[J];
  }
  AddPseudoInverse(Residual, Solution);
  X.SetVecSize(static_cast<int32_t>(FCols));
  std::copy(Solution.begin(), Solution.end(), X.Data());
}

// Adds V diag(1/W) U^T B to X; 1/0 counts as 0.
void TSingularValues::AddPseudoInverse(const std::vector<double>& B, std::vector<double>& X) const {
  for (std::size_t J = 0; J < FCols; ++J) {
    if (FW[J] == 0) continue;
    double T = 0;
    for (std::size_t I = 0; I < FDataRows; ++I) T += FU[J * FRows + I] * B[I];
    T /= FW[J];
    for (std::size_t K = 0; K < FCols; ++K) X[K] += FV[J * FCols + K] * T;
  }
}

void TSingularValues::StandardDeviations(TVector& S) const {
  S.SetVecSize(static_cast<int32_t>(FCols));
  for (std::size_t J = 0; J < FCols; ++J) {
    double Sum = 0;
    for (std::size_t K = 0; K < FCols; ++K) {
      const double Ratio = FW[K] == 0 ? 0 : FV[K * FCols + J] / FW[K];
      Sum += Ratio * Ratio;
    }
    S.SetVal(static_cast<int32_t>(J + 1), std::sqrt(Sum));
  }
}

bool MultiLinRegSVD(const TMatrix& A, const TVector& B, TVector& X, TVector* S, bool& Singular,
                    TProgress& Progress) {
  TSingularValues Svd;
  if (!Svd.Decompose(A, Progress)) return false;
  Svd.Solve(B, X);
  if (S != nullptr) Svd.StandardDeviations(*S);
  Singular = Svd.Singular();
  return true;
}

}  // namespace zav
