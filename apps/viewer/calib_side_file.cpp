// calib_side_file.cpp - reading, writing and applying the viewer's side file.
// SPDX-License-Identifier: MIT
#include "calib_side_file.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <sstream>
#include <string_view>

#include <QCoreApplication>

#include <geomap/calibration/calib_file.h>
#include <geomap/calibration/calibration.h>
#include <platform/base/errors.h>
#include <platform/base/stream.h>
#include <platform/base/text.h>
#include <platform/base/text_format.h>
#include <platform/qt/qt_convert.h>

#include "calib_document_private.h"
#include "common/csv.h"
#include "common/table.h"

namespace zav {

namespace {

constexpr std::string_view Signature = "zavgeo-viewer-points";
constexpr std::string_view Version = "1";
constexpr double MaxPixel = 1000000;
// Half a unit of the fifth decimal, which the calibration file rounds to, and a little.
constexpr double StoredTolerance = 0.000006;

QString Tr(const char* Text) { return QCoreApplication::translate("CalibDocument", Text); }

// --- reading -------------------------------------------------------------------------------------

enum class SideState { On, Off, Waiting };

struct SideItem {
  CalibItem Item;
  SideState State = SideState::On;
};

struct SidePart {
  std::string Image;
  std::optional<TCalibModel> Model;
  std::optional<bool> Zone60South;
  std::vector<SideItem> Items;
};

using Fields = std::vector<std::string>;

// A line that is not as it should be.
struct ESideLine {};

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

// The fields of an item's line, one after the other. Throws ESideLine.
class FieldReader {
 public:
  explicit FieldReader(const Fields& Line) : FLine(Line) {}

  const std::string& Text() {
    if (FNext >= FLine.size()) throw ESideLine();
    return FLine[FNext++];
  }
  double Number(double Most) {
    const auto Value = ParseNumber(Text());
    if (!Value || std::abs(*Value) > Most) throw ESideLine();
    return *Value + 0.0;
  }
  int32_t Whole(double Most) {
    const double Value = Number(Most);
    if (Value != std::floor(Value)) throw ESideLine();
    return static_cast<int32_t>(Value);
  }
  bool South() {
    const std::string& Word = Text();
    if (Word != "north" && Word != "south") throw ESideLine();
    return Word == "south";
  }
  SideState State() {
    const std::string& Word = Text();
    if (Word == "on") return SideState::On;
    if (Word == "off") return SideState::Off;
    if (Word == "waiting") return SideState::Waiting;
    throw ESideLine();
  }
  TPoint Pixel() {
    const int32_t X = Whole(MaxPixel);
    return {X, Whole(MaxPixel)};
  }
  bool NextIsEmpty() const { return FNext < FLine.size() && FLine[FNext].empty(); }

 private:
  const Fields& FLine;
  size_t FNext = 1;
};

CalibPosition ReadUtm(FieldReader& Reader) {
  const double Northing = Reader.Number(1e8);
  const double Easting = Reader.Number(1e8);
  if (Reader.NextIsEmpty()) {
    Reader.Text();
    Reader.Text();
    return CalibPosition::OfUtm(Northing, Easting);
  }
  const int32_t Zone = Reader.Whole(60);
  if (Zone < 1) throw ESideLine();
  return CalibPosition::OfUtm(Northing, Easting, Zone, Reader.South());
}

SideItem ReadItem(const Fields& Line) {
  FieldReader Reader(Line);
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

bool IsItemKind(const std::string& Kind) {
  return Kind == "point" || Kind == "utm" || Kind == "meridian" || Kind == "parallel";
}

void ReadLine(const Fields& Line, SidePart& Part) {
  if (IsItemKind(Line[0])) {
    Part.Items.push_back(ReadItem(Line));
    return;
  }
  FieldReader Reader(Line);
  if (Line[0] == "image") {
    Part.Image = Reader.Text();
  } else if (Line[0] == "model") {
    Part.Model = FindCalibModel(Reader.Text());
  } else if (Line[0] == "zone") {
    if (Reader.Whole(60) != 60) throw ESideLine();
    Part.Zone60South = Reader.South();
  } else {
    throw ESideLine();
  }
}

// The parts of a side file: their ids with their lines.
struct SideText {
  struct Part {
    std::string Id;
    std::vector<std::string_view> Lines;  // without the first
  };
  std::vector<Part> Parts;
  int Damaged = 0;       // lines
  bool Unknown = false;  // no side file, or one of another version
};

SideText PartsOf(std::string_view Text) {
  SideText Result;
  const std::vector<std::string_view> Lines = LinesOf(Text);
  if (Lines.empty()) return Result;
  const Fields First = FieldsOf(Lines[0]);
  Result.Unknown = First.size() < 2 || First[0] != Signature || First[1] != Version;
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

SidePart ReadPart(const SideText::Part& Text, int& Damaged) {
  SidePart Part;
  for (const std::string_view Each : Text.Lines) {
    const Fields Line = FieldsOf(Each);
    try {
      if (Line.empty()) throw ESideLine();
      ReadLine(Line, Part);
    } catch (const ESideLine&) {
      ++Damaged;
    }
  }
  return Part;
}

// --- applying ------------------------------------------------------------------------------------

// Whether an item of the side file is the one of the calibration file.
bool SameStored(const CalibItem& Side, const CalibItem& Stored, TCalibModel Model,
                const UtmGrid& Grid) {
  if (Side.Kind != Stored.Kind || Side.Pixel != Stored.Pixel) return false;
  if (Side.IsLinePoint()) return Side.Value == Stored.Value;
  const auto Near = [](double A, double B) { return std::abs(A - B) <= StoredTolerance; };
  if (Model == TCalibModel::cmUTM) {
    const auto A = MetresOf(Side.Position, Grid);
    const auto B = MetresOf(Stored.Position, Grid);
    return A && B && Near(A->Northing, B->Northing) && Near(A->Easting, B->Easting);
  }
  const auto A = DegreesOf(Side.Position, Grid);
  const auto B = DegreesOf(Stored.Position, Grid);
  return A && B && Near(A->Latit, B->Latit) && Near(A->Longit, B->Longit);
}

class Merger {
 public:
  Merger(const SidePart& Part, SideMerge& Merge) : FPart(Part), FMerge(Merge) {}

  void Run(const std::string& Image) {
    std::vector<CalibItem> Stored = std::move(FMerge.Items);
    std::vector<CalibItem> Merged;
    for (const SideItem& Side : FPart.Items) Take(Side, Stored, Merged);
    const bool OtherMap = FMatched == 0 && FDropped > 0 && !SameText(Image, FPart.Image);
    if (OtherMap) {
      FMerge.Items = FAllStored;
      FMerge.Notes.append(
          Tr("The file with the points' names belongs to another map and is not "
             "used."));
      return;
    }
    Merged.insert(Merged.end(), Stored.begin(), Stored.end());
    FMerge.Items = std::move(Merged);
    if (FDropped > 0)
      FMerge.Notes.append(Tr("The calibration was changed by another program: %1 points are not "
                             "as they were, and their names are dropped.")
                              .arg(FDropped));
  }

  void KeepStored() { FAllStored = FMerge.Items; }

 private:
  void Take(const SideItem& Side, std::vector<CalibItem>& Stored, std::vector<CalibItem>& Merged) {
    const auto Found = std::find_if(Stored.begin(), Stored.end(), [&](const CalibItem& Each) {
      return SameStored(Side.Item, Each, FMerge.Model, FMerge.Grid);
    });
    if (Found != Stored.end()) {
      Merged.push_back(Side.Item);
      Stored.erase(Found);
      ++FMatched;
    } else if (Side.State != SideState::On) {
      Merged.push_back(Side.Item);
      Merged.back().Enabled = Side.State == SideState::Waiting;
    } else {
      ++FDropped;
    }
  }

  const SidePart& FPart;
  SideMerge& FMerge;
  std::vector<CalibItem> FAllStored;
  int FMatched = 0;
  int FDropped = 0;
};

bool GraticuleComplete(const TCalibData& Data) {
  TCalibration Calibration;
  Calibration.SetDataUnfitted(Data, TCalibModel::cmParabolicIp);
  return Calibration.RecalcGratMat();
}

// --- writing -------------------------------------------------------------------------------------

// A line of fields under construction.
class LineText {
 public:
  explicit LineText(std::string_view Kind) : FText(Kind) {}
  LineText& operator<<(std::string_view Field) {
    FText += ',';
    AppendCsvField(FText, Field);
    return *this;
  }
  LineText& operator<<(double Value) { return *this << ShortestNumber(Value); }
  LineText& operator<<(TPoint Pixel) {
    return *this << IntegerText(Pixel.X) << IntegerText(Pixel.Y);
  }
  std::string Take() { return std::move(FText) + "\r\n"; }

 private:
  std::string FText;
};

std::string_view HemisphereWord(bool South) { return South ? "south" : "north"; }

std::string ItemLine(const CalibItem& Item, bool Stored) {
  const std::string_view State = Stored ? "on" : Item.Enabled ? "waiting" : "off";
  const CalibPosition& Position = Item.Position;
  const auto Finish = [&](LineText& Line) {
    Line << Item.Pixel << FromQString(Item.Name);
    return Line.Take();
  };
  if (Item.IsLinePoint()) {
    LineText Line(Item.Kind == CalibItemKind::Meridian ? "meridian" : "parallel");
    Line << State << Item.Value;
    return Finish(Line);
  }
  if (!Position.IsUtm) {
    LineText Line("point");
    Line << State << Position.Degrees.Latit << Position.Degrees.Longit;
    return Finish(Line);
  }
  LineText Line("utm");
  Line << State << Position.Metres.Northing << Position.Metres.Easting;
  if (Position.Zone == 0)
    Line << std::string_view() << std::string_view();
  else
    Line << IntegerText(Position.Zone) << HemisphereWord(Position.South);
  return Finish(Line);
}

// What the calibration file alone would give back.
SideMerge ReadBack(const CalibState& State, const CalibRecord& Record) {
  TMemoryStream Stream;
  WriteCalDataToStream(Stream, "", Record.Data, State.Model, "");
  Stream.SetPosition(0);
  TCalibData Data;
  TCalibModel Model = TCalibModel::cmUndefined;
  ParseCalibData(Stream, "", Data, Model);
  return MergeSideText("", "", Data, Model);
}

bool SameItems(const std::vector<CalibItem>& Plain, const std::vector<CalibItemPtr>& Items) {
  return std::equal(Plain.begin(), Plain.end(), Items.begin(), Items.end(),
                    [](const CalibItem& A, const CalibItemPtr& B) {
                      CalibItem Same = *B;
                      Same.Id = 0;
                      return A == Same;
                    });
}

// The part of a state; empty when the calibration file tells it all.
std::string PartText(const std::string& Id, const CalibState& State) {
  const CalibRecord Record = RecordOf(State);
  const SideMerge Plain = ReadBack(State, Record);
  const bool ModelTold = Plain.Model == State.Model;
  const bool ZoneTold = Plain.Grid.Zone == State.Grid.Zone;
  if (ModelTold && ZoneTold && SameItems(Plain.Items, State.Items)) return {};
  std::string Text = (LineText("calibration") << Id).Take();
  Text += (LineText("image") << State.ImageName).Take();
  if (!ModelTold) Text += (LineText("model") << CalibModelKeyword(State.Model)).Take();
  if (State.Grid.Zone == 60)
    Text += (LineText("zone") << "60" << HemisphereWord(State.Grid.South)).Take();
  for (size_t i = 0; i < State.Items.size(); ++i)
    Text += ItemLine(*State.Items[i], Record.Stored[i]);
  return Text;
}

}  // namespace

std::string SideFileName(const std::string& CalibrationFile) { return CalibrationFile + ".points"; }

std::vector<CalibItem> ItemsOfRecord(const TCalibData& Data, TCalibModel Model) {
  std::vector<CalibItem> Items;
  for (int32_t i = 0; i < Data.NumCalQuads; ++i) {
    const TCalQuad& Quad = Data.CalQuads[static_cast<size_t>(i)];
    CalibItem Item;
    Item.Position = Model == TCalibModel::cmUTM
                        ? CalibPosition::OfUtm(Quad.Latitude, Quad.Longitude)
                        : CalibPosition::OfDegrees(Quad.Latitude, Quad.Longitude);
    Item.Pixel = {Quad.MapX, Quad.MapY};
    Items.push_back(std::move(Item));
  }
  for (int32_t i = 0; i < Data.NumCalLines; ++i) {
    const TCalibLine& Line = Data.CalLines[static_cast<size_t>(i)];
    for (int32_t k = 0; k < Line.NumPoints; ++k) {
      CalibItem Item;
      Item.Kind = ItemKindOf(Line.LineType);
      Item.Value = Line.LineValue;
      Item.Pixel = Line.CalPoints[static_cast<size_t>(k)];
      Items.push_back(std::move(Item));
    }
  }
  return Items;
}

SideMerge MergeSideText(const std::string& Text, const std::string& Id, const TCalibData& Data,
                        TCalibModel Model) {
  SideMerge Merge;
  Merge.Model = Model;
  if (Model == TCalibModel::cmUndefined && GraticuleComplete(Data))
    Merge.Model = TCalibModel::cmParabolicIp;
  Merge.Grid = {Data.UTMZone >= 1 && Data.UTMZone <= 60 ? Data.UTMZone : 0, Data.UTMSouth,
                Data.Ellipsoid};
  Merge.Items = ItemsOfRecord(Data, Model);
  SideText Side = PartsOf(Text);
  const auto Found =
      std::find_if(Side.Parts.begin(), Side.Parts.end(),
                   [&](const SideText::Part& Each) { return SameText(Each.Id, Id); });
  if (Found != Side.Parts.end()) {
    const SidePart Part = ReadPart(*Found, Side.Damaged);
    if (Model == TCalibModel::cmUndefined && Part.Model) Merge.Model = *Part.Model;
    if (Merge.Grid.Zone == 0 && Part.Zone60South)
      Merge.Grid = {60, *Part.Zone60South, Merge.Grid.Ellipsoid};
    Merger Merger(Part, Merge);
    Merger.KeepStored();
    Merger.Run(Data.MapFName);
  }
  if (Side.Unknown)
    Merge.Notes.append(
        Tr("The file with the points' names is damaged, or was made by a newer "
           "version; names and points that are switched off are not shown."));
  else if (Side.Damaged > 0)
    Merge.Notes.append(Tr("The file with the points' names is damaged: %1 of its lines could not "
                          "be read.")
                           .arg(Side.Damaged));
  return Merge;
}

std::string UpdatedSideText(const std::string& OldText, const std::string& Id,
                            const CalibState& State, bool& Damaged) {
  SideText Old = PartsOf(OldText);
  std::string Parts;
  bool Placed = false;
  const std::string Own = PartText(Id, State);
  for (const SideText::Part& Part : Old.Parts) {
    if (SameText(Part.Id, Id)) {
      ReadPart(Part, Old.Damaged);
      if (!Placed) Parts += Own;
      Placed = true;
      continue;
    }
    Parts += (LineText("calibration") << Part.Id).Take();
    for (const std::string_view Line : Part.Lines) Parts.append(Line).append("\r\n");
  }
  if (!Placed) Parts += Own;
  Damaged = Old.Unknown || Old.Damaged > 0;
  if (Parts.empty()) return {};
  return (LineText(Signature) << Version).Take() + Parts;
}

}  // namespace zav
