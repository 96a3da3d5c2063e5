// table.h - tables of comma-separated values turned into other tables, line by line.
//
// Columns are found by the names in the header line, in any order and case; a table whose first
// line holds a number has no header and is taken by position. A line that fails is told on standard
// error with file and line number and gives an empty row, so that input and output stay aligned.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_ZAVGEO_TABLE_H
#define ZAV_APPS_ZAVGEO_TABLE_H

#include <functional>
#include <initializer_list>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <platform/base/errors.h>

#include "csv.h"

namespace zav {

// What is wrong with one line of input, without file and line.
class ELineError : public EZAVError {
 public:
  using EZAVError::EZAVError;
};

// The whole of Text as a finite number; a decimal comma is taken where DecimalComma is set.
std::optional<double> ParseNumber(std::string_view Text, bool DecimalComma = false);

struct TColumn {
  std::string_view Names;  // separated by "|"; the first one is used in messages
  bool Optional = false;
};

class TTable {
 public:
  // File may be "-" for standard input. Reads the first line. Throws EInOutError.
  explicit TTable(const std::string& File);
  ~TTable();

  // Whether the header names the column; false without a header.
  bool HeaderHas(std::string_view Names) const;
  bool HasHeader() const noexcept { return FHasHeader; }
  // The number of fields of the first line.
  size_t Width() const noexcept { return FFirst.Fields.size(); }
  // What Text and Number are asked for by index. Throws EInOutError when the header lacks one.
  void SetColumns(std::vector<TColumn> Columns);

  // Goes to the next line of data; false at the end.
  bool Next();
  // A field of the line; an absent optional one is empty. Throws ELineError when it is missing.
  const std::string& Text(size_t Column) const;
  // The same as a number, as a number within limits, and as an angle in degrees.
  double Number(size_t Column) const;
  double Number(size_t Column, double Low, double High) const;
  double Latitude(size_t Column) const { return Number(Column, -90, 90); }
  double Longitude(size_t Column) const { return Number(Column, -360, 360); }

  // "FILE:LINE", for messages.
  std::string Place() const;

 private:
  std::string_view NameOf(size_t Column) const;

  std::unique_ptr<std::istream> FFile;  // empty for standard input
  std::unique_ptr<TCsvReader> FReader;
  TCsvRecord FFirst;
  TCsvRecord FRecord;
  bool FHasHeader = false;
  bool FFirstIsData = false;
  std::vector<TColumn> FColumns;
  std::vector<std::optional<size_t>> FFields;  // of each column
};

// One row of output. Numbers are the shortest text that reads back as the same number.
class TRow {
 public:
  TRow& operator<<(double Value);
  TRow& operator<<(int Value);
  TRow& operator<<(bool Value);
  TRow& operator<<(std::string_view Text);
  TRow& operator<<(const char* Text) { return *this << std::string_view(Text); }
  // Writes the row to standard output.
  void Print();

 private:
  void Separate();

  std::string FText;
  bool FEmpty = true;
};

struct TTableOptions {
  std::string File = "-";
  bool Strict = false;  // stop at the first line that fails
};

// Prints Header and a row for each line of the table, made by Convert; ends with 1 when a line
// failed, else 0. A failed row has as many empty fields as Header has names.
int ConvertTable(const TTableOptions& Options, std::vector<TColumn> Columns,
                 std::initializer_list<std::string_view> Header,
                 const std::function<void(const TTable& In, TRow& Out)>& Convert);

// Ends standard output. Throws EInOutError when something could not be written.
void FinishOutput();

// Prints "zavgeo: TEXT" on standard error.
void PrintError(const std::string& Text);
void PrintWarning(const std::string& Text);

}  // namespace zav

#endif
