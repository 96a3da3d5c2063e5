// Whatever the user and the program do with the mouse, nothing hangs and nothing stays on the
// picture.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>
#include <string>

#include "map_support.h"

namespace zav {
namespace {

using enum TMouseActMode;

// The bytes that fill up a row may differ.
bool SamePixels(const TBitmap& A, const TBitmap& B) {
  if (A.Width() != B.Width() || A.Height() != B.Height()) return false;
  const auto Bytes = static_cast<size_t>(A.Width()) * 2;
  for (int32_t Y = 0; Bytes > 0 && Y < A.Height(); ++Y) {
    if (std::memcmp(A.Row(Y), B.Row(Y), Bytes) != 0) return false;
  }
  return true;
}

// Acts at random on a map, also from within its handlers and in MouseBox.
class TMonkey final : public TGeoMapObserver {
 public:
  explicit TMonkey(unsigned Seed, double Scale) : FRandom(Seed) {
    Host.Scale = Scale;
    Map = std::make_unique<TGeoMap>(nullptr, Host);
    Map->SetName("GeoMap1");
    Map->SetSize(120, 90);
    static const TBitmap Image = PlaceBitmap(300, 220);
    Map->SetMapBitMap(Image);
    Map->SetFrameStyle(TFrameStyle::fsNone);  // a trace at the edge is drawn over a frame
    Map->AddObserver(this);
    Map->OnZoomPan = [this](TGeoMap*) { ActInHandler(); };
    Map->OnSelectRect = [this](TGeoMap*, int, double, double, double, double) { ActInHandler(); };
    Map->OnBeginRubberBand = Map->OnEndRubberBand = [this](TGeoMap*, TPoint) { ActInHandler(); };
    Map->OnContinueRubberBand = [this](TGeoMap*, TPoint) {
      FKept = true;
      ActInHandler();
    };
    Map->OnMouseDown = Map->OnMouseUp = [this](TCustomControl*, TMouseButton, TShiftState, int32_t,
                                               int32_t) { ActInHandler(); };
    Host.OnProcessMessages = [this] {
      if (++FEvents > 12) return Map->MouseBoxAbort();
      Act();
    };
  }

  void Act() {
    try {
      DoSomething();
    } catch (const EZAVError& Error) {
      const std::string Text = Error.what();
      if (Text != "Component \"GeoMap1\": Magnification factor too high" &&
          Text != "Component \"GeoMap1\": Magnification factor too small") {
        throw;
      }
      ++Errors;
    }
  }

  // Everything let go: nothing may be under way, and only a refused zoom box may wait.
  void CheckAtRest() {
    FResting = true;
    Host.OnProcessMessages = nullptr;
    Map->SetVisible(true);
    Map->SetSuppressPaint(false);
    for (const TMouseButton Button :
         {TMouseButton::mbMiddle, TMouseButton::mbLeft, TMouseButton::mbRight}) {
      Map->MouseUp(Button, FHeld = 0, 5, 5);
    }
    EXPECT_FALSE(Map->MouseDragging());
    const bool Band = Map->RubberBandActive();
    EXPECT_TRUE(!Band || Map->MouseAction() == maRubberBand);
    Map->CancelMouse();
    const TBitmap Shown = Picture();
    const TViewState View = Map->View();
    Map->MouseMove(0, 60, 40);
    Map->MouseMove(0, 20, 70);
    EXPECT_EQ(Map->View(), View);
    EXPECT_TRUE(SamePixels(Picture(), Shown));
    if (FStale || FKept) return;
    ++Compared;
    Map->Paint();
    EXPECT_TRUE(SamePixels(Picture(), Shown));
  }

  // With the control gone, nobody may touch it.
  void DestroySoon() { FDestroyIn = Number(1, 60); }
  bool Alive() const { return Map != nullptr; }

  TTestHost Host;
  std::unique_ptr<TGeoMap> Map;
  int Errors = 0;
  int Boxes = 0;
  int Compared = 0;

  void ViewChanged(TGeoMap&) override { FStale = true; }
  void Painted(TGeoMap&) override { FStale = FKept = false; }

 private:
  int Number(int Low, int High) { return std::uniform_int_distribution<int>(Low, High)(FRandom); }
  const TBitmap& Picture() { return TTestHost::WindowOf(*Map).Buffer(); }

  void ActInHandler() {
    if (FDestroyIn > 0 && --FDestroyIn == 0) return Map.reset();
    if (FResting || FDepth > 1 || Number(0, 3) != 0) return;
    ++FDepth;
    Act();
    --FDepth;
  }

  void MoveMouse(int32_t X, int32_t Y) { Map->MouseMove(FHeld, X, Y); }

  void DoSomething() {
    static constexpr TMouseActMode Modes[] = {maNone,        maPan,        maPanHorizontal,
                                              maPanVertical, maRubberBand, maZoomBox,
                                              maZoomDrag,    maSelectRect, maMouseTrace};
    if (Map == nullptr) return;
    const int32_t X = Number(-20, Map->Width() + 20);
    const int32_t Y = Number(-20, Map->Height() + 20);
    const auto Button = static_cast<TMouseButton>(std::max(Number(-5, 2), 0));
    const auto Bit = static_cast<TShiftState>(Button == TMouseButton::mbLeft    ? ssLeft
                                              : Button == TMouseButton::mbRight ? ssRight
                                                                                : ssMiddle);
    switch (Number(0, 39)) {
      case 0:
        return Map->SetMouseAction(Modes[Number(0, 8)]);
      case 1:
        return Map->SetVisible(!Map->Visible());
      case 2:
        return Map->SetSize(Number(0, 140), Number(0, 110));
      case 3:
        return Map->CancelMouse();
      case 4:
        return Map->MouseBoxAbort();
      case 5:
        return Map->Paint();
      case 6:
        return Map->SetView({Number(-20, 200), Number(-20, 150)}, Number(4, 25) / 10.0);
      case 7:
        return Map->SetMouseTraceInvert(Number(0, 1) == 0);
      case 8:
        return Map->SetAllowPan(Number(0, 1) == 0);
      case 9:
        if (Number(0, 3) == 0) Map->ClearMouseTrace();
        return;
      case 10:
        return static_cast<void>(Map->ZoomAt({X, Y}, Number(-1, 1)));
      case 11: {
        if (FDepth > 1 || Number(0, 3) != 0) return;
        ++FDepth;
        FEvents = 0;
        int32_t X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
        const bool Box = Map->MouseBox(X1, Y1, X2, Y2);
        --FDepth;
        if (!Box) return;
        ++Boxes;
        EXPECT_LE(X1, X2);
        EXPECT_LE(Y1, Y2);
        return;
      }
      case 12:
      case 13:
      case 14:
      case 15:
      case 16:
      case 17:
        FHeld |= Bit;
        return Map->MouseDown(Button, static_cast<TShiftState>(FHeld | (Number(0, 2) == 0 ? 4 : 0)),
                              X, Y);
      case 18:
      case 19:
      case 20:
        FHeld &= static_cast<TShiftState>(~Bit);
        return Map->MouseUp(Button, FHeld, X, Y);
      default:
        return MoveMouse(X, Y);
    }
  }

  std::mt19937 FRandom;
  TShiftState FHeld = 0;
  int FDepth = 0;
  int FEvents = 0;
  int FDestroyIn = 0;
  bool FResting = false;
  bool FStale = false;  // the view changed without a repaint, as it does at a limit
  bool FKept = false;   // lines of a rubber band stay until the next repaint
};

TEST(MouseProperty, NothingHangsAndNothingStays) {
  int Errors = 0;
  int Boxes = 0;
  int Compared = 0;
  for (unsigned Seed = 1; Seed <= 1000; ++Seed) {
    TMonkey Monkey(Seed, Seed % 3 == 0 ? 2 : Seed % 3 == 1 ? 1 : 1.5);
    for (int I = 0; I < 120; ++I) Monkey.Act();
    try {
      Monkey.CheckAtRest();
    } catch (const EZAVError&) {
      ++Errors;  // a zoom box let go
    }
    Errors += Monkey.Errors;
    Boxes += Monkey.Boxes;
    Compared += Monkey.Compared;
    ASSERT_FALSE(testing::Test::HasFailure()) << Seed;
  }
  EXPECT_GT(Errors, 200);
  EXPECT_GT(Boxes, 40);
  EXPECT_GT(Compared, 500);
}

TEST(MouseProperty, HandlersMayDestroyTheControl) {
  int Destroyed = 0;
  for (unsigned Seed = 1; Seed <= 300; ++Seed) {
    TMonkey Monkey(Seed, 1);
    Monkey.DestroySoon();
    for (int I = 0; I < 150; ++I) Monkey.Act();
    Destroyed += Monkey.Alive() ? 0 : 1;
  }
  EXPECT_GT(Destroyed, 150);
}

}  // namespace
}  // namespace zav
