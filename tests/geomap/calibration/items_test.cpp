// items_test.cpp - adding, removing, restoring, clearing and scaling calibration items.
// SPDX-License-Identifier: MIT
#include <geomap/calibration/calibration.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>

namespace zav {
namespace {

using enum TCalibModel;
using enum TGratLineKind;
using enum THemisphere;

constexpr char AddRefused[] =
    "current calibration model does not support this version of AddCalibPoint";
constexpr char RemoveRefused[] =
    "current calibration model does not support this version of RemoveCalibPoint";

// Lines as "P50:(1,2)(3,4) M-7:(5,6) " and control points as "47/8:(1,2) ".
std::string ItemsOf(const TCalibration& Calibration) {
  const TCalibData& Data = Calibration.Data();
  std::string Text;
  for (size_t I = 0; I < static_cast<size_t>(Data.NumCalLines); ++I) {
    const TCalibLine& Line = Data.CalLines[I];
    Text += (Line.LineType == gtlParallel ? "P" : "M") +
            std::to_string(static_cast<int>(Line.LineValue)) + ":";
    for (size_t J = 0; J < static_cast<size_t>(Line.NumPoints); ++J) {
      const TPoint P = Line.CalPoints[J];
      Text += "(" + std::to_string(P.X) + "," + std::to_string(P.Y) + ")";
    }
    Text += " ";
  }
  for (size_t I = 0; I < static_cast<size_t>(Data.NumCalQuads); ++I) {
    const TCalQuad& Quad = Data.CalQuads[I];
    Text += std::to_string(static_cast<int>(Quad.Latitude)) + "/" +
            std::to_string(static_cast<int>(Quad.Longitude)) + ":(" + std::to_string(Quad.MapX) +
            "," + std::to_string(Quad.MapY) + ") ";
  }
  return Text;
}

std::string ErrorOf(const std::function<void()>& Call) {
  try {
    Call();
  } catch (const EZAVGeoMapError& Error) {
    return Error.what();
  }
  return {};
}

TCalibration With(TCalibModel Model) {
  TCalibration Calibration;
  Calibration.SetModel(Model);
  return Calibration;
}

TEST(CalibItems, EachModelTakesItsOwnKind) {
  for (const TCalibModel Model : {cmParabolicIp, cmBiquadraticPn, cmConicConformal,
                                  cmMillerCylindrical, cmEquiRect, cmUTM, cmUndefined}) {
    const bool Degrees = Model != cmParabolicIp && Model != cmUTM && Model != cmUndefined;
    const auto Want = [](bool Allowed) { return Allowed ? std::string() : AddRefused; };
    TCalibration C = With(Model);
    C.SetUTMZone(32);
    EXPECT_EQ(ErrorOf([&] { EXPECT_FALSE(C.AddCalibPoint(gtlParallel, 50.0, 1, 2)); }),
              Want(Model == cmParabolicIp));
    EXPECT_EQ(ErrorOf([&] { EXPECT_TRUE(C.AddCalibPoint(47.0, 8.0, 1, 2)); }), Want(Degrees));
    EXPECT_EQ(ErrorOf([&] { EXPECT_TRUE(C.AddCalibPoint(5e6, 4e5, 32, hemiNorth, 1, 2)); }),
              Want(Model == cmUTM));
    EXPECT_EQ(ErrorOf([&] { EXPECT_FALSE(C.RemoveCalibPoint(gtlParallel, 51.0, 1, 2)); }),
              Model == cmParabolicIp ? "" : RemoveRefused);
    EXPECT_EQ(C.Data().NumCalLines, Model == cmParabolicIp ? 1 : 0);
    EXPECT_EQ(C.Data().NumCalQuads, Degrees || Model == cmUTM ? 1 : 0);
    EXPECT_EQ(C.RemoveCalibPoint(0, 0), Model != cmUndefined);
    EXPECT_FALSE(C.RemoveCalibPoint(0, 0));
  }
}

TEST(CalibItems, ZoneAndHemisphereMustBeThoseSet) {
  TCalibration C = With(cmUTM);
  const auto Add = [&](int Zone, THemisphere Hemisphere) {
    return ErrorOf([&] { C.AddCalibPoint(5500000, 400000, Zone, Hemisphere, 10, 10); });
  };
  EXPECT_EQ(Add(32, hemiNorth), "UTM zone parameter changed");
  for (const int Zone : {0, 61, -1}) C.SetUTMZone(Zone);
  EXPECT_EQ(C.Data().UTMZone, -1);
  C.SetUTMZone(32);
  EXPECT_EQ(Add(32, hemiNorth), "");
  EXPECT_EQ(Add(33, hemiNorth), "UTM zone parameter changed");
  EXPECT_EQ(Add(32, hemiSouth), "UTM zone parameter changed");
  C.SetUTMHemisphere(hemiSouth);
  EXPECT_EQ(Add(32, hemiSouth), "");
  EXPECT_EQ(C.Data().NumCalQuads, 2);
}

TEST(CalibItems, LinesAreToldApartExactlyAndFullTablesIgnoreMore) {
  TCalibration C = With(cmParabolicIp);
  C.AddCalibPoint(gtlParallel, 50.0, 1, 1);
  C.AddCalibPoint(gtlParallel, 50.0000001, 2, 2);
  C.AddCalibPoint(gtlMeridian, 50.0, 3, 3);
  C.AddCalibPoint(gtlParallel, 50.0, 4, 4);
  EXPECT_EQ(ItemsOf(C), "P50:(1,1)(4,4) P50:(2,2) M50:(3,3) ");
  C.ClearCalibData();
  for (int I = 0; I < 26; ++I) C.AddCalibPoint(gtlMeridian, I, I, 0);
  EXPECT_EQ(C.Data().NumCalLines, 25);
  for (int I = 0; I < 12; ++I) C.AddCalibPoint(gtlMeridian, 3, 100 + I, 0);
  EXPECT_EQ(C.Data().CalLines[3].NumPoints, 10);
  EXPECT_EQ(C.Data().CalLines[3].CalPoints[9], (TPoint{108, 0}));

  C.SetModel(cmEquiRect);
  for (int I = 0; I < 200; ++I) ASSERT_TRUE(C.AddCalibPoint(I, -I, I, 2 * I));
  const TCalibration Before = C;
  EXPECT_FALSE(C.AddCalibPoint(1, 2, 3, 4));
  EXPECT_EQ(C, Before);
  C.SetModel(cmUTM);
  C.SetUTMZone(1);
  EXPECT_FALSE(C.AddCalibPoint(1, 2, 1, hemiNorth, 3, 4));
  EXPECT_EQ(C.Data().NumCalLines, 25) << "items of other models stay";
}

// Each removal on a fresh copy of the same items.
TEST(CalibItems, Removal) {
  TCalibration C = With(cmParabolicIp);
  for (const int X : {10, 20, 30}) C.AddCalibPoint(gtlParallel, 50, X, 0);
  C.AddCalibPoint(gtlMeridian, 7, 0, 50);
  C.AddCalibPoint(gtlMeridian, 8, 0, 90);
  const struct {
    std::function<void(TCalibration&)> Do;
    std::string Want;
  } Cases[] = {
      // The first of equally near ones; the last point takes its place.
      {[](auto& T) { T.RemoveCalibPoint(15, 0); }, "P50:(30,0)(20,0) M7:(0,50) M8:(0,90) "},
      // An emptied line makes way for the last one.
      {[](auto& T) { T.RemoveCalibPoint(0, 51); }, "P50:(10,0)(20,0)(30,0) M8:(0,90) "},
      {[](auto& T) { T.RemoveCalibPoint(gtlParallel, 50, 20, 0); },
       "P50:(10,0)(30,0) M7:(0,50) M8:(0,90) "},
      // A pixel that is not on the line removes its last point.
      {[](auto& T) { T.RemoveCalibPoint(gtlParallel, 50, 1, 1); },
       "P50:(10,0)(20,0) M7:(0,50) M8:(0,90) "},
      {[](auto& T) { T.RemoveCalibPoint(gtlMeridian, 8, 5, 5); },
       "P50:(10,0)(20,0)(30,0) M7:(0,50) "},
      {[](auto& T) { T.RemoveCalibPoint(gtlMeridian, 50, 20, 0); },
       "P50:(10,0)(20,0)(30,0) M7:(0,50) M8:(0,90) "},
      {[](auto& T) {
         for (int I = 0; I < 3; ++I) T.RemoveCalibPoint(20, 0);
       },
       "M8:(0,90) M7:(0,50) "}};
  for (const auto& Case : Cases) {
    TCalibration Copy = C;
    Case.Do(Copy);
    EXPECT_EQ(ItemsOf(Copy), Case.Want);
  }

  TCalibration Q = With(cmEquiRect);
  for (const int I : {1, 2, 3}) Q.AddCalibPoint(I, I, 10 * I, 0);
  EXPECT_TRUE(Q.RemoveCalibPoint(15, 0));
  EXPECT_EQ(ItemsOf(Q), "3/3:(30,0) 2/2:(20,0) ");
  // Squared distances wrap around in 32 bits: 65536 pixels away is 0, 65526 less than nothing.
  EXPECT_TRUE(Q.RemoveCalibPoint(20 + 65536, 0));
  EXPECT_EQ(ItemsOf(Q), "2/2:(20,0) ");
}

TEST(CalibItems, AnEmptyLineOfAFileCanBeRemoved) {
  TCalibData Data;
  Data.NumCalLines = 1;
  Data.CalLines[0].LineValue = 7;
  TCalibration C;
  C.SetData(Data, cmParabolicIp);
  EXPECT_FALSE(C.RemoveCalibPoint(1, 1));
  EXPECT_EQ(ItemsOf(C), "M7: ");
  C.RemoveCalibPoint(gtlMeridian, 7, 1, 1);
  EXPECT_EQ(ItemsOf(C), "");
  // Counts that no table has are cut.
  Data.NumCalLines = 1000000;
  Data.NumCalQuads = -5;
  Data.CalLines[24].NumPoints = 77;
  C.SetData(Data, cmEquiRect);
  EXPECT_EQ(C.Data().NumCalLines, 25);
  EXPECT_EQ(C.Data().NumCalQuads, 0);
  EXPECT_EQ(C.Data().CalLines[24].NumPoints, 10);
}

TEST(CalibItems, RestoringTheLastDeletedOne) {
  TCalibration C = With(cmParabolicIp);
  C.AddCalibPoint(gtlParallel, 50, 1, 2);
  C.RemoveCalibPoint(gtlParallel, 50, 1, 2);  // this form remembers nothing
  C.RestoreLastDeletedCalPoint();
  EXPECT_EQ(ItemsOf(C), "");
  C.AddCalibPoint(gtlParallel, 50, 1, 2);
  C.RemoveCalibPoint(1, 2);
  C.SetModel(cmEquiRect);
  C.AddCalibPoint(47, 8, 3, 4);
  C.RemoveCalibPoint(3, 4);
  for (int I = 0; I < 2; ++I) C.RestoreLastDeletedCalPoint();  // once
  EXPECT_EQ(ItemsOf(C), "47/8:(3,4) ");
  C.SetModel(cmUndefined);
  C.RestoreLastDeletedCalPoint();
  C.SetModel(cmParabolicIp);
  for (int I = 0; I < 2; ++I) C.RestoreLastDeletedCalPoint();
  EXPECT_EQ(ItemsOf(C), "P50:(1,2) 47/8:(3,4) ");

  // Under cmUTM it is refused, and the point is kept for another model.
  C.SetModel(cmUTM);
  C.RemoveCalibPoint(0, 0);
  EXPECT_EQ(ErrorOf([&] { C.RestoreLastDeletedCalPoint(); }), AddRefused);
  C.SetModel(cmBiquadraticPn);
  C.RestoreLastDeletedCalPoint();
  EXPECT_EQ(ItemsOf(C), "P50:(1,2) 47/8:(3,4) ");
}

TEST(CalibItems, ClearingKeepsNamesModelAndSearchedParameters) {
  TCalibration C = With(cmMillerCylindrical);
  C.SetImageSize(100, 100);
  C.SetMapFName("a.jpg");
  C.SetCaption("A");
  C.SetUTMZone(5);
  C.SetUTMHemisphere(hemiSouth);
  C.SetEllipsoid(TGeoEllipsoid::gelGRS80);
  for (const int I : {0, 1, 2}) C.AddCalibPoint(10.0 * I, 10.0 * I, 50 * I, 100 - 50 * I);
  C.SetModel(cmEquiRect);
  const auto Miller = C.Coefficients().MillerParams;
  EXPECT_GT(C.Data().Resolution, 0);
  C.ClearCalibData();
  TCalibData Want;
  Want.MapFName = "a.jpg";
  Want.Caption = "A";
  EXPECT_EQ(C.Data(), Want);
  TCalibCoefficients WantCoef;
  WantCoef.MillerParams = Miller;
  EXPECT_EQ(C.Coefficients(), WantCoef);
  EXPECT_NE(Miller[0], 0);
  EXPECT_EQ(C.GratMat(), TMatrix(5, 1));
  EXPECT_EQ(C.Model(), cmEquiRect);
}

TEST(CalibItems, ScalingRoundsHalfToEvenAndFitsAgain) {
  TCalibration C = With(cmParabolicIp);
  C.AddCalibPoint(gtlParallel, 50, 5, -3);
  C.SetModel(cmEquiRect);
  C.AddCalibPoint(0, 0, 0, 0);
  C.AddCalibPoint(0, 10, 1001, 0);
  C.AddCalibPoint(-10, 0, 0, 1003);
  C.ScalePixels(0.5);
  EXPECT_EQ(ItemsOf(C), "P50:(2,-2) 0/0:(0,0) 0/10:(500,0) -10/0:(0,502) ");
  int32_t X = 0, Y = 0;
  C.CalcPixelCoords(-10, 10, X, Y);
  EXPECT_EQ(X, 500);
  EXPECT_EQ(Y, 502);
}

// A map of the whole world, 360 by 180 pixels, and one that runs round it twice.
TEST(CalibItems, CornersAndResolution) {
  constexpr double Metres = 3.14159265358979323846 / 180 * 6378000;
  const struct {
    double DegreesAPixel;
    double Metres;                   // of the middle row, the equator
  } Cases[] = {{0.25, 90 * Metres},  // a quarter
               {0.75, 90 * Metres + 20037077.944595702},
               {1.1, 36 * Metres + 40074155.889191404}};
  for (const auto& Case : Cases) {
    TCalibration C = With(cmEquiRect);
    const double D = Case.DegreesAPixel;
    C.SetImageSize(360, 181);
    C.AddCalibPoint(90, -180, 0, 0);
    C.AddCalibPoint(90, -180 + 100 * D, 100, 0);
    C.AddCalibPoint(-10, -180, 0, 100);
    const TCornerArray& Corners = C.Data().Corners;
    const TCoords Want[] = {{90, -180}, {-91, -180}, {-91, -180 + 360 * D}, {90, -180 + 360 * D}};
    for (size_t I = 0; I < 4; ++I) {
      EXPECT_NEAR(Corners[I].Latit, Want[I].Latit, 1e-9);
      EXPECT_NEAR(Corners[I].Longit, Want[I].Longit, 1e-9);
    }
    EXPECT_NEAR(C.Data().Resolution, Case.Metres / 360, 1e-3);
    C.SetImageSize(0, 0);
    C.RecalcCalibration();
    EXPECT_EQ(C.Data().Resolution, 0);
    EXPECT_EQ(C.Data().Corners[gcoBottomRight], C.Data().Corners[gcoTopLeft]);
  }
}

TEST(CalibItems, QualityIsTheSampleDeviationOfRoundedPixels) {
  TCalibration C = With(cmEquiRect);
  double QX = 7, QY = 7;
  C.CalibQuality(QX, QY);
  EXPECT_EQ(QX, 0);
  EXPECT_EQ(QY, 0);
  // Two points a corner of a square, 4 pixels apart in X: the fit runs between them.
  for (const int I : {0, 1, 2, 3}) {
    for (const int Off : {-2, 2}) {
      const int Row = I / 2, Column = I % 2;
      C.AddCalibPoint(Row, Column, 100 * Column + Off, 100 * Row);
    }
  }
  C.CalibQuality(QX, QY);
  EXPECT_NEAR(QX, std::sqrt(8 * 4 / 7.0), 1e-9);
  EXPECT_NEAR(QY, 0, 1e-9);
  double DX = 0, DY = 0;
  EXPECT_TRUE(C.Residual(1, DX, DY));
  EXPECT_NEAR(DX, 2, 1e-9);
  EXPECT_FALSE(C.Residual(0, DX, DY));
  EXPECT_FALSE(C.Residual(9, DX, DY));
  C.SetModel(cmUndefined);
  EXPECT_FALSE(C.Residual(1, DX, DY));
  C.CalibQuality(QX, QY);
  EXPECT_EQ(QX, 0);
}

}  // namespace
}  // namespace zav
