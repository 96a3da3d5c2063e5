// utf8.cpp - see utf8.h.
// SPDX-License-Identifier: MIT
#include <platform/base/utf8.h>

#include <array>

namespace zav {
namespace {

// Windows-1252, bytes 0x80..0x9F; the five bytes without a meaning stay control characters. Source:
// the mapping table CP1252.TXT of the Unicode Consortium.
constexpr std::array<char16_t, 32> Windows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr uint8_t LengthOf(uint8_t First) noexcept {
  if (First < 0x80) return 1;
  if (First >= 0xC2 && First <= 0xDF) return 2;
  if (First >= 0xE0 && First <= 0xEF) return 3;
  if (First >= 0xF0 && First <= 0xF4) return 4;
  return 0;
}

}  // namespace

TUtf8Char DecodeUtf8(std::string_view Text, size_t Offset) noexcept {
  if (Offset >= Text.size()) return {};
  const auto first = static_cast<uint8_t>(Text[Offset]);
  const TUtf8Char invalid{first, 1, false};
  const uint8_t length = LengthOf(first);
  if (length == 1) return {first, 1, true};
  if (length == 0 || Text.size() - Offset < length) return invalid;
  char32_t code = first & (0xFFU >> (length + 1));
  for (size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<uint8_t>(Text[Offset + i]);
    if ((byte & 0xC0) != 0x80) return invalid;
    code = code << 6 | (byte & 0x3FU);
  }
  const bool overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
  if (overlong || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return invalid;
  return {code, length, true};
}

void AppendUtf8(std::string& Text, char32_t Code) {
  const auto tail = [&](int shift) { Text += static_cast<char>(0x80 | (Code >> shift & 0x3F)); };
  if (Code < 0x80) {
    Text += static_cast<char>(Code);
  } else if (Code < 0x800) {
    Text += static_cast<char>(0xC0 | Code >> 6);
    tail(0);
  } else if (Code < 0x10000) {
    Text += static_cast<char>(0xE0 | Code >> 12);
    tail(6);
    tail(0);
  } else {
    Text += static_cast<char>(0xF0 | Code >> 18);
    tail(12);
    tail(6);
    tail(0);
  }
}

std::string_view CutAtCharacter(std::string_view Text, size_t MaxBytes) noexcept {
  if (Text.size() <= MaxBytes) return Text;
  // The character that covers the cut begins at most three bytes before it.
  for (size_t back = 1; back <= 3 && back <= MaxBytes; ++back) {
    const TUtf8Char c = DecodeUtf8(Text, MaxBytes - back);
    if (c.Length > back) return Text.substr(0, MaxBytes - back);
  }
  return Text.substr(0, MaxBytes);
}

std::string DisplayText(std::string_view Text) {
  std::string result;
  result.reserve(Text.size());
  for (size_t i = 0; i < Text.size();) {
    const TUtf8Char c = DecodeUtf8(Text, i);
    if (c.Valid) {
      result.append(Text.substr(i, c.Length));
    } else {
      AppendUtf8(result, c.Code < 0xA0 ? Windows1252[c.Code - 0x80] : c.Code);
    }
    i += c.Length;
  }
  return result;
}

}  // namespace zav
