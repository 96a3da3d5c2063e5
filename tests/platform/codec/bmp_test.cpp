// BMP files made by hand, byte for byte, in every layout.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <platform/codec/image_file.h>

#include "damage.h"

namespace zav::test {
namespace {

using TWords = std::vector<uint32_t>;
constexpr auto Bmp = TImageKind::ikBmp;

void Put(TBytes& Bytes, uint32_t Value, int Count) {
  for (int i = 0; i < Count; ++i) Bytes.push_back(static_cast<uint8_t>(Value >> (8 * i)));
}
void Set(TBytes& Bytes, size_t At, uint32_t Value, int Count = 4) {
  for (int i = 0; i < Count; ++i) {
    Bytes[At + static_cast<size_t>(i)] = static_cast<uint8_t>(Value >> (8 * i));
  }
}

struct TBmpFile {
  const char* Title;
  uint32_t InfoSize;
  int32_t Width, Height;
  uint32_t Bits, Compression;
  TWords Masks;    // behind a header of 40 bytes, inside larger ones
  TWords Palette;  // 0xRRGGBB
  TBytes Pixels;
  TWords Expected;  // 0xRRGGBB, rows from the top

  TBytes Bytes() const {
    TBytes File{'B', 'M', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    Put(File, InfoSize, 4);
    const int Half = InfoSize == 12 ? 2 : 4;
    Put(File, static_cast<uint32_t>(Width), Half);
    Put(File, static_cast<uint32_t>(Height), Half);
    Put(File, 1, 2);
    Put(File, Bits, 2);
    if (InfoSize > 16) {
      for (const uint32_t Field :
           {Compression, 0u, 0u, 0u, static_cast<uint32_t>(Palette.size())}) {
        Put(File, Field, 4);
      }
      Put(File, 0, 4);
      for (const uint32_t Mask : Masks) Put(File, Mask, 4);
      if (14 + InfoSize > File.size()) File.resize(14 + InfoSize);
    }
    for (const uint32_t Color : Palette) Put(File, Color, InfoSize == 12 ? 3 : 4);
    Set(File, 10, static_cast<uint32_t>(File.size()));
    File.insert(File.end(), Pixels.begin(), Pixels.end());
    Set(File, 2, static_cast<uint32_t>(File.size()));
    return File;
  }
};

const TWords Rgbw{0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF};

const std::vector<TBmpFile> Files = {
    {"1 bit, rows of more than a byte, bottom up",
     40,
     10,
     2,
     1,
     0,
     {},
     {0x102030, 0xFFEEDD},
     {0b01010101, 0b01000000, 0, 0, 0b11110000, 0b10111111, 0xFF, 0xFF},
     {0xFFEEDD, 0xFFEEDD, 0xFFEEDD, 0xFFEEDD, 0x102030, 0x102030, 0x102030,
      0x102030, 0xFFEEDD, 0x102030, 0x102030, 0xFFEEDD, 0x102030, 0xFFEEDD,
      0x102030, 0xFFEEDD, 0x102030, 0xFFEEDD, 0x102030, 0xFFEEDD}},
    {"4 bits, short palette, an index without colour is black",
     40,
     3,
     1,
     4,
     0,
     {},
     Rgbw,
     {0x23, 0x90, 0, 0},
     {0x0000FF, 0xFFFFFF, 0}},
    {"8 bits, core header, table cut by the pixels",
     12,
     2,
     2,
     8,
     0,
     {},
     Rgbw,
     {0, 1, 9, 9, 2, 3, 9, 9},
     {0x0000FF, 0xFFFFFF, 0xFF0000, 0x00FF00}},
    {"8 bits, OS/2 header of 64 bytes, top down",
     64,
     2,
     -2,
     8,
     0,
     {},
     Rgbw,
     {0, 1, 9, 9, 2, 3, 9, 9},
     Rgbw},
    {"24 bits, OS/2 header of 16 bytes", 16, 1, 1, 24, 0, {}, {}, {1, 2, 3, 0}, {0x030201}},
    {"16 bits are 5, 5, 5, the highest is no colour",
     40,
     3,
     1,
     16,
     0,
     {},
     {},
     {0x00, 0xFC, 0xE0, 0x03, 0x11, 0x46, 0, 0},
     {0xFF0000, 0x00FF00, 0x8C848C}},
    {"16 bits, masks 5, 6, 5 behind the header",
     40,
     2,
     1,
     16,
     3,
     {0xF800, 0x07E0, 0x001F},
     {},
     {0x20, 0xF8, 0xFF, 0x07},
     {0xFF0400, 0x00FFFF}},
    {"16 bits, masks 4, 4, 4 in header version 4",
     108,
     2,
     1,
     16,
     3,
     {0x0F00, 0x00F0, 0x000F},
     {},
     {0x81, 0xF7, 0x0F, 0x00},
     {0x778811, 0x0000FF}},
    {"24 bits with padding, bottom up",
     40,
     1,
     2,
     24,
     0,
     {},
     {},
     {1, 2, 3, 0xEE, 4, 5, 6, 0xEE},
     {0x060504, 0x030201}},
    {"32 bits, the fourth byte is no colour, header version 5",
     124,
     2,
     -1,
     32,
     0,
     {},
     {},
     {1, 2, 3, 0, 4, 5, 6, 0x80},
     {0x030201, 0x060504}},
    {"32 bits, red first, header of 52 bytes",
     52,
     1,
     1,
     32,
     3,
     {0xFF, 0xFF00, 0xFF0000},
     {},
     {1, 2, 3, 4},
     {0x010203}},
    {"32 bits, 10 a channel and a mask for alpha",
     40,
     1,
     1,
     32,
     6,
     {0x3FF00000, 0x000FFC00, 0x000003FF, 0xC0000000},
     {},
     {0xFF, 0x23, 0x00, 0x20},
     {0x8002FF}},
    {"32 bits, a channel of one bit and none",
     40,
     2,
     1,
     32,
     3,
     {0x80000000, 0, 1},
     {},
     {1, 0, 0, 0, 0, 0xFF, 0, 0x80},
     {0x0000FF, 0xFF0000}},
    // Bottom row: run, literals of odd number, run over the edge; then a jump by 1, 1 from the
    // second row; the top row has one pixel behind the jump. Skipped pixels have colour 0.
    {"8 bits, runs",
     40,
     6,
     3,
     8,
     1,
     {},
     Rgbw,
     {2, 1, 0, 3, 3, 2, 3, 0, 9, 1, 0, 0, 1, 2, 0, 2, 1, 1, 2, 3, 0, 1},
     {0xFF0000, 0xFF0000, 0xFFFFFF, 0xFFFFFF, 0xFF0000, 0xFF0000,  //
      0x0000FF, 0xFF0000, 0xFF0000, 0xFF0000, 0xFF0000, 0xFF0000,  //
      0x00FF00, 0x00FF00, 0xFFFFFF, 0x0000FF, 0xFFFFFF, 0x00FF00}},
    {"8 bits, runs without end code", 40, 2, 1, 8, 1, {}, Rgbw, {2, 3, 0, 0}, {0xFFFFFF, 0xFFFFFF}},
    {"4 bits, runs",
     40,
     7,
     2,
     4,
     2,
     {},
     Rgbw,
     {3, 0x12, 0, 4, 0x30, 0x12, 0, 0, 0, 5, 0x12, 0x30, 0x10, 0, 40, 0x23, 0, 1},
     {0x00FF00, 0x0000FF, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF,  //
      0x00FF00, 0x0000FF, 0x00FF00, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF}},
};

TEST(Bmp, EveryLayoutGivesItsPixels) {
  for (const TBmpFile& File : Files) {
    SCOPED_TRACE(File.Title);
    const TBytes Bytes = File.Bytes();
    const TSize Size{File.Width, std::abs(File.Height)};
    const TBytes Head(Bytes.begin(), Bytes.end() - static_cast<ptrdiff_t>(File.Pixels.size()));
    EXPECT_EQ(ReadImageSize(Head, Bmp, "name"), Size);
    const TBitmap Bitmap = DecodeImage(Bytes, Bmp, "name");
    ASSERT_EQ((TSize{Bitmap.Width(), Bitmap.Height()}), Size);
    TBitmap Expected(Size.Width, Size.Height, TPixelFormat::pf32bit);
    for (size_t i = 0; i < File.Expected.size(); ++i) {
      const uint32_t Rgb = File.Expected[i];
      const auto At = static_cast<int32_t>(i);
      Expected.SetPixel(At % Size.Width, At / Size.Width,
                        RgbColor(static_cast<uint8_t>(Rgb >> 16), static_cast<uint8_t>(Rgb >> 8),
                                 static_cast<uint8_t>(Rgb)));
    }
    EXPECT_EQ(Bitmap, Expected);
  }
}

TEST(BmpDamage, CutFilesAreRefused) {
  for (const TBmpFile& File : Files) {
    SCOPED_TRACE(File.Title);
    TBytes Bytes = File.Bytes();
    ExpectNoCutFileLoads(Bytes, Bmp, 1);
    // Also when the header does not tell the file's length; a missing end code is then tolerated.
    Set(Bytes, 2, 0);
    const bool Runs = File.Compression == 1 || File.Compression == 2;
    ExpectNoCutFileLoads(Bytes, Bmp, Runs ? 4 : 1);
  }
}

TEST(BmpDamage, WrongBytesAreHarmless) {
  for (const TBmpFile& File : Files) DecodeWithWrongBytes(File.Bytes(), Bmp, 1500);
}

TEST(BmpDamage, HeadersAreChecked) {
  const struct {
    const char* Reason;
    size_t At;
    uint32_t Value;
  } Cases[] = {
      {"not a BMP file", 0, 0x4D41},
      {"unknown BMP header", 14, 41},
      {"no valid picture size", 18, 0},
      {"no valid picture size", 18, 0xFFFFFFFE},
      {"no valid picture size", 22, 0},
      {"no valid picture size", 22, 0x80000000},
      {"too large", 18, 0x7FFFFFFF},
      {"too large", 22, 0x80000001},
      {"2 bits a pixel", 28, 2},
      {"compression 5 with 8 bits", 30, 5},
      {"compression 2 with 8 bits", 30, 2},
      {"begin inside the header", 10, 20},
      {"ends early", 10, 0xFFFFFFFF},
      {"ends early", 2, 0xFFFFFFFF},
      {"colour table is missing", 10, 54 + 3},
  };
  const TBytes Good = TBmpFile{"", 40, 2, 1, 8, 0, {}, Rgbw, {0, 1, 0, 0}, {}}.Bytes();
  for (const auto& Case : Cases) {
    TBytes Bytes = Good;
    Set(Bytes, Case.At, Case.Value);
    EXPECT_NE(Refusal(Bytes, Bmp).find(Case.Reason), std::string::npos)
        << Case.Reason << " is not told by: " << Refusal(Bytes, Bmp);
  }
}

TEST(BmpDamage, CodesAndMasksAreChecked) {
  const struct {
    const char* Reason;
    TBmpFile File;
  } Cases[] = {
      {"out of the picture", {"", 40, 2, 1, 8, 1, {}, Rgbw, {0, 2, 3, 0, 0, 1}, {}}},
      {"out of the picture", {"", 40, 2, 1, 8, 1, {}, Rgbw, {0, 2, 0, 2, 0, 1}, {}}},
      {"out of the picture", {"", 40, 2, 1, 8, 1, {}, Rgbw, {0, 0, 1, 1, 0, 1}, {}}},
      {"inside its pixels", {"", 40, 2, 2, 8, 1, {}, Rgbw, {2, 1, 0, 0}, {}}},
      {"inside its pixels", {"", 40, 9, 1, 4, 2, {}, Rgbw, {0, 9, 0x12, 0x12}, {}}},
      {"masks", {"", 40, 1, 1, 16, 3, {0xF0F0, 0x0F00, 0x000F}, {}, {0, 0, 0, 0}, {}}},
      {"masks", {"", 40, 1, 1, 16, 3, {0x10000, 0x0F00, 0x000F}, {}, {0, 0, 0, 0}, {}}},
      {"masks", {"", 40, 1, 1, 32, 3, {0xFF00, 0xFF00, 0x000F}, {}, {0, 0, 0, 0}, {}}},
      {"masks", {"", 40, 1, 1, 32, 3, {0, 0, 0}, {}, {0, 0, 0, 0}, {}}},
      {"compression 3", {"", 64, 1, 1, 16, 3, {}, {}, {0, 0, 0, 0}, {}}},
  };
  for (const auto& Case : Cases) {
    const std::string Reason = Refusal(Case.File.Bytes(), Bmp);
    EXPECT_NE(Reason.find(Case.Reason), std::string::npos)
        << Case.Reason << " is not told by: " << Reason;
  }
}

}  // namespace
}  // namespace zav::test
