// conversion_test.cpp - the edges of the conversions: nothing fitted, poles, overflow, divergence.
// SPDX-License-Identifier: MIT
#include <geomap/calibration/calibration.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zav {
namespace {

using enum TCalibModel;

constexpr double Infinity = std::numeric_limits<double>::infinity();

struct TFixture {
  TCalibCoefficients Coef;
  TMatrix GratMat{5, 1};
  TFittedModel Of(TCalibModel Model) const {
    return {Model, Coef, GratMat, 32, false, TGeoEllipsoid::gelWGS84};
  }
  double Latitude(TCalibModel Model, int32_t X, int32_t Y, bool& Valid) const {
    return PixelToLatitude(Of(Model), TPixelTerms::Whole(X, Y), Valid);
  }
  double Longitude(TCalibModel Model, int32_t X, int32_t Y, bool& Valid) const {
    return PixelToLongitude(Of(Model), TPixelTerms::Whole(X, Y), Valid);
  }
};

TEST(Conversion, WithoutAFit) {
  const struct {
    TCalibModel Model;
    bool GeoValid, Result;
    int32_t X;  // of CalcPixelCoords called with 77
  } Cases[] = {{cmEquiRect, true, true, 0},       {cmUTM, true, true, 0},
               {cmBiquadraticPn, true, true, 0},  {cmMillerCylindrical, false, true, 0},
               {cmConicConformal, true, true, 0}, {cmParabolicIp, false, false, 77},
               {cmUndefined, false, true, 77}};
  for (const auto& Case : Cases) {
    TCalibration Calibration;
    Calibration.SetModel(Case.Model);
    bool Valid = !Case.GeoValid;
    Calibration.CalcLatitude(3, 4, Valid);
    EXPECT_EQ(Valid, Case.GeoValid) << static_cast<int>(Case.Model);
    int32_t X = 77, Y = 77;
    EXPECT_EQ(Calibration.CalcPixelCoords(47, 8, X, Y), Case.Result);
    EXPECT_EQ(X, Case.X) << static_cast<int>(Case.Model);
    EXPECT_EQ(Y, Case.X);
    TCoords Position{1, 1};
    double PX = 5, PY = 5;
    EXPECT_FALSE(Calibration.ToGeo(3, 4, Position));
    EXPECT_FALSE(Calibration.ToPixel(47, 8, PX, PY));
    EXPECT_EQ(Position, TCoords());
    EXPECT_EQ(PX + PY, 0);
  }
}

TEST(Conversion, HalfFittedMillerTellsLongitudesOnly) {
  TFixture Fit;
  Fit.Coef.MillerParams = {0, 0, 100, 50};
  bool Valid = true;
  EXPECT_EQ(Fit.Latitude(cmMillerCylindrical, 150, 10, Valid), 0);
  EXPECT_FALSE(Valid);
  EXPECT_NEAR(Fit.Longitude(cmMillerCylindrical, 150, 10, Valid), 180 / std::acos(-1.0), 1e-12);
  EXPECT_TRUE(Valid);
}

TEST(Conversion, ConeAtItsPoleAndInBothHemispheres) {
  TFixture Fit;
  Fit.Coef.ConicParams = {100, -50.5, -0.1, 90, 60, 10};
  bool Valid = false;
  const double Quarter = std::acos(-1.0) / 2;
  Fit.Coef.ConicParams[1] = -50;
  EXPECT_DOUBLE_EQ(Fit.Longitude(cmConicConformal, 200, -50, Valid), 60 * Quarter + 10);
  EXPECT_DOUBLE_EQ(Fit.Longitude(cmConicConformal, 0, -50, Valid), -60 * Quarter + 10);
  EXPECT_TRUE(std::isnan(Fit.Longitude(cmConicConformal, 100, -50, Valid)));

  // North of the equator the row lies below the pole, south of it above.
  Fit.Coef.ConicParams[1] = -50.25;
  for (const double Lat : {40.0, -40.0}) {
    const double Angle = (25.0 - 10) / 60;
    const double Height = (Lat - 90) / -0.1 * std::cos(Angle) * (Lat < 0 ? -1 : 1);
    TExactPixel P;
    PositionToPixel(Fit.Of(cmConicConformal), Lat, 25, TPixelRounding::None, P);
    EXPECT_NEAR(P.Y, -50.25 + Height, 1e-9);
    EXPECT_NEAR(P.X, 100 + Height * std::tan(Angle), 1e-9);
    // The rounded form takes the column from the rounded row.
    PositionToPixel(Fit.Of(cmConicConformal), Lat, 25, TPixelRounding::Row, P);
    EXPECT_EQ(P.Y, std::nearbyint(-50.25 + Height));
    EXPECT_NEAR(P.X, 100 + (P.Y + 50.25) * std::tan(Angle), 1e-9);
  }
}

// Whole pixels form their squares in 32 bits, unrounded ones do not.
TEST(Conversion, SquaresOfFarPixelsWrapAround) {
  TFixture Fit;
  Fit.Coef.BiqCoefLat = {0, 0, 0, 1, 1, 0};
  bool Valid = false;
  EXPECT_EQ(Fit.Latitude(cmBiquadraticPn, 50000, 1, Valid), 2500000000.0 - 4294967296.0 + 50000);
  EXPECT_EQ(PixelToLatitude(Fit.Of(cmBiquadraticPn), TPixelTerms::Exact(50000, 1), Valid),
            2500050000.0);
  EXPECT_EQ(Fit.Latitude(cmBiquadraticPn, std::numeric_limits<int32_t>::min(), 0, Valid), 0);
}

TEST(Conversion, PixelsBeyondAllNumbersStopAtTheEnds) {
  TCalibration Calibration;
  TCalibData Data;
  Data.NumCalQuads = 3;
  Data.CalQuads[0] = {0, 0, 0, 0};
  Data.CalQuads[1] = {0, 1, 10, 0};
  Data.CalQuads[2] = {1, 0, 0, 10};
  Calibration.SetData(Data, cmEquiRect);
  int32_t X = 0, Y = 0;
  EXPECT_TRUE(Calibration.CalcPixelCoords(-1e300, 1e300, X, Y));
  EXPECT_EQ(X, std::numeric_limits<int32_t>::max());
  EXPECT_EQ(Y, std::numeric_limits<int32_t>::min());
  EXPECT_TRUE(Calibration.CalcPixelCoords(std::nan(""), Infinity, X, Y));
  double PX = 1, PY = 1;
  EXPECT_FALSE(Calibration.ToPixel(std::nan(""), 0, PX, PY));
  Calibration.SetModel(cmMillerCylindrical);  // ln of a negative tangent
  EXPECT_TRUE(Calibration.CalcPixelCoords(120, 0, X, Y));
  EXPECT_EQ(Y, 0);
}

TMatrix Graticule(std::initializer_list<std::array<double, 5>> Rows) {
  TMatrix M(5, static_cast<int32_t>(Rows.size()));
  int32_t Row = 0;
  for (const auto& Each : Rows) std::copy(Each.begin(), Each.end(), M.RowData(++Row));
  return M;
}

TEST(Conversion, ParabolicTakesTheTwoNearestLines) {
  TFixture Fit;
  // Parallels at rows 100, 300, 400, the middle one bent; meridians at columns 0, 100, 1000.
  Fit.GratMat = Graticule({{1, 50, 100, 0, 0},
                           {1, 40, 300, 0, 0.001},
                           {1, 35, 400, 0, 0},
                           {0, 0, 0, 0, 0},
                           {0, 10, 100, 0, 0},
                           {0, 20, 1000, 0, 0}});
  bool Valid = false;
  EXPECT_DOUBLE_EQ(Fit.Latitude(cmParabolicIp, 0, 200, Valid), 45);
  EXPECT_TRUE(Valid);
  // In column 200 the middle parallel runs at row 340; 20 rows below it 400 is nearer than 100.
  EXPECT_DOUBLE_EQ(Fit.Latitude(cmParabolicIp, 200, 360, Valid), 40 - 5.0 / 3);
  EXPECT_DOUBLE_EQ(Fit.Latitude(cmParabolicIp, 0, 0, Valid), 55);  // outside
  EXPECT_DOUBLE_EQ(Fit.Longitude(cmParabolicIp, 150, 0, Valid), 15);
  EXPECT_DOUBLE_EQ(Fit.Longitude(cmParabolicIp, 900, 0, Valid), 20 - 10.0 / 9);

  TExactPixel P;
  ASSERT_EQ(PositionToPixel(Fit.Of(cmParabolicIp), 42, 4, TPixelRounding::None, P),
            TPixelResult::Found);
  // Nearest in value: latitude 42 lies 1.4 steps from 35 towards 40.
  EXPECT_NEAR(P.X, 40, 1e-9);
  EXPECT_NEAR(P.Y, 400 - 1.4 * 100 + 1.4 * 0.001 * 40 * 40, 1e-9);

  // One meridian is not enough, and lines too far away do not count.
  Fit.GratMat.SetVal(1, 4, 1);
  Fit.GratMat.SetVal(1, 5, 1);
  EXPECT_EQ(Fit.Latitude(cmParabolicIp, 0, 200, Valid), 0);
  EXPECT_FALSE(Valid);
  EXPECT_EQ(PositionToPixel(Fit.Of(cmParabolicIp), 42, 4, TPixelRounding::None, P),
            TPixelResult::Nothing);
}

TEST(Conversion, ParabolicReportsDivergence) {
  TCalibration Calibration;
  Calibration.SetModel(cmParabolicIp);
  using enum TGratLineKind;
  // Meridians and parallels that cross at steep parabolas drive the iteration apart.
  for (const int Line : {0, 1}) {
    for (const int Along : {-100, 0, 100}) {
      const int Across = 900 * Line + Along * Along / 10;
      Calibration.AddCalibPoint(gtlParallel, 10 * Line, Along, Across);
      Calibration.AddCalibPoint(gtlMeridian, 10 * Line, Across, Along);
    }
  }
  int32_t X = 7, Y = 7;
  EXPECT_FALSE(Calibration.CalcPixelCoords(5, 5, X, Y));
  EXPECT_GT(std::abs(X), 50000);
  EXPECT_GT(std::abs(Y), 50000);
}

TEST(Conversion, UTMGrid) {
  TCalibration Calibration;
  TCalibData Data;
  // 100 m a pixel, turned by 3-4-5: X = (4 E + 3 N) / 500, Y = (3 E - 4 N) / 500 + 20000.
  const auto Add = [&](double N, double E) {
    Data.CalQuads[static_cast<size_t>(Data.NumCalQuads++)] = {
        N, E, static_cast<int32_t>((4 * E + 3 * N) / 500),
        static_cast<int32_t>((3 * E - 4 * N) / 500 + 20000)};
  };
  for (const double N : {5000000.0, 5050000.0})
    for (const double E : {400000.0, 500000.0}) Add(N, E);
  Data.UTMZone = 32;
  Calibration.SetData(Data, cmUTM);
  int32_t X = 0, Y = 0;
  ASSERT_TRUE(Calibration.CalcPixelCoordsUTM(5025000, 450000, X, Y));
  EXPECT_EQ(X, 33750);
  EXPECT_EQ(Y, -17500);
  EXPECT_EQ(Calibration.CalcUTMyFromNorthingX(5025000, 33750), -17500);
  EXPECT_EQ(Calibration.CalcUTMxFromEastingY(450000, -17500), 33750);
  // A neighbouring column on the same northing, a neighbouring row on the same easting.
  EXPECT_EQ(Calibration.CalcUTMyFromNorthingX(5025000, 34150), -17200);
  EXPECT_EQ(Calibration.CalcUTMxFromEastingY(450000, -17900), 34050);

  Calibration.SetModel(cmEquiRect);
  EXPECT_FALSE(Calibration.CalcPixelCoordsUTM(5025000, 450000, X, Y));
  EXPECT_EQ(X, 0);
  EXPECT_EQ(Y, 0);
}

TEST(Conversion, PositionInMapIsStrictlyInside) {
  const TCornerArray Upright{{{50, 10}, {40, 10}, {40, 20}, {50, 20}}};
  const TCornerArray Mirrored{{{50, 20}, {40, 20}, {40, 10}, {50, 10}}};
  const TCornerArray Kite{{{52, 9}, {40, 10}, {38, 20}, {48, 22}}};
  const TCornerArray Collapsed{{{50, 10}, {50, 10}, {50, 10}, {50, 10}}};
  const struct {
    TCornerArray Corners;
    double Lat, Long;
    bool Inside;
  } Cases[] = {{Upright, 45, 15, true},
               {Upright, 50, 10, false},
               {Upright, 45, 10, false},
               {Upright, 45, 9.99, false},
               {Upright, 39, 15, false},
               {Upright, 40.001, 19.999, true},
               {Mirrored, 45, 15, true},
               {Mirrored, 45, 21, false},
               {Kite, 51, 10, true},
               {Kite, 51, 15, false},
               {Kite, 39.5, 15, true},
               {Collapsed, 50, 10, false},
               {Upright, std::nan(""), 15, false}};
  for (const auto& Case : Cases) {
    EXPECT_EQ(PositionInMap(Case.Lat, Case.Long, Case.Corners), Case.Inside)
        << Case.Lat << " " << Case.Long;
  }
}

}  // namespace
}  // namespace zav
