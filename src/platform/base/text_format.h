/// @file
/// text_format.h - numbers and truth values written as text, the same under every locale.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_TEXT_FORMAT_H
#define ZAV_PLATFORM_BASE_TEXT_FORMAT_H

#include <cstdint>
#include <string>

#include <platform/base/api.h>

namespace zav {

/// Value in fixed-point form with Decimals digits after "." (none and no point for 0; -1 counts as
/// 0), rounded half to even, right-aligned in at least |Width| characters; zero has no sign.
///
/// Decimals = -2 gives scientific form for a field of |Width| characters, as "-1.2345678900000E+03"
/// for 20; an exponent of 100 or more shows as a row of asterisks. Below 10 characters the field
/// grows.
///
/// A negative Width pads with "0", the sign in front: (-3.5, -8, 3) gives "-003.500". Infinities
/// and NaN give "inf", "-inf" and "nan".
ZAVGEO_API std::string FormatFixedNumber(double Value, int32_t Width, int32_t Decimals);

/// Truth values by style: 0 TRUE/FALSE, 1 T/F, 2 .T./.F., 3 1/0, 4 -1/0, 5 FF/00, 6 YES/NO,
/// 7 GOOD/BAD; any other style is 0.
ZAVGEO_API std::string BoolToText(bool Value, int32_t Style);

/// Upper-case hexadecimal, padded with zeros to Digits.
ZAVGEO_API std::string Hex(uint32_t Value, int32_t Digits);

/// Decimal digits, with "-" when negative.
ZAVGEO_API std::string IntegerText(int64_t Value);

/// The shortest text that reads back as the same number.
ZAVGEO_API std::string ShortestNumber(double Value);

}  // namespace zav

#endif
