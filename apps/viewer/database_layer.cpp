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

constexpr size_t MaxPixels = 16'000'000;  // 128 megabytes
constexpr QPointF Gap(std::numeric_limits<double>::quiet_NaN(),
                      std::numeric_limits<double>::quiet_NaN());

QString WithoutExtension(const QString& Path) {
  const QFileInfo Info(Path);
  const QString Base = IsDatabaseFile(Path) ? Info.completeBaseName() : Info.fileName();
  return Info.absolutePath() + QLatin1Char('/') + Base;
}

constexpr double LongStep = 60;  // map pixels that neighbours of a list are seldom apart

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

void DatabaseLayer::setCalibration(const TCalibration& Calibration) {
  const auto Count = static_cast<size_t>(FDatabase.NumEntries()) + 1;
  if (FPixels.size() <= MaxPixels && FPlaces.size() == Count && FCalibration == Calibration) return;
  FPlaces.assign(Count, {});
  FPixels.clear();
  FCalibration = Calibration;
}

PixelLine DatabaseLayer::pixels(int32_t RecNo) {
  const auto Index = static_cast<size_t>(RecNo);
  const bool Keeps = Index < FPlaces.size();
  if (Keeps && FPlaces[Index].Count > 0) {
    const auto First = FPixels.begin() + FPlaces[Index].First;
    PixelLine Line;
    Line.reserve(FPlaces[Index].Count);
    for (auto Each = First; Each != First + FPlaces[Index].Count; ++Each)
      Line.emplace_back(Each->X, Each->Y);
    return Line;
  }
  PixelLine Line = computePixels(RecNo);
  if (Keeps && FPixels.size() <= MaxPixels) {
    FPlaces[Index] = {static_cast<uint32_t>(FPixels.size()), static_cast<uint32_t>(Line.size())};
    for (const QPointF Each : Line)
      FPixels.push_back({static_cast<float>(Each.x()), static_cast<float>(Each.y())});
  }
  return Line;
}

QPointF DatabaseLayer::pixelOf(double Latit, double Longit) const {
  double X = 0;
  double Y = 0;
  return FCalibration.ToPixelInMapZone(Latit, Longit, X, Y) ? QPointF(X, Y) : Gap;
}

// The conic model folds what is beyond the pole.
QPointF DatabaseLayer::checkedPixelOf(double Latit, double Longit) const {
  return IsPlacedRight(FCalibration, Latit, Longit) ? pixelOf(Latit, Longit) : Gap;
}

PixelLine DatabaseLayer::computePixels(int32_t RecNo) {
  const TgdbData Data = FDatabase.GetSumdata(RecNo);
  TgdbPolygon Points;
  if (!HasPointList(Data.ItemKind) || !FDatabase.RetrievePolygon(RecNo, Points) || Points.empty()) {
    const bool Box = Data.ItemKind == TgdbItem::gitBLOB;
    return {checkedPixelOf(Box ? (Data.LatLow + Data.LatHigh) / 2 : Data.LatLow,
                           Box ? (Data.LongLow + Data.LongHigh) / 2 : Data.LongLow)};
  }
  const bool Closed = Data.Closed != 0 && Points.size() > 2;
  if (Closed && !(Points.front() == Points.back())) Points.push_back(Points.front());
  PixelLine Line = {checkedPixelOf(Points[0].Latit, Points[0].Longit)};
  Line.reserve(Points.size() + 1);
  for (size_t i = 1; i < Points.size(); ++i) {
    const TSCoords& From = Points[i - 1];
    const TSCoords& To = Points[i];
    QPointF At = pixelOf(To.Latit, To.Longit);
    // What is near a place that is right is right, too.
    if (!(QLineF(Line.back(), At).length() <= LongStep)) {
      At = checkedPixelOf(To.Latit, To.Longit);
      if (isBroken(From, To, Line.back(), At)) Line.push_back(Gap);
    }
    Line.push_back(At);
  }
  return Line;
}

// A step that the map cannot show as a line: the long way round the Earth, or from one edge of what
// the model unrolls to the other. The middle of a step on the Earth is near its middle on the map.
bool DatabaseLayer::isBroken(const TSCoords& From, const TSCoords& To, QPointF A, QPointF B) const {
  if (std::abs(To.Longit - From.Longit) > 180) return true;
  const QPointF Middle = checkedPixelOf((From.Latit + To.Latit) / 2, (From.Longit + To.Longit) / 2);
  return !(QLineF((A + B) / 2, Middle).length() < QLineF(A, B).length() / 4);
}

}  // namespace zav
