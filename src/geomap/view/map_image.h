/// @file
/// map_image.h - the picture of a map: its pixels, its file, and a copy scaled for fast panning.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_MAP_IMAGE_H
#define ZAV_GEOMAP_VIEW_MAP_IMAGE_H

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include <geomap/errors.h>
#include <geomap/view/image_store.h>
#include <platform/base/api.h>
#include <platform/base/geometry.h>
#include <platform/codec/image_file.h>
#include <platform/host/canvas.h>
#include <platform/raster/bitmap.h>

namespace zav {

/// The name of an image that came from a bitmap.
inline constexpr const char* UnknownMapImgName = "$unknown$";
/// No map image may have more pixels than this.
constexpr int32_t MaxMapPixels = 3000000;

/// Throws EZAVGeoMapError with the bare reason when the size has more than Limit pixels.
ZAVGEO_API void CheckMapPixels(TSize Size, int64_t Limit);

/// Reads a ".jpg", ".jpeg" or ".bmp" file; nothing for another extension. Throws EZAVGeoMapError
/// with the bare reason for more than MaxDecodablePixels, before anything is decoded; the decoder's
/// errors pass.
ZAVGEO_API std::optional<TBitmap> ReadMapBitmap(const std::string& Path,
                                                const TImageProgress& Progress);

/// The whole map, scaled once for a magnification below a limit; panning then only copies.
struct TScaledMapCache {
  TBitmap Bitmap{TPixelFormat::pf15bit};  ///< 15 bits a pixel
  double Magnification = 0;               ///< 0: no valid cache
  bool AntiAlias = true;                  ///< whether it was scaled smoothly
  double Scale = 1;                       ///< device pixels per control pixel
};

/// The picture of a map, and its name.
class ZAVGEO_API TMapImage {
 public:
  /// The pixels, whether or not they are a map.
  const TBitmap& Bitmap() const noexcept { return FBitmap; }
  /// As it was given, empty without a map.
  const std::string& Name() const noexcept { return FName; }
  /// The size that counts, in pixels; 0 without a map, whatever the bitmap holds.
  int32_t Width() const noexcept { return FWidth; }
  /// The same for the rows.
  int32_t Height() const noexcept { return FHeight; }
  /// Both at once.
  TSize Size() const noexcept { return {FWidth, FHeight}; }
  /// Whether there is no map; one whose file could not be read as an image counts.
  bool Empty() const noexcept { return FName.empty(); }

  /// Takes the bitmap; the cache becomes invalid, name and size stay until Accept.
  void SetBitmap(TBitmap Bitmap) { Exchange({{}, std::move(Bitmap)}); }
  /// The same for pixels that were read from a file; gives back those from before.
  TStampedBitmap Exchange(TStampedBitmap Bitmap);
  /// The file that the bitmap was read from, as long as it is as read.
  const TImageStamp& File() const noexcept { return FFile; }
  /// Gives the bitmap its name; its size becomes the one that counts. Throws EZAVGeoMapError with
  /// the bare reason, and changes nothing, when it has more than MaxMapPixels.
  void Accept(const std::string& Name);
  /// Another name for the same picture.
  void Rename(const std::string& Name) { FName = Name; }
  /// No map: no name, size 0. The bitmap stays.
  void Forget() noexcept;
  /// Scales the bitmap by a factor above 0; its sides are rounded. Throws as Accept for a result of
  /// more than MaxDecodablePixels.
  void Resize(double Factor, TStretchMode Mode);

  /// Makes the cache for the magnification if it is below Limit and the cache is not there yet.
  void UpdateCache(double Magnification, double Scale, bool AntiAlias, double Limit);
  /// Whether the cache has this magnification, however it was made.
  bool CacheHolds(double Magnification, double Scale) const noexcept;
  /// The scaled map is not used any more.
  void InvalidateCache() noexcept { FCache.Magnification = 0; }
  /// The scaled map, or one of no use.
  const TScaledMapCache& Cache() const noexcept { return FCache; }

 private:
  TBitmap FBitmap;
  TImageStamp FFile;
  std::string FName;
  int32_t FWidth = 0;
  int32_t FHeight = 0;
  TScaledMapCache FCache;
};

}  // namespace zav

#endif
