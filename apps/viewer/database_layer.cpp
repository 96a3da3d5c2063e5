// database_layer.cpp - a geographic database that lies over the map.
// SPDX-License-Identifier: MIT
#include "database_layer.h"

#include <cmath>
#include <limits>

#include <QFileInfo>

#include <platform/qt/qt_convert.h>

namespace zav {

namespace {

constexpr size_t MaxPixels = 4'000'000;  // 64 megabytes

QString WithoutExtension(const QString& Path) {
  const QFileInfo Info(Path);
  const QString Base = IsDatabaseFile(Path) ? Info.completeBaseName() : Info.fileName();
  return Info.absolutePath() + QLatin1Char('/') + Base;
}

// A step between neighbours of a list that goes the long way round the Earth.
bool GoesAround(const TSCoords& From, const TSCoords& To) {
  return std::abs(To.Longit - From.Longit) > 180;
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
    return Calibration.ToPixelInMapZone(Latit, Longit, X, Y) ? QPointF(X, Y) : Gap;
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
  for (size_t i = 0; i < Points.size(); ++i) {
    if (i > 0 && GoesAround(Points[i - 1], Points[i])) Line.push_back(Gap);
    Line.push_back(PixelOf(Points[i].Latit, Points[i].Longit));
  }
  if (Data.Closed != 0 && Points.size() > 2 && !(Points.front() == Points.back())) {
    if (GoesAround(Points.back(), Points.front())) Line.push_back(Gap);
    Line.push_back(Line.front());
  }
  return Line;
}

}  // namespace zav
