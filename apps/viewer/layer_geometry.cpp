// layer_geometry.cpp - what of the Earth a view shows, and lines cut to what it shows.
// SPDX-License-Identifier: MIT
#include "layer_geometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

namespace zav {

namespace {

bool Shows(const TCalibration& Calibration, const QRectF& MapArea, double Latit, double Longit) {
  double X = 0;
  double Y = 0;
  return Calibration.ToPixel(Latit, Longit, X, Y) && MapArea.contains(X, Y);
}

// Liang and Barsky, A New Concept and Method for Line Clipping, ACM TOG 3 (1), 1984. Narrows From
// and To, parts of the way from A to B, to what is inside; false when nothing is.
bool ClipStep(QPointF A, QPointF B, const QRectF& Area, double& From, double& To) {
  From = 0;
  To = 1;
  const QPointF D = B - A;
  const std::array<double, 4> P{-D.x(), D.x(), -D.y(), D.y()};
  const std::array<double, 4> Q{A.x() - Area.left(), Area.right() - A.x(), A.y() - Area.top(),
                                Area.bottom() - A.y()};
  for (size_t i = 0; i < P.size(); ++i) {
    if (P[i] == 0) {
      if (Q[i] < 0) return false;
      continue;
    }
    const double T = Q[i] / P[i];
    if (P[i] < 0)
      From = std::max(From, T);
    else
      To = std::min(To, T);
  }
  return From <= To;
}

// One side of Sutherland and Hodgman, Reentrant Polygon Clipping, CACM 17 (1), 1974.
template <typename TInside>
PixelLine CutSide(const PixelLine& Polygon, const TInside& Inside) {
  PixelLine Result;
  for (size_t i = 0; i < Polygon.size(); ++i) {
    const QPointF A = Polygon[i];
    const QPointF B = Polygon[(i + 1) % Polygon.size()];
    const double OfA = Inside(A);
    const double OfB = Inside(B);
    if (OfA >= 0) Result.push_back(A);
    if ((OfA >= 0) != (OfB >= 0)) Result.push_back(A + (B - A) * (OfA / (OfA - OfB)));
  }
  return Result;
}

}  // namespace

TGeoRegion RegionOf(const TCalibration& Calibration, const QRectF& MapArea) {
  constexpr int Steps = 16;
  TGeoRegion Region{90, 0, -90, 0};
  std::optional<double> Middle;
  double West = 0;
  double East = 0;
  for (int i = 0; i <= Steps; ++i)
    for (int j = 0; j <= Steps; ++j) {
      TCoords At;
      if (!Calibration.ToGeo(MapArea.left() + MapArea.width() * i / Steps,
                             MapArea.top() + MapArea.height() * j / Steps, At))
        continue;
      if (!Middle) Middle = At.Longit;
      // Across 180 degrees the numbers jump, the places do not.
      const double Way = std::remainder(At.Longit - *Middle, 360);
      West = std::min(West, Way);
      East = std::max(East, Way);
      Region.South = std::min(Region.South, At.Latit);
      Region.North = std::max(Region.North, At.Latit);
    }
  if (!Middle) return Region;
  // Between the samples it may reach farther; at a pole all meridians meet.
  const double High = (Region.North - Region.South) / Steps;
  const double Wide = (East - West) / Steps;
  const bool NorthPole = Shows(Calibration, MapArea, 89.99, *Middle);
  const bool SouthPole = Shows(Calibration, MapArea, -89.99, *Middle);
  Region.North = NorthPole ? 90 : std::min(90.0, Region.North + High);
  Region.South = SouthPole ? -90 : std::max(-90.0, Region.South - High);
  const bool All = NorthPole || SouthPole || East - West + 2 * Wide >= 300;
  Region.West = All ? -180 : *Middle + West - Wide;
  Region.East = All ? 180 : *Middle + East + Wide;
  return Region;
}

std::vector<PixelLine> CutLine(const PixelLine& Line, const QRectF& Area, double MinStep) {
  std::vector<PixelLine> Pieces;
  bool Open = false;  // the last piece goes on
  for (size_t i = 1; i < Line.size(); ++i) {
    const QPointF A = Line[i - 1];
    const QPointF B = Line[i];
    double From = 0;
    double To = 0;
    if (IsGap(A) || IsGap(B) || !ClipStep(A, B, Area, From, To)) {
      Open = false;
      continue;
    }
    if (!Open || From > 0) Pieces.push_back({A + (B - A) * From});
    PixelLine& Piece = Pieces.back();
    const QPointF End = A + (B - A) * To;
    const QPointF Way = End - Piece.back();
    const bool Last = To < 1 || i + 1 == Line.size() || IsGap(Line[i + 1]);
    if (Last || std::abs(Way.x()) + std::abs(Way.y()) >= MinStep) Piece.push_back(End);
    Open = To >= 1;
  }
  return Pieces;
}

PixelLine CutPolygon(const PixelLine& Polygon, const QRectF& Area) {
  PixelLine Result;
  std::copy_if(Polygon.begin(), Polygon.end(), std::back_inserter(Result),
               [](QPointF Point) { return !IsGap(Point); });
  Result = CutSide(Result, [&](QPointF P) { return P.x() - Area.left(); });
  Result = CutSide(Result, [&](QPointF P) { return Area.right() - P.x(); });
  Result = CutSide(Result, [&](QPointF P) { return P.y() - Area.top(); });
  return CutSide(Result, [&](QPointF P) { return Area.bottom() - P.y(); });
}

double DistanceToLine(const PixelLine& Line, QPointF Point) {
  double Best = std::numeric_limits<double>::infinity();
  for (size_t i = 0; i < Line.size(); ++i) {
    const QPointF A = Line[i];
    if (IsGap(A)) continue;
    QPointF Nearest = A;
    if (i + 1 < Line.size() && !IsGap(Line[i + 1])) {
      const QPointF Way = Line[i + 1] - A;
      const double Length = QPointF::dotProduct(Way, Way);
      if (Length > 0)
        Nearest = A + Way * std::clamp(QPointF::dotProduct(Point - A, Way) / Length, 0.0, 1.0);
    }
    const QPointF D = Point - Nearest;
    Best = std::min(Best, std::hypot(D.x(), D.y()));
  }
  return Best;
}

bool PolygonHolds(const PixelLine& Polygon, QPointF Point) {
  bool Holds = false;
  for (size_t i = 0, j = Polygon.size() - 1; i < Polygon.size(); j = i++) {
    const QPointF A = Polygon[i];
    const QPointF B = Polygon[j];
    if ((A.y() > Point.y()) == (B.y() > Point.y())) continue;
    if (Point.x() < A.x() + (Point.y() - A.y()) / (B.y() - A.y()) * (B.x() - A.x())) Holds = !Holds;
  }
  return Holds;
}

}  // namespace zav
