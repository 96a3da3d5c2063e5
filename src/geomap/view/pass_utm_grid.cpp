// pass_utm_grid.cpp - lines of equal northing and easting.
// SPDX-License-Identifier: MIT
#include <array>
#include <cmath>

#include <geobasics/utm.h>
#include <geomap/calibration/conversion.h>
#include <geomap/view/line_series.h>
#include <geomap/view/passes.h>
#include <platform/base/line2d.h>
#include <platform/base/round125.h>
#include <platform/base/rounding.h>

namespace zav {
namespace {

constexpr int32_t MorePointsThan = 2;

struct TUTMPosition {
  double Northing = 0;
  double Easting = 0;
};

// In the map's zone, or in the one the position lies in.
TUTMPosition UTMOf(const TCoords& Position, const TCalibration& Calibration, bool InMapZone) {
  TUTMPosition UTM;
  if (InMapZone && Calibration.Data().UTMZone >= 1) {
    Calibration.ToUTMInMapZone(Position.Latit, Position.Longit, UTM.Easting, UTM.Northing);
  } else {
    int Zone = 0;
    LatLongToUTM(Position.Latit, Position.Longit, Calibration.Data().Ellipsoid, Zone, UTM.Easting,
                 UTM.Northing);
  }
  return UTM;
}

// Lines a metre, at most 1. Without a distance a round number that gives about ten lines.
double LinesPerMetre(int32_t UTMGridDist, double Span) {
  if (UTMGridDist >= 1) return 1.0 / UTMGridDist;
  const double Factor = 1 / Round125(std::fabs(Span) / 10);
  return Factor > 1 ? 1 : Factor;
}

// Ends of a grid line, in device pixels, where it crosses the image's opposite edges.
using TLineEnds = std::array<TPoint, 2>;

// The line is drawn as far as it lies on the map with GratInMapZone; else in the area that the
// whole scaled map has at the control's top left, wherever the view is.
void DrawClipped(const TRenderScene& Scene, const TLineEnds& Ends, TCanvas& Device) {
  const double Factor = Scene.View.Magnification * Scene.Scale;
  const TPoint Origin = Scene.Look.GratInMapZone ? Scene.ToDevice(0, 0) : TPoint{0, 0};
  TSLine Line;
  Line.LineFrom2Points(Ends[0].X, Ends[0].Y, Ends[1].X, Ends[1].Y);
  double X1 = 0;
  double Y1 = 0;
  double X2 = 0;
  double Y2 = 0;
  if (!Line.ClipBox(Origin.X, Origin.Y, Origin.X + Scene.Map.Width * Factor,
                    Origin.Y + Scene.Map.Height * Factor, X1, Y1, X2, Y2)) {
    return;
  }
  Device.MoveTo(RoundHalfEven(X1), RoundHalfEven(Y1));
  Device.LineTo(RoundHalfEven(X2), RoundHalfEven(Y2));
}

// EndsOf(value) is the line of a northing or easting. MapStep is how far, in map pixels, the line
// moves with each metre: the model is linear, so it is the same everywhere.
template <typename TEndsOf>
void DrawFamily(const TRenderScene& Scene, const TLineSeries& Series, double MapStep,
                TEndsOf EndsOf, TCanvas& Device) {
  const double Factor = Scene.View.Magnification * Scene.Scale;
  const auto Apart = [&](double A, double B) {
    return APixelApart(Series.Value(A) * MapStep, 0, Series.Value(B) * MapStep, 0, Factor);
  };
  ForEachLine(Series, Apart,
              [&](double Index) { DrawClipped(Scene, EndsOf(Series.Value(Index)), Device); });
}

}  // namespace

void DrawUTMGrid(const TRenderScene& Scene, TCanvas& Device) {
  const TCalibration& Calibration = Scene.Calibration;
  const TCalibData& Data = Calibration.Data();
  if (!ShowsUTMGrid(Scene.Look.ShowGraticule)) return;
  if (Calibration.Model() != TCalibModel::cmUTM || Data.NumCalQuads <= MorePointsThan) return;

  Device.Pen = {Scene.Look.ColorGraticule, TPenStyle::psSolid, TPenMode::pmCopy, Scene.PenWidth()};
  const auto Corner = [&](TCorners Index) {
    return UTMOf(Data.Corners[Index], Calibration, Scene.Look.GratInMapZone);
  };
  const TUTMPosition TopLeft = Corner(gcoTopLeft);
  const TUTMPosition BottomLeft = Corner(gcoBottomLeft);
  const TUTMPosition BottomRight = Corner(gcoBottomRight);
  const double Factor =
      LinesPerMetre(Scene.Look.UTMGridDist, TopLeft.Northing - BottomLeft.Northing);
  // Along the map's edges: x stays the same while the northing and the row change, and the other
  // way.
  const auto& X = Calibration.Coefficients().CalCoefPixX;
  const auto& Y = Calibration.Coefficients().CalCoefPixY;
  const double RowsPerNorthing = Y[1] - Y[2] * X[1] / X[2];
  const double ColumnsPerEasting = X[2] - X[1] * Y[2] / Y[1];
  const bool Whole = Scene.PartsOfPixel() == 1;
  const auto RowAt = [&](double Northing, int32_t Column) -> double {
    if (Whole) return Calibration.CalcUTMyFromNorthingX(Northing, Column);
    const double Easting = (Column - X[0] - X[1] * Northing) / X[2];
    return UTMToPixel(Calibration.Coefficients(), Northing, Easting).Y;
  };
  const auto ColumnAt = [&](double Easting, int32_t Row) -> double {
    if (Whole) return Calibration.CalcUTMxFromEastingY(Easting, Row);
    const double Northing = (Row - Y[0] - Y[2] * Easting) / Y[1];
    return UTMToPixel(Calibration.Coefficients(), Northing, Easting).X;
  };
  const int32_t Width = Scene.Map.Width;
  const int32_t Height = Scene.Map.Height;
  DrawFamily(
      Scene, MakeLineSeries(BottomLeft.Northing, TopLeft.Northing + 1 / Factor, Factor),
      RowsPerNorthing,
      [&](double Northing) -> TLineEnds {
        return {Scene.ToDevice(0, RowAt(Northing, 0)),
                Scene.ToDevice(Width, RowAt(Northing, Width))};
      },
      Device);
  DrawFamily(
      Scene, MakeLineSeries(BottomLeft.Easting, BottomRight.Easting, Factor), ColumnsPerEasting,
      [&](double Easting) -> TLineEnds {
        return {Scene.ToDevice(ColumnAt(Easting, 0), 0),
                Scene.ToDevice(ColumnAt(Easting, Height), Height)};
      },
      Device);
}

}  // namespace zav
