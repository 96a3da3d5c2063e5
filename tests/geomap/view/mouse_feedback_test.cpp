// What follows the mouse on the picture, pixel by pixel.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

#include "map_support.h"

namespace zav {
namespace {

using enum TMouseActMode;
using enum TFeedbackKind;

TColor Inverted(TColor Color) { return OnPicture(Color ^ clWhite); }

bool Covers(const std::vector<TRect>& Areas, double X, double Y) {
  for (const TRect& Area : Areas) {
    if (X >= Area.Left && X < Area.Right && Y >= Area.Top && Y < Area.Bottom) return true;
  }
  return false;
}

TEST(MouseFeedback, InvertsRestoresAndShowsNarrowAreas) {
  struct TCase {
    TFeedbackShape Shape;
    int Pixels;        // at scale 1
    int64_t MostArea;  // control pixels to be shown
  };
  const TCase Cases[] = {
      {{fkLine, {10, 390}, {490, 10}}, 480, 20000},  // the box about it has 182400
      {{fkLine, {20, 30}, {320, 30}}, 300, 1000},
      {{fkLine, {20, 300}, {20, 30}}, 270, 1000},
      {{fkLine, {20, 30}, {20, 30}}, 0, 0},
      {{fkLine, {-5000, -4000}, {5000, 4000}}, 500, 110000},
      {{fkBox, {400, 300}, {100, 50}}, 2 * (300 + 248), 1200},
      {{fkBox, {100, 50}, {101, 350}}, 300, 1300},
      {{fkBox, {100, 50}, {100, 350}}, 0, 0},
      {{fkDottedBox, {100, 50}, {400, 350}}, 2 * (300 + 298) / 2, 1300},
      {{fkDottedBox, {0, 0}, {500, 400}}, 2 * (500 + 398) / 2, 2000},
  };
  for (const double Scale : {1.0, 2.0, 1.25, 1.5}) {
    TTestHost Host;
    Host.Scale = Scale;
    TGeoMap Map(nullptr, Host);
    Map.SetMapBitMap(PlaceBitmap(1000, 800));
    TTestWindow& Window = TTestHost::WindowOf(Map);
    const TBitmap Clean = Window.Buffer();
    for (const TCase& Case : Cases) {
      SCOPED_TRACE(std::to_string(Scale) + " " + std::to_string(&Case - Cases));
      TMouseFeedback Feedback;
      Window.Shows.clear();
      Feedback.Show(Case.Shape, Window);
      const bool Empty = Case.Pixels == 0;
      ASSERT_EQ(Window.Shows.size(), Empty ? 0U : 1U);
      const std::vector<TRect> Areas = Empty ? std::vector<TRect>{} : Window.Shows[0];
      int64_t Area = 0;
      for (const TRect& Each : Areas) {
        const TRect Part = Intersection(Each, {0, 0, 500, 400});
        if (!Part.Empty()) Area += int64_t{Part.Width()} * Part.Height();
      }
      EXPECT_LE(Area, Case.MostArea);
      // A window shows whole device pixels, so one beside an area is shown, too.
      const double Beside = Scale == std::floor(Scale) ? 0 : 1;
      int Changed = 0;
      bool AllInverted = true;
      bool AllShown = true;
      for (int32_t Y = 0; Y < Clean.Height(); ++Y) {
        for (int32_t X = 0; X < Clean.Width(); ++X) {
          const TColor Now = Window.Buffer().Pixel(X, Y);
          if (Now == Clean.Pixel(X, Y)) continue;
          ++Changed;
          AllInverted = AllInverted && Now == Inverted(Clean.Pixel(X, Y));
          bool Shown = false;
          for (const double D : {-Beside, 0.0, Beside}) {
            Shown = Shown || Covers(Areas, (X + D) / Scale, (Y + D) / Scale) ||
                    Covers(Areas, (X + D) / Scale, (Y - D) / Scale);
          }
          AllShown = AllShown && Shown;
        }
      }
      EXPECT_TRUE(AllInverted);
      EXPECT_TRUE(AllShown);
      if (Scale == 1) {
        EXPECT_NEAR(Changed, Case.Pixels, Case.Shape.Kind == fkDottedBox ? 3 : 0);
      }
      if (Scale == 2 && Case.Pixels > 0) {
        EXPECT_GT(Changed, 2 * Case.Pixels);
      }
      // Another one takes its place; the second show has the areas of both.
      Feedback.Show({fkLine, {0, 0}, {50, 0}}, Window);
      EXPECT_EQ(Window.Buffer().Pixel(30, 0), Inverted(Clean.Pixel(30, 0)));
      Feedback.Show({}, Window);
      EXPECT_EQ(Window.Buffer(), Clean);
    }
  }
}

// The tools on the control: which pixels, when they go, and what a repaint in between does.
TEST(MouseFeedback, FollowsTheToolsAndSurvivesRepaints) {
  struct TCase {
    TMouseActMode Action;
    bool Held;  // the button
    TPoint On;  // a pixel of the shape from (100, 100) to (200, 150)
    TPoint Off;
  };
  for (const TCase& Case : {TCase{maRubberBand, false, {150, 125}, {150, 100}},
                            TCase{maZoomBox, true, {150, 100}, {150, 125}},
                            TCase{maSelectRect, true, {100, 100}, {150, 125}}}) {
    for (const double Scale : {1.0, 2.0}) {
      TTestHost Host;
      Host.Scale = Scale;
      TGeoMap Map(nullptr, Host);
      Map.SetMapBitMap(PlaceBitmap(1000, 800));
      Map.SetMouseAction(Case.Action);
      const TTestWindow& Window = TTestHost::WindowOf(Map);
      const TShiftState Held = Case.Held ? ssLeft : 0;
      const TBitmap Clean = Window.Buffer();
      const auto Differs = [&](TPoint At) {
        const auto X = static_cast<int32_t>(At.X * Scale);
        const auto Y = static_cast<int32_t>(At.Y * Scale);
        return Window.Buffer().Pixel(X, Y) != Clean.Pixel(X, Y);
      };
      Map.MouseDown(TMouseButton::mbLeft, ssLeft, 100, 100);
      EXPECT_EQ(Window.Buffer(), Clean);
      Map.MouseMove(Held, 300, 350);
      Map.MouseMove(Held, 200, 150);
      const TBitmap Drawn = Window.Buffer();
      EXPECT_TRUE(Differs(Case.On));
      EXPECT_FALSE(Differs(Case.Off));

      Map.Paint();
      EXPECT_EQ(Window.Buffer(), Clean) << "a repaint wipes it";
      Map.MouseMove(Held, 200, 150);
      EXPECT_EQ(Window.Buffer(), Drawn) << "the next move draws it whole";
      Map.Paint();
      Map.MouseMove(Held, 220, 170);
      Map.MouseMove(Held, 200, 150);
      EXPECT_EQ(Window.Buffer(), Drawn);

      Map.SetVisible(false);
      Map.SetVisible(true);
      EXPECT_EQ(Window.Buffer(), Clean);
      Map.MouseMove(0, 210, 150);
      EXPECT_EQ(Window.Buffer() == Clean, Case.Held) << "only what needs the button is over";
      Map.SetMouseAction(maPan);
      EXPECT_EQ(Window.Buffer(), Clean) << "another tool";
      Map.SetMouseAction(Case.Action);
      Map.MouseMove(0, 210, 150);
      EXPECT_EQ(Window.Buffer(), Clean);
      EXPECT_FALSE(Map.RubberBandActive() || Map.MouseDragging());
    }
  }
}

TEST(MouseFeedback, BandAndSelectionTellInOrder) {
  TTestMap T(1000, 800);
  TGeoMap& Map = T.Map;
  std::string Order;
  const auto Note = [&](const char* What) {
    return [&Order, What](TGeoMap*, TPoint P) {
      Order += What + std::to_string(P.X) + "," + std::to_string(P.Y) + " ";
    };
  };
  Map.OnBeginRubberBand = Note("begin ");
  Map.OnContinueRubberBand = Note("continue ");
  Map.OnEndRubberBand = Note("end ");
  Map.OnMouseDown = [&](TCustomControl*, TMouseButton, TShiftState, int32_t, int32_t) {
    Order += "down; ";
  };
  Map.OnMouseUp = [&](TCustomControl*, TMouseButton, TShiftState, int32_t, int32_t) {
    Order += "up; ";
  };
  Map.OnSelectRect = [&](TGeoMap* Sender, int Kind, double X1, double Y1, double X2, double Y2) {
    EXPECT_EQ(Sender, &Map);
    Order += "select " + std::to_string(Kind);
    for (const double V : {X1, Y1, X2, Y2}) Order += " " + std::to_string(std::lround(V * 10));
    Order += "; ";
  };
  Map.SetTopLeft({40, 20});
  Map.SetMouseAction(maRubberBand);
  const TTestWindow& Window = TTestHost::WindowOf(Map);
  const TBitmap Clean = Window.Buffer();
  Map.MouseDown(TMouseButton::mbLeft, ssLeft, 10, 10);
  Map.MouseMove(0, 60, 10);
  Map.MouseDown(TMouseButton::mbLeft, ssLeft | ssCtrl, 60, 10);
  Map.MouseMove(0, 60, 90);
  EXPECT_EQ(Order, "begin 50,30 down; continue 100,30 down; ");
  Map.MouseDown(TMouseButton::mbLeft, ssLeft, 60, 90);
  EXPECT_NE(Window.Buffer().Pixel(30, 10), Clean.Pixel(30, 10)) << "the first line stays";
  EXPECT_EQ(Window.Buffer().Pixel(60, 50), Clean.Pixel(60, 50)) << "the last one goes";
  Map.Paint();
  EXPECT_EQ(Window.Buffer(), Clean);

  // Map pixels without a calibration; longitude first with one, and pixels where it fails.
  Order.clear();
  Map.SetMouseAction(maSelectRect);
  const auto Select = [&] {
    Map.MouseDown(TMouseButton::mbLeft, ssLeft, 10, 20);
    Map.MouseMove(ssLeft, 30, 40);
    Map.MouseUp(TMouseButton::mbLeft, 0, 60, 50);
    return std::exchange(Order, "");
  };
  EXPECT_EQ(Select(), "begin 50,40 down; up; select 0 500 400 1000 700; ");
  Map.SetCalibration(PlainQuads(54, 5, 10, {{0, 0}, {400, 0}, {0, 300}}), TCalibModel::cmEquiRect);
  EXPECT_EQ(Select(), "begin 50,40 down; up; select 1 100 500 150 470; ");
}

// A zoom box on the control: shown, told, in the history; errors tell the name and keep the limit.
TEST(MouseFeedback, ZoomsAndSaysWhatItCannot) {
  TTestMap T(1000, 800);
  TGeoMap& Map = T.Map;
  int Told = 0;
  Map.OnZoomPan = [&](TGeoMap*) { ++Told; };
  Map.SetMouseAction(maZoomBox);
  const auto Box = [&](TPoint From, TPoint To) {
    Map.MouseDown(TMouseButton::mbLeft, ssLeft, From.X, From.Y);
    EXPECT_TRUE(Map.ZoomState());
    Map.MouseMove(ssLeft, To.X, To.Y);
    Map.MouseUp(TMouseButton::mbLeft, 0, To.X, To.Y);
  };
  T.Seen = {};
  Box({400, 300}, {100, 100});
  EXPECT_EQ(Map.View(), (TViewState{{100, 80}, 500.0 / 300}));
  EXPECT_EQ(Map.GetZoomStackEntry(0), (TgmZoomStackEntry{100, 80, 500.0 / 300}));
  EXPECT_EQ(T.Seen.Paints, 1);
  EXPECT_EQ(Told, 1);
  EXPECT_FALSE(Map.ZoomState());
  Box({100, 100}, {100, 300});
  EXPECT_EQ(T.Seen.Paints, 1);

  const TgmZoomStackEntry Last = Map.GetZoomStackEntry(0);
  EXPECT_EQ(ErrorOf<EZAVError>([&] {
              Box({100, 100}, {200, 150});
            }),
            "Component \"GeoMap1\": Magnification factor too high");
  EXPECT_EQ(Map.View(), (TViewState{{100, 80}, 2}));
  EXPECT_TRUE(Map.ZoomState());
  Map.MouseUp(TMouseButton::mbRight, 0, 1, 1);
  EXPECT_FALSE(Map.ZoomState());
  Map.SetView({0, 0}, 0.2);
  EXPECT_EQ(ErrorOf<EZAVError>([&] {
              Box({0, 0}, {500, 400});
            }),
            "Component \"GeoMap1\": Magnification factor too small");
  EXPECT_EQ(Map.View(), (TViewState{{0, 0}, 0.5}));
  EXPECT_EQ(Map.GetZoomStackEntry(0), Last);
  EXPECT_EQ(Told, 1);

  Map.SetMouseAction(maZoomDrag);
  Map.SetView({0, 0}, 1.9);
  T.Seen = {};
  Map.MouseMove(ssLeft, 250, 200);
  EXPECT_EQ(ErrorOf<EZAVError>([&] { Map.MouseMove(ssLeft, 250, 100); }),
            "Component \"GeoMap1\": Magnification factor too high");
  EXPECT_EQ(Map.View(), (TViewState{{0, 0}, 2}));
  EXPECT_EQ(T.Seen.Views, 1) << "listeners know";
  EXPECT_EQ(T.Seen.Paints, 0);
  Map.MouseMove(ssLeft, 250, 220);
  Map.MouseUp(TMouseButton::mbLeft, 0, 250, 220);
  EXPECT_EQ(Map.GetZoomStackEntry(0).MagF, 1.9);
  EXPECT_EQ(Told, 2);
}

}  // namespace
}  // namespace zav
