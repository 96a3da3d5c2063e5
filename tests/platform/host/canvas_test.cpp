// Frames, and the canvas of control pixels on one of device pixels.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <platform/host/frame.h>
#include <support/recording_canvas.h>
#include <support/test_host.h>

namespace zav {
namespace {

constexpr TColor Light = clWhite, Shadow = clGray, Dark = clBlue, Face = clSilver;

// The bitmap as text: the letter of each colour, "." for the ground.
std::string PictureOf(const TBitmap& Bitmap) {
  const std::pair<TColor, char> letters[] = {{clWhite, 'L'},  {0x848484, 'S'}, {clBlue, 'D'},
                                             {0xC6C6C6, 'F'}, {clBlack, 'B'},  {clRed, '.'}};
  std::string text;
  for (int32_t y = 0; y < Bitmap.Height(); ++y) {
    for (int32_t x = 0; x < Bitmap.Width(); ++x) {
      char letter = '?';
      for (const auto& [color, c] : letters) letter = Bitmap.Pixel(x, y) == color ? c : letter;
      text += letter;
    }
    text += '\n';
  }
  return text;
}

std::string FramePicture(TFrameStyle Style, int32_t Width, int32_t Height, double Scale = 1) {
  TTestFonts fonts;
  TTestWindow window(fonts, Scale);
  window.Resize(Width, Height);
  TCanvas& canvas = window.Canvas();
  canvas.Brush = {clRed, TBrushStyle::bsSolid};
  canvas.FillRect({0, 0, Width, Height});
  canvas.Brush.Style = TBrushStyle::bsClear;
  const TBrush before = canvas.Brush;
  DrawFrame(canvas, Style, 0, 0, Width - 1, Height - 1, Light, Face, Shadow, Dark, clBlack);
  EXPECT_EQ(canvas.Brush, before);
  return PictureOf(window.Buffer());
}

TEST(Frame, Styles) {
  EXPECT_EQ(FramePicture(TFrameStyle::fsNone, 3, 2), "...\n...\n");
  EXPECT_EQ(FramePicture(TFrameStyle::fsSunken, 6, 5), "SSSSSL\nSDDDFL\nSD..FL\nSFFFFL\nLLLLLL\n");
  EXPECT_EQ(FramePicture(TFrameStyle::fsRaised, 6, 5), "LLLLLB\nLFFFSB\nLF..SB\nLSSSSB\nBBBBBB\n");
  EXPECT_EQ(FramePicture(TFrameStyle::fsSingle, 4, 3), "BBBB\nB..B\nBBBB\n");
  EXPECT_EQ(FramePicture(TFrameStyle::fsEtched, 6, 5), "SSSSSL\nSLLLSL\nSL..SL\nSSSSSL\nLLLLLL\n");
  EXPECT_EQ(FramePicture(static_cast<TFrameStyle>(9), 3, 2), "...\n...\n");
}

TEST(Frame, SmallAndScaled) {
  EXPECT_EQ(FramePicture(TFrameStyle::fsSunken, 1, 1), "L\n");
  EXPECT_EQ(FramePicture(TFrameStyle::fsSunken, 2, 2), "SL\nLL\n");
  EXPECT_EQ(FramePicture(TFrameStyle::fsSunken, 0, 0), "");
  EXPECT_EQ(FramePicture(TFrameStyle::fsSingle, 3, 3, 2),
            "BBBBBB\nBBBBBB\nBB..BB\nBB..BB\nBBBBBB\nBBBBBB\n");
  // Sides of 1.5 pixels end where the next begins, without gaps.
  EXPECT_EQ(FramePicture(TFrameStyle::fsSingle, 4, 3, 1.5),
            "BBBBBB\nBBBBBB\nBB..BB\nBBBBBB\n"
            "BBBBBB\n");
}

// Draws with everything there is.
void DrawAll(TCanvas& Canvas) {
  const TBitmap bitmap(4, 4, TPixelFormat::pf32bit);
  const TPoint points[] = {{1, 1}, {3, 5}, {-7, 9}};
  Canvas.Pen = {clRed, TPenStyle::psDot, TPenMode::pmXor, 3};
  Canvas.Font.Size = 10;
  Canvas.MoveTo(1, 2);
  Canvas.LineTo(3, 4);
  Canvas.Polyline(points);
  Canvas.Polygon(points);
  Canvas.Rectangle(0, 0, 5, 5);
  Canvas.Ellipse(1, 1, 4, 4);
  Canvas.FillRect({1, 1, 3, 3});
  Canvas.TextOut(2, 2, "ab");
  Canvas.CopyRect(1, 3, bitmap, {0, 0, 3, 3});
  Canvas.StretchDraw({1, 1, 5, 5}, bitmap, {0.5, 0, 2, 2}, TStretchMode::smHalftone);
}

TEST(ScaledCanvas, ScalesEverythingAndMoves) {
  TRecordingCanvas device;
  TScaledCanvas canvas(device, 1.5, 100.4, -20);
  DrawAll(canvas);
  const std::string pen = " pen 0000FF dot xor w4";
  EXPECT_EQ(device.Text(),
            "MoveTo 102,-17\n"  // 1.5 -> 2
            "LineTo 104,-14" +
                pen +
                "\n"  // 4.5 -> 4
                "Polyline 102,-18 104,-12 90,-6" +
                pen +
                "\n"  // -10.5 -> -10
                "Polygon 102,-18 104,-12 90,-6" +
                pen +
                " brush FFFFFF\n"
                "Rectangle 100,-20 108,-12" +
                pen +
                " brush FFFFFF\n"
                "Ellipse 102,-18 106,-14" +
                pen +
                " brush FFFFFF\n"
                "FillRect 102,-18 104,-16 brush FFFFFF\n"
                "TextOut 103,-17 \"ab\" font MS Sans Serif 15 000000 brush FFFFFF\n"
                "StretchDraw 102,-16 106,-11 from 0,0 3,3 nearest\n"
                "StretchDraw 102,-18 108,-12 from 0.5,0 2,2 smooth\n");
  EXPECT_EQ(canvas.TextExtent("ab"), (TSize{15, 16})) << "22 and 24 device pixels";
  EXPECT_EQ(canvas.DeviceX(2e9), 2147483647) << "stops at the end of the range";
}

TEST(ScaledCanvas, ChangesNothingAtScaleOne) {
  TRecordingCanvas direct, device;
  DrawAll(direct);
  TScaledCanvas canvas(device, 1);
  DrawAll(canvas);
  EXPECT_EQ(device.Text(), direct.Text());
  EXPECT_EQ(canvas.TextExtent("abc"), device.TextExtent("abc"));
}

}  // namespace
}  // namespace zav
