/// @file
/// color.h - colours as 32-bit values 0x00BBGGRR.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_COLOR_H
#define ZAV_PLATFORM_BASE_COLOR_H

#include <cstdint>

namespace zav {

/// 0x00BBGGRR: red in the lowest byte. The highest byte is ignored.
using TColor = uint32_t;

constexpr TColor clBlack = 0x000000;   ///< 0, 0, 0
constexpr TColor clGray = 0x808080;    ///< 128, 128, 128
constexpr TColor clSilver = 0xC0C0C0;  ///< 192, 192, 192
constexpr TColor clWhite = 0xFFFFFF;   ///< 255, 255, 255
constexpr TColor clRed = 0x0000FF;     ///< 255, 0, 0
constexpr TColor clLime = 0x00FF00;    ///< 0, 255, 0
constexpr TColor clBlue = 0xFF0000;    ///< 0, 0, 255
constexpr TColor clYellow = 0x00FFFF;  ///< 255, 255, 0

/// The red part, 0..255.
constexpr uint8_t RedOf(TColor Color) noexcept { return static_cast<uint8_t>(Color); }
/// The green part, 0..255.
constexpr uint8_t GreenOf(TColor Color) noexcept { return static_cast<uint8_t>(Color >> 8); }
/// The blue part, 0..255.
constexpr uint8_t BlueOf(TColor Color) noexcept { return static_cast<uint8_t>(Color >> 16); }

/// A colour of its parts; the highest byte is 0.
constexpr TColor RgbColor(uint8_t Red, uint8_t Green, uint8_t Blue) noexcept {
  return static_cast<TColor>(Red) | static_cast<TColor>(Green) << 8 |
         static_cast<TColor>(Blue) << 16;
}

}  // namespace zav

#endif
