// text_format.cpp - see text_format.h.
// SPDX-License-Identifier: MIT
#include <platform/base/text_format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace zav {
namespace {

// No double has more digits than these before and behind its point.
constexpr int32_t MaxDecimals = 1100;
constexpr size_t MaxFixedLength = 320 + MaxDecimals;

// -2 in place of the number of decimals asks for scientific form.
constexpr int32_t Scientific = -2;

std::string Converted(double Value, std::chars_format Form, int32_t Decimals) {
  std::array<char, MaxFixedLength> buffer;
  const auto result =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), Value, Form, Decimals);
  return {buffer.data(), result.ptr};
}

std::string FixedText(double Value, int32_t Decimals) {
  std::string text =
      Converted(Value, std::chars_format::fixed, std::clamp(Decimals, 0, MaxDecimals));
  const bool isZero = text.find_first_of("123456789") == std::string::npos;
  if (isZero && text[0] == '-') text.erase(0, 1);
  return text;
}

// Sign or blank, one digit, point, digits, E, sign and a two-digit exponent, Width characters wide.
std::string ScientificText(double Value, int64_t Width) {
  constexpr int64_t FixedPart = 7;  // all but the digits behind the point
  const auto decimals =
      static_cast<int32_t>(std::clamp<int64_t>(Width - FixedPart, 1, MaxDecimals));
  std::string text = Converted(Value, std::chars_format::scientific, decimals);
  if (text[0] != '-') text.insert(0, 1, ' ');
  const size_t exponent = text.find('e');
  text[exponent] = 'E';
  // The conversion writes the exponent with its sign and two digits, or three where it needs them.
  const bool threeDigits = text.size() - exponent == 5;
  return threeDigits ? std::string(text.size() - 1, '*') : text;
}

}  // namespace

std::string FormatFixedNumber(double Value, int32_t Width, int32_t Decimals) {
  const auto width = static_cast<size_t>(std::abs(static_cast<int64_t>(Width)));
  std::string text;
  if (!std::isfinite(Value)) {
    text = std::isnan(Value) ? "nan" : Value < 0 ? "-inf" : "inf";
  } else if (Decimals == Scientific) {
    text = ScientificText(Value, static_cast<int64_t>(width));
  } else {
    text = FixedText(Value, Decimals);
  }
  if (text.size() < width) text.insert(0, width - text.size(), ' ');
  if (Width < 0) {
    const size_t first = text.find_first_not_of(' ');
    std::fill_n(text.begin(), first, '0');
    if (text[first] == '-') {
      text[first] = '0';
      text[0] = '-';
    }
  }
  return text;
}

std::string BoolToText(bool Value, int32_t Style) {
  static constexpr std::string_view Texts[][2] = {{"FALSE", "TRUE"}, {"F", "T"},     {".F.", ".T."},
                                                  {"0", "1"},        {"0", "-1"},    {"00", "FF"},
                                                  {"NO", "YES"},     {"BAD", "GOOD"}};
  const size_t style = Style >= 0 && Style < 8 ? static_cast<size_t>(Style) : 0;
  return std::string(Texts[style][Value ? 1 : 0]);
}

std::string Hex(uint32_t Value, int32_t Digits) {
  std::string text;
  for (uint32_t rest = Value; rest != 0; rest >>= 4) text += "0123456789ABCDEF"[rest & 15];
  const auto digits = static_cast<size_t>(std::clamp(Digits, 1, MaxDecimals));
  if (text.size() < digits) text.append(digits - text.size(), '0');
  std::reverse(text.begin(), text.end());
  return text;
}

std::string IntegerText(int64_t Value) {
  std::array<char, 24> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), Value);
  return {buffer.data(), result.ptr};
}

std::string ShortestNumber(double Value) {
  std::array<char, 32> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), Value);
  return {buffer.data(), result.ptr};
}

}  // namespace zav
