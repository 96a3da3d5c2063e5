// map_test.cpp - zavgeo map on the sample maps: conversions, pictures, other locales.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <platform/codec/image_file.h>

#include <QImage>

#include "run_program.h"

namespace zav {
namespace {

TEST(CliMap, PixelsAndPositionsAreTheReverseOfEachOther) {
  const struct {
    const char* Map;
    const char* Pixels;
    double Tolerance;  // the two directions of a polynomial are fitted apart
  } Cases[] = {
      {"alps_utm32n", "100,100\n1500,200.5\n800,1400\n", 0.01},
      {"europe_conic", "300,900\n1000,700\n1700,1200\n", 1e-6},
      {"world_miller", "10,200\n800,500\n1500,900\n", 1e-6},
      {"iberia_bonne", "300,300\n900,800\n", 2},
      {"australia_laea", "400,400\n700,700\n", 0.1},
  };
  for (const auto& Case : Cases) {
    SCOPED_TRACE(Case.Map);
    const std::string Map = Sample(std::string(Case.Map) + ".xml");
    const TRun Geo = RunProgram("map to-geo " + Map, Case.Pixels);
    ASSERT_EQ(Geo.Status, 0) << Geo.Err;
    const TRun Exact = RunProgram("map to-pixel --exact " + Map, Geo.Out);
    const TRun Whole = RunProgram("map to-pixel " + Map, Geo.Out);
    const auto Rows = DataRows(Exact.Out);
    const auto WholeRows = DataRows(Whole.Out);
    const auto Given = DataRows(std::string("x,y\n") + Case.Pixels);
    ASSERT_EQ(Rows.size(), Given.size());
    ASSERT_EQ(WholeRows.size(), Given.size());
    for (size_t i = 0; i < Rows.size(); ++i) {
      EXPECT_EQ(Rows[i][2], "true");
      for (size_t k = 0; k < 2; ++k) {
        EXPECT_NEAR(ToNumber(Rows[i][k]), ToNumber(Given[i][k]), Case.Tolerance);
        EXPECT_NEAR(ToNumber(WholeRows[i][k]), ToNumber(Rows[i][k]), 1);
        EXPECT_EQ(WholeRows[i][k].find('.'), std::string::npos);
      }
    }
  }
}

TEST(CliMap, WhatCannotBeConverted) {
  const TTempFolder Folder;
  // Two parallels of three points and one meridian: no model, no complete graticule.
  WriteWholeFile(Folder / "incomplete.xml",
                 "<geomap sig=\"Tarvoline\" vers=\"1.0\" id=\"\" model=\"undefined\" map=\"\" "
                 "caption=\"\">\r\n</geomap>\r\n");
  WriteWholeFile(Folder / "damaged.xml",
                 "<geomap sig=\"Tarvoline\" vers=\"1.0\" id=\"\" model=\"utm\" map=\"\" "
                 "caption=\"\">\r\n<calquads npoints=\"3\">\r\n[1,2,3,4]\r\n</calquads>\r\n");
  WriteWholeFile(Folder / "other.xml", "<html></html>\n");
  for (const auto& [Name, Message] : {std::pair{"incomplete.xml", "not complete"},
                                      {"damaged.xml", "number of calibration points"},
                                      {"other.xml", "holds no calibration"}}) {
    const TRun Run = RunProgram("map to-pixel " + (Folder / Name), "1,1\n");
    EXPECT_EQ(Run.Status, 1);
    EXPECT_NE(Run.Err.find(Message), std::string::npos) << Run.Err;
    EXPECT_NE(Run.Err.find(Name), std::string::npos) << Run.Err;
    EXPECT_EQ(Run.Out, "");
  }
  // Far from a parabolic graticule there is no pixel; the row says so and is no error.
  const TRun Far =
      RunProgram("map to-pixel " + Sample("australia_laea.xml"), "-26,135\n-80,-170\n");
  EXPECT_EQ(Far.Status, 0);
  EXPECT_NE(Far.Out.find(",true\n,,false\n"), std::string::npos) << Far.Out;
}

// The picture in the five bits a colour that maps are drawn with.
uint32_t FiveBits(TColor Color) {
  return RedOf(Color) >> 3U << 16U | GreenOf(Color) >> 3U << 8U | BlueOf(Color) >> 3U;
}
uint32_t FiveBits(const QImage& Picture, int X, int Y) {
  const QRgb Pixel = Picture.pixel(X, Y);
  return FiveBits(RgbColor(static_cast<uint8_t>(qRed(Pixel)), static_cast<uint8_t>(qGreen(Pixel)),
                           static_cast<uint8_t>(qBlue(Pixel))));
}

TEST(CliRender, PicturesShowThePartAskedFor) {
  const TTempFolder Folder;
  const std::string Png = Folder / "map.png";
  const TBitmap Image = LoadImageFile(Sample("iceland.bmp"), TImageKind::ikBmp);
  const struct {
    const char* Options;
    int Width, Height;
    TPoint Shift;  // from the picture to the image
  } Cases[] = {
      {"", 497, 408, {0, 0}},
      {"--size 100x80 --center 65,-19", 100, 80, {198, 164}},
      {"--size 150x60 --magnification 1", 150, 60, {0, 0}},
  };
  for (const auto& Case : Cases) {
    SCOPED_TRACE(Case.Options);
    const TRun Run =
        RunProgram("map render " + Sample("iceland.xml") + " -o " + Png + " " + Case.Options);
    ASSERT_EQ(Run.Status, 0) << Run.Err;
    const QImage Picture(QString::fromStdString(Png));
    ASSERT_EQ(Picture.width(), Case.Width);
    ASSERT_EQ(Picture.height(), Case.Height);
    int Wrong = 0;
    for (int Y = 0; Y < Case.Height; ++Y)
      for (int X = 0; X < Case.Width; ++X)
        Wrong +=
            FiveBits(Picture, X, Y) != FiveBits(Image.Pixel(X + Case.Shift.X, Y + Case.Shift.Y));
    EXPECT_EQ(Wrong, 0);
  }
  // Fitted in, with its graticule: the 65th parallel passes through its control point's row.
  RunProgram("map render --size 994x816 --graticule lines " + Sample("iceland.xml") + " -o " + Png);
  const QImage Picture(QString::fromStdString(Png));
  const auto Rows = DataRows(RunProgram("map to-pixel " + Sample("iceland.xml"), "65,-20.5\n").Out);
  const int X = 2 * static_cast<int>(ToNumber(Rows[0][0]));
  const int Y = 2 * static_cast<int>(ToNumber(Rows[0][1]));
  EXPECT_EQ(FiveBits(Picture, X, Y), FiveBits(clBlue));
  EXPECT_NE(FiveBits(Picture, X, Y + 5), FiveBits(clBlue));
}

TEST(CliRender, WhatCannotBeDrawn) {
  const TTempFolder Folder;
  const std::string Png = Folder / "map.png";
  std::filesystem::copy(Sample("iceland.xml"), Folder / "alone.xml");
  const std::string Iceland = Sample("iceland.xml") + " -o " + Png;
  const struct {
    std::string Arguments;
    int Status;
    const char* Message;
  } Cases[] = {
      {Iceland + " --size 100", 2, "WIDTHxHEIGHT"},
      {Iceland + " --size 0x50", 2, "--size"},
      {Iceland + " --size 99999x50", 2, "--size"},
      {Iceland + " --center 95,0", 2, "--center"},
      {Iceland + " --magnification 0", 2, "--magnification"},
      {Iceland + " --magnification 2 --fit", 2, "--fit"},
      {Iceland + " --graticule hexagons", 2, "hexagons"},
      {Iceland + " --center 10,10", 1, "outside the map"},
      {(Folder / "alone.xml") + " -o " + Png, 1, "iceland.bmp was not found"},
      {Sample("iceland.xml") + " -o /nowhere/map.png", 1, "/nowhere/map.png"},
  };
  for (const auto& Case : Cases) {
    const TRun Run = RunProgram("map render " + Case.Arguments);
    EXPECT_EQ(Run.Status, Case.Status) << Case.Arguments;
    EXPECT_NE(Run.Err.find(Case.Message), std::string::npos) << Case.Arguments << Run.Err;
  }
  EXPECT_EQ(Folder.Names(), std::vector<std::string>{"alone.xml"});
}

TEST(CliMap, LocalesChangeNothing) {
  const TTempFolder Folder;
  const std::string Xml = Folder / "map.xml";
  const std::string Calibrate = "calibrate --model utm --points " +
                                Sample("alps_utm32n.points.csv") + " --image " +
                                Sample("alps_utm32n.jpg") + " -o " + Xml;
  const std::string Png = Folder / "map.png";
  const std::string Render = "map render --size 300x200 --center 46.5,8.25 --graticule lines " +
                             Sample("alps_utm32n.xml") + " -o " + Png;
  std::string First;
  for (const char* Locale : {"LC_ALL=C", "LC_ALL=de_DE.UTF-8", "LC_ALL=tr_TR.UTF-8"}) {
    std::string All = RunProgram("utm", "LAT,LONG\n48.2,16.37\n", Locale).Out;
    All += RunProgram("map to-pixel --exact " + Sample("iberia_bonne.xml"), "40.5,-4.25\n", Locale)
               .Out;
    All += RunProgram("map info " + Sample("gotthard_utm32n.xml"), {}, Locale).Out;
    All += RunProgram(Calibrate, {}, Locale).Out;
    All += ReadWholeTextFile(Xml);
    EXPECT_EQ(RunProgram(Render, {}, Locale).Status, 0);
    All += ReadWholeTextFile(Png);
    if (First.empty()) First = All;
    EXPECT_GT(All.size(), 3000U);
    EXPECT_TRUE(All == First) << Locale;
  }
}

TEST(CliMap, EmptyMapsAreMadeWholeOrNotAtAll) {
  const TTempFolder Folder;
  const std::string Map = Folder / "grid.xml";
  const auto Empty = [&](const std::string& Options) { return RunProgram("map empty " + Options); };
  const TRun Made = Empty("--box 45,10,50,20 --grid 1,2.5 --size 1000x500 -o " + Map);
  ASSERT_EQ(Made.Status, 0) << Made.Err;
  EXPECT_EQ(Folder.Names(), (std::vector<std::string>{"grid.bmp", "grid.xml"}));
  const auto Pixels = DataRows(RunProgram("map to-pixel " + Map, "47.5,15\n50,10\n").Out);
  EXPECT_EQ(Pixels[0], (std::vector<std::string>{"500", "250", "true"}));
  EXPECT_EQ(Pixels[1], (std::vector<std::string>{"0", "0", "true"}));
  // A parallel, and text on its ground above it at the left.
  const TBitmap Image = LoadImageFile(Folder / "grid.bmp", TImageKind::ikBmp);
  EXPECT_NE(Image.Pixel(600, 300), clWhite);
  EXPECT_EQ(Image.Pixel(600, 310), clWhite);
  int Dark = 0;
  for (int32_t Y = 285; Y < 300; ++Y)
    for (int32_t X = 0; X < 40; ++X) Dark += Image.Pixel(X, Y) == clBlack ? 1 : 0;
  EXPECT_GT(Dark, 20);

  const struct {
    const char* Options;
    const char* Message;
  } Wrong[] = {
      {"--box 45,10,50 --grid 1,1 --size 500x500", "4 numbers"},
      {"--box 50,10,45,20 --grid 1,1 --size 500x500", "south"},
      {"--box 45,170,50,-170 --grid 1,1 --size 500x500", "190"},
      {"--box 45,10,91,20 --grid 1,1 --size 500x500", "latitude"},
      {"--box 45,10,50,20 --grid 0,1 --size 500x500", "above 0"},
      {"--box 45,10,50,20 --grid 1,1 --size 500", "WIDTHxHEIGHT"},
      {"--box 45,10,50,20 --grid 1,1 --size 99x500", "--size"},
  };
  for (const auto& Each : Wrong) {
    const TRun Run = Empty(std::string(Each.Options) + " -o " + (Folder / "no.xml"));
    EXPECT_EQ(Run.Status, 2) << Each.Options;
    EXPECT_NE(Run.Err.find(Each.Message), std::string::npos) << Run.Err;
  }
  EXPECT_EQ(Empty("--box 45,10,50,20 --grid 1,1 --size 500x500 -o m.bmp").Status, 2);
  const TRun Large =
      Empty("--box 45,10,50,20 --grid 1,1 --size 3000x1001 -o " + (Folder / "no.xml"));
  EXPECT_EQ(Large.Status, 1);
  EXPECT_NE(Large.Err.find("3000 x 1001"), std::string::npos) << Large.Err;
  EXPECT_EQ(Folder.Names().size(), 2U);
}

}  // namespace
}  // namespace zav
