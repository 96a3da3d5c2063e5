// csv.cpp - splitting and quoting.
// SPDX-License-Identifier: MIT
#include "common/csv.h"

#include <platform/base/errors.h>
#include <platform/base/text_format.h>

#include <algorithm>
#include <utility>

namespace zav {

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

bool IsBlank(char C) { return C == ' ' || C == '\t'; }

std::string_view Trim(std::string_view Text) {
  while (!Text.empty() && IsBlank(Text.front())) Text.remove_prefix(1);
  while (!Text.empty() && IsBlank(Text.back())) Text.remove_suffix(1);
  return Text;
}

char FindSeparator(std::string_view Text) {
  bool Quoted = false;
  bool Semicolon = false;
  for (const char C : Text) {
    if (C == '"') Quoted = !Quoted;
    if (Quoted) continue;
    if (C == '\t') return '\t';
    if (C == ';') Semicolon = true;
  }
  return Semicolon ? ';' : ',';
}

}  // namespace

TCsvReader::TCsvReader(std::istream& Input, std::string Name)
    : FInput(Input), FName(std::move(Name)) {}

// Appends the next line without its end. Character by character, because a lone CR ends a line too.
bool TCsvReader::ReadLine(std::string& Line) {
  using TTraits = std::istream::traits_type;
  std::streambuf& Buffer = *FInput.rdbuf();
  try {
    auto C = Buffer.sbumpc();
    if (TTraits::eq_int_type(C, TTraits::eof())) return false;
    ++FLine;
    for (; !TTraits::eq_int_type(C, TTraits::eof()); C = Buffer.sbumpc()) {
      if (C == '\n') break;
      if (C == '\r') {
        if (Buffer.sgetc() == '\n') Buffer.sbumpc();
        break;
      }
      Line += TTraits::to_char_type(C);
    }
  } catch (const std::ios_base::failure&) {  // a folder, a failing disk
    throw EInOutError(FName, "cannot be read");
  }
  return true;
}

// Goes on through the text of a record. A quote opens a field only where that begins.
void TCsvReader::TQuotes::Scan(std::string_view Text, char Separator) {
  for (const char C : Text) {
    if (C == '"' && (Open || AtStart)) Open = !Open;
    if (!Open) AtStart = C == Separator || C == '"' || (AtStart && IsBlank(C));
  }
}

void TCsvReader::Split(std::string_view Text, std::vector<std::string>& Fields) const {
  Fields.clear();
  for (size_t Pos = 0; Pos <= Text.size(); ++Pos) {
    while (Pos < Text.size() && Text[Pos] != FSeparator && IsBlank(Text[Pos])) ++Pos;
    std::string Field;
    if (Pos < Text.size() && Text[Pos] == '"') {
      for (++Pos; Pos < Text.size(); ++Pos) {
        if (Text[Pos] == '"') {
          if (Pos + 1 >= Text.size() || Text[Pos + 1] != '"') break;
          ++Pos;
        }
        Field += Text[Pos];
      }
      if (Pos < Text.size()) ++Pos;
    }
    const size_t End = std::min(Text.find(FSeparator, Pos), Text.size());
    Field += Trim(Text.substr(Pos, End - Pos));
    Fields.push_back(std::move(Field));
    Pos = End;
  }
}

bool TCsvReader::Next(TCsvRecord& Record) {
  while (true) {
    FText.clear();
    if (!ReadLine(FText)) return false;
    std::string_view Start = FText;
    if (FLine == 1 && Start.substr(0, ByteOrderMark.size()) == ByteOrderMark) {
      FText.erase(0, ByteOrderMark.size());
      Start = FText;
    }
    if (!Trim(Start).empty() && Start.front() != '#') break;
  }
  Record.Line = FLine;
  if (FFirst) FSeparator = FindSeparator(FText);
  FFirst = false;
  TQuotes Quotes;
  Quotes.Scan(FText, FSeparator);
  while (Quotes.Open) {
    const size_t Scanned = FText.size();
    FText += '\n';
    if (!ReadLine(FText))
      throw EInOutError(FName, "line " + IntegerText(Record.Line) + ": a quote is not closed");
    Quotes.Scan(std::string_view(FText).substr(Scanned), FSeparator);
  }
  Split(FText, Record.Fields);
  return true;
}

void AppendCsvField(std::string& Line, std::string_view Field) {
  const bool Plain = Field.find_first_of(",;\t\"\r\n") == std::string_view::npos &&
                     Trim(Field).size() == Field.size() && (Field.empty() || Field.front() != '#');
  if (Plain) {
    Line += Field;
    return;
  }
  Line += '"';
  for (const char C : Field) {
    if (C == '"') Line += '"';
    Line += C;
  }
  Line += '"';
}

}  // namespace zav
