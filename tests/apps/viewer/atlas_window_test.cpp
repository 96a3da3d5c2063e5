// atlas_window_test.cpp - several maps in the viewer's window: from map to map by clicks and by the
// wheel, back and forward, lists, folders in which something is missing.
// SPDX-License-Identifier: MIT
#include "main_window.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <optional>
#include <random>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QListView>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

#include <geomap/calibration/calibration.h>
#include <platform/qt/geo_atlas_widget.h>

#include "atlas_sources.h"
#include "calibration_workbench.h"
#include "map_list.h"
#include "viewer_test_support.h"

namespace zav {
namespace {

class AtlasWindowTest : public ::testing::Test {
 protected:
  void SetUp() override {
    FWindow = std::make_unique<MainWindow>(nullptr);
    FWindow->resize(1000, 700);
    FWindow->show();
    QTest::qWait(1);
  }
  GeoMapWidget& Widget() { return FWindow->mapWidget(); }
  TGeoMap& Map() { return Widget().map(); }
  QListView& List() { return *FWindow->findChild<QListView*>(); }
  std::string Shown() { return Map().CalibData().Caption; }
  QAction* Action(const QString& Text) {
    for (QAction* Each : FWindow->findChildren<QAction*>())
      if (Each->text().remove('&') == Text) return Each;
    qFatal("no action %s", qPrintable(Text));
    return nullptr;
  }
  // The position in the middle of a pixel of the window.
  std::optional<TCoords> PositionAt(QPoint Control) {
    const double M = Map().Magnification();
    TCoords Position;
    if (!Map().Calibration().ToGeo(Map().TopLeft().X + (Control.x() + 0.5) / M - 0.5,
                                   Map().TopLeft().Y + (Control.y() + 0.5) / M - 0.5, Position))
      return std::nullopt;
    return Position;
  }
  // How far, in pixels of the map, a position is from the middle of a pixel of the window.
  double PixelsOff(const TCoords& Position, QPoint Control) {
    double X = 0;
    double Y = 0;
    EXPECT_TRUE(Map().Calibration().ToPixel(Position.Latit, Position.Longit, X, Y));
    const double M = Map().Magnification();
    return std::max(std::abs(X - (Map().TopLeft().X + (Control.x() + 0.5) / M - 0.5)),
                    std::abs(Y - (Map().TopLeft().Y + (Control.y() + 0.5) / M - 0.5)));
  }
  QPoint ControlAt(double Lat, double Long) {
    TPoint Pixel;
    EXPECT_TRUE(Map().CalcPixelCoords(Lat, Long, Pixel.X, Pixel.Y));
    const TPoint At = Map().MapImageToControl(Pixel);
    return {At.X, At.Y};
  }
  // Returns the position of the pixel that was clicked.
  TCoords Click(double Lat, double Long, Qt::MouseButton Button = Qt::LeftButton) {
    const QPoint At = ControlAt(Lat, Long);
    EXPECT_TRUE(Widget().rect().contains(At)) << Shown();
    const TCoords Position = PositionAt(At).value_or(TCoords{});
    QTest::mouseClick(&Widget(), Button, Qt::NoModifier, At);
    return Position;
  }
  // The position is in the middle, but for what the map's edge does not allow.
  void ExpectInTheMiddle(const TCoords& Position) {
    const QPoint At = ControlAt(Position.Latit, Position.Longit);
    const TViewState& View = Map().View();
    const auto Check = [&](int Where, int Size, int Origin, int MapSize) {
      const double Seen = Size / View.Magnification;
      const bool AtEdge = Origin <= 0 || Origin >= MapSize - Seen - 1;
      EXPECT_TRUE(AtEdge || std::abs(Where - Size / 2) <= 2) << Shown() << " " << Where;
      EXPECT_TRUE(Where >= 0 && Where < Size) << Shown();
    };
    Check(At.x(), Widget().width(), View.TopLeft.X, Map().MapImgWidth());
    Check(At.y(), Widget().height(), View.TopLeft.Y, Map().MapImgHeight());
  }
  void Wheel(QPoint At, int Notches) {
    for (int i = 0; i < std::abs(Notches); ++i) {
      QWheelEvent Event(At, Widget().mapToGlobal(At), QPoint(), QPoint(0, Notches > 0 ? 120 : -120),
                        Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
      QApplication::sendEvent(&Widget(), &Event);
    }
  }
  QString Text(int Row, int Role) { return List().model()->index(Row, 0).data(Role).toString(); }

  std::unique_ptr<MainWindow> FWindow;
};

// From the world to the Gotthard and back.
TEST_F(AtlasWindowTest, AWalkByClicks) {
  ASSERT_EQ(FWindow->openAll({QStringLiteral(ZAVGEO_SAMPLES "/maps")}), "");
  EXPECT_EQ(FWindow->message(), "");
  QStringList Names;
  for (int Row = 0; Row < List().model()->rowCount(); ++Row) Names << Text(Row, Qt::DisplayRole);
  EXPECT_EQ(Names, (QStringList{"World, Miller projection", "World", "North America", "Australia",
                                "Europe", "Iceland", "Iberian Peninsula", "Sicily", "Alps",
                                "Andes of Santiago", "Gotthard"}));
  EXPECT_EQ(Shown(), "World, Miller projection");
  EXPECT_EQ(FWindow->atlasWidget().mapCount(), 11);

  constexpr double Lat = 46.56;
  constexpr double Long = 8.56;
  Click(Lat, Long);
  EXPECT_EQ(Shown(), "World, Miller projection") << "the hand goes nowhere";
  QTest::keyClick(&Widget(), Qt::Key_G);
  EXPECT_TRUE(Action("Go to Other Maps by Clicks")->isChecked());
  for (const char* Next : {"Europe", "Alps", "Gotthard"}) {
    const TCoords Clicked = Click(Lat, Long);
    EXPECT_EQ(Shown(), Next);
    ExpectInTheMiddle(Clicked);
    EXPECT_EQ(List().currentIndex().data().toString(), Next);
  }
  QApplication::processEvents();
  EXPECT_FALSE(Action("Move the Map")->isChecked()) << "one tool at a time";
  const TViewState View = Map().View();
  Click(Lat, Long);
  EXPECT_EQ(Shown(), "Gotthard") << "there is no finer one";
  EXPECT_EQ(Map().View(), View);
  for (const char* Next : {"Alps", "Europe", "World", "World, Miller projection"}) {
    const TCoords Clicked = Click(Lat, Long, Qt::RightButton);
    EXPECT_EQ(Shown(), Next);
    ExpectInTheMiddle(Clicked);
  }
  QTest::keyClick(&Widget(), Qt::Key_Escape);
  EXPECT_FALSE(Action("Go to Other Maps by Clicks")->isChecked());

  // All the way back and forward, to the very views.
  struct TSeen {
    std::string Caption;
    TViewState View;
    bool operator==(const TSeen&) const = default;
  };
  std::vector<TSeen> Way{{Shown(), Map().View()}};
  while (Action("View Before")->isEnabled()) {
    Action("View Before")->trigger();
    Way.push_back({Shown(), Map().View()});
    ASSERT_LT(Way.size(), 30u);
  }
  EXPECT_EQ(Way.size(), 8u);
  EXPECT_EQ(Way.back().Caption, "World, Miller projection");
  for (size_t i = Way.size() - 1; i > 0; --i) {
    Action("View After")->trigger();
    EXPECT_TRUE((TSeen{Shown(), Map().View()} == Way[i - 1])) << i;
  }
  EXPECT_FALSE(Action("View After")->isEnabled());

  // The other sheets of the world.
  for (const auto& [Place, Name] : {std::pair{TCoords{45, -100}, "North America"},
                                    {TCoords{-25, 135}, "Australia"},
                                    {TCoords{65, -18}, "Iceland"},
                                    {TCoords{40, -5}, "Europe"}}) {
    ASSERT_EQ(FWindow->openAll({Sample("world_miller.xml")}), "");
    QTest::keyClick(&Widget(), Qt::Key_G);
    const TCoords Clicked = Click(Place.Latit, Place.Longit);
    EXPECT_EQ(Shown(), Name);
    ExpectInTheMiddle(Clicked);
    QTest::keyClick(&Widget(), Qt::Key_Escape);
  }
}

// Past the limits of magnification the wheel goes on to other maps, without ever turning back.
TEST_F(AtlasWindowTest, TheWheelGoesFromMapToMap) {
  ASSERT_EQ(FWindow->openAll({QStringLiteral(ZAVGEO_SAMPLES "/maps")}), "");
  std::mt19937 Random(5);
  int Changes = 0;
  for (int Walk = 0; Walk < 12; ++Walk) {
    // In at a place near the Gotthard, out at any.
    const int Direction = Walk % 2 == 0 ? 1 : -1;
    QPoint At(50 + static_cast<int>(Random() % 600), 50 + static_cast<int>(Random() % 500));
    if (Direction > 0) {
      ASSERT_EQ(FWindow->openAll({Sample("world_miller.xml")}), "");
      At = ControlAt(46.3 + static_cast<double>(Random() % 50) / 100,
                     8.3 + static_cast<double>(Random() % 50) / 100);
    }
    for (int Notch = 0; Notch < 45; ++Notch) {
      const std::string Before = Shown();
      const double Resolution = Map().CalibData().Resolution;
      const bool Limit = Direction > 0 ? Map().Magnification() >= MaxMagnification
                                       : Map().Magnification() <= MinMagnification;
      const std::optional<TCoords> Place = PositionAt(At);
      Wheel(At, Direction);
      if (Shown() == Before) continue;
      ++Changes;
      EXPECT_TRUE(Limit) << "only past the limits";
      ASSERT_TRUE(Place);
      EXPECT_LE(PixelsOff(*Place, At), 1) << Before << " to " << Shown();
      if (Direction > 0)
        EXPECT_LT(Map().CalibData().Resolution, Resolution);
      else
        EXPECT_GT(Map().CalibData().Resolution, Resolution);
    }
  }
  EXPECT_GT(Changes, 12);
}

TEST_F(AtlasWindowTest, OutlinesTellTheirNamesAndThumbnailsComeLater) {
  ASSERT_EQ(FWindow->openAll({QStringLiteral(ZAVGEO_SAMPLES "/maps")}), "");
  const auto Thumbnail = [&] {
    return List().model()->index(0, 0).data(MapList::ThumbnailRole).value<QImage>();
  };
  EXPECT_TRUE(QTest::qWaitFor([&] { return !Thumbnail().isNull(); }, 10000));
  EXPECT_LE(Thumbnail().width(), 112);
  EXPECT_GE(Thumbnail().width(), 50);

  const TMapDefinition Australia = FWindow->atlasWidget().atlas().GetMapDef(4);
  const QPoint Corner = ControlAt(Australia.Corners[0].Latit, Australia.Corners[0].Longit);
  QTest::mouseMove(&Widget(), Corner + QPoint(40, 1));
  EXPECT_EQ(QToolTip::text(), QStringLiteral("Australia, %L1 m/pixel").arg(4125));
  const auto Gone = [] { return !QToolTip::isVisible(); };
  QTest::mouseMove(&Widget(), Corner + QPoint(40, 30));
  EXPECT_TRUE(QTest::qWaitFor(Gone)) << "inside it is only the map";
  Action("Outlines of Other Maps")->setChecked(false);
  QTest::mouseMove(&Widget(), Corner + QPoint(40, 1));
  EXPECT_TRUE(Gone());
}

// A folder with an umlaut in its name, on which nothing can be written, with a map without image
// and a damaged one; its list; the folder renamed.
TEST_F(AtlasWindowTest, WorksAsFarAsItCan) {
  const TestFolder Folder;
  QDir Root(Folder.Dir.path());
  ASSERT_TRUE(Root.mkpath(QString::fromUtf8("Blätter")));
  const QDir Maps(Root.filePath(QString::fromUtf8("Blätter")));
  for (const char* Name : {"world_miller", "europe_conic", "alps_utm32n", "gotthard_utm32n"})
    for (const char* Suffix : {".xml", ".jpg"})
      Folder.copy((std::string(Name) + Suffix).c_str(),
                  (std::string("Blätter/") + Name + Suffix).c_str());
  const auto List4 = Maps.filePath(QStringLiteral("four.zavatlas"));
  ASSERT_EQ(FWindow->openAll({Maps.path()}), "");
  EXPECT_EQ(FWindow->message(), "");
  ASSERT_EQ(FWindow->saveAtlasList(List4), "");

  QFile::remove(Maps.filePath(QStringLiteral("alps_utm32n.jpg")));
  QFile Cut(Maps.filePath(QStringLiteral("gotthard_utm32n.jpg")));
  ASSERT_TRUE(Cut.resize(60000));
  ASSERT_TRUE(Root.rename(QString::fromUtf8("Blätter"), QString::fromUtf8("Kärtchen")));
  const QString Moved = Root.filePath(QString::fromUtf8("Kärtchen"));
  QFile::setPermissions(Moved, QFile::ReadOwner | QFile::ExeOwner);

  // What is open already cannot be gone on with; it says so.
  QTest::keyClick(&Widget(), Qt::Key_G);
  Click(46.5, 8.5);
  EXPECT_TRUE(FWindow->message().contains(QString::fromUtf8("Blätter")));
  EXPECT_EQ(Shown(), "World, Miller projection");

  ASSERT_EQ(FWindow->openAll({Moved + QStringLiteral("/four.zavatlas")}), "");
  EXPECT_TRUE(FWindow->message().contains("1 of 4 maps"));
  EXPECT_TRUE(FWindow->message().contains("\"alps_utm32n.xml\": its image is missing"));
  Click(46.5, 8.5);
  EXPECT_EQ(Shown(), "Europe");
  const TViewState View = Map().View();
  const TBitmap Picture = Map().MapBitmap();
  Click(46.5, 8.5);
  EXPECT_TRUE(FWindow->message().contains("alps_utm32n.jpg")) << "its image is missing";
  EXPECT_EQ(Shown(), "Europe");
  // The cut picture is found out only when it is decoded.
  QTest::mouseClick(List().viewport(), Qt::LeftButton, {},
                    List().visualRect(List().model()->index(3, 0)).center());
  EXPECT_TRUE(FWindow->message().contains("gotthard_utm32n.jpg"));
  EXPECT_EQ(Shown(), "Europe");
  EXPECT_EQ(Map().View(), View);
  EXPECT_TRUE(Map().MapBitmap() == Picture);
  EXPECT_EQ(List().currentIndex().row(), 1) << "the list marks the map that stays";

  QFile::setPermissions(Moved, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  EXPECT_NE(FWindow->saveAtlasList(Folder.path("none/list.zavatlas")), "");
  EXPECT_TRUE(FWindow->message().contains("cannot be written"));
  const QString Bad = Folder.write("bad.zavatlas", "<geoatlas");
  EXPECT_NE(FWindow->openAll({Bad}), "");
  EXPECT_TRUE(FWindow->message().contains("bad.zavatlas"));
  EXPECT_EQ(Shown(), "Europe");

  // A single map is no atlas.
  ASSERT_EQ(FWindow->openAll({Sample("iceland.xml")}), "");
  EXPECT_EQ(FWindow->atlasWidget().mapCount(), 0);
  EXPECT_FALSE(Action("Save List of Maps As...")->isEnabled());
  Action("View Before")->trigger();
  EXPECT_EQ(Shown(), "Europe") << "from map to map, whichever they are";
}

// A calibration that is changed and saved counts at once, and its map keeps its place.
TEST_F(AtlasWindowTest, SavedCalibrationsAreRegisteredAnew) {
  const TestFolder Folder;
  for (const char* Name :
       {"world_miller.xml", "world_miller.jpg", "europe_conic.xml", "europe_conic.jpg"})
    Folder.copy(Name, Name);
  ASSERT_EQ(FWindow->openAll({Folder.Dir.path()}), "");
  QTest::keyClick(&Widget(), Qt::Key_G);
  Click(46.5, 8.5);
  ASSERT_EQ(Shown(), "Europe");
  const TGeoAtlas& Atlas = FWindow->atlasWidget().atlas();
  const TMapDefinition Before = Atlas.GetMapDef(2);
  FWindow->calibration().document().setCaption(QStringLiteral("Europa"));
  ASSERT_TRUE(FWindow->calibration().save());
  EXPECT_EQ(Atlas.GetMapDef(2).Caption, "europa");
  EXPECT_EQ(Atlas.GetMapDef(2).MapFName, Before.MapFName);
  EXPECT_EQ(Atlas.ListItemIndex(), 1) << "its own outline is still left out";
}

}  // namespace
}  // namespace zav
