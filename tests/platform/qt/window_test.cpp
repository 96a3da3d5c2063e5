// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <vector>

#include <QApplication>
#include <QImage>
#include <QPaintEvent>
#include <QPainter>
#include <QPixmap>
#include <QScreen>
#include <QWidget>

#include <platform/qt/qt_control_window.h>
#include <platform/qt/qt_host.h>

using namespace zav;

namespace {

// A widget filled by a control that draws nothing by itself.
class TProbe : public QWidget {
 public:
  TProbe(int Width, int Height) : Host(*this), Control(nullptr, Host) {
    setWindowFlag(Qt::FramelessWindowHint);
    setFixedSize(Width, Height);
    Control.SetSize(Width, Height);
  }
  TQtControlWindow& Window() { return static_cast<TQtControlWindow&>(Control.Window()); }

  // Paints a part of the widget where it belongs on a picture in device pixels.
  void PaintOn(QPixmap& Picture, const QRect& Part) { render(&Picture, Part.topLeft(), Part); }

  TQtHost Host;
  TCustomControl Control;
  std::vector<QRegion> Painted;

 protected:
  void paintEvent(QPaintEvent* Event) override {
    Painted.push_back(Event->region());
    QPainter Painter(this);
    Window().CopyTo(Painter, Event->region());
  }
};

// Another colour for every pixel and its neighbours.
TBitmap Pattern(int32_t Width, int32_t Height) {
  TBitmap Bitmap(Width, Height, TPixelFormat::pf15bit);
  for (int32_t Y = 0; Y < Height; ++Y)
    for (int32_t X = 0; X < Width; ++X)
      Bitmap.SetPixel(X, Y,
                      RgbColor(static_cast<uint8_t>(X % 32 << 3), static_cast<uint8_t>(Y % 32 << 3),
                               static_cast<uint8_t>((X / 32 * 4 + Y / 32) % 32 << 3)));
  return Bitmap;
}

int Differences(const QImage& Image, const TBitmap& Expected) {
  int Count = 0;
  for (int Y = 0; Y < Image.height(); ++Y) {
    for (int X = 0; X < Image.width(); ++X) {
      const TColor Color = Expected.Pixel(X, Y);
      if (Image.pixel(X, Y) != qRgb(RedOf(Color), GreenOf(Color), BlueOf(Color))) ++Count;
    }
  }
  return Count;
}

TEST(QtWindow, EachBufferPixelIsOneOfTheScreen) {
  TProbe Probe(101, 67);
  const double Scale = Probe.devicePixelRatioF();
  const TBitmap& Buffer = Probe.Window().Buffer();
  ASSERT_EQ(Buffer.Width(), std::ceil(101 * Scale));
  ASSERT_EQ(Buffer.Height(), std::ceil(67 * Scale));
  const TBitmap Picture = Pattern(Buffer.Width(), Buffer.Height());
  Probe.Window().DeviceCanvas().CopyRect(0, 0, Picture, {0, 0, Picture.Width(), Picture.Height()});
  Probe.show();
  EXPECT_EQ(Differences(Probe.grab().toImage(), Picture), 0);

  // Painted piece by piece, the pieces meet without a seam.
  QPixmap Screen(static_cast<int>(101 * Scale), static_cast<int>(67 * Scale));
  Screen.setDevicePixelRatio(Scale);
  Screen.fill(Qt::magenta);
  for (int Y = 0; Y < 67; Y += 13)
    for (int X = 0; X < 101; X += 17) Probe.PaintOn(Screen, {X, Y, 17, 13});
  EXPECT_EQ(Differences(Screen.toImage(), Picture), 0);
}

TEST(QtWindow, ShowPaintsTheDamageAtOnceAndNothingElse) {
  TProbe Probe(80, 60);
  const std::array Strips{TRect{10, 10, 40, 11}, TRect{10, 30, 40, 31}, TRect{70, 50, 500, 500},
                          TRect{5, 5, 5, 9}};
  Probe.Window().Show(Strips);
  EXPECT_TRUE(Probe.Painted.empty()) << "a hidden widget";
  Probe.show();
  QApplication::processEvents();
  Probe.Painted.clear();

  // All of the buffer changes, and only the strips may reach the screen.
  TCanvas& Canvas = Probe.Window().DeviceCanvas();
  Canvas.Brush.Color = clYellow;
  Canvas.FillRect({0, 0, 1000, 1000});
  Probe.Window().Show(Strips);
  ASSERT_EQ(Probe.Painted.size(), 1U);
  const double Scale = Probe.devicePixelRatioF();
  const int Shared = Scale == std::floor(Scale) ? 0 : 1;
  QRegion Allowed;
  for (const QRect& Strip : {QRect(10, 10, 30, 1), QRect(10, 30, 30, 1), QRect(70, 50, 10, 10)})
    Allowed += Strip.adjusted(-Shared, -Shared, Shared, Shared) & Probe.rect();
  EXPECT_EQ(Probe.Painted[0], Allowed);
  if (Scale == 1) {  // Qt's platform without a display grabs only such windows whole
    const QImage Screen = Probe.screen()->grabWindow(Probe.winId()).toImage();
    EXPECT_EQ(Screen.pixelColor(20, 10), QColor(Qt::yellow));
    EXPECT_EQ(Screen.pixelColor(75, 55), QColor(Qt::yellow));
    EXPECT_EQ(Screen.pixelColor(20, 11), QColor(Qt::black));
    EXPECT_EQ(Screen.pixelColor(40, 30), QColor(Qt::black));
  }

  // Nothing to show is no paint; with a paint event under way the rest is left to it.
  Probe.Window().Show(std::array{TRect{100, 100, 120, 120}});
  EXPECT_EQ(Probe.Painted.size(), 1U);
  Probe.Window().SetPaintPending(true);
  Probe.Window().Show(Strips);
  EXPECT_EQ(Probe.Painted.size(), 1U);
  QApplication::processEvents();
  EXPECT_EQ(Probe.Painted.size(), 2U);
}

TEST(QtWindow, BufferFollowsSizeAndScale) {
  TQtFontEngine Fonts;
  TQtControlWindow Window(Fonts, 1, nullptr);
  Window.Resize(20, 10);
  Window.Canvas().Brush.Color = clRed;
  Window.Canvas().FillRect({0, 0, 20, 10});
  Window.Resize(30, 5);
  EXPECT_EQ(Window.Buffer().Pixel(19, 4), clRed) << "kept";
  EXPECT_EQ(Window.Buffer().Pixel(20, 4), clBlack);

  struct TCase {
    double Scale;
    int32_t Width, Height;
  };
  constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
  for (const TCase& Case : {TCase{1.25, 38, 7},
                            {1.5, 45, 8},
                            {1.1, 33, 6},
                            {2, 60, 10},
                            {NaN, 30, 5},
                            {0, 3, 1},
                            {1e9, 480, 80}}) {
    Window.SetScale(Case.Scale);
    EXPECT_EQ(Window.Buffer().Width(), Case.Width) << Case.Scale;
    EXPECT_EQ(Window.Buffer().Height(), Case.Height) << Case.Scale;
  }
  // Control pixels are twice as large at scale 2.
  Window.SetScale(2);
  Window.Canvas().Brush.Color = clBlue;
  Window.Canvas().FillRect({3, 1, 4, 2});
  EXPECT_EQ(Window.Buffer().Pixel(6, 2), clBlue);
  EXPECT_EQ(Window.Buffer().Pixel(7, 3), clBlue);
  EXPECT_NE(Window.Buffer().Pixel(8, 3), clBlue);
  Window.Resize(-5, std::numeric_limits<int32_t>::min());
  EXPECT_TRUE(Window.Buffer().Empty());
  Window.Show(std::array{TRect{0, 0, 10, 10}});  // no widget, no effect
}

}  // namespace
