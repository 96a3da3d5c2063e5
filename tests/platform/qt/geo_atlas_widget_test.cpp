// geo_atlas_widget_test.cpp - the atlas as users meet it: buttons, list, clicks, signals, cursors.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <platform/qt/geo_atlas_widget.h>
#include <platform/qt/qt_glyphs.h>

#include <fstream>
#include <stdexcept>

#include <QApplication>
#include <QComboBox>
#include <QPixmap>
#include <QPointer>
#include <QTest>
#include <QToolButton>

#include "geoatlas/atlas_files.h"
#include "support/temp_folder.h"

namespace zav {
namespace {

class GeoAtlasWidgetTest : public ::testing::Test {
 protected:
  void SetUp() override {
    Write("World", "world", -50, -100, 100);  // 1 degree a pixel
    Write("Alps", "", 44, 5, 4);
    Connect();
    Widget->resize(420, 300);
    Widget->show();
  }
  ~GeoAtlasWidgetTest() override { delete Widget; }
  void Write(const std::string& Name, const std::string& Caption, double South, double West,
             double High) {
    test::WriteMap(Folder / (Name + ".XML"), Name + ".bmp", Caption, South, West, High);
    test::WriteImage(Folder / (Name + ".bmp"));
  }
  void Connect() {
    const auto Note = [this](const QString& Text) { Told << Text; };
    QObject::connect(Widget, &GeoAtlasWidget::errorOccurred,
                     [Note](const QString& Text) { Note(QStringLiteral("error ") + Text); });
    QObject::connect(Widget, &GeoAtlasWidget::mapsChanged,
                     [Note, this] { Note(QStringLiteral("%1 maps").arg(Widget->mapCount())); });
    QObject::connect(Widget, &GeoAtlasWidget::currentMapChanged,
                     [Note](int i) { Note(QStringLiteral("map %1").arg(i)); });
    QObject::connect(Widget, &GeoAtlasWidget::zoomModeChanged, [Note](bool On) {
      Note(On ? QStringLiteral("zoom mode") : QStringLiteral("pointer mode"));
    });
    QObject::connect(Widget, &GeoAtlasWidget::zoomButtonClicked,
                     [Note] { Note(QStringLiteral("zoom button")); });
    QObject::connect(Widget, &GeoAtlasWidget::pointerButtonClicked,
                     [Note] { Note(QStringLiteral("pointer button")); });
    QObject::connect(Widget, &GeoAtlasWidget::mapChosen,
                     [Note](int i) { Note(QStringLiteral("chosen %1").arg(i)); });
    QObject::connect(Widget, &GeoAtlasWidget::clicked, [Note] { Note(QStringLiteral("click")); });
  }
  std::string TakeTold() {
    return std::exchange(Told, {}).join(QStringLiteral(", ")).toStdString();
  }
  void RegisterBoth() {
    for (const char* Name : {"World.XML", "Alps.XML"})
      ASSERT_TRUE(Widget->registerMap(QString::fromStdString(Folder / Name)));
    TakeTold();
  }
  QToolButton* Button(int Index) { return Widget->findChildren<QToolButton*>().at(Index); }
  QComboBox* List() { return Widget->findChild<QComboBox*>(); }
  void ClickMap(double Lat, double Long, Qt::MouseButton Which) {
    TPoint At;
    TGeoMap& Map = Widget->mapWidget().map();
    ASSERT_TRUE(Map.CalcPixelCoords(Lat, Long, At.X, At.Y));
    At = Map.MapImageToControl(At);
    QTest::mouseClick(&Widget->mapWidget(), Which, Qt::NoModifier, QPoint(At.X, At.Y));
  }

  TTempFolder Folder;
  QPointer<GeoAtlasWidget> Widget = new GeoAtlasWidget;
  QStringList Told;
};

TEST_F(GeoAtlasWidgetTest, PanelAndMapShareTheWidget) {
  ASSERT_EQ(Widget->findChildren<QToolButton*>().size(), 2);
  EXPECT_EQ(Button(0)->geometry(), QRect(3, 3, 26, 26));
  EXPECT_EQ(Button(1)->geometry(), QRect(32, 3, 26, 26));
  EXPECT_EQ(List()->geometry(), QRect(68, 5, 300, 24));
  EXPECT_FALSE(List()->isEditable());
  EXPECT_EQ(Widget->mapWidget().geometry(), QRect(0, 33, 420, 267));
  EXPECT_EQ(Widget->atlas().GeoMap().Height(), 267);
  Widget->resize(200, 300);
  EXPECT_EQ(List()->geometry(), QRect(68, 5, 129, 24)) << "what the panel has room for";
  Widget->setCommandPanelVisible(false);
  QApplication::processEvents();
  EXPECT_EQ(Widget->mapWidget().geometry(), QRect(0, 0, 200, 300));
  EXPECT_FALSE(Widget->property("commandPanelVisible").toBool());
  EXPECT_EQ(Widget->property("minResDiff").toDouble(), 10);
  EXPECT_EQ(Widget->property("keptImagesLimit").toLongLong(), 96000000);
  EXPECT_EQ(Widget->property("mapOutlineColor").value<QColor>(), QColor(0, 0, 255));
  for (const QObject* Child : {static_cast<QObject*>(Button(0)), static_cast<QObject*>(List())})
    EXPECT_FALSE(qobject_cast<const QWidget*>(Child)->accessibleName().isEmpty());
}

TEST_F(GeoAtlasWidgetTest, ButtonsListAndClicksGoToMaps) {
  ASSERT_TRUE(Widget->registerMap(QString::fromStdString(Folder / "World.XML")));
  EXPECT_EQ(TakeTold(), "1 maps");
  RegisterBoth();
  EXPECT_EQ(List()->count(), 2);
  EXPECT_EQ(List()->currentIndex(), -1) << "nothing is chosen by itself";
  EXPECT_EQ(List()->itemText(0), QStringLiteral("world"));
  ASSERT_TRUE(Widget->selectMap(1));
  EXPECT_EQ(TakeTold(), "map 1");
  EXPECT_EQ(List()->currentIndex(), 0);

  EXPECT_TRUE(Button(0)->isChecked());
  QTest::mouseClick(Button(1), Qt::LeftButton);
  EXPECT_EQ(TakeTold(), "zoom mode, zoom button");
  EXPECT_FALSE(Button(0)->isChecked());
  EXPECT_EQ(Widget->mapWidget().mouseMode(), GeoMapWidget::MouseMode::NoAction);
  QTest::mouseClick(Button(1), Qt::LeftButton);
  EXPECT_EQ(TakeTold(), "zoom button") << "it was down";
  ClickMap(46, 8, Qt::LeftButton);
  EXPECT_EQ(TakeTold(), "map 2, click");
  EXPECT_EQ(List()->currentIndex(), 1);
  ClickMap(46, 8, Qt::LeftButton);
  EXPECT_EQ(TakeTold(), "click") << "there is no finer one";
  ClickMap(46, 8, Qt::RightButton);
  EXPECT_EQ(TakeTold(), "map 1");
  QTest::mouseClick(Button(0), Qt::LeftButton);
  EXPECT_EQ(TakeTold(), "pointer mode, pointer button");
  EXPECT_EQ(Widget->cursor().shape(), Qt::PointingHandCursor);
  QTest::keyClick(List(), Qt::Key_Down);
  EXPECT_EQ(TakeTold(), "map 2, chosen 2");
  EXPECT_TRUE(Widget->zoomOut(46, 8));
  EXPECT_EQ(TakeTold(), "map 1");
  EXPECT_FALSE(Widget->zoomIn(10, 170));
  Widget->setZoomMode(true);
  EXPECT_EQ(TakeTold(), "zoom mode") << "no button was clicked";
  Widget->unregisterMap(1);
  EXPECT_EQ(TakeTold(), "1 maps");
  EXPECT_EQ(Widget->mapFile(1).toStdString(), Folder / "Alps.XML");
  Widget->unregisterAll();
  EXPECT_EQ(TakeTold(), "0 maps");
}

TEST_F(GeoAtlasWidgetTest, ErrorsAreToldAndHandlersMayDestroyTheWidget) {
  EXPECT_FALSE(Widget->registerMap(QStringLiteral("none.xml")));
  EXPECT_EQ(TakeTold(), "error none.xml: no such file");
  RegisterBoth();
  EXPECT_FALSE(Widget->selectMap(7));
  EXPECT_EQ(TakeTold(), "error There is no such map in the atlas");
  std::remove((Folder / "Alps.bmp").c_str());
  ASSERT_TRUE(Widget->selectMap(1));
  TakeTold();
  EXPECT_TRUE(Widget->selectMap(2));
  EXPECT_NE(TakeTold().find("\"elsewhere/alps.bmp\" was not found"), std::string::npos);
  Widget->setZoomMode(true);
  EXPECT_EQ(TakeTold(), "zoom mode") << "told once";
  // A click onto a damaged map.
  ASSERT_TRUE(Widget->selectMap(1));
  std::ofstream(Folder / "Alps.bmp") << "BM damaged";
  TakeTold();
  ClickMap(46, 8, Qt::LeftButton);
  EXPECT_TRUE(TakeTold().starts_with("map 2, error "));

  Widget->atlas().OnZoomButClick = [](TCustomControl*) { throw std::runtime_error("thrown"); };
  QTest::mouseClick(Button(1), Qt::LeftButton);
  EXPECT_EQ(TakeTold(), "error thrown, zoom button");

  for (int Event = 0; Event < 3; ++Event) {
    auto* Doomed = new GeoAtlasWidget;
    Doomed->resize(400, 200);
    Doomed->show();
    ASSERT_TRUE(Doomed->registerMap(QString::fromStdString(Folder / "World.XML")));
    const QPointer<GeoAtlasWidget> Alive(Doomed);
    const auto Destroy = [Doomed] { delete Doomed; };
    if (Event == 0) {
      QObject::connect(Doomed, &GeoAtlasWidget::zoomModeChanged, Destroy);
      QTest::mouseClick(Doomed->findChildren<QToolButton*>().at(1), Qt::LeftButton);
    } else if (Event == 1) {
      Doomed->atlas().OnPointerButClick = [Doomed](TCustomControl*) { delete Doomed; };
      QTest::mouseClick(Doomed->findChildren<QToolButton*>().at(0), Qt::LeftButton);
    } else {
      Doomed->atlas().OnMouseDown = [Doomed](TCustomControl*, TMouseButton, TShiftState, int32_t,
                                             int32_t) { delete Doomed; };
      QTest::mousePress(&Doomed->mapWidget(), Qt::LeftButton, Qt::NoModifier, {20, 20});
    }
    EXPECT_TRUE(Alive.isNull()) << Event;
  }
}

// A picture that was enlarged from half its size has equal pixels in each block of 2 x 2.
bool HasFinePixels(const QImage& Image) {
  for (int Y = 0; Y + 1 < Image.height(); Y += 2)
    for (int X = 0; X + 1 < Image.width(); X += 2)
      if (Image.pixel(X, Y) != Image.pixel(X + 1, Y + 1) ||
          Image.pixel(X + 1, Y) != Image.pixel(X, Y + 1))
        return true;
  return false;
}

TEST_F(GeoAtlasWidgetTest, GlyphsAndCursorsAreSharpAndSeenInDarkThemes) {
  const double Ratio = Widget->devicePixelRatioF();
  Widget->setZoomMode(true);
  const QPixmap Cursor = Widget->cursor().pixmap();
  EXPECT_EQ(Cursor.devicePixelRatio(), Ratio);
  EXPECT_EQ(Cursor.width(), std::ceil(24 * Ratio));
  EXPECT_EQ(Widget->cursor().hotSpot(), QPoint(10, 10)) << "the middle of the glass";
  for (const int32_t Number : {crGeoZoom, crGeoHand}) {
    const QImage Image = MakeCursor(Number, 2).pixmap().toImage();
    EXPECT_TRUE(HasFinePixels(Image));
    int Dark = 0;
    int Light = 0;
    for (int Y = 0; Y < Image.height(); ++Y)
      for (int X = 0; X < Image.width(); ++X) {
        if (qAlpha(Image.pixel(X, Y)) < 200) continue;
        (qGray(Image.pixel(X, Y)) < 80 ? Dark : Light) += 1;
      }
    EXPECT_GT(Dark, 40) << "an edge on light maps";
    EXPECT_GT(Light, 40) << "and on dark ones";
  }
  const auto Strokes = [&](QColor Ground, QColor Text) {
    QPalette Colors = Widget->palette();
    for (const auto Role : {QPalette::Window, QPalette::Button}) Colors.setColor(Role, Ground);
    Colors.setColor(QPalette::ButtonText, Text);
    Widget->setPalette(Colors);
    const QImage Image = Button(0)->grab().toImage();
    EXPECT_EQ(Image.width(), std::ceil(26 * Ratio));
    if (Ratio == 2) {
      EXPECT_TRUE(HasFinePixels(Image));
    }
    int Count = 0;
    for (int Y = 0; Y < Image.height(); ++Y)
      for (int X = 0; X < Image.width(); ++X)
        Count += std::abs(qGray(Image.pixel(X, Y)) - qGray(Text.rgb())) < 40 ? 1 : 0;
    return Count / (Ratio * Ratio);
  };
  EXPECT_GT(Strokes(Qt::white, Qt::black), 30);
  EXPECT_GT(Strokes(QColor(40, 40, 40), Qt::white), 30);
}

}  // namespace
}  // namespace zav
