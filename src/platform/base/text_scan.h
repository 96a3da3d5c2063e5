/// @file
/// text_scan.h - numbers and dates read from text, the same under every locale.
///
/// Pos is the 1-based byte at which reading begins (below 1 counts as 1); it is left on the byte
/// that ended the value, which is the length + 1 at the end of the text. Nothing is thrown: what
/// cannot be read is 0. A blank is character 32.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_TEXT_SCAN_H
#define ZAV_PLATFORM_BASE_TEXT_SCAN_H

#include <cstdint>
#include <string_view>

#include <platform/base/api.h>
#include <platform/base/date_time.h>

namespace zav {

/// Blanks, an optional sign and decimal digits. The value wraps around at 32 bits. No digits give
/// 0; an empty text leaves Pos alone.
ZAVGEO_API int32_t ScanInteger(std::string_view Text, int32_t& Pos) noexcept;

/// Blanks, an optional sign, digits with at most one decimal separator, and with AllowExponent an
/// optional "E", sign and digits. The separator is "." for SeparatorMode 1, "," for 2, either for
/// 3. A number may end after its separator ("1."), "E" or exponent sign; a lone sign is 0. Values
/// beyond the range stop at the largest finite double.
ZAVGEO_API double ScanFloat(std::string_view Text, bool AllowExponent, int32_t SeparatorMode,
                            int32_t& Pos);

/// Hexadecimal digits of either case, without sign and blanks; the value wraps around at 32 bits.
ZAVGEO_API uint32_t ScanHex(std::string_view Text, int32_t& Pos) noexcept;

/// A date and time laid out as Format, in which each of the letters y (year), m (month), d (day),
/// H (hour), M (minute) and S (second) stands for one digit and any other character for itself, as
/// "yyyymmddHHMMSS". What the format does not name is the first of its kind (year 1899, 0 o'clock).
/// A malformed date or one that does not exist is 0; Pos is then left where reading stopped.
ZAVGEO_API TDateTime ScanDateTime(std::string_view Text, std::string_view Format,
                                  int32_t& Pos) noexcept;

}  // namespace zav

#endif
