// degrees.cpp - see degrees.h.
// SPDX-License-Identifier: MIT
#include <platform/base/degrees.h>

#include <algorithm>
#include <cmath>

#include <platform/base/text_format.h>

namespace zav {
namespace {

constexpr const char* DegreeSign = "\xC2\xB0";

// Digits with zeros in front.
std::string Padded(int64_t Value, size_t Digits) {
  std::string text = IntegerText(Value);
  return text.size() < Digits ? std::string(Digits - text.size(), '0') + text : text;
}

int64_t PowerOfTen(int32_t Exponent) {
  int64_t power = 1;
  for (int32_t i = 0; i < Exponent; ++i) power *= 10;
  return power;
}

}  // namespace

std::string DegreeToStr(double Value, TDegreeFormat Format, int32_t Decimals) {
  if (!std::isfinite(Value)) return FormatFixedNumber(Value, 1, 0);
  const int32_t decimals = std::clamp(Decimals, 0, 12);
  std::string text;
  if (Format == TDegreeFormat::dfDegrees) {
    text = FormatFixedNumber(std::abs(Value), 1, decimals) + DegreeSign;
  } else {
    const bool seconds = Format == TDegreeFormat::dfDegreesMinutesSeconds;
    const int64_t scale = PowerOfTen(decimals);
    const int64_t unitsPerMinute = (seconds ? 60 : 1) * scale;
    // Whole degrees are split off first: what is left has all its digits, below 2^53 units.
    double degrees = std::floor(std::abs(Value));
    const double rest = std::abs(Value) - degrees;
    auto units =
        static_cast<int64_t>(std::nearbyint(rest * 60 * static_cast<double>(unitsPerMinute)));
    if (units == 60 * unitsPerMinute) {
      units = 0;
      degrees += 1;
    }
    const int64_t lastUnits = seconds ? units % unitsPerMinute : units;
    text = FormatFixedNumber(degrees, 1, 0) + DegreeSign;
    if (seconds) text += Padded(units / unitsPerMinute, 2) + "'";
    text += Padded(lastUnits / scale, 2);
    if (decimals > 0) text += "." + Padded(lastUnits % scale, static_cast<size_t>(decimals));
    text += seconds ? "\"" : "'";
  }
  const bool isZero = text.find_first_of("123456789") == std::string::npos;
  return Value < 0 && !isZero ? "-" + text : text;
}

}  // namespace zav
