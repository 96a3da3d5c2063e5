// layer_style.h - how items of a database look on the map.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_LAYER_STYLE_H
#define ZAV_APPS_VIEWER_LAYER_STYLE_H

#include <array>

#include <QColor>
#include <QString>

#include <geodb/gdb_records.h>

class QSettings;

namespace zav {

struct KindStyle {
  bool Shown = true;
  QColor Color;  // of lines, outlines and dots
  QColor Fill;   // of areas; invalid: not filled
  int Width = 1;
};

// One for each kind from gitBorder to gitBLOB, in the order of the kinds.
inline constexpr size_t LayerKinds = static_cast<size_t>(TgdbItem::gitUndefined);

class LayerStyle {
 public:
  LayerStyle();
  KindStyle& of(TgdbItem Kind) { return FKinds.at(static_cast<size_t>(Kind)); }
  const KindStyle& of(TgdbItem Kind) const { return FKinds.at(static_cast<size_t>(Kind)); }
  void load(QSettings& Settings);
  void save(QSettings& Settings) const;

 private:
  std::array<KindStyle, LayerKinds> FKinds;
};

// "Rivers"; "River".
QString LayerKindsName(TgdbItem Kind);
QString LayerKindName(TgdbItem Kind);

}  // namespace zav

#endif
