// The tools of the mouse through real events: the same as calls on the control, and its signals.
// SPDX-License-Identifier: MIT
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QAbstractEventDispatcher>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <platform/qt/qt_control_window.h>
#include "map_widget_fixture.h"

using namespace zav;

namespace {

using enum TMouseActMode;

struct TStep {
  char Kind;  // Press, Move, Release
  QPoint At;
  bool Ctrl = false;
  Qt::MouseButton Button = Qt::LeftButton;
};

struct TCase {
  TMouseActMode Mode;
  std::vector<TStep> Steps;
  std::string Told;  // what the user's handlers and the signals both tell
};

std::string PointText(QPoint P) { return std::to_string(P.x()) + "," + std::to_string(P.y()); }

std::string AreaText(double Lat1, double Long1, double Lat2, double Long2) {
  std::string Text = "area";
  for (const double V : {Lat1, Long1, Lat2, Long2}) Text += " " + std::to_string(std::lround(V));
  return Text + "; ";
}

class GeoMapMouse : public GeoMapWidgetTest {
 protected:
  GeoMapMouse() { Map().SetCalibration(PlainCalibration(), TCalibModel::cmEquiRect); }

  void Send(const TStep& Step, Qt::MouseButtons& Held) {
    const Qt::KeyboardModifiers Keys = Step.Ctrl ? Qt::ControlModifier : Qt::NoModifier;
    if (Step.Kind == 'P') QTest::mousePress(Widget, Step.Button, Keys, Step.At);
    if (Step.Kind == 'R') QTest::mouseRelease(Widget, Step.Button, Keys, Step.At);
    if (Step.Kind == 'M') MoveTo(Step.At, Held);
    Held.setFlag(Step.Button, Step.Kind == 'P' || (Step.Kind == 'M' && (Held & Step.Button) != 0));
  }
  // Runs MouseBox while the steps are done one by one between events. Whether there was a box.
  bool Box(const std::vector<std::function<void()>>& Steps) {
    QTimer Timer;
    size_t Next = 0;
    QObject::connect(&Timer, &QTimer::timeout, [&] {
      if (Next < Steps.size()) return Steps[Next++]();
      ADD_FAILURE() << "it waits for ever";
      if (Widget) Map().MouseBoxAbort();
    });
    Timer.start(5);
    const bool Result = Map().MouseBox(At.Left, At.Top, At.Right, At.Bottom);
    EXPECT_EQ(Next, Steps.size());
    return Result;
  }

  TRect At;
};

void Call(TGeoMap& Map, const TStep& Step, TShiftState& Held) {
  const auto Button = Step.Button == Qt::LeftButton ? TMouseButton::mbLeft : TMouseButton::mbRight;
  const TShiftState Bit = Step.Button == Qt::LeftButton ? ssLeft : ssRight;
  const TShiftState Keys = Step.Ctrl ? ssCtrl : 0;
  if (Step.Kind == 'P') Held |= Bit;
  if (Step.Kind == 'R') Held &= static_cast<TShiftState>(~Bit);
  const auto Shift = static_cast<TShiftState>(Held | Keys);
  if (Step.Kind == 'P') Map.MouseDown(Button, Shift, Step.At.x(), Step.At.y());
  if (Step.Kind == 'M') Map.MouseMove(Held, Step.At.x(), Step.At.y());
  if (Step.Kind == 'R') Map.MouseUp(Button, Shift, Step.At.x(), Step.At.y());
}

TEST_F(GeoMapMouse, EventsDoWhatCallsDo) {
  const QPoint A(100, 120);
  const QPoint B(400, 320);
  const QPoint Outside(-30, 500);
  const TCase Cases[] = {
      {maNone, {{'P', A}, {'M', A}, {'M', B}, {'R', B}}, ""},
      {maPan, {{'P', B}, {'M', B}, {'M', A}, {'M', Outside}, {'R', Outside}}, "moved; "},
      {maPanHorizontal, {{'P', B}, {'M', B}, {'M', A}, {'R', A}}, "moved; "},
      {maPanVertical, {{'P', B}, {'M', B}, {'M', A}, {'R', A}}, "moved; "},
      {maRubberBand,
       {{'P', A}, {'R', A}, {'M', B}, {'P', B, true}, {'R', B}, {'M', {200, 9}}, {'P', {200, 9}}},
       "begun 200,220; continued 500,420; ended 300,109; "},
      {maRubberBand, {{'P', A}, {'R', A}, {'M', Outside}}, "begun 200,220; "},
      {maZoomBox, {{'P', B}, {'M', Outside}, {'M', A}, {'R', A}}, "moved; "},
      {maZoomBox,
       {{'P', A},
        {'M', B},
        {'P', B, false, Qt::RightButton},
        {'R', B, false, Qt::RightButton},
        {'R', B}},
       ""},
      {maZoomDrag,
       {{'P', A}, {'M', A}, {'M', {110, 90}}, {'M', {110, 140}}, {'R', A}},
       "moved; moved; "},
      {maSelectRect,
       {{'P', A}, {'M', B}, {'M', Outside}, {'R', B}},
       "begun 200,220; pixels 200,220 500,420; area 48 2 46 5; "},
      {maSelectRect, {{'P', A}, {'M', B}}, "begun 200,220; "},
      {maMouseTrace, {{'P', A}, {'M', A}, {'M', B}, {'M', Outside}, {'R', B}, {'M', A}}, ""},
  };
  std::string Told;
  QObject::connect(Widget, &GeoMapWidget::zoomPanned, [&] { Told += "moved; "; });
  const auto Note = [&](const char* What) {
    return [&Told, What](QPoint P) { Told += What + PointText(P) + "; "; };
  };
  QObject::connect(Widget, &GeoMapWidget::rubberBandBegun, Note("begun "));
  QObject::connect(Widget, &GeoMapWidget::rubberBandContinued, Note("continued "));
  QObject::connect(Widget, &GeoMapWidget::rubberBandEnded, Note("ended "));
  QObject::connect(Widget, &GeoMapWidget::pixelsSelected, [&](QPoint From, QPoint To) {
    Told += "pixels " + PointText(From) + " " + PointText(To) + "; ";
  });
  QObject::connect(Widget, &GeoMapWidget::areaSelected,
                   [&](double Lat1, double Long1, double Lat2, double Long2) {
                     Told += AreaText(Lat1, Long1, Lat2, Long2);
                   });
  for (const TCase& Case : Cases) {
    SCOPED_TRACE(static_cast<int>(Case.Mode));
    TQtHost Host(Widget->devicePixelRatioF());
    TGeoMap Twin(nullptr, Host);
    Twin.Assign(Map());
    for (TGeoMap* Each : {&Map(), &Twin}) {
      Each->SetMouseAction(maNone);
      Each->SetMouseAction(Case.Mode);
      Each->ClearMouseTrace();
      Each->SetView({100, 100}, 1);
    }
    Told.clear();
    Qt::MouseButtons Buttons;
    TShiftState Held = 0;
    for (const TStep& Step : Case.Steps) {
      Send(Step, Buttons);
      Call(Twin, Step, Held);
      ASSERT_EQ(Map().View(), Twin.View());
      const auto& Window = static_cast<TQtControlWindow&>(Twin.Window());
      const auto& Shown = static_cast<TQtControlWindow&>(Map().Window());
      ASSERT_TRUE(Shown.Buffer() == Window.Buffer()) << Step.Kind << " " << PointText(Step.At);
    }
    EXPECT_EQ(Told, Case.Told);
    EXPECT_EQ(Map().GetZoomStackEntry(0), Twin.GetZoomStackEntry(0));
    EXPECT_EQ(Map().NumMTracePoints(), Twin.NumMTracePoints());
    EXPECT_EQ(Map().RubberBandActive(), Twin.RubberBandActive());
  }
  EXPECT_TRUE(Errors.empty());
  Widget->setMouseMode(GeoMapWidget::MouseMode::SelectRect);
  Map().SetCalibration({}, TCalibModel::cmUndefined);
  Told.clear();
  QTest::mousePress(Widget, Qt::LeftButton, {}, A);
  QTest::mouseRelease(Widget, Qt::LeftButton, {}, B);
  EXPECT_EQ(Told, "begun 200,220; pixels 200,220 500,420; ");
}

TEST_F(GeoMapMouse, LimitsAreToldAndShown) {
  Widget->setMouseMode(GeoMapWidget::MouseMode::ZoomBox);
  QTest::mousePress(Widget, Qt::LeftButton, {}, {100, 100});
  MoveTo({150, 150}, Qt::LeftButton);
  QTest::mouseRelease(Widget, Qt::LeftButton, {}, {150, 150});
  EXPECT_EQ(Errors, std::vector<std::string>{"Component \"\": Magnification factor too high"});
  EXPECT_EQ(Widget->magnification(), 2);
  EXPECT_TRUE(Map().ZoomState());
  const QImage Shown = Widget->picture();
  QTest::keyClick(Widget, Qt::Key_Escape);
  EXPECT_FALSE(Map().ZoomState());
  Map().Paint();
  EXPECT_EQ(Widget->picture(), Shown) << "the picture has the magnification of the limit";
}

TEST_F(GeoMapMouse, EscapeRightButtonAndHidingGiveUp) {
  int Menus = 0;
  Widget->setContextMenuPolicy(Qt::CustomContextMenu);
  QObject::connect(Widget, &QWidget::customContextMenuRequested, [&] { ++Menus; });
  const auto AskMenu = [&](QContextMenuEvent::Reason Reason) {
    QContextMenuEvent Event(Reason, {50, 50}, {50, 50});
    QApplication::sendEvent(Widget, &Event);
  };
  const auto Overridden = [&] {
    QKeyEvent Event(QEvent::ShortcutOverride, Qt::Key_Escape, Qt::NoModifier);
    Event.ignore();
    QApplication::sendEvent(Widget, &Event);
    return Event.isAccepted();
  };
  const auto StartBox = [&] {
    QTest::mousePress(Widget, Qt::LeftButton, {}, {100, 100});
    MoveTo({150, 150}, Qt::LeftButton);
    ASSERT_TRUE(Map().MouseDragging());
  };
  Widget->show();
  const QImage Clean = Widget->picture();
  for (const auto Mode : {GeoMapWidget::MouseMode::ZoomBox, GeoMapWidget::MouseMode::SelectRect}) {
    Widget->setMouseMode(Mode);
    EXPECT_FALSE(Overridden());
    StartBox();
    EXPECT_TRUE(Overridden());
    QTest::keyClick(Widget, Qt::Key_Escape);
    EXPECT_FALSE(Map().MouseDragging());
    EXPECT_EQ(Widget->picture(), Clean);
    QTest::mouseRelease(Widget, Qt::LeftButton, {}, {150, 150});
    StartBox();
    Widget->hide();
    EXPECT_FALSE(Map().MouseDragging());
    Widget->show();
    QTest::mouseRelease(Widget, Qt::LeftButton, {}, {150, 150});
    EXPECT_EQ(Widget->picture(), Clean);
  }
  EXPECT_EQ(Map().View(), TViewState{});
  // The right button that gives up opens no menu; another one does, and a key always.
  Widget->setMouseMode(GeoMapWidget::MouseMode::ZoomBox);
  StartBox();
  QTest::mousePress(Widget, Qt::RightButton, {}, {150, 150});
  AskMenu(QContextMenuEvent::Mouse);
  EXPECT_EQ(Menus, 0);
  AskMenu(QContextMenuEvent::Keyboard);
  EXPECT_EQ(Menus, 1);
  QTest::mouseRelease(Widget, Qt::RightButton, {}, {150, 150});
  QTest::mousePress(Widget, Qt::RightButton, {}, {150, 150});
  AskMenu(QContextMenuEvent::Mouse);
  EXPECT_EQ(Menus, 2);
  Widget->setMouseMode(GeoMapWidget::MouseMode::RubberBand);
  QTest::mouseClick(Widget, Qt::LeftButton, {}, {100, 100});
  QTest::keyClick(Widget, Qt::Key_Escape);
  EXPECT_FALSE(Map().RubberBandActive());
}

TEST_F(GeoMapMouse, MouseBoxGivesABoxAndSleeps) {
  Widget->show();
  const QImage Clean = Widget->picture();
  EXPECT_TRUE(Box({[&] {
                     QTest::mousePress(Widget, Qt::LeftButton, {}, {300, 50});
                   },
                   [&] {
                     MoveTo({100, 150}, Qt::LeftButton);
                   },
                   [&] {
                     EXPECT_NE(Widget->picture(), Clean);
                     QTest::mouseRelease(Widget, Qt::LeftButton, {}, {90, 160});
                   }}));
  EXPECT_EQ(At, (TRect{90, 50, 300, 160}));
  EXPECT_EQ(Widget->picture(), Clean);

  // The last event is the one that ends it, and nothing else comes.
  int Waits = 0;
  QObject Watch;
  QTimer::singleShot(150, &Watch, [&] { QTest::mousePress(Widget, Qt::RightButton, {}, {9, 9}); });
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                   &Watch, [&] { ++Waits; });
  EXPECT_FALSE(Map().MouseBox(At.Left, At.Top, At.Right, At.Bottom));
  EXPECT_LT(Waits, 50) << "it asks again and again";
}

TEST_F(GeoMapMouse, MouseBoxEndsInEveryWay) {
  auto Window = std::make_unique<QWidget>();
  auto* Layout = new QVBoxLayout(Window.get());
  auto* Edit = new QLineEdit;
  Layout->addWidget(Edit);
  Layout->addWidget(Widget);
  Window->show();
  Edit->setFocus();
  const QImage Clean = Widget->picture();
  const auto Press = [&] { QTest::mousePress(Widget, Qt::LeftButton, {}, {100, 100}); };
  const auto Drag = [&] { MoveTo({150, 150}, Qt::LeftButton); };
  const std::function<void()> Ends[] = {
      [&] {
        QTest::mouseRelease(Widget, Qt::RightButton, {}, {150, 150});
      },
      [&] { QTest::keyClick(Edit, Qt::Key_Escape); },  // wherever the focus is
      [&] { QTest::keyClick(Widget, Qt::Key_Escape); },
      [&] { Map().MouseBoxAbort(); },
      [&] {
        Window->close();
        Window->show();
      },
      [&] {
        Widget->hide();
        Widget->show();
      },
      [&] { Widget->setMouseMode(GeoMapWidget::MouseMode::ZoomBox); },
  };
  for (const auto& End : Ends) {
    EXPECT_FALSE(Box({Press, Drag, End})) << &End - Ends;
    EXPECT_EQ(Widget->picture(), Clean) << &End - Ends;
    EXPECT_FALSE(Map().MouseDragging());
  }
  // Escape is an ordinary key again.
  QKeyEvent Escape(QEvent::ShortcutOverride, Qt::Key_Escape, Qt::NoModifier);
  Escape.ignore();
  QApplication::sendEvent(Window.get(), &Escape);
  EXPECT_FALSE(Escape.isAccepted());

  // The application ends while it waits.
  bool Result = true;
  QTimer::singleShot(0, Widget, [&] {
    Result = Box({Press, Drag, [] { QApplication::exit(3); }});
  });
  EXPECT_EQ(QApplication::exec(), 3);
  EXPECT_FALSE(Result);

  EXPECT_FALSE(Box({Press, Drag, [&] { Window.reset(); }}));
  EXPECT_TRUE(Widget.isNull());
}

}  // namespace
