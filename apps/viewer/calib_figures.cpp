// calib_figures.cpp - residuals and quality of a calibration.
// SPDX-License-Identifier: MIT
#include "calib_figures.h"

#include <algorithm>
#include <limits>

#include <platform/base/curve_fit.h>
#include <platform/base/text_format.h>

#include "calib_document.h"

namespace zav {

namespace {

// Below this all residuals are as good as zero, and none is the worst.
constexpr double AsGoodAsZero = 1e-6;

// The library's figures take the points as degrees, so that UTM maps need their own.
void FindQualXY(const TCalibration& Calibration, CalibQuality& Quality) {
  if (Calibration.Model() != TCalibModel::cmUTM)
    return Calibration.CalibQuality(Quality.QualX, Quality.QualY);
  TCurveFit AlongX;
  TCurveFit AlongY;
  for (int32_t i = 0; i < Calibration.Data().NumCalQuads; ++i) {
    const TCalQuad& Quad = Calibration.Data().CalQuads[static_cast<size_t>(i)];
    int32_t X = 0;
    int32_t Y = 0;
    Calibration.CalcPixelCoordsUTM(Quad.Latitude, Quad.Longitude, X, Y);
    AlongX.EnterStatValue(Quad.MapX, X);
    AlongY.EnterStatValue(Quad.MapY, Y);
  }
  Quality.QualX = AlongX.CalcStatistics().StdDevDiff;
  Quality.QualY = AlongY.CalcStatistics().StdDevDiff;
}

// The miss of any item of the model's kind, switched on or off.
TResidual MissOf(const TCalibration& Calibration, const UtmGrid& Grid, const CalibItem& Item) {
  if (!UsesKind(Calibration.Model(), Item.Kind) || !Calibration.IsFitted()) return {};
  if (Item.IsLinePoint())
    return ResidualOf(Calibration, LineKindOf(Item.Kind), Item.Value, Item.Pixel);
  TCalQuad Quad{0, 0, Item.Pixel.X, Item.Pixel.Y};
  if (Calibration.Model() == TCalibModel::cmUTM) {
    const auto Metres = MetresOf(Item.Position, Grid);
    if (!Metres) return {};
    Quad.Latitude = Metres->Northing;
    Quad.Longitude = Metres->Easting;
  } else {
    const auto Degrees = DegreesOf(Item.Position, Grid);
    if (!Degrees) return {};
    Quad.Latitude = Degrees->Latit;
    Quad.Longitude = Degrees->Longit;
  }
  return ResidualOf(Calibration, Quad);
}

void MarkWorst(const std::vector<size_t>& Rows, std::vector<CalibResidual>& Residuals) {
  const auto Worst = std::max_element(Rows.begin(), Rows.end(), [&](size_t A, size_t B) {
    return Residuals[A].Pixels < Residuals[B].Pixels;
  });
  if (Rows.size() < 2 || Residuals[*Worst].Pixels < AsGoodAsZero) return;
  Residuals[*Worst].Worst = true;
}

CalibQuality QualityOf(const TCalibration& Calibration, const std::vector<TResidual>& Table) {
  CalibQuality Quality;
  if (!Calibration.IsFitted()) return Quality;
  const TResidualSummary Sum = SummaryOf(Table);
  Quality.Valid = true;
  Quality.Count = Sum.Count;
  FindQualXY(Calibration, Quality);
  Quality.RmsX = Sum.RmsX;
  Quality.RmsY = Sum.RmsY;
  Quality.Rms = Sum.Rms;
  Quality.Max = Sum.MaxPixels;
  Quality.RmsMetres = Sum.RmsMetres;
  Quality.MaxMetres = Sum.MaxMetres;
  Quality.Resolution = Calibration.Data().Resolution;
  return Quality;
}

}  // namespace

CalibFit::CalibFit(const CalibState& State) : Record(RecordOf(State)) {
  Calibration.SetImageSize(State.ImageSize.width(), State.ImageSize.height());
  Calibration.SetData(Record.Data, State.Model);
  Residuals.reserve(State.Items.size());
  for (const CalibItemPtr& Item : State.Items) {
    const TResidual Miss = MissOf(Calibration, State.Grid, *Item);
    Residuals.push_back({Miss.Valid, Miss.Dx, Miss.Dy, Miss.Pixels, Miss.Metres, false});
  }
  Table = zav::Residuals(Calibration);
  MarkWorst(Record.Rows, Residuals);
  Quality = QualityOf(Calibration, Table);
}

double CalibQuality::Value(CalibFigure Figure) const {
  switch (Figure) {
    case CalibFigure::QualX:
      return QualX;
    case CalibFigure::QualY:
      return QualY;
    case CalibFigure::RmsX:
      return RmsX;
    case CalibFigure::RmsY:
      return RmsY;
    case CalibFigure::Rms:
      return Rms;
    case CalibFigure::Max:
      return Max;
    case CalibFigure::RmsMetres:
      return RmsMetres;
    case CalibFigure::MaxMetres:
      return MaxMetres;
    case CalibFigure::Resolution:
      return Resolution;
  }
  return std::numeric_limits<double>::quiet_NaN();
}

QString CalibFigureName(CalibFigure Figure) {
  switch (Figure) {
    case CalibFigure::QualX:
      return CalibDocument::tr("Quality along X");
    case CalibFigure::QualY:
      return CalibDocument::tr("Quality along Y");
    case CalibFigure::RmsX:
      return CalibDocument::tr("RMS along X");
    case CalibFigure::RmsY:
      return CalibDocument::tr("RMS along Y");
    case CalibFigure::Rms:
      return CalibDocument::tr("RMS");
    case CalibFigure::Max:
      return CalibDocument::tr("Largest");
    case CalibFigure::RmsMetres:
      return CalibDocument::tr("RMS on the ground");
    case CalibFigure::MaxMetres:
      return CalibDocument::tr("Largest on the ground");
    case CalibFigure::Resolution:
      return CalibDocument::tr("Size of a pixel");
  }
  return {};
}

QString CalibFigureFormula(CalibFigure Figure) {
  const auto Quality = [](const char* Axis) {
    return CalibDocument::
        tr("QualX = sqrt( sum( (d - mean d)^2 ) / (n - 1) ), where d is the predicted minus the "
           "given X of a point, the prediction rounded to a whole pixel, and n the number of "
           "points. Control points only.")
            .replace(QLatin1Char('X'), QLatin1String(Axis));
  };
  switch (Figure) {
    case CalibFigure::QualX:
      return Quality("X");
    case CalibFigure::QualY:
      return Quality("Y");
    case CalibFigure::RmsX:
      return CalibDocument::tr(
          "sqrt( sum( dX^2 ) / n ), where dX is the predicted minus the given X of a point "
          "in pixels, not rounded.");
    case CalibFigure::RmsY:
      return CalibDocument::tr(
          "sqrt( sum( dY^2 ) / n ), where dY is the predicted minus the given Y of a point "
          "in pixels, not rounded.");
    case CalibFigure::Rms:
      return CalibDocument::tr("sqrt( sum( dX^2 + dY^2 ) / n ), in pixels, not rounded.");
    case CalibFigure::Max:
      return CalibDocument::tr("The largest sqrt( dX^2 + dY^2 ) of all points, in pixels.");
    case CalibFigure::RmsMetres:
      return CalibDocument::tr(
          "sqrt( sum( s^2 ) / n ), where s is the distance on a sphere of 6371008.8 m from a "
          "point's position to the one that the map gives for its pixel.");
    case CalibFigure::MaxMetres:
      return CalibDocument::tr(
          "The largest distance, on a sphere of 6371008.8 m, from a point's position to the "
          "one that the map gives for its pixel.");
    case CalibFigure::Resolution:
      return CalibDocument::tr(
          "The great-circle distance between the ends of the image's middle row, divided by "
          "its width in pixels.");
  }
  return {};
}

QString ItemTitle(const CalibState& State, size_t Index) {
  const CalibItem& Item = *State.Items[Index];
  const QString Number = QString::number(Index + 1);
  const QString Value = QString::fromStdString(ShortestNumber(Item.Value));
  QString Title;
  if (Item.Kind == CalibItemKind::Meridian)
    Title = CalibDocument::tr("Point %1 on meridian %2").arg(Number, Value);
  else if (Item.Kind == CalibItemKind::Parallel)
    Title = CalibDocument::tr("Point %1 on parallel %2").arg(Number, Value);
  else
    Title = CalibDocument::tr("Point %1").arg(Number);
  if (!Item.Name.isEmpty()) Title += QStringLiteral(" (%1)").arg(Item.Name);
  return Title;
}

}  // namespace zav
