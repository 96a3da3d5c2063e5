// SPDX-License-Identifier: MIT
#include <geomap/view/view_state.h>
#include <geomap/view/zoom_ring.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace zav {
namespace {

constexpr int32_t Lowest = std::numeric_limits<int32_t>::min();
constexpr int32_t Highest = std::numeric_limits<int32_t>::max();

TEST(ViewState, ControlAndMapPixelsRoundHalfToEven) {
  const TViewState Doubled{{100, -7}, 2.0};
  // 1 / 2 = 0.5 goes to 0, 3 / 2 = 1.5 to 2.
  EXPECT_EQ(ControlToMapImage(Doubled, {1, 3}), (TPoint{100, -5}));
  EXPECT_EQ(MapImageToControl(Doubled, {100, 0}), (TPoint{0, 14}));
  const TViewState Halved{{10, 20}, 0.5};
  EXPECT_EQ(MapImageToControl(Halved, {11, 23}), (TPoint{0, 2}));
  EXPECT_EQ(MapImageToDevice(Halved, 3, 11, 23), (TPoint{2, 4}));
  // No wrap-around at the ends.
  EXPECT_EQ(ControlToMapImage({{Highest, Lowest}, 0.5}, {900, -900}), (TPoint{Highest, Lowest}));
  EXPECT_EQ(MapImageToControl({{Lowest, Highest}, 2}, {Highest, Lowest}),
            (TPoint{Highest, Lowest}));
}

TEST(ViewState, CentringConfiningAndFitting) {
  const TSize Control{500, 400};
  const TSize Map{1000, 800};
  struct TCase {
    TViewState View, Confined;
    TSize Map;
  } const Cases[] = {
      {{{-5, 30}, 1}, {{0, 30}, 1}, Map},          {{{501, 401}, 1}, {{500, 400}, 1}, Map},
      {{{900, 900}, 0.6}, {{167, 133}, 0.6}, Map},  // 1000 - 500 / 0.6 = 166.67
      {{{40, 40}, 1}, {{0, 0}, 1}, {100, 100}},     // smaller than the view
      {{{40, 40}, 1}, {{0, 0}, 1}, {0, 0}},
  };
  for (const TCase& Case : Cases) {
    EXPECT_EQ(Confine(Case.View, Control, Case.Map), Case.Confined);
  }
  EXPECT_EQ(CenterOn({{0, 0}, 2}, {300, 50}, Control).TopLeft, (TPoint{175, -50}));
  // The far edge is applied first, so that a map narrower than the view begins at 0.
  EXPECT_EQ(CenterInside({{0, 0}, 2}, {300, 50}, Control, Map).TopLeft, (TPoint{175, 0}));
  EXPECT_EQ(CenterInside({{0, 0}, 1}, {990, 790}, Control, Map).TopLeft, (TPoint{500, 400}));
  EXPECT_EQ(CenterInside({{9, 9}, 1}, {990, 790}, Control, {300, 300}).TopLeft, (TPoint{0, 0}));

  EXPECT_EQ(FitPage({{9, 9}, 1}, Control, Map), (TViewState{{0, 0}, 0.5}));
  EXPECT_EQ(FitPage({{9, 9}, 1}, Control, {100, 100}), (TViewState{{0, 0}, 4.0}));
  EXPECT_EQ(FitPage({{9, 9}, 1.5}, Control, {0, 800}), (TViewState{{0, 0}, 1.5}));
}

// --- zooming about a point -----------------------------------------------------------------------

// How far, in control pixels, the map position that lay under Center in From has moved in To.
double Drift(const TViewState& From, const TViewState& To, TPoint Center) {
  const auto Axis = [&](int32_t FromOrigin, int32_t ToOrigin, int32_t C) {
    const double Map = FromOrigin + C / From.Magnification;
    return std::fabs((Map - ToOrigin) * To.Magnification - C);
  };
  return std::max(Axis(From.TopLeft.X, To.TopLeft.X, Center.X),
                  Axis(From.TopLeft.Y, To.TopLeft.Y, Center.Y));
}

TEST(ZoomGesture, ReturnsExactlyAndHoldsThePoint) {
  std::mt19937 Random(4711);
  const auto Number = [&](int Low, int High) {
    return std::uniform_int_distribution<int>(Low, High)(Random);
  };
  const TSize Control{1003, 701};
  const TSize Map{2000, 1500};
  for (int Round = 0; Round < 5000; ++Round) {
    // Every fourth view lies outside the limits of the magnification.
    const double M = Round % 4 == 0 ? Number(1, 80) / 16.0 : Number(500, 2000) / 1000.0;
    TViewState Start{{Number(-500, 2500), Number(-500, 2500)}, M};
    const bool Confining = Round % 2 == 0;
    if (Confining) Start = Confine(Start, Control, Map);
    const TPoint Center{Number(0, 1003), Number(0, 701)};
    const int Direction = Confining || Round % 3 == 0 ? 1 : -1;
    TZoomGesture Gesture;
    TViewState View = Start;
    int Effective = 0;
    for (int Step = Number(1, 12); Step > 0; --Step) {
      const TViewState Next =
          Gesture.Zoom(View, Center, Direction, Control, Confining ? Map : TSize{});
      if (Next == View) break;
      ++Effective;
      View = Next;
      ASSERT_GE(View.Magnification, 0.5);
      ASSERT_LE(View.Magnification, 2.0);
      if (!Confining) {
        ASSERT_LE(Drift(Start, View, Center), 1.0 + 1e-9);
      }
    }
    for (int Step = 0; Step < Effective; ++Step) {
      View = Gesture.Zoom(View, Center, -Direction, Control, Confining ? Map : TSize{});
    }
    ASSERT_EQ(View, Start) << "after " << Effective << " steps from " << M;
  }
}

TEST(ZoomGesture, LimitsManyStepsAndMovingPointer) {
  const TSize Control{500, 400};
  const auto Step = [&](TViewState View, int Steps) {
    return TZoomGesture().Zoom(View, {250, 200}, Steps, Control, {}).Magnification;
  };
  EXPECT_EQ(Step({{0, 0}, 1}, 4), 2.0);
  EXPECT_EQ(Step({{0, 0}, 1}, -4), 0.5);
  EXPECT_EQ(Step({{0, 0}, 1}, Highest), 2.0);
  EXPECT_EQ(Step({{0, 0}, 1}, 0), 1.0);
  EXPECT_EQ(Step({{0, 0}, 0.3}, 1), 0.5);  // from outside to the nearest limit, either way
  EXPECT_EQ(Step({{0, 0}, 0.3}, -1), 0.5);
  EXPECT_EQ(Step({{0, 0}, 4}, 1), 2.0);
  const TViewState AtLimit{{7, 8}, 2.0};
  EXPECT_EQ(TZoomGesture().Zoom(AtLimit, {250, 200}, 3, Control, {}), AtLimit);

  // A pointer that wanders while zooming in and out: the magnification returns to the very number,
  // and no step moves what lies under the pointer by more than the two roundings of the corner.
  std::mt19937 Random(7);
  std::uniform_int_distribution<int32_t> X(0, 500);
  TZoomGesture Gesture;
  TViewState View{{300, 300}, 0.7};
  for (int Round = 0; Round < 400; ++Round) {
    const TPoint Center{X(Random), X(Random) * 4 / 5};
    const TViewState Next = Gesture.Zoom(View, Center, Round % 4 < 2 ? 1 : -1, Control, {});
    ASSERT_LE(Drift(View, Next, Center), 2.0);
    View = Next;
  }
  EXPECT_EQ(View.Magnification, 0.7);
}

// --- zoom ring -----------------------------------------------------------------------------------

TEST(ZoomRing, KeepsTheLastSixteen) {
  TZoomRing Ring;
  for (int32_t I = 1; I <= 17; ++I) Ring.Push({{I, -I}, I / 4.0});
  for (int32_t Index = 0; Index > -16; --Index) {
    const int32_t I = 17 + Index;
    EXPECT_EQ(Ring.Entry(Index), (TgmZoomStackEntry{I, -I, I / 4.0}));
  }
  for (const int32_t Index : {1, -16, Highest, Lowest}) {
    EXPECT_EQ(Ring.Entry(Index), TgmZoomStackEntry{});
  }
  Ring.Clear();
  Ring.Push({{3, 4}, 1});
  EXPECT_EQ(Ring.Entry(0), (TgmZoomStackEntry{3, 4, 1}));
  EXPECT_EQ(Ring.Entry(-1), TgmZoomStackEntry{});
}

}  // namespace
}  // namespace zav
