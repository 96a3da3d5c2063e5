// SPDX-License-Identifier: MIT
#include <cmath>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include <QFile>
#include <QMetaProperty>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <geomap/calibration/calib_file.h>
#include <platform/qt/qt_control_window.h>
#include "map_widget_fixture.h"

using namespace zav;

namespace {

// Every property can be set through Qt's own mechanism, says so once, and changes nothing else.
TEST_F(GeoMapWidgetTest, PropertiesAreWiredOneByOne) {
  using W = GeoMapWidget;
  const std::vector<std::pair<const char*, QVariant>> Values{
      {"caption", "Alps"},
      {"calibrationModel", QVariant::fromValue(W::CalibrationModel::Utm)},
      {"magnification", 1.5},
      {"topLeft", QPoint(3, 4)},
      {"confinePanToMapImage", false},
      {"mouseMode", QVariant::fromValue(W::MouseMode::PanVertical)},
      {"antiAlias", false},
      {"cacheMagnificationLimit", 0.25},
      {"showGraticule", QVariant::fromValue(W::Graticule::UtmGrid)},
      {"graticuleSpacing", 2.5},
      {"utmGridSpacing", 5000},
      {"backgroundColor", QColor(1, 2, 3)},
      {"graticuleColor", QColor(4, 5, 6)},
      {"calibrationPointColor", QColor(7, 8, 9)},
      {"emptyMessageColor", QColor(10, 11, 12)},
      {"emptyMessage", QString::fromUtf8("nichts gew\u00E4hlt")},
      {"frameStyle", QVariant::fromValue(W::Frame::Etched)}};
  const QMetaObject& Meta = W::staticMetaObject;
  const auto Snapshot = [&] {
    std::map<std::string, QVariant> All;
    for (int I = Meta.propertyOffset(); I < Meta.propertyCount(); ++I)
      All[Meta.property(I).name()] = Meta.property(I).read(Widget);
    return All;
  };
  for (const auto& [Name, Value] : Values) {
    const QMetaProperty Property = Meta.property(Meta.indexOfProperty(Name));
    auto Expected = Snapshot();
    ASSERT_NE(Expected[Name], Value) << Name;
    Expected[Name] = Value;
    if (std::string_view(Name) == "mouseMode") Expected["allowPan"] = false;
    QSignalSpy Notified(Widget, Property.notifySignal());
    ASSERT_TRUE(Property.write(Widget, Value)) << Name;
    EXPECT_EQ(Snapshot(), Expected) << Name;
    EXPECT_EQ(Notified.count(), 1) << Name;
    Property.write(Widget, Value);  // the same again is no change
    const bool OfTheMap = Property.notifySignal().name() == "calibrationChanged";
    if (!OfTheMap) {
      EXPECT_EQ(Notified.count(), 1) << Name;
    }
  }
  EXPECT_TRUE(Widget->property("allowPan").isValid());
  EXPECT_EQ(Map().UTMGridDist(), 5000);
  EXPECT_EQ(Map().ColorBackGnd(), RgbColor(1, 2, 3));
  EXPECT_EQ(Map().ShowGraticule(), TShowGrat::sgUTMGrid);
  EXPECT_EQ(Map().MouseAction(), TMouseActMode::maPanVertical);
  EXPECT_EQ(Map().CalibModel(), TCalibModel::cmUTM);
  EXPECT_TRUE(Errors.empty());

  Widget->setMagnification(2.5);
  EXPECT_EQ(Widget->magnification(), 1.5);
  ASSERT_EQ(Errors.size(), 1U);
  EXPECT_NE(Errors[0].find("too high"), std::string::npos);
}

TEST_F(GeoMapWidgetTest, PaintsThePictureAtTheScaleOfItsScreen) {
  const double Scale = Widget->devicePixelRatioF();
  auto& Window = static_cast<TQtControlWindow&>(Map().Window());
  Widget->resize(333, 217);
  Widget->show();
  QApplication::processEvents();
  const auto IsComplete = [&] {
    const QImage Picture = Widget->picture();
    const QImage Grabbed = Widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
    if (Picture.size() !=
        QSize(static_cast<int>(std::ceil(333 * Scale)), static_cast<int>(std::ceil(217 * Scale))))
      return false;
    // Neither the last column nor the last row is left out: the frame or the map is there.
    for (int X = 0; X < Picture.width(); ++X)
      if (Picture.pixel(X, Picture.height() - 1) == qRgb(0, 0, 0)) return false;
    for (int Y = 0; Y < Picture.height(); ++Y)
      if (Picture.pixel(Picture.width() - 1, Y) == qRgb(0, 0, 0)) return false;
    return Picture.copy(Grabbed.rect()) == Grabbed;
  };
  Widget->setFrameStyle(GeoMapWidget::Frame::NoFrame);
  EXPECT_TRUE(IsComplete());
  // The picture is the map: the gradient of the image at that place, within 5 bits a channel.
  const QColor Pixel =
      Widget->picture().pixelColor(static_cast<int>(200 * Scale), static_cast<int>(100 * Scale));
  EXPECT_NEAR(Pixel.red(), 50, 9);
  EXPECT_NEAR(Pixel.green(), 25, 9);
  EXPECT_NEAR(Pixel.blue(), 128, 8);

  // As if the window had come from another screen.
  Window.SetScale(Scale + 1);
  Widget->repaint();
  QApplication::processEvents();
  EXPECT_EQ(Window.Scale(), Scale);
  EXPECT_TRUE(IsComplete());
  EXPECT_TRUE(Errors.empty());
}

TEST_F(GeoMapWidgetTest, ErrorsEndInTheSignal) {
  Widget->show();
  const auto ErrorsOf = [&](const std::function<void()>& Act) {
    Errors.clear();
    EXPECT_NO_THROW(Act());
    EXPECT_NO_THROW(QApplication::processEvents());
    return Errors;
  };
  const auto Throw = [](auto&&...) { throw std::runtime_error("handler failed"); };
  const std::vector<std::string> One{"handler failed"};
  Map().OnMouseDown = Throw;
  EXPECT_EQ(ErrorsOf([&] { QTest::mousePress(Widget, Qt::RightButton, {}, {9, 9}); }), One);
  EXPECT_EQ(ErrorsOf([&] { QTest::mouseDClick(Widget, Qt::RightButton, {}, {9, 9}); }), One);
  Map().OnMouseDown = nullptr;
  Map().OnMouseUp = Throw;
  EXPECT_EQ(ErrorsOf([&] { QTest::mouseRelease(Widget, Qt::RightButton, {}, {9, 9}); }), One);
  Map().OnMouseUp = nullptr;
  Map().OnMouseMove = Throw;
  EXPECT_EQ(ErrorsOf([&] { MoveTo({5, 5}); }), One);
  Map().OnMouseMove = nullptr;
  // Wherever the picture is drawn.
  Map().OnDataRendered = Throw;
  EXPECT_EQ(ErrorsOf([&] { Wheel({9, 9}, 120); }), One);
  EXPECT_EQ(ErrorsOf([&] { QTest::keyClick(Widget, Qt::Key_Right); }), One);
  EXPECT_EQ(ErrorsOf([&] { Widget->resize(300, 200); }), One);
  EXPECT_EQ(ErrorsOf([&] { Widget->setShowGraticule(GeoMapWidget::Graticule::Lines); }), One);
  EXPECT_EQ(ErrorsOf([&] { Widget->setVisible(false); }), std::vector<std::string>());
  EXPECT_EQ(ErrorsOf([&] { Widget->setVisible(true); }), One);
  Map().OnDataRendered = [](auto&&...) { throw 42; };
  EXPECT_EQ(ErrorsOf([&] { Widget->zoomToFit(); }), std::vector<std::string>{"Unknown error"});
  Map().OnDataRendered = nullptr;
  Map().SetView({100, 100}, 1);
  // Slots are handlers, too, also of the error itself.
  QObject::connect(Widget, &GeoMapWidget::viewChanged, Throw);
  QObject::connect(Widget, &GeoMapWidget::errorOccurred, Throw);
  EXPECT_EQ(ErrorsOf([&] { Widget->panBy({10, 10}); }), One);
  EXPECT_THROW(Map().SetTopLeft({77, 77}), std::runtime_error) << "the control itself throws";
}

TEST_F(GeoMapWidgetTest, HandlersMayDeleteTheWidget) {
  const auto Kill = [this](auto&&...) { delete Widget.data(); };
  const std::vector<std::pair<const char*, std::function<void()>>> Cases{
      {"press", [&] { Map().OnMouseDown = Kill; }},
      {"move", [&] { Map().OnMouseMove = Kill; }},
      {"release", [&] { Map().OnMouseUp = Kill; }},
      {"zoom and pan", [&] { Map().OnZoomPan = Kill; }},
      {"picture", [&] { Map().OnDataRendered = Kill; }},
      {"slot", [&] { QObject::connect(Widget, &GeoMapWidget::viewChanged, Kill); }},
      {"failing handler", [&] {
         Map().OnZoomPan = [Kill](auto&&...) {
           Kill();
           throw std::runtime_error("too late");
         };
       }}};
  for (const auto& [Name, Arm] : Cases) {
    delete Widget;
    Widget = new GeoMapWidget;
    Map().SetMapBitMap(Gradient(800, 600));
    Widget->show();
    Arm();
    EXPECT_NO_THROW({
      if (Widget) QTest::mousePress(Widget, Qt::RightButton, {}, {9, 9});
      if (Widget) MoveTo({5, 5}, Qt::RightButton);
      if (Widget) QTest::mouseRelease(Widget, Qt::RightButton, {}, {9, 9});
      if (Widget) QTest::keyPress(Widget, Qt::Key_Right);
    }) << Name;
    EXPECT_TRUE(Widget.isNull()) << Name;
  }
}

TEST_F(GeoMapWidgetTest, LoadsMapsAndSaysWhatIsWrong) {
  QTemporaryDir Folder;
  const auto PathOf = [&](const char* Name) { return Folder.filePath(Name); };
  const auto Write = [&](const char* Name, const TCalibData& Data) {
    SaveCalData(PathOf(Name).toStdString(), "", Data, TCalibModel::cmEquiRect, "");
  };
  SaveJpegFile(PathOf("Karte \u0416.jpg").toStdString(), Gradient(64, 48), 90);
  TCalibData Data = PlainCalibration();
  Data.MapFName = "karte \u0436.JPG";
  Data.Caption = "test";
  Write("good.xml", Data);
  Data.MapFName = "nowhere.jpg";
  Write("lost.xml", Data);
  const auto WriteText = [&](const char* Name, const QByteArray& Text) {
    QFile File(PathOf(Name));
    ASSERT_TRUE(File.open(QIODevice::WriteOnly));
    File.write(Text);
  };
  WriteText("other.xml", "<?xml version=\"1.0\"?>\r\n<nothing/>\r\n");
  WriteText("broken.jpg", "no picture at all");
  Data.MapFName = "broken.jpg";
  Write("broken.xml", Data);

  QSignalSpy Maps(Widget, &GeoMapWidget::mapChanged);
  QSignalSpy Calibrations(Widget, &GeoMapWidget::calibrationChanged);
  EXPECT_TRUE(Widget->loadMap(PathOf("good.xml")));
  EXPECT_EQ(Maps.count(), 1);
  EXPECT_GE(Calibrations.count(), 1);
  EXPECT_EQ(Widget->mapFile(), PathOf("good.xml"));
  EXPECT_EQ(Map().MapImgWidth(), 64);
  EXPECT_EQ(Widget->caption(), "test");
  EXPECT_EQ(Widget->calibrationModel(), GeoMapWidget::CalibrationModel::Equirectangular);
  EXPECT_TRUE(Errors.empty());

  struct TCase {
    const char* File;
    const char* Text;
    bool Kept;
  };
  for (const TCase& Case : {TCase{"missing.xml", "no such file", true},
                            {"other.xml", "no map calibration", true},
                            {"lost.xml", "nowhere.jpg", false},
                            {"broken.xml", "broken.jpg", false}}) {
    ASSERT_TRUE(Widget->loadMap(PathOf("good.xml")));
    Errors.clear();
    EXPECT_FALSE(Widget->loadMap(PathOf(Case.File))) << Case.File;
    ASSERT_EQ(Errors.size(), 1U) << Case.File;
    EXPECT_NE(Errors[0].find(Case.Text), std::string::npos) << Errors[0];
    EXPECT_EQ(Widget->mapFile() == PathOf("good.xml"), Case.Kept) << Case.File;
  }
  Errors.clear();
  EXPECT_FALSE(Widget->loadImage(PathOf("missing.jpg")));
  EXPECT_FALSE(Widget->loadImage(PathOf("good.xml")));
  EXPECT_EQ(Errors.size(), 2U);
  Widget->clear();
  EXPECT_TRUE(Widget->imageFile().isEmpty());
  EXPECT_TRUE(Widget->mapFile().isEmpty());
}

}  // namespace
