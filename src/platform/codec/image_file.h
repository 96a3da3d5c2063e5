/// @file
/// image_file.h - image files: their size, their pixels, and what is wrong with them.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_CODEC_IMAGE_FILE_H
#define ZAV_PLATFORM_CODEC_IMAGE_FILE_H

#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include <platform/base/api.h>
#include <platform/base/errors.h>
#include <platform/base/geometry.h>
#include <platform/raster/bitmap.h>

namespace zav {

/// Told how far decoding is, 0 to 100. Returning false cancels it.
using TImageProgress = std::function<bool(int Percent)>;

/// Thrown when the progress handler cancelled a load; the bitmap is then unchanged.
class ZAVGEO_API EImageCancelled : public EZAVError {
 public:
  using EZAVError::EZAVError;
};

/// No image of more pixels than this is decoded: it could not be held in memory safely.
constexpr int64_t MaxDecodablePixels = 64000000;

/// What kind of file it is.
enum class TImageKind : uint8_t {
  ikUnknown,  ///< none of these; reading one throws EInOutError
  ikJpeg,     ///< JPEG, baseline and progressive
  ikBmp       ///< BMP, 1 to 32 bits a pixel
};

/// The kind by the file name's extension, in any case: ".jpg", ".jpeg", ".bmp".
ZAVGEO_API TImageKind ImageKindOfName(const std::string& Path);

/// The size in the file's header, in pixels; nothing is decoded. Throws EInOutError when the file
/// cannot be read or its header is damaged.
ZAVGEO_API TSize ReadImageSize(const std::string& Path, TImageKind Kind);

/// Decodes the file to a bitmap of 32 bits a pixel. Throws EInOutError with the path and the reason
/// when the file cannot be read, is damaged or ends early, has more than MaxDecodablePixels or is
/// of a kind that is not supported (CMYK JPEG); EImageCancelled when cancelled.
ZAVGEO_API TBitmap LoadImageFile(const std::string& Path, TImageKind Kind,
                                 const TImageProgress& Progress = nullptr);

/// The same from memory; Name is used in messages only.
ZAVGEO_API TSize ReadImageSize(std::span<const uint8_t> Data, TImageKind Kind,
                               const std::string& Name);
/// The pixels of a file in memory.
ZAVGEO_API TBitmap DecodeImage(std::span<const uint8_t> Data, TImageKind Kind,
                               const std::string& Name, const TImageProgress& Progress = nullptr);

/// Writes the bitmap as a JPEG file, quality 1..100, in one step: a failure leaves an older file as
/// it was. Throws EInOutError.
ZAVGEO_API void SaveJpegFile(const std::string& Path, const TBitmap& Bitmap, int Quality,
                             const TImageProgress& Progress = nullptr);

/// The same as a BMP file of 24 bits a pixel, without compression. Throws EInOutError also for a
/// bitmap without pixels.
ZAVGEO_API void SaveBmpFile(const std::string& Path, const TBitmap& Bitmap);

}  // namespace zav

#endif
