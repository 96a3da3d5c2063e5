// Image files on disk: the samples, progress and cancelling, saving.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

#include <platform/base/atomic_file.h>
#include <platform/base/file_ops.h>
#include <platform/base/read_file.h>
#include <platform/codec/image_file.h>
#include <support/failing_file_ops.h>
#include <support/temp_folder.h>

#include "jpeg_encoder.h"

namespace zav::test {
namespace {

const std::string Maps = ZAVGEO_SAMPLES "/maps/";

TEST(ImageFile, KindIsToldByTheExtension) {
  EXPECT_EQ(ImageKindOfName("a.b/MAP.JPEG"), TImageKind::ikJpeg);
  EXPECT_EQ(ImageKindOfName("c:\\maps\\m.Jpg"), TImageKind::ikJpeg);
  EXPECT_EQ(ImageKindOfName("m.jpg.bMp"), TImageKind::ikBmp);
  EXPECT_EQ(ImageKindOfName("m.png"), TImageKind::ikUnknown);
  EXPECT_EQ(ImageKindOfName("folder.bmp/m"), TImageKind::ikUnknown);
  EXPECT_THROW(LoadImageFile(Maps + "iceland.bmp", TImageKind::ikUnknown), EInOutError);
}

TEST(ImageFile, SampleMapsLoad) {
  const struct {
    const char* Name;
    TSize Size;
  } Samples[] = {
      {"alps_utm32n.jpg", {1613, 1552}}, {"europe_conic.jpg", {2000, 1500}},
      {"iceland.bmp", {497, 408}},       {"sicily_8bit.bmp", {447, 378}},
      {"world_miller.jpg", {1580, 995}},
  };
  for (const auto& Sample : Samples) {
    const std::string Path = Maps + Sample.Name;
    const TImageKind Kind = ImageKindOfName(Path);
    EXPECT_EQ(ReadImageSize(Path, Kind), Sample.Size);
    const TBitmap Bitmap = LoadImageFile(Path, Kind);
    EXPECT_EQ((TSize{Bitmap.Width(), Bitmap.Height()}), Sample.Size);
  }
  // Real pictures, cut anywhere and by little.
  for (const char* Name : {"world_miller.jpg", "sicily_8bit.bmp"}) {
    const TImageKind Kind = ImageKindOfName(Name);
    const TBytes File = ReadWholeFile(Maps + Name);
    ExpectNoCutFileLoads(File, Kind, File.size() / 23);
    EXPECT_NE(Refusal(TBytes(File.begin(), File.end() - 1), Kind), "");
  }
}

TEST(ImageFile, SizeIsFoundBehindLongHeaders) {
  TTempFolder Folder;
  TBytes File = EncodeSmooth({.Title = "", .Size = {30, 20}});
  TBytes Profile(60002, 'x');
  Profile[0] = 0xFF;
  Profile[1] = 0xE2;
  Profile[2] = 60000 >> 8;
  Profile[3] = 60000 & 255;
  for (int i = 0; i < 3; ++i) File.insert(File.begin() + 2, Profile.begin(), Profile.end());
  const std::string Path = Folder / "profile.jpg";
  WriteWholeFile(Path, std::string(File.begin(), File.end()));
  EXPECT_EQ(ReadImageSize(Path, TImageKind::ikJpeg), (TSize{30, 20}));
  try {
    ReadImageSize(Folder / "none.jpg", TImageKind::ikJpeg);
    FAIL();
  } catch (const EInOutError& Error) {
    EXPECT_EQ(Error.Path(), Folder / "none.jpg");
    EXPECT_EQ(Error.Reason(), SystemReason(ENOENT));
  }
}

TEST(ImageFile, ProgressRisesAndCancels) {
  const TBytes Progressive = EncodeSmooth({.Title = "", .Size = {300, 200}, .Progressive = true});
  const TBytes Baseline = EncodeSmooth({.Title = "", .Size = {300, 200}});
  const struct {
    TBytes File;
    TImageKind Kind;
  } Cases[] = {{Progressive, TImageKind::ikJpeg},
               {Baseline, TImageKind::ikJpeg},
               {ReadWholeFile(Maps + "iceland.bmp"), TImageKind::ikBmp}};
  for (const auto& Case : Cases) {
    std::vector<int> Seen;
    const auto Note = [&](int Percent) {
      Seen.push_back(Percent);
      return true;
    };
    DecodeImage(Case.File, Case.Kind, "name", Note);
    EXPECT_GT(Seen.size(), 10u);
    EXPECT_EQ(Seen.front(), 0);
    EXPECT_EQ(Seen.back(), 100);
    EXPECT_EQ(std::adjacent_find(Seen.begin(), Seen.end(), std::greater_equal<>()), Seen.end());

    for (const size_t Last : {size_t{1}, Seen.size() / 2, Seen.size()}) {
      size_t Calls = 0;
      const auto Cancel = [&](int) { return ++Calls < Last; };
      EXPECT_THROW(DecodeImage(Case.File, Case.Kind, "name", Cancel), EImageCancelled);
      EXPECT_EQ(Calls, Last);
    }
    const auto Fail = [](int Percent) -> bool {
      if (Percent >= 30) throw std::logic_error("");
      return true;
    };
    EXPECT_THROW(DecodeImage(Case.File, Case.Kind, "name", Fail), std::logic_error);
  }
}

TEST(SaveJpegFile, PictureComesBack) {
  TTempFolder Folder;
  const std::string Path = Folder / "\xD0\xBA\xD0\xB0\xD1\x80\xD1\x82\xD0\xB0 \xE5\x9C\xB0.jpg";
  // A red line of one pixel on white, as on a map: at high quality it keeps its colour.
  TBitmap Map(65, 33, TPixelFormat::pf32bit);
  for (int Y = 0; Y < 33; ++Y) {
    for (int X = 0; X < 65; ++X) Map.SetPixel(X, Y, X == 20 ? clRed : clWhite);
  }
  for (const auto Format : {TPixelFormat::pf15bit, TPixelFormat::pf24bit, TPixelFormat::pf32bit}) {
    std::vector<int> Seen;
    SaveJpegFile(Path, Map.Converted(Format), 95, [&](int Percent) {
      Seen.push_back(Percent);
      return true;
    });
    EXPECT_EQ(Seen.back(), 100);
    const TBitmap Back = LoadImageFile(Path, TImageKind::ikJpeg);
    ASSERT_EQ(Back.Width(), 65);
    const TColor Line = Back.Pixel(20, 16);
    EXPECT_NEAR(RedOf(Line), 255, 12);
    EXPECT_NEAR(GreenOf(Line), 0, 12);
    EXPECT_NEAR(BlueOf(Line), 0, 12);
    EXPECT_NEAR(GreenOf(Back.Pixel(22, 16)), 255, 12);
  }
}

TEST(SaveJpegFile, FailureKeepsTheOldFile) {
  TTempFolder Folder;
  const std::string Path = Folder / "map.jpg";
  WriteWholeFile(Path, "old");
  // Noise, so that it takes several writes.
  TBitmap Noise(300, 200, TPixelFormat::pf24bit);
  std::mt19937 Engine(1);
  for (int Y = 0; Y < 200; ++Y) {
    for (int X = 0; X < 300; ++X) Noise.SetPixel(X, Y, static_cast<TColor>(Engine() & 0xFFFFFF));
  }
  const auto ExpectOld = [&] {
    EXPECT_EQ(ReadWholeTextFile(Path), "old");
    EXPECT_EQ(Folder.Names(), std::vector<std::string>{"map.jpg"});
  };
  EXPECT_THROW(SaveJpegFile(Path, TBitmap(), 90), EInOutError);
  EXPECT_THROW(SaveJpegFile(Path, TBitmap(70000, 1, TPixelFormat::pf24bit), 90), EInOutError);
  EXPECT_THROW(SaveJpegFile(Path, Noise, 90, [](int Percent) { return Percent < 50; }),
               EImageCancelled);
  ExpectOld();

  TFailingFileOps Ops;
  const TFileOpsOverride With(Ops);
  int Operation = 0;
  for (;; ++Operation) {
    Ops.Arm(Operation + 1);
    try {
      SaveJpegFile(Path, Noise, 100);
      break;
    } catch (const EInOutError& Error) {
      EXPECT_EQ(Error.Path(), Path);
      ExpectOld();
    }
  }
  EXPECT_GE(Operation, 6);
  EXPECT_EQ(ReadImageSize(Path, TImageKind::ikJpeg), (TSize{300, 200}));
}

TEST(ImageFile, BmpIsWrittenAsItIsRead) {
  const TTempFolder Folder;
  for (const TPixelFormat Format : {TPixelFormat::pf24bit, TPixelFormat::pf32bit}) {
    for (int32_t Width = 1; Width <= 5; ++Width) {  // rows of every padding
      TBitmap Bitmap(Width, 3, Format);
      for (int32_t Y = 0; Y < 3; ++Y)
        for (int32_t X = 0; X < Width; ++X)
          Bitmap.SetPixel(X, Y,
                          RgbColor(static_cast<uint8_t>(200 + X), static_cast<uint8_t>(Y), 7));
      SaveBmpFile(Folder / "a.bmp", Bitmap);
      EXPECT_EQ(LoadImageFile(Folder / "a.bmp", TImageKind::ikBmp),
                Bitmap.Converted(TPixelFormat::pf32bit));
    }
  }
  EXPECT_THROW(SaveBmpFile(Folder / "b.bmp", TBitmap()), EInOutError);
  EXPECT_EQ(Folder.Names(), std::vector<std::string>{"a.bmp"});
}

}  // namespace
}  // namespace zav::test
