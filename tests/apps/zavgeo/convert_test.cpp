// convert_test.cpp - tables through zavgeo utm, ups and ellipsoids.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "run_program.h"

namespace zav {
namespace {

const std::string Vienna = "48.2,16.37\n-33.5,151.25\n";

TEST(CliTables, ColumnsAreFoundInEveryFormOfTable) {
  const TRun Plain = RunProgram("utm", "lat,long\n" + Vienna);
  ASSERT_EQ(Plain.Status, 0) << Plain.Err;
  const auto Rows = DataRows(Plain.Out);
  ASSERT_EQ(Rows.size(), 2U);
  // From GeographicLib.
  EXPECT_EQ(Rows[0][0] + Rows[0][1], "33U");
  EXPECT_NEAR(ToNumber(Rows[0][2]), 601799.1458, 1e-4);
  EXPECT_NEAR(ToNumber(Rows[0][3]), 5339437.1538, 1e-4);
  EXPECT_EQ(Rows[1][0] + Rows[1][1], "56H");

  for (const std::string& Input : std::initializer_list<std::string>{
           Vienna,  // by position
           "name,LONGITUDE, Latitude \n\"a,b\",16.37,48.2\nc,151.25,-33.5\n",
           "\xEF\xBB\xBFlat,long\r\n48.2,16.37\r\n-33.5,151.25\r\n",  // byte order mark, CR LF
           "lat;long\n48,2;16,37\n-33,5;151,25\n",                    // decimal comma
           "lat\tlon\n4.82e1\t+16.37\n-33.5\t151.25",                 // tabs, no last line end
           "# from a file\n\nlat,long\n\"48.2\",\" 16.37\"\n\n# more\n-33.5,151.25,rest\n",
           "note,lat,long\n\"two\nlines, \"\"quoted\"\"\",48.2,16.37\nx,-33.5,151.25\n",
       }) {
    const TRun Run = RunProgram("utm", Input);
    EXPECT_EQ(Run.Out, Plain.Out) << Input;
    EXPECT_EQ(Run.Status, 0) << Run.Err;
  }
}

TEST(CliTables, AFailingLineGivesAnEmptyRowAndItsPlace) {
  const std::string Input =
      "lat,long\n48.2,16.37\nabc,1\n85,0\n91,0\n1\n,\nnan,0\n0,1e999\n0,180\n-80,0\n";
  const TRun Run = RunProgram("utm", Input);
  EXPECT_EQ(Run.Status, 1);
  const auto Lines = SplitText(Run.Out, '\n');
  ASSERT_EQ(Lines.size(), 11U) << Run.Out;
  for (size_t Line = 1; Line < Lines.size(); ++Line) {
    const bool Failed = Line >= 2 && Line <= 8;
    EXPECT_EQ(Lines[Line] == ",,,", Failed) << Lines[Line];
    const std::string Place = "zavgeo: standard input:" + std::to_string(Line + 1) + ": ";
    EXPECT_EQ(Run.Err.find(Place) != std::string::npos, Failed) << Place;
  }
  EXPECT_EQ(Lines[9].substr(0, 4), "1,N,");  // 180 degrees east are 180 west

  // A record of two lines is told by its first, and the lines after it are counted right.
  const TRun Quoted = RunProgram("utm", "note,lat,long\n\"a\nb\",x,1\nc,y,1\n");
  EXPECT_NE(Quoted.Err.find("input:2: lat"), std::string::npos) << Quoted.Err;
  EXPECT_NE(Quoted.Err.find("input:4: lat"), std::string::npos) << Quoted.Err;

  const TRun Strict = RunProgram("utm --strict", Input);
  EXPECT_EQ(Strict.Status, 1);
  EXPECT_EQ(SplitText(Strict.Out, '\n').size(), 2U);
  EXPECT_EQ(SplitText(Strict.Err, '\n').size(), 1U);
}

TEST(CliTables, GridAndBackIsTheSamePosition) {
  const struct {
    const char* Command;
    const char* Positions;
  } Cases[] = {
      {"utm", "0.5,-179.9\n-0.5,3\n83.9,20\n-79.9,177\n60,5\n"},
      {"utm --ellipsoid GELbess41", "52.5,13.4\n-22.5,17\n"},
      {"ups", "89.5,-120\n-89,45\n84,0\n-90,0\n"},
      {"ups --ellipsoid gelInt24", "85,170\n"},
  };
  for (const auto& Case : Cases) {
    const TRun There = RunProgram(Case.Command, Case.Positions);
    ASSERT_EQ(There.Status, 0) << There.Err;
    const TRun Back = RunProgram(std::string(Case.Command) + " --inverse", There.Out);
    ASSERT_EQ(Back.Status, 0) << Back.Err;
    const auto Rows = DataRows(Back.Out);
    const auto Given = DataRows(std::string("lat,long\n") + Case.Positions);
    ASSERT_EQ(Rows.size(), Given.size());
    for (size_t i = 0; i < Rows.size(); ++i)
      for (size_t k = 0; k < 2; ++k)
        EXPECT_NEAR(ToNumber(Rows[i][k]), ToNumber(Given[i][k]), 1e-8) << Case.Command;
  }
  // By hemisphere instead of band, in another order; and what is no grid position.
  const TRun Run = RunProgram("utm --inverse",
                              "hemisphere,northing,easting,zone\nS,6292864.4,337507.3,56\n"
                              "east,1,1,1\n,1,1,1\nN,1,1,61\nN,1,1,1.5\nN,11000000,500000,1\n");
  EXPECT_EQ(Run.Status, 1);
  EXPECT_NEAR(ToNumber(DataRows(Run.Out)[0][0]), -33.49, 0.02);
  EXPECT_EQ(SplitText(Run.Err, '\n').size(), 5U) << Run.Err;
}

TEST(CliTables, EllipsoidsAreListed) {
  const auto Rows = DataRows(RunProgram("ellipsoids").Out);
  ASSERT_EQ(Rows.size(), 61U);
  EXPECT_EQ(Rows[6][0], "gelBess41");
  EXPECT_NEAR(ToNumber(Rows[6][4]), 299.1528128, 1e-6);
  EXPECT_EQ(ToNumber(Rows[26][4]), 0);
}

TEST(Cli, ExitStatusTellsUsageFromInput) {
  const struct {
    const char* Arguments;
    const char* Input;
    int Status;
    const char* Message;
  } Cases[] = {
      {"--help", "", 0, ""},
      {"--version", "", 0, ""},
      {"", "", 2, "command"},
      {"map", "", 2, "command"},
      {"frobnicate", "", 2, "frobnicate"},
      {"utm --nonsense", "", 2, "--nonsense"},
      {"utm --ellipsoid gelMoon", "", 2, "gelMoon"},
      {"map to-pixel", "", 2, "MAP"},
      {"calibrate --model equirect", "", 2, "--points"},
      {"utm /nowhere/at.all", "", 1, "/nowhere/at.all"},
      {"utm /", "", 1, "cannot be read"},
      {"utm", "lat,width\n1,2\n", 1, "there is no column long"},
      {"utm", "lat,long\n1,\"2\n", 1, "line 2: a quote is not closed"},
      {"utm", "", 0, ""},
      {"map info /nowhere/map.xml", "", 1, "/nowhere/map.xml"},
      {"map info /dev/null", "", 1, "/dev/null"},
  };
  for (const auto& Case : Cases) {
    const TRun Run = RunProgram(Case.Arguments, Case.Input);
    EXPECT_EQ(Run.Status, Case.Status) << Case.Arguments << '\n' << Run.Err;
    EXPECT_NE(Run.Err.find(Case.Message), std::string::npos) << Case.Arguments << '\n' << Run.Err;
    EXPECT_EQ(Run.Err.empty(), Case.Status == 0) << Run.Err;
  }
  EXPECT_EQ(RunProgram("ellipsoids >/dev/full 2>/dev/null #").Status, 1);
}

}  // namespace
}  // namespace zav
