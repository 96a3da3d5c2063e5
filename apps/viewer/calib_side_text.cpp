// calib_side_text.cpp - the text of the viewer's side file, taken apart.
// SPDX-License-Identifier: MIT
#include "calib_side_text.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include <geomap/calibration/calib_file.h>
#include <platform/base/errors.h>
#include <platform/base/text.h>

#include "calib_document_private.h"
#include "common/csv.h"
#include "field_line.h"

namespace zav {

namespace {

constexpr double MaxPixel = 1000000;

using Fields = std::vector<std::string>;

std::vector<std::string_view> LinesOf(std::string_view Text) {
  std::vector<std::string_view> Lines;
  while (!Text.empty()) {
    const size_t End = std::min(Text.find('\n'), Text.size());
    std::string_view Line = Text.substr(0, End);
    if (!Line.empty() && Line.back() == '\r') Line.remove_suffix(1);
    Lines.push_back(Line);
    Text.remove_prefix(std::min(End + 1, Text.size()));
  }
  return Lines;
}

// The fields of a line; none for one that is empty, a comment or damaged.
Fields FieldsOf(std::string_view Line) {
  std::istringstream Input{std::string(Line)};
  TCsvReader Reader(Input, "");
  TCsvRecord Record;
  try {
    if (Reader.Next(Record) && Reader.Separator() == ',') return Record.Fields;
  } catch (const EInOutError&) {  // a quote that is not closed
  }
  return {};
}

// The fields of an item's line.
class SideReader : public FieldReader {
 public:
  using FieldReader::FieldReader;

  bool South() {
    const std::string& Word = Text();
    if (Word != "north" && Word != "south") throw EFieldLine();
    return Word == "south";
  }
  SideState State() {
    const std::string& Word = Text();
    if (Word == "on") return SideState::On;
    if (Word == "off") return SideState::Off;
    if (Word == "waiting") return SideState::Waiting;
    throw EFieldLine();
  }
  TPoint Pixel() {
    const auto X = static_cast<int32_t>(Whole(MaxPixel));
    return {X, static_cast<int32_t>(Whole(MaxPixel))};
  }
};

CalibPosition ReadUtm(SideReader& Reader) {
  const double Northing = Reader.Number(1e8);
  const double Easting = Reader.Number(1e8);
  if (Reader.NextIsEmpty()) {
    Reader.Text();
    Reader.Text();
    return CalibPosition::OfUtm(Northing, Easting);
  }
  const auto Zone = static_cast<int32_t>(Reader.Whole(60));
  if (Zone < 1) throw EFieldLine();
  return CalibPosition::OfUtm(Northing, Easting, Zone, Reader.South());
}

bool IsItemKind(const std::string& Kind) {
  return Kind == "point" || Kind == "utm" || Kind == "meridian" || Kind == "parallel";
}

void ReadLine(const Fields& Line, SidePart& Part) {
  if (IsItemKind(Line[0])) {
    Part.Items.push_back(ReadSideItem(Line));
    return;
  }
  SideReader Reader(Line);
  if (Line[0] == "image") {
    Part.Image = Reader.Text();
  } else if (Line[0] == "model") {
    Part.Model = FindCalibModel(Reader.Text());
  } else if (Line[0] == "zone") {
    if (Reader.Whole(60) != 60) throw EFieldLine();
    Part.Zone60South = Reader.South();
  } else {
    throw EFieldLine();
  }
}

}  // namespace

SideItem ReadSideItem(const std::vector<std::string>& Line) {
  SideReader Reader(Line);
  SideItem Side;
  Side.State = Reader.State();
  const std::string& Kind = Line[0];
  if (Kind == "point") {
    const double Lat = Reader.Number(1e300);
    Side.Item.Position = CalibPosition::OfDegrees(Lat, Reader.Number(1e300));
  } else if (Kind == "utm") {
    Side.Item.Position = ReadUtm(Reader);
  } else {
    Side.Item.Kind = Kind == "meridian" ? CalibItemKind::Meridian : CalibItemKind::Parallel;
    Side.Item.Value = Reader.Number(1e300);
  }
  Side.Item.Pixel = Reader.Pixel();
  Side.Item.Name = CleanName(QString::fromStdString(Reader.Text()));
  return Side;
}

SideText SidePartsOf(std::string_view Text) {
  SideText Result;
  const std::vector<std::string_view> Lines = LinesOf(Text);
  if (Lines.empty()) return Result;
  const Fields First = FieldsOf(Lines[0]);
  Result.Unknown = First.size() < 2 || First[0] != SideSignature || First[1] != SideVersion;
  if (Result.Unknown) return Result;
  for (size_t i = 1; i < Lines.size(); ++i) {
    if (TrimBlanks(Lines[i]).empty() || Lines[i].front() == '#') continue;
    const Fields Line = FieldsOf(Lines[i]);
    if (Line.size() >= 2 && Line[0] == "calibration")
      Result.Parts.push_back({Line[1], {}});
    else if (Result.Parts.empty())
      ++Result.Damaged;
    else
      Result.Parts.back().Lines.push_back(Lines[i]);
  }
  return Result;
}

SidePart ReadSidePart(const SideText::Part& Text, int& Damaged) {
  SidePart Part;
  for (const std::string_view Each : Text.Lines) {
    const Fields Line = FieldsOf(Each);
    try {
      if (Line.empty()) throw EFieldLine();
      ReadLine(Line, Part);
    } catch (const EFieldLine&) {
      ++Damaged;
    }
  }
  return Part;
}

}  // namespace zav
