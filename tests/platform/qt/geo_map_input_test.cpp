// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>

#include <platform/base/rounding.h>
#include "map_widget_fixture.h"

using namespace zav;

namespace {

using GeoMapInput = GeoMapWidgetTest;

// How far the map position that was under the mouse has moved from it, in control pixels.
double Drift(const TViewState& From, const TViewState& To, QPointF Mouse) {
  const auto Axis = [&](int32_t Old, int32_t New, double At) {
    return std::abs((Old + At / From.Magnification - New) * To.Magnification - At);
  };
  return std::max(Axis(From.TopLeft.X, To.TopLeft.X, Mouse.x()),
                  Axis(From.TopLeft.Y, To.TopLeft.Y, Mouse.y()));
}

TEST_F(GeoMapInput, WheelKeepsThePointAndReturnsExactly) {
  Widget->resize(200, 160);
  Widget->setCacheMagnificationLimit(0);  // every step would make a new one
  Widget->setConfinePanToMapImage(false);
  std::mt19937 Random(4711);
  const auto Number = [&](double Low, double High) {
    return std::uniform_real_distribution<double>(Low, High)(Random);
  };
  for (int Round = 0; Round < 40; ++Round) {
    Map().SetView({static_cast<int32_t>(Number(-50, 500)), static_cast<int32_t>(Number(-50, 400))},
                  Round % 4 == 0 ? 1 : Number(0.5, 2));
    const TViewState Start = Map().View();
    const QPointF Mouse(std::floor(Number(0, 200)), std::floor(Number(0, 160)));
    const int Turn = Round % 2 == 0 ? 120 : -120;
    // Whole notches, or the fine steps of a touchpad that add up to them.
    const int Part = Round % 3 == 0 ? 15 : 120;
    int TookEffect = 0;
    for (int Step = 0; Step < 10; ++Step) {
      const TViewState Before = Map().View();
      for (int Units = 0; Units < 120; Units += Part)
        Wheel(Mouse, Turn > 0 ? Part : -Part, Round % 5 == 0);
      if (Map().View() == Before) continue;
      ++TookEffect;
      ASSERT_EQ(Map().Magnification() > Before.Magnification, Turn > 0);
      ASSERT_LE(Drift(Start, Map().View(), Mouse), 1 + 1e-9);
      ASSERT_GE(Map().Magnification(), 0.5);
      ASSERT_LE(Map().Magnification(), 2);
    }
    for (int Step = 0; Step < TookEffect; ++Step) Wheel(Mouse, -Turn);
    ASSERT_EQ(Map().View(), Start) << Round;
  }
  // Inside the map at the end of every step, when confined.
  Widget->setConfinePanToMapImage(true);
  Map().SetView({780, 600}, 1);
  const TViewState Corner = Map().View();
  for (int Step = 0; Step < 3; ++Step) Wheel({10, 10}, -120);
  EXPECT_EQ(Map().TopLeft().X, RoundHalfEven(1000 - 200 / Map().Magnification()));
  for (int Step = 0; Step < 3; ++Step) Wheel({10, 10}, 120);
  EXPECT_EQ(Map().View(), Corner);
}

TEST_F(GeoMapInput, WheelAtLimitsAndWithoutEffect) {
  const QPointF Mouse(100, 100);
  const TViewState Start = Map().View();
  QSignalSpy Changes(Widget, &GeoMapWidget::viewChanged);
  EXPECT_FALSE(Wheel(Mouse, 0));
  Wheel(Mouse, 60);
  Wheel(Mouse, -60);  // turned back before anything happened
  Wheel(Mouse, 119);
  EXPECT_EQ(Map().View(), Start);
  EXPECT_EQ(Changes.count(), 0);
  Wheel(Mouse, 1);
  EXPECT_GT(Map().Magnification(), 1);
  EXPECT_EQ(Changes.count(), 1);

  // Turning back begins anew, and what is left over from a step counts for the next one.
  Map().SetView({0, 0}, 1);
  for (const int Units : {60, -120, 180, 60}) Wheel(Mouse, Units);
  EXPECT_DOUBLE_EQ(Map().Magnification(), std::exp2(0.25));

  for (const auto& [Outside, Turn, Expected] :
       {std::tuple{0.2, 120, 0.5}, {0.2, -120, 0.5}, {4.0, -120, 2.0}, {4.0, 120, 2.0}}) {
    Map().SetView({0, 0}, Outside);
    Wheel(Mouse, Turn);
    EXPECT_EQ(Map().Magnification(), Expected);
    const TViewState Limit = Map().View();
    for (int Step = 0; Step < 3; ++Step) Wheel(Mouse, Expected > 1 ? 120 : -120);
    EXPECT_EQ(Map().View(), Limit);
    // What was turned at the limit is not owed.
    Wheel(Mouse, Expected > 1 ? -120 : 120);
    EXPECT_NE(Map().Magnification(), Expected);
  }
  // The gesture is one step of the zoom history, pushed when it is over.
  Map().SetView({7, 8}, 1);
  Map().ClearZoomHistory();
  for (int Step = 0; Step < 3; ++Step) Wheel(Mouse, 120);
  EXPECT_EQ(Map().GetZoomStackEntry(0).MagF, 1);
  QTest::mousePress(Widget, Qt::RightButton, {}, {5, 5});
  EXPECT_EQ(Map().GetZoomStackEntry(0).MagF, Map().Magnification());
  EXPECT_EQ(Map().GetZoomStackEntry(-1).MagF, 1);
  QTest::mouseRelease(Widget, Qt::RightButton, {}, {5, 5});
  // No step when the program has gone elsewhere meanwhile.
  Map().ClearZoomHistory();
  Wheel(Mouse, -120);
  Map().SetView({1, 2}, 1.5);
  QTest::mousePress(Widget, Qt::RightButton, {}, {5, 5});
  EXPECT_EQ(Map().GetZoomStackEntry(-1).MagF, 0);
  QTest::mouseRelease(Widget, Qt::RightButton, {}, {5, 5});

  GeoMapWidget Empty;
  QWheelEvent Event(Mouse, Mouse, {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&Empty, &Event);
  EXPECT_EQ(Empty.magnification(), 1);
}

TEST_F(GeoMapInput, MousePansAndTellsThePosition) {
  Map().SetCalibration(PlainCalibration(), TCalibModel::cmEquiRect);
  Widget->setTopLeft({100, 80});
  QSignalSpy TopLeft(Widget, &GeoMapWidget::topLeftChanged);
  QSignalSpy Position(Widget, &GeoMapWidget::mousePositionChanged);
  QSignalSpy Clicked(Widget, &GeoMapWidget::clicked);
  std::vector<std::string> Handled;
  Map().OnMouseDown = [&](TCustomControl*, TMouseButton, TShiftState Shift, int32_t X, int32_t Y) {
    Handled.push_back("down " + std::to_string(X) + " " + std::to_string(Y) + " " +
                      std::to_string(Shift));
  };
  Map().OnMouseUp = [&](TCustomControl*, TMouseButton, TShiftState Shift, int32_t X, int32_t Y) {
    Handled.push_back("up " + std::to_string(X) + " " + std::to_string(Y) + " " +
                      std::to_string(Shift));
  };
  QTest::mousePress(Widget, Qt::LeftButton, Qt::ShiftModifier, {200, 150});
  MoveTo({200, 150}, Qt::LeftButton);
  MoveTo({150, 130}, Qt::LeftButton);
  QTest::mouseRelease(Widget, Qt::LeftButton, {}, {150, 130});
  EXPECT_EQ(Widget->topLeft(), QPoint(150, 100));
  ASSERT_EQ(TopLeft.count(), 1);
  EXPECT_EQ(TopLeft[0][0].toPoint(), QPoint(150, 100));
  EXPECT_EQ(Clicked.count(), 0);
  EXPECT_EQ(Handled, (std::vector<std::string>{"down 200 150 " + std::to_string(ssShift | ssLeft),
                                               "up 150 130 0"}));
  EXPECT_EQ(Map().GetZoomStackEntry(0).Left, 150);

  MoveTo({50, 20});  // map pixel (200, 120)
  ASSERT_FALSE(Position.isEmpty());
  EXPECT_EQ(Position.last()[0].toPointF(), QPointF(200, 120));
  EXPECT_NEAR(Position.last()[1].toDouble(), 48.8, 1e-6);
  EXPECT_NEAR(Position.last()[2].toDouble(), 2.0, 1e-6);
  EXPECT_TRUE(Position.last()[3].toBool());
  QTest::keyClick(Widget, Qt::Key_Right);  // the map moved under the mouse
  EXPECT_NEAR(Position.last()[2].toDouble(), 2.4, 1e-6);
  // The program moves it under the resting mouse, and takes the calibration away.
  Widget->setTopLeft({300, 200});
  EXPECT_EQ(Position.last()[0].toPointF(), QPointF(350, 220));
  Map().SetCalibration({}, TCalibModel::cmUndefined);
  EXPECT_FALSE(Position.last()[3].toBool());
  Map().SetCalibration(PlainCalibration(), TCalibModel::cmEquiRect);
  EXPECT_NEAR(Position.last()[2].toDouble(), 3.5, 1e-6);
  const auto Told = Position.count();
  MoveTo({50, 20});  // nowhere else
  EXPECT_EQ(Position.count(), Told);
  MoveTo({600, 20});
  EXPECT_FALSE(Position.last()[3].toBool());
  Widget->setTopLeft({0, 0});
  EXPECT_EQ(Position.count(), Told + 1);
  QTest::mouseClick(Widget, Qt::LeftButton, {}, {9, 9});
  EXPECT_EQ(Clicked.count(), 1);

  Widget->setAllowPan(false);
  const QPoint Before = Widget->topLeft();
  QTest::mousePress(Widget, Qt::LeftButton, {}, {200, 150});
  MoveTo({200, 150}, Qt::LeftButton);
  MoveTo({100, 100}, Qt::LeftButton);
  EXPECT_EQ(Widget->topLeft(), Before);
}

TEST_F(GeoMapInput, KeysPanAndZoom) {
  struct TCase {
    Qt::Key Key;
    Qt::KeyboardModifier Modifier;
    TViewState Expected;
  };
  const TViewState Start{{200, 160}, 1};
  const double Step = std::exp2(0.25);
  const auto Zoomed = [&](double Magnification) {
    return TViewState{{static_cast<int32_t>(std::lround(450 - 250 / Magnification)),
                       static_cast<int32_t>(std::lround(360 - 200 / Magnification))},
                      Magnification};
  };
  for (const TCase& Case : {TCase{Qt::Key_Left, Qt::NoModifier, {{160, 160}, 1}},
                            {Qt::Key_Right, Qt::NoModifier, {{240, 160}, 1}},
                            {Qt::Key_Up, Qt::NoModifier, {{200, 120}, 1}},
                            {Qt::Key_Down, Qt::KeypadModifier, {{200, 200}, 1}},
                            {Qt::Key_Right, Qt::ShiftModifier, {{500, 160}, 1}},  // confined
                            {Qt::Key_Up, Qt::ShiftModifier, {{200, 0}, 1}},
                            {Qt::Key_Plus, Qt::ShiftModifier, Zoomed(Step)},
                            {Qt::Key_Equal, Qt::NoModifier, Zoomed(Step)},
                            {Qt::Key_Minus, Qt::NoModifier, Zoomed(1 / Step)},
                            {Qt::Key_F, Qt::NoModifier, {{0, 0}, 0.5}},
                            {Qt::Key_Home, Qt::NoModifier, {{0, 0}, 0.5}},
                            {Qt::Key_0, Qt::NoModifier, Start},
                            {Qt::Key_Plus, Qt::ControlModifier, Start},
                            {Qt::Key_A, Qt::NoModifier, Start}}) {
    Map().SetView(Start.TopLeft, Start.Magnification);
    QTest::keyClick(Widget, Case.Key, Case.Modifier);
    EXPECT_EQ(Map().TopLeft(), Case.Expected.TopLeft) << int{Case.Key};
    EXPECT_NEAR(Map().Magnification(), Case.Expected.Magnification, 1e-12) << int{Case.Key};
  }
  Map().SetView({300, 200}, 2);
  QTest::keyClick(Widget, Qt::Key_0);  // the middle, map pixel (425, 300), stays there
  EXPECT_EQ(Map().View(), (TViewState{{175, 100}, 1}));
  // Keys that are not used go on to the parent.
  QKeyEvent Unused(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
  Unused.accept();
  QApplication::sendEvent(Widget, &Unused);
  EXPECT_FALSE(Unused.isAccepted());
}

}  // namespace
