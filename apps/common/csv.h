// csv.h - comma-separated values read record by record, and written.
//
// Fields may be in double quotes, with "" for a quote and line breaks inside. Lines end in LF, CR
// LF or CR; a byte order mark is skipped, and so are empty lines and lines that begin with "#". The
// separator is found out from the first record: tab, else ";", else ",".
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_COMMON_CSV_H
#define ZAV_APPS_COMMON_CSV_H

#include <cstdint>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace zav {

struct TCsvRecord {
  std::vector<std::string> Fields;  // without surrounding blanks unless they were quoted
  int64_t Line = 0;                 // the line it begins on, counted from 1
};

class TCsvReader {
 public:
  // Name is used in messages; the stream must outlive the reader.
  TCsvReader(std::istream& Input, std::string Name);

  // The next record; false at the end. Throws EInOutError when the input cannot be read or a quote
  // is left open.
  bool Next(TCsvRecord& Record);

  // The separator found; "," before the first record.
  char Separator() const noexcept { return FSeparator; }
  const std::string& Name() const noexcept { return FName; }

 private:
  struct TQuotes {
    bool Open = false;
    bool AtStart = true;  // of a field
    void Scan(std::string_view Text, char Separator);
  };

  bool ReadLine(std::string& Line);
  void Split(std::string_view Text, std::vector<std::string>& Fields) const;

  std::istream& FInput;
  std::string FName;
  std::string FText;  // of the record being read
  int64_t FLine = 0;
  char FSeparator = ',';
  bool FFirst = true;
};

// Appends a field to a line of comma-separated values, in quotes where it needs them.
void AppendCsvField(std::string& Line, std::string_view Field);

}  // namespace zav

#endif
