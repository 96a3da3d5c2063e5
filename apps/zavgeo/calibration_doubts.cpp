// calibration_doubts.cpp - points that are too few, in a row, outside the image, or wrong.
// SPDX-License-Identifier: MIT
#include <geomap/calibration/calib_file.h>
#include <geomap/calibration/svd.h>
#include <platform/base/text_format.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>

#include "calibration_report.h"

namespace zav {

namespace {

using enum TCalibModel;

// A point is doubtful when it is off by this many pixels and this many times the median.
constexpr double MinOutlierPixels = 3;
constexpr double OutlierFactor = 4;

// The number of control points that determine the model; one more is needed to check them.
int32_t PointsNeeded(TCalibModel Model) { return Model == cmBiquadraticPn ? 6 : 3; }

// Half the extent of the pixels along each axis.
struct TExtent {
  double MiddleX = 0, MiddleY = 0;
  double HalfX = 0, HalfY = 0;
};

TExtent ExtentOf(const std::vector<TResidual>& Table) {
  const auto [Left, Right] = std::minmax_element(
      Table.begin(), Table.end(),
      [](const TResidual& A, const TResidual& B) { return A.Pixel.X < B.Pixel.X; });
  const auto [Top, Bottom] = std::minmax_element(
      Table.begin(), Table.end(),
      [](const TResidual& A, const TResidual& B) { return A.Pixel.Y < B.Pixel.Y; });
  return {(Left->Pixel.X + Right->Pixel.X) / 2.0, (Top->Pixel.Y + Bottom->Pixel.Y) / 2.0,
          (Right->Pixel.X - Left->Pixel.X) / 2.0, (Bottom->Pixel.Y - Top->Pixel.Y) / 2.0};
}

// Whether the points' pixels leave a polynomial of the first or second order undetermined: all on a
// line, or all on one conic section, to a hundredth of their extent.
bool Undetermined(const std::vector<TResidual>& Table, bool SecondOrder) {
  const TExtent Extent = ExtentOf(Table);
  // A narrow map is not a row of points to a polynomial of the second order, whose terms can be
  // scaled along each axis; the other models keep the shape.
  const double Larger = std::max({Extent.HalfX, Extent.HalfY, 1.0});
  const double ScaleX = SecondOrder ? std::max(Extent.HalfX, 1.0) : Larger;
  const double ScaleY = SecondOrder ? std::max(Extent.HalfY, 1.0) : Larger;
  TMatrix Terms(SecondOrder ? 6 : 3, static_cast<int32_t>(Table.size()));
  for (size_t i = 0; i < Table.size(); ++i) {
    const double X = (Table[i].Pixel.X - Extent.MiddleX) / ScaleX;
    const double Y = (Table[i].Pixel.Y - Extent.MiddleY) / ScaleY;
    const double Values[] = {1, X, Y, X * X, X * Y, Y * Y};
    for (int32_t k = 0; k < Terms.NumColumns(); ++k)
      Terms.SetVal(k + 1, static_cast<int32_t>(i) + 1, Values[k]);
  }
  TSingularValues Svd;
  if (!Svd.Decompose(Terms)) return true;
  const auto [Least, Most] = std::minmax_element(Svd.Values().begin(), Svd.Values().end());
  return *Least < 0.01 * *Most;
}

std::string Named(const std::vector<TResidual>& Table, size_t Index) {
  const TResidual& Row = Table[Index];
  return "point " + IntegerText(static_cast<int64_t>(Index) + 1) + " at " +
         ShortestNumber(Row.Position.Latit) + "," + ShortestNumber(Row.Position.Longit);
}

bool Predicted(const TCalibration& Calibration, const TCalQuad& Quad, double& X, double& Y) {
  if (Calibration.Model() != cmUTM) return Calibration.ToPixel(Quad.Latitude, Quad.Longitude, X, Y);
  const TCalibCoefficients& C = Calibration.Coefficients();
  X = C.CalCoefPixX[0] + C.CalCoefPixX[1] * Quad.Latitude + C.CalCoefPixX[2] * Quad.Longitude;
  Y = C.CalCoefPixY[0] + C.CalCoefPixY[1] * Quad.Latitude + C.CalCoefPixY[2] * Quad.Longitude;
  return true;
}

// How far each control point is from where a fit of the others puts it. A wrong point bends the fit
// towards itself, so that its own residual tells little.
std::vector<double> MissesOfOthersFit(const TCalibration& Calibration,
                                      const std::vector<size_t>& Points) {
  TCalibration Trial = Calibration;
  std::vector<double> Misses;
  for (const size_t Left : Points) {
    TCalibData Others = Calibration.Data();
    Others.NumCalQuads = 0;
    for (const size_t i : Points)
      if (i != Left)
        Others.CalQuads[static_cast<size_t>(Others.NumCalQuads++)] = Calibration.Data().CalQuads[i];
    Trial.SetData(Others, Calibration.Model());
    const TCalQuad& Quad = Calibration.Data().CalQuads[Left];
    double X = 0;
    double Y = 0;
    const bool Known = Predicted(Trial, Quad, X, Y);
    Misses.push_back(Known ? std::hypot(X - Quad.MapX, Y - Quad.MapY) : 0);
  }
  return Misses;
}

double Median(std::vector<double> Values) {
  const auto Middle = Values.begin() + static_cast<std::ptrdiff_t>(Values.size() / 2);
  std::nth_element(Values.begin(), Middle, Values.end());
  return *Middle;
}

// The position of the worst miss when it stands out.
std::optional<size_t> StandsOut(const std::vector<double>& Misses) {
  const auto Worst = std::max_element(Misses.begin(), Misses.end());
  if (Worst == Misses.end() || *Worst < std::max(MinOutlierPixels, OutlierFactor * Median(Misses)))
    return std::nullopt;
  return static_cast<size_t>(Worst - Misses.begin());
}

std::string Disagreement(const std::vector<TResidual>& Table, size_t Index, double Miss) {
  return Named(Table, Index) + " stands out: off by " + FormatFixedNumber(Miss, 1, 1) +
         " pixels from a fit of the others";
}

// Takes the worst point away as long as it stands out, because one wrong point can hide another.
void FindWrongQuads(const TCalibration& Calibration, const std::vector<TResidual>& Table,
                    std::vector<std::string>& Doubts) {
  const size_t Needed = static_cast<size_t>(PointsNeeded(Calibration.Model()));
  const size_t Most = Table.size() / 4 + 1;
  std::vector<size_t> Points(Table.size());
  std::iota(Points.begin(), Points.end(), size_t{0});
  for (size_t Found = 0; Found < Most && Points.size() > Needed + 1; ++Found) {
    const std::vector<double> Misses = MissesOfOthersFit(Calibration, Points);
    const auto Worst = StandsOut(Misses);
    if (!Worst) break;
    Doubts.push_back(Disagreement(Table, Points[*Worst], Misses[*Worst]));
    Points.erase(Points.begin() + static_cast<std::ptrdiff_t>(*Worst));
  }
}

void FindWrongLinePoints(const std::vector<TResidual>& Table, std::vector<std::string>& Doubts) {
  std::vector<double> Misses;
  Misses.reserve(Table.size());
  for (const TResidual& Row : Table) Misses.push_back(Row.Pixels);
  if (const auto Worst = StandsOut(Misses))
    Doubts.push_back(Disagreement(Table, *Worst, Misses[*Worst]));
}

void CountQuads(const TCalibration& Calibration, const std::vector<TResidual>& Table,
                std::vector<std::string>& Doubts) {
  const int32_t Count = Calibration.Data().NumCalQuads;
  const int32_t Needed = PointsNeeded(Calibration.Model());
  const std::string Keyword(CalibModelKeyword(Calibration.Model()));
  if (Count < Needed)
    Doubts.push_back(IntegerText(Count) + " points are too few: " + Keyword + " needs " +
                     IntegerText(Needed));
  else if (Undetermined(Table, Calibration.Model() == cmBiquadraticPn))
    Doubts.push_back(
        "the points lie in a row (or on one curve); the fit is not determined by them");
  else if (Count == Needed)
    Doubts.push_back(IntegerText(Count) + " points leave nothing to check " + Keyword +
                     " by; residuals say nothing");
}

void CountLines(const TCalibration& Calibration, std::vector<std::string>& Doubts) {
  TCalibration Copy = Calibration;
  if (!Copy.RecalcGratMat())
    Doubts.emplace_back(
        "the graticule is not complete: two meridians and two parallels of three points are "
        "needed");
  const TCalibData& Data = Calibration.Data();
  for (int32_t i = 0; i < Data.NumCalLines; ++i) {
    const TCalibLine& Line = Data.CalLines[static_cast<size_t>(i)];
    if (Line.NumPoints >= 3) continue;
    Doubts.push_back(
        std::string(Line.LineType == TGratLineKind::gtlMeridian ? "meridian " : "parallel ") +
        ShortestNumber(Line.LineValue) + " has fewer than three points and is not used");
  }
}

}  // namespace

std::vector<std::string> Doubts(const TCalibration& Calibration,
                                const std::vector<TResidual>& Table) {
  std::vector<std::string> Result;
  const bool Lines = Calibration.Model() == cmParabolicIp;
  if (Lines)
    CountLines(Calibration, Result);
  else
    CountQuads(Calibration, Table, Result);
  for (size_t i = 0; i < Table.size(); ++i) {
    const TPoint Pixel = Table[i].Pixel;
    if (Pixel.X < 0 || Pixel.Y < 0 || Pixel.X >= Calibration.ImageWidth() ||
        Pixel.Y >= Calibration.ImageHeight())
      Result.push_back(Named(Table, i) + " is outside the image");
  }
  if (Lines)
    FindWrongLinePoints(Table, Result);
  else
    FindWrongQuads(Calibration, Table, Result);
  return Result;
}

}  // namespace zav
