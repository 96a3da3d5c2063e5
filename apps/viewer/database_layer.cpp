// database_layer.cpp - a geographic database that lies over the map.
// SPDX-License-Identifier: MIT
#include "database_layer.h"

#include <cmath>
#include <limits>

#include <QFileInfo>
#include <QLineF>

#include <platform/qt/qt_convert.h>

#include "common/free_captions.h"

namespace zav {

namespace {

constexpr size_t MaxPixels = 4'000'000;  // 64 megabytes

QString WithoutExtension(const QString& Path) {
  const QFileInfo Info(Path);
  const QString Base = IsDatabaseFile(Path) ? Info.completeBaseName() : Info.fileName();
  return Info.absolutePath() + QLatin1Char('/') + Base;
}

constexpr double LongStep = 60;  // map pixels that neighbours of a list are seldom apart

// A step that the map cannot show as a line: the long way round the Earth, or from one edge of what
// the model unrolls to the other. The middle of a step on the Earth is near its middle on the map.
bool IsBroken(const TSCoords& From, const TSCoords& To, QPointF A, QPointF B, QPointF Middle) {
  if (std::abs(To.Longit - From.Longit) > 180) return true;
  const double Length = QLineF(A, B).length();
  return Length > LongStep && !(QLineF((A + B) / 2, Middle).length() < Length / 4);
}

}  // namespace

bool IsDatabaseFile(const QString& Path) {
  return QFileInfo(Path).suffix().startsWith(QLatin1String("zavgd"), Qt::CaseInsensitive);
}

DatabaseLayer::DatabaseLayer(const QString& Path) : FPath(WithoutExtension(Path)) {
  FDatabase.SetReadOnly(true);
  FDatabase.SetGDBName(FromQString(FPath));
}

QString DatabaseLayer::title() const {
  const QString Description = ToQString(FDatabase.GetDescription()).trimmed();
  return Description.isEmpty() ? QFileInfo(FPath).fileName() : Description;
}

const PixelLine& DatabaseLayer::pixels(int32_t RecNo, const TCalibration& Calibration) {
  if (FPixelCount > MaxPixels || !(FCalibration == Calibration)) {
    FPixels.clear();
    FPixelCount = 0;
    FCalibration = Calibration;
  }
  const auto Known = FPixels.find(RecNo);
  if (Known != FPixels.end()) return Known->second;
  PixelLine Line = computePixels(RecNo, Calibration);
  FPixelCount += Line.size() + 4;
  return FPixels.emplace(RecNo, std::move(Line)).first->second;
}

PixelLine DatabaseLayer::computePixels(int32_t RecNo, const TCalibration& Calibration) {
  constexpr double None = std::numeric_limits<double>::quiet_NaN();
  const QPointF Gap(None, None);
  const auto PixelOf = [&](double Latit, double Longit) {
    double X = 0;
    double Y = 0;
    // What is far from the map may come out on it: the conic model folds what is beyond the pole.
    return IsPlacedRight(Calibration, Latit, Longit) &&
                   Calibration.ToPixelInMapZone(Latit, Longit, X, Y)
               ? QPointF(X, Y)
               : Gap;
  };
  const TgdbData Data = FDatabase.GetSumdata(RecNo);
  TgdbPolygon Points;
  if (!HasPointList(Data.ItemKind) || !FDatabase.RetrievePolygon(RecNo, Points)) {
    const bool Box = Data.ItemKind == TgdbItem::gitBLOB;
    return {PixelOf(Box ? (Data.LatLow + Data.LatHigh) / 2 : Data.LatLow,
                    Box ? (Data.LongLow + Data.LongHigh) / 2 : Data.LongLow)};
  }
  PixelLine Line;
  Line.reserve(Points.size() + 1);
  const bool Closed = Data.Closed != 0 && Points.size() > 2;
  if (Closed && !(Points.front() == Points.back())) Points.push_back(Points.front());
  for (size_t i = 0; i < Points.size(); ++i) {
    const QPointF Pixel = PixelOf(Points[i].Latit, Points[i].Longit);
    if (i > 0) {
      const QPointF Middle = PixelOf((Points[i - 1].Latit + Points[i].Latit) / 2,
                                     (Points[i - 1].Longit + Points[i].Longit) / 2);
      if (IsBroken(Points[i - 1], Points[i], Line.back(), Pixel, Middle)) Line.push_back(Gap);
    }
    Line.push_back(Pixel);
  }
  return Line;
}

}  // namespace zav
