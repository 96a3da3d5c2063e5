// calibration_doubts.cpp - points that are too few, in a row, outside the image, or wrong.
// SPDX-License-Identifier: MIT
#include "common/calibration_doubts.h"

#include <geomap/calibration/calib_file.h>
#include <geomap/calibration/svd.h>
#include <platform/base/text_format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <optional>

#include "common/conic_pole.h"

namespace zav {

namespace {

using enum TCalibModel;

// A point is doubtful when it is off by this many pixels and this many times the median.
constexpr double MinOutlierPixels = 3;
constexpr double OutlierFactor = 4;
// A conic fit that is off by this many pixels and this many times what is possible has gone astray.
constexpr double MinAstrayPixels = 2;
constexpr double AstrayFactor = 4;

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

// The terms of a polynomial of the first or second order at the points' pixels, which are first
// brought to about -1..1 around their middle, unless another origin is set.
class TTerms {
 public:
  TTerms(const std::vector<TResidual>& Table, bool SecondOrder)
      : FExtent(ExtentOf(Table)), FSecondOrder(SecondOrder) {
    // A narrow map is not a row of points to a polynomial of the second order, whose terms can be
    // scaled along each axis; the other models keep the shape.
    const double Larger = std::max({FExtent.HalfX, FExtent.HalfY, 1.0});
    FScaleX = SecondOrder ? std::max(FExtent.HalfX, 1.0) : Larger;
    FScaleY = SecondOrder ? std::max(FExtent.HalfY, 1.0) : Larger;
  }

  void SetOrigin(double X, double Y) {
    FExtent.MiddleX = X;
    FExtent.MiddleY = Y;
  }
  int32_t Count() const { return FSecondOrder ? 6 : 3; }
  std::array<double, 6> At(double PixelX, double PixelY) const {
    const double X = (PixelX - FExtent.MiddleX) / FScaleX;
    const double Y = (PixelY - FExtent.MiddleY) / FScaleY;
    return {1, X, Y, X * X, X * Y, Y * Y};
  }
  // One row for each point.
  TMatrix Of(const std::vector<TResidual>& Table) const {
    TMatrix Terms(Count(), static_cast<int32_t>(Table.size()));
    for (size_t i = 0; i < Table.size(); ++i) {
      const auto Values = At(Table[i].Pixel.X, Table[i].Pixel.Y);
      for (int32_t k = 0; k < Count(); ++k)
        Terms.SetVal(k + 1, static_cast<int32_t>(i) + 1, Values[static_cast<size_t>(k)]);
    }
    return Terms;
  }

 private:
  TExtent FExtent;
  bool FSecondOrder;
  double FScaleX = 1;
  double FScaleY = 1;
};

bool IsSecondOrder(const TCalibration& Calibration) {
  return Calibration.Model() == cmBiquadraticPn;
}

// Whether the points' pixels leave a polynomial undetermined: all on a line, or all on one conic
// section, to a hundredth of their extent.
bool Undetermined(const std::vector<TResidual>& Table, bool SecondOrder) {
  TSingularValues Svd;
  if (!Svd.Decompose(TTerms(Table, SecondOrder).Of(Table))) return true;
  const auto [Least, Most] = std::minmax_element(Svd.Values().begin(), Svd.Values().end());
  return *Least < 0.01 * *Most;
}

std::string Named(const std::vector<TResidual>& Table, size_t Index) {
  const TResidual& Row = Table[Index];
  return "point " + IntegerText(static_cast<int64_t>(Index) + 1) + " at " +
         ShortestNumber(Row.Position.Latit) + "," + ShortestNumber(Row.Position.Longit);
}

// The calibration fitted to some of its control points.
TCalibration FittedTo(const TCalibration& Calibration, const std::vector<size_t>& Points) {
  TCalibData Some = Calibration.Data();
  Some.NumCalQuads = 0;
  for (const size_t i : Points)
    Some.CalQuads[static_cast<size_t>(Some.NumCalQuads++)] = Calibration.Data().CalQuads[i];
  TCalibration Fitted = Calibration;
  Fitted.SetData(Some, Calibration.Model());
  return Fitted;
}

double MissOf(const TCalibration& Calibration, const TCalibration& Fitted, size_t Point) {
  return ResidualOf(Fitted, Calibration.Data().CalQuads[Point]).Pixels;
}

// How far each control point is from where a fit of the others puts it. A wrong point bends the fit
// towards itself, so that its own residual tells little; but among many points it bends it little,
// and then only the worst ones are looked at closely, because a conic takes its time.
std::vector<double> MissesOfOthersFit(const TCalibration& Calibration,
                                      const std::vector<size_t>& Points) {
  constexpr size_t Many = 30;
  constexpr size_t Close = 5;
  std::vector<double> Misses(Points.size());
  std::vector<size_t> Order(Points.size());
  std::iota(Order.begin(), Order.end(), size_t{0});
  if (Points.size() > Many) {
    const TCalibration All = FittedTo(Calibration, Points);
    for (const size_t i : Order) Misses[i] = MissOf(Calibration, All, Points[i]);
    std::stable_sort(Order.begin(), Order.end(),
                     [&](size_t A, size_t B) { return Misses[A] > Misses[B]; });
    Order.resize(Close);
  }
  for (const size_t i : Order) {
    std::vector<size_t> Others = Points;
    Others.erase(Others.begin() + static_cast<std::ptrdiff_t>(i));
    Misses[i] = MissOf(Calibration, FittedTo(Calibration, Others), Points[i]);
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

// Takes the worst point away as long as it stands out, because one wrong point can hide another.
void FindWrongQuads(const TCalibration& Calibration, const std::vector<TResidual>& Table,
                    std::vector<TDoubt>& Doubts) {
  const size_t Needed = static_cast<size_t>(PointsNeeded(Calibration.Model()));
  const size_t Most = Table.size() / 4 + 1;
  std::vector<size_t> Points(Table.size());
  std::iota(Points.begin(), Points.end(), size_t{0});
  for (size_t Found = 0; Found < Most && Points.size() > Needed + 1; ++Found) {
    const std::vector<double> Misses = MissesOfOthersFit(Calibration, Points);
    const auto Worst = StandsOut(Misses);
    if (!Worst) break;
    Doubts.push_back({TDoubtKind::Disagrees, Points[*Worst], Misses[*Worst]});
    Points.erase(Points.begin() + static_cast<std::ptrdiff_t>(*Worst));
  }
}

void FindWrongLinePoints(const std::vector<TResidual>& Table, std::vector<TDoubt>& Doubts) {
  std::vector<double> Misses;
  Misses.reserve(Table.size());
  for (const TResidual& Row : Table) Misses.push_back(Row.Pixels);
  if (const auto Worst = StandsOut(Misses))
    Doubts.push_back({TDoubtKind::Disagrees, *Worst, Misses[*Worst]});
}

void CountQuads(const TCalibration& Calibration, const std::vector<TResidual>& Table,
                std::vector<TDoubt>& Doubts) {
  const int32_t Count = Calibration.Data().NumCalQuads;
  const int32_t Needed = PointsNeeded(Calibration.Model());
  if (Count < Needed)
    Doubts.push_back({TDoubtKind::TooFew});
  else if (Undetermined(Table, IsSecondOrder(Calibration)))
    Doubts.push_back({TDoubtKind::Undetermined});
  else if (Count == Needed)
    Doubts.push_back({TDoubtKind::NothingToCheck});
}

bool FindAstrayPole(const TCalibration& Calibration, const std::vector<TResidual>& Table,
                    std::vector<TDoubt>& Doubts) {
  const double Rms = SummaryOf(Table).Rms;
  if (Calibration.Model() != cmConicConformal || Rms < MinAstrayPixels) return false;
  const double Gain = ConicSearchGain(Calibration);
  if (Gain < AstrayFactor) return false;
  Doubts.push_back({TDoubtKind::PoleAstray, 0, Rms / Gain});
  return true;
}

void CountLines(const TCalibration& Calibration, std::vector<TDoubt>& Doubts) {
  TCalibration Copy = Calibration;
  if (!Copy.RecalcGratMat()) Doubts.push_back({TDoubtKind::IncompleteGraticule});
  const TCalibData& Data = Calibration.Data();
  for (size_t i = 0; i < static_cast<size_t>(Data.NumCalLines); ++i)
    if (Data.CalLines[i].NumPoints < 3) Doubts.push_back({TDoubtKind::ShortLine, i});
}

}  // namespace

int32_t PointsNeeded(TCalibModel Model) { return Model == cmBiquadraticPn ? 6 : 3; }

std::vector<TDoubt> FindDoubts(const TCalibration& Calibration,
                               const std::vector<TResidual>& Table) {
  std::vector<TDoubt> Doubts;
  const bool Lines = Calibration.Model() == cmParabolicIp;
  if (Lines)
    CountLines(Calibration, Doubts);
  else
    CountQuads(Calibration, Table, Doubts);
  for (size_t i = 0; i < Table.size(); ++i) {
    const TPoint Pixel = Table[i].Pixel;
    if (Pixel.X < 0 || Pixel.Y < 0 || Pixel.X >= Calibration.ImageWidth() ||
        Pixel.Y >= Calibration.ImageHeight())
      Doubts.push_back({TDoubtKind::OutsideImage, i});
  }
  if (Lines)
    FindWrongLinePoints(Table, Doubts);
  else if (!FindAstrayPole(Calibration, Table, Doubts))  // then the points are not to blame
    FindWrongQuads(Calibration, Table, Doubts);
  return Doubts;
}

std::string DoubtText(const TDoubt& Doubt, const TCalibration& Calibration,
                      const std::vector<TResidual>& Table) {
  const std::string Count = IntegerText(Calibration.Data().NumCalQuads);
  const std::string Keyword(CalibModelKeyword(Calibration.Model()));
  switch (Doubt.Kind) {
    case TDoubtKind::TooFew:
      return Count + " points are too few: " + Keyword + " needs " +
             IntegerText(PointsNeeded(Calibration.Model()));
    case TDoubtKind::Undetermined:
      return "the points lie in a row (or on one curve); the fit is not determined by them";
    case TDoubtKind::NothingToCheck:
      return Count + " points leave nothing to check " + Keyword + " by; residuals say nothing";
    case TDoubtKind::IncompleteGraticule:
      return "the graticule is not complete: two meridians and two parallels of three points are "
             "needed";
    case TDoubtKind::ShortLine: {
      const TCalibLine& Line = Calibration.Data().CalLines[Doubt.Index];
      return std::string(Line.LineType == TGratLineKind::gtlMeridian ? "meridian " : "parallel ") +
             ShortestNumber(Line.LineValue) + " has fewer than three points and is not used";
    }
    case TDoubtKind::OutsideImage:
      return Named(Table, Doubt.Index) + " is outside the image";
    case TDoubtKind::PoleAstray:
      return "the search for the point in which the meridians meet has gone astray, although a "
             "cone "
             "meets the points to about " +
             FormatFixedNumber(Doubt.Pixels, 1, 1) +
             " pixels; add points in other parts of the map";
    case TDoubtKind::Disagrees:
      return Named(Table, Doubt.Index) + " stands out: off by " +
             FormatFixedNumber(Doubt.Pixels, 1, 1) + " pixels from a fit of the others";
  }
  return {};
}

std::vector<double> GrowthAtCorners(const TCalibration& Calibration,
                                    const std::vector<TResidual>& Table) {
  const int32_t Width = Calibration.ImageWidth();
  const int32_t Height = Calibration.ImageHeight();
  const size_t Needed = IsSecondOrder(Calibration) ? 6 : 3;
  if (Width < 1 || Height < 1 || Table.size() < Needed) return {};
  TTerms Terms(Table, IsSecondOrder(Calibration));
  if (Undetermined(Table, IsSecondOrder(Calibration))) return {};
  std::vector<double> Growth;
  for (const TPoint Corner :
       {TPoint{0, 0}, TPoint{0, Height}, TPoint{Width, Height}, TPoint{Width, 0}}) {
    // Seen from the corner, what the fit gives there is its constant term.
    Terms.SetOrigin(Corner.X, Corner.Y);
    TSingularValues Svd;
    TVector Deviations;
    if (!Svd.Decompose(Terms.Of(Table))) return {};
    Svd.StandardDeviations(Deviations);
    Growth.push_back(Deviations.GetVal(1));
  }
  return Growth;
}

}  // namespace zav
