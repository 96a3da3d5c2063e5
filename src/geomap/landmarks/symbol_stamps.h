/// @file
/// symbol_stamps.h - symbols drawn once and then put down many times.
///
/// A map shows thousands of symbols of a few shapes. Each shape is drawn once, by DrawSymbolShape,
/// on a bitmap of its own, and kept as runs of pixels; putting these down gives the very pixels
/// that drawing would give, many times faster.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_LANDMARKS_SYMBOL_STAMPS_H
#define ZAV_GEOMAP_LANDMARKS_SYMBOL_STAMPS_H

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include <geomap/landmarks/symbol_drawing.h>
#include <platform/base/api.h>
#include <platform/raster/bitmap.h>

namespace zav {

/// Drawn symbols, kept by shape and scale.
class ZAVGEO_API TSymbolStamps {
 public:
  /// Draws a symbol about a pixel of the bitmap, Scale times larger than its size says, with solid
  /// pen and brush. Very large symbols are not kept.
  void Draw(TBitmap& Target, TPoint Center, const TSymbolProperties& Symbol, double Scale);

 private:
  struct TKey {
    TSymbolShape Shape;
    double Scale = 1;
    friend bool operator==(const TKey&, const TKey&) = default;
  };
  struct THash {
    size_t operator()(const TKey& Key) const noexcept;
  };
  // Pixels Left..Right-1 of row Y, from the middle.
  struct TRun {
    int16_t Y;
    int16_t Left;
    int16_t Right;
    bool Outline;  // else the inside or halo
  };
  struct TStamp {
    TRect Box;  // from the middle
    std::vector<TRun> Runs;
  };

  static TStamp Make(const TKey& Key, int32_t Reach);
  static void Put(TBitmap& Target, TPoint Center, const TStamp& Stamp, TColor FG, TColor BG);

  std::unordered_map<TKey, TStamp, THash> FStamps;
  // The one used last: neighbours mostly look the same.
  TKey FLastKey;
  const TStamp* FLast = nullptr;
};

}  // namespace zav

#endif
