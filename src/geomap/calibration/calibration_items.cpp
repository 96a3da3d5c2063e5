// calibration_items.cpp - adding, removing, restoring and scaling the items of TCalibration.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <limits>

#include <geomap/calibration/calibration.h>
#include <geomap/calibration/int32_arithmetic.h>
#include <platform/base/rounding.h>

namespace zav {
namespace {

void RequireModel(bool Allowed, const char* Operation) {
  if (Allowed) return;
  throw EZAVGeoMapError(std::string("current calibration model does not support this version of ") +
                        Operation);
}

bool TakesDegrees(TCalibModel Model) {
  return Model == TCalibModel::cmBiquadraticPn || Model == TCalibModel::cmConicConformal ||
         Model == TCalibModel::cmMillerCylindrical || Model == TCalibModel::cmEquiRect;
}

}  // namespace

bool TCalibration::AddCalibPoint(TGratLineKind LineKind, double LineValue, int32_t X, int32_t Y) {
  RequireModel(FModel == TCalibModel::cmParabolicIp, "AddCalibPoint");
  int32_t Found = 1;
  while (Found <= FData.NumCalLines &&
         !(Line(Found).LineType == LineKind && Line(Found).LineValue == LineValue)) {
    ++Found;
  }
  if (Found > FData.NumCalLines && FData.NumCalLines < MaxCalLines) {
    Line(++FData.NumCalLines) = {LineKind, LineValue, 0, {}};
  }
  if (Found <= FData.NumCalLines && Line(Found).NumPoints < MaxCalLinePoints) {
    TCalibLine& Target = Line(Found);
    Target.CalPoints[static_cast<size_t>(Target.NumPoints++)] = {X, Y};
  }
  RecalcCalibration();
  return false;
}

bool TCalibration::AddCalibPoint(double Lat, double Long, int32_t X, int32_t Y) {
  RequireModel(TakesDegrees(FModel), "AddCalibPoint");
  if (FData.NumCalQuads >= MaxCalQuads) return false;
  AppendQuad({Lat, Long, X, Y});
  return true;
}

bool TCalibration::AddCalibPoint(double Northing, double Easting, int32_t Zone,
                                 THemisphere Hemisphere, int32_t X, int32_t Y) {
  RequireModel(FModel == TCalibModel::cmUTM, "AddCalibPoint");
  if (Zone != FData.UTMZone || (Hemisphere == THemisphere::hemiSouth) != FData.UTMSouth) {
    throw EZAVGeoMapError("UTM zone parameter changed");
  }
  if (FData.NumCalQuads >= MaxCalQuads) return false;
  AppendQuad({Northing, Easting, X, Y});
  return true;
}

// The graticule does not depend on control points and is not fitted again.
void TCalibration::AppendQuad(const TCalQuad& NewQuad) {
  Quad(++FData.NumCalQuads) = NewQuad;
  FitModel();
  CalcExtentsAndResolution();
}

bool TCalibration::RemoveCalibPoint(int32_t X, int32_t Y) {
  bool Removed = false;
  if (FModel == TCalibModel::cmParabolicIp) {
    Removed = RemoveNearestLinePoint(X, Y);
  } else if (FModel != TCalibModel::cmUndefined) {
    Removed = RemoveNearestQuad(X, Y);
  }
  RecalcCalibration();
  return Removed;
}

bool TCalibration::RemoveNearestLinePoint(int32_t X, int32_t Y) {
  double Nearest = std::numeric_limits<double>::max();
  int32_t NearestLine = 0;
  int32_t NearestPoint = 0;
  for (int32_t I = 1; I <= FData.NumCalLines; ++I) {
    for (int32_t J = 1; J <= Line(I).NumPoints; ++J) {
      const TPoint P = Line(I).CalPoints[static_cast<size_t>(J - 1)];
      const double Distance = WrapSquaredDistance(X, Y, P.X, P.Y);
      if (Distance >= Nearest) continue;
      Nearest = Distance;
      NearestLine = I;
      NearestPoint = J;
    }
  }
  if (NearestLine == 0) return false;
  FLastDelLineKind = Line(NearestLine).LineType;
  FLastDelLineValue = Line(NearestLine).LineValue;
  FLastDelLinePt = Line(NearestLine).CalPoints[static_cast<size_t>(NearestPoint - 1)];
  FLastDelLinePtValid = true;
  RemoveLinePoint(NearestLine, NearestPoint);
  return true;
}

bool TCalibration::RemoveNearestQuad(int32_t X, int32_t Y) {
  double Nearest = std::numeric_limits<double>::max();
  int32_t Found = 0;
  for (int32_t I = 1; I <= FData.NumCalQuads; ++I) {
    const double Distance = WrapSquaredDistance(X, Y, Quad(I).MapX, Quad(I).MapY);
    if (Distance >= Nearest) continue;
    Nearest = Distance;
    Found = I;
  }
  if (Found == 0) return false;
  FLastDelQuad = Quad(Found);
  FLastDelQuadValid = true;
  Quad(Found) = Quad(FData.NumCalQuads);
  Quad(FData.NumCalQuads--) = {};
  return true;
}

// The line's last point takes the place of the removed one, the last line that of an empty one. A
// line that was read from a file may have been empty before.
void TCalibration::RemoveLinePoint(int32_t Index, int32_t Point) {
  TCalibLine& Target = Line(Index);
  if (Target.NumPoints > 0) {
    TPoint& Last = Target.CalPoints[static_cast<size_t>(--Target.NumPoints)];
    Target.CalPoints[static_cast<size_t>(Point - 1)] = Last;
    Last = {};
  }
  if (Target.NumPoints > 0) return;
  Target = Line(FData.NumCalLines);
  Line(FData.NumCalLines--) = {};
}

bool TCalibration::RemoveCalibPoint(TGratLineKind LineKind, double LineValue, int32_t X,
                                    int32_t Y) {
  RequireModel(FModel == TCalibModel::cmParabolicIp, "RemoveCalibPoint");
  for (int32_t I = 1; I <= FData.NumCalLines; ++I) {
    const TCalibLine& Each = Line(I);
    if (Each.LineType != LineKind || Each.LineValue != LineValue) continue;
    int32_t Point = 1;  // the last one when none matches
    while (Point < Each.NumPoints &&
           Each.CalPoints[static_cast<size_t>(Point - 1)] != TPoint{X, Y}) {
      ++Point;
    }
    RemoveLinePoint(I, Point);
    break;
  }
  RecalcCalibration();
  return false;
}

void TCalibration::RestoreLastDeletedCalPoint() {
  if (FModel == TCalibModel::cmUndefined) return;
  if (FModel == TCalibModel::cmParabolicIp) {
    if (!FLastDelLinePtValid) return;
    AddCalibPoint(FLastDelLineKind, FLastDelLineValue, FLastDelLinePt.X, FLastDelLinePt.Y);
    FLastDelLinePtValid = false;
  } else if (FLastDelQuadValid) {
    AddCalibPoint(FLastDelQuad.Latitude, FLastDelQuad.Longitude, FLastDelQuad.MapX,
                  FLastDelQuad.MapY);
    FLastDelQuadValid = false;
  }
}

void TCalibration::ClearCalibData() {
  TCalibData Cleared;
  Cleared.MapFName = FData.MapFName;
  Cleared.Caption = FData.Caption;
  FData = Cleared;
  FGratMat.Resize(5, 1);
  TCalibCoefficients Coef;
  Coef.MillerParams = FCoef.MillerParams;
  Coef.ConicParams = FCoef.ConicParams;
  FCoef = Coef;
}

void TCalibration::ScalePixels(double Factor) {
  for (int32_t I = 1; I <= FData.NumCalLines; ++I) {
    for (int32_t J = 0; J < Line(I).NumPoints; ++J) {
      TPoint& P = Line(I).CalPoints[static_cast<size_t>(J)];
      P = {RoundHalfEven(P.X * Factor), RoundHalfEven(P.Y * Factor)};
    }
  }
  for (int32_t I = 1; I <= FData.NumCalQuads; ++I) {
    TCalQuad& Each = Quad(I);
    Each.MapX = RoundHalfEven(Each.MapX * Factor);
    Each.MapY = RoundHalfEven(Each.MapY * Factor);
  }
  RecalcCalibration();
}

}  // namespace zav
