// accuracy_bench.cpp - how far our numbers are from those of GeographicLib and PROJ, at most, over
// many random places. Prints a table; docs/accuracy.md shows one.
// SPDX-License-Identifier: MIT
#include <geobasics/coordinate_arrays.h>
#include <geobasics/geobasics.h>
#include <platform/base/text_format.h>
#include <proj.h>

#include <GeographicLib/Geocentric.hpp>
#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/PolarStereographic.hpp>
#include <GeographicLib/TransverseMercator.hpp>
#include <algorithm>
#include <cmath>
#include <iostream>
#include <memory>
#include <numbers>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr double Degree = std::numbers::pi / 180;
constexpr double DegreeMetres = 111320;
constexpr int Places = 200000;
constexpr zav::TGeoEllipsoid Ellipsoids[] = {
    zav::TGeoEllipsoid::gelWGS84, zav::TGeoEllipsoid::gelBess41, zav::TGeoEllipsoid::gelClrk80RGS,
    zav::TGeoEllipsoid::gelSphere};

std::mt19937 Engine(1);

double Random(double Low, double High) {
  return std::uniform_real_distribution<double>(Low, High)(Engine);
}

void Tell(const std::string& What, const char* Judge, double Metres) {
  std::cout << "| " << What << " | " << Judge << " | " << Metres << " m |\n";
}

// Metres on the ground between two positions in degrees.
double Apart(double Lat1, double Long1, double Lat2, double Long2) {
  const double East = std::remainder(Long2 - Long1, 360) * std::cos(Lat1 * Degree);
  return std::hypot(East, Lat2 - Lat1) * DegreeMetres;
}

// Both ways, within so many degrees of the central meridian and latitudes.
void CompareUTM(const std::string& Where, double Reach, double South, double North) {
  double There = 0;
  double Back = 0;
  for (const auto Ellipsoid : Ellipsoids) {
    const auto [A, B] = zav::AxesOf(Ellipsoid);
    const GeographicLib::TransverseMercator Judge(A, (A - B) / A, 0.9996);
    for (int i = 0; i < Places; ++i) {
      const double Lat = Random(South, North);
      const double Long = 9 + Random(-Reach, Reach);
      double X = 0, Y = 0, Easting = 0, Northing = 0, Lat2 = 0, Long2 = 0;
      Judge.Forward(9, Lat, Long, X, Y);
      X += 500000;
      if (Lat < 0) Y += 10000000;
      zav::LatLongToUTMZone(Lat, Long, 32, Ellipsoid, Easting, Northing);
      There = std::max(There, std::hypot(Easting - X, Northing - Y));
      zav::UTMToLatLong(X, Y, 32, Lat < 0, Ellipsoid, Lat2, Long2);
      Back = std::max(Back, Apart(Lat, Long, Lat2, Long2));
    }
  }
  Tell("UTM from degrees, " + Where, "GeographicLib", There);
  Tell("UTM to degrees, " + Where, "GeographicLib", Back);
}

void CompareUPS() {
  double There = 0;
  double Back = 0;
  for (const auto Ellipsoid : Ellipsoids) {
    const auto [A, B] = zav::AxesOf(Ellipsoid);
    const GeographicLib::PolarStereographic Judge(A, (A - B) / A, 0.994);
    for (int i = 0; i < Places; ++i) {
      const bool South = i % 2 != 0;
      const double Lat = South ? Random(-90, -79) : Random(83, 90);
      const double Long = Random(-180, 180);
      double X = 0, Y = 0, OurX = 0, OurY = 0, Lat2 = 0, Long2 = 0;
      Judge.Forward(!South, Lat, Long, X, Y);
      zav::LatLongToUPS(Lat, Long, Ellipsoid, OurX, OurY);
      There = std::max(There, std::hypot(OurX - X - 2000000, OurY - Y - 2000000));
      zav::UPSToLatLong(X + 2000000, Y + 2000000, South, Ellipsoid, Lat2, Long2);
      Back = std::max(Back, Apart(Lat, Long, Lat2, Long2));
    }
  }
  Tell("UPS from degrees", "GeographicLib", There);
  Tell("UPS to degrees", "GeographicLib", Back);
}

void CompareCartesian() {
  double There = 0;
  double Exact = 0;
  double OneStep = 0;
  for (const auto Ellipsoid : Ellipsoids) {
    const auto [A, B] = zav::AxesOf(Ellipsoid);
    const GeographicLib::Geocentric Judge(A, (A - B) / A);
    for (int i = 0; i < Places; ++i) {
      const double Lat = Random(-90, 90);
      const double Long = Random(-90, 90);
      const double Height = Random(-5000, 10000);
      double X = 0, Y = 0, Z = 0, OurX = 0, OurY = 0, OurZ = 0, Lat2 = 0, Long2 = 0, Height2 = 0;
      Judge.Forward(Lat, Long, Height, X, Y, Z);
      zav::GeoToCartesian(Lat, Long, Height, Ellipsoid, OurX, OurY, OurZ);
      There = std::max(There, std::hypot(OurX - X, OurY - Y, OurZ - Z));
      zav::ExactCartesianToGeo(X, Y, Z, Ellipsoid, Lat2, Long2, Height2);
      Exact = std::max(Exact, std::hypot(Apart(Lat, Long, Lat2, Long2), Height2 - Height));
      if (A == B) continue;
      zav::CartesianToGeo(X, Y, Z, Ellipsoid, Lat2, Long2, Height2);
      OneStep = std::max(OneStep, std::hypot(Apart(Lat, Long, Lat2, Long2), Height2 - Height));
    }
  }
  Tell("Cartesian from degrees", "GeographicLib", There);
  Tell("Cartesian to degrees, `ExactCartesianToGeo`", "GeographicLib", Exact);
  Tell("the same in one step, `CartesianToGeo`", "GeographicLib", OneStep);
}

void CompareGeodesics() {
  double Worst = 0;
  for (const auto Ellipsoid : Ellipsoids) {
    const auto Axes = zav::AxesOf(Ellipsoid);
    const GeographicLib::Geodesic Judge(Axes.A, (Axes.A - Axes.B) / Axes.A);
    for (int i = 0; i < Places; ++i) {
      const double Lat1 = Random(-90, 90), Long1 = Random(-180, 180);
      const double Lat2 = Random(-90, 90), Long2 = Random(-180, 180);
      double Distance = 0;
      // Nearly opposite points have another bound, half a percent.
      if (Judge.Inverse(Lat1, Long1, Lat2, Long2, Distance) > 178.5) continue;
      const double Ours = zav::GeodesicBetween(Axes, Lat1, Long1, Lat2, Long2).Distance;
      Worst = std::max(Worst, std::abs(Ours - Distance));
    }
  }
  Tell("Distance of two points, not opposite", "GeographicLib", Worst);
}

// Every datum to WGS 84, with its own ellipsoid and parameters, by a pipeline of PROJ.
void CompareDatums() {
  double Worst = 0;
  const std::unique_ptr<PJ_CONTEXT, decltype(&proj_context_destroy)> Context(proj_context_create(),
                                                                             proj_context_destroy);
  for (int Row = 1; Row <= zav::NumDatumRows; ++Row) {
    const zav::TDatumRow& Datum = *zav::DatumRow(Row);
    const auto Cart = [](zav::TGeoEllipsoid Ellipsoid) {
      return "+proj=cart +a=" + zav::ShortestNumber(zav::AxesOf(Ellipsoid).A) +
             " +b=" + zav::ShortestNumber(zav::AxesOf(Ellipsoid).B);
    };
    std::string Pipeline = "+proj=pipeline +step +proj=unitconvert +xy_in=deg +xy_out=rad +step " +
                           Cart(Datum.Ellipsoid) +
                           " +step +proj=helmert +convention=position_vector";
    const std::pair<const char*, double> Values[] = {
        {" +x=", Datum.Dx},  {" +y=", Datum.Dy},  {" +z=", Datum.Dz}, {" +s=", Datum.Ds},
        {" +rx=", Datum.Rx}, {" +ry=", Datum.Ry}, {" +rz=", Datum.Rz}};
    for (const auto& [Key, Value] : Values) Pipeline += Key + zav::ShortestNumber(Value);
    Pipeline += " +step +inv " + Cart(zav::TGeoEllipsoid::gelWGS84) +
                " +step +proj=unitconvert +xy_in=rad +xy_out=deg";
    const std::unique_ptr<PJ, decltype(&proj_destroy)> Judge(
        proj_create(Context.get(), Pipeline.c_str()), proj_destroy);
    for (int i = 0; i < 1000; ++i) {
      const double Lat = Random(-89.9, 89.9), Long = Random(-180, 180);
      const double Height = Random(-500, 5000);
      double Lat2 = 0, Long2 = 0, Height2 = 0;
      zav::ExactHelmertTransform(Row, Lat, Long, Height, zav::WGS84DatumRow, Lat2, Long2, Height2);
      const PJ_COORD To = proj_trans(Judge.get(), PJ_FWD, proj_coord(Long, Lat, Height, 0));
      Worst = std::max(Worst,
                       std::hypot(Apart(Lat2, Long2, To.lpz.phi, To.lpz.lam), Height2 - To.lpz.z));
    }
  }
  Tell("Every datum to WGS 84, `ExactHelmertTransform`", "PROJ", Worst);
}

void CompareArrays() {
  Engine.seed(2);
  std::vector<double> Lat(Places), Long(Places), X(Places), Y(Places), Lat2(Places), Long2(Places);
  for (size_t i = 0; i < Lat.size(); ++i) {
    Lat[i] = Random(-80, 84);
    Long[i] = 9 + Random(-3, 3);
  }
  constexpr auto Ellipsoid = zav::TGeoEllipsoid::gelWGS84;
  zav::LatLongToUTMZone(Lat, Long, 32, Ellipsoid, X, Y);
  double There = 0;
  for (size_t i = 0; i < Lat.size(); ++i) {
    double OneX = 0, OneY = 0;
    zav::LatLongToUTMZone(Lat[i], Long[i], 32, Ellipsoid, OneX, OneY);
    There = std::max(There, std::hypot(X[i] - OneX, Y[i] - OneY));
  }
  Tell("UTM of arrays", "the single call", There);
}

}  // namespace

int main() {
  std::cout.precision(2);
  std::cout << "| What | Judge | Largest difference |\n|---|---|---|\n";
  CompareUTM("3 degrees from the central meridian, latitudes to 80", 3, -80, 80);
  CompareUTM("3 degrees, latitudes 80 to 84", 3, 80, 84);
  CompareUTM("6 degrees, latitudes to 80", 6, -80, 80);
  CompareUPS();
  CompareCartesian();
  CompareGeodesics();
  CompareDatums();
  CompareArrays();
}
