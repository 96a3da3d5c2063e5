// row_convert.h - a row of pixels from one format to another.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_RASTER_ROW_CONVERT_H
#define ZAV_PLATFORM_RASTER_ROW_CONVERT_H

#include <cstdint>

#include <platform/raster/bitmap.h>

namespace zav {

// Converts Count pixels; the rows may be the same memory only when the formats are the same. Both
// are aligned as the rows of a bitmap are, shifted by whole pixels.
void ConvertRow(TPixelFormat DestFormat, uint8_t* Dest, TPixelFormat SourceFormat,
                const uint8_t* Source, int32_t Count) noexcept;

}  // namespace zav

#endif
