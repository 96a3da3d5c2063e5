// pixel.h - one pixel of each format, and the choice of the code for a bitmap's format.
//
// Each type is a trivially copyable value as it lies in memory, with conversions from and to TColor
// and the exclusive-or, which leaves unused bits as they are.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_RASTER_PIXEL_H
#define ZAV_PLATFORM_RASTER_PIXEL_H

#include <cstdint>

#include <platform/base/color.h>
#include <platform/raster/bitmap.h>

namespace zav {

struct TPixel15 {
  uint16_t Value;

  static constexpr TPixel15 Of(TColor Color) noexcept {
    return {static_cast<uint16_t>((RedOf(Color) >> 3) << 10 | (GreenOf(Color) >> 3) << 5 |
                                  BlueOf(Color) >> 3)};
  }
  static constexpr uint8_t Widen(uint32_t Five) noexcept {
    return static_cast<uint8_t>(Five << 3 | Five >> 2);
  }
  constexpr TColor Color() const noexcept {
    return RgbColor(Widen(Value >> 10 & 31U), Widen(Value >> 5 & 31U), Widen(Value & 31U));
  }
  constexpr void Xor(TPixel15 Ink) noexcept { Value = static_cast<uint16_t>(Value ^ Ink.Value); }
};

struct TPixel24 {
  uint8_t Blue, Green, Red;

  static constexpr TPixel24 Of(TColor Color) noexcept {
    return {BlueOf(Color), GreenOf(Color), RedOf(Color)};
  }
  constexpr TColor Color() const noexcept { return RgbColor(Red, Green, Blue); }
  constexpr void Xor(TPixel24 Ink) noexcept {
    Blue = static_cast<uint8_t>(Blue ^ Ink.Blue);
    Green = static_cast<uint8_t>(Green ^ Ink.Green);
    Red = static_cast<uint8_t>(Red ^ Ink.Red);
  }
};

struct TPixel32 {
  uint32_t Value;

  static constexpr TPixel32 Of(TColor Color) noexcept {
    return {0xFF000000U | static_cast<uint32_t>(RedOf(Color)) << 16 |
            static_cast<uint32_t>(GreenOf(Color)) << 8 | BlueOf(Color)};
  }
  constexpr TColor Color() const noexcept {
    return RgbColor(static_cast<uint8_t>(Value >> 16), static_cast<uint8_t>(Value >> 8),
                    static_cast<uint8_t>(Value));
  }
  constexpr void Xor(TPixel32 Ink) noexcept { Value ^= Ink.Value & 0x00FFFFFFU; }
};

static_assert(sizeof(TPixel15) == 2 && sizeof(TPixel24) == 3 && sizeof(TPixel32) == 4);

// Calls Action with a value of the pixel type of Format.
template <class TAction>
decltype(auto) WithPixelOf(TPixelFormat Format, TAction&& Action) {
  switch (Format) {
    case TPixelFormat::pf15bit:
      return Action(TPixel15{});
    case TPixelFormat::pf24bit:
      return Action(TPixel24{});
    case TPixelFormat::pf32bit:
      break;
  }
  return Action(TPixel32{});
}

// The pixels of a row, 0 <= Y < Height().
template <class TPixel>
TPixel* PixelRow(TBitmap& Bitmap, int32_t Y) noexcept {
  return reinterpret_cast<TPixel*>(Bitmap.Row(Y));
}
template <class TPixel>
const TPixel* PixelRow(const TBitmap& Bitmap, int32_t Y) noexcept {
  return reinterpret_cast<const TPixel*>(Bitmap.Row(Y));
}

}  // namespace zav

#endif
