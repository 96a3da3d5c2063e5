// SPDX-License-Identifier: MIT
#include <geomap/view/line_series.h>
#include <geomap/view/renderer.h>
#include <gtest/gtest.h>
#include <support/recording_canvas.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>

#include "map_support.h"

namespace zav {
namespace {

using enum TCalibModel;
using enum TShowGrat;

// A scene of an existing map image, and what drawing it does.
struct TPicture {
  TRenderScene Scene;
  TMapImage Image;
  TGraticule Graticule;
  TRecordingCanvas Canvas;

  TPicture(TSize Map, TSize Control) {
    Image.SetBitmap(TBitmap(Map.Width, Map.Height, TPixelFormat::pf32bit));
    Image.Accept("map.jpg");
    Scene.ShowMap = true;
    Scene.Control = Control;
    Scene.Map = Map;
    Scene.Calibration.SetImageSize(Map.Width, Map.Height);
    Scene.Look.FrameStyle = TFrameStyle::fsNone;
  }
  const std::vector<std::string>& Draw() {
    Canvas = {};
    RenderMap(Scene, {Image, Graticule}, Canvas, {});
    return Canvas.Lines;
  }
  size_t CountWith(std::string_view Beginning, std::string_view End) {
    return static_cast<size_t>(
        std::count_if(Canvas.Lines.begin(), Canvas.Lines.end(), [&](const std::string& Line) {
          return Line.starts_with(Beginning) && Line.ends_with(End);
        }));
  }
};

std::vector<TPoint> PointsOf(const std::string& Line) {
  std::istringstream In(Line);
  In.imbue(std::locale::classic());
  std::vector<TPoint> Points;
  std::string Word;
  In >> Word;
  TPoint P;
  char Comma = 0;
  while (In >> P.X >> Comma >> P.Y) Points.push_back(P);
  return Points;
}

const std::vector<TPoint> SixPixels = {{0, 0},    {250, 20},  {480, 330},
                                       {10, 340}, {240, 170}, {470, 10}};

TEST(Render, LayersAndHandlersInOrder) {
  TPicture P({500, 350}, {200, 100});
  P.Scene.Look.ShowGraticule = sgPointsAndLines;
  P.Scene.Look.GratLineDist = 60;  // one parallel, one meridian
  P.Scene.Look.FrameStyle = TFrameStyle::fsSingle;
  P.Scene.Calibration.SetData(PlainQuads(34.7, -10, 10, {{0, 0}, {400, 0}, {0, 300}}), cmEquiRect);
  P.Scene.Trace.Add({5, 5}, clRed, true);
  P.Scene.Trace.Add({9, 5}, clRed, true);
  std::vector<TPen> Pens;
  const auto Hook = [&](const char* Name) {
    return [&P, &Pens, Name](TCanvas& Canvas) {
      P.Canvas.Lines.push_back(Name);
      Pens.push_back(Canvas.Pen);
      Canvas.Pen = {clYellow, TPenStyle::psDot, TPenMode::pmXor, 3};  // must not leak
      Canvas.Brush.Style = TBrushStyle::bsClear;
      return true;
    };
  };
  ASSERT_TRUE(RenderMap(P.Scene, {P.Image, P.Graticule}, P.Canvas,
                        {Hook("-- before"), Hook("-- rendered")}));
  std::string Order;
  for (const std::string& Line : P.Canvas.Lines) {
    std::string Item = Line.substr(0, Line.find(' '));
    const size_t Pen = Line.find(" pen ");
    if (Line.starts_with("--")) Item = Line;
    if (Pen != std::string::npos) Item += Line.substr(Pen);
    if (!Line.starts_with("MoveTo")) Order += Item + "\n";
  }
  const std::string Marker =
      "LineTo pen 0000FF\nLineTo pen 0000FF\nPolyline pen 0000FF\n"
      "Polyline pen FFFFFF\nPolyline pen 0000FF\n";
  EXPECT_EQ(Order, "StretchDraw\n-- before\nPolyline pen FF0000\nPolyline pen FF0000\n" + Marker +
                       Marker + Marker +
                       "-- rendered\nLineTo pen 0000FF xor\n"
                       "FillRect\nFillRect\nFillRect\nFillRect\n");
  EXPECT_EQ(Pens[0], TPen{});
  EXPECT_EQ(Pens[1], TPen{clLime});

  // A handler that ends the picture ends it at once.
  P.Canvas = {};
  EXPECT_FALSE(RenderMap(P.Scene, {P.Image, P.Graticule}, P.Canvas,
                         {[](TCanvas&) { return false; }, nullptr}));
  EXPECT_EQ(P.Canvas.Lines.size(), 1U);

  // Without a map: message, trace, frame, no handlers. Hidden: trace and frame only.
  P.Scene.ShowMap = false;
  P.Scene.Look.FrameStyle = TFrameStyle::fsNone;
  P.Canvas = {};
  RenderMap(P.Scene, {P.Image, P.Graticule}, P.Canvas, {Hook("-- before"), Hook("-- rendered")});
  EXPECT_EQ(P.Canvas.Text(),
            "FillRect 0,0 200,100 brush C0C0C0\n"
            "TextOut 10,10 \"GeoMap: empty\" font MS Sans Serif 8 000000 brush C0C0C0\n"
            "MoveTo 5,5\nLineTo 9,5 pen 0000FF xor\n");
  P.Scene.ShowMap = true;
  P.Scene.Visible = false;
  P.Draw();
  EXPECT_EQ(P.Canvas.Text(), "MoveTo 5,5\nLineTo 9,5 pen 0000FF xor\n");
}

TEST(Render, ImageCacheAndBackground) {
  struct TCase {
    TViewState View;
    bool AntiAlias;
    double Limit;
    const char* Lines;
  };
  TPicture P({1010, 800}, {500, 400});
  constexpr double TwoThirds = MaxCacheMagLimit;
  // One after the other: what stays in the cache matters.
  const TCase Cases[] = {
      {{{10, 20}, 1}, true, TwoThirds, "StretchDraw 0,0 500,400 from 10,20 510,420 smooth\n"},
      {{{10, 20}, 1.7}, false, TwoThirds, "StretchDraw 0,0 500,400 from 10,20 304,255 nearest\n"},
      {{{3, 0}, 0.5}, true, TwoThirds, "CopyRect 0,0 from 2,0 502,400\n"},
      // Off the map: what the cache does not cover, and a pixel more, is background.
      {{{100, 0}, 0.5},
       true,
       TwoThirds,
       "FillRect 454,0 500,400 brush C0C0C0\nCopyRect 0,0 from 50,0 550,400\n"},
      // Kept, though the limit would not build it again and the mode differs.
      {{{0, 0}, 0.5}, false, 0.4, "CopyRect 0,0 from 0,0 500,400\n"},
      {{{0, 0}, 0.5}, false, TwoThirds, "CopyRect 0,0 from 0,0 500,400\n"},
      {{{0, 0}, 0.6}, false, 0.6, "StretchDraw 0,0 500,400 from 0,0 833,667 nearest\n"},
      {{{-50, 0}, 0.6},
       true,
       0,
       "FillRect 0,0 32,400 brush C0C0C0\n"
       "StretchDraw 0,0 500,400 from -50,0 783,667 smooth\n"},
      {{{5000, 0}, 1},
       true,
       0,
       "FillRect 0,0 500,400 brush C0C0C0\n"
       "StretchDraw 0,0 500,400 from 5000,0 5500,400 smooth\n"},
  };
  for (const TCase& Case : Cases) {
    P.Scene.View = Case.View;
    P.Scene.Look.AntiAlias = Case.AntiAlias;
    P.Scene.Look.CacheMagLimit = Case.Limit;
    P.Draw();
    EXPECT_EQ(P.Canvas.Text(), Case.Lines);
  }
  EXPECT_EQ(P.Image.Cache().Magnification, 0.5);
  EXPECT_FALSE(P.Image.Cache().AntiAlias) << "not rebuilt when the mode changed";
  EXPECT_EQ(P.Image.Cache().Bitmap.Width(), 505);

  // A screen of another resolution: device pixels, and a cache of its own.
  P.Scene.View = {{10, 0}, 0.5};
  P.Scene.Look.CacheMagLimit = TwoThirds;
  P.Scene.Scale = 1.25;
  P.Scene.Control = {401, 200};
  P.Draw();
  EXPECT_EQ(P.Canvas.Text(), "CopyRect 0,0 from 6,0 508,250\n");
  EXPECT_EQ(P.Image.Cache().Bitmap.Width(), 631);
}

TEST(Render, GraticuleSteps) {
  struct TCase {
    double North, PixelsPerDegree, Dist;
    size_t Parallels, Meridians;
  } const Cases[] = {
      {34.7, 10, 0, 35, 51},  // 35 degrees by 50: every degree from 0, as -0.3 is cut to 0
      {50.27, 700, 0, 6, 8},  // half a degree by 0.714: every tenth, from 49.7 and 0
      {34.7, 10, 7, 5, 8},    // 0, 7, 14, 21, 28; 0 to 49
      {34.7, 10, 60, 1, 1},
  };
  // One after the other: lines that are kept must not outlive what they were made from.
  TPicture P({500, 350}, {500, 350});
  P.Scene.Look.ShowGraticule = sgLines;
  for (const TCase& Case : Cases) {
    P.Scene.Look.GratLineDist = Case.Dist;
    P.Scene.Calibration.SetData(
        PlainQuads(Case.North, 0.003, Case.PixelsPerDegree, {{0, 0}, {400, 0}, {0, 300}}),
        cmEquiRect);
    size_t Parallels = 0;
    for (const std::string& Line : P.Draw()) {
      const auto Points = PointsOf(Line);
      if (!Line.starts_with("Polyline")) continue;
      EXPECT_EQ(Points.size(), 11U);
      Parallels += Points.front().Y == Points.back().Y;
    }
    EXPECT_EQ(Parallels, Case.Parallels) << Case.Dist;
    EXPECT_EQ(P.Canvas.CountOf("Polyline") - Parallels, Case.Meridians) << Case.Dist;
  }
  // Where a line lies: latitude 10 on a map whose row 0 is 34.7 N, ten pixels a degree; doubled by
  // the view and by the screen, and pens with it.
  P.Scene.View = {{100, 50}, 2};
  P.Scene.Scale = 2;
  P.Scene.Look.GratLineDist = 10;
  P.Scene.Calibration.SetData(PlainQuads(34.7, 0, 10, {{0, 0}, {400, 0}, {0, 300}}), cmEquiRect);
  const auto& Lines = P.Draw();
  const auto Parallel = std::find_if(Lines.begin(), Lines.end(), [](const std::string& Line) {
    return Line.starts_with("Polyline -400,788");
  });
  ASSERT_NE(Parallel, Lines.end());
  EXPECT_TRUE(Parallel->ends_with("1600,788 pen FF0000 w2"));
}

// Which models show what for which kind; the fewest points at which lines are drawn.
TEST(Render, WhatEachModelShows) {
  const size_t NumMarkers = SixPixels.size();
  for (const TCalibModel Model : {cmParabolicIp, cmBiquadraticPn, cmConicConformal,
                                  cmMillerCylindrical, cmEquiRect, cmUTM, cmUndefined}) {
    TCalibData Data = PlainQuads(54.7, 5, 10, SixPixels);
    if (Model == cmUTM) {
      Data = UTMPointsOf("alps_utm32n");
      Data.NumCalQuads = static_cast<int32_t>(NumMarkers);
    }
    Data.NumCalLines = 2;
    Data.CalLines[0] = {TGratLineKind::gtlParallel, 50, 3, {{{0, 40}, {100, 30}, {200, 40}}}};
    Data.CalLines[1] = {TGratLineKind::gtlMeridian, 10, 3, {{{50, 0}, {60, 50}, {50, 100}}}};
    for (const TShowGrat Show :
         {sgNone, sgPoints, sgLines, sgPointsAndLines, sgUTMGrid, sgPointsAndUTMGrid}) {
      TPicture P({500, 350}, {500, 350});
      P.Scene.Look.ShowGraticule = Show;
      P.Scene.Calibration.SetData(Data, Model);
      P.Draw();
      const bool Points = Show == sgPoints || Show == sgPointsAndLines ||
                          (Show == sgPointsAndUTMGrid && Model == cmUTM);
      const bool Lines = Show == sgLines || Show == sgPointsAndLines;
      const bool Grid = (Show == sgUTMGrid || Show == sgPointsAndUTMGrid) && Model == cmUTM;
      const auto What = [&] {
        return "model " + std::to_string(static_cast<int>(Model)) + " kind " +
               std::to_string(static_cast<int>(Show));
      };
      EXPECT_EQ(P.CountWith("Polyline", "pen FFFFFF"), Points && Model != cmUndefined ? 6U : 0U)
          << What();
      EXPECT_EQ(P.CountWith("Polyline", "pen FF0000") > 0, Lines && Model != cmUndefined) << What();
      EXPECT_EQ(P.CountWith("LineTo", "pen FF0000") > 0, Grid) << What();
    }
    // One point too few: markers, no lines.
    if (Model == cmParabolicIp || Model == cmUndefined) continue;
    for (const int32_t Enough : {0, 1}) {
      TPicture P({500, 350}, {500, 350});
      TCalibData Few = Data;
      Few.NumCalQuads = (Model == cmBiquadraticPn ? 5 : 2) + Enough;
      for (const TShowGrat Show : {sgPointsAndLines, sgPointsAndUTMGrid}) {
        P.Scene.Look.ShowGraticule = Show;
        P.Scene.Calibration.SetData(Few, Model);
        P.Draw();
        if (Enough == 0) {
          EXPECT_EQ(P.CountWith("", "pen FF0000"), 0U);
        }
        if (Show == sgPointsAndLines) {
          EXPECT_EQ(P.CountWith("Polyline", "pen FFFFFF"), static_cast<size_t>(Few.NumCalQuads));
        }
      }
    }
  }
}

TEST(Render, MarkerParabolaAndScale) {
  TPicture P({500, 350}, {30, 30});
  P.Scene.View = {{100, 30}, 2};
  P.Scene.Look.ShowGraticule = sgPointsAndLines;
  TCalibData Data;
  Data.NumCalLines = 1;
  // y = 30 + (x - 100)^2 / 100
  Data.CalLines[0] = {TGratLineKind::gtlParallel, 50, 3, {{{100, 30}, {110, 31}, {120, 34}}}};
  P.Scene.Calibration.SetData(Data, cmParabolicIp);
  P.Draw();
  // Across 30 / 2 map pixels, one further than the control; rows are whole map pixels.
  EXPECT_EQ(P.Canvas.Lines[1],
            "Polyline 0,0 2,0 4,0 6,0 8,0 10,0 12,0 14,0 16,2 18,2 20,2 22,2 24,2 26,4 28,4 30,4 "
            "pen FF0000");
  const std::string Marker =
      "MoveTo -8,0\nLineTo 8,0 pen 0000FF\nMoveTo 0,-8\nLineTo 0,8 pen 0000FF\n"
      "Polyline -8,0 0,-8 8,0 0,8 -8,0 pen 0000FF\nPolyline -9,0 0,-9 9,0 0,9 -9,0 pen FFFFFF\n"
      "Polyline -10,0 0,-10 10,0 0,10 -10,0 pen 0000FF\n";
  EXPECT_NE(P.Canvas.Text().find(Marker), std::string::npos);
  P.Scene.Scale = 1.5;
  P.Draw();
  EXPECT_NE(P.Canvas.Text().find("Polyline 15,3 30,-12 45,3 30,18 15,3 pen 0000FF w2"),
            std::string::npos)
      << "map pixel (110, 31) is device pixel (30, 3), radius 10 is 15 device pixels";
}

TEST(Render, UTMGridOnARealMap) {
  TPicture P({1613, 1552}, {800, 600});
  P.Scene.View.Magnification = 0.5;
  P.Scene.Look.CacheMagLimit = 0;
  P.Scene.Look.ShowGraticule = sgUTMGrid;
  const TCalibData Data = UTMPointsOf("alps_utm32n");
  P.Scene.Calibration.SetData(Data, cmUTM);
  // About 450 km from south to north: every 50 km. Each line must pass the places that the map's
  // own control points give by interpolation.
  std::vector<std::array<TPoint, 2>> Lines;
  const auto& Calls = P.Draw();
  for (size_t I = 1; I < Calls.size(); ++I) {
    if (!Calls[I].ends_with("pen FF0000")) continue;
    Lines.push_back({PointsOf(Calls[I - 1])[0], PointsOf(Calls[I])[0]});
    for (const TPoint& End : Lines.back()) {
      EXPECT_TRUE(End.X >= 0 && End.X <= 807 && End.Y >= 0 && End.Y <= 776);
    }
  }
  const auto Passes = [&](double X, double Y) {
    return std::count_if(Lines.begin(), Lines.end(), [&](const std::array<TPoint, 2>& Line) {
      const double DX = Line[1].X - Line[0].X;
      const double DY = Line[1].Y - Line[0].Y;
      return std::fabs(DX * (Y - Line[0].Y) - DY * (X - Line[0].X)) / std::hypot(DX, DY) < 1.5;
    });
  };
  // The easting 500000 is the third column of points; between its rows the northing is linear.
  int Northings = 0;
  for (size_t Row = 0; Row < 3; ++Row) {
    const TCalQuad& Upper = Data.CalQuads[Row * 5 + 2];
    const TCalQuad& Lower = Data.CalQuads[Row * 5 + 7];
    EXPECT_GE(Passes(Upper.MapX / 2.0, Upper.MapY / 2.0), 1);
    for (int N = 4950000; N < 5400000; N += 50000) {
      if (N > Upper.Latitude || N < Lower.Latitude) continue;
      const double T = (Upper.Latitude - N) / (Upper.Latitude - Lower.Latitude);
      EXPECT_EQ(Passes((Upper.MapX + T * (Lower.MapX - Upper.MapX)) / 2,
                       (Upper.MapY + T * (Lower.MapY - Upper.MapY)) / 2),
                2)
          << N;  // the northing and the easting
      ++Northings;
    }
  }
  EXPECT_EQ(Northings, 7);       // 5000 to 5300 km
  EXPECT_EQ(Lines.size(), 18U);  // northings 4950 to 5350, eastings 300 to 700
  P.Scene.Look.UTMGridDist = 100000;
  P.Draw();
  EXPECT_EQ(P.CountWith("LineTo", "pen FF0000"), 9U);
}

// 250 km on both sides of zone 32's middle at 51 degrees north: the lower corners lie in the zones
// beside it, where their eastings are the wrong way round.
TEST(Render, UTMGridOfAMapWiderThanItsZone) {
  TPicture P({1000, 600}, {1000, 600});
  P.Scene.Look.ShowGraticule = sgUTMGrid;
  P.Scene.Look.UTMGridDist = 100000;
  TCalibData Data;
  Data.UTMZone = 32;
  for (const TPoint Pixel : {TPoint{0, 0}, {999, 0}, {0, 599}, {999, 599}}) {
    Data.CalQuads[static_cast<size_t>(Data.NumCalQuads++)] = {
        5850000 - Pixel.Y * 500.0, 250000 + Pixel.X * 500.0, Pixel.X, Pixel.Y};
  }
  P.Scene.Calibration.SetData(Data, cmUTM);
  P.Draw();
  EXPECT_EQ(P.CountWith("LineTo", "pen FF0000"), 3U);  // northings 5600 to 5800 km
  P.Scene.Look.GratInMapZone = true;
  P.Draw();
  EXPECT_EQ(P.CountWith("LineTo", "pen FF0000"), 8U);  // and eastings 300 to 700 km
  // Northings run to the map's right edge where it begins inside the window, too.
  P.Scene.View.TopLeft = {-200, 0};
  P.Draw();
  EXPECT_EQ(P.CountWith("LineTo", "pen FF0000"), 8U);
  EXPECT_EQ(P.CountWith("LineTo 1200,", "pen FF0000"), 3U);
}

// However small the spacing and however wild the numbers, there is an end, and not more lines than
// pixels.
TEST(Render, SpacingNeverHangs) {
  constexpr double Nan = std::numeric_limits<double>::quiet_NaN();
  constexpr double Infinity = std::numeric_limits<double>::infinity();
  TPicture P({500, 350}, {500, 350});
  P.Scene.Look.ShowGraticule = sgLines;
  for (const double Dist : {1e-3, 1e-9, 1e-300}) {
    P.Scene.Look.GratLineDist = Dist;
    P.Scene.Calibration.SetData(PlainQuads(34.7, 0, 10, {{0, 0}, {400, 0}, {0, 300}}), cmEquiRect);
    P.Draw();
    const size_t Count = P.Canvas.CountOf("Polyline");
    EXPECT_LE(Count, 851U);
    EXPECT_GE(Count, Dist < 1e-100 ? 0U : 840U) << Dist;
  }
  // Magnified there is room for more: lines left out before must come back.
  P.Scene.Look.GratLineDist = 1e-3;
  P.Draw();
  P.Scene.View.Magnification = 2;
  P.Draw();
  EXPECT_GE(P.Canvas.CountOf("Polyline"), 1680U);
  P.Scene.View.Magnification = 1;
  for (const double Bad : {Nan, Infinity, 1e300, 0.0}) {
    for (const double Dist : {0.0, 1e-9, 60.0}) {
      P.Scene.Look.GratLineDist = Dist;
      // The largest numbers that a calibration file can bring in, in every place.
      TCalibData Data = PlainQuads(34.7, 0, 10, {{0, 0}, {400, 0}, {0, 300}});
      Data.CalQuads[1].Latitude = Bad;
      Data.CalQuads[2].Longitude = -Bad;
      P.Scene.Calibration.SetData(Data, cmEquiRect);
      P.Draw();
      EXPECT_LE(P.Canvas.CountOf("Polyline"), 2U * MaxSeriesLines);
    }
  }
  TPicture Alps({1613, 1552}, {500, 350});
  Alps.Scene.Look.ShowGraticule = sgUTMGrid;
  Alps.Scene.Look.UTMGridDist = 1;
  Alps.Scene.Calibration.SetData(UTMPointsOf("alps_utm32n"), cmUTM);
  Alps.Draw();
  EXPECT_NEAR(static_cast<double>(Alps.Canvas.CountOf("LineTo")), 1613 + 1552, 40);

  const TLineSeries Series = MakeLineSeries(-0.35, 0.3, 10);
  ASSERT_EQ(Series.Count, 6);  // -0.3, -0.2, -0.1, 0, 0.1, 0.2
  EXPECT_EQ(Series.Value(0), -0.3);
  EXPECT_EQ(Series.Value(5), 0.2);
}

}  // namespace
}  // namespace zav
