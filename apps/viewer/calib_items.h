// calib_items.h - what a person calibrates a map with: positions as typed, points, lines' points.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_VIEWER_CALIB_ITEMS_H
#define ZAV_APPS_VIEWER_CALIB_ITEMS_H

#include <cstdint>
#include <optional>

#include <QString>

#include <geobasics/ellipsoids.h>
#include <geomap/calibration/calib_data.h>

namespace zav {

// The grid that UTM metres of a map are in. Zone 1..60, 0 = not set.
struct UtmGrid {
  int Zone = 0;
  bool South = false;
  TGeoEllipsoid Ellipsoid = TGeoEllipsoid::gelWGS84;
  friend bool operator==(const UtmGrid&, const UtmGrid&) = default;
};

// UTM metres of some grid.
struct UtmMetres {
  double Northing = 0;
  double Easting = 0;
  friend bool operator==(const UtmMetres&, const UtmMetres&) = default;
};

// A position as it was typed, in degrees or in UTM metres. It is kept in that form whatever the
// model, so that changing the model back and forth loses nothing.
struct CalibPosition {
  bool IsUtm = false;
  // IsUtm = false: degrees, north and east positive. IsUtm = true: unused, 0.
  TCoords Degrees;
  // IsUtm = true: metres of the zone and hemisphere below. Zone 0 means the map's own zone and
  // hemisphere, whatever they are or become.
  UtmMetres Metres;
  int Zone = 0;
  bool South = false;

  static CalibPosition OfDegrees(double Lat, double Long);
  static CalibPosition OfUtm(double Northing, double Easting, int Zone = 0, bool South = false);
  friend bool operator==(const CalibPosition&, const CalibPosition&) = default;
};

// The position in degrees. Nothing when it is in metres of the map's zone and the map has none.
std::optional<TCoords> DegreesOf(const CalibPosition& Position, const UtmGrid& Map);
// The position in metres of the map's zone and hemisphere: as typed when it was typed in these,
// else through degrees. Nothing when the map has no zone, except for metres of the map's zone.
std::optional<UtmMetres> MetresOf(const CalibPosition& Position, const UtmGrid& Map);
// The zone and hemisphere that the position lies in, or was typed in; zone 0 outside UTM and for
// metres of the map's zone.
UtmGrid GridOf(const CalibPosition& Position, TGeoEllipsoid Ellipsoid);

enum class CalibItemKind : uint8_t {
  Point,     // a control point
  Meridian,  // a point of the meridian Value
  Parallel   // a point of the parallel Value
};

struct CalibItem {
  int Id = 0;  // of the document's own, the same through moves, undo and redo; never 0
  CalibItemKind Kind = CalibItemKind::Point;
  CalibPosition Position;  // of a Point
  double Value = 0;        // of the line, degrees
  TPoint Pixel;            // of the map image
  QString Name;            // one line, may be empty
  bool Enabled = true;     // false = switched off: kept, but not used

  bool IsLinePoint() const noexcept { return Kind != CalibItemKind::Point; }
  friend bool operator==(const CalibItem&, const CalibItem&) = default;
};

}  // namespace zav

#endif
