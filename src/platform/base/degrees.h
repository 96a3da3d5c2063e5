/// @file
/// degrees.h - angles as text.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_DEGREES_H
#define ZAV_PLATFORM_BASE_DEGREES_H

#include <cstdint>
#include <string>

#include <platform/base/api.h>

namespace zav {

/// How many units an angle is written in.
enum class TDegreeFormat : uint8_t {
  dfDegrees = 0,               ///< 47.5 and a degree sign
  dfDegreesMinutes = 1,        ///< the same, then 30'
  dfDegreesMinutesSeconds = 2  ///< the same, then 30'00"
};

/// An angle in degrees as text. Decimals (0..12) belong to the last unit, which is rounded half to
/// even and carried upwards: 59.9996' with 3 decimals is the next degree. Minutes and seconds have
/// two digits before the point. A negative angle has one "-" in front, unless all its digits are 0.
/// Infinities and NaN give "inf", "-inf" and "nan".
ZAVGEO_API std::string DegreeToStr(double Value, TDegreeFormat Format, int32_t Decimals);

}  // namespace zav

#endif
