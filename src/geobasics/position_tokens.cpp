// position_tokens.cpp - a typed position cut into numbers, units, words and separators.
// SPDX-License-Identifier: MIT
#include <geobasics/position_tokens.h>

#include <charconv>
#include <utility>

#include <platform/base/utf8.h>

namespace zav::detail {

namespace {

constexpr bool IsDigit(char32_t C) { return C >= '0' && C <= '9'; }
constexpr bool IsLetter(char32_t C) { return (C >= 'a' && C <= 'z') || (C >= 'A' && C <= 'Z'); }
constexpr bool IsBlank(char32_t C) {
  return C == ' ' || (C >= '\t' && C <= '\r') || C == 0xA0 || (C >= 0x2000 && C <= 0x200B) ||
         C == 0x202F || C == 0x3000;
}
constexpr bool IsDegree(char32_t C) { return C == 0xB0 || C == 0xBA || C == 0x2DA; }
constexpr bool IsMinute(char32_t C) {
  return C == '\'' || C == '`' || C == 0xB4 || C == 0x2032 || C == 0x2018 || C == 0x2019;
}
constexpr bool IsSecond(char32_t C) {
  return C == '"' || C == 0x2033 || C == 0x201C || C == 0x201D;
}

std::u32string Characters(std::string_view Text) {
  std::u32string Result;
  for (size_t i = 0; i < Text.size();) {
    const TUtf8Char Each = DecodeUtf8(Text, i);
    // A minus sign of its own, and dashes that word processors make of it.
    const bool Dash = Each.Code == 0x2212 || Each.Code == 0x2013;
    Result += Dash ? U'-' : Each.Code;
    i += Each.Length;
  }
  return Result;
}

class TLexer {
 public:
  TLexer(std::string_view Text, bool DecimalComma)
      : FText(Characters(Text)), FDecimalComma(DecimalComma) {}

  TTokens All() {
    while (FPos < FText.size()) Next();
    return std::move(FTokens);
  }

 private:
  char32_t At(size_t Pos) const { return Pos < FText.size() ? FText[Pos] : U' '; }
  bool DigitBefore() const { return FPos > 0 && IsDigit(At(FPos - 1)); }
  int Column() const { return static_cast<int>(FPos) + 1; }
  bool IsPointAt(size_t Pos) const {
    if (At(Pos) == '.') return true;
    return FDecimalComma && At(Pos) == ',' && Pos > 0 && IsDigit(At(Pos - 1)) &&
           IsDigit(At(Pos + 1));
  }
  void Add(TSymbol Kind, size_t Length, std::string Text = {}) {
    FTokens.push_back({Kind, Column(), std::move(Text)});
    FPos += Length;
  }
  void Next();
  void ReadNumber();
  void ReadWord();
  void ReadColon();

  std::u32string FText;
  bool FDecimalComma;
  size_t FPos = 0;
  TTokens FTokens;
};

void TLexer::ReadNumber() {
  TToken Number{TSymbol::Number, Column(), {}};
  if (!IsDigit(At(FPos)) && At(FPos) != '.') {
    if (DigitBefore())
      FailPosition("A sign stands within a number. Put a blank before it.", Column());
    Number.Signed = true;
    Number.Minus = At(FPos++) == '-';
  }
  bool HasDigit = false;
  while (IsDigit(At(FPos)) || (IsPointAt(FPos) && !Number.HasFraction)) {
    const bool Point = !IsDigit(At(FPos));
    Number.Text += Point ? '.' : static_cast<char>(At(FPos));
    Number.HasFraction |= Point;
    HasDigit |= !Point;
    ++FPos;
  }
  if (!HasDigit) FailPosition("A sign or a point stands alone.", Number.Column);
  if (At(FPos) == '.') FailPosition("A number has two points.", Column());
  if (IsPointAt(FPos))
    FailPosition(
        "There are too many commas. Put a semicolon or a blank between the two coordinates.",
        Column());
  std::from_chars(Number.Text.data(), Number.Text.data() + Number.Text.size(), Number.Value);
  FTokens.push_back(std::move(Number));
}

void TLexer::ReadWord() {
  const size_t Start = FPos;
  std::string Word;
  for (; IsLetter(At(FPos)); ++FPos) Word += static_cast<char>(At(FPos) | 0x20);
  TSymbol Kind = TSymbol::Word;
  if (Word == "deg" || Word == "degrees") Kind = TSymbol::Degree;
  if (Word == "min" || Word == "minutes") Kind = TSymbol::Minute;
  if (Word == "sec" || Word == "seconds") Kind = TSymbol::Second;
  FTokens.push_back({Kind, static_cast<int>(Start) + 1, std::move(Word)});
}

// "47:30:36" and "lat: 47.5".
void TLexer::ReadColon() {
  if (!FTokens.empty() && FTokens.back().Kind == TSymbol::Word) {
    ++FPos;
    return;
  }
  if (!DigitBefore() || FTokens.empty() || FTokens.back().Kind != TSymbol::Number)
    FailPosition("A colon has no number before it.", Column());
  const bool After = FTokens.size() >= 2 && FTokens[FTokens.size() - 2].Text == ":";
  const TSymbol Before = After ? FTokens[FTokens.size() - 2].Kind : TSymbol::Second;
  if (Before == TSymbol::Minute) FailPosition("A coordinate has at most two colons.", Column());
  Add(After ? TSymbol::Minute : TSymbol::Degree, 1, ":");
}

void TLexer::Next() {
  const char32_t C = At(FPos);
  if (IsBlank(C)) {
    ++FPos;
  } else if (IsDigit(C) || C == '+' || C == '-' || C == '.') {
    ReadNumber();
  } else if (IsLetter(C)) {
    ReadWord();
  } else if (IsDegree(C)) {
    Add(TSymbol::Degree, 1);
  } else if (IsMinute(C)) {
    if (At(FPos + 1) == C)
      Add(TSymbol::Second, 2);
    else
      Add(TSymbol::Minute, 1);
  } else if (IsSecond(C)) {
    Add(TSymbol::Second, 1);
  } else if (C == ';' || C == ',') {
    Add(TSymbol::Separator, 1);
  } else if (C == ':') {
    ReadColon();
  } else {
    std::string Shown;
    AppendUtf8(Shown, C);
    FailPosition("\"" + Shown + "\" has no meaning in a position.", Column());
  }
}

}  // namespace

TTokens CutPosition(std::string_view Text, bool DecimalComma) {
  return TLexer(Text, DecimalComma).All();
}

int ColumnsOf(std::string_view Text) noexcept {
  int Columns = 0;
  for (size_t i = 0; i < Text.size(); ++Columns) i += DecodeUtf8(Text, i).Length;
  return Columns;
}

void FailPosition(const std::string& Reason, int Column) {
  throw EPositionTextError(Reason, Column);
}

}  // namespace zav::detail
