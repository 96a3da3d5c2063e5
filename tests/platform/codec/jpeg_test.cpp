// JPEG files encoded here by libjpeg: their pixels, and what happens to damaged ones.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>

#include <platform/codec/image_file.h>

#include "jpeg_encoder.h"

namespace zav::test {
namespace {

constexpr auto Jpeg = TImageKind::ikJpeg;

const std::vector<TJpegKind> Kinds = {
    {.Title = "colour", .Size = {61, 47}},
    {.Title = "one pixel", .Size = {1, 1}},
    {.Title = "narrow", .Size = {3, 40}},
    {.Title = "colours at half resolution", .Size = {61, 47}, .Sampling = 2},
    {.Title = "grey", .Size = {33, 17}, .Colors = JCS_GRAYSCALE, .Components = 1},
    {.Title = "progressive", .Size = {61, 47}, .Progressive = true},
    {.Title = "progressive, half", .Size = {62, 48}, .Progressive = true, .Sampling = 2},
    {.Title = "progressive grey",
     .Size = {20, 30},
     .Colors = JCS_GRAYSCALE,
     .Components = 1,
     .Progressive = true},
    {.Title = "restart marks", .Size = {61, 47}, .RestartRows = 1},
    {.Title = "a scan for each colour", .Size = {61, 47}, .Sampling = 2, .Separate = true},
    {.Title = "arithmetic coding", .Size = {61, 47}, .Arithmetic = true},
};

TEST(Jpeg, EveryKindGivesItsPixels) {
  for (const TJpegKind& Kind : Kinds) {
    SCOPED_TRACE(Kind.Title);
    const TBytes File = EncodeSmooth(Kind);
    EXPECT_EQ(ReadImageSize(File, Jpeg, "name"), Kind.Size);
    const TBitmap Bitmap = DecodeImage(File, Jpeg, "name");
    ASSERT_EQ((TSize{Bitmap.Width(), Bitmap.Height()}), Kind.Size);
    ASSERT_EQ(Bitmap.PixelFormat(), TPixelFormat::pf32bit);
    int Worst = 0;
    for (int Y = 0; Y < Kind.Size.Height; ++Y) {
      for (int X = 0; X < Kind.Size.Width; ++X) {
        const auto Truth = SmoothPixel(Kind.Size, X, Y);
        const size_t Grey = Kind.Components == 1 ? 0 : 1;
        const uint8_t* Pixel = Bitmap.Row(Y) + size_t{4} * static_cast<size_t>(X);
        for (size_t c = 0; c < 3; ++c) {
          Worst = std::max(Worst, std::abs(Pixel[2 - c] - Truth[c * Grey]));
        }
        ASSERT_EQ(Pixel[3], 255);
      }
    }
    EXPECT_LE(Worst, 7);
  }
}

TEST(JpegDamage, CutFilesAreRefused) {
  for (const TJpegKind& Kind : Kinds) {
    SCOPED_TRACE(Kind.Title);
    ExpectNoCutFileLoads(EncodeSmooth(Kind), Jpeg, 1);
  }
}

TEST(JpegDamage, WrongBytesAreHarmless) {
  for (const TJpegKind& Kind : Kinds) DecodeWithWrongBytes(EncodeSmooth(Kind), Jpeg, 400);
}

size_t MarkAt(const TBytes& File, uint8_t Mark) {
  for (size_t i = 0; i + 1 < File.size(); ++i) {
    if (File[i] == 0xFF && File[i + 1] == Mark) return i;
  }
  ADD_FAILURE() << "no mark " << int{Mark};
  return 0;
}

TEST(JpegDamage, PixelsOutOfStepAreRefused) {
  const TBytes Good = EncodeSmooth({.Title = "", .Size = {200, 200}, .RestartRows = 5});
  TBytes Exchanged = Good;  // two restart marks out of order
  Exchanged[MarkAt(Good, 0xD0) + 1] = 0xD3;
  EXPECT_NE(Refusal(Exchanged, Jpeg), "");

  // Bytes left over behind the pixels: padding is harmless, pixels are not.
  for (const bool Padding : {true, false}) {
    TBytes Longer = Good;
    TBytes Extra(100, 0);
    for (size_t i = 0; i < Extra.size() && !Padding; ++i) Extra[i] = static_cast<uint8_t>(i);
    Longer.insert(Longer.end() - 2, Extra.begin(), Extra.end());
    EXPECT_EQ(Refusal(Longer, Jpeg).empty(), Padding) << Refusal(Longer, Jpeg);
  }
}

TEST(JpegDamage, OddButWholeFilesLoad) {
  TBytes File = EncodeSmooth({.Title = "", .Size = {40, 40}});
  File.insert(File.end(), 5000, 0x5A);  // something else behind the end mark
  const TBytes Junk{1, 2, 3};
  File.insert(File.begin() + static_cast<ptrdiff_t>(MarkAt(File, 0xDB)), Junk.begin(), Junk.end());
  File[MarkAt(File, 0xE0) + 9] = 9;  // an unknown version
  // An orientation tag that asks for a quarter turn.
  const TBytes Exif{0xFF, 0xE1, 0,    34,   'E', 'x', 'i', 'f', 0, 0, 'M', 'M', 0, 42, 0, 0, 0, 8,
                    0,    1,    0x01, 0x12, 0,   3,   0,   0,   0, 1, 0,   6,   0, 0,  0, 0, 0, 0};
  File.insert(File.begin() + 2, Exif.begin(), Exif.end());
  EXPECT_EQ(Refusal(File, Jpeg), "");
  const TColor Corner = DecodeImage(File, Jpeg, "name").Pixel(0, 0);
  EXPECT_NEAR(RedOf(Corner), SmoothPixel({40, 40}, 0, 0)[0], 7);
}

TEST(JpegDamage, UnsupportedKindsAreNamed) {
  EXPECT_NE(
      Refusal(EncodeSmooth({.Title = "", .Size = {9, 9}, .Colors = JCS_CMYK, .Components = 4}),
              Jpeg)
          .find("CMYK"),
      std::string::npos);
  EXPECT_NE(
      Refusal(EncodeSmooth({.Title = "", .Size = {9, 9}, .Colors = JCS_UNKNOWN, .Components = 2}),
              Jpeg)
          .find("2 colour components"),
      std::string::npos);
  EXPECT_NE(Refusal({}, Jpeg), "");
  EXPECT_NE(Refusal({'B', 'M'}, Jpeg), "");
}

// Sets the size in the frame header.
TBytes WithSize(TBytes File, uint8_t Frame, int Width, int Height) {
  const size_t At = MarkAt(File, Frame) + 5;
  const int Values[] = {Height >> 8, Height, Width >> 8, Width};
  for (size_t i = 0; i < 4; ++i) File[At + i] = static_cast<uint8_t>(Values[i]);
  return File;
}

TEST(JpegDamage, HugePromisesAreRefusedUnread) {
  const TBytes File = EncodeSmooth({.Title = "", .Size = {40, 40}});
  const TBytes TooLarge = WithSize(File, 0xC0, 8001, 8000);
  EXPECT_EQ(ReadImageSize(TooLarge, Jpeg, "name"), (TSize{8001, 8000}));
  EXPECT_NE(Refusal(TooLarge, Jpeg).find("too large (8001 x 8000"), std::string::npos);
  EXPECT_NE(Refusal(WithSize(File, 0xC0, 8000, 8000), Jpeg).find("too short"), std::string::npos);
}

TEST(JpegDamage, ScansAreCounted) {
  const TBytes Good = EncodeSmooth({.Title = "", .Size = {40, 40}, .Separate = true});
  const TBytes Mark{0xFF, 0xDA};
  const auto Last = std::find_end(Good.begin(), Good.end(), Mark.begin(), Mark.end());
  TBytes Missing(Good.begin(), Last);
  Missing.insert(Missing.end(), {0xFF, 0xD9});
  EXPECT_NE(Refusal(Missing, Jpeg).find("colour component is missing"), std::string::npos);

  // One is repeated more often than any encoder does.
  TBytes Many = Good;
  const TBytes Scan(Last, Good.end() - 2);
  for (int i = 0; i < 110; ++i) Many.insert(Many.end() - 2, Scan.begin(), Scan.end());
  EXPECT_NE(Refusal(Many, Jpeg).find("too many scans"), std::string::npos) << Refusal(Many, Jpeg);
}

}  // namespace
}  // namespace zav::test
