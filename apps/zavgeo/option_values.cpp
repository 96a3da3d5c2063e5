// option_values.cpp - see option_values.h.
// SPDX-License-Identifier: MIT
#include "option_values.h"

#include <platform/base/rounding.h>
#include <platform/base/text_format.h>

#include <algorithm>
#include <string_view>

#include "program.h"

namespace zav {

namespace {

// Nothing where the text is not so many numbers.
std::vector<double> SplitNumbers(std::string_view Rest, char Separator, size_t Count) {
  std::vector<double> Numbers;
  while (true) {
    const size_t End = std::min(Rest.find(Separator), Rest.size());
    const auto Number = ParseNumber(Rest.substr(0, End));
    if (!Number) return {};
    Numbers.push_back(*Number);
    if (End == Rest.size()) return Numbers.size() == Count ? Numbers : std::vector<double>();
    Rest.remove_prefix(End + 1);
  }
}

}  // namespace

std::vector<double> NumbersOfOption(const std::string& Option, const std::string& Text,
                                    size_t Count) {
  std::vector<double> Numbers = SplitNumbers(Text, ',', Count);
  if (!Numbers.empty()) return Numbers;
  throw EUsageError(Option + " \"" + Text + "\": " + IntegerText(static_cast<int64_t>(Count)) +
                    " numbers are needed, with commas between");
}

TSize SizeOfOption(const std::string& Option, const std::string& Text, int32_t Low, int32_t High) {
  const std::vector<double> Sides = SplitNumbers(Text, 'x', 2);
  if (Sides.empty())
    throw EUsageError(Option + " \"" + Text + "\" is not of the form WIDTHxHEIGHT");
  for (const double Side : Sides) RequireRange(Option, Side, Low, High);
  return {RoundHalfEven(Sides[0]), RoundHalfEven(Sides[1])};
}

void RequireRange(const std::string& Option, double Value, double Low, double High) {
  if (!(Value >= Low && Value <= High)) throw EUsageError(Option + " is out of range");
}

}  // namespace zav
