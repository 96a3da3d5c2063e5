// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <platform/raster/copy.h>

#include <limits>
#include <new>

#include "pictures.h"

namespace zav {
namespace {

// What a colour reads back as after it was stored.
TColor Stored(TColor Color, TPixelFormat Format) {
  if (Format != TPixelFormat::pf15bit) return Color;
  const auto Five = [](uint8_t V) { return static_cast<uint8_t>(V / 8 * 8 + V / 32); };
  return RgbColor(Five(RedOf(Color)), Five(GreenOf(Color)), Five(BlueOf(Color)));
}

TEST(Bitmap, PixelsLieInMemoryAsTold) {
  TBitmap Bitmap(3, 1, TPixelFormat::pf15bit);
  Bitmap.SetPixel(0, 0, RgbColor(0xFF, 0x0F, 0x87));
  EXPECT_EQ(reinterpret_cast<const uint16_t*>(Bitmap.Row(0))[0], 31 << 10 | 1 << 5 | 16);
  EXPECT_EQ(Bitmap.Stride(), 8u);
  Bitmap = TBitmap(3, 1, TPixelFormat::pf24bit);
  Bitmap.SetPixel(1, 0, RgbColor(1, 2, 3));
  EXPECT_EQ(std::vector<uint8_t>(Bitmap.Row(0) + 3, Bitmap.Row(0) + 6),
            (std::vector<uint8_t>{3, 2, 1}));
  EXPECT_EQ(Bitmap.Stride(), 12u);
  Bitmap = TBitmap(1, 1, TPixelFormat::pf32bit);
  EXPECT_EQ(reinterpret_cast<const uint32_t*>(Bitmap.Row(0))[0], 0xFF000000U);
  Bitmap.SetPixel(0, 0, 0x77030201U);
  EXPECT_EQ(reinterpret_cast<const uint32_t*>(Bitmap.Row(0))[0], 0xFF010203U);
}

TEST(Bitmap, ResizingKeepsTheCommonPart) {
  for (const TPixelFormat Format : AllFormats) {
    const TBitmap Before = TRandom(1).Picture(7, 5, Format);
    for (const auto& [Width, Height] :
         {std::pair{9, 3}, std::pair{4, 8}, std::pair{7, 6}, std::pair{0, 5}}) {
      TBitmap After = Before;
      After.SetSize(Width, Height);
      ASSERT_EQ(After.Width(), Width);
      ASSERT_EQ(After.Height(), Height);
      for (int32_t Y = 0; Y < Height; ++Y) {
        for (int32_t X = 0; X < Width; ++X) {
          EXPECT_EQ(After.Pixel(X, Y), X < 7 && Y < 5 ? Before.Pixel(X, Y) : clBlack);
        }
      }
    }
    TBitmap Negative = Before;
    Negative.SetSize(-3, 4);
    EXPECT_EQ(Negative.Width(), 0);
    // 15 bits would just fit the address space, where a sanitizer's allocator gives up.
    if (Format == TPixelFormat::pf15bit) continue;
    TBitmap Huge = Before;
    constexpr int32_t Most = std::numeric_limits<int32_t>::max();
    EXPECT_THROW(Huge.SetSize(Most, Most), std::bad_alloc);
    EXPECT_EQ(Huge, Before);
  }
}

TEST(Bitmap, OutsidePixelsAreNotThere) {
  TBitmap Bitmap(2, 2, TPixelFormat::pf32bit);
  const TBitmap Before = Bitmap;
  for (const auto& [X, Y] :
       {std::pair{-1, 0}, std::pair{2, 0}, std::pair{0, -1}, std::pair{0, 2}}) {
    Bitmap.SetPixel(X, Y, clRed);
    EXPECT_EQ(Bitmap.Pixel(X, Y), 0u);
  }
  EXPECT_EQ(Bitmap, Before);
}

// Every pair of formats, at every alignment of a vector loop's head and tail.
TEST(Bitmap, ConversionAndCopyGiveStoredColours) {
  TRandom Random(2);
  for (const TPixelFormat From : AllFormats) {
    for (const TPixelFormat To : AllFormats) {
      const TBitmap Source = Random.Picture(70, 6, From);
      const TBitmap Whole = Source.Converted(To);
      for (int32_t Round = 0; Round < 60; ++Round) {
        const TBitmap Before = Random.Picture(50, 7, To);
        TBitmap Dest = Before;
        const int32_t X = Random.Whole(-30, 60);
        const int32_t Y = Random.Whole(-5, 8);
        const TRect Part{Random.Whole(-9, 50), Random.Whole(-4, 6), Random.Whole(0, 90),
                         Random.Whole(0, 9)};
        CopyPixels(Dest, X, Y, Source, Part);
        for (int32_t Row = 0; Row < 7; ++Row) {
          for (int32_t Column = 0; Column < 50; ++Column) {
            const TPoint S{Column - X + Part.Left, Row - Y + Part.Top};
            const bool Copied = S.X >= std::max(Part.Left, 0) && S.X < std::min(Part.Right, 70) &&
                                S.Y >= std::max(Part.Top, 0) && S.Y < std::min(Part.Bottom, 6);
            ASSERT_EQ(Dest.Pixel(Column, Row),
                      Copied ? Stored(Source.Pixel(S.X, S.Y), To) : Before.Pixel(Column, Row));
            ASSERT_TRUE(!Copied || Whole.Pixel(S.X, S.Y) == Dest.Pixel(Column, Row));
          }
        }
      }
    }
  }
}

TEST(Bitmap, CopyWithinOneBitmapMayOverlap) {
  const TBitmap Before = TRandom(3).Picture(20, 20, TPixelFormat::pf15bit);
  for (const TPoint Shift : {TPoint{3, 4}, TPoint{-3, -4}, TPoint{5, 0}, TPoint{0, -6}}) {
    TBitmap Moved = Before;
    CopyPixels(Moved, 6 + Shift.X, 6 + Shift.Y, Moved, {6, 6, 14, 14});
    TBitmap Expected = Before;
    CopyPixels(Expected, 6 + Shift.X, 6 + Shift.Y, Before, {6, 6, 14, 14});
    EXPECT_EQ(Moved, Expected);
  }
  TBitmap Far = Before;
  constexpr int32_t Most = std::numeric_limits<int32_t>::max();
  CopyPixels(Far, Most, -Most, Before, {-Most, -Most, Most, Most});
  EXPECT_EQ(Far, Before);
}

}  // namespace
}  // namespace zav
