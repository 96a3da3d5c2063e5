// layer_test.cpp - databases over the map: what is drawn where, and what a click and a search find.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSettings>
#include <QTest>
#include <QTreeWidget>

#include <geodb/geo_db.h>
#include <geomap/calibration/calib_file.h>
#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_convert.h>

#include "layer_dock.h"
#include "layer_geometry.h"
#include "layers.h"
#include "main_window.h"
#include "viewer_test_support.h"

namespace zav {
namespace {

// Whatever lies in a part of a map is in its region, on maps of all models, across 180 degrees and
// at the pole too.
TEST(LayerGeometry, TheRegionHoldsWhatIsVisible) {
  std::mt19937 Random(1);
  for (const char* Name : {"alps_utm32n", "australia_laea", "europe_conic", "iberia_bonne",
                           "namerica_lcc", "world_equirect", "world_miller"}) {
    GeoMapWidget Widget;
    ASSERT_TRUE(Widget.loadMap(Sample((std::string(Name) + ".xml").c_str())));
    const TCalibration& Calibration = Widget.map().Calibration();
    const auto Any = [&](double Size) {
      return std::uniform_real_distribution<double>(0, Size)(Random);
    };
    for (int i = 0; i < 200; ++i) {
      const double Size = std::pow(2, 3 + Any(7));
      const QRectF Area(Any(Calibration.ImageWidth()), Any(Calibration.ImageHeight()), Size,
                        Size * 0.7);
      const TGeoRegion Region = RegionOf(Calibration, Area);
      for (int j = 0; j < 20; ++j) {
        TCoords At;
        if (!Calibration.ToGeo(Area.x() + Any(Area.width()), Area.y() + Any(Area.height()), At))
          continue;
        const auto Lat = static_cast<float>(At.Latit);
        const auto Long = static_cast<float>(std::remainder(At.Longit, 360));
        if (std::abs(Lat) > 90) continue;
        ASSERT_TRUE(BoxMeetsRegion({Lat, Lat, Long, Long}, Region))
            << Name << " " << Lat << "," << Long << " of " << Size << " pixels";
      }
    }
  }
}

// The pieces of random lines lie inside, and are as long as a walk along the line finds.
TEST(LayerGeometry, LinesAndAreasAreCutAtTheEdges) {
  std::mt19937 Random(2);
  std::uniform_real_distribution<double> Any(-300, 300);
  const QRectF Area(-50, -40, 100, 80);
  const QRectF Inside = Area.adjusted(-1e-9, -1e-9, 1e-9, 1e-9);
  for (int i = 0; i < 300; ++i) {
    PixelLine Line;
    for (int j = 0; j < 12; ++j) Line.push_back({Any(Random), Any(Random)});
    Line[5] = {std::nan(""), 0};
    double Length = 0;
    for (const PixelLine& Piece : CutLine(Line, Area, 0)) {
      for (const QPointF Point : Piece) ASSERT_TRUE(Inside.contains(Point));
      for (size_t j = 1; j < Piece.size(); ++j)
        Length += std::hypot(Piece[j].x() - Piece[j - 1].x(), Piece[j].y() - Piece[j - 1].y());
    }
    double Walked = 0;
    for (size_t j = 1; j < Line.size(); ++j) {
      if (IsGap(Line[j]) || IsGap(Line[j - 1])) continue;
      const QPointF Way = Line[j] - Line[j - 1];
      constexpr int Steps = 4000;
      for (int k = 0; k < Steps; ++k)
        if (Area.contains(Line[j - 1] + Way * ((k + 0.5) / Steps)))
          Walked += std::hypot(Way.x(), Way.y()) / Steps;
    }
    ASSERT_NEAR(Length, Walked, 2);

    Line.erase(Line.begin() + 5);
    const PixelLine Cut = CutPolygon(Line, Area);
    for (int j = 0; j < 50; ++j) {
      const QPointF Point(Any(Random) / 7, Any(Random) / 8);
      if (!Area.contains(Point) || DistanceToLine(Line, Point) < 1e-6) continue;
      ASSERT_EQ(PolygonHolds(Cut, Point), PolygonHolds(Line, Point));
    }
  }
}

class LayerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    TGeoDB Database;
    Database.SetGDBName(FromQString(FFolder.path("alps")));
    Database.SetDescription("Alps");
    Database.AddTown("Z\u00fcrich", 0, 0, {47.37F, 8.54F}, 408, 0, 0);
    Database.AddTown("Bern", 0, 0, {46.95F, 7.44F}, 540, 1, 0);
    Database.AddLake("Square", {{46, 8}, {46, 8.5F}, {46.4F, 8.5F}, {46.4F, 8}}, 0, 0, 0, 0, 0, 0,
                     0, 0, 0);
    Database.AddRiver("Line", {{45.5F, 9}, {47.5F, 9}}, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    Database.SetGDBName("");
    FSettings = std::make_unique<QSettings>(FFolder.path("settings.ini"), QSettings::IniFormat);
    FWindow = std::make_unique<MainWindow>(FSettings.get());
    FWindow->resize(1200, 900);
    FWindow->show();
    ASSERT_EQ(FWindow->openAll({Sample("alps_utm32n.xml"), FFolder.path("alps.zavgds")}), "");
    QTest::qWait(1);
    Map().SetMagnification(1);
    Map().BringLocationToCenter(46.6, 8.4);
  }
  TGeoMap& Map() { return FWindow->mapWidget().map(); }
  Layers& Databases() { return FWindow->layers(); }
  QPoint At(double Lat, double Long) {
    int32_t X = 0;
    int32_t Y = 0;
    EXPECT_TRUE(Map().CalcPixelCoords(Lat, Long, X, Y));
    return ToQPoint(Map().MapImageToControl({X, Y}));
  }
  QColor ColorAt(QPoint Point) {
    return ToQColor(Map().InternalMapImg().Pixel(Point.x(), Point.y()));
  }
  template <typename T>
  T& Named(const QString& Name) {
    for (T* Each : FWindow->findChildren<T*>())
      if (Each->accessibleName() == Name) return *Each;
    qFatal("no widget %s", qPrintable(Name));
  }

  TestFolder FFolder;
  std::unique_ptr<QSettings> FSettings;
  std::unique_ptr<MainWindow> FWindow;
};

// The picture has 15 bits a pixel.
void ExpectColor(QColor Seen, QColor Wanted, const char* What) {
  EXPECT_NEAR(Seen.red(), Wanted.red(), 8) << What;
  EXPECT_NEAR(Seen.green(), Wanted.green(), 8) << What;
  EXPECT_NEAR(Seen.blue(), Wanted.blue(), 8) << What;
}

TEST_F(LayerTest, DrawsWhereThingsAre) {
  const LayerStyle Style = Databases().style();
  ExpectColor(ColorAt(At(47.37, 8.54)), Style.of(TgdbItem::gitTown).Fill, "town");
  ExpectColor(ColorAt(At(46.1, 8.1)), Style.of(TgdbItem::gitLake).Fill, "lake");
  ExpectColor(ColorAt(At(46.6, 9)), Style.of(TgdbItem::gitRiver).Color, "river");

  // A copy of the whole map is larger than the window and has them as well.
  TBitmap Copy(TPixelFormat::pf32bit);
  Map().CopyToBMP(&Copy, {0, 0}, 1, 0, 0, Map().MapImgWidth(), Map().MapImgHeight());
  int32_t X = 0;
  int32_t Y = 0;
  ASSERT_TRUE(Map().CalcPixelCoords(45.6, 9, X, Y));
  bool Copied = false;  // straight between its ends, it is a pixel off where the meridian bends
  for (const int32_t Beside : {-1, 0, 1})
    Copied = Copied || ToQColor(Copy.Pixel(X + Beside, Y)) == Style.of(TgdbItem::gitRiver).Color;
  EXPECT_TRUE(Copied);

  // Kinds and databases are shown and hidden.
  const QColor Bare = [&] {
    Databases().setShown(0, false);
    return ColorAt(At(46.1, 8.1));
  }();
  EXPECT_NE(Bare, QColor(Style.of(TgdbItem::gitLake).Fill));
  Databases().setShown(0, true);
  Named<QListWidget>("What is shown")
      .item(static_cast<int>(TgdbItem::gitLake))
      ->setCheckState(Qt::Unchecked);
  EXPECT_EQ(ColorAt(At(46.1, 8.1)), Bare);
  ExpectColor(ColorAt(At(47.37, 8.54)), Style.of(TgdbItem::gitTown).Fill, "town alone");
}

TEST_F(LayerTest, ClicksAndNamesFindItems) {
  auto& Found = Named<QTreeWidget>("Found items");
  auto& Details = Named<QLabel>("About the item");
  const auto Click = [&](QPoint Where) {
    QTest::mouseClick(&FWindow->mapWidget(), Qt::LeftButton, {}, Where);
  };
  Click(At(47.37, 8.54) + QPoint(3, -3));
  ASSERT_EQ(Found.topLevelItemCount(), 1);
  EXPECT_TRUE(Details.text().startsWith("Z\u00fcrich, Town")) << Details.text().toStdString();
  EXPECT_TRUE(Details.text().contains("408"));
  Click(At(46.1, 8.1));
  EXPECT_TRUE(Details.text().startsWith("Square, Lake"));
  Click(At(46.6, 9) + QPoint(4, 0));
  EXPECT_TRUE(Details.text().startsWith("Line, River"));
  Click(At(47.0, 8.0));
  EXPECT_EQ(Found.topLevelItemCount(), 0);
  EXPECT_EQ(Details.text(), "");

  auto& Search = Named<QLineEdit>("Find in databases");
  QTest::keyClicks(&Search, "ZURI");
  ASSERT_EQ(Found.topLevelItemCount(), 1);
  QTest::keyClick(&Search, Qt::Key_Return);
  const QPoint Town = At(47.37, 8.54);
  EXPECT_LT((Town - FWindow->mapWidget().rect().center()).manhattanLength(), 250);
  EXPECT_TRUE(FWindow->mapWidget().rect().contains(Town));
  EXPECT_TRUE(Databases().selected().has_value());

  // A drag is no click; another tool has the mouse for itself.
  Databases().select(std::nullopt);
  QTest::mousePress(&FWindow->mapWidget(), Qt::LeftButton, {}, Town - QPoint(40, 0));
  QTest::mouseRelease(&FWindow->mapWidget(), Qt::LeftButton, {}, Town);
  EXPECT_FALSE(Databases().selected().has_value());
  FWindow->mapWidget().setMouseMode(GeoMapWidget::MouseMode::ZoomBox);
  Click(At(47.37, 8.54));
  EXPECT_FALSE(Databases().selected().has_value());
}

TEST_F(LayerTest, WhatIsNoDatabaseIsTold) {
  const QString Problem = FWindow->openAll({FFolder.write("broken.zavgdd", "x")});
  EXPECT_TRUE(Problem.contains("broken")) << Problem.toStdString();
  EXPECT_EQ(FWindow->message(), Problem);
  EXPECT_EQ(Databases().count(), 1);
  EXPECT_EQ(FWindow->openAll({FFolder.path("alps.zavgdd")}), "") << "open already";
  EXPECT_EQ(Databases().count(), 1);
  Databases().close(0);
  EXPECT_EQ(Databases().count(), 0);

  // One whose point lists are gone: told when it is drawn and when it is clicked, and hidden.
  QFile Data(FFolder.path("alps.zavgdd"));
  ASSERT_TRUE(Data.resize(300));
  FWindow->openAll({FFolder.path("alps.zavgds")});
  for (const bool Clicked : {false, true}) {
    if (Databases().count() == 0) break;  // refused when it was opened
    QTest::qWait(1);
    EXPECT_FALSE(Databases().at(0).isShown());
    EXPECT_TRUE(FWindow->message().contains("cannot be read")) << FWindow->message().toStdString();
    if (Clicked) break;
    Databases().at(0).setShown(true);
    QTest::mouseClick(&FWindow->mapWidget(), Qt::LeftButton, {}, At(46.1, 8.1));
  }
  EXPECT_EQ(Databases().count(), 1);
}

}  // namespace
}  // namespace zav
