// SPDX-License-Identifier: MIT
#include "platform/raster/row_convert.h"

#include <cstddef>
#include <cstring>

#include "platform/raster/pixel.h"
#include "platform/raster/simd_clones.h"

namespace zav {

namespace {

// The frequent pairs are written on whole words, which compilers turn into vector code.
ZAV_SIMD_CLONES void Convert32To15(uint16_t* Dest, const uint32_t* Source, size_t Count) {
  for (size_t I = 0; I < Count; ++I) {
    const uint32_t V = Source[I];
    Dest[I] = static_cast<uint16_t>((V >> 9 & 0x7C00U) | (V >> 6 & 0x03E0U) | (V >> 3 & 0x001FU));
  }
}

ZAV_SIMD_CLONES void Convert15To32(uint32_t* Dest, const uint16_t* Source, size_t Count) {
  for (size_t I = 0; I < Count; ++I) {
    const uint32_t V = Source[I];
    // The five bits of each channel at the top of its byte, then its top three bits below them.
    const uint32_t High = (V << 9 & 0x00F80000U) | (V << 6 & 0x0000F800U) | (V << 3 & 0x000000F8U);
    Dest[I] = 0xFF000000U | High | (High >> 5 & 0x00070707U);
  }
}

template <class TDest, class TSource>
void ConvertPixels(TDest* Dest, const TSource* Source, size_t Count) {
  for (size_t I = 0; I < Count; ++I) Dest[I] = TDest::Of(Source[I].Color());
}

}  // namespace

void ConvertRow(TPixelFormat DestFormat, uint8_t* Dest, TPixelFormat SourceFormat,
                const uint8_t* Source, int32_t Count) noexcept {
  if (Count <= 0) return;
  const size_t Pixels = static_cast<size_t>(Count);
  if (DestFormat == SourceFormat) {
    std::memmove(Dest, Source, Pixels * static_cast<size_t>(BytesPerPixel(DestFormat)));
  } else if (SourceFormat == TPixelFormat::pf32bit && DestFormat == TPixelFormat::pf15bit) {
    Convert32To15(reinterpret_cast<uint16_t*>(Dest), reinterpret_cast<const uint32_t*>(Source),
                  Pixels);
  } else if (SourceFormat == TPixelFormat::pf15bit && DestFormat == TPixelFormat::pf32bit) {
    Convert15To32(reinterpret_cast<uint32_t*>(Dest), reinterpret_cast<const uint16_t*>(Source),
                  Pixels);
  } else {
    WithPixelOf(DestFormat, [&](auto To) {
      WithPixelOf(SourceFormat, [&](auto From) {
        ConvertPixels(reinterpret_cast<decltype(To)*>(Dest),
                      reinterpret_cast<const decltype(From)*>(Source), Pixels);
      });
    });
  }
}

}  // namespace zav
