// map_image.h - the picture of a map: its pixels, its file, and a copy scaled for fast panning.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_MAP_IMAGE_H
#define ZAV_GEOMAP_VIEW_MAP_IMAGE_H

#include <cstdint>
#include <string>

#include <geomap/errors.h>
#include <platform/base/geometry.h>
#include <platform/codec/image_file.h>
#include <platform/host/canvas.h>
#include <platform/raster/bitmap.h>

namespace zav {

// The name of an image that came from a bitmap.
inline constexpr const char* UnknownMapImgName = "$unknown$";
// No map image may have more pixels than this.
constexpr int32_t MaxMapPixels = 3000000;

// The whole map, scaled once for a magnification below CacheMagLimit; panning then only copies.
struct TScaledMapCache {
  TBitmap Bitmap{TPixelFormat::pf15bit};
  double Magnification = 0;  // 0: no valid cache
  bool AntiAlias = true;
  double Scale = 1;  // device pixels per control pixel
};

class TMapImage {
 public:
  const TBitmap& Bitmap() const noexcept { return FBitmap; }
  const std::string& Name() const noexcept { return FName; }
  // The size that counts, in pixels; 0 without a map, whatever the bitmap holds.
  int32_t Width() const noexcept { return FWidth; }
  int32_t Height() const noexcept { return FHeight; }
  TSize Size() const noexcept { return {FWidth, FHeight}; }
  bool Empty() const noexcept { return FName.empty(); }

  // Reads the file into the bitmap; the cache becomes invalid, name and size stay. Only ".jpg",
  // ".jpeg" and ".bmp" are read, another extension leaves the bitmap as it is. Throws
  // EZAVGeoMapError with the bare reason when there are more than MaxMapPixels: the bitmap then
  // holds the pixels already, unless there are more than MaxDecodablePixels. The decoder's errors
  // pass.
  void Load(const std::string& Path, const TImageProgress& Progress);
  // Takes a copy in the same way, with the same limit.
  void SetBitmap(const TBitmap& Bitmap);
  // Gives the bitmap its name; its size becomes the one that counts.
  void Accept(const std::string& Name);
  // No map: no name, size 0. The bitmap stays.
  void Forget() noexcept;
  // Scales the bitmap; width and height become Factor times as large, rounded. Throws as above when
  // the result would have more than MaxDecodablePixels; nothing has changed then.
  void Resize(double Factor, TStretchMode Mode);

  // Makes the cache for the magnification if it is below Limit and not there yet.
  void UpdateCache(double Magnification, double Scale, bool AntiAlias, double Limit);
  // Whether the cache has this magnification, however old it is.
  bool CacheHolds(double Magnification, double Scale) const noexcept;
  void InvalidateCache() noexcept { FCache.Magnification = 0; }
  const TScaledMapCache& Cache() const noexcept { return FCache; }

 private:
  TBitmap FBitmap;
  std::string FName;
  int32_t FWidth = 0;
  int32_t FHeight = 0;
  TScaledMapCache FCache;
};

}  // namespace zav

#endif
