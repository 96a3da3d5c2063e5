// table_row.h - rows of comma-separated values, written.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_COMMON_TABLE_ROW_H
#define ZAV_APPS_COMMON_TABLE_ROW_H

#include <string>
#include <string_view>

namespace zav {

// The shortest digits that read back as the same number, without an exponent where that is not too
// long: 2000000, not 2e+06.
std::string PlainNumber(double Value);

// One row. Numbers are the shortest text that reads back as the same number.
class TRow {
 public:
  TRow& operator<<(double Value);
  TRow& operator<<(int Value);
  TRow& operator<<(bool Value);
  TRow& operator<<(std::string_view Text);
  TRow& operator<<(const char* Text) { return *this << std::string_view(Text); }
  // The row with a line feed; it is empty afterwards.
  std::string Take();

 private:
  void Separate();

  std::string FText;
  bool FEmpty = true;
};

}  // namespace zav

#endif
