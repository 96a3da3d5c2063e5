/// @file
/// utf8.h - characters in UTF-8 text.
///
/// Bytes that are no UTF-8 (overlong forms, surrogates and values above U+10FFFF included) are
/// taken one by one and never lost.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_UTF8_H
#define ZAV_PLATFORM_BASE_UTF8_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <platform/base/api.h>

namespace zav {

/// A character of a text.
struct TUtf8Char {
  char32_t Code = 0;   ///< the character; for a byte that is no UTF-8 that byte
  uint8_t Length = 0;  ///< bytes taken, 1..4; 0 at the end of the text
  bool Valid = false;  ///< whether it is UTF-8
};

/// The character that begins at the 0-based byte Offset.
ZAVGEO_API TUtf8Char DecodeUtf8(std::string_view Text, size_t Offset) noexcept;

/// Appends a character as UTF-8.
ZAVGEO_API void AppendUtf8(std::string& Text, char32_t Code);

/// The longest beginning of Text of at most MaxBytes bytes that cuts no character.
ZAVGEO_API std::string_view CutAtCharacter(std::string_view Text, size_t MaxBytes) noexcept;

/// The text as it is to be shown: bytes that are no UTF-8 are read as Windows-1252, the code page
/// of older files.
ZAVGEO_API std::string DisplayText(std::string_view Text);

}  // namespace zav

#endif
