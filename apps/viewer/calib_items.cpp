// calib_items.cpp - positions in the form that the model wants.
// SPDX-License-Identifier: MIT
#include "calib_items.h"

#include <cmath>

#include <geobasics/utm.h>

namespace zav {

namespace {

constexpr double FalseNorthing = 10000000;

// What is added to a northing for it to run on across the equator into the map's hemisphere.
double NorthingShift(bool FromSouth, bool ToSouth) {
  if (FromSouth == ToSouth) return 0;
  return ToSouth ? FalseNorthing : -FalseNorthing;
}

}  // namespace

CalibPosition CalibPosition::OfDegrees(double Lat, double Long) {
  CalibPosition Position;
  Position.Degrees = {Lat, Long};
  return Position;
}

CalibPosition CalibPosition::OfUtm(double Northing, double Easting, int Zone, bool South) {
  CalibPosition Position;
  Position.IsUtm = true;
  Position.Metres = {Northing, Easting};
  Position.Zone = Zone;
  Position.South = Zone != 0 && South;
  return Position;
}

std::optional<TCoords> DegreesOf(const CalibPosition& Position, const UtmGrid& Map) {
  if (!Position.IsUtm) return Position.Degrees;
  const bool Own = Position.Zone != 0;
  const int Zone = Own ? Position.Zone : Map.Zone;
  if (Zone == 0) return std::nullopt;
  TCoords Degrees;
  UTMToLatLong(Position.Metres.Easting, Position.Metres.Northing, Zone,
               Own ? Position.South : Map.South, Map.Ellipsoid, Degrees.Latit, Degrees.Longit);
  if (!std::isfinite(Degrees.Latit) || !std::isfinite(Degrees.Longit)) return std::nullopt;
  return Degrees;
}

std::optional<UtmMetres> MetresOf(const CalibPosition& Position, const UtmGrid& Map) {
  if (Position.IsUtm && Position.Zone == 0) return Position.Metres;
  if (Map.Zone == 0) return std::nullopt;
  if (Position.IsUtm && Position.Zone == Map.Zone)
    return UtmMetres{Position.Metres.Northing + NorthingShift(Position.South, Map.South),
                     Position.Metres.Easting};
  const auto Degrees = DegreesOf(Position, Map);
  if (!Degrees) return std::nullopt;
  UtmMetres Metres;
  LatLongToUTMZone(Degrees->Latit, Degrees->Longit, Map.Zone, Map.Ellipsoid, Metres.Easting,
                   Metres.Northing);
  Metres.Northing += NorthingShift(Degrees->Latit < 0, Map.South);
  if (!std::isfinite(Metres.Northing) || !std::isfinite(Metres.Easting)) return std::nullopt;
  return Metres;
}

UtmGrid GridOf(const CalibPosition& Position, TGeoEllipsoid Ellipsoid) {
  if (Position.IsUtm) return {Position.Zone, Position.South, Ellipsoid};
  double Long = std::remainder(Position.Degrees.Longit, 360);
  if (Long == 180) Long = -180;  // zone 1 begins there
  int Zone = 0;
  char Band = ' ';
  GeoToUTMZone(Position.Degrees.Latit, Long, Zone, Band);
  return {Zone, Position.Degrees.Latit < 0, Ellipsoid};
}

}  // namespace zav
