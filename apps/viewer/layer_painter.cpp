// layer_painter.cpp - draws databases over the map.
// SPDX-License-Identifier: MIT
#include "layer_painter.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include <geomap/geo_map.h>
#include <platform/base/rounding.h>
#include <platform/qt/qt_convert.h>

namespace zav {

namespace {

using enum TgdbItem;

constexpr double Around = 40;          // control pixels beyond the edges that are drawn, too
constexpr int Cell = 3;                // what is nearer to each other than this covers each other
constexpr double Speck = 0.7;          // control pixels; a line that cannot be seen
constexpr double SmallLine = 6;        // control pixels; covers others as a town does
constexpr size_t MostCaptions = 2000;  // that are tried for a picture
constexpr double MetresOfDegree = 111195;

// What lies on what.
constexpr std::array<TgdbItem, LayerKinds> Order{gitLake, gitCity,  gitBorder, gitRiver,
                                                 gitRoad, gitRoute, gitBLOB,   gitTown};

TPoint Rounded(QPointF Point) { return {RoundHalfEven(Point.x()), RoundHalfEven(Point.y())}; }

std::vector<TPoint> Rounded(const PixelLine& Line) {
  std::vector<TPoint> Result;
  Result.reserve(Line.size());
  for (const QPointF Point : Line) Result.push_back(Rounded(Point));
  return Result;
}

}  // namespace

LayerPainter::LayerPainter(TGeoMap& Map, TCanvas& Canvas, const LayerStyle& Style)
    : FMap(Map), FCanvas(Canvas), FStyle(Style) {
  const TSize Size = Map.DrawnSize();
  FArea = QRectF(0, 0, Size.Width, Size.Height).adjusted(-Around, -Around, Around, Around);
  const double Resolution = Map.CalibData().Resolution;
  if (Resolution > 0) FDegree = MetresOfDegree / Resolution * Map.Magnification();
  FColumns = Size.Width / Cell + 1;
  FRows = Size.Height / Cell + 1;
}

// A line that is at most about so many control pixels wide and high.
bool LayerPainter::isLineWithin(const TgdbData& Data, double Extent) const {
  if (FDegree <= 0 || !HasPointList(Data.ItemKind)) return false;
  const double Shrunk = std::cos(Data.LatLow * std::numbers::pi / 180);
  return (Data.LatHigh - Data.LatLow) * FDegree < Extent &&
         (Data.LongHigh - Data.LongLow) * FDegree * Shrunk < Extent;
}

// False when another item of the kind has taken the place. Beyond the edges there is always room.
bool LayerPainter::take(TgdbItem Kind, QPointF At) {
  const double Column = std::floor(At.x() / Cell);
  const double Row = std::floor(At.y() / Cell);
  if (!(Column >= 0 && Row >= 0 && Column < FColumns && Row < FRows)) return true;
  std::vector<bool>& Taken = FTaken[static_cast<size_t>(Kind)];
  Taken.resize(static_cast<size_t>(FColumns) * static_cast<size_t>(FRows));
  const size_t Place =
      static_cast<size_t>(Row) * static_cast<size_t>(FColumns) + static_cast<size_t>(Column);
  if (Taken[Place]) return false;
  Taken[Place] = true;
  return true;
}

void LayerPainter::collect(DatabaseLayer& Layer) {
  const TViewState View = FMap.View();
  const QRectF MapArea(View.TopLeft.X + FArea.left() / View.Magnification,
                       View.TopLeft.Y + FArea.top() / View.Magnification,
                       FArea.width() / View.Magnification, FArea.height() / View.Magnification);
  Layer.setCalibration(FMap.Calibration());
  TGeoDB& Database = Layer.database();
  std::vector<int32_t> Found = Database.ItemsInRegion(RegionOf(FMap.Calibration(), MapArea));
  std::sort(Found.begin(), Found.end());
  for (const int32_t RecNo : Found) {
    const TgdbData Data = Database.GetSumdata(RecNo);
    const auto Kind = static_cast<size_t>(Data.ItemKind);
    if (Kind >= LayerKinds || !FStyle.of(Data.ItemKind).Shown || isLineWithin(Data, Speck))
      continue;
    FItems[Kind].push_back({&Layer, RecNo});
  }
}

void LayerPainter::draw() {
  for (const TgdbItem Kind : Order)
    for (const Item& Each : FItems[static_cast<size_t>(Kind)]) drawItem(Each, Kind);
  drawCaptions();
}

PixelLine LayerPainter::onControl(DatabaseLayer& Layer, int32_t RecNo) const {
  PixelLine Line = Layer.pixels(RecNo);
  const TViewState View = FMap.View();
  const QPointF Origin(View.TopLeft.X, View.TopLeft.Y);
  for (QPointF& Point : Line) Point = (Point - Origin) * View.Magnification;
  return Line;
}

void LayerPainter::drawItem(const Item& What, TgdbItem Kind) {
  const PixelLine Line = onControl(*What.Layer, What.RecNo);
  if (Line.empty()) return;
  const KindStyle& Style = FStyle.of(Kind);
  const TgdbData Data = What.Layer->database().GetSumdata(What.RecNo);
  const auto Name = [&](QPointF At, bool Centred) {
    if (Data.Name.View().empty()) return;
    FCaptions.push_back({Data.ClassFlag, Rounded(At), Centred, std::string(Data.Name.View())});
  };
  if (!HasPointList(Kind)) {
    const QPointF At = Line.front();
    if (IsGap(At) || !FArea.adjusted(Around, Around, -Around, -Around).contains(At)) return;
    if (!take(Kind, At)) return;
    drawDot(At, Style, Data.ClassFlag == 0 ? 3 : 2);
    return Name(At, false);
  }
  if (isLineWithin(Data, SmallLine) && !IsGap(Line.front()) && !take(Kind, Line.front())) return;
  FCanvas.Pen = {FromQColor(Style.Color), TPenStyle::psSolid, TPenMode::pmCopy, Style.Width};
  const bool Area = Data.Closed != 0 && Style.Fill.isValid();
  if (Area) drawArea(Line, Style.Fill);
  drawLines(Line);
  if (!Area) return;
  QPointF Middle;
  double Count = 0;
  for (const QPointF Point : Line) {
    if (IsGap(Point)) continue;
    Middle += Point;
    ++Count;
  }
  // Small areas have no room for a name.
  if (Count > 0 && (Data.LongHigh - Data.LongLow) * FDegree > 60) Name(Middle / Count, true);
}

void LayerPainter::drawLines(const PixelLine& Line) {
  for (const PixelLine& Piece : CutLine(Line, FArea, 1)) FCanvas.Polyline(Rounded(Piece));
}

void LayerPainter::drawArea(const PixelLine& Line, const QColor& Fill) {
  const PixelLine Cut = CutPolygon(Line, FArea);
  if (Cut.size() < 3) return;
  const TPen Pen = FCanvas.Pen;
  FCanvas.Pen.Style = TPenStyle::psClear;
  FCanvas.Brush = {FromQColor(Fill), TBrushStyle::bsSolid};
  FCanvas.Polygon(Rounded(Cut));
  FCanvas.Pen = Pen;
}

void LayerPainter::drawDot(QPointF At, const KindStyle& Style, int Radius) {
  const TPoint P = Rounded(At);
  FCanvas.Pen = {FromQColor(Style.Color)};
  FCanvas.Brush = {FromQColor(Style.Fill), TBrushStyle::bsSolid};
  FCanvas.Ellipse(P.X - Radius, P.Y - Radius, P.X + Radius + 1, P.Y + Radius + 1);
}

void LayerPainter::drawCaptions() {
  std::stable_sort(FCaptions.begin(), FCaptions.end(),
                   [](const Caption& A, const Caption& B) { return A.Rank < B.Rank; });
  if (FCaptions.size() > MostCaptions) FCaptions.resize(MostCaptions);
  FCanvas.Brush.Style = TBrushStyle::bsClear;
  std::vector<TRect> Taken;
  for (const Caption& Each : FCaptions) {
    FCanvas.Font = {"Liberation Sans", Each.Rank == 0 ? 9.0 : 8.0,
                    Each.Rank == 0 ? fsBold : TFontStyles{0}};
    const TSize Size = FCanvas.TextExtent(Each.Text);
    const int32_t Left = Each.At.X + (Each.Centred ? -Size.Width / 2 : 5);
    const int32_t Top = Each.At.Y - Size.Height / 2;
    const TRect Box{Left - 1, Top, Left + Size.Width + 1, Top + Size.Height};
    const bool Free = std::none_of(Taken.begin(), Taken.end(), [&](const TRect& Other) {
      return Box.Left < Other.Right && Other.Left < Box.Right && Box.Top < Other.Bottom &&
             Other.Top < Box.Bottom;
    });
    if (!Free) continue;
    Taken.push_back(Box);
    // A rim keeps it readable on any ground.
    FCanvas.Font.Color = clWhite;
    for (const TPoint Rim : {TPoint{-1, 0}, TPoint{1, 0}, TPoint{0, -1}, TPoint{0, 1}})
      FCanvas.TextOut(Left + Rim.X, Top + Rim.Y, Each.Text);
    FCanvas.Font.Color = clBlack;
    FCanvas.TextOut(Left, Top, Each.Text);
  }
}

void LayerPainter::mark(DatabaseLayer& Layer, int32_t RecNo) {
  const PixelLine Line = onControl(Layer, RecNo);
  constexpr TColor Under = clBlack;
  constexpr TColor Over = 0x00FFFF;  // yellow
  if (Line.size() == 1) {
    if (IsGap(Line.front()) || !FArea.contains(Line.front())) return;
    const TPoint P = Rounded(Line.front());
    FCanvas.Brush.Style = TBrushStyle::bsClear;
    FCanvas.Pen = {Under, TPenStyle::psSolid, TPenMode::pmCopy, 4};
    FCanvas.Ellipse(P.X - 8, P.Y - 8, P.X + 9, P.Y + 9);
    FCanvas.Pen = {Over, TPenStyle::psSolid, TPenMode::pmCopy, 2};
    FCanvas.Ellipse(P.X - 8, P.Y - 8, P.X + 9, P.Y + 9);
    return;
  }
  FCanvas.Pen = {Under, TPenStyle::psSolid, TPenMode::pmCopy, 5};
  drawLines(Line);
  FCanvas.Pen = {Over, TPenStyle::psSolid, TPenMode::pmCopy, 3};
  drawLines(Line);
}

}  // namespace zav
