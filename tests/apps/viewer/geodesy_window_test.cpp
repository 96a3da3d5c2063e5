// geodesy_window_test.cpp - new maps, going to places, areas: in the viewer's window.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QCompleter>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTest>

#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/PolygonArea.hpp>

#include <platform/qt/geo_map_widget.h>

#include "go_to_dialog.h"
#include "main_window.h"
#include "measure_area.h"
#include "new_map_dialog.h"
#include "tool_measure.h"
#include "tool_menu.h"
#include "viewer_test_support.h"

namespace zav {
namespace {

TEST(GoTo, UnderstandsPositionsCountriesAndCapitals) {
  const struct {
    const char* Text;
    double Lat, Long;  // to about a kilometre
    const char* Name;
  } Cases[] = {
      {"47.5 8.25", 47.5, 8.25, ""},
      {" 33U 602065 mE 5340354 mN ", 48.2082, 16.3738, ""},
      {"32TMS7069350563", 46.51, 8.62, ""},
      {"Austria", 47.33, 13.33, "Austria"},
      {"at", 47.33, 13.33, "Austria"},
      {"AUT", 47.33, 13.33, "Austria"},
      {"austria (AT)", 47.33, 13.33, "Austria"},
      {"Berlin", 52.5163, 13.3276, "Berlin, capital of Germany"},
      {"Berlin, capital of Germany", 52.5163, 13.3276, "Berlin, capital of Germany"},
      {"Luxembourg", 49.75, 6.17, "Luxembourg"},
  };
  for (const auto& Case : Cases) {
    const GoToResult Found = FindPlace(QString::fromUtf8(Case.Text), TGeoEllipsoid::gelWGS84);
    ASSERT_TRUE(Found.Place) << Case.Text << ": " << Found.Problem.toStdString();
    EXPECT_NEAR(Found.Place->Position.Latit, Case.Lat, 0.02) << Case.Text;
    EXPECT_NEAR(Found.Place->Position.Longit, Case.Long, 0.02) << Case.Text;
    EXPECT_EQ(Found.Place->Name.toStdString(), Case.Name);
  }
  const auto Problem = [](const char* Text) {
    const GoToResult Found = FindPlace(QString::fromUtf8(Text), TGeoEllipsoid::gelWGS84);
    EXPECT_FALSE(Found.Place) << Text;
    return Found.Problem;
  };
  EXPECT_TRUE(Problem("Kingston").contains("capital of Jamaica"));
  EXPECT_TRUE(Problem("Atlantis").contains("Atlantis"));
  EXPECT_NE(Problem("95 8.25"), "");
  EXPECT_NE(Problem("470693 5150563"), "");  // no zone
  EXPECT_EQ(Problem("  "), "");
  // All that is offered is understood.
  const QStringList Names = AllPlaceNames();
  EXPECT_GT(Names.size(), 440);
  for (const QString& Name : Names)
    EXPECT_TRUE(FindPlace(Name, TGeoEllipsoid::gelWGS84).Place) << Name.toStdString();
}

class GeodesyWindow : public ::testing::Test {
 protected:
  void SetUp() override {
    FWindow = std::make_unique<MainWindow>(nullptr);
    FWindow->resize(1000, 700);
    FWindow->show();
    QTest::qWait(1);
  }
  // 0.01 degrees a pixel, 46 north 8 east at (0, 0).
  void OpenPlain(const char* Name = "plain", int Width = 1800, int Height = 1400) {
    QImage Image(Width, Height, QImage::Format_RGB32);
    Image.fill(QColor(0x80, 0xa0, 0x80));
    const QByteArray Bitmap = QByteArray(Name) + ".bmp";
    Image.save(FFolder.path(Bitmap.constData()));
    ASSERT_EQ(FWindow->openAll({FFolder.write((QByteArray(Name) + ".xml").constData(),
                                              CalibrationText(Bitmap, Name))}),
              "");
  }
  TGeoMap& Map() { return FWindow->mapWidget().map(); }
  QAction* Action(const QString& Text) {
    for (QAction* Each : FWindow->findChildren<QAction*>())
      if (Each->text() == Text) return Each;
    return nullptr;
  }

  TestFolder FFolder;
  std::unique_ptr<MainWindow> FWindow;
};

TEST_F(GeodesyWindow, GoesToATypedPlaceAndMarksIt) {
  OpenPlain();
  Map().SetView({0, 0}, 1);
  QAction* Open = Action("&Go To...");
  ASSERT_NE(Open, nullptr);
  Open->trigger();
  auto* Dialog = FWindow->findChild<GoToDialog*>();
  ASSERT_TRUE(Dialog != nullptr && Dialog->isVisible());
  QLineEdit& Field = Dialog->field();
  ASSERT_NE(Field.completer(), nullptr);
  QTest::keyClicks(&Field, "40.5 N 16.25 E");
  QTest::keyClick(&Field, Qt::Key_Return);
  EXPECT_EQ(Dialog->problem(), "");
  // Pixel (825, 550) is in the middle of the control, and marked.
  const TPoint Middle = Map().ControlToMapImage({Map().Width() / 2, Map().Height() / 2});
  EXPECT_NEAR(Middle.X, 825, 2);
  EXPECT_NEAR(Middle.Y, 550, 2);
  const auto* Mark = FWindow->findChild<PlaceMark*>();
  ASSERT_TRUE(Mark != nullptr && Mark->place());
  EXPECT_NEAR(Mark->place()->x(), 825, 1e-6);
  EXPECT_TRUE(FWindow->statusBar()->currentMessage().contains("16.25"));
  // What is not there leaves the view and says so; the dialog stays.
  const TViewState View = Map().View();
  for (const char* Text : {"Zimbabwe", "nowhere", "40.5 N 7.99 E"}) {
    Field.setText(QString::fromUtf8(Text));
    EXPECT_EQ(Dialog->problem(), "");
    QTest::keyClick(&Field, Qt::Key_Return);
    EXPECT_NE(Dialog->problem(), "") << Text;
    EXPECT_EQ(Map().View().TopLeft, View.TopLeft);
  }
  EXPECT_TRUE(Dialog->isVisible());
}

TEST_F(GeodesyWindow, GoesToAnotherMapOfTheListThatHasThePlace) {
  ASSERT_EQ(FWindow->openAll({Sample("iceland.xml"), Sample("alps_utm32n.xml")}), "");
  FWindow->goToPlace({"Bern", {46.948, 7.4481}});
  EXPECT_TRUE(QString::fromStdString(Map().MapImgFile()).contains("alps_utm32n"));
  const auto* Mark = FWindow->findChild<PlaceMark*>();
  ASSERT_TRUE(Mark->place());
  double X = 0, Y = 0;
  ASSERT_TRUE(Map().Calibration().ToPixel(46.948, 7.4481, X, Y));
  EXPECT_NEAR(Mark->place()->x(), X, 1e-9);
}

TEST_F(GeodesyWindow, NewMapIsPreviewedWrittenAndOpened) {
  NewMapDialog Dialog(std::nullopt, FWindow.get());
  Dialog.setRectangle({45, 10, 50, 20});
  Dialog.setWidthInPixels(900);
  const std::optional<TEmptyMap> Plan = Dialog.plan();
  ASSERT_TRUE(Plan);
  // 5 degrees of latitude by 10 of longitude, times the cosine of 47.5 degrees.
  EXPECT_EQ(Plan->Height, 666);
  EXPECT_EQ(Plan->LatGridDist, 0.5);
  EXPECT_EQ(Plan->LongGridDist, 1);
  ASSERT_EQ(Dialog.preview().size(), QSize(900, 666));
  EXPECT_NE(Dialog.preview().pixel(900 / 10 * 3, 20), qRgb(255, 255, 255));  // 13 degrees east
  const struct {
    NewMapDialog::Rectangle Rectangle;
    int Width;
    const char* Problem;
  } Wrong[] = {{{50, 10, 45, 20}, 900, "South"},
               {{45, 20, 50, 10}, 900, "West"},
               {{45, 170, 50, -170}, 900, "190"},
               {{45, 10, 50, 20}, 3000, "pixels"}};
  for (const auto& Each : Wrong) {
    Dialog.setRectangle(Each.Rectangle);
    Dialog.setWidthInPixels(Each.Width);
    EXPECT_TRUE(Dialog.problem().contains(Each.Problem)) << Dialog.problem().toStdString();
    EXPECT_FALSE(Dialog.plan());
    EXPECT_TRUE(Dialog.preview().isNull());
  }

  // The ending is put to a name that has none. An image that is in the way stays.
  EXPECT_EQ(FWindow->createMap(*Plan, FFolder.path("Grid")), "");
  EXPECT_EQ(Map().MapImgWidth(), 900);
  EXPECT_TRUE(Map().IsPositionWithinMap(47, 19));
  EXPECT_TRUE(QFile::exists(FFolder.path("Grid.xml")));
  FFolder.write("taken.bmp", "picture");
  EXPECT_NE(FWindow->createMap(*Plan, FFolder.path("taken.xml")), "");
  QFile Taken(FFolder.path("taken.bmp"));
  ASSERT_TRUE(Taken.open(QIODevice::ReadOnly));
  EXPECT_EQ(Taken.readAll(), "picture");
  EXPECT_NE(FWindow->createMap(*Plan, FFolder.path("no/such/folder.xml")), "");
}

TEST_F(GeodesyWindow, AreasAreThoseOfTheEllipsoidAndPointsAreTakenBack) {
  OpenPlain();
  Map().SetView({0, 0}, 1);
  FWindow->tools().choose(ToolMenu::Tool::RubberBand);
  GeoMapWidget& Widget = FWindow->mapWidget();
  const auto Click = [&](QPoint At, Qt::KeyboardModifiers Modifiers) {
    QMouseEvent Move(QEvent::MouseMove, At, Widget.mapToGlobal(QPointF(At)), Qt::NoButton, {},
                     Modifiers);
    QApplication::sendEvent(&Widget, &Move);
    QTest::mouseClick(&Widget, Qt::LeftButton, Modifiers, At);
  };
  MeasureTool& Measure = FWindow->tools().measure();
  const QPoint Corners[] = {{100, 100}, {400, 120}, {350, 500}, {90, 420}};
  Click(Corners[0], {});
  Click(Corners[1], Qt::ControlModifier);
  EXPECT_EQ(Measure.areaText(), "");
  Click(Corners[2], Qt::ControlModifier);
  const QString Triangle = Measure.areaText();
  Click(Corners[3], Qt::ControlModifier);

  GeographicLib::PolygonArea Judge(GeographicLib::Geodesic::WGS84());
  QPolygonF Line;
  for (const QPoint& Each : Corners) {
    Line << Each;
    Judge.AddPoint(46 - 0.01 * Each.y(), 8 + 0.01 * Each.x());
  }
  double Perimeter = 0, Area = 0;
  Judge.Compute(true, true, Perimeter, Area);
  EXPECT_NEAR(*AreaOn(Map(), Line), Area, 1);
  EXPECT_EQ(Measure.areaText(), AreaText(Area));
  EXPECT_NE(Triangle, Measure.areaText());
  EXPECT_TRUE(Measure.text().contains(Measure.areaText()));

  // Backspace takes the points back one by one, and the line goes on from the one before.
  const QString Whole = Measure.totalText();
  QTest::keyClick(&Widget, Qt::Key_Backspace);
  EXPECT_EQ(Measure.areaText(), Triangle);
  EXPECT_TRUE(Map().RubberBandActive());
  Click(Corners[3], Qt::ControlModifier);
  EXPECT_EQ(Measure.totalText(), Whole);
  for (int I = 0; I < 3; ++I) QTest::keyClick(&Widget, Qt::Key_Backspace);
  EXPECT_FALSE(Measure.isEmpty());
  QTest::keyClick(&Widget, Qt::Key_Backspace);
  EXPECT_TRUE(Measure.isEmpty());
  EXPECT_FALSE(Map().RubberBandActive());
  QTest::keyClick(&Widget, Qt::Key_Backspace);
  // A line that is ended loses its last point too.
  Click(Corners[0], {});
  Click(Corners[1], Qt::ControlModifier);
  Click(Corners[2], {});
  EXPECT_EQ(Measure.areaText(), Triangle);
  QTest::keyClick(&Widget, Qt::Key_Backspace);
  EXPECT_EQ(Measure.areaText(), "");
  EXPECT_NE(Measure.totalText(), "");
  QTest::keyClick(&Widget, Qt::Key_Escape);
  EXPECT_TRUE(Measure.isEmpty());

  EXPECT_FALSE(AreaOn(Map(), {{1, 1}, {5, 5}, {5, 5}, {1, 1}}));
  EXPECT_EQ(AreaText(845.4), "845 m\u00b2");
  EXPECT_EQ(AreaText(845000), QString::fromUtf8("%L1 km\u00b2").arg(0.845));
  EXPECT_EQ(AreaText(123.4e6), "123 km\u00b2");
}

}  // namespace
}  // namespace zav
