// db_export.cpp - zavgeo db export: all items as a table or as GeoJSON.
// SPDX-License-Identifier: MIT
#include <platform/base/text.h>
#include <platform/base/text_format.h>
#include <platform/base/utf8.h>

#include <cmath>
#include <iostream>
#include <nlohmann/json.hpp>

#include "db_support.h"
#include "progress_bar.h"

namespace zav {

namespace {

struct TExportOptions {
  std::string Base;
  std::string Format = "csv";
};

void PrintTableRow(TGeoDB& DB, int32_t RecNo, const TgdbData& Data) {
  TgdbPolygon Polygon;
  DB.RetrievePolygon(RecNo, Polygon);
  TRow Row;
  AddItem(Row, Data);
  Row << Data.Tag << Data.StateFlag << DateText(Data.Date)
      << (HasPointList(Data.ItemKind) ? ClosedText(Data) : std::string_view())
      << PointsText(Polygon);
  Print(Row);
}

// JSON has no infinities.
std::string JsonNumber(float Value) { return std::isfinite(Value) ? SingleText(Value) : "null"; }
std::string JsonText(std::string_view Text) { return nlohmann::json(Text).dump(); }
std::string JsonPosition(float Lat, float Long) {
  return "[" + JsonNumber(Long) + "," + JsonNumber(Lat) + "]";
}

std::string JsonLine(const TgdbPolygon& Points, bool Closed) {
  std::string Text = "[";
  for (const TSCoords& Point : Points) {
    if (Text.size() > 1) Text += ',';
    Text += JsonPosition(Point.Latit, Point.Longit);
  }
  if (Closed && Points.front() != Points.back())
    Text += "," + JsonPosition(Points.front().Latit, Points.front().Longit);
  return Text + "]";
}

// Items without points, and lists of too few of them, have no geometry.
std::string JsonGeometry(const TgdbData& Data, const TgdbPolygon& Points) {
  const auto Geometry = [](const char* Type, const std::string& Coordinates) {
    return "{\"type\":\"" + std::string(Type) + "\",\"coordinates\":" + Coordinates + "}";
  };
  if (Data.ItemKind == TgdbItem::gitTown)
    return Geometry("Point", JsonPosition(Data.LatLow, Data.LongLow));
  if (Data.Closed != 0 && Points.size() > 2)
    return Geometry("Polygon", "[" + JsonLine(Points, true) + "]");
  if (Data.Closed == 0 && Points.size() > 1) return Geometry("LineString", JsonLine(Points, false));
  return "null";
}

std::string JsonFeature(TGeoDB& DB, int32_t RecNo, const TgdbData& Data) {
  TgdbPolygon Points;
  DB.RetrievePolygon(RecNo, Points);
  const std::string Geometry = JsonGeometry(Data, Points);
  std::string Text = "{\"type\":\"Feature\",\"id\":" + IntegerText(Data.ItemId);
  const bool HasBox = !IsEmptyBox({Data.LatLow, Data.LatHigh, Data.LongLow, Data.LongHigh});
  if (Geometry == "null" && HasBox)
    Text += ",\"bbox\":[" + JsonNumber(Data.LongLow) + "," + JsonNumber(Data.LatLow) + "," +
            JsonNumber(Data.LongHigh) + "," + JsonNumber(Data.LatHigh) + "]";
  Text += ",\"properties\":{\"name\":" + JsonText(DisplayText(Data.Name.View())) +
          ",\"kind\":" + JsonText(ItemKindName(Data.ItemKind)) +
          ",\"class\":" + IntegerText(Data.ClassFlag) +
          ",\"altitude\":" + JsonNumber(Data.Altitude) + ",\"tag\":" + IntegerText(Data.Tag) +
          ",\"state\":" + IntegerText(Data.StateFlag) +
          ",\"date\":" + JsonText(DateText(Data.Date));
  return Text + "},\"geometry\":" + Geometry + "}";
}

int Export(const TExportOptions& Options) {
  TGeoDB DB;
  OpenDatabase(DB, Options.Base, TDbAccess::Read);
  const bool Json = SameText(Options.Format, "geojson");
  TProgressBar Bar("exporting");
  if (Json) {
    std::cout << "{\"type\":\"FeatureCollection\",\"features\":[";
  } else {
    TRow Header;
    AddItemHeader(Header);
    Header << "tag"
           << "state"
           << "date"
           << "closed"
           << "points";
    Print(Header);
  }
  // In the order of identifiers, so that an import can keep them.
  const int32_t Count = DB.NumEntries();
  for (int32_t Place = 1; Place <= Count && std::cout; ++Place) {
    const int32_t RecNo = DB.GetIxItemID(Place).index;
    const TgdbData Data = DB.GetSumdata(RecNo);
    if (Json) {
      std::cout << (Place > 1 ? ",\n" : "\n") << JsonFeature(DB, RecNo, Data);
    } else {
      PrintTableRow(DB, RecNo, Data);
    }
    if (Place % 256 == 0) Bar.Show(static_cast<int>(int64_t{Place} * 100 / Count));
  }
  if (Json) std::cout << "\n]}\n";
  return 0;
}

}  // namespace

void AddDbExportCommand(TProgram& Program, CLI::App& Db) {
  const auto [Command, Options] = AddDbCommand(
      Program, Db, "export",
      "Prints all items as a table or as GeoJSON, by identifier; BLOBs without their bytes",
      Export);
  Command->add_option("--format", Options->Format, "csv or geojson")
      ->check(CLI::IsMember({"csv", "geojson"}, CLI::ignore_case))
      ->capture_default_str();
}

}  // namespace zav
