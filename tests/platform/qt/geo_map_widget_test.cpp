// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include <QApplication>
#include <QFile>
#include <QMetaProperty>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include <geomap/calibration/calib_file.h>
#include <platform/base/rounding.h>
#include <platform/qt/geo_map_widget.h>
#include <platform/qt/qt_control_window.h>

using namespace zav;

namespace {

TBitmap Gradient(int32_t Width, int32_t Height) {
  TBitmap Bitmap(Width, Height, TPixelFormat::pf32bit);
  for (int32_t Y = 0; Y < Height; ++Y)
    for (int32_t X = 0; X < Width; ++X)
      Bitmap.SetPixel(X, Y,
                      RgbColor(static_cast<uint8_t>(X / 4), static_cast<uint8_t>(Y / 4), 128));
  return Bitmap;
}

// Longitude X / 100, latitude 50 - Y / 100.
TCalibData PlainCalibration() {
  TCalibData Data;
  for (const TPoint P : {TPoint{0, 0}, TPoint{1000, 0}, TPoint{0, 800}, TPoint{1000, 800}})
    Data.CalQuads[static_cast<size_t>(Data.NumCalQuads++)] = {50 - P.Y / 100.0, P.X / 100.0, P.X,
                                                              P.Y};
  return Data;
}

// A widget of 500 x 400 with a map of 1000 x 800 in it.
class GeoMapWidgetTest : public testing::Test {
 protected:
  GeoMapWidgetTest() {
    Widget->map().SetMapBitMap(Gradient(1000, 800));
    QObject::connect(Widget, &GeoMapWidget::errorOccurred,
                     [this](const QString& Text) { Errors.push_back(Text.toStdString()); });
  }
  ~GeoMapWidgetTest() override { delete Widget; }

  TGeoMap& Map() { return Widget->map(); }
  bool Wheel(QPointF At, int Units, bool PixelsOnly = false) {
    const QPoint Turn(0, Units);
    QWheelEvent Event(At, At, PixelsOnly ? Turn : QPoint(), PixelsOnly ? QPoint() : Turn,
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    Event.ignore();
    QApplication::sendEvent(Widget, &Event);
    return Event.isAccepted();
  }

  QPointer<GeoMapWidget> Widget = new GeoMapWidget;
  std::vector<std::string> Errors;
};

// How far the map position that was under the mouse has moved from it, in control pixels.
double Drift(const TViewState& From, const TViewState& To, QPointF Mouse) {
  const auto Axis = [&](int32_t Old, int32_t New, double At) {
    return std::abs((Old + At / From.Magnification - New) * To.Magnification - At);
  };
  return std::max(Axis(From.TopLeft.X, To.TopLeft.X, Mouse.x()),
                  Axis(From.TopLeft.Y, To.TopLeft.Y, Mouse.y()));
}

TEST_F(GeoMapWidgetTest, WheelKeepsThePointAndReturnsExactly) {
  Widget->resize(200, 160);
  Widget->setCacheMagnificationLimit(0);  // every step would make a new one
  Widget->setConfinePanToMapImage(false);
  std::mt19937 Random(4711);
  const auto Number = [&](double Low, double High) {
    return std::uniform_real_distribution<double>(Low, High)(Random);
  };
  for (int Round = 0; Round < 40; ++Round) {
    Map().SetView({static_cast<int32_t>(Number(-50, 500)), static_cast<int32_t>(Number(-50, 400))},
                  Round % 4 == 0 ? 1 : Number(0.5, 2));
    const TViewState Start = Map().View();
    const QPointF Mouse(std::floor(Number(0, 200)), std::floor(Number(0, 160)));
    const int Turn = Round % 2 == 0 ? 120 : -120;
    // Whole notches, or the fine steps of a touchpad that add up to them.
    const int Part = Round % 3 == 0 ? 15 : 120;
    int TookEffect = 0;
    for (int Step = 0; Step < 10; ++Step) {
      const TViewState Before = Map().View();
      for (int Units = 0; Units < 120; Units += Part)
        Wheel(Mouse, Turn > 0 ? Part : -Part, Round % 5 == 0);
      if (Map().View() == Before) continue;
      ++TookEffect;
      ASSERT_EQ(Map().Magnification() > Before.Magnification, Turn > 0);
      ASSERT_LE(Drift(Start, Map().View(), Mouse), 1 + 1e-9);
      ASSERT_GE(Map().Magnification(), 0.5);
      ASSERT_LE(Map().Magnification(), 2);
    }
    for (int Step = 0; Step < TookEffect; ++Step) Wheel(Mouse, -Turn);
    ASSERT_EQ(Map().View(), Start) << Round;
  }
  // Inside the map at the end of every step, when confined.
  Widget->setConfinePanToMapImage(true);
  Map().SetView({780, 600}, 1);
  const TViewState Corner = Map().View();
  for (int Step = 0; Step < 3; ++Step) Wheel({10, 10}, -120);
  EXPECT_EQ(Map().TopLeft().X, RoundHalfEven(1000 - 200 / Map().Magnification()));
  for (int Step = 0; Step < 3; ++Step) Wheel({10, 10}, 120);
  EXPECT_EQ(Map().View(), Corner);
}

TEST_F(GeoMapWidgetTest, WheelAtLimitsAndWithoutEffect) {
  const QPointF Mouse(100, 100);
  const TViewState Start = Map().View();
  QSignalSpy Changes(Widget, &GeoMapWidget::viewChanged);
  EXPECT_FALSE(Wheel(Mouse, 0));
  Wheel(Mouse, 60);
  Wheel(Mouse, -60);  // turned back before anything happened
  Wheel(Mouse, 119);
  EXPECT_EQ(Map().View(), Start);
  EXPECT_EQ(Changes.count(), 0);
  Wheel(Mouse, 1);
  EXPECT_GT(Map().Magnification(), 1);
  EXPECT_EQ(Changes.count(), 1);

  // Turning back begins anew, and what is left over from a step counts for the next one.
  Map().SetView({0, 0}, 1);
  for (const int Units : {60, -120, 180, 60}) Wheel(Mouse, Units);
  EXPECT_DOUBLE_EQ(Map().Magnification(), std::exp2(0.25));

  for (const auto& [Outside, Turn, Expected] :
       {std::tuple{0.2, 120, 0.5}, {0.2, -120, 0.5}, {4.0, -120, 2.0}, {4.0, 120, 2.0}}) {
    Map().SetView({0, 0}, Outside);
    Wheel(Mouse, Turn);
    EXPECT_EQ(Map().Magnification(), Expected);
    const TViewState Limit = Map().View();
    for (int Step = 0; Step < 3; ++Step) Wheel(Mouse, Expected > 1 ? 120 : -120);
    EXPECT_EQ(Map().View(), Limit);
    // What was turned at the limit is not owed.
    Wheel(Mouse, Expected > 1 ? -120 : 120);
    EXPECT_NE(Map().Magnification(), Expected);
  }
  // The gesture is one step of the zoom history, pushed when it is over.
  Map().SetView({7, 8}, 1);
  Map().ClearZoomHistory();
  for (int Step = 0; Step < 3; ++Step) Wheel(Mouse, 120);
  EXPECT_EQ(Map().GetZoomStackEntry(0).MagF, 1);
  QTest::mousePress(Widget, Qt::RightButton, {}, {5, 5});
  EXPECT_EQ(Map().GetZoomStackEntry(0).MagF, Map().Magnification());
  EXPECT_EQ(Map().GetZoomStackEntry(-1).MagF, 1);
  QTest::mouseRelease(Widget, Qt::RightButton, {}, {5, 5});
  // No step when the program has gone elsewhere meanwhile.
  Map().ClearZoomHistory();
  Wheel(Mouse, -120);
  Map().SetView({1, 2}, 1.5);
  QTest::mousePress(Widget, Qt::RightButton, {}, {5, 5});
  EXPECT_EQ(Map().GetZoomStackEntry(-1).MagF, 0);
  QTest::mouseRelease(Widget, Qt::RightButton, {}, {5, 5});

  GeoMapWidget Empty;
  QWheelEvent Event(Mouse, Mouse, {}, {0, 120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&Empty, &Event);
  EXPECT_EQ(Empty.magnification(), 1);
}

TEST_F(GeoMapWidgetTest, MousePansAndTellsThePosition) {
  Map().SetCalibration(PlainCalibration(), TCalibModel::cmEquiRect);
  Widget->setTopLeft({100, 80});
  QSignalSpy TopLeft(Widget, &GeoMapWidget::topLeftChanged);
  QSignalSpy Position(Widget, &GeoMapWidget::mousePositionChanged);
  QSignalSpy Clicked(Widget, &GeoMapWidget::clicked);
  std::vector<std::string> Handled;
  Map().OnMouseDown = [&](TCustomControl*, TMouseButton, TShiftState Shift, int32_t X, int32_t Y) {
    Handled.push_back("down " + std::to_string(X) + " " + std::to_string(Y) + " " +
                      std::to_string(Shift));
  };
  Map().OnMouseUp = [&](TCustomControl*, TMouseButton, TShiftState Shift, int32_t X, int32_t Y) {
    Handled.push_back("up " + std::to_string(X) + " " + std::to_string(Y) + " " +
                      std::to_string(Shift));
  };
  const auto MoveTo = [&](QPoint At, Qt::MouseButtons Buttons) {
    QMouseEvent Event(QEvent::MouseMove, At, At, Qt::NoButton, Buttons, Qt::NoModifier);
    QApplication::sendEvent(Widget, &Event);
  };
  QTest::mousePress(Widget, Qt::LeftButton, Qt::ShiftModifier, {200, 150});
  MoveTo({200, 150}, Qt::LeftButton);
  MoveTo({150, 130}, Qt::LeftButton);
  QTest::mouseRelease(Widget, Qt::LeftButton, {}, {150, 130});
  EXPECT_EQ(Widget->topLeft(), QPoint(150, 100));
  ASSERT_EQ(TopLeft.count(), 1);
  EXPECT_EQ(TopLeft[0][0].toPoint(), QPoint(150, 100));
  EXPECT_EQ(Clicked.count(), 0);
  EXPECT_EQ(Handled, (std::vector<std::string>{"down 200 150 " + std::to_string(ssShift | ssLeft),
                                               "up 150 130 0"}));
  EXPECT_EQ(Map().GetZoomStackEntry(0).Left, 150);

  MoveTo({50, 20}, Qt::NoButton);  // map pixel (200, 120)
  ASSERT_FALSE(Position.isEmpty());
  EXPECT_EQ(Position.last()[0].toPointF(), QPointF(200, 120));
  EXPECT_NEAR(Position.last()[1].toDouble(), 48.8, 1e-6);
  EXPECT_NEAR(Position.last()[2].toDouble(), 2.0, 1e-6);
  EXPECT_TRUE(Position.last()[3].toBool());
  QTest::keyClick(Widget, Qt::Key_Right);  // the map moved under the mouse
  EXPECT_NEAR(Position.last()[2].toDouble(), 2.4, 1e-6);
  MoveTo({600, 20}, Qt::NoButton);
  EXPECT_FALSE(Position.last()[3].toBool());
  QTest::mouseClick(Widget, Qt::LeftButton, {}, {9, 9});
  EXPECT_EQ(Clicked.count(), 1);

  Widget->setAllowPan(false);
  const QPoint Before = Widget->topLeft();
  QTest::mousePress(Widget, Qt::LeftButton, {}, {200, 150});
  MoveTo({200, 150}, Qt::LeftButton);
  MoveTo({100, 100}, Qt::LeftButton);
  EXPECT_EQ(Widget->topLeft(), Before);
}

TEST_F(GeoMapWidgetTest, KeysPanAndZoom) {
  struct TCase {
    Qt::Key Key;
    Qt::KeyboardModifier Modifier;
    TViewState Expected;
  };
  const TViewState Start{{200, 160}, 1};
  const double Step = std::exp2(0.25);
  const auto Zoomed = [&](double Magnification) {
    return TViewState{{static_cast<int32_t>(std::lround(450 - 250 / Magnification)),
                       static_cast<int32_t>(std::lround(360 - 200 / Magnification))},
                      Magnification};
  };
  for (const TCase& Case : {TCase{Qt::Key_Left, Qt::NoModifier, {{160, 160}, 1}},
                            {Qt::Key_Right, Qt::NoModifier, {{240, 160}, 1}},
                            {Qt::Key_Up, Qt::NoModifier, {{200, 120}, 1}},
                            {Qt::Key_Down, Qt::KeypadModifier, {{200, 200}, 1}},
                            {Qt::Key_Right, Qt::ShiftModifier, {{500, 160}, 1}},  // confined
                            {Qt::Key_Up, Qt::ShiftModifier, {{200, 0}, 1}},
                            {Qt::Key_Plus, Qt::ShiftModifier, Zoomed(Step)},
                            {Qt::Key_Equal, Qt::NoModifier, Zoomed(Step)},
                            {Qt::Key_Minus, Qt::NoModifier, Zoomed(1 / Step)},
                            {Qt::Key_F, Qt::NoModifier, {{0, 0}, 0.5}},
                            {Qt::Key_Home, Qt::NoModifier, {{0, 0}, 0.5}},
                            {Qt::Key_0, Qt::NoModifier, Start},
                            {Qt::Key_Plus, Qt::ControlModifier, Start},
                            {Qt::Key_A, Qt::NoModifier, Start}}) {
    Map().SetView(Start.TopLeft, Start.Magnification);
    QTest::keyClick(Widget, Case.Key, Case.Modifier);
    EXPECT_EQ(Map().TopLeft(), Case.Expected.TopLeft) << int{Case.Key};
    EXPECT_NEAR(Map().Magnification(), Case.Expected.Magnification, 1e-12) << int{Case.Key};
  }
  Map().SetView({300, 200}, 2);
  QTest::keyClick(Widget, Qt::Key_0);  // the middle, map pixel (425, 300), stays there
  EXPECT_EQ(Map().View(), (TViewState{{175, 100}, 1}));
  // Keys that are not used go on to the parent.
  QKeyEvent Unused(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
  Unused.accept();
  QApplication::sendEvent(Widget, &Unused);
  EXPECT_FALSE(Unused.isAccepted());
}

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
  Widget->setFrameStyle(GeoMapWidget::Frame::None);
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
  EXPECT_EQ(ErrorsOf([&] {
              QMouseEvent Event(QEvent::MouseMove, QPointF(5, 5), QPointF(5, 5), Qt::NoButton,
                                Qt::NoButton, Qt::NoModifier);
              QApplication::sendEvent(Widget, &Event);
            }),
            One);
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
  struct TCase {
    const char* Name;
    std::function<void(GeoMapWidget&, const std::function<void()>& Kill)> Arm;
    std::function<void(GeoMapWidget&)> Act;
  };
  const auto SendMove = [](GeoMapWidget& W) {
    QMouseEvent Event(QEvent::MouseMove, QPointF(5, 5), QPointF(5, 5), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&W, &Event);
  };
  const auto ByKey = [](GeoMapWidget& W) { QTest::keyPress(&W, Qt::Key_Right); };
  const std::array<TCase, 6> Cases{{
      {"press",
       [](GeoMapWidget& W, auto& Kill) { W.map().OnMouseDown = [Kill](auto&&...) { Kill(); }; },
       [](GeoMapWidget& W) {
         QTest::mousePress(&W, Qt::LeftButton, {}, {9, 9});
       }},
      {"move",
       [](GeoMapWidget& W, auto& Kill) { W.map().OnMouseMove = [Kill](auto&&...) { Kill(); }; },
       SendMove},
      {"zoom and pan",
       [](GeoMapWidget& W, auto& Kill) { W.map().OnZoomPan = [Kill](auto&&...) { Kill(); }; },
       ByKey},
      {"picture",
       [](GeoMapWidget& W, auto& Kill) { W.map().OnDataRendered = [Kill](auto&&...) { Kill(); }; },
       ByKey},
      {"slot",
       [](GeoMapWidget& W, auto& Kill) { QObject::connect(&W, &GeoMapWidget::viewChanged, Kill); },
       ByKey},
      {"failing handler",
       [](GeoMapWidget& W, auto& Kill) {
         W.map().OnZoomPan = [Kill](auto&&...) {
           Kill();
           throw std::runtime_error("too late");
         };
       },
       ByKey},
  }};
  for (const TCase& Case : Cases) {
    QPointer<GeoMapWidget> Victim = new GeoMapWidget;
    Victim->map().SetMapBitMap(Gradient(800, 600));
    Victim->show();
    Case.Arm(*Victim, [Victim] { delete Victim.data(); });
    EXPECT_NO_THROW(Case.Act(*Victim)) << Case.Name;
    EXPECT_TRUE(Victim.isNull()) << Case.Name;
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
