// layers.cpp - the databases that lie over the map: opened, drawn, asked.
// SPDX-License-Identifier: MIT
#include "layers.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include <QDir>
#include <QFileInfo>

#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_convert.h>

#include "layer_painter.h"
#include "reason_text.h"

namespace zav {

Layers::Layers(GeoMapWidget& Widget, QObject* Parent) : QObject(Parent), FWidget(Widget) {
  FWidget.map().AddObserver(this);
}

Layers::~Layers() { FWidget.map().RemoveObserver(this); }

QString Layers::open(const QString& Path) {
  const QString Shown = QDir::toNativeSeparators(Path);
  try {
    auto Layer = std::make_unique<DatabaseLayer>(Path);
    for (const auto& Each : FLayers)
      if (Each->path() == Layer->path()) return {};
    FLayers.push_back(std::move(Layer));
  } catch (const EInOutError& Error) {
    return tr("The database \"%1\" cannot be opened: %2").arg(Shown, ReasonText(Error.Reason()));
  } catch (const std::exception& Error) {
    return tr("The database \"%1\" cannot be opened: %2").arg(Shown, ReasonText(Error.what()));
  }
  FWidget.map().Paint();
  emit changed();
  return {};
}

void Layers::close(int Index) {
  if (Index < 0 || Index >= count()) return;
  FLayers.erase(FLayers.begin() + Index);
  select(std::nullopt);
  FWidget.map().Paint();
  emit changed();
}

void Layers::setShown(int Index, bool Shown) {
  if (at(Index).isShown() == Shown) return;
  at(Index).setShown(Shown);
  FWidget.map().Paint();
  emit changed();
}

void Layers::setStyle(const LayerStyle& Style) {
  FStyle = Style;
  FWidget.map().Paint();
  emit changed();
}

// --- drawing

void Layers::BeforeRenderData(TGeoMap& Map, TCanvas& Canvas) {
  if (FLayers.empty() || !Map.Calibration().IsFitted()) return;
  LayerPainter Painter(Map, Canvas, FStyle);
  try {
    for (const auto& Each : FLayers)
      if (Each->isShown()) Painter.collect(*Each);
    Painter.draw();
    if (FSelected && at(FSelected->Layer).isShown())
      Painter.mark(at(FSelected->Layer), FSelected->RecNo);
  } catch (const std::exception& Error) {
    giveUp(Error);
  }
}

// A file that was replaced or damaged meanwhile. Which one is not known: none is drawn any more.
void Layers::giveUp(const std::exception& Error) {
  for (const auto& Each : FLayers) Each->setShown(false);
  const QString Text =
      tr("The databases cannot be read any more: %1").arg(ReasonText(Error.what()));
  // Not now: a picture may be under way.
  QMetaObject::invokeMethod(
      this,
      [this, Text] {
        emit changed();
        emit problem(Text);
      },
      Qt::QueuedConnection);
}

// --- asking

std::vector<LayerItem> Layers::itemsAt(QPointF MapPixel, double MaxDistance) {
  try {
    return findItemsAt(MapPixel, MaxDistance);
  } catch (const std::exception& Error) {
    giveUp(Error);
    return {};
  }
}

std::vector<LayerItem> Layers::findItemsAt(QPointF MapPixel, double MaxDistance) {
  struct Near {
    int Rank;  // dots, lines, areas
    double Distance;
    LayerItem Item;
  };
  std::vector<Near> Found;
  const TCalibration& Calibration = FWidget.map().Calibration();
  const QPointF Reach(MaxDistance, MaxDistance);
  const TGeoRegion Region = RegionOf(Calibration, QRectF(MapPixel - Reach, MapPixel + Reach));
  for (int Index = 0; Index < count(); ++Index) {
    DatabaseLayer& Layer = at(Index);
    if (!Layer.isShown()) continue;
    Layer.setCalibration(Calibration);
    for (const int32_t RecNo : Layer.database().ItemsInRegion(Region)) {
      const TgdbData Data = Layer.database().GetSumdata(RecNo);
      if (static_cast<size_t>(Data.ItemKind) >= LayerKinds || !FStyle.of(Data.ItemKind).Shown)
        continue;
      const PixelLine Line = Layer.pixels(RecNo);
      const double Distance = DistanceToLine(Line, MapPixel);
      const bool Dot = !HasPointList(Data.ItemKind);
      if (Distance <= MaxDistance)
        Found.push_back({Dot ? 0 : 1, Distance, {Index, RecNo}});
      else if (!Dot && Data.Closed != 0 && PolygonHolds(Line, MapPixel))
        Found.push_back({2, Distance, {Index, RecNo}});
    }
  }
  std::sort(Found.begin(), Found.end(), [](const Near& A, const Near& B) {
    return std::tie(A.Rank, A.Distance, A.Item.Layer, A.Item.RecNo) <
           std::tie(B.Rank, B.Distance, B.Item.Layer, B.Item.RecNo);
  });
  std::vector<LayerItem> Items;
  Items.reserve(Found.size());
  for (const Near& Each : Found) Items.push_back(Each.Item);
  return Items;
}

std::vector<LayerItem> Layers::itemsNamed(const QString& Text, size_t Limit) {
  std::vector<LayerItem> Items;
  const std::string Wanted = FromQString(Text.trimmed());
  if (Wanted.empty()) return Items;
  for (int Index = 0; Index < count() && Items.size() < Limit; ++Index)
    for (const int32_t RecNo :
         at(Index).database().ItemsByName(Wanted, TNameMatch::nmPart, Limit - Items.size()))
      Items.push_back({Index, RecNo});
  return Items;
}

TgdbData Layers::record(const LayerItem& Item) {
  return at(Item.Layer).database().GetSumdata(Item.RecNo);
}

void Layers::select(const std::optional<LayerItem>& Item) {
  if (Item == FSelected) return;
  FSelected = Item;
  FWidget.map().Paint();
  emit selectionChanged();
}

void Layers::showSelected() {
  if (!FSelected) return;
  const TgdbData Data = record(*FSelected);
  FWidget.map().BringLocationToCenter((Data.LatLow + Data.LatHigh) / 2,
                                      (Data.LongLow + Data.LongHigh) / 2);
}

}  // namespace zav
