// position_lexer.cpp - a typed position cut into numbers, units, words and separators.
// SPDX-License-Identifier: MIT
#include "position_lexer.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include <QCoreApplication>

namespace zav {

namespace {

using Symbol = PositionSymbol;
using Token = PositionToken;

QString Tr(const char* Text) { return QCoreApplication::translate("PositionParser", Text); }

double NumberOf(const QString& Digits) {
  const QByteArray Text = Digits.toLatin1();
  double Value = 0;
  std::from_chars(Text.data(), Text.data() + Text.size(), Value);
  return Value;
}

class Lexer {
 public:
  Lexer(const QString& Text, bool DecimalComma) : FText(Text), FDecimalComma(DecimalComma) {}

  PositionTokens All() {
    while (FPos < FText.size()) Next();
    return std::move(FTokens);
  }

 private:
  QChar At(qsizetype Pos) const {
    return Pos >= 0 && Pos < FText.size() ? FText[Pos] : QChar(QLatin1Char(' '));
  }
  bool DigitAt(qsizetype Pos) const {
    return At(Pos) >= QLatin1Char('0') && At(Pos) <= QLatin1Char('9');
  }
  bool IsPointAt(qsizetype Pos) const {
    if (At(Pos) == QLatin1Char('.')) return true;
    return FDecimalComma && At(Pos) == QLatin1Char(',') && DigitAt(Pos - 1) && DigitAt(Pos + 1);
  }
  void Add(Symbol Kind, qsizetype Length, QString Text = {}) {
    FTokens.push_back({Kind, std::move(Text)});
    FPos += Length;
  }
  void Next();
  void ReadNumber();
  void ReadWord();

  const QString& FText;
  bool FDecimalComma;
  qsizetype FPos = 0;
  PositionTokens FTokens;
};

void Lexer::ReadNumber() {
  Token Number{Symbol::Number, {}};
  if (!DigitAt(FPos) && At(FPos) != QLatin1Char('.')) {
    if (DigitAt(FPos - 1))
      FailPosition(Tr("A sign stands within a number. Put a blank before it."));
    Number.Signed = true;
    Number.Minus = At(FPos++) == QLatin1Char('-');
  }
  while (DigitAt(FPos) || (IsPointAt(FPos) && !Number.HasFraction)) {
    const bool Point = !DigitAt(FPos);
    Number.Text += Point ? QLatin1Char('.') : At(FPos);
    Number.HasFraction |= Point;
    ++FPos;
  }
  if (!std::any_of(Number.Text.begin(), Number.Text.end(), [](QChar C) { return C.isDigit(); }))
    FailPosition(Tr("A sign or a point stands alone."));
  if (At(FPos) == QLatin1Char('.')) FailPosition(Tr("A number has two points."));
  if (IsPointAt(FPos))
    FailPosition(
        Tr("There are too many commas. Put a semicolon or a blank between the two coordinates."));
  Number.Value = NumberOf(Number.Text);
  FTokens.push_back(std::move(Number));
}

void Lexer::ReadWord() {
  QString Word;
  while (At(FPos).isLetter()) Word += At(FPos++).toLower();
  if (Word == QLatin1String("deg")) return Add(Symbol::Degree, 0);
  if (Word == QLatin1String("min")) return Add(Symbol::Minute, 0);
  if (Word == QLatin1String("sec")) return Add(Symbol::Second, 0);
  Add(Symbol::Word, 0, Word);
}

void Lexer::Next() {
  const QChar C = At(FPos);
  switch (C.unicode()) {
    case 0x00B0:  // degree sign, and what looks like it
    case 0x00BA:
    case 0x02DA:
      return Add(Symbol::Degree, 1);
    case '\'':
    case 0x2032:
    case 0x2019:
    case 0x00B4:
      if (At(FPos + 1) == C) return Add(Symbol::Second, 2);
      return Add(Symbol::Minute, 1);
    case '"':
    case 0x2033:
    case 0x201D:
      return Add(Symbol::Second, 1);
    case ';':
    case ',':
      return Add(Symbol::Separator, 1);
    case '+':
    case '-':
    case '.':
      return ReadNumber();
    default:
      break;
  }
  if (C.isSpace())
    ++FPos;
  else if (DigitAt(FPos))
    ReadNumber();
  else if (C.isLetter())
    ReadWord();
  else
    FailPosition(Tr("\"%1\" has no meaning in a position.").arg(C));
}

}  // namespace

PositionTokens CutPosition(const QString& Text, bool DecimalComma) {
  return Lexer(Text, DecimalComma).All();
}

}  // namespace zav
