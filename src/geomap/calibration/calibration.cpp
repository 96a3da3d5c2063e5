// calibration.cpp - state, fitting and conversions of TCalibration.
// SPDX-License-Identifier: MIT
#include <geomap/calibration/calibration.h>

#include <algorithm>
#include <cmath>

#include <geobasics/utm.h>
#include <platform/base/curve_fit.h>
#include <platform/base/great_circle.h>
#include <platform/base/rounding.h>

namespace zav {
namespace {

// The sphere on which resolutions are measured, in metres, with half and whole of its
// circumference: the great circle goes the short way round, a map of the whole world does not.
constexpr double SphereRadius = 6378000.0;
constexpr double HalfCircumference = 20037077.944595702;
constexpr double Circumference = 40074155.889191404;

}  // namespace

TCalibration::TCalibration() : FGratMat(5, 1) {}

void TCalibration::SetDataUnfitted(const TCalibData& Data, TCalibModel Model) {
  ClearCalibData();
  FData = Data;
  FModel = Model;
  FData.NumCalLines = std::clamp(FData.NumCalLines, 0, MaxCalLines);
  FData.NumCalQuads = std::clamp(FData.NumCalQuads, 0, MaxCalQuads);
  for (TCalibLine& Each : FData.CalLines) {
    Each.NumPoints = std::clamp(Each.NumPoints, 0, MaxCalLinePoints);
  }
}

void TCalibration::SetData(const TCalibData& Data, TCalibModel Model) {
  SetDataUnfitted(Data, Model);
  RecalcGratMat();
  FitModel();
  if (FImageWidth > 0 && FImageHeight > 0) CalcExtentsAndResolution();
}

void TCalibration::SetModel(TCalibModel Model) {
  FModel = Model;
  RecalcCalibration();
}

void TCalibration::SetImageSize(int32_t Width, int32_t Height) noexcept {
  FImageWidth = std::max(Width, 0);
  FImageHeight = std::max(Height, 0);
}

void TCalibration::SetUTMZone(int32_t Zone) noexcept {
  if (Zone >= 1 && Zone <= 60) FData.UTMZone = Zone;
}

void TCalibration::SetUTMHemisphere(THemisphere Hemisphere) noexcept {
  FData.UTMSouth = Hemisphere == THemisphere::hemiSouth;
}

// --- fitting

void TCalibration::RecalcCalibration(TProgress& Progress) {
  RecalcGratMat();
  FitModel(Progress);
  CalcExtentsAndResolution();
}

bool TCalibration::RecalcGratMat() { return FitGraticule(FData, FGratMat); }

void TCalibration::FitModel(TProgress& Progress) {
  switch (FModel) {
    case TCalibModel::cmBiquadraticPn:
      return FitBiquadratic(FData, FCoef, Progress);
    case TCalibModel::cmConicConformal:
      return FitConic(FData, FImageWidth, FImageHeight, FCoef);
    case TCalibModel::cmMillerCylindrical:
      return FitMiller(FData, FCoef);
    case TCalibModel::cmEquiRect:
    case TCalibModel::cmUTM:
      return FitFirstOrder(FData, FCoef, Progress);
    case TCalibModel::cmParabolicIp:
    case TCalibModel::cmUndefined:
      break;
  }
}

void TCalibration::CalcExtentsAndResolution() {
  const auto PositionOf = [this](int32_t X, int32_t Y) {
    bool Ignored = false;
    return TCoords{CalcLatitude(X, Y, Ignored), CalcLongitude(X, Y, Ignored)};
  };
  FData.Corners[gcoTopLeft] = PositionOf(0, 0);
  FData.Corners[gcoBottomLeft] = PositionOf(0, FImageHeight);
  FData.Corners[gcoBottomRight] = PositionOf(FImageWidth, FImageHeight);
  FData.Corners[gcoTopRight] = PositionOf(FImageWidth, 0);
  FData.Resolution = 0;
  if (FImageWidth < 1) return;

  const TCoords Left = PositionOf(0, FImageHeight / 2);
  const TCoords Right = PositionOf(FImageWidth, FImageHeight / 2);
  double Distance =
      SphereGreatCircleDist(SphereRadius, Left.Latit, Left.Longit, Right.Latit, Right.Longit);
  if (Right.Longit - Left.Longit > 360) {
    Distance += Circumference;
  } else if (Right.Longit - Left.Longit > 180) {
    Distance += HalfCircumference;
  }
  FData.Resolution = Distance / FImageWidth;
}

void TCalibration::CalibQuality(double& QualX, double& QualY) const {
  TCurveFit FitX;
  TCurveFit FitY;
  if (FModel != TCalibModel::cmParabolicIp && FModel != TCalibModel::cmUndefined) {
    for (int32_t I = 0; I < FData.NumCalQuads; ++I) {
      const TCalQuad& Point = FData.CalQuads[static_cast<size_t>(I)];
      int32_t X = 0;
      int32_t Y = 0;
      CalcPixelCoords(Point.Latitude, Point.Longitude, X, Y);
      FitX.EnterStatValue(Point.MapX, X);
      FitY.EnterStatValue(Point.MapY, Y);
    }
  }
  QualX = FitX.CalcStatistics().StdDevDiff;
  QualY = FitY.CalcStatistics().StdDevDiff;
}

bool TCalibration::Residual(int32_t Index, double& DX, double& DY) const {
  DX = DY = 0;
  if (Index < 1 || Index > FData.NumCalQuads || !IsFitted()) return false;
  const TCalQuad& Point = FData.CalQuads[static_cast<size_t>(Index - 1)];
  TExactPixel P;
  if (FModel == TCalibModel::cmUTM) {
    P = UTMToPixel(FCoef, Point.Latitude, Point.Longitude);
  } else if (!ToPixel(Point.Latitude, Point.Longitude, P.X, P.Y)) {
    return false;
  }
  DX = P.X - Point.MapX;
  DY = P.Y - Point.MapY;
  return true;
}

// --- conversions

double TCalibration::CalcLatitude(int32_t X, int32_t Y, bool& Valid) const {
  return PixelToLatitude(Fit(), TPixelTerms::Whole(X, Y), Valid);
}

double TCalibration::CalcLongitude(int32_t X, int32_t Y, bool& Valid) const {
  return PixelToLongitude(Fit(), TPixelTerms::Whole(X, Y), Valid);
}

bool TCalibration::CalcPixelCoords(double Lat, double Long, int32_t& X, int32_t& Y) const {
  if (FModel == TCalibModel::cmUndefined) return true;
  TExactPixel P;
  const TPixelResult Result = PositionToPixel(Fit(), Lat, Long, TPixelRounding::Row, P);
  if (Result == TPixelResult::Nothing) return false;
  X = RoundHalfEven(P.X);
  Y = RoundHalfEven(P.Y);
  return Result == TPixelResult::Found;
}

bool TCalibration::CalcPixelCoordsUTM(double Northing, double Easting, int32_t& X,
                                      int32_t& Y) const {
  const bool IsUTM = FModel == TCalibModel::cmUTM;
  const TExactPixel P = IsUTM ? UTMToPixel(FCoef, Northing, Easting) : TExactPixel{};
  X = RoundHalfEven(P.X);
  Y = RoundHalfEven(P.Y);
  return IsUTM;
}

int32_t TCalibration::CalcUTMyFromNorthingX(double Northing, int32_t X) const {
  const auto& C = FCoef.CalCoefPixX;
  const double Easting = (X - C[0] - C[1] * Northing) / C[2];
  return RoundHalfEven(UTMToPixel(FCoef, Northing, Easting).Y);
}

int32_t TCalibration::CalcUTMxFromEastingY(double Easting, int32_t Y) const {
  const auto& C = FCoef.CalCoefPixY;
  const double Northing = (Y - C[0] - C[2] * Easting) / C[1];
  return RoundHalfEven(UTMToPixel(FCoef, Northing, Easting).X);
}

bool TCalibration::IsPositionWithinMap(double Lat, double Long) const {
  return PositionInMap(Lat, Long, FData.Corners);
}

bool TCalibration::ToGeo(double X, double Y, TCoords& Position) const {
  Position = {};
  if (!IsFitted()) return false;
  const TPixelTerms P = TPixelTerms::Exact(X, Y);
  bool LatValid = false;
  bool LongValid = false;
  const TCoords Found{PixelToLatitude(Fit(), P, LatValid), PixelToLongitude(Fit(), P, LongValid)};
  if (!LatValid || !LongValid) return false;
  if (!std::isfinite(Found.Latit) || !std::isfinite(Found.Longit)) return false;
  Position = Found;
  return true;
}

bool TCalibration::ToPixel(double Lat, double Long, double& X, double& Y) const {
  X = Y = 0;
  TExactPixel P;
  if (!IsFitted()) return false;
  if (PositionToPixel(Fit(), Lat, Long, TPixelRounding::None, P) != TPixelResult::Found) {
    return false;
  }
  if (!std::isfinite(P.X) || !std::isfinite(P.Y)) return false;
  X = P.X;
  Y = P.Y;
  return true;
}

void TCalibration::ToUTMInMapZone(double Lat, double Long, double& Easting,
                                  double& Northing) const {
  constexpr double FalseNorthing = 10000000.0;
  LatLongToUTMZone(Lat, Long, FData.UTMZone, FData.Ellipsoid, Easting, Northing);
  // The false northing is that of the map, on either side of the equator.
  if (FData.UTMSouth && Lat >= 0) Northing += FalseNorthing;
  if (!FData.UTMSouth && Lat < 0) Northing -= FalseNorthing;
}

bool TCalibration::ToPixelInMapZone(double Lat, double Long, double& X, double& Y) const {
  if (FModel != TCalibModel::cmUTM || FData.UTMZone < 1 || !IsFitted()) {
    return ToPixel(Lat, Long, X, Y);
  }
  double Easting = 0;
  double Northing = 0;
  ToUTMInMapZone(Lat, Long, Easting, Northing);
  const TExactPixel P = UTMToPixel(FCoef, Northing, Easting);
  X = P.X;
  Y = P.Y;
  return true;
}

}  // namespace zav
