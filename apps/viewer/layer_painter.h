// layer_painter.h - draws databases over the map.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LAYER_PAINTER_H
#define ZAV_APPS_VIEWER_LAYER_PAINTER_H

#include <array>
#include <vector>

#include <platform/host/canvas.h>

#include "database_layer.h"
#include "layer_style.h"

namespace zav {

class TGeoMap;

// One picture: collect each layer, then draw all. Areas lie below lines, lines below dots, names on
// top. Dots and small lines are thinned so that they do not cover each other wholly; names where
// there is room, of the lowest class first, then of the lowest record number.
class LayerPainter {
 public:
  LayerPainter(TGeoMap& Map, TCanvas& Canvas, const LayerStyle& Style);

  void collect(DatabaseLayer& Layer);
  void draw();
  // Draws an item in colours that stand out.
  void mark(DatabaseLayer& Layer, int32_t RecNo);

 private:
  struct Item {
    DatabaseLayer* Layer;
    int32_t RecNo;
  };
  struct Caption {
    int Rank;  // the class of the item; small ones first
    TPoint At;
    bool Centred;
    std::string Text;
  };

  bool isLineWithin(const TgdbData& Data, double Extent) const;
  bool take(TgdbItem Kind, QPointF At);
  PixelLine onControl(DatabaseLayer& Layer, int32_t RecNo) const;
  void drawItem(const Item& What, TgdbItem Kind);
  void drawLines(const PixelLine& Line);
  void drawArea(const PixelLine& Line, const QColor& Fill);
  void drawDot(QPointF At, const KindStyle& Style, int Radius);
  void drawCaptions();

  TGeoMap& FMap;
  TCanvas& FCanvas;
  const LayerStyle& FStyle;
  QRectF FArea;        // of the control, and a little around it
  double FDegree = 0;  // control pixels for a degree of latitude, about; 0 = not known
  std::array<std::vector<Item>, LayerKinds> FItems;
  int32_t FColumns = 0;  // of the cells in which small items cover each other
  int32_t FRows = 0;
  std::array<std::vector<bool>, LayerKinds> FTaken;
  std::vector<Caption> FCaptions;
};

}  // namespace zav

#endif
