// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "map_support.h"

namespace zav {
namespace {

using enum TMouseActMode;

struct TMove {
  TShiftState Shift;
  TPoint At, TopLeft;
};

TEST(Mouse, PanningSequences) {
  struct TCase {
    TMouseActMode Action;
    double Magnification;
    bool Confine;
    int Events;
    std::vector<TMove> Moves;
  };
  const TCase Cases[] = {
      // The first move takes the anchor; leaving the control pauses, coming back goes on.
      {maPan,
       1,
       true,
       3,
       {{ssLeft, {100, 100}, {50, 50}},
        {ssLeft, {90, 120}, {60, 30}},
        {ssLeft, {-1, 120}, {60, 30}},
        {ssLeft, {500, 401}, {60, 30}},
        {ssLeft, {501, 400}, {60, 30}},
        {ssLeft, {0, 400}, {150, 0}},     // 50 + 100; 50 - 300 is confined
        {ssLeft, {95, 100}, {55, 50}}}},  // still from the anchor
      {maPan, 2, false, 1, {{ssLeft, {100, 100}, {50, 50}}, {ssLeft, {103, 401 - 1}, {48, -100}}}},
      {maPanHorizontal, 1, true, 1, {{ssLeft, {100, 100}, {50, 50}}, {ssLeft, {90, 90}, {60, 50}}}},
      {maPanVertical, 1, true, 1, {{ssLeft, {100, 100}, {50, 50}}, {ssLeft, {90, 90}, {50, 60}}}},
      // Letting go of the button ends the drag, so the next one has its own anchor.
      {maPan,
       1,
       true,
       2,
       {{ssLeft, {100, 100}, {50, 50}},
        {ssLeft, {90, 100}, {60, 50}},
        {0, {10, 10}, {60, 50}},
        {ssLeft | ssCtrl, {200, 200}, {60, 50}},
        {ssLeft, {199, 200}, {61, 50}}}},
      {maNone, 1, true, 0, {{ssLeft, {100, 100}, {50, 50}}, {ssLeft, {90, 90}, {50, 50}}}},
      {maPan, 1, true, 0, {{ssRight, {100, 100}, {50, 50}}, {ssRight, {90, 90}, {50, 50}}}},
  };
  for (const TCase& Case : Cases) {
    TTestMap T(1000, 800);
    TGeoMap& Map = T.Map;
    Map.SetMouseAction(Case.Action);
    Map.SetConfinePan(Case.Confine);
    Map.SetView({50, 50}, Case.Magnification);
    int Events = 0;
    Map.OnZoomPan = [&](TGeoMap* Sender) {
      EXPECT_EQ(Sender, &Map);
      ++Events;
    };
    T.Seen = {};
    Map.MouseDown(TMouseButton::mbLeft, ssLeft, 20, 10);
    const double M = Case.Magnification;
    EXPECT_EQ(Map.LastClickPosX(), 50 + 20 / M);
    EXPECT_EQ(Map.LastClickPosY(), 50 + 10 / M);
    for (const TMove& Move : Case.Moves) {
      const TPoint Under = Map.ControlToMapImage(Move.At);
      Map.MouseMove(Move.Shift, Move.At.X, Move.At.Y);
      EXPECT_EQ(Map.TopLeft(), Move.TopLeft) << static_cast<int>(Case.Action);
      EXPECT_EQ((TPoint{Map.LastMousePosX(), Map.LastMousePosY()}), Under);
    }
    EXPECT_EQ(Events, Case.Events);
    EXPECT_EQ(T.Seen.Paints, Case.Events);
    const bool Pans = Case.Action != maNone;
    Map.MouseUp(TMouseButton::mbLeft, 0, 5, 5);
    const TPoint End = Case.Moves.back().TopLeft;
    EXPECT_EQ(Map.GetZoomStackEntry(0),
              Pans ? (TgmZoomStackEntry{End.X, End.Y, M}) : (TgmZoomStackEntry{0, 0, 1}));
  }
}

TEST(Mouse, UserHandlersBeforeAndAfter) {
  TTestMap T(1000, 800);
  TGeoMap& Map = T.Map;
  std::string Order;
  Map.OnMouseDown = [&](TCustomControl*, TMouseButton, TShiftState, int32_t, int32_t) {
    Order += "down at " + std::to_string(Map.LastClickPosX()) + "; ";
  };
  Map.OnMouseMove = [&](TCustomControl*, TShiftState, int32_t, int32_t) {
    Order += "moved to " + std::to_string(Map.TopLeft().X) + "; ";
  };
  Map.OnMouseUp = [&](TCustomControl*, TMouseButton, TShiftState, int32_t, int32_t) {
    Order += "history " + std::to_string(Map.GetZoomStackEntry(0).Left) + "; ";
  };
  Map.MouseDown(TMouseButton::mbLeft, ssLeft, 60, 10);
  Map.MouseMove(ssLeft, 60, 10);
  Map.MouseMove(ssLeft, 20, 10);
  Map.MouseUp(TMouseButton::mbLeft, 0, 20, 10);
  EXPECT_EQ(Order, "down at 60; moved to 0; moved to 40; history 0; ");
  EXPECT_EQ(Map.GetZoomStackEntry(0).Left, 40);

  // The wheel in the middle of a drag: the drag goes on from the new view.
  Map.MouseMove(ssLeft, 30, 10);
  EXPECT_TRUE(Map.ZoomAt({30, 10}, 4));
  const TPoint Zoomed = Map.TopLeft();
  Map.MouseMove(ssLeft, 30, 10);
  Map.MouseMove(ssLeft, 20, 10);
  EXPECT_EQ(Map.TopLeft(), (TPoint{Zoomed.X + 5, Zoomed.Y}));
  EXPECT_FALSE(Map.ZoomAt({30, 10}, 1)) << "at the limit";

  EXPECT_EQ(Map.GetLastMClickLatitude(), 0) << "no calibration";
  Map.SetCalibration(PlainQuads(54, 5, 10, {{0, 0}, {400, 0}, {0, 300}}), TCalibModel::cmEquiRect);
  EXPECT_NEAR(Map.GetLastMClickLatitude(), 53, 1e-9);
  EXPECT_NEAR(Map.GetLastMClickLongitude(), 11, 1e-9);
}

TEST(Mouse, TraceIsKeptInMapPixelsAndDrawn) {
  TTestMap T(1000, 800);
  TGeoMap& Map = T.Map;
  Map.SetMapBitMap(TBitmap(1000, 800, TPixelFormat::pf32bit));  // black
  Map.SetMouseAction(maMouseTrace);
  Map.SetMouseTraceColor(clYellow);
  std::vector<TPoint> Moved;
  Map.OnMouseMove = [&](TCustomControl*, TShiftState, int32_t X, int32_t Y) {
    Moved.push_back({X, Y});
  };
  T.Seen = {};
  const auto Shown = [&](int32_t X, int32_t Y) {
    return TTestHost::WindowOf(Map).Buffer().Pixel(X, Y);
  };
  Map.MouseMove(0, 5, 5);
  Map.MouseMove(ssLeft, 10, 20);
  Map.MouseMove(ssLeft, 600, 20);  // clamped to the control, also for the handler
  EXPECT_EQ(Moved.back(), (TPoint{500, 20}));
  EXPECT_EQ(Shown(100, 20), clYellow);
  EXPECT_EQ(T.Seen.Paints, 0) << "only the new line is drawn";
  Map.MouseUp(TMouseButton::mbLeft, 0, 500, 20);
  Map.SetMouseTraceInvert(false);
  Map.MouseMove(ssLeft, 200, 40);
  Map.MouseMove(ssLeft, 300, 40);
  EXPECT_EQ(Map.NumMTracePoints(), 4);
  EXPECT_EQ(Shown(250, 40), clYellow);
  EXPECT_EQ(Shown(350, 30), 0U) << "strokes are not joined";

  // In the next picture it is where it was on the map; twice inverted is gone.
  Map.SetTopLeft({50, 10});
  EXPECT_EQ(Shown(50, 10), clYellow);
  EXPECT_EQ(Shown(200, 30), clYellow);
  EXPECT_EQ(Shown(300, 20), 0U) << "nor there";
  TBitmap Bitmap = Map.InternalMapImg();
  Map.DrawMouseTrace(0, 0, Bitmap);
  EXPECT_EQ(Bitmap.Pixel(50, 10), 0U);
  TBitmap Moved10(600, 600, TPixelFormat::pf32bit);
  Map.DrawMouseTrace(10, 20, Moved10);
  EXPECT_EQ(Moved10.Pixel(210, 50), clYellow);

  // Degrees of the points; nothing to tell without a calibration or a point.
  EXPECT_EQ(Map.GetMTracePoint(1).Flags, mtfInvalid);
  Map.SetCalibration(PlainQuads(54, 5, 10, {{0, 0}, {400, 0}, {0, 300}}), TCalibModel::cmEquiRect);
  const TMouseTracePoint Second = Map.GetMTracePoint(2);
  EXPECT_NEAR(Second.X, 55, 1e-9);
  EXPECT_NEAR(Second.Y, 52, 1e-9);
  EXPECT_EQ(Second.Flags, mtfInvert | mtfStrokeEnd);
  EXPECT_EQ(Map.GetMTracePoint(0).Flags, mtfInvalid);
  EXPECT_EQ(Map.GetMTracePoint(5).Flags, mtfInvalid);

  for (int I = 0; I < 6000; ++I) Map.MouseMove(ssLeft, I % 500, I % 300);
  EXPECT_EQ(Map.NumMTracePoints(), 5000);
  Map.ClearMouseTrace();
  EXPECT_EQ(Map.NumMTracePoints(), 0);
  EXPECT_EQ(Shown(200, 30), 0U);
}

}  // namespace
}  // namespace zav
