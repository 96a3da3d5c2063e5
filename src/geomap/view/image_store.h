/// @file
/// image_store.h - decoded images of files, kept so that showing one again takes no decoding.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_VIEW_IMAGE_STORE_H
#define ZAV_GEOMAP_VIEW_IMAGE_STORE_H

#include <cstdint>
#include <filesystem>
#include <list>
#include <optional>
#include <string>

#include <platform/base/api.h>
#include <platform/raster/bitmap.h>

namespace zav {

/// A file as it was at some time: one that was written since is another.
struct TImageStamp {
  std::string Path;                         ///< empty for none
  uintmax_t Size = 0;                       ///< bytes
  std::filesystem::file_time_type Written;  ///< when

  /// Whether there is such a file.
  bool Known() const noexcept { return !Path.empty(); }
  friend bool operator==(const TImageStamp&, const TImageStamp&) = default;
};

/// The stamp of a file now; not Known() when there is none.
ZAVGEO_API TImageStamp ImageStampOf(const std::string& Path);

/// Pixels, and the file they were read from; not Known() when they come from elsewhere.
struct TStampedBitmap {
  TImageStamp File;  ///< where the pixels come from
  TBitmap Bitmap;    ///< the pixels
};

/// Images, up to a limit of memory.
class ZAVGEO_API TImageStore {
 public:
  /// Bytes of pixels that are kept in all, 0 at first. Images beyond a smaller limit go.
  int64_t Limit() const noexcept { return FLimit; }
  /// 0 keeps none.
  void SetLimit(int64_t Bytes);
  /// Bytes of pixels that are kept now.
  int64_t Used() const noexcept { return FUsed; }

  /// Keeps an image; those kept longest go for it. One without a known file, or larger than the
  /// limit, is not kept.
  void Keep(TStampedBitmap Image);
  /// Whether the image of the file as it is now is kept.
  bool Holds(const TImageStamp& File) const;
  /// Gives the image of a file out of the store, nothing when it is not kept.
  std::optional<TBitmap> Take(const TImageStamp& File);

 private:
  void Shrink(int64_t Bytes);

  int64_t FLimit = 0;
  int64_t FUsed = 0;
  std::list<TStampedBitmap> FImages;  // newest first
};

}  // namespace zav

#endif
