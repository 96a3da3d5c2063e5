// calibration_map_test.cpp - points set, moved and removed on the map and in the table.
// SPDX-License-Identifier: MIT
#include <QCursor>
#include <QWheelEvent>

#include "calibration_support.h"

namespace zav {
namespace {

class CalibrationMapTest : public CalibrationTest {
 protected:
  void SetUp() override {
    CalibrationTest::SetUp();
    OpenBare("europe_conic.jpg");
    ChooseModel("First order, degrees");
    AddPoint(942, 1249, "40 10", "Naples");
    AddPoint(1229, 1237, "40 20");
    AddPoint(952, 876, "50 10");
    BringIntoView(1000, 1000);
    ASSERT_EQ(Document().itemCount(), 3);
  }
  TPoint Pixel(int Index) { return Document().item(Index).Pixel; }
  int Id(int Index) { return Document().item(Index).Id; }
};

TEST_F(CalibrationMapTest, AQuestionIsAnsweredOrNot) {
  EXPECT_EQ(Document().item(0).Name, "Naples");
  EXPECT_EQ(Pixel(2), (TPoint{952, 876}));
  // Three points make a fit: it proposes the crossing that was clicked.
  Click(1241, 866);
  ASSERT_TRUE(Tool().editor().isAsking());
  const QString Proposal = Field("Position").text();
  EXPECT_EQ(Proposal, QString::fromUtf8("50\u00b0 N, 20\u00b0 E")) << Proposal.toStdString();
  // What cannot be read is told and not taken.
  Field("Position").setText("91 10");
  QTest::keyClick(&Field("Position"), Qt::Key_Return);
  EXPECT_TRUE(Tool().editor().isAsking());
  // Another place and a pixel farther by key; the magnifier stands on it.
  QTest::mouseClick(&Widget(), Qt::LeftButton, {}, ControlAt(1200, 900));
  QTest::keyClick(&Field("Position"), Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(Tool().magnifier().center(), (TPoint{1201, 900}));
  EXPECT_TRUE(Tool().magnifier().isVisible());
  QTest::keyClick(&Field("Position"), Qt::Key_Escape);
  EXPECT_FALSE(Tool().editor().isAsking());
  EXPECT_EQ(Document().itemCount(), 3);

  Action("Add Point")->trigger();
  Answer("45 15");
  EXPECT_EQ(Document().itemCount(), 4);
  // Enter on the map asks for another position of the selected point.
  QTest::keyClick(&Widget(), Qt::Key_Return);
  EXPECT_EQ(Field("Position").text(), "45, 15");
  Answer("46 16");
  EXPECT_EQ(Document().item(3).Position.Degrees, (TCoords{46, 16}));
  // A model of another kind has another question.
  Click(1200, 900);
  ChooseModel("Parabolic interpolation");
  EXPECT_FALSE(Tool().editor().isAsking());
}

TEST_F(CalibrationMapTest, PointsAreDraggedAndMovedByKeys) {
  // Taken hold of within ten pixels, and moved by as much as the mouse.
  Drag(ControlAt(942 - 6, 1249 + 6), ControlAt(942 + 24, 1249 - 14));
  EXPECT_EQ(Pixel(0), (TPoint{972, 1229}));
  EXPECT_EQ(Tool().selected(), Id(0));
  // Farther off it is the map that moves.
  const TPoint View = Widget().map().TopLeft();
  Drag(ControlAt(972 - 11, 1229), ControlAt(972 - 61, 1209));
  EXPECT_EQ(Pixel(0), (TPoint{972, 1229}));
  EXPECT_EQ(Widget().map().TopLeft(), (TPoint{View.X + 50, View.Y + 20}));
  Drag(ControlAt(972, 1229), ControlAt(992, 1239), Qt::MiddleButton);
  EXPECT_EQ(Widget().map().TopLeft(), (TPoint{View.X + 30, View.Y + 10}));
  EXPECT_EQ(Document().itemCount(), 3);

  // Of two points the nearest wins.
  AddPoint(985, 1229, "41 11");
  QTest::mouseClick(&Widget(), Qt::LeftButton, {}, ControlAt(977, 1229));
  EXPECT_EQ(Tool().selected(), Id(0));
  QTest::mouseClick(&Widget(), Qt::LeftButton, {}, ControlAt(980, 1229));
  EXPECT_EQ(Tool().selected(), Id(3));

  // The magnifier shows the point that moves; Escape takes the move back.
  const QPoint At = ControlAt(985, 1229);
  QTest::mousePress(&Widget(), Qt::LeftButton, {}, At);
  DragTo(At + QPoint(20, 0));
  DragTo(At + QPoint(30, 5));
  EXPECT_EQ(Tool().magnifier().center(), (TPoint{1015, 1234}));
  EXPECT_EQ(Widget().map().CalibData().CalQuads[3].MapX, 1015);
  QTest::keyClick(&Widget(), Qt::Key_Escape);
  QTest::mouseRelease(&Widget(), Qt::LeftButton, {}, At + QPoint(30, 5));
  EXPECT_EQ(Pixel(3), (TPoint{985, 1229}));

  // Keys held down are one step of undo.
  for (int i = 0; i < 3; ++i) QTest::keyClick(&Widget(), Qt::Key_Left);
  QTest::keyClick(&Widget(), Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Pixel(3), (TPoint{982, 1239}));
  EXPECT_EQ(Tool().magnifier().center(), (TPoint{982, 1239}));
  Action("Undo")->trigger();
  EXPECT_EQ(Pixel(3), (TPoint{985, 1229}));
  EXPECT_TRUE(Action("Redo: Move")->isEnabled());
  Action("Redo")->trigger();
  EXPECT_EQ(Pixel(3), (TPoint{982, 1239}));

  // The wheel zooms; with Ctrl it sets the magnifier, from 4 to 8 times.
  const auto Wheel = [this](int Notches, Qt::KeyboardModifiers Keys) {
    QWheelEvent Event({300, 300}, Widget().mapToGlobal(QPoint(300, 300)), {}, {0, 120 * Notches},
                      Qt::NoButton, Keys, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&Widget(), &Event);
  };
  for (int i = 0; i < 6; ++i) Wheel(1, Qt::ControlModifier);
  EXPECT_EQ(Tool().magnifier().factor(), 8);
  EXPECT_EQ(Widget().magnification(), 1);
  Wheel(1, {});
  EXPECT_GT(Widget().magnification(), 1);
}

TEST_F(CalibrationMapTest, PointsAreRemovedAndComeBack) {
  Tool().select(Id(1));
  Action("Remove Point")->trigger();
  EXPECT_EQ(Document().itemCount(), 2);
  EXPECT_EQ(Tool().selected(), 0);
  QTest::mouseMove(&Widget(), ControlAt(960, 900));
  Action("Remove Point Nearest")->trigger();
  ASSERT_EQ(Document().itemCount(), 1);
  EXPECT_EQ(Pixel(0), (TPoint{942, 1249}));
  Action("Restore Last Removed")->trigger();
  Action("Restore Last Removed")->trigger();
  ASSERT_EQ(Document().itemCount(), 3);
  EXPECT_EQ(Pixel(1), (TPoint{1229, 1237}));
  EXPECT_FALSE(Action("Restore Last Removed")->isEnabled());
  while (Action("Undo")->isEnabled()) Action("Undo")->trigger();
  EXPECT_EQ(Document().itemCount(), 0);
  EXPECT_FALSE(FWindow->isWindowModified());
  for (int i = 0; i < 3; ++i) Action("Redo")->trigger();
  EXPECT_EQ(Document().itemCount(), 3);
  EXPECT_EQ(Widget().map().CalibData().NumCalQuads, 3);
}

TEST_F(CalibrationMapTest, TheTableShowsAndChangesThePoints) {
  using Columns = CalibrationTable;
  AddPoint(1230, 800, "50 20");  // off by some 60 pixels
  EXPECT_TRUE(Cell(0, Columns::Position).contains("40.0"))
      << Cell(0, Columns::Position).toStdString();
  const auto Worst = [this](int Row) {
    return Table().model()->index(Row, Columns::Pixels).data(Qt::DecorationRole).isValid();
  };
  int Marked = 0;
  for (int i = 0; i < 4; ++i) Marked += Worst(i) ? 1 : 0;
  EXPECT_LE(Marked, 1);

  TypeCell(3, Columns::Pixel, "1242, 864");
  EXPECT_EQ(Pixel(3), (TPoint{1242, 864}));
  EXPECT_EQ(Widget().map().CalibData().CalQuads[3].MapY, 864);
  TypeCell(3, Columns::Position, "50 00 N 21 00 E");
  EXPECT_EQ(Document().item(3).Position.Degrees, (TCoords{50, 21}));
  TypeCell(3, Columns::Position, "50 somewhere");
  EXPECT_EQ(Document().item(3).Position.Degrees, (TCoords{50, 21}));
  EXPECT_TRUE(Named<QLabel>("Refused").isVisible());
  TypeCell(1, Columns::Name, " Corfu ");
  EXPECT_EQ(Document().item(1).Name, "Corfu");

  // Rows and points are selected together.
  EXPECT_EQ(Tool().selected(), Id(1));
  QTest::mouseClick(&Widget(), Qt::LeftButton, {}, ControlAt(952, 876));
  EXPECT_EQ(Table().currentIndex().row(), 2);
  Widget().setTopLeft({0, 0});
  Table().setCurrentIndex(Table().model()->index(3, Columns::Name));
  EXPECT_EQ(Tool().selected(), Id(3));
  EXPECT_TRUE(Widget().rect().contains(ControlAt(1242, 864)));

  // A box without its tick: the point stays, but counts no more.
  QTest::keyClick(&Table(), Qt::Key_Space);
  EXPECT_FALSE(Document().item(3).Enabled);
  EXPECT_EQ(Widget().map().CalibData().NumCalQuads, 3);
  ASSERT_TRUE(Table().model()->setData(Table().model()->index(3, Columns::Number), Qt::Checked,
                                       Qt::CheckStateRole));
  EXPECT_EQ(Widget().map().CalibData().NumCalQuads, 4);

  // Positions follow the status bar.
  const QString Before = Cell(0, Columns::Position);
  Action("UTM")->trigger();
  EXPECT_NE(Cell(0, Columns::Position), Before);
  EXPECT_TRUE(Cell(0, Columns::Position).startsWith("32"));
}

// Dots of the points' own colours; nothing of them is left when the panel is closed.
TEST_F(CalibrationMapTest, PointsAreDrawnOverTheMap) {
  const auto Look = [this](int X, int Y) {
    const QRect Around(ControlAt(X, Y) - QPoint(16, 16), QSize(33, 33));
    return Widget().grab(Around).toImage();
  };
  Action("Magnifier")->setChecked(false);
  Action("Graticule while Calibrating")->setChecked(false);
  Tool().select(0);
  const QImage Plain = Look(1229, 1237);
  Tool().select(Id(1));
  EXPECT_NE(Look(1229, 1237), Plain);
  Tool().select(0);
  EXPECT_EQ(Look(1229, 1237), Plain);
  Document().setEnabled(Id(1), false);
  const QImage Off = Look(1229, 1237);
  EXPECT_NE(Off, Plain);
  Action("Calibrate")->trigger();
  const QImage Bare = Look(1229, 1237);
  EXPECT_NE(Bare, Off);
  EXPECT_EQ(Bare,
            Widget().picture().copy(QRect(ControlAt(1229, 1237) - QPoint(16, 16), QSize(33, 33))));
}

}  // namespace
}  // namespace zav
