// table_output.cpp - what goes to standard output and standard error.
// SPDX-License-Identifier: MIT
#include "table_output.h"

#include <iostream>
#include <utility>

namespace zav {

void Print(TRow& Row) { std::cout << Row.Take(); }

int ConvertTable(const TTableOptions& Options, std::vector<TColumn> Columns,
                 std::initializer_list<std::string_view> Header,
                 const std::function<void(const TTable& In, TRow& Out)>& Convert) {
  TTable Table(Options.File);
  Table.SetColumns(std::move(Columns));
  TRow Names;
  TRow Blank;
  for (const std::string_view Name : Header) {
    Names << Name;
    Blank << "";
  }
  Print(Names);
  int Status = 0;
  while (Table.Next() && std::cout) {
    TRow Row;
    try {
      Convert(Table, Row);
    } catch (const ELineError& Error) {
      PrintError(Table.Place() + ": " + Error.what());
      Status = 1;
      if (Options.Strict) break;
      Row = Blank;
    }
    Print(Row);
  }
  return Status;
}

void FinishOutput() {
  std::cout.flush();
  if (!std::cout) throw EInOutError("standard output", "cannot be written");
}

void PrintError(const std::string& Text) {
  std::cout.flush();  // in order where both go to the same place
  std::cerr << "zavgeo: " << Text << '\n';
}

void PrintWarning(const std::string& Text) { PrintError("warning: " + Text); }

}  // namespace zav
