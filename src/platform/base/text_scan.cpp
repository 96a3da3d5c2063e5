// text_scan.cpp - see text_scan.h.
// SPDX-License-Identifier: MIT
#include <platform/base/text_scan.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace zav {
namespace {

// A position in a text. Texts beyond the range of positions are read up to it.
class TCursor {
 public:
  TCursor(std::string_view Text, int32_t& Pos) noexcept
      : FText(Text.substr(0, std::numeric_limits<int32_t>::max() - 1)), FPos(Pos) {
    FPos = std::max(FPos, 1);
  }

  // The current byte, NUL included; -1 behind the end.
  int Current() const noexcept {
    const auto index = static_cast<size_t>(FPos) - 1;
    return index < FText.size() ? static_cast<unsigned char>(FText[index]) : -1;
  }
  void Advance() noexcept { ++FPos; }

 private:
  std::string_view FText;
  int32_t& FPos;
};

bool IsDigit(int Char) noexcept { return Char >= '0' && Char <= '9'; }

int HexDigit(int Char) noexcept {
  if (IsDigit(Char)) return Char - '0';
  if (Char >= 'a' && Char <= 'f') return Char - 'a' + 10;
  if (Char >= 'A' && Char <= 'F') return Char - 'A' + 10;
  return -1;
}

enum class TState {
  Start,
  AfterSign,
  Integer,
  FractionStart,
  Fraction,
  ExponentStart,
  ExponentSign,
  ExponentDigits,
  End,
  Fail
};

enum class TInput { Blank, Sign, Digit, Separator, Exponent, Other };

// What follows in each state on each kind of input, in the order of TInput.
constexpr TState NextState[8][6] = {
    {TState::Start, TState::AfterSign, TState::Integer, TState::FractionStart, TState::Fail,
     TState::Fail},
    {TState::Fail, TState::Fail, TState::Integer, TState::FractionStart, TState::Fail,
     TState::Fail},
    {TState::End, TState::End, TState::Integer, TState::FractionStart, TState::ExponentStart,
     TState::End},
    {TState::End, TState::End, TState::Fraction, TState::Fail, TState::ExponentStart, TState::End},
    {TState::End, TState::End, TState::Fraction, TState::Fail, TState::ExponentStart, TState::End},
    {TState::Fail, TState::ExponentSign, TState::ExponentDigits, TState::Fail, TState::Fail,
     TState::End},
    {TState::Fail, TState::Fail, TState::ExponentDigits, TState::Fail, TState::Fail, TState::End},
    {TState::End, TState::End, TState::ExponentDigits, TState::End, TState::End, TState::End},
};

TInput Classify(int Char, bool AllowExponent, int32_t SeparatorMode) noexcept {
  if (Char == ' ') return TInput::Blank;
  if (Char == '+' || Char == '-') return TInput::Sign;
  if (IsDigit(Char)) return TInput::Digit;
  if (Char == '.' && (SeparatorMode == 1 || SeparatorMode == 3)) return TInput::Separator;
  if (Char == ',' && (SeparatorMode == 2 || SeparatorMode == 3)) return TInput::Separator;
  if (AllowExponent && (Char == 'e' || Char == 'E')) return TInput::Exponent;
  return TInput::Other;
}

// Whether a number that is out of range is so by being large, not by being small: by the power of
// ten of its first digit that counts.
bool IsLarge(std::string_view Number) noexcept {
  const size_t exponentAt = std::min(Number.find('E'), Number.size());
  const std::string_view mantissa = Number.substr(0, exponentAt);
  const size_t point = std::min(mantissa.find('.'), mantissa.size());
  const size_t first = mantissa.find_first_of("123456789");
  if (first == std::string_view::npos) return false;
  const bool negative = exponentAt + 1 < Number.size() && Number[exponentAt + 1] == '-';
  int64_t exponent = 0;
  for (size_t i = exponentAt; i < Number.size(); ++i) {
    if (IsDigit(Number[i])) exponent = exponent * 10 + (Number[i] - '0');
  }
  const int64_t power = static_cast<int64_t>(point) - static_cast<int64_t>(first);
  return power + (negative ? -exponent : exponent) > 0;
}

double NumberOf(std::string_view Number) noexcept {
  double value = 0;
  const std::string_view unsignedText = Number.substr(Number[0] == '+' ? 1 : 0);
  const auto [end, error] =
      std::from_chars(unsignedText.data(), unsignedText.data() + unsignedText.size(), value);
  if (error == std::errc::result_out_of_range) {
    value = IsLarge(Number) ? std::numeric_limits<double>::max() : 0.0;
    return Number[0] == '-' ? -value : value;
  }
  return error == std::errc{} ? value : 0.0;
}

}  // namespace

int32_t ScanInteger(std::string_view Text, int32_t& Pos) noexcept {
  if (Text.empty()) return 0;
  TCursor cursor(Text, Pos);
  while (cursor.Current() == ' ') cursor.Advance();
  const bool negative = cursor.Current() == '-';
  if (negative || cursor.Current() == '+') cursor.Advance();
  uint32_t value = 0;
  for (; IsDigit(cursor.Current()); cursor.Advance()) {
    value = value * 10 + static_cast<uint32_t>(cursor.Current() - '0');
  }
  return static_cast<int32_t>(negative ? 0U - value : value);
}

double ScanFloat(std::string_view Text, bool AllowExponent, int32_t SeparatorMode, int32_t& Pos) {
  // Beyond this exponent nothing can change the value any more.
  constexpr int32_t AbsurdExponent = 4201;
  TCursor cursor(Text, Pos);
  std::string number;
  int32_t exponent = 0;
  for (TState state = TState::Start;; cursor.Advance()) {
    const int current = cursor.Current();
    const TInput input = Classify(current, AllowExponent, SeparatorMode);
    state = NextState[static_cast<size_t>(state)][static_cast<size_t>(input)];
    if (state == TState::Fail) return 0.0;
    if (state == TState::End) break;
    if (state == TState::Start || exponent >= AbsurdExponent) continue;
    if (state == TState::ExponentDigits) exponent = exponent * 10 + (current - '0');
    number += input == TInput::Separator  ? '.'
              : input == TInput::Exponent ? 'E'
                                          : static_cast<char>(current);
  }
  if (number.back() == '.') number += '0';
  return NumberOf(number);
}

uint32_t ScanHex(std::string_view Text, int32_t& Pos) noexcept {
  TCursor cursor(Text, Pos);
  uint32_t value = 0;
  for (; HexDigit(cursor.Current()) >= 0; cursor.Advance()) {
    value = value << 4 | static_cast<uint32_t>(HexDigit(cursor.Current()));
  }
  return value;
}

TDateTime ScanDateTime(std::string_view Text, std::string_view Format, int32_t& Pos) noexcept {
  constexpr std::string_view Letters = "ymdHMS";
  TDateTimeParts parts;
  int32_t* const fields[] = {&parts.Year, &parts.Month,  &parts.Day,
                             &parts.Hour, &parts.Minute, &parts.Second};
  TCursor cursor(Text, Pos);
  char last = 0;
  for (const char letter : Format) {
    const int current = cursor.Current();
    const size_t field = Letters.find(letter);
    if (field == std::string_view::npos) {
      if (current != static_cast<unsigned char>(letter)) return 0;
    } else {
      if (!IsDigit(current) || *fields[field] > 99999) return 0;
      *fields[field] = (letter == last ? *fields[field] * 10 : 0) + (current - '0');
    }
    last = letter;
    cursor.Advance();
  }
  TDateTime value = 0;
  EncodeDateTime(parts, value);
  return value;
}

}  // namespace zav
