// SPDX-License-Identifier: MIT
#include <geomap/view/landmark_pixels.h>
#include <geomap/view/renderer.h>
#include <gtest/gtest.h>
#include <platform/base/random.h>
#include <support/recording_canvas.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "map_support.h"

namespace zav {
namespace {

using enum TLandMarkElement;
using enum THorizontalAlignment;
using enum TVerticalAlignment;

// A map of 1000 x 800 pixels, ten a degree: pixel (X, Y) is at Y / 10 degrees south and X / 10
// east.
TLandMark AtPixel(int32_t X, int32_t Y, const std::string& Caption = "", uint8_t ClassFlag = 0) {
  TLandMark LandMark;
  LandMark.Latitude = -Y / 10.0;
  LandMark.Longitude = X / 10.0;
  LandMark.ClassFlag = ClassFlag;
  LandMark.SymbolProps.Kind = lmSpade;
  LandMark.SymbolProps.Size = 2;
  LandMark.Caption.Text = Caption;
  LandMark.Caption.dx = 3;
  return LandMark;
}

struct TPicture {
  TRenderScene Scene;
  TMapImage Image;
  TGraticule Graticule;
  TLandMarkCache Cache;
  TRecordingCanvas Canvas;
  TRenderHooks Hooks;

  TPicture() {
    Image.SetBitmap(TBitmap(1000, 800, TPixelFormat::pf32bit));
    Image.Accept("map.jpg");
    Scene.ShowMap = true;
    Scene.Control = {200, 100};
    Scene.Map = {1000, 800};
    Scene.Calibration.SetImageSize(1000, 800);
    SetCalibration(10);
    Scene.Look.FrameStyle = TFrameStyle::fsNone;
  }
  void SetCalibration(double PixelsPerDegree) {
    Scene.Calibration.SetData(PlainQuads(0, 0, PixelsPerDegree, {{0, 0}, {900, 0}, {0, 700}}),
                              TCalibModel::cmEquiRect);
  }
  void Add(const TLandMark& LandMark) { Scene.LandMarks.List.Append(LandMark); }
  // All calls but that for the image.
  std::string Draw() {
    Canvas = {};
    RenderMap(Scene, {Image, Graticule, &Cache}, Canvas, Hooks);
    Canvas.Lines.erase(Canvas.Lines.begin());
    return Canvas.Text();
  }
  // The first corners of the spades: one right of each landmark.
  std::vector<TPoint> Drawn() {
    Draw();
    std::vector<TPoint> Points;
    for (const std::string& Line : Canvas.Lines) {
      if (!Line.starts_with("Polygon ")) continue;
      const size_t Comma = Line.find(',');
      Points.push_back({std::stoi(Line.substr(8)) - 2, std::stoi(Line.substr(Comma + 1))});
    }
    return Points;
  }
  size_t CountOf(std::string_view End) {
    return static_cast<size_t>(
        std::count_if(Canvas.Lines.begin(), Canvas.Lines.end(),
                      [&](const std::string& Line) { return Line.ends_with(End); }));
  }
};

std::string Spade(int32_t X, int32_t Y, const std::string& Colors = "pen FF0000 brush FFFFFF") {
  std::string Text = "Polygon";
  for (const TPoint& P : {TPoint{2, 0}, {0, 2}, {-2, 0}, {0, -2}}) {
    Text += " " + std::to_string(X + P.X) + "," + std::to_string(Y + P.Y);
  }
  return Text + " " + Colors + "\n";
}

TEST(LandMarkPass, SymbolsCaptionsHandlersAndHighlightInOrder) {
  TPicture P;
  P.Scene.View = {{100, 50}, 2};
  P.Add(AtPixel(120, 60, "one"));
  P.Add(AtPixel(130, 70, "hidden", 7));
  P.Add(AtPixel(140, 80));
  P.Scene.LandMarks.ClassVisible[7] = false;
  P.Scene.LandMarks.HighLight.Index = 1;
  P.Hooks.DataRendered = [&](TCanvas&) {
    P.Canvas.Lines.push_back("-- rendered");
    return true;
  };
  const std::string Font = " font MS Sans Serif 8 000000 brush clear\n";
  // The text "one" is 18 pixels wide: half of it to the left of 40 + 3.
  const std::string Expected = Spade(40, 20) + "TextOut 34,28 \"one\"" + Font + Spade(80, 60) +
                               "-- rendered\n" + Spade(40, 20, "pen FF0000 brush 00FFFF");
  EXPECT_EQ(P.Draw(), Expected);

  // Asked about each that is drawn, in control pixels; the highlighted one again.
  std::string Asked;
  TDrawAnswer Answer = TDrawAnswer::daDraw;
  P.Hooks.DrawLandMark = [&](TCanvas& Canvas, TPoint At, const TLandMark& LandMark) {
    EXPECT_EQ(&Canvas, &P.Canvas);
    Asked += std::to_string(At.X) + "," + std::to_string(At.Y) + LandMark.Caption.Text.Text() + " ";
    Canvas.Pen = {clRed, TPenStyle::psDot, TPenMode::pmXor, 9};  // must not leak
    Canvas.Brush.Style = TBrushStyle::bsClear;
    return Answer;
  };
  EXPECT_EQ(P.Draw(), Expected);
  EXPECT_EQ(Asked, "40,20one 80,60 40,20one ");
  Answer = TDrawAnswer::daHandled;
  EXPECT_EQ(P.Draw(), "-- rendered\n");
  Answer = TDrawAnswer::daGone;
  EXPECT_EQ(P.Draw(), "");

  // The highlight: not of a hidden class, nor of a number that means none, but in any other case.
  P.Hooks = {};
  P.Scene.LandMarks.HighLight.Transparent = true;
  for (const auto& [Index, Shown] :
       {std::pair{0, false}, {1, true}, {2, false}, {3, true}, {4, false}, {-1, false}}) {
    P.Scene.LandMarks.HighLight.Index = Index;
    P.Draw();
    // An unfilled spade is drawn with lines.
    EXPECT_EQ(P.Canvas.CountOf("LineTo") == 4, Shown) << Index;
  }
}

TEST(LandMarkPass, CaptionsAlignedAndTurned) {
  struct TCase {
    int32_t Direction;
    // ox and oy for a text of 24 x 13 pixels, by horizontal and vertical alignment.
    TPoint Offset[3][3];
  };
  const TCase Cases[] = {
      {0,
       {{{0, 0}, {0, -6}, {0, -12}},
        {{-24, 0}, {-24, -6}, {-24, -12}},
        {{-12, 0}, {-12, -6}, {-12, -12}}}},
      {90,
       {{{0, 0}, {-6, 0}, {-12, 0}},
        {{0, 24}, {-6, 24}, {-12, 24}},
        {{0, 12}, {-6, 12}, {-12, 12}}}},
      {30,
       {{{0, 0}, {-3, -5}, {-6, -10}},
        {{-21, 12}, {-24, 7}, {-27, 2}},
        {{-10, 6}, {-13, 1}, {-16, -4}}}},
  };
  for (const TCase& Case : Cases) {
    for (size_t H = 0; H < 3; ++H) {
      for (size_t V = 0; V < 3; ++V) {
        TPicture P;
        TLandMark LandMark = AtPixel(100, 50, "abcd");
        LandMark.Caption.dy = -4;
        LandMark.Caption.Direction = Case.Direction;
        LandMark.Caption.HAlignment = static_cast<THorizontalAlignment>(H);
        LandMark.Caption.VAlignment = static_cast<TVerticalAlignment>(V);
        LandMark.Caption.Transparent = false;
        LandMark.Caption.BGColor = clLime;
        LandMark.Caption.FontStyles = fsBold | fsItalic;
        LandMark.Caption.FGColor = clRed;
        LandMark.Caption.FontName = "Other";
        P.Add(LandMark);
        P.Draw();
        const TPoint O = Case.Offset[H][V];
        std::string Expected = "TextOut " + std::to_string(103 + O.X) + "," +
                               std::to_string(46 + O.Y) +
                               " \"abcd\" font Other 8 0000FF bold italic";
        if (Case.Direction != 0) Expected += " dir " + std::to_string(Case.Direction);
        EXPECT_EQ(P.Canvas.Lines.back(), Expected + " brush 00FF00") << H << ' ' << V;
      }
    }
  }
}

TEST(LandMarkPass, OnlyInsideTheControlAndOnTheMap) {
  TPicture P;
  P.Scene.View.TopLeft = {300, 200};
  const std::vector<TPoint> Places = {{300, 250}, {301, 201}, {400, 200}, {499, 299},
                                      {500, 250}, {400, 300}, {50, 50},   {302, 250}};
  for (const TPoint& Place : Places) P.Add(AtPixel(Place.X, Place.Y));
  const std::vector<TPoint> Inside = {{1, 1}, {199, 99}, {2, 50}};
  EXPECT_EQ(P.Drawn(), Inside);
  // A handler is asked about those on the edge and beyond, too.
  size_t Asked = 0;
  P.Hooks.DrawLandMark = [&](TCanvas&, TPoint At, const TLandMark&) {
    EXPECT_EQ(At, (TPoint{Places[Asked].X - 300, Places[Asked].Y - 200}));
    ++Asked;
    return TDrawAnswer::daDraw;
  };
  EXPECT_EQ(P.Drawn(), Inside);
  EXPECT_EQ(Asked, Places.size());

  // Without a place on the map: a model without its lines, or none.
  for (const TCalibModel Model : {TCalibModel::cmParabolicIp, TCalibModel::cmUndefined}) {
    Asked = 0;
    P.Scene.LandMarks.HighLight.Index = 2;
    P.Scene.Calibration.SetModel(Model);
    EXPECT_EQ(P.Draw(), "");
    EXPECT_EQ(Asked, 0U);
  }
  // Whatever the view: nothing wraps around.
  P.SetCalibration(10);
  constexpr int32_t Low = std::numeric_limits<int32_t>::min();
  constexpr int32_t High = std::numeric_limits<int32_t>::max();
  for (const TPoint TopLeft : {TPoint{Low, Low}, {High, High}, {High - 10, 0}}) {
    for (const double Magnification : {1e-9, 1.0, 1e9}) {
      P.Scene.View = {TopLeft, Magnification};
      P.Hooks = {};
      const auto Quick = P.Drawn();
      P.Hooks.DrawLandMark = [](TCanvas&, TPoint, const TLandMark&) { return TDrawAnswer::daDraw; };
      EXPECT_EQ(Quick, P.Drawn());
    }
  }
}

TEST(LandMarkPass, ThinsOutAtRandom) {
  TPicture P;
  // 4000 in view, as many outside, and 1000 in view of a class that is not shown.
  TRandom Random(1);
  for (int32_t I = 0; I < 9000; ++I) {
    const auto X = 1 + static_cast<int32_t>(Random.Next() % 199);
    const auto Y = 1 + static_cast<int32_t>(Random.Next() % 99);
    TLandMark LandMark = AtPixel(I % 9 < 4 ? X : X + 300, Y, "", I % 9 == 8 ? 1 : 0);
    if (I % 9 == 8) LandMark.Longitude = X / 10.0;
    LandMark.Tag = I;
    P.Add(LandMark);
  }
  P.Scene.LandMarks.ClassVisible[1] = false;
  // What is drawn; with a handler it must be the same, in the list's order.
  const auto DrawnWith = [&](uint64_t Seed, int32_t Threshold) {
    P.Scene.LandMarks.ThinningSeed = Seed;
    P.Scene.LandMarks.DisplayThreshold = Threshold;
    auto Points = P.Drawn();
    EXPECT_EQ(P.Drawn(), Points) << "the same seed leaves the same";
    int32_t Last = -1;
    P.Hooks.DrawLandMark = [&Last](TCanvas&, TPoint, const TLandMark& LandMark) {
      EXPECT_LT(Last, LandMark.Tag);
      Last = LandMark.Tag;
      return TDrawAnswer::daDraw;
    };
    EXPECT_EQ(P.Drawn(), Points);
    P.Hooks = {};
    return Points;
  };
  EXPECT_EQ(DrawnWith(1, 9000).size(), 4000U);
  EXPECT_EQ(DrawnWith(1, 4000).size(), 4000U) << "as many as are in view";
  // Each with the probability 1001 / 4000: a standard deviation of 27.
  std::vector<std::vector<TPoint>> Pictures;
  for (uint64_t Seed = 0; Seed < 20; ++Seed) {
    Pictures.push_back(DrawnWith(Seed, 1001));
    EXPECT_NEAR(static_cast<double>(Pictures.back().size()), 1001, 5 * 27);
    EXPECT_EQ(std::count(Pictures.begin(), Pictures.end(), Pictures.back()), 1);
  }
  // The highlighted one is there in every case.
  P.Scene.LandMarks.HighLight.Index = 1;
  P.Scene.LandMarks.DisplayThreshold = 1;
  for (uint64_t Seed = 0; Seed < 20; ++Seed) {
    P.Scene.LandMarks.ThinningSeed = Seed;
    P.Draw();
    EXPECT_EQ(P.CountOf("brush 00FFFF"), 1U);
  }
}

TEST(LandMarkPass, LargerOnAScreenOfHighResolution) {
  TPicture P;
  P.Scene.Scale = 1.5;
  P.Scene.View = {{0, 0}, 1.4};
  P.Add(AtPixel(51, 31, "abcd"));
  P.Add(AtPixel(60, 0));    // on the edge
  P.Add(AtPixel(143, 30));  // 200.2 control pixels are the edge, too
  P.Hooks.DrawLandMark = [&](TCanvas&, TPoint At, const TLandMark&) {
    EXPECT_TRUE(At == (TPoint{71, 43}) || At == (TPoint{84, 0}) || At == (TPoint{200, 42}));
    return TDrawAnswer::daDraw;
  };
  // Map pixel (51, 31) is device pixel (107.1, 65.1); the text is 36 x 20 device pixels.
  EXPECT_EQ(P.Draw(),
            "Polygon 110,65 107,68 104,65 107,62 pen FF0000 w2 brush FFFFFF\n"
            "TextOut 93,77 \"abcd\" font MS Sans Serif 12 000000 brush clear\n");
}

// --- what is kept --------------------------------------------------------------------------------

TEST(LandMarkPixels, KeptUntilCalibrationOrLandmarksChange) {
  TPicture P;
  TLandMarkList List;
  for (int32_t I = 0; I < 2500; ++I) List.Append(AtPixel(I % 900, I % 700));
  TLandMarkPixels Pixels;
  const auto First = Pixels.Update(List, P.Scene.Calibration);
  ASSERT_EQ(First.size(), 3U);
  EXPECT_EQ(First[2]->Count, 500U);
  EXPECT_EQ(First[1]->X[7], 107);
  // Which chunks are still the same.
  const auto Kept = [&](const TLandMarkList& Of) {
    std::string Result;
    const auto Now = Pixels.Update(Of, P.Scene.Calibration);
    for (size_t I = 0; I < Now.size(); ++I) {
      Result += I < First.size() && Now[I] == First[I] ? '=' : '!';
    }
    return Result;
  };
  EXPECT_EQ(Kept(List), "===");
  const TLandMarkList Copy = List;
  EXPECT_EQ(Kept(Copy), "===") << "a copy shares the blocks";
  List.Replace(1500, AtPixel(5, 5));
  EXPECT_EQ(Kept(List), "=!=");
  EXPECT_EQ(Pixels.Update(List, P.Scene.Calibration)[1]->X[499], 5);
  EXPECT_EQ(Kept(Copy), "=!=") << "made again";
  TLandMarkList InPlace = List;
  List.Clear();
  InPlace.Replace(1, AtPixel(8, 9));  // shared with none: the block stays where it is
  EXPECT_EQ(Kept(InPlace), "!!=");
  EXPECT_EQ(Pixels.Update(InPlace, P.Scene.Calibration)[0]->Y[0], 9);
  InPlace.Remove(2500);
  EXPECT_EQ(Pixels.Update(InPlace, P.Scene.Calibration)[2]->Count, 499U);
  P.SetCalibration(20);
  EXPECT_EQ(Kept(InPlace), "!!!");
  EXPECT_EQ(Pixels.Update(InPlace, P.Scene.Calibration)[1]->X[7], 214);
}

TEST(LandMarkPixels, CountsAsPositionInMapDoes) {
  TRandom Random(2);
  const auto Coordinate = [&] { return static_cast<double>(Random.Next() % 9); };
  TLandMarkList List;
  for (int32_t I = 0; I < 1500; ++I) {
    TLandMark LandMark;
    LandMark.Latitude = I % 100 == 0 ? std::nan("") : Coordinate() + 0.25 * (I % 2);
    LandMark.Longitude = Coordinate();
    LandMark.ClassFlag = static_cast<uint8_t>(I % 4);
    List.Append(LandMark);
  }
  TClassVisibility Visible = AllClasses();
  Visible[3] = false;
  TLandMarkPixels Pixels;
  const auto Chunks = Pixels.Update(List, {});
  size_t Inside = 0;
  for (int32_t Round = 0; Round < 2000; ++Round) {
    // Also turned over, crossing themselves, without area, and beyond all numbers.
    TCornerArray Corners;
    for (TCoords& Corner : Corners) Corner = {Coordinate(), Coordinate()};
    if (Round % 50 == 0) Corners[1].Latit = std::numeric_limits<double>::infinity();
    if (Round % 50 == 1) Corners[2].Longit = std::nan("");
    size_t Expected = 0;
    for (int32_t I = 1; I <= List.Count(); ++I) {
      Expected +=
          Visible[List[I].ClassFlag] && PositionInMap(List[I].Latitude, List[I].Longitude, Corners);
    }
    ASSERT_EQ(CountInside(Chunks, Corners, Visible), Expected) << Round;
    Inside += Expected;
  }
  EXPECT_GT(Inside, 10000U);
}

}  // namespace
}  // namespace zav
