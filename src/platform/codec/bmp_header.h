// bmp_header.h - what the head of a BMP file says: size, layout of the pixels, colour table.
//
// Formats: OS/2 1.x core header (12 bytes), OS/2 2.x (16 and 64 bytes), Windows 3 (40 bytes), the
// same with masks (52 and 56 bytes), version 4 (108) and 5 (124). Source: Microsoft Win32
// documentation, "Bitmap Storage" and "BITMAPV5HEADER structure".
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_CODEC_BMP_HEADER_H
#define ZAV_PLATFORM_CODEC_BMP_HEADER_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace zav {

enum class TBmpCoding : uint8_t { bcPlain, bcRle8, bcRle4, bcMasks };

struct TBmpHeader {
  int32_t Width = 0;   // at least 1
  int32_t Height = 0;  // at least 1
  bool TopDown = false;
  int32_t BitsPerPixel = 0;  // 1, 4, 8, 16, 24, 32
  TBmpCoding Coding = TBmpCoding::bcPlain;
  std::array<uint32_t, 3> Masks{};  // red, green, blue of 16 and 32 bits a pixel
  uint64_t FileLength = 0;          // bytes that the whole file must have at least
  size_t PixelOffset = 0;           // from the start of the file
  size_t PaletteOffset = 0;
  int32_t PaletteEntrySize = 4;  // bytes; 3 after a core header
  int32_t PaletteCount = 0;      // entries that the file holds, at most 2^BitsPerPixel

  // Bytes of one row in the file, without run lengths; rows are padded to 4 bytes.
  int64_t RowBytes() const noexcept {
    return (static_cast<int64_t>(Width) * BitsPerPixel + 31) / 32 * 4;
  }
};

// Colours of pixel values as 0xFFRRGGBB; values without an entry are black.
using TBmpPalette = std::array<uint32_t, 256>;

// Reads the head alone: Data may be the leading part of a file. Throws EInOutError when it is no
// BMP file, is damaged or of a kind that is not supported.
TBmpHeader ReadBmpHeader(std::span<const uint8_t> Data, const std::string& Name);

// Throws EInOutError when the whole file Data is shorter than its header says.
void CheckBmpLength(const TBmpHeader& Header, std::span<const uint8_t> Data,
                    const std::string& Name);

TBmpPalette ReadBmpPalette(const TBmpHeader& Header, std::span<const uint8_t> Data);

}  // namespace zav

#endif
