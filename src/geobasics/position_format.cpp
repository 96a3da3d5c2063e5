// position_format.cpp - positions written in every notation.
// SPDX-License-Identifier: MIT
#include <geobasics/mgrs.h>
#include <geobasics/position_text.h>

#include <algorithm>
#include <cmath>

#include <geobasics/ups.h>
#include <geobasics/utm.h>
#include <platform/base/degrees.h>
#include <platform/base/text.h>
#include <platform/base/text_format.h>

namespace zav {

namespace {

constexpr int MaxDecimals = 12;
constexpr double UpsNorth = 83.5;
constexpr double UpsSouth = -79.5;

std::string AngleText(double Angle, TNotation Notation, int Decimals, char Positive,
                      char Negative) {
  const auto Format = static_cast<TDegreeFormat>(Notation);
  const std::string Text = DegreeToStr(std::fabs(Angle), Format, Decimals);
  // What is shown as zero belongs to no negative side.
  const bool IsZero = Text.find_first_of("123456789") == std::string::npos;
  return Text + ' ' + (Angle < 0 && !IsZero ? Negative : Positive);
}

std::string MetresText(const std::string& Zone, double Easting, double Northing, int Decimals) {
  return Zone + ' ' + FormatFixedNumber(Easting, 1, Decimals) + " mE " +
         FormatFixedNumber(Northing, 1, Decimals) + " mN";
}

std::string UtmText(TGeoPosition Position, int Decimals, TGeoEllipsoid Ellipsoid) {
  int Zone = 0;
  char Band = ' ';
  GeoToUTMZone(Position.Lat, Position.Long, Zone, Band);
  if (Zone == 0)
    throw EZAVGeoBasicsError("the position is outside UTM, 80 degrees south to 84 degrees north");
  if (Band >= 'N') Position.Lat = std::max(Position.Lat, 0.0);  // a hair south of the equator
  double Easting = 0;
  double Northing = 0;
  LatLongToUTMZone(Position.Lat, Position.Long, Zone, Ellipsoid, Easting, Northing);
  return MetresText(IntegerText(Zone) + Band, Easting, Northing, Decimals);
}

std::string UpsText(const TGeoPosition& Position, int Decimals, TGeoEllipsoid Ellipsoid) {
  if (Position.Lat < UpsNorth && Position.Lat > UpsSouth)
    throw EZAVGeoBasicsError(
        "the position is outside UPS, beyond 83.5 degrees north and 79.5 degrees south");
  double X = 0;
  double Y = 0;
  LatLongToUPS(Position.Lat, Position.Long, Ellipsoid, X, Y);
  const bool East = X >= 2000000;
  const char Letter = Position.Lat < 0 ? (East ? 'B' : 'A') : (East ? 'Z' : 'Y');
  return MetresText(std::string(1, Letter), X, Y, Decimals);
}

}  // namespace

std::optional<TNotation> FindNotation(std::string_view Id) noexcept {
  for (size_t i = 0; i < NotationId.size(); ++i)
    if (SameText(Id, NotationId[i])) return static_cast<TNotation>(i);
  return std::nullopt;
}

std::string PositionToText(const TGeoPosition& Position, TNotation Notation, int Decimals,
                           TGeoEllipsoid Ellipsoid) {
  if (!(std::fabs(Position.Lat) <= 90) || !std::isfinite(Position.Long))
    throw EZAVGeoBasicsError("the position is not on the globe");
  TGeoPosition OnGlobe = Position;
  if (std::fabs(OnGlobe.Long) > 180) OnGlobe.Long = std::remainder(OnGlobe.Long, 360);
  const bool Angles = Notation <= TNotation::ntDegreesMinutesSeconds;
  if (!Angles && OnGlobe.Long == 180) OnGlobe.Long = -180;  // zone 1 begins there
  const int Digits = std::clamp(Decimals, 0, MaxDecimals);
  switch (Notation) {
    case TNotation::ntUTM:
      return UtmText(OnGlobe, Digits, Ellipsoid);
    case TNotation::ntUPS:
      return UpsText(OnGlobe, Digits, Ellipsoid);
    case TNotation::ntMGRS:
      return ToMGRS(OnGlobe.Lat, OnGlobe.Long, std::clamp(Decimals, -5, 3) + 5, Ellipsoid);
    default:
      return AngleText(OnGlobe.Lat, Notation, Digits, 'N', 'S') + ", " +
             AngleText(OnGlobe.Long, Notation, Digits, 'E', 'W');
  }
}

int MetreDecimals(TNotation Notation) noexcept {
  constexpr std::array<int, 6> Decimals{5, 3, 2, 0, 0, 0};
  return Decimals[std::min<size_t>(static_cast<size_t>(Notation), Decimals.size() - 1)];
}

}  // namespace zav
