// landmark_table.cpp - see landmark_table.h.
// SPDX-License-Identifier: MIT
#include "common/landmark_table.h"

#include <vector>

#include <platform/base/text_format.h>

namespace zav {

namespace {

constexpr size_t FieldsWithoutHeader = 3;

TLandMarkField FieldAt(size_t Index) { return static_cast<TLandMarkField>(Index); }

// The table's columns for reading fields by number.
void Choose(TTable& Table, const TLandMarkSources& Sources) {
  std::vector<TColumn> Columns;
  for (size_t I = 0; I < NumLandMarkFields; ++I) {
    Columns.push_back(LandMarkColumn(FieldAt(I)));
    if (!Sources[I] && !Columns.back().Optional) {
      throw EInOutError(Table.Name(),
                        "there is no column " + std::string(LandMarkFieldName(FieldAt(I))));
    }
  }
  Table.SetColumns(std::move(Columns), {Sources.begin(), Sources.end()});
}

}  // namespace

TLandMarkSources ProposeSources(const TTable& Table) {
  TLandMarkSources Sources;
  for (size_t I = 0; I < NumLandMarkFields; ++I) {
    if (Table.HasHeader())
      Sources[I] = Table.HeaderField(LandMarkColumn(FieldAt(I)).Names);
    else if (I < FieldsWithoutHeader && I < Table.Width())
      Sources[I] = I;
  }
  return Sources;
}

int32_t ImportLandMarks(TTable& Table, const TLandMarkSources& Sources, const TLandMark& Template,
                        TLandMarkList& List,
                        const std::function<bool(const TImportProblem&)>& Problem) {
  Choose(Table, Sources);
  const auto Tell = [&](const std::string& Reason, bool Taken) {
    return Problem({Table.Place() + ": " + Reason, Taken});
  };
  int32_t Added = 0;
  while (Table.Next()) {
    try {
      TLandMark LandMark = Template;
      std::string Cut;
      for (size_t I = 0; I < NumLandMarkFields; ++I) {
        if (!Sources[I]) continue;
        const std::string& Text = Table.Text(I);
        if (Text.empty()) continue;
        if (!SetLandMarkField(LandMark, FieldAt(I), Text, Table.DecimalComma()))
          Cut = std::string(LandMarkFieldName(FieldAt(I))) + " \"" + Text + "\" is too long";
      }
      if (!Cut.empty() && !Tell(Cut + " and was cut", true)) return Added;
      List.Append(LandMark);
      ++Added;
    } catch (const ELineError& Error) {
      if (!Tell(Error.what(), false)) return Added;
    }
  }
  return Added;
}

TRow LandMarkHeader() {
  TRow Row;
  for (size_t I = 0; I < NumLandMarkFields; ++I) Row << LandMarkFieldName(FieldAt(I));
  return Row;
}

TRow LandMarkRow(const TLandMark& LandMark) {
  TRow Row;
  for (size_t I = 0; I < NumLandMarkFields; ++I) Row << LandMarkFieldText(LandMark, FieldAt(I));
  return Row;
}

}  // namespace zav
