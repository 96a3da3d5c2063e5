// MouseBox: every way in which it ends.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "map_support.h"

namespace zav {
namespace {

using enum TMouseButton;

class MouseBox : public testing::Test {
 protected:
  MouseBox() { Map->SetMapBitMap(PlaceBitmap(600, 500)); }

  // Runs MouseBox; each event of the application is one of the steps. Whether there was a box.
  bool Box(const std::vector<std::function<void()>>& Steps) {
    size_t Next = 0;
    Host.OnProcessMessages = [&, Steps] {
      if (Next == Steps.size()) throw std::logic_error("it waits for ever");
      Steps[Next++]();
    };
    const bool Result = Map->MouseBox(At.Left, At.Top, At.Right, At.Bottom);
    EXPECT_EQ(Next, Steps.size());
    return Result;
  }
  void Press(int32_t X, int32_t Y, TMouseButton Button = mbLeft) {
    Map->MouseDown(Button, ssLeft, X, Y);
  }
  void Move(int32_t X, int32_t Y) { Map->MouseMove(ssLeft, X, Y); }
  void Release(int32_t X, int32_t Y, TMouseButton Button = mbLeft) {
    Map->MouseUp(Button, 0, X, Y);
  }

  TTestHost Host;
  std::unique_ptr<TGeoMap> Map = std::make_unique<TGeoMap>(nullptr, Host);
  TRect At = {1, 2, 3, 4};
};

TEST_F(MouseBox, GivesAnOrderedBoxInAnyMode) {
  const TBitmap Clean = TTestHost::WindowOf(*Map).Buffer();
  for (const TMouseActMode Mode : {TMouseActMode::maPan, TMouseActMode::maZoomBox}) {
    Map->SetMouseAction(Mode);
    const TViewState View = Map->View();
    EXPECT_TRUE(Box({[&] { Press(300, 200); }, [&] { Move(100, 150); },
                     [&] {
                       EXPECT_EQ(Map->MouseAction(), TMouseActMode::maNone);
                       EXPECT_TRUE(Map->MouseDragging());
                       EXPECT_NE(TTestHost::WindowOf(*Map).Buffer(), Clean);
                     },
                     [&] { Map->Paint(); }, [&] { Move(90, 160); }, [&] { Release(80, 170); }}));
    EXPECT_EQ(At, (TRect{80, 170, 300, 200}));
    EXPECT_EQ(Map->View(), View);
    EXPECT_EQ(Map->MouseAction(), Mode);
    EXPECT_FALSE(Map->MouseDragging());
    EXPECT_EQ(TTestHost::WindowOf(*Map).Buffer(), Clean);
  }
}

TEST_F(MouseBox, EndsWithoutABox) {
  const TBitmap Clean = TTestHost::WindowOf(*Map).Buffer();
  const auto Start = [&] { Press(10, 20); };
  const auto Drag = [&] { Move(200, 150); };
  struct TCase {
    const char* What;
    std::function<void()> End;
  };
  for (const TCase& Case :
       {TCase{"right click", [&] { Release(200, 150, mbRight); }},
        TCase{"abort", [&] { Map->MouseBoxAbort(); }},
        TCase{"hidden",
              [&] {
                Map->SetVisible(false);
                Map->SetVisible(true);
              }},
        TCase{"cancelled", [&] { Map->CancelMouse(); }},
        TCase{"another tool", [&] { Map->SetMouseAction(TMouseActMode::maZoomDrag); }}}) {
    Map->SetMouseAction(TMouseActMode::maPan);
    EXPECT_FALSE(Box({Start, Drag, Case.End})) << Case.What;
    EXPECT_EQ(TTestHost::WindowOf(*Map).Buffer(), Clean) << Case.What;
    EXPECT_FALSE(Map->MouseDragging());
  }
  EXPECT_EQ(Map->MouseAction(), TMouseActMode::maZoomDrag) << "what was chosen meanwhile holds";
  EXPECT_FALSE(Box({[&] { Press(10, 20, mbRight); }}));
  EXPECT_FALSE(Box({Start, [&] {
                      Release(60, 60);  // done, but not fetched yet
                      Map->MouseBoxAbort();
                    }}));
  EXPECT_THROW(Box({Start, Drag}), std::logic_error);
  EXPECT_EQ(TTestHost::WindowOf(*Map).Buffer(), Clean);
  EXPECT_FALSE(Map->MouseDragging());
  Map->SetVisible(false);
  EXPECT_FALSE(Box({}));
  Map->SetVisible(true);
  EXPECT_EQ(At, (TRect{1, 2, 3, 4}));
  Host.OnProcessMessages = nullptr;  // no application
  EXPECT_FALSE(Map->MouseBox(At.Left, At.Top, At.Right, At.Bottom));
  EXPECT_EQ(Map->MouseAction(), TMouseActMode::maZoomDrag);
}

TEST_F(MouseBox, WithinMouseBoxAndDestruction) {
  TRect Inner;
  EXPECT_FALSE(Box({[&] { Press(10, 20); },
                    [&] {
                      const auto Outer = Host.OnProcessMessages;
                      int Step = 0;
                      Host.OnProcessMessages = [&] {
                        if (++Step == 1) Press(5, 6);
                        if (Step == 2) Release(50, 60);
                      };
                      EXPECT_TRUE(Map->MouseBox(Inner.Left, Inner.Top, Inner.Right, Inner.Bottom));
                      Host.OnProcessMessages = Outer;
                    }}));
  EXPECT_EQ(Inner, (TRect{5, 6, 50, 60}));
  EXPECT_EQ(Map->MouseAction(), TMouseActMode::maPan);

  // It begins in the middle of a drag and of a rubber band; the band goes on afterwards.
  Map->SetMouseAction(TMouseActMode::maRubberBand);
  const TBitmap Clean = TTestHost::WindowOf(*Map).Buffer();
  Press(10, 10);
  Move(100, 100);
  EXPECT_TRUE(Box({[&] { Press(10, 20); }, [&] { Release(60, 60); }}));
  EXPECT_EQ(TTestHost::WindowOf(*Map).Buffer(), Clean);
  Move(100, 100);
  EXPECT_NE(TTestHost::WindowOf(*Map).Buffer(), Clean);

  EXPECT_FALSE(Box({[&] { Press(10, 20); }, [&] { Move(50, 50); }, [&] { Map.reset(); }}));
}

}  // namespace
}  // namespace zav
