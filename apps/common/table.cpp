// table.cpp - columns and lines.
// SPDX-License-Identifier: MIT
#include "common/table.h"

#include <platform/base/text.h>
#include <platform/base/text_format.h>

#include <charconv>
#include <cmath>
#include <fstream>
#include <iostream>
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
  ReadFirst();
}

TTable::TTable(std::istream& Input, const std::string& Name)
    : FReader(std::make_unique<TCsvReader>(Input, Name)) {
  ReadFirst();
}

void TTable::ReadFirst() {
  if (!FReader->Next(FFirst)) return;
  FHasHeader = true;
  for (const std::string& Field : FFirst.Fields)
    if (ParseNumber(Field, FReader->Separator() != ',')) FHasHeader = false;
  FFirstIsData = !FHasHeader;
}

TTable::~TTable() = default;

bool TTable::HeaderHas(std::string_view Names) const { return HeaderField(Names).has_value(); }

std::optional<size_t> TTable::HeaderField(std::string_view Names) const {
  return FHasHeader ? FindField(FFirst.Fields, Names) : std::nullopt;
}

const std::string& TTable::FirstField() const {
  static const std::string Absent;
  return FFirst.Fields.empty() ? Absent : FFirst.Fields.front();
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

void TTable::SetColumns(std::vector<TColumn> Columns, std::vector<std::optional<size_t>> Fields) {
  FColumns = std::move(Columns);
  FFields = std::move(Fields);
  FFields.resize(FColumns.size());
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
  const auto Value = ParseNumber(Field, DecimalComma());
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

}  // namespace zav
