// round125.cpp - see round125.h.
// SPDX-License-Identifier: MIT
#include <platform/base/round125.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include <platform/base/text_format.h>

namespace zav {
namespace {

// Digit * 10^Exponent as the double that its text reads as; a product of powers would be a bit off.
double Decimal(int Digit, int Exponent) {
  const std::string text = IntegerText(Digit) + "e" + IntegerText(Exponent);
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

}  // namespace

double Round125(double Value) {
  if (std::isnan(Value) || Value == 0) return 0;
  if (std::isinf(Value)) return Value;
  const double size = std::abs(Value);
  // The logarithm may be off by one next to a power of ten, so neighbours are looked at too.
  const int decade = static_cast<int>(std::floor(std::log10(size)));
  double nearest = 0;
  for (int exponent = decade - 1; exponent <= decade + 1; ++exponent) {
    for (const int digit : {1, 2, 5}) {
      const double candidate = Decimal(digit, exponent);
      if (candidate > 0 && std::abs(candidate - size) <= std::abs(nearest - size)) {
        nearest = candidate;
      }
    }
  }
  return std::copysign(nearest, Value);
}

}  // namespace zav
