// item_reader_test.cpp - GeoJSON and tables as items: what they become, what is refused, and where.
// SPDX-License-Identifier: MIT
#include "common/item_reader.h"

#include <gtest/gtest.h>
#include <platform/base/errors.h>

#include <clocale>
#include <sstream>

namespace zav {
namespace {

struct TResult {
  std::vector<TReadItem> Items;
  std::vector<std::string> Problems;  // "LINE: TEXT"
  TReadCounts Counts;
  std::string Error;
};

TResult Read(const std::string& Text, bool Json, std::optional<TgdbItem> Kind = {}) {
  TResult Result;
  TItemReader Reader;
  Reader.Kind = Kind;
  Reader.Take = [&](TReadItem& Item) {
    Result.Items.push_back(Item);
    return true;
  };
  Reader.Refuse = [&](int64_t Line, const std::string& Problem) {
    Result.Problems.push_back(std::to_string(Line) + ": " + Problem);
    return true;
  };
  std::istringstream Input(Text);
  try {
    Result.Counts = Json ? Reader.ReadGeoJson(Input, "F") : Reader.ReadCsv(Input, "F");
  } catch (const EInOutError& Error) {
    Result.Error = Error.what();
  }
  return Result;
}

std::string Feature(const std::string& Geometry, const std::string& Properties = "null") {
  return R"({"type":"Feature","properties":)" + Properties + R"(,"geometry":)" + Geometry + "}";
}
std::string Geometry(const std::string& Type, const std::string& Coordinates) {
  return R"({"type":")" + Type + R"(","coordinates":)" + Coordinates + "}";
}

TEST(GeoJsonReader, MakesAnItemOfEachPart) {
  const TResult Result = Read(
      R"({"name":"x","crs":{"deep":[[{"a":[1,{"b":2}]}]]},"features":[
      {"id":7,"geometry":{"coordinates":[16.37,48.21,171.5],"type":"Point"},"type":"Feature",
       "properties":{"class":3,"other":{"name":"no"},"list":["name",1],"name":"W\u00eaden"}},
      {"type":"Feature","properties":{"name":"Isles","class":300,"altitude":"high","kind":"lake"},
       "geometry":{"type":"MultiPolygon","coordinates":
        [[[[0,0],[10,0],[10,10],[0,0]],[[1,1],[2,1],[2,2],[1,1]],[[3,1],[4,1],[4,2],[3,1]]],
         [[[20,0],[30,0],[30,10]]]]}},
      {"type":"Feature","properties":{"kind":"Route"},"geometry":{"type":"GeometryCollection",
       "geometries":[{"type":"LineString","coordinates":[[1,2],[3,4]]},
                     {"type":"MultiLineString","coordinates":[[[190,2],[3,4]],[[5,6],[-7,8],[9,0]]]},
                     {"type":"MultiPoint","coordinates":[[1,2],[3,4]]}]}},
      {"type":"Feature","properties":{},"geometry":null},
      {"type":"Feature","properties":{},"geometry":{"type":"Polygon","coordinates":[]}}
      ],"type":"FeatureCollection"})",
      true);
  EXPECT_EQ(Result.Error, "");
  EXPECT_TRUE(Result.Problems.empty());
  ASSERT_EQ(Result.Items.size(), 8U);
  EXPECT_EQ(Result.Items[0].Kind, TgdbItem::gitTown);
  EXPECT_EQ(Result.Items[0].Name, "Wêden");
  EXPECT_EQ(Result.Items[0].Id, 7);
  EXPECT_EQ(Result.Items[0].ClassFlag, 3);
  EXPECT_EQ(Result.Items[0].Altitude, 171.5F);
  EXPECT_EQ(Result.Items[0].Points, (TgdbPolygon{{48.21F, 16.37F}}));
  for (size_t i = 1; i < 3; ++i) {
    EXPECT_EQ(Result.Items[i].Kind, TgdbItem::gitLake);
    EXPECT_TRUE(Result.Items[i].Closed);
    EXPECT_EQ(Result.Items[i].Name, "Isles");
    EXPECT_EQ(Result.Items[i].ClassFlag, 0);
    EXPECT_FALSE(Result.Items[i].Id);
  }
  EXPECT_EQ(Result.Items[1].Points, (TgdbPolygon{{0, 0}, {0, 10}, {10, 10}}));
  EXPECT_EQ(Result.Items[2].Points, (TgdbPolygon{{0, 20}, {0, 30}, {10, 30}}));
  EXPECT_EQ(Result.Items[3].Kind, TgdbItem::gitRoute);
  EXPECT_EQ(Result.Items[4].Points, (TgdbPolygon{{2, -170}, {4, 3}}));
  EXPECT_EQ(Result.Items[5].Points.size(), 3U);
  EXPECT_EQ(Result.Items[5].Name, "");
  EXPECT_EQ(Result.Items[7].Kind, TgdbItem::gitTown);
  EXPECT_EQ(Result.Counts.Holes, 2);
  EXPECT_EQ(Result.Counts.WithoutGeometry, 2);
  EXPECT_EQ(Result.Counts.OddValues, 2);
}

TEST(GeoJsonReader, TakesTheKindAskedForWhereItFits) {
  const std::string Line = Geometry("LineString", "[[1,2],[3,4]]");
  const std::string Area = Geometry("Polygon", "[[[1,2],[3,4],[5,0],[1,2]]]");
  const struct {
    TgdbItem Kind;
    bool Line, Area;
  } Cases[] = {{TgdbItem::gitBorder, true, true}, {TgdbItem::gitCity, true, true},
               {TgdbItem::gitLake, false, true},  {TgdbItem::gitRiver, true, false},
               {TgdbItem::gitRoad, true, false},  {TgdbItem::gitRoute, true, false},
               {TgdbItem::gitTown, false, false}, {TgdbItem::gitBLOB, false, false}};
  for (const auto& Case : Cases) {
    const TResult AsLine = Read(Line, true, Case.Kind);
    const TResult AsArea = Read(Feature(Area, R"({"kind":"River"})"), true, Case.Kind);
    EXPECT_EQ(AsLine.Items.size(), Case.Line ? 1U : 0U);
    EXPECT_EQ(AsLine.Problems.size(), Case.Line ? 0U : 1U);
    EXPECT_EQ(AsArea.Items.size(), Case.Area ? 1U : 0U);
    if (Case.Line) {
      EXPECT_EQ(AsLine.Items[0].Kind, Case.Kind);
      EXPECT_FALSE(AsLine.Items[0].Closed);
    }
    if (Case.Area) {
      EXPECT_EQ(AsArea.Items[0].Kind, Case.Kind);
      EXPECT_TRUE(AsArea.Items[0].Closed);
    }
    EXPECT_EQ(Read(Geometry("Point", "[1,2]"), true, Case.Kind).Items.size(), 1U);
  }
  // An own kind that does not fit, or is none, counts as none.
  for (const char* Own : {"Lake", "forest", "Town"})
    EXPECT_EQ(Read(Feature(Line, R"({"kind":")" + std::string(Own) + "\"}"), true).Items[0].Kind,
              TgdbItem::gitBorder);
}

TEST(GeoJsonReader, RefusesAFeatureAndReadsOn) {
  const std::string Good = Feature(Geometry("Point", "[1,2]"));
  const struct {
    std::string Geometry;
    const char* Problem;
  } Cases[] = {
      {Geometry("Point", "[181.5]"), "longitude and latitude"},
      {Geometry("Point", "[1,90.5]"), "1, 90.5 is outside"},
      {Geometry("Point", "[-361,0]"), "outside"},
      {Geometry("Point", "[[1,2]]"), "no coordinates of a Point"},
      {Geometry("LineString", "[1,2]"), "no coordinates of a LineString"},
      {Geometry("LineString", "[[1,2],[[3,4]]]"), "unevenly"},
      {Geometry("LineString", "[[1,2],[]]"), "no coordinates"},
      {Geometry("LineString", "[[1,2],3]"), "unevenly"},
      {Geometry("LineString", "[[1,2]]"), "too few positions"},
      {Geometry("LineString", R"([[1,"2"],[3,4]])"), "no numbers"},
      {Geometry("LineString", R"([[1,2],{"x":[1,2]}])"), "no numbers"},
      {Geometry("Polygon", "[[[1,2],[3,4],[1,2]]]"), "too few positions"},
      {Geometry("Circle", "[1,2]"), "unknown type \"Circle\""},
      {R"({"coordinates":[1,2]})", "unknown type \"\""},
  };
  for (const auto& Case : Cases) {
    std::string Text = "{\"type\":\"FeatureCollection\",\"features\":[\n";
    Text.append(Good).append(",\n").append(Feature(Case.Geometry));
    Text.append("\n,").append(Good).append("]}");
    const TResult Result = Read(Text, true);
    EXPECT_EQ(Result.Error, "");
    EXPECT_EQ(Result.Items.size(), 2U) << Case.Geometry;
    ASSERT_EQ(Result.Problems.size(), 1U) << Case.Geometry;
    EXPECT_EQ(Result.Problems[0].substr(0, 14), "3: feature 2: ");
    EXPECT_NE(Result.Problems[0].find(Case.Problem), std::string::npos) << Result.Problems[0];
  }
}

TEST(GeoJsonReader, TellsWhereAFileIsBroken) {
  const struct {
    std::string Text;
    const char* Error;
  } Cases[] = {
      {"", "F:1: "},
      {"\n\n[1,2]", "F:3: this is no GeoJSON object"},
      {"7", "F:1: this is no GeoJSON object"},
      {"{}", "F:1: this is no GeoJSON object"},
      {R"({"type":"Topology","objects":{}})", "F:1: this is no GeoJSON object"},
      {"{\"type\":\"FeatureCollection\",\n\"features\":[\n{\"type\":\"Feature\",]}", "F:3: "},
      {"{\"type\":\"Point\",\"coordinates\":[1,2]", "F:1: "},
      {"{\"type\":\"Point\",\"coordinates\":[1,1e999]}", "F:1: "},
      {"{\"type\":\"Point\",\"coordinates\":[1,2]} x", "F:1: "},
      {"{\"type\":\"Po\xFFint\"}", "F:1: "},
      {"{\"type\":\"" + std::string(2 << 20, 'x') + "\"}", "more than a megabyte"},
      {"{\"x\":" + std::string(2 << 20, '1') + "}", "more than a megabyte"},
      {[] {
         std::string Deep;
         for (int i = 0; i < 100; ++i) Deep += R"({"type":"GeometryCollection","geometries":[)";
         return Deep;
       }(),
       "nested too deeply"},
  };
  for (const auto& Case : Cases) {
    const TResult Result = Read(Case.Text, true);
    EXPECT_NE(Result.Error.find(Case.Error), std::string::npos)
        << Case.Text.substr(0, 80) << ": " << Result.Error;
  }
  // Long texts without long words are no trouble; nor is the user's way of writing numbers.
  ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
  const std::string Text = "\xEF\xBB\xBF{\"x\":[" + std::string(2 << 20, ' ') + "0" + [] {
    std::string Numbers;
    for (int i = 0; i < 500000; ++i) Numbers += ",1.5";
    return Numbers;
  }() + "],\"type\":\"Point\",\"coordinates\":[1.5,2.25]}";
  const TResult Result = Read(Text, true);
  std::setlocale(LC_ALL, "C");
  EXPECT_EQ(Result.Error, "");
  ASSERT_EQ(Result.Items.size(), 1U);
  EXPECT_EQ(Result.Items[0].Points[0], (TSCoords{2.25F, 1.5F}));
}

TEST(CsvReader, ReadsTownsAndWhatHasPoints) {
  const TResult Result = Read(
      "Name,kind,LATITUDE,lon,class,altitude,id,points,closed,other\n"
      "\"A, b\",,48.2,16.37,7,171.5,12,,,x\n"
      "City of that kind,City,1,190\n"
      "River,river,,,,,,1 2;3 -4 ; 5 6,,\n"
      "Area,,,,,,,1 2;3 4;5 6,true,\n"
      "Lake,Lake,,,,,,1 2;3 4;5 6,,\n"
      "Nowhere,,,,,,,,,\n"
      "x,,91,0\nx,,a,0\nx,,1\nx,,1,2,256\nx,,1,2,1.5\nx,,,,,,,1 2,,\nx,,,,,,,1 2;3,,\nx,,1,2,,,0\n",
      false);
  EXPECT_EQ(Result.Error, "");
  ASSERT_EQ(Result.Items.size(), 5U);
  EXPECT_EQ(Result.Items[0].Name, "A, b");
  EXPECT_EQ(Result.Items[0].Points, (TgdbPolygon{{48.2F, 16.37F}}));
  EXPECT_EQ(Result.Items[0].ClassFlag, 7);
  EXPECT_EQ(Result.Items[0].Altitude, 171.5F);
  EXPECT_EQ(Result.Items[0].Id, 12);
  EXPECT_EQ(Result.Items[1].Kind, TgdbItem::gitTown);
  EXPECT_EQ(Result.Items[1].Points, (TgdbPolygon{{1, -170}}));
  EXPECT_EQ(Result.Items[2].Kind, TgdbItem::gitRiver);
  EXPECT_EQ(Result.Items[2].Points, (TgdbPolygon{{1, 2}, {3, -4}, {5, 6}}));
  EXPECT_EQ(Result.Items[3].Kind, TgdbItem::gitBorder);
  EXPECT_TRUE(Result.Items[3].Closed);
  EXPECT_EQ(Result.Items[4].Kind, TgdbItem::gitLake);
  EXPECT_TRUE(Result.Items[4].Closed);
  EXPECT_EQ(Result.Counts.WithoutGeometry, 1);
  ASSERT_EQ(Result.Problems.size(), 8U);
  for (size_t i = 0; i < 8; ++i)
    EXPECT_EQ(Result.Problems[i].substr(0, Result.Problems[i].find(':')), std::to_string(i + 8));

  EXPECT_EQ(Read("name,lat\nx,1\n", false).Error, "F: there is no column long");
  EXPECT_EQ(Read("lat,long\n1,\"2\n", false).Error, "F: line 2: a quote is not closed");
  EXPECT_TRUE(Read("", false).Items.empty());
  EXPECT_EQ(Read("lat;long\n1,5;2,25\n", false).Items[0].Points[0], (TSCoords{1.5F, 2.25F}));
  // A database's own table: BLOBs have a box, but their bytes are elsewhere.
  const TResult Own = Read("id,name,kind,lat_low,long_low\n3,a,Town,1,2\n4,b,BLOB,1,2\n", false);
  EXPECT_EQ(Own.Items.size(), 1U);
  EXPECT_EQ(Own.Counts.WithoutGeometry, 1);
}

TEST(ItemReader, StopsWhenToldTo) {
  TItemReader Reader;
  int Items = 0, Problems = 0;
  Reader.Take = [&](TReadItem&) { return ++Items < 2; };
  Reader.Refuse = [&](int64_t, const std::string&) { return ++Problems < 2; };
  std::istringstream Points(Geometry("MultiPoint", "[[1,2],[3,4],[5,6]]") + "x");
  Reader.ReadGeoJson(Points, "F");
  EXPECT_EQ(Items, 2);
  Items = 0;
  std::istringstream Table("lat,long\n1,2\n3,4\n5,6\n");
  Reader.ReadCsv(Table, "F");
  EXPECT_EQ(Items, 2);
  std::istringstream Bad("lat,long\nx,2\nx,4\nx,6\n");
  Reader.ReadCsv(Bad, "F");
  EXPECT_EQ(Problems, 2);
}

}  // namespace
}  // namespace zav
