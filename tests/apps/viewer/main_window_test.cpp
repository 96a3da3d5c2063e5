// main_window_test.cpp - the viewer's window, driven as a user drives it.
// SPDX-License-Identifier: MIT
#include "main_window.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QClipboard>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLabel>
#include <QListView>
#include <QMimeData>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>
#include <QWheelEvent>

#include <platform/qt/geo_map_widget.h>

#include "icons.h"
#include "readout_button.h"
#include "viewer_test_support.h"

namespace zav {
namespace {

class MainWindowTest : public ::testing::Test {
 protected:
  void SetUp() override {
    FSettings = std::make_unique<QSettings>(FFolder.path("settings.ini"), QSettings::IniFormat);
    Start();
  }
  void Start() {
    FWindow = std::make_unique<MainWindow>(FSettings.get());
    FWindow->resize(1000, 700);
    FWindow->show();
    QTest::qWait(1);
  }

  GeoMapWidget& Widget() { return FWindow->mapWidget(); }
  TGeoMap& Map() { return Widget().map(); }
  ReadoutButton& Readout() { return *FWindow->findChild<ReadoutButton*>(); }
  // The action of a menu by its text without mnemonics.
  QAction* Action(const QString& Text) {
    for (QAction* Each : FWindow->findChildren<QAction*>())
      if (Each->text().remove('&') == Text) return Each;
    qFatal("no action %s", qPrintable(Text));
    return nullptr;
  }
  void MoveMouseToMapPixel(int X, int Y) {
    const TPoint Control = Map().MapImageToControl({X, Y});
    QTest::mouseMove(&Widget(), QPoint(Control.X, Control.Y));
  }
  void TurnWheel(QPoint Position, int Notches) {
    QWheelEvent Event(Position, Widget().mapToGlobal(Position), QPoint(), QPoint(0, 120 * Notches),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&Widget(), &Event);
  }
  QString OpenText(const char* Name, const QByteArray& Text) {
    return FWindow->openAll({FFolder.write(Name, Text)});
  }

  TestFolder FFolder;
  std::unique_ptr<QSettings> FSettings;
  std::unique_ptr<MainWindow> FWindow;
};

TEST_F(MainWindowTest, ShowsTheWholeMapAndReadsPositions) {
  ASSERT_EQ(FWindow->openAll({Sample("alps_utm32n.xml")}), "");
  EXPECT_TRUE(FWindow->windowTitle().contains("Alps")) << FWindow->windowTitle().toStdString();
  // 1613 x 1552 pixels: the height fits, and the map stands in the middle.
  EXPECT_NEAR(Map().Magnification(), Widget().height() / 1552.0, 1e-9);
  EXPECT_EQ(Map().TopLeft().Y, 0);
  EXPECT_NEAR(2.0 * -Map().TopLeft().X + 1613, Widget().width() / Map().Magnification(), 2);
  // It stays so while the window changes.
  FWindow->resize(1100, 900);
  QTest::qWait(1);
  EXPECT_NEAR(Map().Magnification(), Widget().height() / 1552.0, 1e-9);
  EXPECT_FALSE(Action("View Before")->isEnabled());

  // The graticule crossing of 48 north, 7 east is at pixel 279, 169 of the scan.
  Action("Actual Size")->trigger();
  Widget().setTopLeft({0, 0});
  MoveMouseToMapPixel(279, 169);
  const auto Position = ParsePosition(
      Readout().text().remove(QStringLiteral("\u00b0 N")).remove(QStringLiteral("\u00b0 E")));
  ASSERT_TRUE(Position) << Readout().text().toStdString();
  EXPECT_NEAR(Position->Latit, 48, 0.002);
  EXPECT_NEAR(Position->Longit, 7, 0.002);

  // A click writes the same position in another way, and it can be copied.
  for (const char* Text : {"48\u00b000.", "48\u00b000'0", "32U 350"}) {
    QTest::mouseClick(&Readout(), Qt::LeftButton);
    EXPECT_TRUE(Readout().text().startsWith(Text) || Readout().text().startsWith("47\u00b059"))
        << Readout().text().toStdString() << " " << Text;
  }
  Action("Copy Position")->trigger();
  EXPECT_EQ(QApplication::clipboard()->text(), Readout().text());
  Action("Copy Pixel")->trigger();
  EXPECT_EQ(QApplication::clipboard()->text(), "279, 169");
}

TEST_F(MainWindowTest, ZoomsAndGoesThroughTheViews) {
  ASSERT_EQ(FWindow->openAll({Sample("alps_utm32n.xml")}), "");
  EXPECT_FALSE(Action("View Before")->isEnabled());
  Action("Actual Size")->trigger();
  const TViewState Actual = Map().View();
  const QPoint Mouse(Widget().width() / 3, Widget().height() / 2);
  const TPoint Under = Map().ControlToMapImage({Mouse.x(), Mouse.y()});
  TurnWheel(Mouse, 1);
  TurnWheel(Mouse, 1);
  const TViewState Zoomed = Map().View();
  EXPECT_NEAR(Zoomed.Magnification, std::sqrt(2), 1e-9);
  const TPoint Now = Map().ControlToMapImage({Mouse.x(), Mouse.y()});
  EXPECT_NEAR(Now.X, Under.X, 1);
  EXPECT_NEAR(Now.Y, Under.Y, 1);
  QTest::mousePress(&Widget(), Qt::LeftButton, {}, Mouse);
  QTest::mouseMove(&Widget(), Mouse + QPoint(-60, 20));
  QTest::mouseMove(&Widget(), Mouse + QPoint(-120, 40));
  QTest::mouseRelease(&Widget(), Qt::LeftButton, {}, Mouse + QPoint(-120, 40));
  const TViewState Dragged = Map().View();
  EXPECT_GT(Dragged.TopLeft.X, Zoomed.TopLeft.X);

  Action("View Before")->trigger();
  EXPECT_EQ(Map().View(), Zoomed);
  Action("View Before")->trigger();
  EXPECT_EQ(Map().View(), Actual);
  Action("View Before")->trigger();
  EXPECT_LT(Map().Magnification(), 0.5);
  EXPECT_FALSE(Action("View Before")->isEnabled());
  for (const TViewState& View : {Actual, Zoomed, Dragged}) {
    Action("View After")->trigger();
    EXPECT_EQ(Map().View(), View);
  }
  EXPECT_FALSE(Action("View After")->isEnabled());

  // Buttons end at the limits.
  for (int i = 0; i < 20; ++i) Action("Zoom In")->trigger();
  EXPECT_EQ(Map().Magnification(), 2);
  EXPECT_FALSE(Action("Zoom In")->isEnabled());
  Action("Whole Map")->trigger();
  EXPECT_LT(Map().Magnification(), 0.5);
  EXPECT_FALSE(Action("Zoom Out")->isEnabled());
}

TEST_F(MainWindowTest, ASmallMapStaysInTheMiddle) {
  FFolder.copy("sicily_8bit.bmp", "sicily.bmp");
  ASSERT_EQ(OpenText("sicily.xml", CalibrationText("sicily.bmp", "Sicily")), "");
  EXPECT_EQ(Map().Magnification(), 1);
  const TViewState Opened = Map().View();
  EXPECT_LT(Opened.TopLeft.X, -100);
  QTest::mousePress(&Widget(), Qt::LeftButton, {}, {300, 300});
  QTest::mouseMove(&Widget(), {310, 320});
  QTest::mouseMove(&Widget(), {400, 390});
  EXPECT_EQ(Map().View(), Opened);
  QTest::mouseRelease(&Widget(), Qt::LeftButton, {}, {400, 390});
  Action("Keep Inside the Map")->setChecked(false);
  QTest::mousePress(&Widget(), Qt::LeftButton, {}, {300, 300});
  QTest::mouseMove(&Widget(), {310, 320});
  QTest::mouseMove(&Widget(), {400, 390});
  EXPECT_LT(Map().TopLeft().X, Opened.TopLeft.X);
  QTest::mouseRelease(&Widget(), Qt::LeftButton, {}, {400, 390});
}

TEST_F(MainWindowTest, GraticuleMenuDrawsWhatItSays) {
  ASSERT_EQ(FWindow->openAll({Sample("alps_utm32n.xml")}), "");
  const QImage Plain = Widget().picture();
  QImage Last = Plain;
  for (const char* Text :
       {"Calibration Points", "Lines", "Points and Lines", "UTM Grid", "Points and UTM Grid"}) {
    Action(Text)->trigger();
    EXPECT_NE(Widget().picture(), Last) << Text;
    EXPECT_NE(Widget().picture(), Plain) << Text;
    Last = Widget().picture();
  }
  Action("None")->trigger();
  EXPECT_EQ(Widget().picture(), Plain);

  // The automatic spacing follows the zoom, a chosen one does not.
  const double Coarse = Widget().graticuleSpacing();
  Widget().setMagnification(2);
  EXPECT_LT(Widget().graticuleSpacing(), Coarse);
  Action("2\u00b0")->trigger();
  EXPECT_EQ(Widget().graticuleSpacing(), 2);
  Widget().setMagnification(0.5);
  EXPECT_EQ(Widget().graticuleSpacing(), 2);
  Action("10 km")->trigger();
  EXPECT_EQ(Widget().utmGridSpacing(), 10000);

  FFolder.copy("sicily_8bit.bmp", "sicily.bmp");
  ASSERT_EQ(OpenText("sicily.xml", CalibrationText("sicily.bmp", "Sicily")), "");
  EXPECT_FALSE(Action("UTM Grid")->isEnabled());
  EXPECT_TRUE(Action("Lines")->isEnabled());
}

TEST_F(MainWindowTest, ErrorsAreToldInTheWindow) {
  ASSERT_EQ(FWindow->openAll({Sample("alps_utm32n.xml")}), "");
  const QString Title = FWindow->windowTitle();
  // What is found out beforehand leaves the map that is shown.
  for (const QString& Problem :
       {OpenText("lost.xml", CalibrationText("lost.jpg", "Lost")), OpenText("a.png", "\x89PNG"),
        FWindow->openAll({FFolder.path("absent.xml")})}) {
    EXPECT_FALSE(Problem.isEmpty());
    EXPECT_EQ(FWindow->windowTitle(), Title);
    EXPECT_FALSE(Map().MapImgFile().empty());
  }
  EXPECT_TRUE(FWindow->message().contains("absent.xml"));

  // Neither does a picture that turns out to be cut short when it is decoded take its place.
  QFile Jpeg(Sample("gotthard_utm32n.jpg"));
  ASSERT_TRUE(Jpeg.open(QIODevice::ReadOnly));
  FFolder.write("cut.jpg", Jpeg.readAll().left(60000));
  EXPECT_TRUE(OpenText("cut.xml", CalibrationText("cut.jpg", "Cut")).contains("cut.jpg"));
  EXPECT_EQ(FWindow->windowTitle(), Title);
  EXPECT_EQ(Map().CalibModel(), TCalibModel::cmUTM);
  EXPECT_TRUE(Action("Whole Map")->isEnabled());

  // The next map that opens takes the message away.
  ASSERT_EQ(FWindow->openAll({Sample("iceland.bmp")}), "");
  EXPECT_EQ(FWindow->message(), "");
  QTest::qWait(1);
  MoveMouseToMapPixel(100, 50);
  Action("Copy Position")->trigger();
  EXPECT_EQ(QApplication::clipboard()->text(), "100, 50");  // no calibration, so the pixel
}

TEST_F(MainWindowTest, ListsFoldersTakesDropsAndRemembers) {
  FFolder.copy("sicily_8bit.bmp", "sicily.bmp");
  FFolder.write("b.xml", CalibrationText("sicily.bmp", "B Sicily"));
  FFolder.write("a.xml", CalibrationText("lost.jpg", "A Lost"));
  FFolder.copy("iceland.bmp", "c.bmp");
  QMimeData Data;
  Data.setUrls({QUrl::fromLocalFile(FFolder.Dir.path())});
  QDragEnterEvent Enter({10, 10}, Qt::CopyAction, &Data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(FWindow.get(), &Enter);
  EXPECT_TRUE(Enter.isAccepted());
  QDropEvent Drop({10, 10}, Qt::CopyAction, &Data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(FWindow.get(), &Drop);
  auto& View = *FWindow->findChild<QListView*>();
  EXPECT_TRUE(FWindow->findChild<QDockWidget*>()->isVisible());
  ASSERT_EQ(View.model()->rowCount(), 3);
  EXPECT_EQ(View.currentIndex().row(), 1);  // the first that can be shown
  QTest::mouseClick(View.viewport(), Qt::LeftButton, {},
                    View.visualRect(View.model()->index(2, 0)).center());
  EXPECT_TRUE(FWindow->windowTitle().contains("c.bmp")) << FWindow->windowTitle().toStdString();
  QTest::mouseClick(View.viewport(), Qt::LeftButton, {},
                    View.visualRect(View.model()->index(0, 0)).center());
  EXPECT_TRUE(FWindow->message().contains("lost.jpg"));

  // A picture that is damaged inside is found out when it is opened; the next one is shown.
  QFile Jpeg(Sample("gotthard_utm32n.jpg"));
  ASSERT_TRUE(Jpeg.open(QIODevice::ReadOnly));
  FFolder.write("a cut.jpg", Jpeg.readAll().left(60000));
  EXPECT_TRUE(FWindow->openAll({FFolder.Dir.path()}).contains("a cut.jpg"));
  EXPECT_TRUE(FWindow->windowTitle().contains("B Sicily"));
  EXPECT_TRUE(FWindow->message().contains("a cut.jpg"));

  Action("Points and Lines")->trigger();
  Action("Etched")->trigger();
  Action("Smooth Scaling")->setChecked(false);
  Action("UTM")->trigger();
  FWindow->close();
  Start();
  EXPECT_EQ(Widget().showGraticule(), GeoMapWidget::Graticule::PointsAndLines);
  EXPECT_EQ(Widget().frameStyle(), GeoMapWidget::Frame::Etched);
  EXPECT_FALSE(Widget().antiAlias());
  EXPECT_EQ(Readout().format(), ReadoutFormat::Utm);
  EXPECT_EQ(FSettings->value("recentFiles").toStringList(), QStringList{FFolder.Dir.path()});
}

TEST_F(MainWindowTest, TheWindowComesBackWhereItCanBeSeen) {
  const QRect Screen = FWindow->screen()->availableGeometry();
  auto& Bar = *FWindow->findChild<QToolBar*>("mouse-tools");
  auto& Dock = *FWindow->findChild<QDockWidget*>("maps");
  Bar.hide();
  FWindow->addToolBar(Qt::LeftToolBarArea, FWindow->findChild<QToolBar*>("tools"));
  FWindow->addDockWidget(Qt::RightDockWidgetArea, &Dock);
  // On a screen that is not there the next time.
  FWindow->setGeometry(Screen.right() + 3000, Screen.bottom() + 2000, 640, 480);
  FWindow->close();
  FWindow = std::make_unique<MainWindow>(FSettings.get());
  FWindow->show();
  EXPECT_TRUE(Screen.contains(FWindow->geometry().center()));
  EXPECT_EQ(FWindow->size(), QSize(640, 480));
  EXPECT_TRUE(FWindow->findChild<QToolBar*>("mouse-tools")->isHidden());
  EXPECT_EQ(FWindow->toolBarArea(FWindow->findChild<QToolBar*>("tools")), Qt::LeftToolBarArea);
  EXPECT_EQ(FWindow->dockWidgetArea(FWindow->findChild<QDockWidget*>("maps")),
            Qt::RightDockWidgetArea);
  // Settings that make no sense are as good as none.
  FSettings->setValue("window/geometry", QByteArray("\x01\xd9\xd0\xcb rubbish"));
  FSettings->setValue("window/state", QByteArray("rubbish"));
  FSettings->setValue("readout/format", "rubbish");
  FSettings->setValue("view/theme", 17);
  Start();
  EXPECT_TRUE(Screen.intersects(FWindow->geometry()));
}

TEST_F(MainWindowTest, IconsShowOnDarkThemes) {
  const QPalette Before = QApplication::palette();
  const auto Lightest = [] {
    const QImage Picture = MakeIcon(ViewerIcon::ZoomIn).pixmap(24, 24).toImage();
    int Value = 0;
    for (int Y = 0; Y < 24; ++Y)
      for (int X = 0; X < 24; ++X)
        if (Picture.pixelColor(X, Y).alpha() > 200)
          Value = std::max(Value, Picture.pixelColor(X, Y).value());
    return Value;
  };
  EXPECT_LT(Lightest(), 100);
  QPalette Dark = Before;
  Dark.setColor(QPalette::ButtonText, Qt::white);
  QApplication::setPalette(Dark);
  EXPECT_GT(Lightest(), 200);
  QApplication::setPalette(Before);
}

}  // namespace
}  // namespace zav
