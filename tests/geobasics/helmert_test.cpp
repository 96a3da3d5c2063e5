// helmert_test.cpp - datum shifts over the whole globe, against PROJ.
// SPDX-License-Identifier: MIT
#include <geobasics/helmert.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include "proj_support.h"

namespace zav {
namespace {

using enum TGeoEllipsoid;

constexpr int Wgs84 = WGS84DatumRow;

std::string HelmertStep(const TDatumRow& Row) {
  std::string Step = "+proj=helmert +convention=position_vector";
  const std::pair<const char*, double> Values[] = {
      {" +x=", Row.Dx},  {" +y=", Row.Dy},  {" +z=", Row.Dz}, {" +s=", Row.Ds},
      {" +rx=", Row.Rx}, {" +ry=", Row.Ry}, {" +rz=", Row.Rz}};
  for (const auto& [Key, Value] : Values) Step += Key + ShortestNumber(Value);
  return Step;
}

// Metres between two positions of one ellipsoid.
double Distance(const TTriple& A, const TTriple& B) {
  const double Degree = std::numbers::pi / 180;
  const double East = std::remainder(A[1] - B[1], 360) * std::cos(A[0] * Degree);
  return std::hypot(East * Degree * 6.4e6, (A[0] - B[0]) * Degree * 6.4e6, A[2] - B[2]);
}

TTriple Shift(int From, const TTriple& P, int To, decltype(&HelmertTransform) Transform) {
  TTriple Out{};
  EXPECT_EQ(Transform(From, P[0], P[1], P[2], To, Out[0], Out[1], Out[2]), 0);
  return Out;
}

TEST(Helmert, EveryDatumAgreesWithPROJOverTheGlobe) {
  std::mt19937 Random(271);
  std::uniform_real_distribution<double> Lat(-89.9, 89.9);
  std::uniform_real_distribution<double> Long(-180, 180);
  double WorstBack = 0;
  for (int Row = 1; Row <= NumDatumRows; ++Row) {
    const TDatumRow& Datum = *DatumRow(Row);
    SCOPED_TRACE(testing::Message() << Row << ' ' << Datum.Name);
    const TPipeline Judge(LongLatDegrees + CartStep(Datum.Ellipsoid) + " +step " +
                          HelmertStep(Datum) + " +step +inv " + CartStep(gelWGS84) +
                          " +step +proj=unitconvert +xy_in=rad +xy_out=deg");
    const double Turn = std::hypot(Datum.Rx, Datum.Ry, Datum.Rz) * std::numbers::pi / 648000;
    const double Scale = std::fabs(Datum.Ds) * 1e-6;
    const double Moved = std::hypot(Datum.Dx, Datum.Dy, Datum.Dz);
    // What the first order leaves out: the square of rotation and scale over the radius, and both
    // over the translation.
    const double FirstOrder = std::pow(Turn + Scale, 2) * 6.4e6 + (Turn + Scale) * Moved;
    for (int i = 0; i < 60; ++i) {
      const TTriple P{Lat(Random), Long(Random), i % 3 * 1500.0 - 500};
      const auto There = [&](const TTriple& From) {
        const TTriple To = Judge({From[1], From[0], From[2]});
        return TTriple{To[1], To[0], To[2]};
      };
      const TTriple Expected = There(P);
      const TTriple Exact = Shift(Row, P, Wgs84, ExactHelmertTransform);
      ASSERT_LT(Distance(Exact, Expected), 1e-5);
      // The exact way back, proved by PROJ's way there.
      const TTriple Back = Shift(Wgs84, P, Row, ExactHelmertTransform);
      ASSERT_LT(Distance(There(Back), P), 1e-5);
      ASSERT_LT(Distance(Shift(Row, Back, Wgs84, ExactHelmertTransform), P), 1e-8);
      if (RecipFlattening(Datum.Ellipsoid) == 0) continue;
      // The plain form, half a turn off beyond 90 degrees; height and latitude are not.
      const TTriple Plain = Shift(Row, P, Wgs84, HelmertTransform);
      ASSERT_LT(Distance({Plain[0], Exact[1] + std::remainder(Plain[1] - Exact[1], 180), Plain[2]},
                         Exact),
                1e-4);
      const TTriple PlainBack = Shift(Wgs84, P, Row, HelmertTransform);
      const double Off = Distance(
          {PlainBack[0], Back[1] + std::remainder(PlainBack[1] - Back[1], 180), PlainBack[2]},
          Back);
      ASSERT_LT(Off, FirstOrder + 1e-4);
      WorstBack = std::max(WorstBack, Off);
    }
  }
  // What helmert.h promises of the first order.
  EXPECT_GT(WorstBack, 0.01);
  EXPECT_LT(WorstBack, 0.07);
}

TEST(Helmert, CodesInTheirOrder) {
  const double Nan = std::nan("");
  const struct {
    int From;
    double Lat, Long;
    int To, Code;
  } Cases[] = {
      {269, 50, 10, 269, 0},     {0, 50, 10, 269, -1},    {272, 50, 10, 1, -1},
      {269, 50, 10, 272, -2},    {269, 50, 10, 0, -2},    {0, 50, 10, 272, -2},
      {269, 91, 10, 269, -3},    {0, -90.1, 10, 0, -3},   {269, 91, 181, 0, -4},
      {0, 0, -180.1, 0, -4},     {269, Nan, 10, 269, -3}, {269, 50, Nan, 269, -4},
      {1, 90, 180, 271, 0},      {1, -90, -180, 271, 0},  {-2147483648, 0, 0, 1, -1},
      {1, 0, 0, 2147483647, -2},
  };
  for (const auto& Case : Cases)
    for (const auto Transform : {&HelmertTransform, &ExactHelmertTransform}) {
      SCOPED_TRACE(testing::Message()
                   << Case.From << ' ' << Case.Lat << ' ' << Case.Long << ' ' << Case.To);
      double Lat = 1.5;
      double Long = 2.5;
      double Height = 3.5;
      EXPECT_EQ(Transform(Case.From, Case.Lat, Case.Long, 0, Case.To, Lat, Long, Height),
                Case.Code);
      EXPECT_EQ(Lat == 1.5 && Long == 2.5 && Height == 3.5, Case.Code != 0);
    }
  const TTriple Same = Shift(Wgs84, {50, 10, 100}, Wgs84, HelmertTransform);
  EXPECT_NEAR(Same[0], 50, 1e-10);
  EXPECT_NEAR(Same[1], 10, 1e-12);
  EXPECT_NEAR(Same[2], 100, 1e-5);
  EXPECT_NEAR(Shift(Wgs84, {50, 170, 0}, Wgs84, HelmertTransform)[1], -10, 1e-12);
  EXPECT_NEAR(Shift(Wgs84, {50, 170, 0}, Wgs84, ExactHelmertTransform)[1], 170, 1e-12);
}

}  // namespace
}  // namespace zav
