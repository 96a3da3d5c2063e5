// calibration_common_test.cpp - what the command line and the viewer share about calibrations.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>

#include <platform/base/atomic_file.h>
#include <platform/base/errors.h>

#include "common/calibration_doubts.h"
#include "common/calibration_points.h"
#include "common/relative_name.h"
#include "support/temp_folder.h"

namespace zav {
namespace {

TEST(CalibrationPoints, OneTableOfAllKinds) {
  const TTempFolder Folder;
  const std::string File = Folder / "points.csv";
  WriteWholeFile(File,
                 "name;kind;value;lat;long;northing;easting;zone;hemisphere;x;y;enabled\n"
                 "Bern;point;;46,95;7,44;;;;;10;20;true\n"
                 "Ulm;;;48,4;10;5361000;574000;32;N;30;40;\n"
                 "off;;;47;8;;;;;50;60;no\n"
                 ";Meridian;8,5;;;;;;;70;80;\n");
  const auto Rows = ReadPointRows(File, TCalibModel::cmEquiRect);
  ASSERT_EQ(Rows.size(), 4u);
  EXPECT_EQ(Rows[0].Name, "Bern");
  EXPECT_EQ(Rows[1].Zone, 32);
  EXPECT_FALSE(Rows[2].Enabled);
  EXPECT_EQ(Rows[3].FileLine, 5);
  TPointsOptions Options;
  Options.Model = TCalibModel::cmEquiRect;
  TCalibData Data = ReadCalibrationItems(File, Options);
  ASSERT_EQ(Data.NumCalQuads, 2);  // neither what is off nor lines
  EXPECT_EQ(Data.CalQuads[0], (TCalQuad{46.95, 7.44, 10, 20}));
  EXPECT_EQ(Data.CalQuads[1], (TCalQuad{48.4, 10, 30, 40}));
  Options.Model = TCalibModel::cmParabolicIp;
  Data = ReadCalibrationItems(File, Options);
  EXPECT_EQ(Data.NumCalQuads, 0);
  ASSERT_EQ(Data.NumCalLines, 1);
  EXPECT_EQ(Data.CalLines[0].LineValue, 8.5);
  Options.Model = TCalibModel::cmUTM;
  Options.South = false;
  Data = ReadCalibrationItems(File, Options);
  ASSERT_EQ(Data.NumCalQuads, 2);
  EXPECT_EQ(Data.UTMZone, 32);  // of the row in metres, for the one in degrees, too
  EXPECT_EQ(Data.CalQuads[1].Latitude, 5361000);
  // GeographicLib's figures.
  EXPECT_NEAR(Data.CalQuads[0].Latitude, 5200788.907, 0.001);
  EXPECT_NEAR(Data.CalQuads[0].Longitude, 381290.484, 0.001);
  Options.Zone = 31;
  EXPECT_THROW(ReadCalibrationItems(File, Options), EInOutError);
}

// Twelve good points of the upper half of a sample map leave the fit's search in a wrong place; all
// 24 do not. Neither the points nor the model are to blame then.
TEST(CalibrationDoubts, AConicSearchThatWentAstray) {
  TPointsOptions Options;
  Options.Model = TCalibModel::cmConicConformal;
  TCalibData Data = ReadCalibrationItems(ZAVGEO_SAMPLES "/maps/europe_conic.points.csv", Options);
  ASSERT_EQ(Data.NumCalQuads, 24);
  TCalibration Calibration;
  Calibration.SetImageSize(2000, 1500);
  Calibration.SetData(Data, Options.Model);
  EXPECT_TRUE(FindDoubts(Calibration, Residuals(Calibration)).empty());
  Data.NumCalQuads = 12;
  Calibration.SetData(Data, Options.Model);
  const auto Doubts = FindDoubts(Calibration, Residuals(Calibration));
  ASSERT_EQ(Doubts.size(), 1u);
  EXPECT_EQ(Doubts[0].Kind, TDoubtKind::PoleAstray);
  EXPECT_NEAR(Doubts[0].Pixels, 0.4, 0.3);
}

// The spread of what a fit gives at a corner, from a thousand fits to points with errors of one
// pixel, is what is foretold.
TEST(CalibrationDoubts, GrowthAtCornersIsWhatErrorsDo) {
  TCalibData Data;
  for (int Row = 0; Row < 3; ++Row)
    for (int Column = 0; Column < 4; ++Column)
      Data.CalQuads[static_cast<size_t>(Data.NumCalQuads++)] = {50 - 0.1 * Row, 0.1 * Column,
                                                                100 + 50 * Column, 100 + 50 * Row};
  TCalibration Calibration;
  Calibration.SetImageSize(1000, 500);
  Calibration.SetData(Data, TCalibModel::cmEquiRect);
  const auto Growth = GrowthAtCorners(Calibration, Residuals(Calibration));
  ASSERT_EQ(Growth.size(), 4u);
  unsigned Seed = 1;
  const auto Error = [&Seed] {  // of mean 0 and variance 1, about normal
    double Sum = -6;
    for (int i = 0; i < 12; ++i) {
      Seed = Seed * 1664525 + 1013904223;
      Sum += Seed / 4294967296.0;
    }
    return Sum;
  };
  constexpr int Fits = 4000;
  const TPoint Corners[] = {{0, 0}, {0, 500}, {1000, 500}, {1000, 0}};
  double Squares[4] = {};
  for (int n = 0; n < Fits; ++n) {
    // Degrees with an error of a pixel, 0.002 degrees, read off at the corners.
    TCalibData Wrong = Data;
    for (int32_t i = 0; i < Data.NumCalQuads; ++i)
      Wrong.CalQuads[static_cast<size_t>(i)].Latitude += Error() * 0.002;
    TCalibration Fit;
    Fit.SetData(Wrong, TCalibModel::cmEquiRect);
    for (size_t c = 0; c < 4; ++c) {
      TCoords Read;
      TCoords True;
      ASSERT_TRUE(Fit.ToGeo(Corners[c].X, Corners[c].Y, Read));
      ASSERT_TRUE(Calibration.ToGeo(Corners[c].X, Corners[c].Y, True));
      Squares[c] += std::pow((Read.Latit - True.Latit) / 0.002, 2);
    }
  }
  for (size_t c = 0; c < 4; ++c)
    EXPECT_NEAR(std::sqrt(Squares[c] / Fits), Growth[c], Growth[c] * 0.06) << c;
  EXPECT_GT(Growth[gcoBottomRight], 3);
  EXPECT_LT(Growth[gcoTopLeft], 3);
}

TEST(RelativeName, FromTheFilesFolder) {
  const TTempFolder Folder;
  const std::string Image = Folder / "img/a.jpg";
  EXPECT_EQ(NameFromFolderOf(Folder / "map.xml", Image), "img/a.jpg");
  EXPECT_EQ(NameFromFolderOf(Folder / "maps/map.xml", Image), "../img/a.jpg");
  EXPECT_EQ(NameFromFolderOf(Folder / "img/map.xml", Image), "a.jpg");
}

}  // namespace
}  // namespace zav
