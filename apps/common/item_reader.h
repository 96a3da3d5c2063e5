// item_reader.h - items for a database, read one by one from files of other programs.
//
// A file is read as a stream. What is held in memory is one feature of a GeoJSON file, or one line
// of a table, with 8 bytes a point; texts and numbers of more than a megabyte are refused.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_COMMON_ITEM_READER_H
#define ZAV_APPS_COMMON_ITEM_READER_H

#include <geodb/gdb_records.h>

#include <cstdint>
#include <functional>
#include <istream>
#include <optional>
#include <string>

namespace zav {

struct TReadItem {
  TgdbItem Kind = TgdbItem::gitTown;
  std::string Name;
  uint8_t ClassFlag = 0;
  float Altitude = 0;
  bool Closed = false;
  TgdbPolygon Points;         // one for a town; a closed list does not repeat its first point
  std::optional<int32_t> Id;  // the identifier in the file
};

// What was not taken over.
struct TReadCounts {
  int64_t Holes = 0;            // of polygons
  int64_t WithoutGeometry = 0;  // features, and items without a position
  int64_t OddValues = 0;        // of class and altitude: not a number, or out of range
};

class TItemReader {
 public:
  // What lines and polygons become. A line can be a border, city, river, road or route, a polygon a
  // border, city or lake. Without it, what the item's own "kind" says, or else borders.
  std::optional<TgdbItem> Kind;

  // Called for each item; false ends the reading.
  std::function<bool(TReadItem& Item)> Take;
  // Called with what is wrong with an item, which is then left out; false ends the reading. The
  // line is counted from 1.
  std::function<bool(int64_t Line, const std::string& Problem)> Refuse;

  // A GeoJSON text (RFC 7946). Points become towns, the parts of a multi-geometry items of their
  // own. "name", "class", "altitude" and "kind" are taken from the properties, a missing altitude
  // from the position of a point, "id" from the feature. Throws EInOutError with Name and the line
  // when it cannot be read or is no GeoJSON.
  TReadCounts ReadGeoJson(std::istream& Input, const std::string& Name) const;

  // A table: name, lat, long, class, altitude, kind, id, closed, points. An item has either lat and
  // long (lat_low and long_low will do) or points, as "LAT LONG;LAT LONG". Throws EInOutError with
  // Name when it cannot be read or lacks columns.
  TReadCounts ReadCsv(std::istream& Input, const std::string& Name) const;

  // The kind that an item with these words becomes, Own being its own "kind"; none where they do
  // not fit. Shape: the kind of point, line or polygon that it is drawn as.
  enum class TShape { Point, Line, Polygon };
  std::optional<TgdbItem> KindOf(TShape Shape, const std::string& Own) const;
};

// The kind of a name, in any case; none for other words.
std::optional<TgdbItem> FindItemKind(const std::string& Name);

// A longitude of -360 to 360 degrees turned into -180 to 180.
double TurnedLongitude(double Long);

}  // namespace zav

#endif
