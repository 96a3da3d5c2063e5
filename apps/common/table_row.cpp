// table_row.cpp - fields of a row.
// SPDX-License-Identifier: MIT
#include "common/table_row.h"

#include <platform/base/text_format.h>

#include <charconv>
#include <cmath>
#include <iterator>
#include <utility>

#include "common/csv.h"

namespace zav {

std::string PlainNumber(double Value) {
  const double Size = std::fabs(Value);
  if (Size != 0 && (Size < 1e-7 || Size >= 1e15)) return ShortestNumber(Value);
  char Buffer[64];
  const auto [End, Error] =
      std::to_chars(std::begin(Buffer), std::end(Buffer), Value, std::chars_format::fixed);
  return Error == std::errc() ? std::string(Buffer, End) : ShortestNumber(Value);
}

void TRow::Separate() {
  if (!FEmpty) FText += ',';
  FEmpty = false;
}

TRow& TRow::operator<<(double Value) {
  Separate();
  FText += PlainNumber(Value);
  return *this;
}

TRow& TRow::operator<<(int Value) {
  Separate();
  FText += IntegerText(Value);
  return *this;
}

TRow& TRow::operator<<(bool Value) { return *this << (Value ? "true" : "false"); }

TRow& TRow::operator<<(std::string_view Text) {
  Separate();
  AppendCsvField(FText, Text);
  return *this;
}

std::string TRow::Take() {
  FText += '\n';
  FEmpty = true;
  return std::exchange(FText, {});
}

}  // namespace zav
