// tool_test.cpp - the tools of the mouse in the viewer's window, used as a user does.
// SPDX-License-Identifier: MIT
#include "tool_menu.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSettings>
#include <QStatusBar>
#include <QTest>

#include <GeographicLib/Geodesic.hpp>

#include "calibration_workbench.h"
#include "main_window.h"
#include "tool_measure.h"
#include "tool_overlay.h"
#include "tool_selection.h"
#include "viewer_test_support.h"

namespace zav {
namespace {

using Tool = ToolMenu::Tool;

class ToolTest : public ::testing::Test {
 protected:
  void SetUp() override {
    FWindow = std::make_unique<MainWindow>(nullptr);
    FWindow->resize(1000, 700);
    FWindow->show();
    QTest::qWait(1);
    // 0.01 degrees a pixel, 46 north 8 east at (0, 0); 800 x 600 pixels.
    QImage Image(800, 600, QImage::Format_RGB32);
    Image.fill(QColor(0x80, 0xa0, 0x80));
    Image.save(FFolder.path("plain.bmp"));
    ASSERT_EQ(FWindow->openAll({FFolder.write("plain.xml", CalibrationText("plain.bmp", "Plain"))}),
              "");
    Map().SetView({0, 0}, 1);
  }

  GeoMapWidget& Widget() { return FWindow->mapWidget(); }
  TGeoMap& Map() { return Widget().map(); }
  ToolMenu& Tools() { return FWindow->tools(); }
  QString Hint() {
    for (const QLabel* Label : FWindow->statusBar()->findChildren<QLabel*>())
      if (Label->accessibleName() == "Tool") return Label->isHidden() ? "" : Label->text();
    return "no label";
  }
  QAbstractButton* Button(const QString& Text) {
    for (auto* Each : Tools().selection().findChildren<QAbstractButton*>())
      if (Each->text() == Text) return Each;
    return nullptr;
  }
  void Key(Qt::Key Key, Qt::KeyboardModifiers Modifiers = {}) {
    QTest::keyClick(&Widget(), Key, Modifiers);
  }
  // Places are pixels of the map.
  QPoint At(int X, int Y) {
    const TPoint Control = Map().MapImageToControl({X, Y});
    return {Control.X, Control.Y};
  }
  void Move(int X, int Y, Qt::MouseButtons Held = {}) {
    const QPointF Place = At(X, Y);
    QMouseEvent Event(QEvent::MouseMove, Place, Widget().mapToGlobal(Place), Qt::NoButton, Held,
                      Qt::NoModifier);
    QApplication::sendEvent(&Widget(), &Event);
  }
  void Click(int X, int Y, Qt::KeyboardModifiers Modifiers = {}) {
    Move(X, Y);
    QTest::mouseClick(&Widget(), Qt::LeftButton, Modifiers, At(X, Y));
  }
  void Drag(QPoint From, QPoint To) {
    const QPoint End = At(To.x(), To.y());
    Move(From.x(), From.y());
    QTest::mousePress(&Widget(), Qt::LeftButton, {}, At(From.x(), From.y()));
    Move(From.x(), From.y(), Qt::LeftButton);
    Move(To.x(), To.y(), Qt::LeftButton);
    QTest::mouseRelease(&Widget(), Qt::LeftButton, {}, End);
  }
  // Kilometres from one pixel of the map to another, by the judge.
  static double Kilometres(QPoint A, QPoint B) {
    double Metres = 0;
    GeographicLib::Geodesic::WGS84().Inverse(46 - A.y() / 100.0, 8 + A.x() / 100.0,
                                             46 - B.y() / 100.0, 8 + B.x() / 100.0, Metres);
    return Metres / 1000;
  }
  static double Number(const QString& Text) { return QLocale().toDouble(Text.section(' ', 0, 0)); }

  TestFolder FFolder;
  std::unique_ptr<MainWindow> FWindow;
};

TEST_F(ToolTest, KeysChooseToolsWithCursorAndHint) {
  struct TCase {
    Qt::Key Key;
    Tool Chosen;
    Qt::CursorShape Cursor;
    const char* Word;
  };
  for (const TCase& Case : {TCase{Qt::Key_H, Tool::PanHorizontal, Qt::SizeHorCursor, "left"},
                            TCase{Qt::Key_V, Tool::PanVertical, Qt::SizeVerCursor, "up"},
                            TCase{Qt::Key_Z, Tool::ZoomBox, Qt::CrossCursor, "box"},
                            TCase{Qt::Key_D, Tool::ZoomDrag, Qt::SizeVerCursor, "enlarge"},
                            TCase{Qt::Key_L, Tool::RubberBand, Qt::CrossCursor, "Ctrl"},
                            TCase{Qt::Key_R, Tool::SelectRect, Qt::CrossCursor, "corners"},
                            TCase{Qt::Key_T, Tool::MouseTrace, Qt::CrossCursor, "river"},
                            TCase{Qt::Key_P, Tool::Pan, Qt::OpenHandCursor, ""}}) {
    Key(Case.Key);
    EXPECT_EQ(Widget().mouseMode(), Case.Chosen);
    EXPECT_EQ(Widget().cursor().shape(), Case.Cursor);
    EXPECT_TRUE(Hint().contains(Case.Word) && Hint().isEmpty() == (*Case.Word == 0))
        << Hint().toStdString();
    int Checked = 0;
    for (const QAction* Action : Tools().actions()) Checked += Action->isChecked() ? 1 : 0;
    EXPECT_EQ(Checked, 1);
  }
  // A letter is text elsewhere; Escape goes back to moving the map.
  Key(Qt::Key_Z);
  QLineEdit Edit(FWindow.get());
  Edit.show();
  Edit.setFocus();
  QTest::keyClick(&Edit, Qt::Key_R);
  EXPECT_EQ(Edit.text(), "r");
  EXPECT_EQ(Widget().mouseMode(), Tool::ZoomBox);
  Key(Qt::Key_Escape);
  EXPECT_EQ(Widget().mouseMode(), Tool::Pan);

  // While points are calibrated the hand is not shown, the other tools are.
  Key(Qt::Key_R);
  FWindow->calibration().tool().setActive(true);
  EXPECT_EQ(Widget().mouseMode(), Tool::Pan);
  Key(Qt::Key_Z);
  EXPECT_EQ(Widget().cursor().shape(), Qt::CrossCursor);
  Key(Qt::Key_P);
  EXPECT_NE(Widget().cursor().shape(), Qt::OpenHandCursor);
  FWindow->calibration().tool().setActive(false);
  EXPECT_EQ(Widget().cursor().shape(), Qt::OpenHandCursor);
}

TEST_F(ToolTest, MeasuresLengths) {
  Key(Qt::Key_L);
  Click(100, 100);
  Move(300, 100);
  const double First = Kilometres({100, 100}, {300, 100});
  EXPECT_NEAR(Number(Hint()), First, 0.6) << Hint().toStdString();
  EXPECT_TRUE(Hint().contains("towards 89")) << Hint().toStdString();
  Click(300, 100, Qt::ControlModifier);
  // Zooming in the middle of it: the next piece still begins at the same place.
  Widget().zoomIn();
  Widget().zoomIn();
  Move(300, 250);
  EXPECT_TRUE(Map().RubberBandActive());
  const double Second = Kilometres({300, 100}, {300, 250});
  Click(300, 250);
  EXPECT_FALSE(Map().RubberBandActive());
  EXPECT_NEAR(Number(Tools().measure().totalText()), First + Second, 1.2);
  EXPECT_TRUE(Hint().contains("all 2 pieces")) << Hint().toStdString();
  Move(500, 400);
  EXPECT_NEAR(Number(Tools().measure().totalText()), First + Second, 1.2) << "it stays";
  EXPECT_TRUE(FWindow->findChild<ToolOverlay*>()->isVisible());

  // Escape gives up the piece at the mouse, then all of it, and the tool.
  Click(100, 100);
  Click(300, 100, Qt::ControlModifier);
  Move(400, 400);
  Key(Qt::Key_Escape);
  EXPECT_EQ(Widget().mouseMode(), Tool::RubberBand);
  EXPECT_NEAR(Number(Tools().measure().totalText()), First, 0.6);
  for (QAction* Action : Tools().actions())
    if (Action->text().remove('&') == "Copy Length") Action->trigger();
  EXPECT_NEAR(Number(QApplication::clipboard()->text()), First, 0.6);
  Key(Qt::Key_Escape);
  EXPECT_TRUE(Tools().measure().isEmpty());
  EXPECT_EQ(Widget().mouseMode(), Tool::Pan);
  EXPECT_FALSE(FWindow->findChild<ToolOverlay*>()->isVisible());

  // Pixels on a map without calibration; another map takes the line away.
  Key(Qt::Key_L);
  Click(100, 100);
  ASSERT_EQ(FWindow->openAll({FFolder.path("plain.bmp")}), "");
  EXPECT_TRUE(Tools().measure().isEmpty());
  EXPECT_FALSE(Map().RubberBandActive());
  Map().SetView({0, 0}, 1);
  Click(100, 100);
  Click(130, 140);
  EXPECT_EQ(Tools().measure().totalText(), "50 pixels");
}

TEST_F(ToolTest, SelectsCopiesAndZooms) {
  Key(Qt::Key_R);
  Drag({400, 300}, {100, 200});
  SelectionTool& Selection = Tools().selection();
  ASSERT_EQ(Selection.rectangle(), QRect(100, 200, 300, 100));
  EXPECT_TRUE(Selection.isVisible());
  EXPECT_TRUE(Widget().rect().contains(Selection.geometry()));
  const QString Size = Selection.sizeText();
  EXPECT_NEAR(Number(Size), Kilometres({100, 250}, {400, 250}), 1.2) << Size.toStdString();
  Button("Copy Corners")->click();
  EXPECT_EQ(QApplication::clipboard()->text(),
            QString::fromUtf8("44.000° N, 9.000° E\n43.000° N, 12.000° E"));
  Button("Zoom")->click();
  EXPECT_EQ(Map().Magnification(), 2);
  const TPoint Middle = Map().ControlToMapImage({Map().Width() / 2, Map().Height() / 2});
  EXPECT_NEAR(Middle.X, 250, 2);
  EXPECT_NEAR(Middle.Y, 250, 2);
  EXPECT_TRUE(Widget().rect().contains(Selection.geometry())) << "the bar follows";
  FWindow->resize(600, 500);
  QTest::qWait(1);
  EXPECT_TRUE(Widget().rect().contains(Selection.geometry())) << "also when the window shrinks";
  FWindow->resize(1000, 700);
  QTest::qWait(1);

  // What reaches beyond the map is cut; beside it and for a click there is nothing.
  Map().SetConfinePan(false);
  Map().SetView({-100, -100}, 1);
  Drag({-50, -50}, {20, 30});
  EXPECT_EQ(Selection.rectangle(), QRect(0, 0, 20, 30));
  Drag({-50, -50}, {-10, -20});
  EXPECT_TRUE(Selection.isEmpty());
  EXPECT_FALSE(Selection.isVisible());
  Drag({50, 50}, {51, 51});
  EXPECT_TRUE(Selection.isEmpty());
  Drag({50, 50}, {90, 90});
  Key(Qt::Key_Escape);
  EXPECT_TRUE(Selection.isEmpty());
  EXPECT_EQ(Widget().mouseMode(), Tool::Pan);
}

TEST_F(ToolTest, TracesAndClears) {
  Key(Qt::Key_T);
  Drag({100, 100}, {300, 100});
  Drag({100, 300}, {100, 400});
  const double Length = Kilometres({100, 100}, {300, 100}) + Kilometres({100, 300}, {100, 400});
  EXPECT_NEAR(Number(Tools().trace().totalText()), Length, 1.2)
      << "the strokes, not the way between";
  EXPECT_TRUE(Hint().startsWith("Trace ")) << Hint().toStdString();
  Key(Qt::Key_Escape);
  EXPECT_EQ(Map().NumMTracePoints(), 4) << "drawn by hand: kept";
  Key(Qt::Key_Escape, Qt::ShiftModifier);
  EXPECT_EQ(Map().NumMTracePoints(), 0);
  EXPECT_EQ(Tools().trace().totalText(), "");
}

TEST_F(ToolTest, ZoomLimitsAreNoErrors) {
  Key(Qt::Key_Z);
  Drag({100, 100}, {140, 130});
  EXPECT_EQ(Map().Magnification(), 2);
  EXPECT_EQ(FWindow->message(), "");
  EXPECT_TRUE(FWindow->statusBar()->currentMessage().contains("200 %"));
  EXPECT_FALSE(Map().ZoomState());
  // The box's middle (120, 115), as near as the map's edge allows.
  EXPECT_EQ(Map().TopLeft(), (TPoint{0, 0}));
  Map().SetView({200, 200}, 1);
  Drag({500, 400}, {540, 430});
  const TPoint Middle = Map().ControlToMapImage({Map().Width() / 2, Map().Height() / 2});
  EXPECT_NEAR(Middle.X, 520, 1);
  EXPECT_NEAR(Middle.Y, 415, 1);
  Key(Qt::Key_D);
  QTest::mousePress(&Widget(), Qt::LeftButton, {}, {300, 300});
  for (const int Y : {300, 200, 100, 50}) {
    QMouseEvent Event(QEvent::MouseMove, QPointF(300, Y), Widget().mapToGlobal(QPointF(300, Y)),
                      Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&Widget(), &Event);
  }
  QTest::mouseRelease(&Widget(), Qt::LeftButton, {}, {300, 50});
  EXPECT_EQ(Map().Magnification(), 2);
  EXPECT_EQ(FWindow->message(), "");
}

}  // namespace
}  // namespace zav
