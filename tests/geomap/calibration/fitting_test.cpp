// fitting_test.cpp - every model finds again what its control points were made with.
// SPDX-License-Identifier: MIT
#include <geomap/calibration/calibration.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <random>

namespace zav {
namespace {

using enum TCalibModel;

// Pixels to positions by formulas written down here, far from the library's.
constexpr double Degree = 3.14159265358979323846 / 180;

TCoords EquiRect(double X, double Y) { return {60 - 0.02 * Y + 1e-4 * X, -10 + 0.03 * X}; }
TCoords Biquadratic(double X, double Y) {
  return {50 - 0.02 * Y + 1e-7 * X * X - 3e-7 * X * Y, 5 + 0.03 * X + 1e-3 * Y - 2e-7 * Y * Y};
}
TCoords Miller(double X, double Y) {
  return {std::atan(std::sinh((500 - Y) / 300 * 0.8)) / Degree * 1.25, (X - 800) / 300 / Degree};
}
// A cone with the pole pixel (900, -1500), north up: radius and angle are linear.
TCoords Cone(double X, double Y) {
  return {90 - 0.02 * std::hypot(X - 900, Y + 1500),
          12 + std::atan((X - 900) / (Y + 1500)) / Degree / 0.8};
}

struct TModelCase {
  TCalibModel Model;
  std::function<TCoords(double, double)> Position;
  double Degrees;  // largest error allowed where the fit is not one of least squares
  double Pixels;
};

const TModelCase ModelCases[] = {{cmEquiRect, EquiRect, 1e-9, 1e-7},
                                 // the inverse of a second-order polynomial is none
                                 {cmBiquadraticPn, Biquadratic, 1e-8, 0.1},
                                 {cmMillerCylindrical, Miller, 1e-9, 1e-7},
                                 {cmConicConformal, Cone, 1e-8, 1e-6}};

TCalibration CalibrationOf(const TModelCase& Case, int Count) {
  TCalibData Data;
  std::mt19937 Random(11);
  std::uniform_int_distribution<int> X(0, 1800);
  std::uniform_int_distribution<int> Y(0, 1200);
  for (; Data.NumCalQuads < Count; ++Data.NumCalQuads) {
    TCalQuad& Quad = Data.CalQuads[static_cast<size_t>(Data.NumCalQuads)];
    Quad.MapX = X(Random);
    Quad.MapY = Y(Random);
    const TCoords Position = Case.Position(Quad.MapX, Quad.MapY);
    Quad.Latitude = Position.Latit;
    Quad.Longitude = Position.Longit;
  }
  TCalibration Calibration;
  Calibration.SetImageSize(1800, 1200);
  Calibration.SetData(Data, Case.Model);
  return Calibration;
}

TEST(Fitting, EveryModelIsExactOnItsOwnData) {
  for (const TModelCase& Case : ModelCases) {
    const TCalibration Calibration = CalibrationOf(Case, 40);
    ASSERT_TRUE(Calibration.IsFitted());
    for (int X = 0; X <= 1800; X += 150) {
      for (int Y = 0; Y <= 1200; Y += 150) {
        const TCoords Want = Case.Position(X, Y);
        bool Valid = false;
        EXPECT_NEAR(Calibration.CalcLatitude(X, Y, Valid), Want.Latit, Case.Degrees);
        EXPECT_TRUE(Valid);
        EXPECT_NEAR(Calibration.CalcLongitude({X, Y}, Valid), Want.Longit, Case.Degrees);
        double PX = 0, PY = 0;
        ASSERT_TRUE(Calibration.ToPixel(Want.Latit, Want.Longit, PX, PY));
        EXPECT_NEAR(PX, X, Case.Pixels) << static_cast<int>(Case.Model);
        EXPECT_NEAR(PY, Y, Case.Pixels) << static_cast<int>(Case.Model);
        int32_t WholeX = 0, WholeY = 0;
        EXPECT_TRUE(Calibration.CalcPixelCoords(Want.Latit, Want.Longit, WholeX, WholeY));
        EXPECT_NEAR(WholeX, X, Case.Pixels + 0.5);
        EXPECT_NEAR(WholeY, Y, Case.Pixels + 0.5);
      }
    }
    EXPECT_EQ(Calibration.Data().Corners[gcoBottomRight].Latit, [&] {
      bool Valid = false;
      return Calibration.CalcLatitude(1800, 1200, Valid);
    }());
  }
}

TEST(Fitting, ConeIsFoundAgainInAnyOrder) {
  TCalibration Calibration = CalibrationOf(ModelCases[3], MaxCalQuads);
  const auto Params = Calibration.Coefficients().ConicParams;
  EXPECT_EQ(Params[0], 900);
  EXPECT_EQ(Params[1], -1500);
  EXPECT_NEAR(Params[2], -0.02, 1e-12);
  EXPECT_NEAR(Params[3], 90, 1e-9);
  EXPECT_NEAR(Params[4], 1 / Degree / 0.8, 1e-9);
  EXPECT_NEAR(Params[5], 12, 1e-9);

  // Points of a plain cylinder leave a flat minimum, where rounding could choose another pole.
  TCalibData Data = CalibrationOf({cmConicConformal, EquiRect, 0, 0}, 60).Data();
  const auto Flat = [&] {
    Calibration.SetData(Data, cmConicConformal);
    return Calibration.Coefficients().ConicParams;
  };
  const auto First = Flat();
  std::reverse(Data.CalQuads.begin(), Data.CalQuads.begin() + 60);
  EXPECT_EQ(Flat(), First);
  std::rotate(Data.CalQuads.begin(), Data.CalQuads.begin() + 17, Data.CalQuads.begin() + 60);
  EXPECT_EQ(Flat(), First);
  // An image smaller than its control points bounds the start of the search, an unknown one does
  // not.
  Calibration.SetImageSize(0, 0);
  EXPECT_EQ(Flat(), First);
}

TEST(Fitting, TooFewPointsAndAbort) {
  for (const TModelCase& Case : ModelCases) {
    TCalibration Calibration = CalibrationOf(Case, 40);
    const TCalibCoefficients Before = Calibration.Coefficients();
    TCalibData Data = Calibration.Data();
    Data.NumCalQuads = 2;
    Calibration.SetData(Data, Case.Model);
    EXPECT_EQ(Calibration.Coefficients().MillerParams, Before.MillerParams);
    EXPECT_EQ(Calibration.Coefficients().ConicParams, Before.ConicParams);
    if (Case.Model != cmEquiRect && Case.Model != cmBiquadraticPn) continue;
    // The solution of least norm goes through both points.
    for (int I = 1; I <= 2; ++I) {
      double DX = 1, DY = 1;
      EXPECT_TRUE(Calibration.Residual(I, DX, DY));
      EXPECT_NEAR(DX, 0, 1e-6);
      EXPECT_NEAR(DY, 0, 1e-6);
    }
    TProgress Progress;
    Progress.Abort = true;
    Calibration.RecalcCalibration(Progress);
    EXPECT_FALSE(Calibration.IsFitted());
    EXPECT_EQ(Calibration.Coefficients().BiqCoefLat, TCalibCoefficients().BiqCoefLat);
  }
}

TCalibLine LineOf(TGratLineKind Kind, double Value, int Points,
                  const std::function<int(int)>& Across) {
  TCalibLine Line{Kind, Value, Points, {}};
  for (int I = 0; I < Points; ++I) {
    const int Along = 100 * I - 200;
    const bool IsParallel = Kind == TGratLineKind::gtlParallel;
    Line.CalPoints[static_cast<size_t>(I)] =
        IsParallel ? TPoint{Along, Across(Along)} : TPoint{Across(Along), Along};
  }
  return Line;
}

TEST(Fitting, GraticuleNeedsTwoLinesOfThreePointsOfEachKind) {
  using enum TGratLineKind;
  TCalibData Data;
  const auto Curve = [](int Offset) { return [=](int A) { return Offset + A * A / 100 - A; }; };
  Data.CalLines[0] = LineOf(gtlParallel, 50, 5, Curve(1000));
  Data.CalLines[1] = LineOf(gtlMeridian, -7.5, 3, Curve(0));
  Data.CalLines[2] = LineOf(gtlParallel, 40, 10, Curve(2000));
  Data.CalLines[3] = LineOf(gtlMeridian, 2.5, 2, Curve(3000));
  Data.NumCalLines = 4;
  TMatrix M;
  EXPECT_FALSE(FitGraticule(Data, M));
  EXPECT_EQ(M, TMatrix(5, 1));

  Data.CalLines[4] = LineOf(gtlMeridian, 4, 4, Curve(500));
  Data.NumCalLines = 5;
  ASSERT_TRUE(FitGraticule(Data, M));
  const double Want[5][5] = {{1, 50, 1000, -1, 0.01},
                             {0, -7.5, 0, -1, 0.01},
                             {1, 40, 2000, -1, 0.01},
                             {0, 2.5, 0, 0, 0},  // entered, not fitted
                             {0, 4, 500, -1, 0.01}};
  for (int Row = 1; Row <= 5; ++Row) {
    for (int Column = 1; Column <= 5; ++Column) {
      EXPECT_NEAR(M.GetVal(Column, Row), Want[Row - 1][Column - 1], 1e-9) << Row << " " << Column;
    }
  }
}

}  // namespace
}  // namespace zav
