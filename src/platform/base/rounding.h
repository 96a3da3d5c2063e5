/// @file
/// rounding.h - the one rounding of this library: to the nearest whole number, ties to even.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_ROUNDING_H
#define ZAV_PLATFORM_BASE_ROUNDING_H

#include <cmath>
#include <cstdint>
#include <limits>

namespace zav {

/// Rounds Value half to even. Values beyond the range of the result stop at its ends, NaN gives 0.
/// Relies on the default floating-point rounding mode, which nothing in this library changes.
inline int32_t RoundHalfEven(double Value) noexcept {
  constexpr double Low = std::numeric_limits<int32_t>::min();
  constexpr double High = std::numeric_limits<int32_t>::max();
  if (std::isnan(Value)) return 0;
  if (Value <= Low) return std::numeric_limits<int32_t>::min();
  if (Value >= High) return std::numeric_limits<int32_t>::max();
  return static_cast<int32_t>(std::nearbyint(Value));
}

}  // namespace zav

#endif
