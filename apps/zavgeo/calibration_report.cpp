// calibration_report.cpp - residuals and their summary.
// SPDX-License-Identifier: MIT
#include "calibration_report.h"

#include <geobasics/utm.h>
#include <geomap/calibration/calib_file.h>
#include <platform/base/great_circle.h>
#include <platform/base/text_format.h>

#include <algorithm>
#include <cmath>
#include <iostream>

#include "table.h"

namespace zav {

namespace {

constexpr double MeanEarthRadius = 6371008.8;  // (2a + b) / 3 of WGS 84

double MetresBetween(const TCoords& A, const TCoords& B) {
  return SphereGreatCircleDist(MeanEarthRadius, A.Latit, A.Longit, B.Latit, B.Longit);
}

void Complete(const TCalibration& Calibration, TResidual& Row) {
  Row.Pixels = std::hypot(Row.Dx, Row.Dy);
  TCoords Read;
  if (Calibration.ToGeo(Row.Pixel.X, Row.Pixel.Y, Read))
    Row.Metres = MetresBetween(Row.Position, Read);
}

TResidual OfQuad(const TCalibration& Calibration, int32_t Index) {
  const TCalibData& Data = Calibration.Data();
  const TCalQuad& Quad = Data.CalQuads[static_cast<size_t>(Index)];
  TResidual Row;
  Row.Position = {Quad.Latitude, Quad.Longitude};
  if (Calibration.Model() == TCalibModel::cmUTM)
    UTMToLatLong(Quad.Longitude, Quad.Latitude, Data.UTMZone, Data.UTMSouth, Data.Ellipsoid,
                 Row.Position.Latit, Row.Position.Longit);
  Row.Pixel = {Quad.MapX, Quad.MapY};
  Row.Valid = Calibration.Residual(Index + 1, Row.Dx, Row.Dy);
  if (Row.Valid) Complete(Calibration, Row);
  return Row;
}

TResidual OfLinePoint(const TCalibration& Calibration, const TCalibLine& Line, TPoint Pixel) {
  TResidual Row;
  Row.Pixel = Pixel;
  Row.Valid = Calibration.ToGeo(Pixel.X, Pixel.Y, Row.Position);
  if (Line.LineType == TGratLineKind::gtlParallel)
    Row.Position.Latit = Line.LineValue;
  else
    Row.Position.Longit = Line.LineValue;
  double X = 0;
  double Y = 0;
  Row.Valid = Row.Valid && Calibration.ToPixel(Row.Position.Latit, Row.Position.Longit, X, Y);
  if (!Row.Valid) return Row;
  Row.Dx = X - Pixel.X;
  Row.Dy = Y - Pixel.Y;
  Complete(Calibration, Row);
  return Row;
}

struct TSummary {
  int Count = 0;
  double SumX = 0, SumY = 0, SumMetres = 0;  // of squares
  double MaxPixels = 0, MaxMetres = 0;
};

void PrintComment(const char* Name, std::string_view Value) {
  std::cout << "# " << Name << ": " << Value << '\n';
}

void PrintSummary(const TCalibration& Calibration, const TSummary& Sum) {
  PrintComment("model", CalibModelKeyword(Calibration.Model()));
  PrintComment("points", IntegerText(Sum.Count));
  if (Sum.Count == 0) return;
  const auto Print = [&](const char* Name, double Value) {
    PrintComment(Name, FormatFixedNumber(Value, 1, 3));
  };
  Print("rms_x_px", std::sqrt(Sum.SumX / Sum.Count));
  Print("rms_y_px", std::sqrt(Sum.SumY / Sum.Count));
  Print("rms_px", std::sqrt((Sum.SumX + Sum.SumY) / Sum.Count));
  Print("max_px", Sum.MaxPixels);
  Print("rms_m", std::sqrt(Sum.SumMetres / Sum.Count));
  Print("max_m", Sum.MaxMetres);
  Print("resolution_m_per_px", Calibration.Data().Resolution);
}

}  // namespace

std::vector<TResidual> Residuals(const TCalibration& Calibration) {
  const TCalibData& Data = Calibration.Data();
  std::vector<TResidual> Table;
  if (Calibration.Model() == TCalibModel::cmParabolicIp) {
    for (int32_t i = 0; i < Data.NumCalLines; ++i) {
      const TCalibLine& Line = Data.CalLines[static_cast<size_t>(i)];
      for (int32_t k = 0; k < Line.NumPoints; ++k)
        Table.push_back(OfLinePoint(Calibration, Line, Line.CalPoints[static_cast<size_t>(k)]));
    }
  } else {
    for (int32_t i = 0; i < Data.NumCalQuads; ++i) Table.push_back(OfQuad(Calibration, i));
  }
  return Table;
}

void PrintResiduals(const TCalibration& Calibration, const std::vector<TResidual>& Table) {
  TRow Out;
  for (const char* Name :
       {"lat", "long", "pixel_x", "pixel_y", "dx", "dy", "residual_px", "residual_m"})
    Out << Name;
  Out.Print();
  TSummary Sum;
  for (const TResidual& Row : Table) {
    Out << Row.Position.Latit << Row.Position.Longit << Row.Pixel.X << Row.Pixel.Y;
    if (Row.Valid) {
      Out << Row.Dx << Row.Dy << Row.Pixels << Row.Metres;
      ++Sum.Count;
      Sum.SumX += Row.Dx * Row.Dx;
      Sum.SumY += Row.Dy * Row.Dy;
      Sum.SumMetres += Row.Metres * Row.Metres;
      Sum.MaxPixels = std::max(Sum.MaxPixels, Row.Pixels);
      Sum.MaxMetres = std::max(Sum.MaxMetres, Row.Metres);
    } else {
      Out << ""
          << ""
          << ""
          << "";
    }
    Out.Print();
  }
  PrintSummary(Calibration, Sum);
}

}  // namespace zav
