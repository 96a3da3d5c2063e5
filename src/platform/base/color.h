// color.h - colours as 32-bit values 0x00BBGGRR.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_COLOR_H
#define ZAV_PLATFORM_BASE_COLOR_H

#include <cstdint>

namespace zav {

// 0x00BBGGRR: red in the lowest byte. The highest byte is ignored.
using TColor = uint32_t;

constexpr TColor clBlack = 0x000000;
constexpr TColor clGray = 0x808080;
constexpr TColor clSilver = 0xC0C0C0;
constexpr TColor clWhite = 0xFFFFFF;
constexpr TColor clRed = 0x0000FF;
constexpr TColor clLime = 0x00FF00;
constexpr TColor clBlue = 0xFF0000;
constexpr TColor clYellow = 0x00FFFF;

constexpr uint8_t RedOf(TColor Color) noexcept { return static_cast<uint8_t>(Color); }
constexpr uint8_t GreenOf(TColor Color) noexcept { return static_cast<uint8_t>(Color >> 8); }
constexpr uint8_t BlueOf(TColor Color) noexcept { return static_cast<uint8_t>(Color >> 16); }

constexpr TColor RgbColor(uint8_t Red, uint8_t Green, uint8_t Blue) noexcept {
  return static_cast<TColor>(Red) | static_cast<TColor>(Green) << 8 |
         static_cast<TColor>(Blue) << 16;
}

}  // namespace zav

#endif
