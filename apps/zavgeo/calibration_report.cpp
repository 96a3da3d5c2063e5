// calibration_report.cpp - residuals and their summary on standard output.
// SPDX-License-Identifier: MIT
#include "calibration_report.h"

#include <geomap/calibration/calib_file.h>
#include <platform/base/text_format.h>

#include <iostream>

#include "table_output.h"

namespace zav {

namespace {

void PrintComment(const char* Name, std::string_view Value) {
  std::cout << "# " << Name << ": " << Value << '\n';
}

void PrintSummary(const TCalibration& Calibration, const TResidualSummary& Sum) {
  PrintComment("model", CalibModelKeyword(Calibration.Model()));
  PrintComment("points", IntegerText(Sum.Count));
  if (Sum.Count == 0) return;
  const auto PrintNumber = [&](const char* Name, double Value) {
    PrintComment(Name, FormatFixedNumber(Value, 1, 3));
  };
  PrintNumber("rms_x_px", Sum.RmsX);
  PrintNumber("rms_y_px", Sum.RmsY);
  PrintNumber("rms_px", Sum.Rms);
  PrintNumber("max_px", Sum.MaxPixels);
  PrintNumber("rms_m", Sum.RmsMetres);
  PrintNumber("max_m", Sum.MaxMetres);
  PrintNumber("resolution_m_per_px", Calibration.Data().Resolution);
}

}  // namespace

void PrintResiduals(const TCalibration& Calibration, const std::vector<TResidual>& Table) {
  TRow Out;
  for (const char* Name :
       {"lat", "long", "pixel_x", "pixel_y", "dx", "dy", "residual_px", "residual_m"})
    Out << Name;
  Print(Out);
  for (const TResidual& Row : Table) {
    Out << Row.Position.Latit << Row.Position.Longit << Row.Pixel.X << Row.Pixel.Y;
    if (Row.Valid)
      Out << Row.Dx << Row.Dy << Row.Pixels << Row.Metres;
    else
      for (int i = 0; i < 4; ++i) Out << "";
    Print(Out);
  }
  PrintSummary(Calibration, SummaryOf(Table));
}

}  // namespace zav
