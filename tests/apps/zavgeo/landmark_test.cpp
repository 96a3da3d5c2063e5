// landmark_test.cpp - zavgeo landmarks and map render --landmarks: tables in, the same tables out,
// nothing lost, the right pixels.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QImage>

#include "run_program.h"

namespace zav {
namespace {

constexpr const char* AllFields =
    "name,lat,long,alt,class,tag,id,time,symbol,symbol_size,symbol_color,symbol_fill,symbol_filled,"
    "symbol_direction,symbol_length,caption_size,caption_font,caption_style,caption_color,"
    "caption_ground,caption_filled,caption_dx,caption_dy,caption_direction,caption_halign,"
    "caption_valign\n";

TEST(CliLandMarks, EveryFieldComesBack) {
  const TTempFolder Folder;
  const std::string Rows =
      "\"Wien, Österreich\",48.2,16.37,171.5,3,-7,at-1,2024-02-29 13:45:01,arrowto,5,\"#FF8000\","
      "\"#0000FF\",false,45,30,11,Serif,bold underline,\"#010203\",\"#FFFFFF\",true,-4,6,-30,right,"
      "bottom\n"
      "Ελλάδα,-33.123456789,-170.5,0,255,2147483647,,,circle,0,\"#000000\",\"#FFFFFF\",true,0,10,8,"
      "MS Sans Serif,plain,\"#000000\",\"#FFFFFF\",false,0,8,0,center,top\n";
  const std::string File = Folder / "a.xml";
  TRun Run = RunProgram("landmarks import " + File + " - --id Alps", AllFields + Rows);
  EXPECT_EQ(Run.Status, 0) << Run.Err;
  EXPECT_EQ(RunProgram("landmarks list " + File + " --id ALPS").Out, AllFields + Rows);
  // Another import adds to what is there, under the same id; columns in any order.
  Run = RunProgram("landmarks import " + File + " - --with class=9 --with symbol=spade",
                   "LONGITUDE;Latitude;rank;title\n7,5;47,25;2;Basel\n");
  EXPECT_EQ(Run.Status, 0) << Run.Err;
  const std::string Basel =
      "Basel,47.25,7.5,0,9,0,,,spade,7,\"#0000FF\",\"#FFFFFF\",true,0,10,8,MS Sans Serif,plain,"
      "\"#000000\",\"#FFFFFF\",false,0,8,0,center,top\n";
  EXPECT_EQ(RunProgram("landmarks list " + File).Out, AllFields + Rows + Basel);
  EXPECT_NE(ReadWholeTextFile(File).find("id=\"Alps\""), std::string::npos);
  // Columns may be chosen, by name and by number, and left out.
  Run = RunProgram(
      "landmarks import " + File + " - --replace --column class=rank --column name=4 --column id=",
      "lat,long,rank,city,id\n1,2,33,Town,x\n");
  EXPECT_EQ(Run.Status, 0) << Run.Err;
  const auto List = DataRows(RunProgram("landmarks list " + File).Out);
  ASSERT_EQ(List.size(), 1U);
  EXPECT_EQ(List[0][0] + "," + List[0][4] + "," + List[0][6], "Town,33,");
}

TEST(CliLandMarks, BadLinesAreToldAndNothingIsLost) {
  const TTempFolder Folder;
  const std::string File = Folder / "a.xml";
  const std::string Table =
      "name,lat,long,class\nGood,1,2,3\nNorth,91,0,0\n\"Quo\"\"te\",1,1,0\nClass,1,1,256\n" +
      std::string(85, 'x') + ",5,6,7\n";
  TRun Run = RunProgram("landmarks import " + File + " - --strict", Table);
  EXPECT_EQ(Run.Status, 1);
  EXPECT_EQ(RunProgram("landmarks list " + File).Status, 1);  // it was not made
  Run = RunProgram("landmarks import " + File + " -", Table);
  EXPECT_EQ(Run.Status, 1);
  for (const char* Told :
       {"standard input:3: lat 91 is outside", "input:4: name holds a double quote",
        "input:5: class 256 is outside", "input:6: name \"xx", "was cut"})
    EXPECT_NE(Run.Err.find(Told), std::string::npos) << Told << "\n" << Run.Err;
  const auto List = DataRows(RunProgram("landmarks list " + File).Out);
  ASSERT_EQ(List.size(), 2U);
  EXPECT_EQ(List[1][0], std::string(80, 'x'));

  const std::string Before = ReadWholeTextFile(File);
  const struct {
    const char* Arguments;
    const char* Input;
    int Status;
    const char* Told;
  } Cases[] = {
      {"-", "name,long\nA,1\n", 1, "there is no column lat"},
      {"- --column lat=height", "name,lat,long\nA,1,2\n", 1, "there is no column height"},
      {"- --column where=lat", "name,lat,long\n", 2, "unknown field \"where\": name, lat,"},
      {"- --with class=300", "name,lat,long\n", 2, "class 300 is outside 0..255"},
      {"missing.csv", "", 1, "missing.csv: cannot be opened"},
  };
  for (const auto& Case : Cases) {
    Run = RunProgram("landmarks import " + File + " " + Case.Arguments, Case.Input);
    EXPECT_EQ(Run.Status, Case.Status) << Run.Err;
    EXPECT_NE(Run.Err.find(Case.Told), std::string::npos) << Run.Err;
    EXPECT_EQ(ReadWholeTextFile(File), Before);
  }
  // What a file holds besides one set would be lost.
  for (const std::string& Other :
       {Before + Before, "<geomap sig=\"Tarvoline\" id=\"\">\r\n</geomap>\r\n" + Before}) {
    WriteWholeFile(File, Other);
    Run = RunProgram("landmarks import " + File + " -", "name,lat,long\nA,1,2\n");
    EXPECT_EQ(Run.Status, 1);
    EXPECT_NE(Run.Err.find("would be lost"), std::string::npos) << Run.Err;
    EXPECT_EQ(ReadWholeTextFile(File), Other);
  }
  EXPECT_EQ(RunProgram("landmarks list " + File + " --id none").Status, 1);
}

// Two places on each other: both symbols, one caption.
TEST(CliLandMarks, RenderDrawsThemAtTheirPlace) {
  const TTempFolder Folder;
  const std::string File = Folder / "a.xml";
  const std::string Picture = Folder / "a.png";
  const TRun Imported = RunProgram(
      "landmarks import " + File +
          " - --with symbol=square --with symbol_size=4 --with symbol_color=#00FF00 --with "
          "symbol_fill=#00FF00 --with caption_filled=true --with caption_halign=left",
      "name,lat,long,caption_ground\nFirst one,50,10,#FF00FF\nSecond,49.85,10,#FFFF00\n");
  ASSERT_EQ(Imported.Status, 0) << Imported.Err;
  const auto Pixels = DataRows(
      RunProgram("map to-pixel " + Sample("europe_conic.xml"), "lat,long\n50,10\n49.85,10\n").Out);
  const auto CountOf = [&](const QImage& Image, QRgb Color) {
    int Count = 0;
    for (int Y = 0; Y < Image.height(); ++Y)
      for (int X = 0; X < Image.width(); ++X)
        if (((Image.pixel(X, Y) ^ Color) & 0xF8F8F8) == 0) ++Count;
    return Count;
  };
  for (const auto& [Captions, First, Second] :
       {std::tuple{"free", true, false}, {"all", true, true}, {"none", false, false}}) {
    std::string Command = "map render " + Sample("europe_conic.xml") + " --landmarks ";
    Command.append(File).append(" --captions ").append(Captions).append(" -o ").append(Picture);
    const TRun Run = RunProgram(Command);
    ASSERT_EQ(Run.Status, 0) << Run.Err;
    const QImage Image(QString::fromStdString(Picture));
    for (const auto& Pixel : Pixels)
      EXPECT_EQ(Image.pixel(std::stoi(Pixel[0]), std::stoi(Pixel[1])) & 0xF8F8F8, 0x00F800U);
    EXPECT_EQ(CountOf(Image, 0xF800F8) > 100, First) << Captions;
    EXPECT_EQ(CountOf(Image, 0xF8F800) > 100, Second) << Captions;
  }
  const TRun Run = RunProgram("map render " + Sample("europe_conic.xml") + " --landmarks " +
                              Sample("europe_conic.xml") + " -o " + Folder / "b.png");
  EXPECT_EQ(Run.Status, 1);
  EXPECT_NE(Run.Err.find("holds no landmarks"), std::string::npos) << Run.Err;
}

}  // namespace
}  // namespace zav
