// calibration_arrays.cpp - polynomials four points at a time, UTM block by block, else one by one.
// SPDX-License-Identifier: MIT
#include <geomap/calibration/calibration_arrays.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include <geobasics/arrays/kernels.h>
#include <geobasics/coordinate_arrays.h>

namespace zav {
namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr size_t BlockSize = 256;

// Two arrays of arguments, or of results, from some point on.
struct TIn {
  const double* A;
  const double* B;
};
struct TOut {
  double* A;
  double* B;
};

size_t EvaluateAll(const std::array<double, 3>& First, const std::array<double, 3>& Second,
                   TIn From, TOut To, size_t Count) {
  return ArrayKernels().FirstOrder(First.data(), Second.data(), {From.A, From.B, nullptr},
                                   {To.A, To.B, nullptr}, Count);
}

size_t EvaluateAll(const std::array<double, 6>& First, const std::array<double, 6>& Second,
                   TIn From, TOut To, size_t Count) {
  return ArrayKernels().SecondOrder(First.data(), Second.data(), {From.A, From.B, nullptr},
                                    {To.A, To.B, nullptr}, Count);
}

size_t UTMToPixels(const TCalibration& Calibration, TIn From, TOut To, size_t Count) {
  const TCalibCoefficients& C = Calibration.Coefficients();
  std::array<int, BlockSize> Zones{};
  std::array<double, BlockSize> E{};
  std::array<double, BlockSize> N{};
  size_t Good = 0;
  for (size_t I = 0; I < Count; I += BlockSize) {
    const size_t Used = std::min(BlockSize, Count - I);
    LatLongToUTM({From.A + I, Used}, {From.B + I, Used}, Calibration.Data().Ellipsoid,
                 {Zones.data(), Used}, {E.data(), Used}, {N.data(), Used});
    Good +=
        EvaluateAll(C.CalCoefPixX, C.CalCoefPixY, {N.data(), E.data()}, {To.A + I, To.B + I}, Used);
  }
  return Good;
}

size_t UTMToPositions(const TCalibration& Calibration, TIn From, TOut To, size_t Count) {
  const TCalibCoefficients& C = Calibration.Coefficients();
  const TCalibData& Data = Calibration.Data();
  std::array<double, BlockSize> N{};
  std::array<double, BlockSize> E{};
  size_t Good = 0;
  for (size_t I = 0; I < Count; I += BlockSize) {
    const size_t Used = std::min(BlockSize, Count - I);
    const std::span<double> Lat(To.A + I, Used);
    const std::span<double> Long(To.B + I, Used);
    EvaluateAll(C.CalCoefLat, C.CalCoefLong, {From.A + I, From.B + I}, {N.data(), E.data()}, Used);
    UTMToLatLong({E.data(), Used}, {N.data(), Used}, Data.UTMZone, Data.UTMSouth, Data.Ellipsoid,
                 Lat, Long);
    for (size_t K = 0; K < Used; ++K) {
      const bool Finite = std::isfinite(Lat[K]) && std::isfinite(Long[K]);
      if (!Finite) Lat[K] = Long[K] = NaN;
      Good += Finite ? 1 : 0;
    }
  }
  return Good;
}

// Convert(A, B, results) is a single conversion.
template <typename TConvert>
size_t ConvertEach(TIn From, TOut To, size_t Count, TConvert Convert) {
  size_t Good = 0;
  for (size_t I = 0; I < Count; ++I) {
    double A = 0;
    double B = 0;
    const bool Valid = Convert(From.A[I], From.B[I], A, B);
    To.A[I] = Valid ? A : NaN;
    To.B[I] = Valid ? B : NaN;
    Good += Valid ? 1 : 0;
  }
  return Good;
}

template <typename... TOther>
void RequireLength(size_t Length, const TOther&... Others) {
  if (((Others.size() != Length) || ...))
    throw EZAVGeoMapError("arrays of points have different lengths");
}

}  // namespace

size_t ToPixels(const TCalibration& Calibration, std::span<const double> Lat,
                std::span<const double> Long, std::span<double> X, std::span<double> Y) {
  RequireLength(Lat.size(), Long, X, Y);
  const TIn From{Lat.data(), Long.data()};
  const TOut To{X.data(), Y.data()};
  const TCalibCoefficients& C = Calibration.Coefficients();
  const TCalibModel Model = Calibration.IsFitted() ? Calibration.Model() : TCalibModel::cmUndefined;
  if (Model == TCalibModel::cmEquiRect)
    return EvaluateAll(C.CalCoefPixX, C.CalCoefPixY, From, To, Lat.size());
  if (Model == TCalibModel::cmBiquadraticPn)
    return EvaluateAll(C.BiqCoefPixX, C.BiqCoefPixY, From, To, Lat.size());
  if (Model == TCalibModel::cmUTM) return UTMToPixels(Calibration, From, To, Lat.size());
  return ConvertEach(From, To, Lat.size(), [&](double La, double Lo, double& Px, double& Py) {
    return Calibration.ToPixel(La, Lo, Px, Py);
  });
}

size_t ToPositions(const TCalibration& Calibration, std::span<const double> X,
                   std::span<const double> Y, std::span<double> Lat, std::span<double> Long) {
  RequireLength(X.size(), Y, Lat, Long);
  const TIn From{X.data(), Y.data()};
  const TOut To{Lat.data(), Long.data()};
  const TCalibCoefficients& C = Calibration.Coefficients();
  const TCalibModel Model = Calibration.IsFitted() ? Calibration.Model() : TCalibModel::cmUndefined;
  if (Model == TCalibModel::cmEquiRect)
    return EvaluateAll(C.CalCoefLat, C.CalCoefLong, From, To, X.size());
  if (Model == TCalibModel::cmBiquadraticPn)
    return EvaluateAll(C.BiqCoefLat, C.BiqCoefLong, From, To, X.size());
  if (Model == TCalibModel::cmUTM) return UTMToPositions(Calibration, From, To, X.size());
  return ConvertEach(From, To, X.size(), [&](double Px, double Py, double& La, double& Lo) {
    TCoords Position;
    if (!Calibration.ToGeo(Px, Py, Position)) return false;
    La = Position.Latit;
    Lo = Position.Longit;
    return true;
  });
}

}  // namespace zav
