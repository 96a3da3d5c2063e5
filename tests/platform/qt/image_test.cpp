// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QColor>
#include <QPainter>

#include <platform/qt/qt_image.h>

using namespace zav;

namespace {

TEST(QtImage, WrapsEveryFormatWithoutACopy) {
  EXPECT_TRUE(WrapBitmap(TBitmap()).isNull());
  for (const TPixelFormat Format :
       {TPixelFormat::pf15bit, TPixelFormat::pf24bit, TPixelFormat::pf32bit}) {
    // An odd width, so that rows are padded.
    TBitmap Bitmap(7, 3, Format);
    for (int32_t Y = 0; Y < 3; ++Y)
      for (int32_t X = 0; X < 7; ++X)
        Bitmap.SetPixel(X, Y,
                        RgbColor(static_cast<uint8_t>(X << 3), static_cast<uint8_t>(Y << 6), 255));
    const TBitmap Before = Bitmap;
    const auto Shows = [](const QImage& Image, const TBitmap& Expected) {
      for (int32_t Y = 0; Y < 3; ++Y) {
        for (int32_t X = 0; X < 7; ++X) {
          const TColor Color = Expected.Pixel(X, Y);
          if (Image.pixel(X, Y) != qRgb(RedOf(Color), GreenOf(Color), BlueOf(Color))) return false;
        }
      }
      return true;
    };
    EXPECT_TRUE(Shows(WrapBitmap(Before), Before));
    EXPECT_TRUE(Shows(WrapBitmap(ToBitmap(WrapBitmap(Before))), Before));

    QImage Drawn = WrapBitmap(Bitmap);
    {
      QPainter Painter(&Drawn);
      Painter.fillRect(QRect(5, 1, 2, 1), Qt::red);
    }
    EXPECT_EQ(Bitmap.Pixel(5, 1), clRed);
    EXPECT_EQ(Bitmap.Pixel(4, 1), Before.Pixel(4, 1));

    const TBitmap& Fixed = Bitmap;
    const TBitmap Kept = Bitmap;
    QImage Copy = WrapBitmap(Fixed);
    Copy.fill(Qt::green);
    EXPECT_EQ(Bitmap, Kept);
  }
}

TEST(QtImage, TransparentPartsShowBlack) {
  QImage Image(2, 1, QImage::Format_ARGB32);
  Image.setPixelColor(0, 0, QColor(200, 100, 50, 0));
  Image.setPixelColor(1, 0, QColor(200, 100, 50, 255));
  const TBitmap Bitmap = ToBitmap(Image);
  EXPECT_EQ(Bitmap.Pixel(0, 0), clBlack);
  EXPECT_EQ(Bitmap.Pixel(1, 0), RgbColor(200, 100, 50));
  EXPECT_TRUE(ToBitmap(QImage()).Empty());
}

}  // namespace
