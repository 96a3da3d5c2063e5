// table.cpp - columns, lines, rows.
// SPDX-License-Identifier: MIT
#include "table.h"

#include <platform/base/text.h>
#include <platform/base/text_format.h>

#include <charconv>
#include <cmath>
#include <fstream>
#include <iostream>
#include <iterator>
#include <utility>

namespace zav {

namespace {

std::string_view FirstName(std::string_view Names) { return Names.substr(0, Names.find('|')); }

std::optional<size_t> FindField(const std::vector<std::string>& Header, std::string_view Names) {
  while (!Names.empty()) {
    const std::string_view Name = FirstName(Names);
    for (size_t i = 0; i < Header.size(); ++i)
      if (SameText(Header[i], Name)) return i;
    Names.remove_prefix(std::min(Name.size() + 1, Names.size()));
  }
  return std::nullopt;
}

// The shortest digits that read back as the same number, without an exponent where that is not too
// long: 2000000, not 2e+06.
std::string PlainNumber(double Value) {
  const double Size = std::fabs(Value);
  if (Size != 0 && (Size < 1e-7 || Size >= 1e15)) return ShortestNumber(Value);
  char Buffer[64];
  const auto [End, Error] =
      std::to_chars(std::begin(Buffer), std::end(Buffer), Value, std::chars_format::fixed);
  return Error == std::errc() ? std::string(Buffer, End) : ShortestNumber(Value);
}

}  // namespace

std::optional<double> ParseNumber(std::string_view Text, bool DecimalComma) {
  Text = TrimBlanks(Text);
  std::string WithPoint;
  if (DecimalComma) {
    WithPoint = Text;
    const size_t Comma = WithPoint.find(',');
    if (Comma != std::string::npos) WithPoint[Comma] = '.';
    Text = WithPoint;
  }
  if (Text.size() > 1 && Text[0] == '+' && Text[1] != '-') Text.remove_prefix(1);
  double Value = 0;
  const auto [End, Error] = std::from_chars(Text.data(), Text.data() + Text.size(), Value);
  if (Error != std::errc() || End != Text.data() + Text.size() || !std::isfinite(Value))
    return std::nullopt;
  return Value;
}

TTable::TTable(const std::string& File) {
  const bool Standard = File == "-";
  if (!Standard) {
    FFile = std::make_unique<std::ifstream>(File, std::ios::binary);
    if (!*FFile) throw EInOutError(File, "cannot be opened");
  }
  FReader = std::make_unique<TCsvReader>(Standard ? std::cin : *FFile,
                                         Standard ? std::string("standard input") : File);
  if (!FReader->Next(FFirst)) return;
  FHasHeader = true;
  for (const std::string& Field : FFirst.Fields)
    if (ParseNumber(Field, FReader->Separator() != ',')) FHasHeader = false;
  FFirstIsData = !FHasHeader;
}

TTable::~TTable() = default;

bool TTable::HeaderHas(std::string_view Names) const {
  return FHasHeader && FindField(FFirst.Fields, Names).has_value();
}

void TTable::SetColumns(std::vector<TColumn> Columns) {
  FColumns = std::move(Columns);
  FFields.clear();
  for (size_t i = 0; i < FColumns.size(); ++i) {
    const auto Field =
        FHasHeader ? FindField(FFirst.Fields, FColumns[i].Names) : std::optional<size_t>(i);
    if (!Field && !FColumns[i].Optional)
      throw EInOutError(FReader->Name() + ":" + IntegerText(FFirst.Line),
                        "there is no column " + std::string(NameOf(i)));
    FFields.push_back(Field);
  }
}

bool TTable::Next() {
  if (FFirstIsData) {
    FFirstIsData = false;
    FRecord = FFirst;
    return true;
  }
  return FReader->Next(FRecord);
}

std::string_view TTable::NameOf(size_t Column) const { return FirstName(FColumns[Column].Names); }

const std::string& TTable::Text(size_t Column) const {
  static const std::string Absent;
  const std::optional<size_t> Field = FFields[Column];
  if (Field && *Field < FRecord.Fields.size() && !FRecord.Fields[*Field].empty())
    return FRecord.Fields[*Field];
  if (!FColumns[Column].Optional) throw ELineError(std::string(NameOf(Column)) + " is missing");
  return Absent;
}

double TTable::Number(size_t Column) const {
  const std::string& Field = Text(Column);
  const auto Value = ParseNumber(Field, FReader->Separator() != ',');
  if (!Value) throw ELineError(std::string(NameOf(Column)) + " \"" + Field + "\" is not a number");
  return *Value;
}

double TTable::Number(size_t Column, double Low, double High) const {
  const double Value = Number(Column);
  if (Value < Low || Value > High)
    throw ELineError(std::string(NameOf(Column)) + " " + Text(Column) + " is outside " +
                     ShortestNumber(Low) + ".." + ShortestNumber(High));
  return Value;
}

std::string TTable::Place() const { return FReader->Name() + ":" + IntegerText(FRecord.Line); }

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

void TRow::Print() {
  FText += '\n';
  std::cout.write(FText.data(), static_cast<std::streamsize>(FText.size()));
  FText.clear();
  FEmpty = true;
}

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
  Names.Print();
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
    Row.Print();
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
