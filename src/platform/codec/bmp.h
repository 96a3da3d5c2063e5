// bmp.h - decoding BMP files of every pixel layout and run-length coding.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_CODEC_BMP_H
#define ZAV_PLATFORM_CODEC_BMP_H

#include <cstdint>
#include <span>
#include <string>

#include <platform/base/geometry.h>
#include <platform/codec/decoding.h>
#include <platform/raster/bitmap.h>

namespace zav {

// The size in the header; Data may be the leading part of a file. Throws EInOutError.
TSize ReadBmpSize(std::span<const uint8_t> Data, const std::string& Name);

// Decodes a whole file to 32 bits a pixel; an alpha channel is ignored. Throws EInOutError when the
// file is damaged, shorter than its header says or too large, EImageCancelled when cancelled.
TBitmap DecodeBmp(std::span<const uint8_t> Data, const std::string& Name, TPercentReport& Progress);

}  // namespace zav

#endif
