// fitting.cpp - the least-squares fits of the calibration models.
// SPDX-License-Identifier: MIT
#include <geomap/calibration/fitting.h>

#include <algorithm>
#include <cmath>
#include <compare>
#include <limits>
#include <span>

#include <geomap/calibration/int32_arithmetic.h>
#include <geomap/calibration/svd.h>
#include <platform/base/curve_fit.h>

namespace zav {
namespace {

constexpr double Pi = 3.141592653589793;
constexpr double QuarterPi = 0.7853981633974483;

std::span<const TCalQuad> QuadsOf(const TCalibData& Data) {
  return {Data.CalQuads.data(), static_cast<size_t>(Data.NumCalQuads)};
}

// Fits two values of the control points to the same terms with one decomposition.
template <size_t N, class TTermsOf, class TValue>
void FitTerms(std::span<const TCalQuad> Quads, TTermsOf TermsOf, TValue First, TValue Second,
              std::array<double, N>& FirstCoef, std::array<double, N>& SecondCoef,
              TProgress& Progress) {
  FirstCoef.fill(0);
  SecondCoef.fill(0);
  const auto Count = static_cast<int32_t>(Quads.size());
  TMatrix Design(static_cast<int32_t>(N), Count);
  TVector FirstValues(Count);
  TVector SecondValues(Count);
  for (int32_t I = 0; I < Count; ++I) {
    const TCalQuad& Quad = Quads[static_cast<size_t>(I)];
    const std::array<double, N> Terms = TermsOf(Quad);
    std::copy(Terms.begin(), Terms.end(), Design.RowData(I + 1));
    FirstValues.SetVal(I + 1, static_cast<double>(Quad.*First));
    SecondValues.SetVal(I + 1, static_cast<double>(Quad.*Second));
  }
  TSingularValues Svd;
  if (Count == 0 || !Svd.Decompose(Design, Progress)) return;
  TVector X;
  Svd.Solve(FirstValues, X);
  std::copy_n(X.Data(), N, FirstCoef.begin());
  Svd.Solve(SecondValues, X);
  std::copy_n(X.Data(), N, SecondCoef.begin());
}

struct TLine {
  double Slope = 0;
  double Intercept = 0;
};

TLine LineThrough(const TCurveFit& Fit) {
  TLine Line;
  double Ignored = 0;
  Fit.CalcLinFit(Line.Slope, Line.Intercept, Ignored);
  return Line;
}

// What the search for the pole of the cone needs at every candidate, allocated once.
struct TPoleWork {
  TCurveFit LatFit, LongFit;
  std::array<double, MaxCalQuads> Radius{};
  std::array<double, MaxCalQuads> Angle{};
};

// One candidate for the pole, with what its two lines leave over.
struct TConicFit {
  TLine Lat, Long;
  double Residual = 0;  // sum of the mean squares of both
};

TConicFit EvaluatePole(TPoleWork& Work, std::span<const TCalQuad> Quads, double PoleX,
                       double PoleY) {
  auto& [LatFit, LongFit, Radius, Angle] = Work;
  LatFit.Init();
  LongFit.Init();
  for (size_t I = 0; I < Quads.size(); ++I) {
    const double DX = Quads[I].MapX - PoleX;
    const double DY = Quads[I].MapY - PoleY;
    Radius[I] = std::sqrt(DX * DX + DY * DY);
    LatFit.EnterStatValue(Radius[I], Quads[I].Latitude);
    if (DY == 0) continue;
    Angle[I] = std::atan(DX / DY);
    LongFit.EnterStatValue(Angle[I], Quads[I].Longitude);
  }
  TConicFit Fit{LineThrough(LatFit), LineThrough(LongFit), 0};
  double LatSum = 0;
  double LongSum = 0;
  for (size_t I = 0; I < Quads.size(); ++I) {
    const double DLat = Quads[I].Latitude - Fit.Lat.Slope * Radius[I] - Fit.Lat.Intercept;
    LatSum += DLat * DLat;
    if (Quads[I].MapY == PoleY) continue;
    const double DLong = Quads[I].Longitude - Fit.Long.Slope * Angle[I] - Fit.Long.Intercept;
    LongSum += DLong * DLong;
  }
  Fit.Residual = (LatSum + LongSum) / static_cast<double>(Quads.size());
  return Fit;
}

// The middle of the range of First..Last, the lower end starting at Limit (the largest integer
// where it is unknown) and the upper end at 0.
int64_t MiddleOf(std::span<const TCalQuad> Quads, int32_t TCalQuad::*Coordinate, int32_t Limit) {
  int32_t Low = Limit > 0 ? Limit : std::numeric_limits<int32_t>::max();
  int32_t High = 0;
  for (const TCalQuad& Quad : Quads) {
    Low = std::min(Low, Quad.*Coordinate);
    High = std::max(High, Quad.*Coordinate);
  }
  return (static_cast<int64_t>(Low) + High) / 2;
}

}  // namespace

void FitFirstOrder(const TCalibData& Data, TCalibCoefficients& Coef, TProgress& Progress) {
  const auto Pixel = [](const TCalQuad& Quad) -> std::array<double, 3> {
    return {1, static_cast<double>(Quad.MapX), static_cast<double>(Quad.MapY)};
  };
  const auto Position = [](const TCalQuad& Quad) -> std::array<double, 3> {
    return {1, Quad.Latitude, Quad.Longitude};
  };
  const auto Quads = QuadsOf(Data);
  FitTerms(Quads, Pixel, &TCalQuad::Latitude, &TCalQuad::Longitude, Coef.CalCoefLat,
           Coef.CalCoefLong, Progress);
  FitTerms(Quads, Position, &TCalQuad::MapX, &TCalQuad::MapY, Coef.CalCoefPixX, Coef.CalCoefPixY,
           Progress);
}

void FitBiquadratic(const TCalibData& Data, TCalibCoefficients& Coef, TProgress& Progress) {
  const auto Pixel = [](const TCalQuad& Quad) -> std::array<double, 6> {
    const int32_t X = Quad.MapX;
    const int32_t Y = Quad.MapY;
    return {1,
            static_cast<double>(X),
            static_cast<double>(Y),
            static_cast<double>(WrapMul(X, X)),
            static_cast<double>(WrapMul(X, Y)),
            static_cast<double>(WrapMul(Y, Y))};
  };
  const auto Position = [](const TCalQuad& Quad) -> std::array<double, 6> {
    const double Lat = Quad.Latitude;
    const double Long = Quad.Longitude;
    return {1, Lat, Long, Lat * Lat, Lat * Long, Long * Long};
  };
  const auto Quads = QuadsOf(Data);
  FitTerms(Quads, Pixel, &TCalQuad::Latitude, &TCalQuad::Longitude, Coef.BiqCoefLat,
           Coef.BiqCoefLong, Progress);
  FitTerms(Quads, Position, &TCalQuad::MapX, &TCalQuad::MapY, Coef.BiqCoefPixX, Coef.BiqCoefPixY,
           Progress);
}

void FitMiller(const TCalibData& Data, TCalibCoefficients& Coef) {
  if (Data.NumCalQuads <= 2) return;
  TCurveFit XFit;
  TCurveFit YFit;
  for (const TCalQuad& Quad : QuadsOf(Data)) {
    XFit.EnterStatValue(Quad.Longitude / 180 * Pi, Quad.MapX);
    YFit.EnterStatValue(std::log(std::tan(Quad.Latitude * 0.4 / 180 * Pi + QuarterPi)), Quad.MapY);
  }
  const TLine X = LineThrough(XFit);
  const TLine Y = LineThrough(YFit);
  Coef.MillerParams = {Y.Slope, Y.Intercept, X.Slope, X.Intercept};
}

void FitConic(const TCalibData& Data, int32_t ImageWidth, int32_t ImageHeight,
              TCalibCoefficients& Coef) {
  if (Data.NumCalQuads < 3) return;
  // Sums over the points in one order, whatever order they were set in: a flat minimum must not
  // move by a rounding error.
  std::array<TCalQuad, MaxCalQuads> Sorted = Data.CalQuads;
  const std::span<TCalQuad> Quads(Sorted.data(), static_cast<size_t>(Data.NumCalQuads));
  std::sort(Quads.begin(), Quads.end(), [](const TCalQuad& A, const TCalQuad& B) {
    if (A.MapX != B.MapX) return A.MapX < B.MapX;
    if (A.MapY != B.MapY) return A.MapY < B.MapY;
    // A total order even over values that are no numbers.
    const auto Order = std::strong_order(A.Latitude, B.Latitude);
    return std::is_neq(Order) ? std::is_lt(Order)
                              : std::is_lt(std::strong_order(A.Longitude, B.Longitude));
  });

  int64_t CentreX = MiddleOf(Quads, &TCalQuad::MapX, ImageWidth);
  int64_t CentreY = MiddleOf(Quads, &TCalQuad::MapY, ImageHeight);
  int64_t BestX = CentreX;
  int64_t BestY = CentreY;
  double Best = 1e10;
  TPoleWork Work;
  for (int64_t Step = 1000000; Step > 0; Step /= 2) {
    for (int64_t I = -2; I <= 2; ++I) {
      for (int64_t J = -2; J <= 2; ++J) {
        const int64_t X = CentreX + I * Step;
        const int64_t Y = CentreY + J * Step;
        const TConicFit Fit =
            EvaluatePole(Work, Quads, static_cast<double>(X), static_cast<double>(Y));
        if (!(Fit.Residual < Best)) continue;
        Best = Fit.Residual;
        BestX = X;
        BestY = Y;
        Coef.ConicParams = {static_cast<double>(X), static_cast<double>(Y), Fit.Lat.Slope,
                            Fit.Lat.Intercept,      Fit.Long.Slope,         Fit.Long.Intercept};
      }
    }
    CentreX = BestX;
    CentreY = BestY;
  }
}

bool FitGraticule(const TCalibData& Data, TMatrix& GratMat) {
  GratMat.Resize(5, Data.NumCalLines);
  int32_t Parallels = 0;
  int32_t Meridians = 0;
  for (int32_t Row = 1; Row <= Data.NumCalLines; ++Row) {
    const TCalibLine& Line = Data.CalLines[static_cast<size_t>(Row - 1)];
    const bool IsParallel = Line.LineType == TGratLineKind::gtlParallel;
    GratMat.SetVal(1, Row, IsParallel ? 1.0 : 0.0);
    GratMat.SetVal(2, Row, Line.LineValue);
    if (Line.NumPoints < 3) continue;
    TCurveFit Fit;
    for (int32_t I = 0; I < Line.NumPoints; ++I) {
      const TPoint P = Line.CalPoints[static_cast<size_t>(I)];
      Fit.EnterStatValue(IsParallel ? P.X : P.Y, IsParallel ? P.Y : P.X);
    }
    double C0 = 0, C1 = 0, C2 = 0, Ignored = 0;
    Fit.CalcParabolFit(C0, C1, C2, Ignored);
    GratMat.SetVal(3, Row, C0);
    GratMat.SetVal(4, Row, C1);
    GratMat.SetVal(5, Row, C2);
    ++(IsParallel ? Parallels : Meridians);
  }
  if (Parallels >= 2 && Meridians >= 2) return true;
  GratMat.Resize(5, 1);
  return false;
}

}  // namespace zav
