// calibration_residuals.cpp - residuals and their summary.
// SPDX-License-Identifier: MIT
#include "common/calibration_residuals.h"

#include <geobasics/utm.h>
#include <platform/base/great_circle.h>

#include <algorithm>
#include <cmath>

namespace zav {

namespace {

constexpr double MeanEarthRadius = 6371008.8;  // (2a + b) / 3 of WGS 84

double MetresBetween(const TCoords& A, const TCoords& B) {
  return SphereGreatCircleDist(MeanEarthRadius, A.Latit, A.Longit, B.Latit, B.Longit);
}

void Complete(const TCalibration& Calibration, TExactPixel Predicted, TResidual& Row) {
  Row.Valid = true;
  Row.Dx = Predicted.X - Row.Pixel.X;
  Row.Dy = Predicted.Y - Row.Pixel.Y;
  Row.Pixels = std::hypot(Row.Dx, Row.Dy);
  TCoords Read;
  if (Calibration.ToGeo(Row.Pixel.X, Row.Pixel.Y, Read))
    Row.Metres = MetresBetween(Row.Position, Read);
}

}  // namespace

TResidual ResidualOf(const TCalibration& Calibration, const TCalQuad& Quad) {
  const TCalibData& Data = Calibration.Data();
  TResidual Row;
  Row.Position = {Quad.Latitude, Quad.Longitude};
  Row.Pixel = {Quad.MapX, Quad.MapY};
  TExactPixel Predicted;
  bool Known = Calibration.IsFitted();
  if (Calibration.Model() == TCalibModel::cmUTM) {
    UTMToLatLong(Quad.Longitude, Quad.Latitude, Data.UTMZone, Data.UTMSouth, Data.Ellipsoid,
                 Row.Position.Latit, Row.Position.Longit);
    if (Known) Predicted = UTMToPixel(Calibration.Coefficients(), Quad.Latitude, Quad.Longitude);
  } else {
    Known = Known && Calibration.ToPixel(Quad.Latitude, Quad.Longitude, Predicted.X, Predicted.Y);
  }
  if (Known) Complete(Calibration, Predicted, Row);
  return Row;
}

TResidual ResidualOf(const TCalibration& Calibration, TGratLineKind Line, double Value,
                     TPoint Pixel) {
  TResidual Row;
  Row.Pixel = Pixel;
  const bool Read = Calibration.ToGeo(Pixel.X, Pixel.Y, Row.Position);
  if (Line == TGratLineKind::gtlParallel)
    Row.Position.Latit = Value;
  else
    Row.Position.Longit = Value;
  TExactPixel Predicted;
  if (Read &&
      Calibration.ToPixel(Row.Position.Latit, Row.Position.Longit, Predicted.X, Predicted.Y))
    Complete(Calibration, Predicted, Row);
  return Row;
}

std::vector<TResidual> Residuals(const TCalibration& Calibration) {
  const TCalibData& Data = Calibration.Data();
  std::vector<TResidual> Table;
  if (Calibration.Model() == TCalibModel::cmParabolicIp) {
    for (int32_t i = 0; i < Data.NumCalLines; ++i) {
      const TCalibLine& Line = Data.CalLines[static_cast<size_t>(i)];
      for (int32_t k = 0; k < Line.NumPoints; ++k)
        Table.push_back(ResidualOf(Calibration, Line.LineType, Line.LineValue,
                                   Line.CalPoints[static_cast<size_t>(k)]));
    }
  } else {
    for (int32_t i = 0; i < Data.NumCalQuads; ++i)
      Table.push_back(ResidualOf(Calibration, Data.CalQuads[static_cast<size_t>(i)]));
  }
  return Table;
}

TResidualSummary SummaryOf(const std::vector<TResidual>& Table) {
  TResidualSummary Sum;
  double SquaresX = 0;
  double SquaresY = 0;
  double SquaresMetres = 0;
  for (const TResidual& Row : Table) {
    if (!Row.Valid) continue;
    ++Sum.Count;
    SquaresX += Row.Dx * Row.Dx;
    SquaresY += Row.Dy * Row.Dy;
    SquaresMetres += Row.Metres * Row.Metres;
    Sum.MaxPixels = std::max(Sum.MaxPixels, Row.Pixels);
    Sum.MaxMetres = std::max(Sum.MaxMetres, Row.Metres);
  }
  if (Sum.Count == 0) return Sum;
  Sum.RmsX = std::sqrt(SquaresX / Sum.Count);
  Sum.RmsY = std::sqrt(SquaresY / Sum.Count);
  Sum.Rms = std::sqrt((SquaresX + SquaresY) / Sum.Count);
  Sum.RmsMetres = std::sqrt(SquaresMetres / Sum.Count);
  return Sum;
}

}  // namespace zav
