// shrink_test.cpp - zavgeo map shrink: large scans become maps, and nothing is overwritten.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <platform/codec/image_file.h>
#include <platform/raster/stretch.h>

#include <QImage>
#include <QImageWriter>
#include <cmath>
#include <filesystem>

#include "run_program.h"

namespace zav {
namespace {

// A scan of 22 million pixels: the Alps three times enlarged, each pixel a block of nine.
void WriteLargeScan(const std::string& Path) {
  const TBitmap Alps = LoadImageFile(Sample("alps_utm32n.jpg"), TImageKind::ikJpeg);
  TBitmap Large(Alps.Width() * 3, Alps.Height() * 3, TPixelFormat::pf32bit);
  Stretch(Large, {0, 0, Large.Width(), Large.Height()}, Alps,
          {0, 0, static_cast<double>(Alps.Width()), static_cast<double>(Alps.Height())},
          TStretchMode::smColorOnColor);
  SaveJpegFile(Path, Large, 95);
}

// The middle of the block that a pixel has become.
std::string PixelsTimesThree(const std::string& Calibration) {
  std::string Result;
  for (const std::string& Line : SplitText(Calibration, '\n')) {
    const std::vector<std::string> Groups = SplitText(Line, ']');
    if (Groups.size() < 2 || SplitText(Groups[0], ',').size() != 4) {
      Result += Line + "\r\n";
      continue;
    }
    for (const std::string& Group : Groups) {
      std::vector<std::string> Parts = SplitText(Group, ',');
      if (Parts.size() != 4) continue;
      for (size_t i : {2U, 3U})
        Parts[i] = std::to_string(3 * static_cast<int>(ToNumber(Parts[i])) + 1);
      Result += Parts[0] + "," + Parts[1] + "," + Parts[2] + "," + Parts[3] + "] ";
    }
    Result += "\r\n";
  }
  return Result;
}

std::string LineWith(const std::string& Text, const std::string& Part) {
  for (const std::string& Line : SplitText(Text, '\n'))
    if (Line.find(Part) != std::string::npos) return Line;
  return {};
}

TEST(CliShrink, ALargeScanAndItsCalibrationBecomeAMap) {
  const TTempFolder Folder;
  WriteLargeScan(Folder / "scan.jpg");
  const std::string Original = ReadWholeTextFile(Sample("alps_utm32n.xml"));
  WriteWholeFile(Folder / "scan.xml", PixelsTimesThree(Original));
  const std::string Scan = ReadWholeTextFile(Folder / "scan.jpg");
  const TRun Run = RunProgram("map shrink " + (Folder / "scan.jpg") + " " + (Folder / "scan.xml") +
                              " --longest 1613 -o " + (Folder / "small.jpg"));
  ASSERT_EQ(Run.Status, 0) << Run.Err;
  EXPECT_EQ(Folder.Names(),
            (std::vector<std::string>{"scan.jpg", "scan.xml", "small.jpg", "small.xml"}));
  EXPECT_TRUE(ReadWholeTextFile(Folder / "scan.jpg") == Scan);
  EXPECT_EQ(ReadWholeTextFile(Folder / "scan.xml"), PixelsTimesThree(Original));

  // Averaging takes the enlargement back; what is left is what JPEG loses.
  const TBitmap Small = LoadImageFile(Folder / "small.jpg", TImageKind::ikJpeg);
  const TBitmap Alps = LoadImageFile(Sample("alps_utm32n.jpg"), TImageKind::ikJpeg);
  ASSERT_EQ(Small.Width(), Alps.Width());
  ASSERT_EQ(Small.Height(), Alps.Height());
  double Sum = 0;
  for (int32_t Y = 0; Y < Alps.Height(); ++Y)
    for (int32_t X = 0; X < Alps.Width(); ++X)
      Sum += std::abs(GreenOf(Small.Pixel(X, Y)) - GreenOf(Alps.Pixel(X, Y)));
  EXPECT_LT(Sum / Alps.Width() / Alps.Height(), 2);

  // The points are the original's again, the caption keeps its capitals.
  const std::string Calibration = ReadWholeTextFile(Folder / "small.xml");
  EXPECT_EQ(LineWith(Calibration, "map="),
            "<geomap sig=\"Tarvoline\" vers=\"1.0\" id=\"\" "
            "model=\"utm\" map=\"small.jpg\" caption=\"Alps\">");
  const auto Points = [](const std::string& Text) {
    const size_t Begin = Text.find("<calquads");
    return Text.substr(Begin, Text.find("</calquads>") - Begin);
  };
  EXPECT_EQ(Points(Calibration), Points(Original));
  const std::string Pixels = "100,100\n1500,200\n800,1400\n";
  EXPECT_EQ(RunProgram("map to-geo " + (Folder / "small.xml"), Pixels).Out,
            RunProgram("map to-geo " + Sample("alps_utm32n.xml"), Pixels).Out);
  EXPECT_NEAR(ToNumber(SplitText(LineWith(RunProgram("map info " + (Folder / "small.xml")).Out,
                                          "resolution_m_per_px"),
                                 ',')[1]),
              289.596, 0.01);
}

TEST(CliShrink, OtherKindsOfFiles) {
  const TTempFolder Folder;
  QImage Picture(120, 90, QImage::Format_ARGB32);
  Picture.fill(Qt::transparent);
  for (int X = 0; X < 60; ++X)
    for (int Y = 0; Y < 90; ++Y) Picture.setPixelColor(X, Y, QColor(200, 40, 20));
  std::vector<std::string> Kinds = {"png"};
  if (QImageWriter::supportedImageFormats().contains("tiff")) Kinds.emplace_back("tiff");
  for (const std::string& Kind : Kinds) {
    const std::string File = Folder / ("scan." + Kind);
    ASSERT_TRUE(Picture.save(QString::fromStdString(File)));
    const TRun Run =
        RunProgram("map shrink " + File + " --longest 40 -o " + (Folder / (Kind + ".jpeg")));
    ASSERT_EQ(Run.Status, 0) << Run.Err;
    const TBitmap Small = LoadImageFile(Folder / (Kind + ".jpeg"), TImageKind::ikJpeg);
    ASSERT_EQ(Small.Width(), 40);
    ASSERT_EQ(Small.Height(), 30);
    EXPECT_NEAR(RedOf(Small.Pixel(8, 8)), 200, 3);
    EXPECT_NEAR(GreenOf(Small.Pixel(32, 8)), 255, 3);  // what is transparent is paper
  }
}

TEST(CliShrink, WhatIsRefused) {
  const TTempFolder Folder;
  std::filesystem::copy(Sample("iceland.bmp"), Folder / "map.bmp");
  std::filesystem::copy(Sample("gotthard_utm32n.jpg"), Folder / "map.jpg");
  std::filesystem::copy(Sample("gotthard_utm32n.xml"), Folder / "map.xml");
  std::filesystem::create_symlink(Folder / "map.jpg", Folder / "link.jpg");
  WriteWholeFile(Folder / "damaged.xml",
                 "<geomap sig=\"Tarvoline\" vers=\"1.0\" id=\"\" model=\"utm\" map=\"\" "
                 "caption=\"\">\r\n<calquads npoints=\"3\">\r\n[1,2,3,4]\r\n</calquads>\r\n");
  WriteWholeFile(Folder / "empty.xml", "<html></html>");
  WriteWholeFile(Folder / "map.txt", "no picture");
  const auto Before = Folder.Names();
  const std::string Image = ReadWholeTextFile(Folder / "map.jpg");
  const std::string Jpeg = Folder / "map.jpg";
  const std::string Xml = Folder / "map.xml";
  const struct {
    std::string Arguments;
    int Status;
    const char* Message;
  } Cases[] = {
      {Jpeg + " --longest 100 -o " + Jpeg, 2, "overwrite"},
      {Jpeg + " --longest 100 -o " + (Folder / "link.jpg"), 2, "overwrite"},
      {(Folder / "map.bmp") + " " + Xml + " --longest 100 -o " + (Folder / "map.jpeg"), 2,
       "overwrite"},
      {Jpeg + " --longest 100 -o " + (Folder / "new.png"), 2, ".jpg"},
      {Jpeg + " --longest 0 -o " + (Folder / "new.jpg"), 2, "--longest"},
      {Jpeg + " --longest 1e99 -o " + (Folder / "new.jpg"), 2, "--longest"},
      {Jpeg + " --longest many -o " + (Folder / "new.jpg"), 2, "--longest"},
      {Jpeg + " -o " + (Folder / "new.jpg"), 2, "--longest"},
      {Jpeg + " --longest 1358 -o " + (Folder / "new.jpg"), 1, "not larger"},
      {(Folder / "lost.jpg") + " --longest 9 -o " + (Folder / "new.jpg"), 1, "lost.jpg"},
      {(Folder / "lost.png") + " --longest 9 -o " + (Folder / "new.jpg"), 1, "lost.png"},
      {(Folder / "map.txt") + " --longest 9 -o " + (Folder / "new.jpg"), 1, "can be read"},
      {Jpeg + " " + (Folder / "damaged.xml") + " --longest 9 -o " + (Folder / "new.jpg"), 1,
       "damaged.xml"},
      {Jpeg + " " + (Folder / "empty.xml") + " --longest 9 -o " + (Folder / "new.jpg"), 1,
       "holds no calibration"},
      {Jpeg + " " + (Folder / "lost.xml") + " --longest 9 -o " + (Folder / "new.jpg"), 1,
       "lost.xml"},
      {Jpeg + " " + Xml + " --longest 9 -o /nowhere/new.jpg", 1, "/nowhere/new.jpg"},
  };
  for (const auto& Case : Cases) {
    const TRun Run = RunProgram("map shrink " + Case.Arguments);
    EXPECT_EQ(Run.Status, Case.Status) << Case.Arguments << Run.Err;
    EXPECT_NE(Run.Err.find(Case.Message), std::string::npos) << Case.Arguments << Run.Err;
    EXPECT_EQ(Folder.Names(), Before) << Case.Arguments;
  }
  EXPECT_TRUE(ReadWholeTextFile(Folder / "map.jpg") == Image);
}

}  // namespace
}  // namespace zav
