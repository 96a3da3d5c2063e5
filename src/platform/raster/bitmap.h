/// @file
/// bitmap.h - a picture in plain memory, 15, 24 or 32 bits a pixel.
///
/// A value: copies are deep. Rows are stored top down, each padded to a multiple of 4 bytes.
/// 15 bits: uint16 0RRRRRGGGGGBBBBB. 24 bits: bytes B, G, R. 32 bits: uint32 0xFFRRGGBB (bytes
/// B, G, R, 255). 8-bit channels become 5 bits by dropping the low bits, and 8 bits again by
/// (v << 3) | (v >> 2).
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_RASTER_BITMAP_H
#define ZAV_PLATFORM_RASTER_BITMAP_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include <platform/base/api.h>
#include <platform/base/color.h>
#include <platform/base/geometry.h>

namespace zav {

/// Bits a pixel, as the head of this file tells.
enum class TPixelFormat : uint8_t {
  pf15bit = 4,  ///< 2 bytes
  pf24bit = 6,  ///< 3 bytes
  pf32bit = 7   ///< 4 bytes
};

/// Bytes that a pixel takes.
constexpr int BytesPerPixel(TPixelFormat Format) noexcept {
  return Format == TPixelFormat::pf15bit ? 2 : Format == TPixelFormat::pf24bit ? 3 : 4;
}

/// A picture in memory; 0 x 0 at first.
class ZAVGEO_API TBitmap {
 public:
  TBitmap() = default;
  /// 0 x 0, to become larger.
  explicit TBitmap(TPixelFormat Format) : FFormat(Format) {}
  /// Black; negative sizes count as 0. Throws std::bad_alloc.
  TBitmap(int32_t Width, int32_t Height, TPixelFormat Format);

  /// The same with pixels of no defined value, for a caller that writes every one of them: clearing
  /// a large picture takes a sixth of the time of decoding it.
  static TBitmap ForOverwrite(int32_t Width, int32_t Height, TPixelFormat Format);

  /// Pixels, 0 or more.
  int32_t Width() const noexcept { return FWidth; }
  /// Pixels, 0 or more.
  int32_t Height() const noexcept { return FHeight; }
  /// Whether there is no pixel.
  bool Empty() const noexcept { return FWidth == 0 || FHeight == 0; }
  /// How pixels are stored.
  TPixelFormat PixelFormat() const noexcept { return FFormat; }
  /// Bytes from one row to the next.
  size_t Stride() const noexcept { return FStride; }

  /// Changes the size; the common part keeps its pixels, new ones are black. Negative sizes count
  /// as 0. Throws std::bad_alloc when there is no memory; the bitmap is then as before.
  void SetSize(int32_t Width, int32_t Height);

  /// The first byte of a row, 0 <= Y < Height().
  uint8_t* Row(int32_t Y) noexcept { return FPixels.data() + static_cast<size_t>(Y) * FStride; }
  /// The same for reading.
  const uint8_t* Row(int32_t Y) const noexcept {
    return FPixels.data() + static_cast<size_t>(Y) * FStride;
  }

  /// One pixel. Outside the bitmap reading gives 0 and writing does nothing.
  TColor Pixel(int32_t X, int32_t Y) const noexcept;
  /// Nothing happens outside.
  void SetPixel(int32_t X, int32_t Y, TColor Color) noexcept;

  /// The same picture in another pixel format.
  TBitmap Converted(TPixelFormat Format) const;

  friend bool operator==(const TBitmap&, const TBitmap&) = default;

 private:
  // Leaves elements unset where no value is given for them.
  struct TUnsetAllocator : std::allocator<uint8_t> {
    template <typename TOther>
    struct rebind {
      using other = TUnsetAllocator;
    };
    void construct(uint8_t*) noexcept {}
    void construct(uint8_t* At, uint8_t Value) noexcept { *At = Value; }
  };
  using TBytes = std::vector<uint8_t, TUnsetAllocator>;

  // Bytes from row to row; throws std::bad_alloc when the whole is beyond the address space.
  static size_t StrideFor(int32_t Width, int32_t Height, TPixelFormat Format);

  int32_t FWidth = 0;
  int32_t FHeight = 0;
  TPixelFormat FFormat = TPixelFormat::pf32bit;
  size_t FStride = 0;
  TBytes FPixels;
};

}  // namespace zav

#endif
