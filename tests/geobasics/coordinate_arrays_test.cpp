// coordinate_arrays_test.cpp - array forms against the single calls, on every kind of processor
// that this one can stand for.
// SPDX-License-Identifier: MIT
#include <geobasics/arrays/kernels.h>
#include <geobasics/geobasics.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace zav {
namespace {

using TNumbers = std::vector<double>;

constexpr double Bound = 1e-8;              // metres
constexpr double MetresPerDegree = 111320;  // at most, of latitude or longitude
constexpr double AngleBound = Bound / MetresPerDegree;
const double NaN = std::numeric_limits<double>::quiet_NaN();
const double Inf = std::numeric_limits<double>::infinity();

struct TPoints {
  TNumbers Lat, Long, Height;
};

// Positions spread over all that there is, and every edge with every other.
TPoints Positions() {
  TPoints P;
  std::mt19937 Engine(20);
  const auto Random = [&](double Low, double High) {
    return std::uniform_real_distribution<double>(Low, High)(Engine);
  };
  for (int I = 0; I < 20000; ++I) {
    P.Lat.push_back(Random(-90, 90));
    P.Long.push_back(Random(-180, 180));
    P.Height.push_back(I % 10 == 0 ? Random(-5e6, 4e7) : Random(-1e4, 2e4));
  }
  const TNumbers Lats{-90, -89.99999, -80, -45,     -1e-12, -0.0, 0,    1e-12, 45,  56, 64,
                      72,  83.999999, 84,  84.0001, 89.95,  90,   90.5, 200,   NaN, Inf};
  const TNumbers Longs{
      -540.5, -180.5, -180, -179.999999999,   -90, -6,    -0.0, 0,   3,   6, 9, 12, 21, 33,
      42,     90,     174,  179.999999999999, 180, 180.5, 1e9,  NaN, -Inf};
  for (const double Lat : Lats)
    for (const double Long : Longs) {
      P.Lat.push_back(Lat);
      P.Long.push_back(Long);
      P.Height.push_back(Lat == 45 ? NaN : 100);
    }
  return P;
}

// Equal within a bound, or both not a number, or the same infinity; for large values to rounding.
void ExpectNear(double Array, double Single, double Within, size_t Index, const char* What) {
  if (std::isnan(Single) || std::isinf(Single)) {
    EXPECT_TRUE(Array == Single || (std::isnan(Array) && std::isnan(Single)))
        << What << " " << Index << ": " << Array << " " << Single;
    return;
  }
  if (std::fabs(Array - Single) <= Within) return;  // a gtest macro for each point takes too long
  ADD_FAILURE() << What << " " << Index << ": " << Array - Single << " of " << Single;
}

void ExpectNear(const TNumbers& Array, const TNumbers& Single, double Within, const char* What) {
  ASSERT_EQ(Array.size(), Single.size());
  for (size_t I = 0; I < Array.size() && !testing::Test::HasFailure(); ++I)
    ExpectNear(Array[I], Single[I], Within, I, What);
}

// Of UPS coordinates and other positions: longitudes count by what they are on the ground.
void ExpectSamePlaces(const TNumbers& Lat, const TNumbers& Long, const TNumbers& SingleLat,
                      const TNumbers& SingleLong) {
  ExpectNear(Lat, SingleLat, AngleBound, "latitude");
  for (size_t I = 0; I < Long.size() && !testing::Test::HasFailure(); ++I) {
    const double Shrink = std::fabs(std::cos(SingleLat[I] * 0.017453292519943295));
    ExpectNear(Long[I], SingleLong[I],
               std::isfinite(Shrink) ? AngleBound / std::max(Shrink, 1e-5) : AngleBound, I,
               "longitude");
  }
}

constexpr TGeoEllipsoid Ellipsoids[] = {TGeoEllipsoid::gelWGS84, TGeoEllipsoid::gelClrk80RGS,
                                        TGeoEllipsoid::gelSphere};

TEST(CoordinateArrays, UTMIsTheSingleCalls) {
  const TPoints P = Positions();
  const size_t Count = P.Lat.size();
  for (const TGeoEllipsoid Ellipsoid : Ellipsoids) {
    TNumbers E(Count), N(Count), SingleE(Count), SingleN(Count);
    std::vector<int> Zones(Count), SingleZones(Count);
    LatLongToUTM(P.Lat, P.Long, Ellipsoid, Zones, E, N);
    for (size_t I = 0; I < Count; ++I)
      LatLongToUTM(P.Lat[I], P.Long[I], Ellipsoid, SingleZones[I], SingleE[I], SingleN[I]);
    EXPECT_EQ(Zones, SingleZones);
    ExpectNear(E, SingleE, Bound, "easting");
    ExpectNear(N, SingleN, Bound, "northing");

    // And back, each in its own zone; points of no zone too. The two poles' series end far off.
    std::vector<THemisphere> Hemispheres(Count);
    for (size_t I = 0; I < Count; ++I)
      Hemispheres[I] = P.Lat[I] < 0 ? THemisphere::hemiSouth : THemisphere::hemiNorth;
    TNumbers Lat(Count), Long(Count), SingleLat(Count), SingleLong(Count);
    UTMToLatLong(SingleE, SingleN, Zones, Hemispheres, Ellipsoid, Lat, Long);
    for (size_t I = 0; I < Count; ++I)
      UTMToLatLong(SingleE[I], SingleN[I], Zones[I], P.Lat[I] < 0, Ellipsoid, SingleLat[I],
                   SingleLong[I]);
    ExpectSamePlaces(Lat, Long, SingleLat, SingleLong);

    // One zone for all, in place.
    for (const int Zone : {32, 60, 0}) {
      TNumbers A = P.Lat, B = P.Long;
      LatLongToUTMZone(A, B, Zone, Ellipsoid, A, B);
      for (size_t I = 0; I < Count; ++I)
        LatLongToUTMZone(P.Lat[I], P.Long[I], Zone, Ellipsoid, SingleE[I], SingleN[I]);
      ExpectNear(A, SingleE, Bound, "easting in a zone");
      ExpectNear(B, SingleN, Bound, "northing in a zone");
      UTMToLatLong(A, B, Zone, true, Ellipsoid, A, B);
      for (size_t I = 0; I < Count; ++I)
        UTMToLatLong(SingleE[I], SingleN[I], Zone, true, Ellipsoid, SingleLat[I], SingleLong[I]);
      // Outside the zone the series end far from any place and magnify what A and B differ by.
      for (size_t I = 0; I < Count; ++I)
        if (std::fabs(SingleE[I] - 500000) > 1e6 || !(std::fabs(P.Lat[I]) < 84))
          A[I] = SingleLat[I], B[I] = SingleLong[I];
      ExpectSamePlaces(A, B, SingleLat, SingleLong);
    }
  }
}

TEST(CoordinateArrays, UPSIsTheSingleCalls) {
  const TPoints P = Positions();
  const size_t Count = P.Lat.size();
  for (const TGeoEllipsoid Ellipsoid : Ellipsoids) {
    TNumbers X = P.Lat, Y = P.Long, SingleX(Count), SingleY(Count);
    LatLongToUPS(X, Y, Ellipsoid, X, Y);
    for (size_t I = 0; I < Count; ++I)
      LatLongToUPS(P.Lat[I], P.Long[I], Ellipsoid, SingleX[I], SingleY[I]);
    ExpectNear(X, SingleX, Bound, "x");
    ExpectNear(Y, SingleY, Bound, "y");
    for (const bool South : {false, true}) {
      TNumbers Lat(Count), Long(Count), SingleLat(Count), SingleLong(Count);
      UPSToLatLong(SingleX, SingleY, South, Ellipsoid, Lat, Long);
      for (size_t I = 0; I < Count; ++I)
        UPSToLatLong(SingleX[I], SingleY[I], South, Ellipsoid, SingleLat[I], SingleLong[I]);
      ExpectSamePlaces(Lat, Long, SingleLat, SingleLong);
    }
  }
  // The axes are met exactly, as by the single call.
  const TNumbers Lat{90, -85, -85, 85, 85}, Long{17, 90, -180, 180, -90};
  TNumbers X(5), Y(5);
  LatLongToUPS(Lat, Long, TGeoEllipsoid::gelWGS84, X, Y);
  EXPECT_EQ(X[0], 2000000);
  EXPECT_EQ(Y[0], 2000000);
  EXPECT_EQ(Y[1], 2000000);
  EXPECT_EQ(X[2], 2000000);
  EXPECT_EQ(X[3], 2000000);
  EXPECT_EQ(Y[4], 2000000);
}

TEST(CoordinateArrays, CartesianAndHelmertAreTheSingleCalls) {
  const TPoints P = Positions();
  const size_t Count = P.Lat.size();
  for (const TGeoEllipsoid Ellipsoid : Ellipsoids) {
    TNumbers X = P.Lat, Y = P.Long, Z = P.Height;
    TNumbers SingleX(Count), SingleY(Count), SingleZ(Count);
    GeoToCartesian(X, Y, Z, Ellipsoid, X, Y, Z);
    for (size_t I = 0; I < Count; ++I)
      GeoToCartesian(P.Lat[I], P.Long[I], P.Height[I], Ellipsoid, SingleX[I], SingleY[I],
                     SingleZ[I]);
    for (const auto& [Array, Single] : {std::pair{&X, &SingleX}, {&Y, &SingleY}, {&Z, &SingleZ}})
      for (size_t I = 0; I < Count && !HasFailure(); ++I)  // far out, numbers are coarser
        ExpectNear((*Array)[I], (*Single)[I], P.Height[I] > 1e6 ? 4 * Bound : Bound, I,
                   "cartesian");
    TNumbers Lat(Count), Long(Count), Height(Count);
    TNumbers SingleLat(Count), SingleLong(Count), SingleHeight(Count);
    ExactCartesianToGeo(SingleX, SingleY, SingleZ, Ellipsoid, Lat, Long, Height);
    for (size_t I = 0; I < Count; ++I)
      ExactCartesianToGeo(SingleX[I], SingleY[I], SingleZ[I], Ellipsoid, SingleLat[I],
                          SingleLong[I], SingleHeight[I]);
    ExpectSamePlaces(Lat, Long, SingleLat, SingleLong);
    ExpectNear(Height, SingleHeight, Bound, "height");
  }

  for (const auto& [Source, Target] : {std::pair{101, 269}, {183, 262}, {1, 101}, {268, 183}}) {
    TNumbers Lat = P.Lat, Long = P.Long, Height = P.Height;  // in place
    TNumbers SingleLat = P.Lat, SingleLong = P.Long, SingleHeight = P.Height;
    int SingleCode = 0;
    for (size_t I = 0; I < Count; ++I) {
      const int Code = ExactHelmertTransform(Source, P.Lat[I], P.Long[I], P.Height[I], Target,
                                             SingleLat[I], SingleLong[I], SingleHeight[I]);
      if (SingleCode == 0) SingleCode = Code;
    }
    EXPECT_EQ(ExactHelmertTransform(Source, Lat, Long, Height, Target, Lat, Long, Height),
              SingleCode);
    ExpectSamePlaces(Lat, Long, SingleLat, SingleLong);
    ExpectNear(Height, SingleHeight, 2 * Bound, "height");
  }
}

TEST(CoordinateArrays, EveryProcessorGivesTheSameNumbers) {
  const TPoints P = Positions();
  const size_t Count = P.Lat.size();
  const double Meridian = UTMCentralMeridian(33);
  const auto Convert = [&](const TArrayKernels& Kernels) {
    std::array<TNumbers, 6> To;
    To.fill(TNumbers(Count));
    Kernels.ToUTM({P.Lat.data(), P.Long.data(), nullptr}, {&Meridian, 0}, TGeoEllipsoid::gelInt24,
                  {To[0].data(), To[1].data(), nullptr}, Count);
    Kernels.FromUPS({To[0].data(), To[1].data(), nullptr}, true, TGeoEllipsoid::gelInt24,
                    {To[2].data(), To[3].data(), nullptr}, Count);
    Kernels.FromCartesian({To[0].data(), To[1].data(), P.Height.data()}, TGeoEllipsoid::gelInt24,
                          {To[0].data(), To[4].data(), To[5].data()}, Count);
    for (TNumbers& Each : To)
      for (double& Number : Each) Number = std::isnan(Number) ? 0.25 : Number;
    return To;
  };
  EXPECT_EQ(Convert(PlainArrayKernels), Convert(ArrayKernels()));
}

TEST(CoordinateArrays, LengthsAndEnds) {
  TNumbers A(3), B(2);
  std::vector<int> Zones(3);
  EXPECT_THROW(LatLongToUTMZone(A, B, 32, TGeoEllipsoid::gelWGS84, A, A), EZAVGeoBasicsError);
  EXPECT_THROW(LatLongToUTM(A, A, TGeoEllipsoid::gelWGS84, Zones, A, B), EZAVGeoBasicsError);
  EXPECT_THROW(UPSToLatLong(A, A, true, TGeoEllipsoid::gelWGS84, B, A), EZAVGeoBasicsError);
  EXPECT_THROW(ExactHelmertTransform(1, A, A, A, 2, A, A, B), EZAVGeoBasicsError);
  EXPECT_EQ(ExactHelmertTransform(0, A, A, A, 272, A, A, A), -2);
  EXPECT_EQ(ExactHelmertTransform(0, A, A, A, 1, A, A, A), -1);
  EXPECT_EQ(A, TNumbers(3));
  // No points, and every length up to some blocks; nothing is written behind the end.
  for (size_t Count : {0, 1, 2, 3, 4, 5, 7, 255, 256, 257, 515}) {
    TNumbers Lat(Count + 1, 47), Long(Count + 1, 11);
    Zones.resize(Count);
    const std::span<double> La(Lat.data(), Count), Lo(Long.data(), Count);
    LatLongToUTM(La, Lo, TGeoEllipsoid::gelWGS84, Zones, La, Lo);
    for (size_t I = 0; I < Count; ++I) {
      EXPECT_EQ(Zones[I], 32);
      EXPECT_NEAR(Lat[I], 652000, 100000);
      EXPECT_EQ(Long[I], Long[0]);
    }
    EXPECT_EQ(Lat[Count], 47);
    EXPECT_EQ(Long[Count], 11);
  }
}

}  // namespace
}  // namespace zav
