// utm.cpp - zone rules, scale and false origin over the Transverse Mercator projection.
// SPDX-License-Identifier: MIT
#include <geobasics/utm.h>

#include <algorithm>
#include <numbers>

#include <geobasics/transverse_mercator.h>
#include <geobasics/utm_about.h>

namespace zav {

namespace {

constexpr double ToRadians(double Degrees) { return Degrees * (std::numbers::pi / 180); }
constexpr double ToDegrees(double Radians) { return Radians * (180 / std::numbers::pi); }

// The floor of a number that is not negative; floor() is a library call on plain x86-64.
constexpr int Floor(double Value) { return static_cast<int>(Value); }

// The letters skip I and O; X is 12 degrees high and takes 84 degrees north in.
char BandOf(double Lat) noexcept {
  int k = Floor(Lat + 80) / 8;
  if (k >= 6) ++k;
  if (k >= 12) ++k;
  return static_cast<char>('C' + std::min(k, 21));
}

}  // namespace

double UTMCentralMeridian(int Zone) noexcept {
  return Zone < 1 || Zone > 60 ? 0.0 : ToRadians(Zone * 6 - 183);
}

void GeoToUTMZone(double Lat, double Long, int& Zone, char& Band) noexcept {
  Zone = 0;
  Band = ' ';
  if (!(Lat >= -80 && Lat <= 84 && Long >= -180 && Long < 180)) return;
  Band = BandOf(Lat);
  // The last longitude below 180 becomes 360 in the sum.
  Zone = std::min(Floor((Long + 180) / 6) + 1, 60);
  if (Band == 'V' && Long >= 3 && Long < 12) Zone = 32;  // southern Norway
  if (Band == 'X' && Long >= 0 && Long < 42)             // Svalbard
    Zone = Floor((Long + 3) / 12) * 2 + 31;
}

std::string GeoToUTMZone(double Lat, double Long) {
  int Zone = 0;
  char Band = ' ';
  GeoToUTMZone(Lat, Long, Zone, Band);
  return Zone == 0 ? std::string() : std::to_string(Zone) + Band;
}

void LatLongToUTM(double Lat, double Long, TGeoEllipsoid Ellipsoid, int& Zone, double& Easting,
                  double& Northing) noexcept {
  char Band = ' ';
  GeoToUTMZone(Lat, Long, Zone, Band);
  LatLongToUTMZone(Lat, Long, Zone, Ellipsoid, Easting, Northing);
}

void LatLongToUTMZone(double Lat, double Long, int Zone, TGeoEllipsoid Ellipsoid, double& Easting,
                      double& Northing) noexcept {
  LatLongToUTMAbout(Lat, Long, UTMCentralMeridian(Zone), Ellipsoid, Easting, Northing);
}

void LatLongToUTMAbout(double Lat, double Long, double Meridian, TGeoEllipsoid Ellipsoid,
                       double& Easting, double& Northing) noexcept {
  LatLongToTM(ToRadians(Lat), ToRadians(Long), Meridian, Ellipsoid, Easting, Northing);
  Easting = Easting * UTMScale + UTMFalseEasting;
  Northing = Northing * UTMScale;
  if (Northing < 0) Northing += UTMFalseNorthing;
}

void UTMToLatLong(double Easting, double Northing, int Zone, bool SouthHemi,
                  TGeoEllipsoid Ellipsoid, double& Lat, double& Long) noexcept {
  UTMToLatLongAbout(Easting, Northing, UTMCentralMeridian(Zone), SouthHemi, Ellipsoid, Lat, Long);
}

void UTMToLatLongAbout(double Easting, double Northing, double Meridian, bool SouthHemi,
                       TGeoEllipsoid Ellipsoid, double& Lat, double& Long) noexcept {
  const double X = (Easting - UTMFalseEasting) / UTMScale;
  const double Y = (SouthHemi ? Northing - UTMFalseNorthing : Northing) / UTMScale;
  double Phi = 0;
  double Lambda = 0;
  TMToLatLong(X, Y, Meridian, Ellipsoid, Phi, Lambda);
  Lat = ToDegrees(Phi);
  Long = ToDegrees(Lambda);
}

}  // namespace zav
