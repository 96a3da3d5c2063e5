// graticule.cpp - see graticule.h.
// SPDX-License-Identifier: MIT
#include <geomap/view/graticule.h>

#include <algorithm>
#include <cmath>

#include <geomap/view/line_series.h>
#include <platform/base/rounding.h>

namespace zav {
namespace {

// The area that the lines cross, from the map's corners.
struct TExtent {
  double South, North, West, East;
};

TExtent ExtentOf(const TCornerArray& C) {
  return {std::min(C[gcoBottomLeft].Latit, C[gcoBottomRight].Latit),
          std::max(C[gcoTopLeft].Latit, C[gcoTopRight].Latit),
          std::min(C[gcoTopLeft].Longit, C[gcoBottomLeft].Longit),
          std::max(C[gcoTopRight].Longit, C[gcoBottomRight].Longit)};
}

// Straight pieces a line, 0 for a model without a graticule, and the points that its fit needs more
// than.
struct TModelLines {
  int Pieces = 0;
  int32_t MorePointsThan = 0;
};

TModelLines ModelLinesOf(TCalibModel Model) {
  switch (Model) {
    case TCalibModel::cmBiquadraticPn:
      return {100, 5};
    case TCalibModel::cmConicConformal:
    case TCalibModel::cmMillerCylindrical:
      return {100, 2};
    case TCalibModel::cmEquiRect:
    case TCalibModel::cmUTM:
      return {10, 2};
    case TCalibModel::cmParabolicIp:
    case TCalibModel::cmUndefined:
      break;
  }
  return {};
}

// Lines a degree. Without a distance the largest power of ten that is a degree or less and gives a
// span at least one line; 0 for an area without a span.
double LinesPerDegree(double Span, double GratLineDist) {
  if (GratLineDist > 0) return 1 / GratLineDist;
  double Factor = 1;
  double Steps = std::fabs(Span);
  if (!(Steps > 0)) return 0;
  while (Steps < 1) {
    Steps *= 10;
    Factor *= 10;
  }
  return Factor;
}

// One family of lines. PositionAt(line's value, value along it) is the position of a point.
template <typename TPositionAt>
void AddFamily(const TCalibration& Calibration, bool InMapZone, const TLineSeries& Series,
               int Pieces, double From, double To, double Factor, int32_t Parts,
               TPositionAt PositionAt, std::vector<TPolyline>& Lines) {
  const auto At = [&](double Index, int Piece) -> TCoords {
    return PositionAt(Series.Value(Index), From + Piece * (To - From) / Pieces);
  };
  const auto ToPixel = [&](const TCoords& P, double& X, double& Y) {
    return InMapZone ? Calibration.ToPixelInMapZone(P.Latit, P.Longit, X, Y)
                     : Calibration.ToPixel(P.Latit, P.Longit, X, Y);
  };
  const auto Apart = [&](double A, double B) {
    // The ends and three points between: neighbours that agree there agree to the eye.
    for (int Quarter = 0; Quarter <= 4; ++Quarter) {
      const int Piece = Pieces * Quarter / 4;
      const TCoords PA = At(A, Piece);
      const TCoords PB = At(B, Piece);
      double XA = 0;
      double YA = 0;
      double XB = 0;
      double YB = 0;
      if (!ToPixel(PA, XA, YA)) continue;
      if (!ToPixel(PB, XB, YB)) continue;
      if (APixelApart(XA, YA, XB, YB, Factor)) return true;
    }
    return false;
  };
  ForEachLine(Series, Apart, [&](double Index) {
    TPolyline& Line = Lines.emplace_back();
    for (int Piece = 0; Piece <= Pieces; ++Piece) {
      const TCoords Position = At(Index, Piece);
      TPoint P;
      double X = 0;
      double Y = 0;
      if ((InMapZone || Parts > 1) && ToPixel(Position, X, Y)) {
        P = {RoundHalfEven(X * Parts), RoundHalfEven(Y * Parts)};
      } else {
        Calibration.CalcPixelCoords(Position.Latit, Position.Longit, P.X, P.Y);
        P = {RoundHalfEven(static_cast<double>(P.X) * Parts),
             RoundHalfEven(static_cast<double>(P.Y) * Parts)};
      }
      AddPoint(Line, P);
    }
  });
}

std::vector<TPolyline> LinesOf(const TCalibration& Calibration, double Dist, bool InMapZone,
                               double Factor, int32_t Parts) {
  const TModelLines Model = ModelLinesOf(Calibration.Model());
  std::vector<TPolyline> Lines;
  if (Model.Pieces == 0 || Calibration.Data().NumCalQuads <= Model.MorePointsThan) return Lines;
  const TExtent Area = ExtentOf(Calibration.Data().Corners);
  AddFamily(
      Calibration, InMapZone,
      MakeLineSeries(Area.South, Area.North, LinesPerDegree(Area.North - Area.South, Dist)),
      Model.Pieces, Area.West, Area.East, Factor, Parts,
      [](double Lat, double Long) -> TCoords {
        return {Lat, Long};
      },
      Lines);
  AddFamily(
      Calibration, InMapZone,
      MakeLineSeries(Area.West, Area.East, LinesPerDegree(Area.East - Area.West, Dist)),
      Model.Pieces, Area.South, Area.North, Factor, Parts,
      [](double Long, double Lat) -> TCoords {
        return {Lat, Long};
      },
      Lines);
  return Lines;
}

}  // namespace

const std::vector<TPolyline>& TGraticule::Lines(const TCalibration& Calibration,
                                                double GratLineDist, bool InMapZone, double Factor,
                                                int32_t Parts) {
  if (FValid && FGratLineDist == GratLineDist && FInMapZone == InMapZone && FFactor == Factor &&
      FParts == Parts && FCalibration == Calibration) {
    return FLines;
  }
  FValid = false;  // until all is there: memory may run out
  FLines = LinesOf(Calibration, GratLineDist, InMapZone, Factor, Parts);
  FCalibration = Calibration;
  FGratLineDist = GratLineDist;
  FInMapZone = InMapZone;
  FFactor = Factor;
  FParts = Parts;
  FValid = true;
  return FLines;
}

}  // namespace zav
