// table.h - tables of comma-separated values, read line by line.
//
// Columns are found by the names in the header line, in any order and case; a table whose first
// line holds a number has no header and is taken by position.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_COMMON_TABLE_H
#define ZAV_APPS_COMMON_TABLE_H

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <platform/base/errors.h>

#include "common/csv.h"

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
  // Reads from a stream, which must outlive the table; Name is used in messages.
  TTable(std::istream& Input, const std::string& Name);
  ~TTable();

  // Whether the header names the column; false without a header.
  bool HeaderHas(std::string_view Names) const;
  bool HasHeader() const noexcept { return FHasHeader; }
  // Where the header names the column.
  std::optional<size_t> HeaderField(std::string_view Names) const;
  // The fields of the first line, header or not; none for an empty table.
  const std::vector<std::string>& FirstFields() const noexcept { return FFirst.Fields; }
  // The first of them, empty for an empty table; their number.
  const std::string& FirstField() const;
  size_t Width() const noexcept { return FFirst.Fields.size(); }
  // What Text and Number are asked for by index. Throws EInOutError when the header lacks one.
  void SetColumns(std::vector<TColumn> Columns);
  // The same with the field of each column, from 0, given; none for an absent one.
  void SetColumns(std::vector<TColumn> Columns, std::vector<std::optional<size_t>> Fields);

  // Goes to the next line of data; false at the end.
  bool Next();
  // A field of the line; an absent optional one is empty. Throws ELineError when it is missing.
  const std::string& Text(size_t Column) const;
  // The same as a number, as a number within limits, and as an angle in degrees.
  double Number(size_t Column) const;
  double Number(size_t Column, double Low, double High) const;
  double Latitude(size_t Column) const { return Number(Column, -90, 90); }
  double Longitude(size_t Column) const { return Number(Column, -360, 360); }

  // As messages name the table.
  const std::string& Name() const noexcept { return FReader->Name(); }
  // Whether numbers may have a decimal comma: where fields are not separated by commas.
  bool DecimalComma() const noexcept { return FReader->Separator() != ','; }

  // The number of the line, and "FILE:LINE" for messages.
  int64_t Line() const noexcept { return FRecord.Line; }
  std::string Place() const;

 private:
  void ReadFirst();
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

}  // namespace zav

#endif
