// geodesy_test.cpp - zavgeo cartesian, datum, countries, datums and convert.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>

#include "run_program.h"

namespace zav {
namespace {

TEST(CliGeodesy, CartesianAndBackInEveryQuadrant) {
  const TRun There =
      RunProgram("cartesian",
                 "long,lat,height\n0,0,0\n10,50,100\n170,-35,8000\n-120,75,\n0,90,0\n-45,-90,5\n");
  ASSERT_EQ(There.Status, 0) << There.Err;
  auto Rows = DataRows(There.Out);
  ASSERT_EQ(Rows.size(), 6U);
  EXPECT_EQ(Rows[0][0] + Rows[0][1] + Rows[0][2], "637813700");
  // From PROJ's cct: echo 10 50 100 | cct +proj=cart +ellps=WGS84.
  EXPECT_NEAR(ToNumber(Rows[1][0]), 4045519.7076, 1e-4);
  EXPECT_NEAR(ToNumber(Rows[1][1]), 713334.2754, 1e-4);
  EXPECT_NEAR(ToNumber(Rows[1][2]), 4862865.6422, 1e-4);
  const TRun Back = RunProgram("cartesian --inverse", There.Out);
  ASSERT_EQ(Back.Status, 0) << Back.Err;
  const double Expected[][3] = {{0, 0, 0},     {50, 10, 100}, {-35, 170, 8000},
                                {75, -120, 0}, {90, 0, 0},    {-90, -45, 5}};
  Rows = DataRows(Back.Out);
  for (size_t i = 0; i < std::size(Expected); ++i) {
    EXPECT_NEAR(ToNumber(Rows[i][0]), Expected[i][0], 1e-12);
    EXPECT_NEAR(ToNumber(Rows[i][1]), Expected[i][1], 1e-5 * (i > 3) + 1e-12);
    EXPECT_NEAR(ToNumber(Rows[i][2]), Expected[i][2], 1e-7);
  }
  const TRun Sphere = RunProgram("cartesian --ellipsoid gelSphere", "0,-90,1\n91,0\n0,x\n");
  EXPECT_EQ(Sphere.Status, 1);
  EXPECT_NEAR(ToNumber(DataRows(Sphere.Out)[0][1]), -6370998, 1e-6);
  EXPECT_EQ(SplitText(Sphere.Err, '\n').size(), 2U) << Sphere.Err;
}

TEST(CliGeodesy, DatumByRowAndName) {
  // From PROJ's cct: +proj=pipeline +step +proj=cart with the axes of Bessel +step +proj=helmert
  // with the row's parameters +step +inv +proj=cart +ellps=WGS84.
  const std::string Vienna = "lat,long,height\n48.2,16.37,150\n";
  const auto Rows = DataRows(RunProgram("datum --from 101 --to 269", Vienna).Out);
  EXPECT_NEAR(ToNumber(Rows[0][0]), 48.199500191, 1e-9);
  EXPECT_NEAR(ToNumber(Rows[0][1]), 16.368796742, 1e-9);
  EXPECT_NEAR(ToNumber(Rows[0][2]), 194.462136745, 1e-4);
  EXPECT_EQ(Rows[0][3], "0");
  const auto Named = DataRows(
      RunProgram("datum --from 'mgi datum/hermannskogel' --to 'world geodetic system 1984'", Vienna)
          .Out);
  EXPECT_EQ(Named, Rows);
  const auto Exact = DataRows(RunProgram("datum --from 101 --to 269 --exact", Vienna).Out);
  for (size_t i = 0; i < 2; ++i) EXPECT_NEAR(ToNumber(Exact[0][i]), ToNumber(Rows[0][i]), 1e-9);

  // Japan is where the plain form turns longitudes round, and says so.
  const std::string Tokyo = "35.68,139.77\n";
  const TRun Plain = RunProgram("datum --from 262 --to 269", Tokyo);
  EXPECT_NEAR(ToNumber(DataRows("header\n" + Plain.Out)[1][1]), 139.77 - 180, 0.01);
  EXPECT_EQ(Plain.Status, 0);
  EXPECT_NE(Plain.Err.find("--exact"), std::string::npos);
  const TRun InPlace = RunProgram("datum --from 262 --to 269 --exact", Tokyo);
  EXPECT_NEAR(ToNumber(DataRows(InPlace.Out)[0][1]), 139.77 - 0.0032, 0.0005);
  EXPECT_EQ(InPlace.Err, "");

  const TRun Bad = RunProgram("datum --from 1 --to 269", "5,0,0\n91,0,0\n0,181,0\nx,0,0\n5,0,0\n");
  EXPECT_EQ(Bad.Status, 1);
  const auto Lines = SplitText(Bad.Out, '\n');
  ASSERT_EQ(Lines.size(), 6U);
  EXPECT_EQ(Lines[2], ",,,-3");
  EXPECT_EQ(Lines[3], ",,,-4");
  EXPECT_EQ(Lines[4], ",,,");
  EXPECT_EQ(Lines[5], Lines[1]);
  EXPECT_NE(Bad.Err.find("input:2: lat is outside -90..90"), std::string::npos) << Bad.Err;
  const TRun Strict =
      RunProgram("datum --strict --from 1 --to 269", "5,0,0\n91,0,0\n0,181,0\nx,0,0\n5,0,0\n");
  EXPECT_EQ(SplitText(Strict.Out, '\n').size(), 2U);

  EXPECT_NE(RunProgram("datum --from 52 --to 269", "35,33\n").Err.find("no public source"),
            std::string::npos);
  const struct {
    const char* Arguments;
    const char* Message;
  } Wrong[] = {
      {"datum --from 0 --to 269", "no datum row 0"},
      {"datum --from 1 --to 272", "no datum row 272"},
      {"datum --from 1.5 --to 269", "no datum row 1.5"},
      {"datum --from adindan --to 269", "2 (Ethiopia)"},
      {"datum --from atlantis --to 269", "unknown datum"},
      {"datum --from 1", "--to"},
  };
  for (const auto& Case : Wrong) {
    const TRun Run = RunProgram(Case.Arguments, Vienna);
    EXPECT_EQ(Run.Status, 2) << Case.Arguments;
    EXPECT_NE(Run.Err.find(Case.Message), std::string::npos) << Run.Err;
    EXPECT_EQ(Run.Out, "");
  }
}

TEST(CliGeodesy, Lists) {
  const auto Countries = DataRows(RunProgram("countries").Out);
  // Two names hold a comma and stand in quotes.
  ASSERT_EQ(Countries.size(), 231U);
  EXPECT_EQ(Countries[0][0], "Afghanistan");
  EXPECT_EQ(RunProgram("countries gErmany").Out,
            "name,fips10,iso2,iso3,lat,long,capital,capital_lat,capital_long,capital_alt\n"
            "Germany,gm,de,deu,51,9,Berlin,52.5163,13.3276,34\n");
  EXPECT_EQ(DataRows(RunProgram("countries Kingston").Out).size(), 2U);
  EXPECT_EQ(RunProgram("countries Atlantis").Status, 1);
  EXPECT_NE(RunProgram("countries").Out.find("\n\"Korea, North\",kn,kp,prk,40,127,Pyongyang,"),
            std::string::npos);

  const TRun Datums = RunProgram("datums");
  EXPECT_EQ(DataRows(Datums.Out).size(), 271U);
  EXPECT_NE(Datums.Out.find("\n1,ACCRA,Ghana,gelWarOffice,-199,32,322,0,0,0,0\n"),
            std::string::npos);
  EXPECT_EQ(DataRows(RunProgram("datums 'old hawai ian'").Out).size(), 10U);
  EXPECT_EQ(RunProgram("datums atlantis").Status, 1);
}

TEST(CliConvert, EveryNotationToEveryOther) {
  const std::string Positions =
      "48.2082, 16.3738\r\n# Bergen, and a blank line\n\n60 23 24 N 5 19 12 E\n"
      "19H 344846.7 mE 6297700.2 mN\n33U XP 02065 40353\n";
  const TRun Mgrs = RunProgram("convert --to mgrs", "\xEF\xBB\xBF" + Positions);
  EXPECT_EQ(Mgrs.Status, 0) << Mgrs.Err;
  // As GeographicLib has them.
  EXPECT_EQ(Mgrs.Out,
            "33U XP 02065 40353\n# Bergen, and a blank line\n\n32V KN 97230 00510\n"
            "19H CC 44846 97700\n33U XP 02065 40353\n");
  // By way of each notation to degrees again: within its last digit.
  const auto Degrees = [](const std::string& Text) {
    const TRun Run = RunProgram("convert --to degrees --decimals 7", Text);
    EXPECT_EQ(Run.Status, 0) << Run.Err;
    std::vector<double> Numbers;
    for (const std::string& Line : SplitText(Run.Out, '\n'))
      if (!Line.empty() && Line[0] != '#')
        for (const std::string& Part : SplitText(Line, ','))
          Numbers.push_back(
              ToNumber(Part.substr(Part[0] == ' ', Part.find('\xC2') - (Part[0] == ' '))));
    return Numbers;
  };
  const auto Expected = Degrees(Positions);
  ASSERT_EQ(Expected.size(), 8U);
  for (const char* Notation : {"degrees", "MINUTES", "seconds", "utm", "mgrs"}) {
    const TRun Run = RunProgram(std::string("convert --to ") + Notation, Positions);
    ASSERT_EQ(Run.Status, 0) << Run.Err;
    const auto Found = Degrees(Run.Out);
    ASSERT_EQ(Found.size(), Expected.size());
    for (size_t i = 0; i < Found.size(); ++i) EXPECT_NEAR(Found[i], Expected[i], 2e-5) << Notation;
  }
  EXPECT_EQ(RunProgram("convert --to ups --decimals 1", "-85 30\n90 0\n").Out,
            RunProgram("convert --to ups --decimals 1 --from degrees", "85 S 30 E\n90 0\n").Out);
  EXPECT_EQ(RunProgram("convert --to mgrs --decimals -5", "48.2082 16.3738").Out, "33U XP\n");
  EXPECT_NE(RunProgram("convert --to utm --ellipsoid gelBess41", "48.2 16.4\n").Out,
            RunProgram("convert --to utm", "48.2 16.4\n").Out);
}

TEST(CliConvert, LinesThatCannotBeReadAreTold) {
  const std::string Input = "48 16\n48 61 16 0\n85 0\n470693 5150563\n49 17\n19S 344846 6297700\n";
  const TRun Run = RunProgram("convert --to utm", Input);
  EXPECT_EQ(Run.Status, 1);
  const auto Lines = SplitText(Run.Out, '\n');
  ASSERT_EQ(Lines.size(), 6U) << Run.Out;
  for (size_t i = 0; i < 6; ++i) EXPECT_EQ(Lines[i].empty(), i >= 1 && i <= 3) << i;
  for (const char* Message :
       {"standard input:2: column 4: Minutes", "standard input:3: the position is outside UTM",
        "standard input:4: column 1: The UTM zone is missing",
        "warning: standard input:6: 19S was read as the southern"})
    EXPECT_NE(Run.Err.find(Message), std::string::npos) << Run.Err;
  EXPECT_EQ(SplitText(RunProgram("convert --strict --to utm", Input).Out, '\n').size(), 1U);
  EXPECT_NE(RunProgram("convert --to utm --from mgrs", "48 16\n").Err.find("not mgrs"),
            std::string::npos);
  for (const char* Wrong : {"convert", "convert --to mars", "convert --to utm --decimals 13",
                            "convert --to utm --from mars", "convert --to utm --ellipsoid gelMoon"})
    EXPECT_EQ(RunProgram(Wrong, Input).Status, 2) << Wrong;
  EXPECT_EQ(RunProgram("convert --to utm /nowhere/at.all").Status, 1);
  EXPECT_EQ(RunProgram("convert --to utm /").Status, 1);
}

}  // namespace
}  // namespace zav
