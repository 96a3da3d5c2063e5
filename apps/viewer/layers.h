// layers.h - the databases that lie over the map: opened, drawn, asked.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LAYERS_H
#define ZAV_APPS_VIEWER_LAYERS_H

#include <exception>
#include <memory>
#include <optional>
#include <vector>

#include <QObject>

#include <geomap/geo_map.h>

#include "database_layer.h"
#include "layer_style.h"

namespace zav {

class GeoMapWidget;

struct LayerItem {
  int Layer = 0;  // from 0
  int32_t RecNo = 0;
  friend bool operator==(const LayerItem&, const LayerItem&) = default;
};

class Layers final : public QObject, private TGeoMapObserver {
  Q_OBJECT

 public:
  // The widget must outlive it.
  explicit Layers(GeoMapWidget& Widget, QObject* Parent = nullptr);
  ~Layers() override;

  // By any of the database's files. What went wrong, empty for nothing; one that is open is not
  // opened again.
  QString open(const QString& Path);
  void close(int Index);
  int count() const { return static_cast<int>(FLayers.size()); }
  DatabaseLayer& at(int Index) { return *FLayers.at(static_cast<size_t>(Index)); }
  void setShown(int Index, bool Shown);

  const LayerStyle& style() const { return FStyle; }
  void setStyle(const LayerStyle& Style);

  // The items at a pixel of the map, at most MaxDistance map pixels away: dots first, then lines,
  // then areas around it, each the nearest first. Only what is shown.
  std::vector<LayerItem> itemsAt(QPointF MapPixel, double MaxDistance);
  // The items whose name holds the text, without regard to case and accents.
  std::vector<LayerItem> itemsNamed(const QString& Text, size_t Limit);
  TgdbData record(const LayerItem& Item);

  const std::optional<LayerItem>& selected() const { return FSelected; }
  void select(const std::optional<LayerItem>& Item);
  // Brings the selected item to the middle of the view.
  void showSelected();

 signals:
  void changed();
  void selectionChanged();
  // A database could not be read any more, and is not drawn.
  void problem(const QString& Text);

 private:
  void BeforeRenderData(TGeoMap& Map, TCanvas& Canvas) override;
  std::vector<LayerItem> findItemsAt(QPointF MapPixel, double MaxDistance);
  void giveUp(const std::exception& Error);

  GeoMapWidget& FWidget;
  std::vector<std::unique_ptr<DatabaseLayer>> FLayers;
  LayerStyle FStyle;
  std::optional<LayerItem> FSelected;
};

}  // namespace zav

#endif
