// table_output.h - tables on standard output, messages on standard error.
//
// A line that fails is told on standard error with file and line number and gives an empty row, so
// that input and output stay aligned.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_ZAVGEO_TABLE_OUTPUT_H
#define ZAV_APPS_ZAVGEO_TABLE_OUTPUT_H

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "common/table.h"
#include "common/table_row.h"

namespace zav {

// Writes the row to standard output and empties it.
void Print(TRow& Row);

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
