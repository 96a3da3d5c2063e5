// field_line.h - lines of comma-separated fields, written and read one field after the other.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_FIELD_LINE_H
#define ZAV_APPS_VIEWER_FIELD_LINE_H

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <platform/base/geometry.h>
#include <platform/base/text_format.h>

#include "common/csv.h"
#include "common/table.h"

namespace zav {

// A line under construction.
class FieldLine {
 public:
  explicit FieldLine(std::string_view Kind) : FText(Kind) {}
  FieldLine& operator<<(std::string_view Field) {
    FText += ',';
    AppendCsvField(FText, Field);
    return *this;
  }
  FieldLine& operator<<(double Value) { return *this << ShortestNumber(Value); }
  FieldLine& operator<<(TPoint Pixel) { return whole(Pixel.X).whole(Pixel.Y); }
  FieldLine& whole(int64_t Value) { return *this << IntegerText(Value); }
  std::string Take() { return std::move(FText) + "\r\n"; }

 private:
  std::string FText;
};

// A line that is not as it should be.
struct EFieldLine {};

// The fields behind the first. All throw EFieldLine.
class FieldReader {
 public:
  // The line must outlive the reader.
  explicit FieldReader(const std::vector<std::string>& Line) : FLine(Line) {}

  const std::string& Text() {
    if (FNext >= FLine.size()) throw EFieldLine();
    return FLine[FNext++];
  }
  double Number(double Most) {
    const auto Value = ParseNumber(Text());
    if (!Value || std::abs(*Value) > Most) throw EFieldLine();
    return *Value + 0.0;
  }
  int64_t Whole(double Most) {
    const double Value = Number(Most);
    if (Value != std::floor(Value)) throw EFieldLine();
    return static_cast<int64_t>(Value);
  }
  bool NextIsEmpty() const { return FNext < FLine.size() && FLine[FNext].empty(); }

 private:
  const std::vector<std::string>& FLine;
  size_t FNext = 1;
};

}  // namespace zav

#endif
