// conversion.cpp - evaluation of the calibration models in both directions.
// SPDX-License-Identifier: MIT
#include <geomap/calibration/conversion.h>

#include <algorithm>
#include <cmath>

#include <geobasics/utm.h>
#include <geomap/calibration/int32_arithmetic.h>
#include <platform/base/rounding.h>

namespace zav {
namespace {

constexpr double Pi = 3.141592653589793;
constexpr double QuarterPi = 0.7853981633974483;
// 180 / (0.4 pi) and 0.4 pi: Miller shrinks latitudes by 0.8 before Mercator, which halves the
// angle.
constexpr double MillerToDegrees = 143.2394487827058;
constexpr double MillerAngle = 1.2566370614359172;

constexpr int ParabolicIterations = 15;
constexpr double DivergencePixel = 50000;

double Evaluate(const std::array<double, 3>& C, double A, double B) {
  return C[0] + C[1] * A + C[2] * B;
}

double Evaluate(const std::array<double, 6>& C, double A, double B, double AA, double AB,
                double BB) {
  return C[0] + C[1] * A + C[2] * B + C[3] * AA + C[4] * AB + C[5] * BB;
}

// --- graticule lines

constexpr double MeridianRow = 0.0;
constexpr double ParallelRow = 1.0;

// The two rows that are nearest to something, as row data of the matrix.
struct TNearestRows {
  const double* Best = nullptr;
  const double* Second = nullptr;
  bool Both() const { return Best != nullptr && Second != nullptr; }
};

// DistanceOf tells how far a row is away. Rows that are NaN or 1e20 and more away do not count.
template <class TDistance>
TNearestRows FindNearest(const TMatrix& GratMat, double Kind, TDistance DistanceOf) {
  TNearestRows Rows;
  double BestDistance = 1e20;
  double SecondDistance = 1e20;
  for (int32_t I = 1; I <= GratMat.NumRows(); ++I) {
    const double* Row = GratMat.RowData(I);
    if (Row[0] != Kind) continue;
    const double Distance = DistanceOf(Row);
    if (Distance < BestDistance) {
      SecondDistance = BestDistance;
      Rows.Second = Rows.Best;
      BestDistance = Distance;
      Rows.Best = Row;
    } else if (Distance < SecondDistance) {
      SecondDistance = Distance;
      Rows.Second = Row;
    }
  }
  return Rows;
}

// At least two meridians and two parallels.
bool GraticuleComplete(const TMatrix& GratMat) {
  int32_t Meridians = 0;
  int32_t Parallels = 0;
  for (int32_t I = 1; I <= GratMat.NumRows(); ++I) {
    const int32_t Kind = RoundHalfEven(GratMat.GetVal(1, I));
    if (Kind == 0) ++Meridians;
    if (Kind == 1) ++Parallels;
  }
  return Meridians >= 2 && Parallels >= 2;
}

double ParabolaAt(const double* Row, double X, double XX) {
  return Row[2] + Row[3] * X + Row[4] * XX;
}

// Value between the two lines of a kind that are nearest to a pixel. Along is the coordinate that
// the parabolas take, Across the one they give.
double InterpolateLines(const TMatrix& GratMat, double Kind, double Along, double AlongSquared,
                        double Across, bool& Valid) {
  Valid = false;
  if (!GraticuleComplete(GratMat)) return 0;
  const TNearestRows Rows = FindNearest(GratMat, Kind, [&](const double* Row) {
    return std::fabs(Across - ParabolaAt(Row, Along, AlongSquared));
  });
  if (!Rows.Both()) return 0;
  Valid = true;
  const double AtBest = ParabolaAt(Rows.Best, Along, AlongSquared);
  const double AtSecond = ParabolaAt(Rows.Second, Along, AlongSquared);
  return Rows.Second[1] +
         (Rows.Best[1] - Rows.Second[1]) * (Across - AtSecond) / (AtBest - AtSecond);
}

// The parabola of a value between two lines.
std::array<double, 3> InterpolateParabola(const TNearestRows& Rows, double Value) {
  std::array<double, 3> C{};
  for (size_t K = 0; K < 3; ++K) {
    const double Second = Rows.Second[K + 2];
    C[K] = Second +
           (Rows.Best[K + 2] - Second) * (Value - Rows.Second[1]) / (Rows.Best[1] - Rows.Second[1]);
  }
  return C;
}

TPixelResult ParabolicToPixel(const TMatrix& GratMat, double Lat, double Long, TExactPixel& P) {
  if (GratMat.NumRows() < 4) return TPixelResult::Nothing;
  const auto NearTo = [](double Value) {
    return [Value](const double* Row) { return std::fabs(Value - Row[1]); };
  };
  const TNearestRows Meridians = FindNearest(GratMat, MeridianRow, NearTo(Long));
  const TNearestRows Parallels = FindNearest(GratMat, ParallelRow, NearTo(Lat));
  if (!Meridians.Both() || !Parallels.Both()) return TPixelResult::Nothing;
  const auto M = InterpolateParabola(Meridians, Long);
  const auto Q = InterpolateParabola(Parallels, Lat);
  // A fixed number of steps, so that a pixel never depends on a tolerance.
  P = {500.0, 0.0};
  for (int I = 0; I < ParabolicIterations; ++I) {
    P.Y = Q[0] + Q[1] * P.X + Q[2] * P.X * P.X;
    P.X = M[0] + M[1] * P.Y + M[2] * P.Y * P.Y;
    if (std::fabs(P.X) > DivergencePixel && std::fabs(P.Y) > DivergencePixel) {
      return TPixelResult::Diverged;
    }
  }
  return TPixelResult::Found;
}

// --- the other models

TPixelResult ConicToPixel(const std::array<double, 6>& C, double Lat, double Long,
                          TPixelRounding Rounding, TExactPixel& P) {
  P = {};
  if (C[2] == 0 || C[4] == 0) return TPixelResult::Found;
  const double Tangent = std::tan((Long - C[5]) / C[4]);
  const double Height = (Lat - C[3]) / C[2] / std::sqrt(Tangent * Tangent + 1);
  // The hemisphere decides on which side of the pole the row lies.
  P.Y = Lat < 0 ? C[1] - Height : C[1] + Height;
  if (Rounding == TPixelRounding::Row) P.Y = RoundHalfEven(P.Y);
  P.X = C[0] + (P.Y - C[1]) * Tangent;
  return TPixelResult::Found;
}

template <size_t N>
bool AnyNotZero(const std::array<double, N>& A, const std::array<double, N>& B) {
  const auto NotZero = [](double C) { return C != 0; };
  return std::any_of(A.begin(), A.end(), NotZero) || std::any_of(B.begin(), B.end(), NotZero);
}

TCoords UTMPosition(const TFittedModel& Fit, const TPixelTerms& P) {
  TCoords Position;
  UTMToLatLong(Evaluate(Fit.Coef.CalCoefLong, P.X, P.Y), Evaluate(Fit.Coef.CalCoefLat, P.X, P.Y),
               Fit.UTMZone, Fit.UTMSouth, Fit.Ellipsoid, Position.Latit, Position.Longit);
  return Position;
}

}  // namespace

TPixelTerms TPixelTerms::Whole(int32_t X, int32_t Y) noexcept {
  return {static_cast<double>(X), static_cast<double>(Y), static_cast<double>(WrapMul(X, X)),
          static_cast<double>(WrapMul(Y, Y))};
}

double PixelToLatitude(const TFittedModel& Fit, const TPixelTerms& P, bool& Valid) noexcept {
  Valid = true;
  switch (Fit.Model) {
    case TCalibModel::cmEquiRect:
      return Evaluate(Fit.Coef.CalCoefLat, P.X, P.Y);
    case TCalibModel::cmUTM:
      return UTMPosition(Fit, P).Latit;
    case TCalibModel::cmBiquadraticPn:
      return Evaluate(Fit.Coef.BiqCoefLat, P.X, P.Y, P.XX, P.X * P.Y, P.YY);
    case TCalibModel::cmMillerCylindrical: {
      const auto& C = Fit.Coef.MillerParams;
      Valid = C[0] != 0;
      return Valid ? (std::atan(std::exp((P.Y - C[1]) / C[0])) - QuarterPi) * MillerToDegrees : 0;
    }
    case TCalibModel::cmConicConformal: {
      const auto& C = Fit.Coef.ConicParams;
      const double DX = P.X - C[0];
      const double DY = P.Y - C[1];
      return C[2] * std::sqrt(DX * DX + DY * DY) + C[3];
    }
    case TCalibModel::cmParabolicIp:
      return InterpolateLines(Fit.GratMat, ParallelRow, P.X, P.XX, P.Y, Valid);
    case TCalibModel::cmUndefined:
      break;
  }
  Valid = false;
  return 0;
}

double PixelToLongitude(const TFittedModel& Fit, const TPixelTerms& P, bool& Valid) noexcept {
  Valid = true;
  switch (Fit.Model) {
    case TCalibModel::cmEquiRect:
      return Evaluate(Fit.Coef.CalCoefLong, P.X, P.Y);
    case TCalibModel::cmUTM:
      return UTMPosition(Fit, P).Longit;
    case TCalibModel::cmBiquadraticPn:
      return Evaluate(Fit.Coef.BiqCoefLong, P.X, P.Y, P.XX, P.X * P.Y, P.YY);
    case TCalibModel::cmMillerCylindrical: {
      const auto& C = Fit.Coef.MillerParams;
      Valid = C[2] != 0;
      return Valid ? (P.X - C[3]) / C[2] / Pi * 180 : 0;
    }
    case TCalibModel::cmConicConformal: {
      const auto& C = Fit.Coef.ConicParams;
      return C[4] * std::atan((P.X - C[0]) / (P.Y - C[1])) + C[5];
    }
    case TCalibModel::cmParabolicIp:
      return InterpolateLines(Fit.GratMat, MeridianRow, P.Y, P.YY, P.X, Valid);
    case TCalibModel::cmUndefined:
      break;
  }
  Valid = false;
  return 0;
}

TPixelResult PositionToPixel(const TFittedModel& Fit, double Lat, double Long,
                             TPixelRounding Rounding, TExactPixel& P) noexcept {
  const TCalibCoefficients& C = Fit.Coef;
  switch (Fit.Model) {
    case TCalibModel::cmEquiRect:
      P = {Evaluate(C.CalCoefPixX, Lat, Long), Evaluate(C.CalCoefPixY, Lat, Long)};
      return TPixelResult::Found;
    case TCalibModel::cmUTM: {
      int Zone = 0;
      double Easting = 0;
      double Northing = 0;
      LatLongToUTM(Lat, Long, Fit.Ellipsoid, Zone, Easting, Northing);
      P = UTMToPixel(C, Northing, Easting);
      return TPixelResult::Found;
    }
    case TCalibModel::cmBiquadraticPn: {
      const double LatLat = Lat * Lat;
      const double LatLong = Lat * Long;
      const double LongLong = Long * Long;
      P = {Evaluate(C.BiqCoefPixX, Lat, Long, LatLat, LatLong, LongLong),
           Evaluate(C.BiqCoefPixY, Lat, Long, LatLat, LatLong, LongLong)};
      return TPixelResult::Found;
    }
    case TCalibModel::cmMillerCylindrical: {
      const auto& M = C.MillerParams;
      P = {M[2] * Long / 180 * Pi + M[3],
           M[0] * std::log(std::tan(Lat / 180 * MillerAngle + QuarterPi)) + M[1]};
      return TPixelResult::Found;
    }
    case TCalibModel::cmConicConformal:
      return ConicToPixel(C.ConicParams, Lat, Long, Rounding, P);
    case TCalibModel::cmParabolicIp:
      return ParabolicToPixel(Fit.GratMat, Lat, Long, P);
    case TCalibModel::cmUndefined:
      break;
  }
  return TPixelResult::Nothing;
}

bool IsFitted(const TFittedModel& Fit) noexcept {
  const TCalibCoefficients& C = Fit.Coef;
  switch (Fit.Model) {
    case TCalibModel::cmEquiRect:
    case TCalibModel::cmUTM:
      return AnyNotZero(C.CalCoefLat, C.CalCoefLong) && AnyNotZero(C.CalCoefPixX, C.CalCoefPixY);
    case TCalibModel::cmBiquadraticPn:
      return AnyNotZero(C.BiqCoefLat, C.BiqCoefLong) && AnyNotZero(C.BiqCoefPixX, C.BiqCoefPixY);
    case TCalibModel::cmMillerCylindrical:
      return C.MillerParams[0] != 0 && C.MillerParams[2] != 0;
    case TCalibModel::cmConicConformal:
      return C.ConicParams[2] != 0 && C.ConicParams[4] != 0;
    case TCalibModel::cmParabolicIp:
      return GraticuleComplete(Fit.GratMat);
    case TCalibModel::cmUndefined:
      break;
  }
  return false;
}

TExactPixel UTMToPixel(const TCalibCoefficients& Coef, double Northing, double Easting) noexcept {
  return {Evaluate(Coef.CalCoefPixX, Northing, Easting),
          Evaluate(Coef.CalCoefPixY, Northing, Easting)};
}

bool PositionInMap(double Lat, double Long, const TCornerArray& Corners) {
  // On which side of the edge from corner I to corner J the position lies.
  const auto Side = [&](size_t I, size_t J) {
    const TCoords& A = Corners[I];
    const TCoords& B = Corners[J];
    return (A.Latit - B.Latit) * (B.Longit - Long) + (A.Longit - B.Longit) * (Lat - B.Latit);
  };
  const double Closing = Side(gcoTopRight, gcoTopLeft);
  return Side(gcoTopLeft, gcoBottomLeft) * Closing > 0 &&
         Side(gcoBottomLeft, gcoBottomRight) * Closing > 0 &&
         Side(gcoBottomRight, gcoTopRight) * Closing > 0;
}

}  // namespace zav
