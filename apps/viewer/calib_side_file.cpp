// calib_side_file.cpp - applying and writing the viewer's side file.
// SPDX-License-Identifier: MIT
#include "calib_side_file.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include <geomap/calibration/calib_file.h>
#include <geomap/calibration/calibration.h>
#include <platform/base/stream.h>
#include <platform/base/text.h>
#include <platform/base/text_format.h>
#include <platform/qt/qt_convert.h>

#include "calib_document.h"
#include "calib_side_text.h"
#include "field_line.h"

namespace zav {

namespace {

// Half a unit of the fifth decimal, which the calibration file rounds to, and a little.
constexpr double StoredTolerance = 0.000006;

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
          CalibDocument::tr("The file with the points' names belongs to another map and is not "
                            "used."));
      return;
    }
    Merged.insert(Merged.end(), Stored.begin(), Stored.end());
    FMerge.Items = std::move(Merged);
    if (FDropped > 0)
      FMerge.Notes.append(
          CalibDocument::tr("The calibration was changed by another program: %n point(s) not "
                            "as before; their names are dropped.",
                            nullptr, FDropped));
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

std::string_view HemisphereWord(bool South) { return South ? "south" : "north"; }

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
  std::string Text = (FieldLine("calibration") << Id).Take();
  Text += (FieldLine("image") << State.ImageName).Take();
  if (!ModelTold) Text += (FieldLine("model") << CalibModelKeyword(State.Model)).Take();
  if (State.Grid.Zone == 60)
    Text += (FieldLine("zone") << "60" << HemisphereWord(State.Grid.South)).Take();
  for (size_t i = 0; i < State.Items.size(); ++i)
    Text += SideItemLine(*State.Items[i], Record.Stored[i]);
  return Text;
}

}  // namespace

std::string SideItemLine(const CalibItem& Item, bool Stored) {
  const std::string_view State = Stored ? "on" : Item.Enabled ? "waiting" : "off";
  const CalibPosition& Position = Item.Position;
  const auto Finish = [&](FieldLine& Line) {
    Line << Item.Pixel << FromQString(Item.Name);
    return Line.Take();
  };
  if (Item.IsLinePoint()) {
    FieldLine Line(Item.Kind == CalibItemKind::Meridian ? "meridian" : "parallel");
    Line << State << Item.Value;
    return Finish(Line);
  }
  if (!Position.IsUtm) {
    FieldLine Line("point");
    Line << State << Position.Degrees.Latit << Position.Degrees.Longit;
    return Finish(Line);
  }
  FieldLine Line("utm");
  Line << State << Position.Metres.Northing << Position.Metres.Easting;
  if (Position.Zone == 0)
    Line << std::string_view() << std::string_view();
  else
    Line << IntegerText(Position.Zone) << HemisphereWord(Position.South);
  return Finish(Line);
}

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
  SideText Side = SidePartsOf(Text);
  const auto Found =
      std::find_if(Side.Parts.begin(), Side.Parts.end(),
                   [&](const SideText::Part& Each) { return SameText(Each.Id, Id); });
  if (Found != Side.Parts.end()) {
    const SidePart Part = ReadSidePart(*Found, Side.Damaged);
    if (Model == TCalibModel::cmUndefined && Part.Model) Merge.Model = *Part.Model;
    if (Merge.Grid.Zone == 0 && Part.Zone60South)
      Merge.Grid = {60, *Part.Zone60South, Merge.Grid.Ellipsoid};
    Merger Merger(Part, Merge);
    Merger.KeepStored();
    Merger.Run(Data.MapFName);
  }
  if (Side.Unknown)
    Merge.Notes.append(
        CalibDocument::tr("The file with the points' names is damaged, or was made by a newer "
                          "version; names and points that are switched off are not shown."));
  else if (Side.Damaged > 0)
    Merge.Notes.append(
        CalibDocument::tr("The file with the points' names is damaged: %n of its lines could not "
                          "be read.",
                          nullptr, Side.Damaged));
  return Merge;
}

std::string UpdatedSideText(const std::string& OldText, const std::string& Id,
                            const CalibState& State, bool& Damaged) {
  SideText Old = SidePartsOf(OldText);
  std::string Parts;
  bool Placed = false;
  const std::string Own = PartText(Id, State);
  for (const SideText::Part& Part : Old.Parts) {
    if (SameText(Part.Id, Id)) {
      ReadSidePart(Part, Old.Damaged);
      if (!Placed) Parts += Own;
      Placed = true;
      continue;
    }
    Parts += (FieldLine("calibration") << Part.Id).Take();
    for (const std::string_view Line : Part.Lines) Parts.append(Line).append("\r\n");
  }
  if (!Placed) Parts += Own;
  Damaged = Old.Unknown || Old.Damaged > 0;
  if (Parts.empty()) return {};
  return (FieldLine(SideSignature) << SideVersion).Take() + Parts;
}

}  // namespace zav
