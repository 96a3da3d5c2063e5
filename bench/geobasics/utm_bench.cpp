// utm_bench.cpp - UTM both ways beside GeographicLib and PROJ, on the same points.
// SPDX-License-Identifier: MIT
#include <geobasics/utm.h>
#include <proj.h>
#include <support/rounds.h>

#include <GeographicLib/TransverseMercator.hpp>
#include <cmath>
#include <numbers>
#include <random>
#include <string>
#include <vector>

using namespace zav;

namespace {

constexpr size_t NumPoints = 20000;
constexpr int Rounds = 101;
constexpr int Zone = 32;

struct TPoints {
  std::vector<double> A, B;
};

volatile double Sink;  // keeps the results alive

template <typename Convert>
void ForAll(const TPoints& Points, Convert Call) {
  double Sum = 0;
  for (size_t i = 0; i < NumPoints; ++i) {
    double First = 0;
    double Second = 0;
    Call(Points.A[i], Points.B[i], First, Second);
    Sum += First + Second;
  }
  Sink = Sum;
}

class TProj {
 public:
  explicit TProj(const std::string& Definition) : FProj(proj_create(nullptr, Definition.c_str())) {}
  ~TProj() { proj_destroy(FProj); }
  TProj(const TProj&) = delete;
  TProj& operator=(const TProj&) = delete;

  void Forward(double Lat, double Long, double& X, double& Y) const {
    const PJ_COORD To =
        proj_trans(FProj, PJ_FWD,
                   proj_coord(Long * std::numbers::pi / 180, Lat * std::numbers::pi / 180, 0, 0));
    X = To.xy.x;
    Y = To.xy.y;
  }
  void Reverse(double X, double Y, double& Lat, double& Long) const {
    const PJ_COORD To = proj_trans(FProj, PJ_INV, proj_coord(X, Y, 0, 0));
    Lat = To.lp.phi * 180 / std::numbers::pi;
    Long = To.lp.lam * 180 / std::numbers::pi;
  }

 private:
  PJ* FProj;
};

}  // namespace

int main() {
  std::mt19937 Engine(32632);
  std::uniform_real_distribution<double> Lat(30, 84);
  std::uniform_real_distribution<double> Long(6, 12);
  TPoints Degrees;
  TPoints Metres;
  for (size_t i = 0; i < NumPoints; ++i) {
    Degrees.A.push_back(Lat(Engine));
    Degrees.B.push_back(Long(Engine));
    double Easting = 0;
    double Northing = 0;
    LatLongToUTMZone(Degrees.A[i], Degrees.B[i], Zone, TGeoEllipsoid::gelWGS84, Easting, Northing);
    Metres.A.push_back(Easting);
    Metres.B.push_back(Northing);
  }
  const GeographicLib::TransverseMercator& Lib = GeographicLib::TransverseMercator::UTM();
  const TProj Exact("+proj=utm +zone=32 +ellps=WGS84");
  const TProj Approx("+proj=utm +approx +zone=32 +ellps=WGS84");
  const auto ProjForward = [&](const TProj& P) {
    return [&] {
      ForAll(Degrees, [&](double A, double B, double& X, double& Y) { P.Forward(A, B, X, Y); });
    };
  };
  const auto ProjReverse = [&](const TProj& P) {
    return [&] {
      ForAll(Metres, [&](double A, double B, double& X, double& Y) { P.Reverse(A, B, X, Y); });
    };
  };

  bench::Compare("UTM from degrees, a point", NumPoints, Rounds,
                 {{"zavgeo",
                   [&] {
                     ForAll(Degrees, [](double A, double B, double& X, double& Y) {
                       int Found = 0;
                       LatLongToUTM(A, B, TGeoEllipsoid::gelWGS84, Found, X, Y);
                     });
                   }},
                  {"GeographicLib series",
                   [&] {
                     ForAll(Degrees, [&](double A, double B, double& X, double& Y) {
                       Lib.Forward(Zone * 6 - 183, A, B, X, Y);
                     });
                   }},
                  {"PROJ", ProjForward(Exact), 1 / 1.7},
                  {"PROJ +approx", ProjForward(Approx)}});
  bench::Compare("UTM to degrees, a point", NumPoints, Rounds,
                 {{"zavgeo",
                   [&] {
                     ForAll(Metres, [](double A, double B, double& X, double& Y) {
                       UTMToLatLong(A, B, Zone, false, TGeoEllipsoid::gelWGS84, X, Y);
                     });
                   }},
                  {"GeographicLib series",
                   [&] {
                     ForAll(Metres, [&](double A, double B, double& X, double& Y) {
                       Lib.Reverse(Zone * 6 - 183, A - 500000, B, X, Y);
                     });
                   }},
                  {"PROJ", ProjReverse(Exact), 1 / 1.7},
                  {"PROJ +approx", ProjReverse(Approx)}});
  return 0;
}
