// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <platform/raster/raster_canvas.h>
#include <platform/raster/text_drawing.h>

#include "pictures.h"

namespace zav {
namespace {

// Every character is a box of 2 x 3 pixels; the mask hangs over by one pixel to the left.
class TBoxFont final : public TFontEngine {
 public:
  TSize TextExtent(const TFont&, std::string_view Text) override {
    return {static_cast<int32_t>(Text.size()) * 2, 3};
  }
  TTextMask RenderText(const TFont&, std::string_view) override { return Mask; }

  TTextMask Mask{-1, 1, 3, 2, {255, 0, 128, 0, 255, 64}};
};

TEST(TextDrawing, BlendsByCoverageAndFillsTheGround) {
  for (const TPixelFormat Format : AllFormats) {
    TBoxFont Fonts;
    TBitmap Bitmap(6, 5, Format);
    TRasterCanvas Canvas(Bitmap, &Fonts);
    EXPECT_EQ(Canvas.TextExtent("ab"), (TSize{4, 3}));
    Canvas.Font.Color = RgbColor(255, 99, 0);
    Canvas.Pen.Mode = TPenMode::pmXor;  // has no say in text
    Canvas.Brush = {.Color = RgbColor(0, 0, 200), .Style = TBrushStyle::bsSolid};
    Canvas.TextOut(2, 1, "a");
    TBitmap Expected(6, 5, Format);
    for (int32_t Y = 1; Y < 4; ++Y) {
      for (int32_t X = 2; X < 4; ++X) Expected.SetPixel(X, Y, Canvas.Brush.Color);
    }
    const TColor Below = Expected.Pixel(2, 2);
    const auto Mixed = [&](int32_t Coverage) {
      const auto Mix = [&](int32_t A, int32_t B) {
        return static_cast<uint8_t>(std::lround(A + (B - A) * Coverage / 255.0));
      };
      return RgbColor(Mix(0, 255), Mix(0, 99), Mix(BlueOf(Below), 0));
    };
    Expected.SetPixel(1, 2, Canvas.Font.Color);
    Expected.SetPixel(2, 3, Canvas.Font.Color);
    Expected.SetPixel(3, 2, Mixed(128));
    Expected.SetPixel(3, 3, Mixed(64));
    EXPECT_EQ(Bitmap, Expected);

    Bitmap = TBitmap(6, 5, Format);
    Canvas.Brush.Style = TBrushStyle::bsClear;
    Canvas.TextOut(0, -2, "a");  // only a pixel of the second row is in view
    EXPECT_EQ(Bitmap.Pixel(0, 0), TBitmap(Expected).Pixel(2, 3));
    EXPECT_EQ(Bitmap.Pixel(2, 0), clBlack);
    Fonts.Mask.Coverage.pop_back();
    const TBitmap Before = Bitmap;
    Canvas.TextOut(2, 2, "a");
    TRasterCanvas(Bitmap).TextOut(2, 2, "a");
    EXPECT_EQ(Bitmap, Before) << "a damaged mask, or no fonts at all, draw nothing";
  }
}

// The ground of turned text is the text's box, turned about its top left corner.
TEST(TextDrawing, GroundTurnsWithTheText) {
  const std::pair<int32_t, TRect> Quarters[] = {
      {0, {10, 10, 16, 13}}, {90, {10, 4, 13, 10}}, {-180, {4, 7, 10, 10}}, {630, {7, 10, 10, 16}}};
  for (const auto& [Direction, Box] : Quarters) {
    TBitmap Bitmap(20, 20, TPixelFormat::pf15bit);
    FillTurnedBox(Bitmap, {10, 10}, {6, 3}, Direction, clWhite);
    TBitmap Expected(20, 20, TPixelFormat::pf15bit);
    TRasterCanvas(Expected).FillRect(Box);
    EXPECT_EQ(AsText(Bitmap), AsText(Expected)) << Direction;
  }
  for (int32_t Direction = -360; Direction <= 360; Direction += 7) {
    TBitmap Bitmap(100, 100, TPixelFormat::pf32bit);
    FillTurnedBox(Bitmap, {50, 50}, {40, 10}, Direction, clWhite);
    int32_t Pixels = 0;
    const double Angle = Direction * 3.14159265358979 / 180;
    for (int32_t Y = 0; Y < 100; ++Y) {
      for (int32_t X = 0; X < 100; ++X) {
        if (Bitmap.Pixel(X, Y) == clBlack) continue;
        ++Pixels;
        const double U = (X - 49.5) * std::cos(Angle) - (Y - 49.5) * std::sin(Angle);
        const double V = (X - 49.5) * std::sin(Angle) + (Y - 49.5) * std::cos(Angle);
        ASSERT_TRUE(U > -1e-6 && U < 40 + 1e-6 && V > -1e-6 && V < 10 + 1e-6) << Direction;
      }
    }
    EXPECT_NEAR(Pixels, 400, 12) << Direction;
  }
}

}  // namespace
}  // namespace zav
