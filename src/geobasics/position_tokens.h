// position_tokens.h - a typed position cut into numbers, units, words and separators; internal.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEOBASICS_POSITION_TOKENS_H
#define ZAV_GEOBASICS_POSITION_TOKENS_H

#include <string>
#include <string_view>
#include <vector>

#include <geobasics/position_text.h>

namespace zav::detail {

enum class TSymbol { Number, Degree, Minute, Second, Word, Separator };

struct TToken {
  TSymbol Kind;
  int Column;        // of its first character, from 1
  std::string Text;  // of a Word in lower case; of a Number the digits with "."
  bool Minus = false;
  bool Signed = false;
  bool HasFraction = false;
  double Value = 0;
};

using TTokens = std::vector<TToken>;

// A comma between two digits is a decimal comma where DecimalComma is set, else a separator like
// every other. A colon is the degree or minute sign of the number before it. Throws
// EPositionTextError.
TTokens CutPosition(std::string_view Text, bool DecimalComma);

// The number of characters of the text, for columns behind its end.
int ColumnsOf(std::string_view Text) noexcept;

[[noreturn]] void FailPosition(const std::string& Reason, int Column);

}  // namespace zav::detail

#endif
