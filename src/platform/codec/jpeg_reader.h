// jpeg_reader.h - decoding JPEG files: baseline and progressive, grey and colour.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_CODEC_JPEG_READER_H
#define ZAV_PLATFORM_CODEC_JPEG_READER_H

#include <cstdint>
#include <span>
#include <string>

#include <platform/base/geometry.h>
#include <platform/codec/decoding.h>
#include <platform/raster/bitmap.h>

namespace zav {

// The size in the header; Data may be the leading part of a file that holds its header. Throws
// EInOutError.
TSize ReadJpegSize(std::span<const uint8_t> Data, const std::string& Name);

// Decodes a whole file to 32 bits a pixel; an orientation tag is ignored. Throws EInOutError when
// the file is damaged, ends early, is too large or of an unsupported kind, EImageCancelled when
// cancelled.
TBitmap DecodeJpeg(std::span<const uint8_t> Data, const std::string& Name,
                   TPercentReport& Progress);

}  // namespace zav

#endif
