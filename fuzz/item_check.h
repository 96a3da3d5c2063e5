// item_check.h - what holds for the items of any file.
// SPDX-License-Identifier: MIT
#ifndef ZAV_FUZZ_ITEM_CHECK_H
#define ZAV_FUZZ_ITEM_CHECK_H

#include <platform/base/errors.h>

#include <cmath>
#include <cstdlib>
#include <sstream>

#include "common/item_reader.h"

namespace zav::fuzz {

inline void Require(bool Condition) {
  if (!Condition) std::abort();
}

// Reads any bytes as a table or as GeoJSON; aborts when an item is impossible. The first byte
// chooses the kind that is asked for.
inline void CheckItemBytes(const uint8_t* Data, size_t Size, bool Json) {
  if (Size == 0) return;
  std::istringstream Input(std::string(Data + 1, Data + Size));
  TItemReader Reader;
  if (Data[0] % 16 < 9) Reader.Kind = static_cast<TgdbItem>(Data[0] % 16);
  size_t Points = 0;
  Reader.Take = [&](TReadItem& Item) {
    Require(!Item.Points.empty());
    Require((Item.Kind == TgdbItem::gitTown) == (Item.Points.size() == 1));
    Require(!Item.Closed || Item.Points.size() >= 3);
    Require(HasPointList(Item.Kind) || Item.Kind == TgdbItem::gitTown);
    for (const TSCoords& Point : Item.Points)
      Require(std::fabs(Point.Latit) <= 90 && std::fabs(Point.Longit) <= 180);
    Require(std::isfinite(Item.Altitude) && Item.Id.value_or(1) > 0);
    Points += Item.Points.size();
    return true;
  };
  Reader.Refuse = [](int64_t Line, const std::string& Problem) {
    Require(Line > 0 && !Problem.empty());
    return true;
  };
  try {
    Json ? Reader.ReadGeoJson(Input, "x") : Reader.ReadCsv(Input, "x");
  } catch (const EInOutError&) {
    // what damaged files end in
  }
  Require(Points <= Size);
}

}  // namespace zav::fuzz

#endif
