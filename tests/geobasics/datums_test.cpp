// datums_test.cpp - every row of the datum table against PROJ's copy of the registry.
// SPDX-License-Identifier: MIT
#include <geobasics/datums.h>
#include <geobasics/helmert.h>
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numbers>
#include <set>

#include "proj_support.h"

namespace zav {
namespace {

using enum TGeoEllipsoid;

// dx dy dz ds rx ry rz of the registry's operation, in the table's units and sign convention.
std::array<double, 7> ParametersOf(PJ* Operation) {
  const std::map<std::string, size_t> Places{{"X-axis translation", 0}, {"Y-axis translation", 1},
                                             {"Z-axis translation", 2}, {"Scale difference", 3},
                                             {"X-axis rotation", 4},    {"Y-axis rotation", 5},
                                             {"Z-axis rotation", 6}};
  const char* Method = nullptr;
  proj_coordoperation_get_method_info(ProjContext(), Operation, &Method, nullptr, nullptr);
  const bool Frame = std::string(Method).find("Coordinate Frame") == 0;
  std::array<double, 7> Found{};
  for (int i = 0; i < proj_coordoperation_get_param_count(ProjContext(), Operation); ++i) {
    const char* Name = nullptr;
    double Value = 0;
    double Factor = 1;
    proj_coordoperation_get_param(ProjContext(), Operation, i, &Name, nullptr, nullptr, &Value,
                                  nullptr, &Factor, nullptr, nullptr, nullptr, nullptr);
    const size_t Place = Places.at(Name);
    Value *= Factor;  // metres, one, radians
    if (Place == 3) Value *= 1e6;
    if (Place > 3) Value *= (Frame ? -1 : 1) * 648000 / std::numbers::pi;
    Found[Place] = Value;
  }
  return Found;
}

TEST(Datums, EveryRowIsTheRegistrys) {
  if (!FromRegistry("EPSG", "1569", PJ_CATEGORY_COORDINATE_OPERATION))
    GTEST_SKIP() << "PROJ has no database; on Debian proj-data holds it";
  // Where the ellipsoid is the one of TR 8350.2, another size of the Everest ellipsoid.
  const std::set<int> OtherEllipsoid{113, 114};
  std::set<int> NotInRegistry;
  for (int Number = 1; Number <= NumDatumRows; ++Number) {
    const TDatumRow& Row = *DatumRow(Number);
    SCOPED_TRACE(testing::Message() << Number << ' ' << Row.Name << ' ' << Row.Source);
    EXPECT_FALSE(Row.Area.empty());
    if (Row.Source == "TR 8350.2") {
      NotInRegistry.insert(Number);
      continue;
    }
    TProj Operation =
        FromRegistry(std::string(Row.Source.substr(0, 4)), std::string(Row.Source.substr(5)),
                     PJ_CATEGORY_COORDINATE_OPERATION);
    ASSERT_TRUE(Operation);
    const auto Expected = ParametersOf(Operation.get());
    const std::array Found{Row.Dx, Row.Dy, Row.Dz, Row.Ds, Row.Rx, Row.Ry, Row.Rz};
    // Two rows have rounded values.
    const double Rounding = Number == 101 ? 5e-5 : Number == 183 ? 1.01e-3 : 1e-7;
    for (size_t i = 0; i < 7; ++i) EXPECT_NEAR(Found[i], Expected[i], Rounding) << i;

    const TProj Source{proj_get_source_crs(ProjContext(), Operation.get()), proj_destroy};
    const TProj Ellipsoid{proj_get_ellipsoid(ProjContext(), Source.get()), proj_destroy};
    double A = 0;
    double B = 0;
    ASSERT_TRUE(
        proj_ellipsoid_get_parameters(ProjContext(), Ellipsoid.get(), &A, &B, nullptr, nullptr));
    const bool Same = std::fabs(AxesOf(Row.Ellipsoid).A - A) < 0.01 &&
                      std::fabs(AxesOf(Row.Ellipsoid).B - B) < 0.01;
    EXPECT_EQ(Same, OtherEllipsoid.count(Number) == 0) << A << ' ' << B;

    // PROJ's own use of the operation, at a place in its area: no sign can be read wrongly twice.
    double West = 0;
    double South = 0;
    double East = 0;
    double North = 0;
    ASSERT_TRUE(proj_get_area_of_use(ProjContext(), Operation.get(), &West, &South, &East, &North,
                                     nullptr));
    const double Lat = (South + North) / 2;
    const double Long = West <= East ? (West + East) / 2 : 180;
    if (!Same) continue;
    const TPipeline Judge(std::move(Operation));
    const TTriple There = Judge({Lat, Long, 0});
    double Lat2 = 0;
    double Long2 = 0;
    double Height2 = 0;
    EXPECT_EQ(ExactHelmertTransform(Number, Lat, Long, 0, WGS84DatumRow, Lat2, Long2, Height2), 0);
    const double Few = Rounding > 1e-6 ? 5e-7 : 2e-8;  // degrees: 5 cm, 2 mm
    EXPECT_NEAR(Lat2, There[0], Few);
    EXPECT_NEAR(std::remainder(Long2 - There[1], 360), 0, Few * 2);
  }
  EXPECT_EQ(NotInRegistry, (std::set<int>{238, 269}));
}

TEST(Datums, RowsThatNoPublicSourceGivesAreTold) {
  std::set<int> Unpublished;
  for (int Row = 1; Row <= NumDatumRows; ++Row)
    if (!DatumRow(Row)->Published) Unpublished.insert(Row);
  EXPECT_EQ(Unpublished, (std::set<int>{52, 85, 99, 261}));
}

TEST(Datums, AreFoundByRowAndByName) {
  for (const int Row : {0, -1, 272, -2147483647}) EXPECT_EQ(DatumRow(Row), nullptr);
  const struct {
    const char* Name;
    int First;
    size_t Count;
  } Names[] = {
      {"accra", 1, 1},
      {"ADINDAN", 2, 7},
      {"Berne 1898", 37, 1},
      {"european datum 1950", 59, 25},
      {"old hawaiian", 184, 10},
      {"RD AMERSFOORT", 13, 1},
      {"s-jtsk", 44, 2},
      {"CH1903+", 49, 1},
      {"CH1903", 0, 0},
      {"M'Poraloko", 146, 1},
      {"timbalai 1968 adj of 1948", 259, 2},
      {"S-42 (Pulkovo 1942)", 245, 7},
      {"Tern Island (FRIG), 1961", 265, 1},
      {"zanderij", 271, 1},
      {"", 0, 0},
      {"ADIND", 0, 0},
  };
  for (const auto& Case : Names) {
    const auto Found = FindDatumRows(Case.Name);
    ASSERT_EQ(Found.size(), Case.Count) << Case.Name;
    EXPECT_EQ(Found.empty() ? 0 : Found.front(), Case.First) << Case.Name;
  }
}

// Values that are known from elsewhere; the parameters of one datum may change with the registry,
// these may not.
TEST(Datums, RowsThatAreFixed) {
  const struct {
    int Row;
    const char* Name;
    TGeoEllipsoid Ellipsoid;
    std::array<double, 7> Values;
  } Cases[] = {
      {1, "ACCRA", gelWarOffice, {-199, 32, 322}},
      {101,
       "MGI DATUM/HERMANNSKOGEL",
       gelBess41,
       {577.326, 90.129, 463.919, 2.4232, 5.1366, 1.4742, 5.297}},
      {183, "ORDNANCE GB 1936", gelAiry30, {446.448, -125.157, 542.06, -20.49, .15, .247, .8421}},
      {262, "TOKYO", gelBess41, {-148, 507, 685}},
      {268, "WORLD GEODETIC SYSTEM 1972", gelWGS72, {0, 0, 4.5, 0.219, 0, 0, 0.554}},
      {269, "WORLD GEODETIC SYSTEM 1984", gelWGS84, {}},
  };
  for (const auto& Case : Cases) {
    const TDatumRow& Row = *DatumRow(Case.Row);
    EXPECT_EQ(Row.Name, Case.Name);
    EXPECT_EQ(Row.Ellipsoid, Case.Ellipsoid);
    EXPECT_EQ((std::array{Row.Dx, Row.Dy, Row.Dz, Row.Ds, Row.Rx, Row.Ry, Row.Rz}), Case.Values);
  }
  EXPECT_EQ(DatumRow(1)->Area, "Ghana");
}

}  // namespace
}  // namespace zav
