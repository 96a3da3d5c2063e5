// Components and their owners; the order of a control's events.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <support/test_host.h>

namespace zav {
namespace {

// Writes down its end.
class TNamed : public TComponent {
 public:
  TNamed(TComponent* Owner, const std::string& Name, std::string& Log)
      : TComponent(Owner), FLog(Log) {
    SetName(Name);
  }
  ~TNamed() override { FLog += Name(); }

 private:
  std::string& FLog;
};

TEST(Component, OwnersDeleteWhatIsStillTheirs) {
  std::string log;
  auto* owner = new TNamed(nullptr, "o", log);
  auto* child = new TNamed(owner, "c", log);
  new TNamed(child, "g", log);
  auto* early = new TNamed(owner, "e", log);
  new TNamed(owner, "l", log);
  delete early;
  EXPECT_EQ(owner->Components().size(), 2U);
  const std::weak_ptr<const void> life = child->Life();
  delete owner;
  EXPECT_EQ(log, "eolcg");
  EXPECT_TRUE(life.expired());
}

TEST(Component, CannotBeAssignedByDefault) {
  TComponent a, b;
  EXPECT_THROW(a.Assign(b), EConvertError);
  a.SetName("GeoMap1");
  EXPECT_EQ(a.ComponentMessage("no file"), "Component \"GeoMap1\": no file");
}

class TLoggingControl : public TCustomControl {
 public:
  TLoggingControl(THost& Host, std::string& Log) : TCustomControl(nullptr, Host), FLog(Log) {}
  void Paint() override { FLog += "paint "; }

 private:
  void Resize() override {
    const TSize buffer = BufferSize();
    FLog += "resize " + std::to_string(buffer.Width) + "x" + std::to_string(buffer.Height) + " ";
    TCustomControl::Resize();
  }
  TSize BufferSize() {
    const TBitmap& buffer = TTestHost::WindowOf(*this).Buffer();
    return {buffer.Width(), buffer.Height()};
  }
  std::string& FLog;
};

TEST(Control, ResizesItsBufferThenTellsThenPaints) {
  TTestHost host;
  host.Scale = 1.5;
  std::string log;
  TLoggingControl control(host, log);
  control.OnResize = [&](TCustomControl* sender) {
    log += "event " + std::to_string(sender->Width()) + " ";
  };
  control.SetSize(21, 10);
  control.SetSize(21, 10);
  EXPECT_EQ(log, "resize 32x15 event 21 paint ");
  log.clear();
  control.SetSize(-5, 7);
  EXPECT_EQ(log, "resize 0x11 event 0 paint ");
  log.clear();
  control.SetVisible(false);
  control.SetVisible(false);
  EXPECT_EQ(log, "");
  control.SetVisible(true);
  EXPECT_EQ(log, "paint ");
}

// The handler lives in the control that it destroys, and its captures with it.
TEST(Control, MayBeDestroyedByItsHandlers) {
  TTestHost host;
  std::string log;
  for (const char* event : {"resize", "down", "move", "up"}) {
    auto* control = new TLoggingControl(host, log);
    const std::string captured(100, 'x');
    const auto destroy = [&log, control, captured] {
      delete control;
      log = captured;
    };
    const std::string name = event;
    if (name == "resize") control->OnResize = [destroy](TCustomControl*) { destroy(); };
    control->OnMouseDown = [destroy](TCustomControl*, TMouseButton, TShiftState, int32_t, int32_t) {
      destroy();
    };
    control->OnMouseUp = control->OnMouseDown;
    control->OnMouseMove = [destroy](TCustomControl*, TShiftState, int32_t, int32_t) { destroy(); };
    if (name == "resize") control->SetSize(5, 5);
    if (name == "down") control->MouseDown(TMouseButton::mbLeft, 0, 1, 2);
    if (name == "move") control->MouseMove(0, 1, 2);
    if (name == "up") control->MouseUp(TMouseButton::mbLeft, 0, 1, 2);
    EXPECT_EQ(log, captured) << "nothing is done after the end, such as painting";
    log.clear();
  }
}

}  // namespace
}  // namespace zav
