// arrays_bench.cpp - array forms beside PROJ's, and single calls, on a million points.
// SPDX-License-Identifier: MIT
#include <geobasics/geobasics.h>
#include <proj.h>
#include <support/rounds.h>

#include <algorithm>
#include <numbers>
#include <random>
#include <string>
#include <vector>

using namespace zav;

namespace {

constexpr size_t NumPoints = 1000000;
constexpr int Rounds = 11;
constexpr int Zone = 32;
constexpr TGeoEllipsoid Wgs84 = TGeoEllipsoid::gelWGS84;

using TNumbers = std::vector<double>;

// A definition that is run over whole arrays, coordinates as PROJ keeps them (radians).
class TProj {
 public:
  explicit TProj(const std::string& Definition) : FProj(proj_create(nullptr, Definition.c_str())) {}
  ~TProj() { proj_destroy(FProj); }
  TProj(const TProj&) = delete;
  TProj& operator=(const TProj&) = delete;

  std::function<void()> Run(PJ_DIRECTION Direction, const std::vector<PJ_COORD>& From) const {
    return [this, Direction, &From] {
      // PROJ works in place; copying block by block costs it next to nothing.
      std::vector<PJ_COORD> To(1000);
      for (size_t I = 0; I < NumPoints; I += To.size()) {
        std::copy_n(&From[I], To.size(), To.data());
        proj_trans_array(FProj, Direction, To.size(), To.data());
      }
    };
  }
  std::function<void()> RunEach(PJ_DIRECTION Direction, const std::vector<PJ_COORD>& From) const {
    return [this, Direction, &From] {
      static std::vector<PJ_COORD> To(NumPoints);
      for (size_t I = 0; I < NumPoints; ++I) To[I] = proj_trans(FProj, Direction, From[I]);
    };
  }

 private:
  PJ* FProj;
};

std::vector<PJ_COORD> Coordinates(const TNumbers& X, const TNumbers& Y, double Factor,
                                  const TNumbers& Z) {
  std::vector<PJ_COORD> All;
  for (size_t I = 0; I < NumPoints; ++I)
    All.push_back(proj_coord(X[I] * Factor, Y[I] * Factor, Z[I], 0));
  return All;
}

}  // namespace

int main() {
  constexpr double Radian = std::numbers::pi / 180;
  std::mt19937 Engine(32632);
  const auto Random = [&](double Low, double High) {
    TNumbers Numbers(NumPoints);
    for (double& Each : Numbers) Each = std::uniform_real_distribution<double>(Low, High)(Engine);
    return Numbers;
  };
  const TNumbers Zeros(NumPoints);
  const TNumbers Lat = Random(0, 80);
  const TNumbers Long = Random(6, 12);
  const TNumbers WideLong = Random(-180, 180);
  const TNumbers Height = Random(-100, 4000);
  TNumbers E(NumPoints), N(NumPoints), A(NumPoints), B(NumPoints), C(NumPoints);
  std::vector<int> Zones(NumPoints);
  LatLongToUTMZone(Lat, Long, Zone, Wgs84, E, N);
  const auto Degrees = Coordinates(Long, Lat, Radian, Zeros);
  const auto Metres = Coordinates(E, N, 1, Zeros);

  const TProj Exact("+proj=utm +zone=32 +ellps=WGS84");
  const TProj Approx("+proj=utm +approx +zone=32 +ellps=WGS84");
  bench::Compare(
      "UTM from degrees, an array", NumPoints, Rounds,
      {{"zavgeo, one zone", [&] { LatLongToUTMZone(Lat, Long, Zone, Wgs84, A, B); }},
       {"zavgeo, zone of each point", [&] { LatLongToUTM(Lat, WideLong, Wgs84, Zones, A, B); }},
       {"PROJ", Exact.Run(PJ_FWD, Degrees), 1.0 / 15},
       {"PROJ +approx", Approx.Run(PJ_FWD, Degrees), 1.0 / 4}});
  bench::Compare("UTM to degrees, an array", NumPoints, Rounds,
                 {{"zavgeo", [&] { UTMToLatLong(E, N, Zone, false, Wgs84, A, B); }},
                  {"PROJ", Exact.Run(PJ_INV, Metres), 1.0 / 10},
                  {"PROJ +approx", Approx.Run(PJ_INV, Metres)}});

  // The parameters of the table's row 101, Austria.
  const TProj Pipeline(
      "+proj=pipeline +step +proj=cart +ellps=bessel +step +proj=helmert +x=577.326 +y=90.129 "
      "+z=463.919 +rx=5.1366 +ry=1.4742 +rz=5.297 +s=2.4232 +convention=position_vector "
      "+step +inv +proj=cart +ellps=WGS84");
  const auto Positions = Coordinates(WideLong, Lat, Radian, Height);
  bench::Compare(
      "Datum shift with cartesian, an array", NumPoints, Rounds,
      {{"zavgeo", [&] { ExactHelmertTransform(101, Lat, WideLong, Height, 269, A, B, C); }},
       {"PROJ", Pipeline.Run(PJ_FWD, Positions), 1.0 / 10}});
  bench::Compare("Datum shift with cartesian, a point", NumPoints, Rounds,
                 {{"zavgeo",
                   [&] {
                     for (size_t I = 0; I < NumPoints; ++I)
                       ExactHelmertTransform(101, Lat[I], WideLong[I], Height[I], 269, A[I], B[I],
                                             C[I]);
                   }},
                  {"PROJ", Pipeline.RunEach(PJ_FWD, Positions), 1 / 1.7}});

  const TNumbers Polar = Random(-90, -80);
  TNumbers X(NumPoints), Y(NumPoints);
  LatLongToUPS(Polar, WideLong, Wgs84, X, Y);
  const auto PolarDegrees = Coordinates(WideLong, Polar, Radian, Zeros);
  const auto PolarMetres = Coordinates(X, Y, 1, Zeros);
  const TProj Ups("+proj=ups +south +ellps=WGS84");
  bench::Compare("UPS from degrees, an array", NumPoints, Rounds,
                 {{"zavgeo", [&] { LatLongToUPS(Polar, WideLong, Wgs84, A, B); }},
                  {"PROJ", Ups.Run(PJ_FWD, PolarDegrees)}});
  bench::Compare("UPS to degrees, an array", NumPoints, Rounds,
                 {{"zavgeo", [&] { UPSToLatLong(X, Y, true, Wgs84, A, B); }},
                  {"PROJ", Ups.Run(PJ_INV, PolarMetres)}});
  return 0;
}
