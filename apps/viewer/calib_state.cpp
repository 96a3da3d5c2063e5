// calib_state.cpp - the state as the calibration's record, and its limits.
// SPDX-License-Identifier: MIT
#include "calib_state.h"

#include <algorithm>

#include "calib_document.h"

namespace zav {

namespace {

LineCount* FindLine(std::vector<LineCount>& Lines, const CalibItem& Item) {
  for (LineCount& Each : Lines)
    if (Each.Kind == Item.Kind && Each.Value == Item.Value) return &Each;
  return nullptr;
}

std::vector<LineCount> CountLines(const std::vector<CalibItemPtr>& Items, bool EnabledOnly) {
  std::vector<LineCount> Lines;
  for (const CalibItemPtr& Item : Items) {
    if (!Item->IsLinePoint()) continue;
    LineCount* Line = FindLine(Lines, *Item);
    if (Line == nullptr) Line = &Lines.emplace_back(LineCount{Item->Kind, Item->Value});
    if (Item->Enabled || !EnabledOnly) ++Line->Points;
  }
  return Lines;
}

void AddQuad(TCalibData& Data, double Latitude, double Longitude, TPoint Pixel) {
  Data.CalQuads[static_cast<size_t>(Data.NumCalQuads++)] = {Latitude, Longitude, Pixel.X, Pixel.Y};
}

bool AddControlPoint(const CalibState& State, const CalibItem& Item, TCalibData& Data) {
  if (Data.NumCalQuads >= MaxCalQuads) return false;
  if (State.Model == TCalibModel::cmUTM) {
    const auto Metres = MetresOf(Item.Position, State.Grid);
    if (Metres) AddQuad(Data, Metres->Northing, Metres->Easting, Item.Pixel);
    return Metres.has_value();
  }
  const auto Degrees = DegreesOf(Item.Position, State.Grid);
  if (Degrees) AddQuad(Data, Degrees->Latit, Degrees->Longit, Item.Pixel);
  return Degrees.has_value();
}

// The record's line of the item, made when there is none.
TCalibLine* LineFor(TCalibData& Data, const CalibItem& Item) {
  const TGratLineKind Kind = LineKindOf(Item.Kind);
  TCalibLine* const End = Data.CalLines.data() + Data.NumCalLines;
  TCalibLine* Line = std::find_if(Data.CalLines.data(), End, [&](const TCalibLine& Each) {
    return Each.LineType == Kind && Each.LineValue == Item.Value;
  });
  if (Line != End) return Line;
  if (Data.NumCalLines >= MaxCalLines) return nullptr;
  Line->LineType = Kind;
  Line->LineValue = Item.Value;
  ++Data.NumCalLines;
  return Line;
}

// The indices of the items on the record's lines, line by line.
void AddLines(const CalibState& State, TCalibData& Data, std::vector<size_t>& Rows) {
  std::vector<LineCount> Counts = CountLinePoints(State.Items);
  std::vector<std::vector<size_t>> OnLine(MaxCalLines);
  for (size_t i = 0; i < State.Items.size(); ++i) {
    const CalibItem& Item = *State.Items[i];
    if (!Item.IsLinePoint() || !Item.Enabled) continue;
    // A line that cannot be fitted would pull the map towards pixel 0.
    const bool Short = FindLine(Counts, Item)->Points < MinLinePoints;
    if (Short && State.Model == TCalibModel::cmParabolicIp) continue;
    TCalibLine* Line = LineFor(Data, Item);
    if (Line == nullptr || Line->NumPoints >= MaxCalLinePoints) continue;
    Line->CalPoints[static_cast<size_t>(Line->NumPoints++)] = Item.Pixel;
    OnLine[static_cast<size_t>(Line - Data.CalLines.data())].push_back(i);
  }
  for (const auto& Each : OnLine) Rows.insert(Rows.end(), Each.begin(), Each.end());
}

}  // namespace

bool CalibState::SameAs(const CalibState& Other) const {
  const auto SameItems = [](const CalibItemPtr& A, const CalibItemPtr& B) {
    return A == B || *A == *B;
  };
  return Model == Other.Model && Grid == Other.Grid && Caption == Other.Caption &&
         ImagePath == Other.ImagePath && ImageSize == Other.ImageSize &&
         std::equal(Items.begin(), Items.end(), Other.Items.begin(), Other.Items.end(), SameItems);
}

CalibRecord RecordOf(const CalibState& State) {
  CalibRecord Record;
  TCalibData& Data = Record.Data;
  Data.MapFName = State.ImageName;
  Data.Caption = State.Caption;
  Data.Corners = State.Corners;
  Data.Resolution = State.Resolution;
  Data.UTMZone = State.Grid.Zone == 0 ? -1 : State.Grid.Zone;
  Data.UTMSouth = State.Grid.South;
  Data.Ellipsoid = State.Grid.Ellipsoid;
  std::vector<size_t> QuadRows;
  std::vector<size_t> LineRows;
  for (size_t i = 0; i < State.Items.size(); ++i) {
    const CalibItem& Item = *State.Items[i];
    if (Item.IsLinePoint() || !Item.Enabled) continue;
    if (AddControlPoint(State, Item, Data)) QuadRows.push_back(i);
  }
  AddLines(State, Data, LineRows);
  Record.Stored.resize(State.Items.size());
  for (const auto* Rows : {&QuadRows, &LineRows})
    for (const size_t Index : *Rows) Record.Stored[Index] = true;
  Record.Rows = std::move(State.Model == TCalibModel::cmParabolicIp ? LineRows : QuadRows);
  return Record;
}

bool UsesKind(TCalibModel Model, CalibItemKind Kind) {
  if (Model == TCalibModel::cmUndefined) return false;
  return (Model == TCalibModel::cmParabolicIp) == (Kind != CalibItemKind::Point);
}

UtmGrid GridOfItems(const std::vector<CalibItemPtr>& Items, TGeoEllipsoid Ellipsoid) {
  TCoords Sum;
  int Count = 0;
  for (const CalibItemPtr& Item : Items) {
    if (Item->IsLinePoint()) continue;
    if (Item->Position.IsUtm && Item->Position.Zone != 0) return GridOf(Item->Position, Ellipsoid);
    if (Item->Position.IsUtm) continue;
    Sum.Latit += Item->Position.Degrees.Latit;
    Sum.Longit += Item->Position.Degrees.Longit;
    ++Count;
  }
  if (Count == 0) return {0, false, Ellipsoid};
  return GridOf(CalibPosition::OfDegrees(Sum.Latit / Count, Sum.Longit / Count), Ellipsoid);
}

QString LimitProblem(const std::vector<CalibItemPtr>& Items) {
  const auto Points = std::count_if(Items.begin(), Items.end(),
                                    [](const CalibItemPtr& Each) { return !Each->IsLinePoint(); });
  if (Points > MaxCalQuads)
    return CalibDocument::tr("A map has at most %1 control points.").arg(MaxCalQuads);
  const std::vector<LineCount> Lines = CountLines(Items, false);
  if (Lines.size() > static_cast<size_t>(MaxCalLines))
    return CalibDocument::tr("A map has at most %1 graticule lines.").arg(MaxCalLines);
  for (const LineCount& Each : Lines)
    if (Each.Points > MaxCalLinePoints)
      return CalibDocument::tr("A graticule line has at most %1 points.").arg(MaxCalLinePoints);
  return {};
}

std::vector<LineCount> CountLinePoints(const std::vector<CalibItemPtr>& Items) {
  return CountLines(Items, true);
}

}  // namespace zav
