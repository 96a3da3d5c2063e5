// int32_arithmetic.h - 32-bit integer arithmetic that wraps around instead of being undefined.
//
// Products and distances of pixels are formed in 32 bits, so that every build and platform finds
// the same numbers for pixels far outside any image.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOMAP_CALIBRATION_INT32_ARITHMETIC_H
#define ZAV_GEOMAP_CALIBRATION_INT32_ARITHMETIC_H

#include <cstdint>

namespace zav {

constexpr int32_t WrapMul(int32_t A, int32_t B) noexcept {
  return static_cast<int32_t>(static_cast<uint32_t>(A) * static_cast<uint32_t>(B));
}

// The square of the distance of two pixels.
constexpr int32_t WrapSquaredDistance(int32_t X1, int32_t Y1, int32_t X2, int32_t Y2) noexcept {
  const uint32_t DX = static_cast<uint32_t>(X1) - static_cast<uint32_t>(X2);
  const uint32_t DY = static_cast<uint32_t>(Y1) - static_cast<uint32_t>(Y2);
  return static_cast<int32_t>(DX * DX + DY * DY);
}

}  // namespace zav

#endif
