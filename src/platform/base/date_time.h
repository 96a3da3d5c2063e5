/// @file
/// date_time.h - dates and times as one number.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_DATE_TIME_H
#define ZAV_PLATFORM_BASE_DATE_TIME_H

#include <cstdint>

#include <platform/base/api.h>

namespace zav {

/// Days since 30 December 1899, 0 o'clock; the fraction is the time of the day. Whole days count
/// backwards before that day. The time of a negative value is that of its absolute fraction, so
/// -1.25 is 29 December 1899, 6 o'clock.
using TDateTime = double;

/// A moment as people read it; the default is the number 0.
struct TDateTimeParts {
  int32_t Year = 1899;  ///< 1..9999
  int32_t Month = 12;   ///< 1..12
  int32_t Day = 30;     ///< 1..31
  int32_t Hour = 0;     ///< 0..23
  int32_t Minute = 0;   ///< 0..59
  int32_t Second = 0;   ///< 0..59
  friend bool operator==(const TDateTimeParts&, const TDateTimeParts&) = default;
};

/// The number of a date of the Gregorian calendar, years 1..9999. False, and Value 0, when there is
/// no such date or time.
ZAVGEO_API bool EncodeDateTime(const TDateTimeParts& Parts, TDateTime& Value) noexcept;

/// Date and time of a number, to the nearest second. Numbers outside the years 1..9999 and NaN give
/// the parts of 0.
ZAVGEO_API TDateTimeParts DecodeDateTime(TDateTime Value) noexcept;

}  // namespace zav

#endif
