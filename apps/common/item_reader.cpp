// item_reader.cpp - kinds, and items of tables.
// SPDX-License-Identifier: MIT
#include "common/item_reader.h"

#include <platform/base/text.h>

#include <cmath>
#include <cstring>

#include "common/geo_columns.h"
#include "common/table.h"

namespace zav {

namespace {

enum TField { Lat, Long, Name, Class, Altitude, Kind, Id, Closed, Points };

bool FitsShape(TgdbItem Kind, TItemReader::TShape Shape) {
  const bool Either = Kind == TgdbItem::gitBorder || Kind == TgdbItem::gitCity;
  switch (Shape) {
    case TItemReader::TShape::Point:
      return Kind == TgdbItem::gitTown;
    case TItemReader::TShape::Line:
      return Either || Kind == TgdbItem::gitRiver || Kind == TgdbItem::gitRoad ||
             Kind == TgdbItem::gitRoute;
    case TItemReader::TShape::Polygon:
      return Either || Kind == TgdbItem::gitLake;
  }
  return false;
}

// A whole number of a table; 0 for an empty field.
double WholeNumber(const TTable& Table, TField Field, double Low, double High) {
  if (Table.Text(Field).empty()) return 0;
  const double Value = Table.Number(Field, Low, High);
  if (Value != std::floor(Value)) throw ELineError(Table.Text(Field) + " is not a whole number");
  return Value;
}

TSCoords PositionOf(std::string_view Text) {
  const std::string_view Trimmed = TrimBlanks(Text);
  const size_t Blank = std::min(Trimmed.find(' '), Trimmed.size());
  const auto LatValue = ParseNumber(Trimmed.substr(0, Blank));
  const auto LongValue = ParseNumber(Trimmed.substr(Blank));
  if (!LatValue || !LongValue || std::fabs(*LatValue) > 90 || std::fabs(*LongValue) > 360)
    throw ELineError("\"" + std::string(Trimmed) + "\" is no position: LAT LONG");
  return {static_cast<float>(*LatValue), static_cast<float>(TurnedLongitude(*LongValue))};
}

TgdbPolygon PointsOf(std::string_view Text) {
  TgdbPolygon Polygon;
  while (!Text.empty()) {
    const size_t End = std::min(Text.find(';'), Text.size());
    Polygon.push_back(PositionOf(Text.substr(0, End)));
    Text.remove_prefix(std::min(End + 1, Text.size()));
  }
  return Polygon;
}

bool IsYes(const std::string& Text) {
  for (const std::string_view Word : {"true", "yes", "1"})
    if (SameText(Text, Word)) return true;
  return false;
}

// The item of the table's line; none when it has no position.
std::optional<TReadItem> ItemOf(const TItemReader& Reader, const TTable& Table, bool HasBoxes) {
  TReadItem Item;
  TItemReader::TShape Shape = TItemReader::TShape::Point;
  if (!Table.Text(Points).empty()) {
    Item.Points = PointsOf(Table.Text(Points));
    Item.Closed = IsYes(Table.Text(Closed)) ||
                  FindItemKind(Table.Text(Kind)) == TgdbItem::gitLake ||
                  Reader.Kind == TgdbItem::gitLake;
    Shape = Item.Closed ? TItemReader::TShape::Polygon : TItemReader::TShape::Line;
    const size_t Least = Item.Closed ? 3 : 2;
    if (Item.Points.size() < Least) throw ELineError("points: there are too few");
  } else if (!Table.Text(Lat).empty() || !Table.Text(Long).empty()) {
    if (Table.Text(Long).empty()) throw ELineError("long is missing");
    if (Table.Text(Lat).empty()) throw ELineError("lat is missing");
    Item.Points.push_back({static_cast<float>(Table.Latitude(Lat)),
                           static_cast<float>(TurnedLongitude(Table.Longitude(Long)))});
    // What has a box but no points, and is no town, is elsewhere: a BLOB.
    if (HasBoxes && FindItemKind(Table.Text(Kind)) != TgdbItem::gitTown) return std::nullopt;
  } else {
    return std::nullopt;
  }
  const auto KindFound = Reader.KindOf(Shape, Table.Text(Kind));
  if (!KindFound) throw ELineError("what has such points cannot be of the kind asked for");
  Item.Kind = *KindFound;
  Item.Name = Table.Text(Name);
  Item.ClassFlag = static_cast<uint8_t>(WholeNumber(Table, Class, 0, 255));
  if (!Table.Text(Altitude).empty())
    Item.Altitude = static_cast<float>(Table.Number(Altitude, -1e30, 1e30));
  if (!Table.Text(Id).empty()) Item.Id = static_cast<int32_t>(WholeNumber(Table, Id, 1, INT32_MAX));
  return Item;
}

}  // namespace

std::optional<TgdbItem> FindItemKind(const std::string& Text) {
  for (size_t i = 0; i < GDB_ITEMNAMES.size(); ++i)
    if (SameText(GDB_ITEMNAMES[i], Text)) return static_cast<TgdbItem>(i);
  return std::nullopt;
}

double TurnedLongitude(double Value) {
  return Value > 180 ? Value - 360 : Value < -180 ? Value + 360 : Value;
}

std::optional<TgdbItem> TItemReader::KindOf(TShape Shape, const std::string& Own) const {
  if (Shape == TShape::Point) return TgdbItem::gitTown;
  if (Kind) return FitsShape(*Kind, Shape) ? Kind : std::nullopt;
  const auto Named = FindItemKind(Own);
  return Named && FitsShape(*Named, Shape) ? Named : TgdbItem::gitBorder;
}

TReadCounts TItemReader::ReadCsv(std::istream& Input, const std::string& FileName) const {
  TReadCounts Counts;
  TTable Table(Input, FileName);
  Table.SetColumns({{"lat|latitude|lat_low", true},
                    {"long|lon|lng|longitude|long_low", true},
                    {"name", true},
                    {"class", true},
                    {"altitude", true},
                    {"kind", true},
                    {"id", true},
                    {"closed", true},
                    {"points", true}});
  const bool HasBoxes = Table.HeaderHas("lat_low");
  for (const char* Names : {"lat|latitude|lat_low", "long|lon|lng|longitude|long_low"})
    if (Table.HasHeader() && !Table.HeaderHas("points") && !Table.HeaderHas(Names))
      throw EInOutError(FileName,
                        "there is no column " + std::string(Names, std::strcspn(Names, "|")));
  while (Table.Next()) {
    try {
      auto Item = ItemOf(*this, Table, HasBoxes);
      if (!Item) {
        ++Counts.WithoutGeometry;
      } else if (!Take(*Item)) {
        break;
      }
    } catch (const ELineError& Error) {
      if (!Refuse(Table.Line(), Error.what())) break;
    }
  }
  return Counts;
}

}  // namespace zav
