// ellipsoids_test.cpp - the catalogue against the EPSG data set, and shapes from axes.
// SPDX-License-Identifier: MIT
#include <geobasics/ellipsoids.h>
#include <gtest/gtest.h>
#include <proj.h>

#include <cmath>
#include <memory>
#include <string>

namespace zav {
namespace {

using enum TGeoEllipsoid;

struct TRow {
  const char* Id;
  int Epsg;  // code of the same ellipsoid in the EPSG data set, 0 = not in it
  TGeoEllipsoid Ellipsoid;
};

#define ROW(Enumerator, Epsg) \
  { #Enumerator, Epsg, Enumerator }
// clang-format off
const TRow Rows[] = {
    ROW(gelWGS84, 7030),
    ROW(gelWGS72, 7043),
    ROW(gelWGS66, 0),
    ROW(gelWGS60, 0),
    ROW(gelClrk80RGS, 7012),
    ROW(gelClrk66, 7008),
    ROW(gelBess41, 7004),
    ROW(gelBess41Jap, 7004),
    ROW(gelBess41Nam, 7006),
    ROW(gelNewInt67, 0),
    ROW(gelInt24, 7022),
    ROW(gelEver69, 7056),
    ROW(gelEver56, 7044),
    ROW(gelEver48, 7018),
    ROW(gelEver30Ind, 7015),
    ROW(gelEverPak, 0),
    ROW(gelEverest, 7016),
    ROW(gelGRS80, 7019),
    ROW(gelAiry30, 7001),
    ROW(gelModifAiry, 7002),
    ROW(gelFish68, 0),
    ROW(gelFish60, 0),
    ROW(gelModifFish60, 0),
    ROW(gelAuNat65, 7003),
    ROW(gelKrass40, 7024),
    ROW(gelHough60, 7053),
    ROW(gelSphere, 0),
    ROW(gelIndo74, 7021),
    ROW(gelHelm06, 7020),
    ROW(gelSGS85, 0),
    ROW(gelSAm69, 7050),
    ROW(gelATS77, 7041),
    ROW(gelAuthSph, 7035),
    ROW(gelBesselMod, 7005),
    ROW(gelCGCS2000, 1024),
    ROW(gelClrk58, 7007),
    ROW(gelClrk66Mich, 7009),
    ROW(gelClrk80, 7034),
    ROW(gelClrk80Arc, 7013),
    ROW(gelClrk80Benoit, 7010),
    ROW(gelClrk80IGN, 7011),
    ROW(gelClrk80intfoot, 7055),
    ROW(gelClrk80SGA22, 7014),
    ROW(gelDan76, 0),
    ROW(gelEver30, 7042),
    ROW(gelEver75, 7045),
    ROW(gelGEM10C, 7031),
    ROW(gelGRS67, 7036),
    ROW(gelGRS67Mod, 7050),
    ROW(gelHughes80, 7058),
    ROW(gelIAG75, 7049),
    ROW(gelInt24AuthSph, 7057),
    ROW(gelOSU86F, 7032),
    ROW(gelOSU91A, 7033),
    ROW(gelPlessis17, 7027),
    ROW(gelPopVisSphere, 7059),
    ROW(gelPZ90, 7054),
    ROW(gelStruve60, 7028),
    ROW(gelWarOffice, 7029),
    ROW(gelHongKong63, 0),
    ROW(gelNahrwan29, 0),
};
// clang-format on
#undef ROW

TEST(Ellipsoids, EveryRowIsTheEllipsoidOfItsName) {
  const std::unique_ptr<PJ_CONTEXT, decltype(&proj_context_destroy)> Context(proj_context_create(),
                                                                             proj_context_destroy);
  ASSERT_EQ(std::size(Rows), NumGeoEllipsoids);
  for (size_t i = 0; i < NumGeoEllipsoids; ++i) {
    SCOPED_TRACE(Rows[i].Id);
    EXPECT_EQ(static_cast<size_t>(Rows[i].Ellipsoid), i);
    EXPECT_EQ(GeoEllipsoidId[i], Rows[i].Id);
    EXPECT_FALSE(GeoEllipsoidName[i].empty());
    EXPECT_GE(GeoEllipsoidData[i].A, GeoEllipsoidData[i].B);
    if (Rows[i].Epsg == 0) continue;
    const std::unique_ptr<PJ, decltype(&proj_destroy)> Judge(
        proj_create_from_database(Context.get(), "EPSG", std::to_string(Rows[i].Epsg).c_str(),
                                  PJ_CATEGORY_ELLIPSOID, 0, nullptr),
        proj_destroy);
    double A = 0;
    double B = 0;
    ASSERT_TRUE(
        proj_ellipsoid_get_parameters(Context.get(), Judge.get(), &A, &B, nullptr, nullptr));
    EXPECT_NEAR(GeoEllipsoidData[i].A, A, 2e-3);
    EXPECT_NEAR(GeoEllipsoidData[i].B, B, 2e-3);
  }
}

TEST(Ellipsoids, AreFoundByIdentifierInAnyCase) {
  for (const auto& Row : Rows) EXPECT_EQ(FindGeoEllipsoid(Row.Id), Row.Ellipsoid);
  EXPECT_EQ(GeoEllipsoidFromId("GELBESS41"), gelBess41);
  for (const char* Unknown : {"", "gel", "gelWGS84 ", "WGS 1984", "gelBess41JapX"}) {
    EXPECT_EQ(FindGeoEllipsoid(Unknown), std::nullopt) << Unknown;
    EXPECT_EQ(GeoEllipsoidFromId(Unknown), gelWGS84) << Unknown;
  }
}

TEST(Ellipsoids, ShapesFollowFromTheAxes) {
  EXPECT_NEAR(RecipFlattening(gelWGS84), 298.257223563, 1e-7);
  EXPECT_NEAR(GeoEllEccSquared(gelWGS84), 0.00669437999014, 1e-13);
  for (const TGeoEllipsoid Sphere : {gelSphere, gelAuthSph, gelInt24AuthSph, gelPopVisSphere}) {
    EXPECT_EQ(RecipFlattening(Sphere), 0);
    EXPECT_EQ(GeoEllEccSquared(Sphere), 0);
  }
  for (const auto& Row : Rows) {
    SCOPED_TRACE(Row.Id);
    const auto [A, B] = AxesOf(Row.Ellipsoid);
    const double Ecc = GeoEllEccSquared(Row.Ellipsoid);
    const double Flat = RecipFlattening(Row.Ellipsoid);
    EXPECT_EQ(GeoEllEccSquared(B, A), Ecc);
    EXPECT_EQ(GeoEllEccSquared(A, B), Ecc);
    EXPECT_NEAR(GeoEllEccSquared(Flat), Ecc, 1e-15);
    EXPECT_NEAR(RecipFlattening(Ecc), Flat, 1e-8);
    EXPECT_NEAR(EllipsoidMinAxFlat(A, Flat), B, 1e-8);
    EXPECT_NEAR(EllipsoidMinAxEcc(A, Ecc), B, 1e-8);
  }
}

template <typename Function>
std::string ErrorOf(Function Call) {
  try {
    Call();
  } catch (const EZAVGeoBasicsError& Error) {
    return Error.what();
  }
  return "no error";
}

TEST(Ellipsoids, ImpossibleShapes) {
  EXPECT_EQ(ErrorOf([] { EllipsoidMinAxFlat(6378137.0, -1.0); }), "invalid reciprocal flattening");
  EXPECT_EQ(ErrorOf([] { EllipsoidMinAxEcc(6378137.0, -0.1); }), "invalid eccentricity");
  EXPECT_TRUE(std::isnan(EllipsoidMinAxEcc(6378137.0, 1.1)));
  EXPECT_TRUE(std::isnan(RecipFlattening(-0.1)));
  EXPECT_TRUE(std::isnan(RecipFlattening(1.5)));
  EXPECT_EQ(RecipFlattening(1.0), 1);
  EXPECT_EQ(EllipsoidMinAxFlat(6378137.0, 0.0), 6378137.0);
}

}  // namespace
}  // namespace zav
