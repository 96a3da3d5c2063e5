// print_test.cpp - parts of the map on bitmaps and on pages.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <platform/base/rounding.h>
#include <support/test_printer.h>

#include <cmath>

#include "map_support.h"

namespace zav {
namespace {

using TTexts = std::vector<std::string>;

TEST(CopyToBmp, IsWhatTheControlShowsWithoutFrame) {
  TTestMap T(300, 200);
  TGeoMap& Map = T.Map;
  Map.SetCalibration(PlainQuads(50, 10, 10, {{0, 0}, {200, 0}, {0, 150}, {200, 150}}),
                     TCalibModel::cmEquiRect);
  Map.SetShowGrat(TShowGrat::sgPointsAndLines);
  Map.SetGratLineDist(5);
  Map.SetFrameStyle(TFrameStyle::fsNone);
  Map.SetSize(120, 90);
  // The handler draws on the map where the control tells it a position is.
  Map.OnDataRendered = [](TGeoMap* Sender, TCanvas& Canvas) {
    const TPoint P = Sender->MapImageToControl({60, 40});
    Canvas.Brush = {clLime};
    Canvas.FillRect({P.X, P.Y, P.X + 6, P.Y + 6});
  };
  for (const double Magnification : {1.0, 2.0, 0.5}) {
    SCOPED_TRACE(Magnification);
    Map.SetView({30, 20}, Magnification);
    const TViewState View = Map.View();
    TBitmap Bitmap(200, 150, TPixelFormat::pf15bit);
    Map.CopyToBMP(&Bitmap, {30, 20}, Magnification, 50, 40, 120, 90);
    int Wrong = 0;
    for (int32_t Y = 0; Y < 150; ++Y) {
      for (int32_t X = 0; X < 200; ++X) {
        const bool Inside = X >= 50 && X < 170 && Y >= 40 && Y < 130;
        const TColor Wanted = Inside ? Map.InternalMapImg().Pixel(X - 50, Y - 40) : clBlack;
        Wrong += Bitmap.Pixel(X, Y) != Wanted;
      }
    }
    EXPECT_EQ(Wrong, 0);
    EXPECT_EQ(Map.View(), View);
  }
  // Neither frame nor screen have a part in it, and small bitmaps grow.
  Map.SetFrameStyle(TFrameStyle::fsSunken);
  Map.SetVisible(false);
  Map.OnDataRendered = nullptr;
  Map.SetShowGrat(TShowGrat::sgNone);
  TBitmap Small(TPixelFormat::pf32bit);
  Map.CopyToBMP(&Small, {10, 20}, 1, 0, 0, 30, 25);
  ASSERT_EQ(Small.Width(), 30);
  EXPECT_EQ(Small.Pixel(0, 0), PlaceColor(10, 20));
  EXPECT_EQ(Small.Pixel(29, 24), PlaceColor(39, 44));
  Map.CopyToBMP(&Small, {0, 0}, 1, -10, -10, 30, 25);
  ASSERT_EQ(Small.Height(), 25);
  EXPECT_EQ(Small.Pixel(0, 0), PlaceColor(10, 10));
  EXPECT_EQ(Small.Pixel(20, 15), PlaceColor(30, 35));
}

TEST(CopyToBmp, WhatCannotBeDrawn) {
  TTestMap T(30, 20);
  TBitmap Bitmap(4, 4, TPixelFormat::pf32bit);
  const auto Draw = [&](double Scale, int32_t Left, int32_t Width) {
    return ErrorOf<EZAVGeoMapError>([&] {
      T.Map.CopyToBMP(&Bitmap, {0, 0}, Scale, Left, 0, Width, 5000);
    });
  };
  for (const double Scale : {0.0, -1.0, std::nan(""), HUGE_VAL})
    EXPECT_NE(Draw(Scale, 0, 5).find("above 0"), std::string::npos) << Scale;
  EXPECT_NE(Draw(1, 0, 50000).find("too large"), std::string::npos);
  EXPECT_NE(Draw(1, INT32_MAX, 5).find("too large"), std::string::npos);
  EXPECT_NE(Draw(1, INT32_MIN, INT32_MAX).find("too large"), std::string::npos);
  EXPECT_EQ(Draw(1, 0, 0), "");
  T.Map.CopyToBMP(nullptr, {0, 0}, 1, 0, 0, 5, 5);
  T.Map.Clear();
  EXPECT_EQ(Draw(1, 0, 5), "");
  EXPECT_EQ(Bitmap.Width(), 4);

  // A handler may destroy the control; one that asks for another picture gets none.
  auto Map = std::make_unique<TGeoMap>(nullptr, T.Host);
  Map->SetMapBitMap(PlaceBitmap(30, 20));
  Map->OnBeforeRenderData = [&](TGeoMap* Sender, TCanvas&) {
    Sender->CopyToBMP(&Bitmap, {0, 0}, 1, 0, 0, 20, 20);
    Map.reset();
  };
  TBitmap Other;
  Map->CopyToBMP(&Other, {0, 0}, 1, 0, 0, 10, 10);
  EXPECT_EQ(Map, nullptr);
  EXPECT_EQ(Other.Pixel(3, 3), PlaceColor(3, 3));
}

TEST(Printing, ExtentsFollowTheScale) {
  TTestMap T(400, 200);
  TTestPrinter Printer;
  T.Host.TestPrinter = &Printer;
  T.Map.SetCalibration(PlainQuads(0.1, 10, 1000, {{0, 0}, {400, 0}, {0, 200}, {400, 200}}),
                       TCalibModel::cmEquiRect);
  const double Resolution = T.Map.CalibData().Resolution;
  ASSERT_NEAR(Resolution, 111.2, 0.2);
  int32_t W = 0;
  int32_t H = 0;
  // 10 cm of paper at 1:25000 are 2500 m.
  Printer.Resolution = 1200;
  T.Map.CalcExtentsOfPrint({0, 0, 400, 200}, 1000000, W, H);
  EXPECT_NEAR(W, 400 * Resolution / 1000000 / 0.0254 * 1200, 0.5);
  EXPECT_NEAR(H, 200 * Resolution / 1000000 / 0.0254 * 1200, 0.5);
  T.Map.CalcExtentsOfPrint({0, 0, 225, 1}, 250000, W, H);
  EXPECT_NEAR(W, 225 * Resolution / 250000 / 0.0254 * 1200, 0.5);
  EXPECT_NEAR(W / 1200.0 * 25.4 * 250, 225 * 111.19, 225 * 111.19 * 0.005);
  // As large as the page of 1600 x 1200 holds.
  T.Map.CalcExtentsOfPrint({100, 50, 300, 100}, 0, W, H);
  EXPECT_EQ(W, 1600);
  EXPECT_EQ(H, 400);
  T.Map.CalcExtentsOfPrint({100, 50, 100, 100}, 0, W, H);
  EXPECT_EQ(W + H, 0);
  T.Map.ClearCalibData();
  T.Map.CalcExtentsOfPrint({0, 0, 400, 200}, 25000, W, H);
  EXPECT_EQ(W + H, 0);
}

TEST(Printing, PagesCarryEveryLayerAtTheirScale) {
  TTestMap T(400, 200);
  TTestPrinter Printer;
  T.Host.TestPrinter = &Printer;
  TGeoMap& Map = T.Map;
  Map.SetCalibration(PlainQuads(50, 10, 10, {{0, 0}, {400, 0}, {0, 200}, {400, 200}}),
                     TCalibModel::cmEquiRect);
  Map.SetMapCaption("Plain");
  Map.SetShowGrat(TShowGrat::sgLines);
  Map.SetGratLineDist(10);
  Map.OnDataRendered = [](TGeoMap* Sender, TCanvas& Canvas) {
    const TPoint P = Sender->MapImageToControl({200, 100});
    Canvas.TextOut(P.X, P.Y, "here");
  };
  const auto Print = [&](auto Operation) {
    Printer.Drawn.clear();
    Printer.BeginDoc("x");
    Operation();
    Printer.EndDoc();
    return Printer.Drawn.empty() ? TRect{} : Printer.Drawn.back().Area;
  };

  // The whole map as wide as the page: 4 printer pixels each, 2 a control pixel.
  Printer.Log.clear();
  Map.PrintIt(1);
  EXPECT_EQ(Printer.Log, (TTexts{"begin Plain", "end"}));
  ASSERT_EQ(Printer.Drawn.size(), 1U);
  EXPECT_EQ(Printer.Drawn[0].Area, (TRect{0, 0, 1600, 800}));
  const std::string Page = Printer.Drawn[0].Canvas->Text();
  EXPECT_NE(Page.find("StretchDraw 0,0 1600,800 from 0,0 400,200"), std::string::npos) << Page;
  EXPECT_NE(Page.find("TextOut 800,400 \"here\" font MS Sans Serif 16"), std::string::npos) << Page;
  EXPECT_NE(Page.find("pen FF0000 w2"), std::string::npos) << Page;  // a line of the graticule
  EXPECT_EQ(Printer.Drawn[0].Canvas->CountOf("CopyRect"), 0U);
  EXPECT_EQ(Printer.Drawn[0].Canvas->CountOf("Polyline"), 6U) << Page;

  Printer.Drawn.clear();
  Map.PrintIt(0.5);
  EXPECT_EQ(Printer.Drawn[0].Area, (TRect{0, 0, 800, 400}));
  // On an open page: from a place on, a part of the map, a rectangle of the page.
  int32_t X = 800;
  int32_t Y = 600;
  EXPECT_EQ(Print([&] { Map.CopyToOpenPrinter(X, Y, 5); }), (TRect{800, 600, 1600, 1000}));
  EXPECT_EQ(X, 1600);
  EXPECT_EQ(Y, 1000);
  EXPECT_EQ(Print([&] {
              Map.CopyToOpenPrinter({100, 50, 200, 150}, 0, 0, 200);
            }),
            (TRect{0, 200, 1000, 1200}));
  EXPECT_NE(Printer.Drawn[0].Canvas->Text().find("StretchDraw 0,0 1000,1000 from 100,50 200,150"),
            std::string::npos);
  EXPECT_EQ(Print([&] {
              Map.CopyToOpenPrinter(TPoint{300, 0}, 0, 10, 10, 300, 600);
            }),
            (TRect{10, 10, 310, 610}));
  EXPECT_EQ(Print([&] {
              Map.CopyToOpenPrinter(TPoint{300, 100}, 0, 10, 10, 300, 600);
            }),
            (TRect{10, 10, 310, 310}));
  // At a true scale the rectangle is filled as far as the map goes.
  const double Factor = PaperFactor(Map.CalibData().Resolution, 50000000, 192);
  const int32_t Wide = RoundHalfEven(400 * Factor);
  ASSERT_GT(Wide, 500);
  EXPECT_EQ(Print([&] {
              Map.CopyToOpenPrinter(TPoint{0, 0}, 50000000, 0, 0, 400, 9999);
            }),
            (TRect{0, 0, 400, RoundHalfEven(200 * Factor)}));
  EXPECT_EQ(Print([&] {
              Map.CopyToOpenPrinter({0, 0, 400, 100}, 50000000, 7, 5);
            }),
            (TRect{7, 5, 7 + Wide, 5 + RoundHalfEven(100 * Factor)}));
}

TEST(Printing, WhatCannotBePrinted) {
  TTestMap T(400, 200);
  EXPECT_EQ(ErrorOf<EPrinterError>([&] { T.Map.PrintIt(1); }), "There is no printer");
  TTestPrinter Printer;
  T.Host.TestPrinter = &Printer;
  EXPECT_THROW(T.Map.CopyToOpenPrinter({0, 0, 10, 10}, 0, 0, 0), EPrinterError);
  T.Map.PrintIt(0);
  T.Map.PrintIt(std::nan(""));
  EXPECT_EQ(Printer.Log, TTexts{});
  Printer.BeginDoc("mine");
  EXPECT_NE(ErrorOf<EZAVGeoMapError>([&] {
              T.Map.CopyToOpenPrinter({0, 0, 9, 9}, 25000, 0, 0);
            }).find("resolution"),
            std::string::npos);
  // Another document is left alone; one that fails is thrown away.
  EXPECT_THROW(T.Map.PrintIt(1), EPrinterError);
  EXPECT_EQ(Printer.Log, (TTexts{"begin mine"}));
  Printer.Abort();
  Printer.Log.clear();
  T.Map.OnBeforeRenderData = [](TGeoMap*, TCanvas&) { throw std::runtime_error("handler"); };
  EXPECT_THROW(T.Map.PrintIt(1), std::runtime_error);
  EXPECT_EQ(Printer.Log, (TTexts{"begin $unknown$", "abort"}));
  EXPECT_EQ(T.Map.View(), TViewState());
  T.Map.OnBeforeRenderData = nullptr;
  Printer.FailAtEnd = true;
  EXPECT_THROW(T.Map.PrintIt(1), EPrinterError);
  Printer.FailAtEnd = false;
  T.Map.PrintIt(1);
}

}  // namespace
}  // namespace zav
