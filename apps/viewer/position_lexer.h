// position_lexer.h - a typed position cut into numbers, units, words and separators.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_POSITION_LEXER_H
#define ZAV_APPS_VIEWER_POSITION_LEXER_H

#include <vector>

#include <QString>

namespace zav {

// Why a text is no position.
struct EPositionProblem {
  QString Text;
};

[[noreturn]] inline void FailPosition(const QString& Text) { throw EPositionProblem{Text}; }

enum class PositionSymbol { Number, Degree, Minute, Second, Word, Separator };

struct PositionToken {
  PositionSymbol Kind;
  QString Text;  // of a Word in lower case; of a Number the digits with "."
  bool Minus = false;
  bool Signed = false;
  bool HasFraction = false;
  double Value = 0;
};

using PositionTokens = std::vector<PositionToken>;

// A comma between two digits is a decimal comma where DecimalComma is set, else a separator like
// every other. Throws EPositionProblem.
PositionTokens CutPosition(const QString& Text, bool DecimalComma);

}  // namespace zav

#endif
