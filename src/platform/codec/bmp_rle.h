// bmp_rle.h - the run-length codings of BMP files with 4 and 8 bits a pixel.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_CODEC_BMP_RLE_H
#define ZAV_PLATFORM_CODEC_BMP_RLE_H

#include <cstdint>
#include <span>
#include <string>

#include <platform/codec/bmp_header.h>
#include <platform/codec/decoding.h>
#include <platform/raster/bitmap.h>

namespace zav {

// Decodes Data, the bytes from the start of the pixels on, into the bitmap of the header's size.
// Pixels that the codes skip get colour 0. A run is cut at the end of its row. Throws EInOutError
// when the codes end early or lead out of the picture; false when cancelled.
bool DecodeBmpRuns(const TBmpHeader& Header, std::span<const uint8_t> Data,
                   const TBmpPalette& Palette, const std::string& Name, TBitmap& Bitmap,
                   TPercentReport& Progress);

}  // namespace zav

#endif
