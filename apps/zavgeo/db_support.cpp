// db_support.cpp - see db_support.h.
// SPDX-License-Identifier: MIT
#include "db_support.h"

#include <platform/base/paths.h>
#include <platform/base/text_format.h>
#include <platform/base/utf8.h>

#include <charconv>
#include <cmath>
#include <iterator>

#include "common/item_reader.h"

namespace zav {

bool DatabaseExists(const std::string& Base) {
  const std::string Name = StripExtension(Base);
  return FileExists(Name + ".zavgds") || FileExists(Name + ".zavgdd");
}

void OpenDatabase(TGeoDB& DB, const std::string& Base, TDbAccess Access) {
  if (!DatabaseExists(Base))
    throw EInOutError(Base, "there is no such database; \"zavgeo db create\" makes one");
  DB.SetReadOnly(Access == TDbAccess::Read);
  DB.SetGDBName(Base);
}

int32_t RecordOf(const TGeoDB& DB, int32_t ItemId) {
  const int32_t RecNo = DB.SearchForItemID(ItemId);
  if (RecNo == 0) throw EInOutError(DB.GetGDBName(), "there is no item " + IntegerText(ItemId));
  return RecNo;
}

TgdbItem KindOfOption(const std::string& Name) {
  if (const auto Kind = FindItemKind(Name)) return *Kind;
  std::string All;
  for (const std::string_view Each : GDB_ITEMNAMES)
    All.append(All.empty() ? "" : ", ").append(Each);
  throw EUsageError("unknown kind \"" + Name + "\": " + All);
}

TCoords PositionOfOption(const std::string& Option, const std::string& Text) {
  const std::vector<double> Numbers = NumbersOfOption(Option, Text, 2);
  if (std::fabs(Numbers[0]) > 90 || std::fabs(Numbers[1]) > 360)
    throw EUsageError(Option + " " + Text + " is no latitude and longitude");
  return {Numbers[0], TurnedLongitude(Numbers[1])};
}

std::string SingleText(float Value) {
  const float Size = std::fabs(Value);
  const bool Long = Size != 0 && (Size < 1e-7F || Size >= 1e15F);
  char Buffer[64];
  const auto Format = Long ? std::chars_format::scientific : std::chars_format::fixed;
  const auto [End, Error] = std::to_chars(std::begin(Buffer), std::end(Buffer), Value, Format);
  return Error == std::errc() ? std::string(Buffer, End) : std::string();
}

std::string PointsText(const TgdbPolygon& Polygon) {
  std::string Text;
  for (const TSCoords& Point : Polygon) {
    if (!Text.empty()) Text += ';';
    Text.append(SingleText(Point.Latit)).append(" ").append(SingleText(Point.Longit));
  }
  return Text;
}

std::string DateText(TDateTime Date) {
  if (Date == 0) return {};
  const TDateTimeParts Parts = DecodeDateTime(Date);
  std::string Text;
  const auto Append = [&](int32_t Value, size_t Digits, const char* After) {
    const std::string Number = IntegerText(Value);
    Text.append(Digits - std::min(Digits, Number.size()), '0').append(Number).append(After);
  };
  Append(Parts.Year, 4, "-");
  Append(Parts.Month, 2, "-");
  Append(Parts.Day, 2, " ");
  Append(Parts.Hour, 2, ":");
  Append(Parts.Minute, 2, ":");
  Append(Parts.Second, 2, "");
  return Text;
}

std::string_view ClosedText(const TgdbData& Data) { return Data.Closed != 0 ? "true" : "false"; }

void AddItemHeader(TRow& Row) {
  for (const char* Name :
       {"id", "name", "kind", "lat_low", "lat_high", "long_low", "long_high", "class", "altitude"})
    Row << Name;
}

void AddItem(TRow& Row, const TgdbData& Data) {
  Row << Data.ItemId << DisplayText(Data.Name.View()) << ItemKindName(Data.ItemKind)
      << SingleText(Data.LatLow) << SingleText(Data.LatHigh) << SingleText(Data.LongLow)
      << SingleText(Data.LongHigh) << static_cast<int>(Data.ClassFlag) << SingleText(Data.Altitude);
}

}  // namespace zav
