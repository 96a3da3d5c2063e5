// calibrate_test.cpp - zavgeo calibrate on the sample maps, and on points that should be doubted.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>

#include "run_program.h"

namespace zav {
namespace {

// The number of a summary line such as "# rms_px: 0.31".
double SummaryOf(const TRun& Run, const std::string& Name) {
  const std::string Key = "# " + Name + ": ";
  const size_t Start = Run.Out.find(Key) + Key.size();
  return ToNumber(Run.Out.substr(Start, Run.Out.find('\n', Start) - Start));
}

struct TSampleMap {
  const char* Image;
  const char* Model;
  const char* Points;
  double Rms;         // pixels; the rounding of the points alone makes up to 0.41
  double Resolution;  // metres a pixel as the map was made, 0 where it differs over the map
};

const TSampleMap SampleMaps[] = {
    {"world_equirect.jpg", "equirect", "points", 0.41, 25271},
    {"world_miller.jpg", "millercylindrical", "points", 0.41, 26688},
    {"europe_conic.jpg", "conicconformal", "points", 0.41, 2980},
    {"alps_utm32n.jpg", "utm", "utm_points", 0.41, 290},
    {"alps_utm32n.jpg", "utm", "points", 0.41, 290},
    {"gotthard_utm32n.jpg", "utm", "utm_points", 0.41, 85},
    {"andes_utm19s.jpg", "utm", "points", 0.41, 92},
    {"iberia_bonne.jpg", "biquadraticpn", "points", 0.6, 1150},
    {"iberia_bonne.jpg", "parabolicip", "lines", 0.3, 1150},
    {"australia_laea.jpg", "parabolicip", "lines", 0.3, 4100},
    {"iceland.bmp", "EquiRect", "points", 0.41, 1360},
    {"sicily_8bit.bmp", "equirect", "points", 0.41, 1000},
    {"namerica_lcc.jpg", "conicconformal", "points", 3.5, 0},  // the wrong cone: only nearly
};

// The path of a map's files, without extension.
std::string BaseOf(const TSampleMap& Map) {
  const std::string Image = Sample(Map.Image);
  return Image.substr(0, Image.rfind('.'));
}

TRun Calibrate(const TSampleMap& Map, const std::string& Xml) {
  return RunProgram(std::string("calibrate --model ") + Map.Model + " --points " + BaseOf(Map) +
                    "." + Map.Points + ".csv --image " + Sample(Map.Image) + " -o " + Xml);
}

// How far a calibration file puts the positions of a point table from their pixels.
double RmsOf(const std::string& Xml, const std::string& Points) {
  const auto Given = DataRows(ReadWholeTextFile(Points));
  const TRun Pixels = RunProgram("map to-pixel --exact " + Xml + " " + Points);
  const auto Rows = DataRows(Pixels.Out);
  if (Pixels.Status != 0 || Rows.size() != Given.size()) throw std::runtime_error(Pixels.Err);
  double Squares = 0;
  for (size_t i = 0; i < Rows.size(); ++i)
    Squares += std::pow(ToNumber(Rows[i][0]) - ToNumber(Given[i][2]), 2) +
               std::pow(ToNumber(Rows[i][1]) - ToNumber(Given[i][3]), 2);
  return std::sqrt(Squares / static_cast<double>(Rows.size()));
}

TEST(CliCalibrate, SampleMapsFitAndReadBack) {
  for (const TSampleMap& Map : SampleMaps) {
    SCOPED_TRACE(testing::Message() << Map.Image << ' ' << Map.Model << ' ' << Map.Points);
    const TTempFolder Folder;
    const std::string Xml = Folder / "map.xml";
    const TRun Run = Calibrate(Map, Xml);
    ASSERT_EQ(Run.Status, 0) << Run.Err;
    EXPECT_EQ(Run.Err.empty(), Map.Resolution != 0) << Run.Err;  // warnings
    EXPECT_LT(SummaryOf(Run, "rms_px"), Map.Rms);
    if (Map.Resolution != 0) {
      EXPECT_NEAR(SummaryOf(Run, "resolution_m_per_px"), Map.Resolution, Map.Resolution * 0.02);
      EXPECT_NEAR(SummaryOf(Run, "rms_m"), SummaryOf(Run, "rms_px") * Map.Resolution,
                  SummaryOf(Run, "rms_m") * 0.6);
    }
    // The written file and the sample's do what the table says, graticule lines also between the
    // points that they were fitted to.
    for (const std::string& File : {Xml, BaseOf(Map) + ".xml"})
      EXPECT_LT(RmsOf(File, BaseOf(Map) + ".points.csv"), std::max(Map.Rms, 0.75)) << File;
  }
}

// A grid of 4 x 3 points on a map of 497 x 408 pixels, exact but for the changes of a case.
std::string Grid(int Rows = 3, int Columns = 4, const std::string& More = {}) {
  std::string Text = "lat,long,pixel_x,pixel_y\n";
  for (int i = 0; i < Rows; ++i)
    for (int k = 0; k < Columns; ++k)
      Text += std::to_string(66 - i) + "," + std::to_string(10 + k) + "," +
              std::to_string(40 + 100 * k) + "," + std::to_string(30 + 150 * i) + "\n";
  return Text + More;
}

TEST(CliCalibrate, DoubtfulPointsAreToldAndTheFileIsWritten) {
  const struct {
    const char* Model;
    std::string Points;
    std::string Warning;  // empty: none
  } Cases[] = {
      {"equirect", Grid(), ""},
      {"equirect", Grid(1, 2), "2 points are too few"},
      {"equirect", Grid(1, 4), "in a row"},
      {"millercylindrical", Grid(1, 4), "in a row"},
      {"equirect", Grid(1, 2, "65,10,40,180\n"), "nothing to check"},
      {"biquadraticpn", Grid(1, 4), "too few: biquadraticpn needs 6"},
      {"biquadraticpn", Grid(2, 4), "on one curve"},
      {"equirect", Grid(3, 4, "67,10,40,-120\n"), "point 13 at 67,10 is outside the image"},
      {"equirect", Grid(3, 4, "65.5,11.5,190,140\n"),
       "point 13 at 65.5,11.5 stands out: off by 35."},
      {"utm", Grid(3, 4, "65.5,13.5,390,10\n"), "point 13 at 65.49999"},
      {"parabolicip",
       "kind,value,pixel_x,pixel_y\nparallel,10,10,10\nparallel,10,100,11\nmeridian,5,10,10\n",
       "the graticule is not complete"},
  };
  const TTempFolder Folder;
  for (const auto& Case : Cases) {
    SCOPED_TRACE(testing::Message() << Case.Model << '\n' << Case.Points);
    const std::string Xml = Folder / "map.xml";
    const TRun Run = RunProgram(std::string("calibrate --points - --model ") + Case.Model +
                                    " --image " + Sample("iceland.bmp") + " -o " + Xml,
                                Case.Points);
    EXPECT_EQ(Run.Status, 0) << Run.Err;
    EXPECT_EQ(Run.Err.empty(), Case.Warning.empty()) << Run.Err;
    EXPECT_NE(Run.Err.find(Case.Warning), std::string::npos) << Run.Err;
    EXPECT_EQ(Folder.Names(), std::vector<std::string>{"map.xml"});
    std::filesystem::remove(Xml);
  }
}

TEST(CliCalibrate, WrongInputLeavesTheOldFile) {
  const TTempFolder Folder;
  const std::string Xml = Folder / "map.xml";
  WriteWholeFile(Xml, "old");
  const std::string UtmHeader = "northing,easting,zone,hemisphere,pixel_x,pixel_y\n";
  const struct {
    std::string Options;
    std::string Points;
    int Status;
    const char* Message;
  } Cases[] = {
      {"--model equirect", "lat,long,pixel_x,pixel_y\n1,2,3,x\n", 1, "standard input:2: pixel_y"},
      {"--model equirect", "lat,long,pixel_x\n1,2,3\n", 1, "no column pixel_y"},
      {"--model equirect", "lat,long,pixel_x,pixel_y\n", 1, "no points"},
      {"--model equirect", Grid(51, 4), 1, "standard input:202: more than 200"},
      {"--model mercator", Grid(), 2, "mercator"},
      {"--model undefined", Grid(), 2, "undefined"},
      {"--model utm --zone 61", Grid(), 2, "--zone 61"},
      {"--model utm --hemisphere up", Grid(), 2, "up"},
      {"--model utm", "northing,easting,pixel_x,pixel_y\n5318235,350812,279,169\n", 1, "--zone"},
      {"--model utm", UtmHeader + "5318235,350812,32,N,279,169\n5318235,350812,33,N,279,169\n", 1,
       "standard input:3: another zone"},
      {"--model utm --zone 31", UtmHeader + "5318235,350812,32,N,279,169\n", 1, "another zone"},
      {"--model parabolicip", "kind,value,pixel_x,pixel_y\nequator,0,1,1\n", 1, "equator"},
      {"--model equirect --caption 'a \"b\"'", Grid(), 1, "quote"},
      {"--model equirect --image /nowhere.jpg", Grid(), 1, "/nowhere.jpg"},
  };
  for (const auto& Case : Cases) {
    SCOPED_TRACE(Case.Options);
    const bool OwnImage = Case.Options.find("--image") != std::string::npos;
    const TRun Run = RunProgram("calibrate --points - -o " + Xml + " " + Case.Options +
                                    (OwnImage ? "" : " --image " + Sample("iceland.bmp")),
                                Case.Points);
    EXPECT_EQ(Run.Status, Case.Status);
    EXPECT_NE(Run.Err.find(Case.Message), std::string::npos) << Run.Err;
    EXPECT_EQ(ReadWholeTextFile(Xml), "old");
  }
}

TEST(CliCalibrate, TheImageIsNamedFromTheFilesFolder) {
  const TTempFolder Folder;
  std::filesystem::create_directories(Folder / "maps/img");
  std::filesystem::create_directories(Folder / "else");
  std::filesystem::copy(Sample("iceland.bmp"), Folder / "maps/img/Ice Land.bmp");
  const std::string Cd = "-C '" + (Folder / "else") + "'";
  const TRun Run =
      RunProgram("calibrate --model equirect --points " + Sample("iceland.points.csv") +
                     " --image '../maps/img/Ice Land.bmp' -o ../maps/a.xml",
                 {}, Cd);
  ASSERT_EQ(Run.Status, 0) << Run.Err;
  EXPECT_NE(ReadWholeTextFile(Folder / "maps/a.xml").find("map=\"img/Ice Land.bmp\""),
            std::string::npos);
  std::filesystem::rename(Folder / "maps", Folder / "moved");
  const TRun Info = RunProgram("map info '" + (Folder / "moved/a.xml") + "'");
  EXPECT_NE(Info.Out.find("image_found,true\nwidth,497\nheight,408\nmodel,equirect\n"),
            std::string::npos)
      << Info.Out;
}

}  // namespace
}  // namespace zav
