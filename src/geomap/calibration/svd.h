/// @file
/// svd.h - linear least squares by singular value decomposition.
///
/// - Method: Householder bidiagonalisation and implicit-shift QR iteration, with accumulation of
///   both transformations.
/// - Source: G. H. Golub, C. Reinsch, "Singular value decomposition and least squares solutions",
///   Numerische Mathematik 14 (1970) 403-420. Knows nothing of maps. A system of too low a rank has
///   the solution of least norm.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_CALIBRATION_SVD_H
#define ZAV_GEOMAP_CALIBRATION_SVD_H

#include <cstddef>
#include <vector>

#include <platform/base/api.h>
#include <platform/base/matrix.h>
#include <platform/base/progress.h>

namespace zav {

/// A = U diag(W) V^T. Made once for a design matrix, it solves for any number of right-hand sides.
class ZAVGEO_API TSingularValues {
 public:
  /// Decomposes A: one row an equation, one column an unknown; fewer rows than columns are allowed.
  /// Singular values below 1e-14 times the largest are set to 0. Counts one step of Progress before
  /// each column that is reduced and before each singular value that is iterated. False, and
  /// nothing to solve with, when the progress is aborted, when 30 iterations do not settle a
  /// singular value, or when A holds a value that is not finite.
  bool Decompose(const TMatrix& A, TProgress& Progress = DefaultProgress());

  /// Least-squares solution for the right-hand side B, one value a row of A. X gets one value a
  /// column.
  void Solve(const TVector& B, TVector& X) const;
  /// Standard deviation of each unknown for right-hand sides of unit variance.
  void StandardDeviations(TVector& S) const;
  /// Whether a singular value was set to 0.
  bool Singular() const noexcept { return FSingular; }
  /// In no particular order.
  const std::vector<double>& Values() const noexcept { return FW; }

 private:
  bool Bidiagonalise(TProgress& Progress);
  void AccumulateRight();
  void AccumulateLeft();
  bool Diagonalise(TProgress& Progress);
  bool IterateValue(std::size_t K, double Norm);
  std::size_t FindSplit(std::size_t K, double Norm);
  void CancelAbove(std::size_t L, std::size_t K, double Norm);
  void QrStep(std::size_t L, std::size_t K);
  void AddPseudoInverse(const std::vector<double>& B, std::vector<double>& X) const;

  // Both stored by columns: rows by FCols, and FCols by FCols.
  double* U(std::size_t Column) { return &FU[Column * FRows]; }
  double* V(std::size_t Column) { return &FV[Column * FCols]; }

  TMatrix FA;
  std::size_t FRows = 0;
  std::size_t FCols = 0;
  std::size_t FDataRows = 0;  // rows of A; FRows - FDataRows rows of zeros make U tall enough
  std::vector<double> FU, FV;
  std::vector<double> FW;  // diagonal
  std::vector<double> FE;  // FE[i] couples FW[i - 1] and FW[i]; FE[0] is 0
  std::vector<double> FLeftFactor, FRightFactor;
  std::vector<double> FReflectors;  // columns of the reduced matrix hold the Householder vectors
  bool FSingular = false;
};

/// Solves A X = B in the least-squares sense. Fills S, when given, with the standard deviation of
/// each unknown, and Singular with whether singular values were dropped. False, and the outputs
/// unchanged, when the decomposition fails; see TSingularValues::Decompose.
ZAVGEO_API bool MultiLinRegSVD(const TMatrix& A, const TVector& B, TVector& X, TVector* S,
                               bool& Singular, TProgress& Progress = DefaultProgress());

}  // namespace zav

#endif
