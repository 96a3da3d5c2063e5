// save_test.cpp - what the map control writes: image and calibration, a new name, the clipboard.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <platform/base/read_file.h>
#include <support/failing_file_ops.h>
#include <support/temp_folder.h>
#include <support/test_printer.h>

#include <cmath>
#include <filesystem>

#include "map_support.h"

namespace zav {
namespace {

TEST(MapSave, ImageAndCalibrationMakeAMapThatOpens) {
  const TTempFolder Folder;
  TTestMap T(300, 200);
  T.Map.SetCalibration(PlainQuads(50, 10, 10, {{0, 0}, {200, 0}, {0, 150}, {200, 150}}),
                       TCalibModel::cmEquiRect);
  int Last = 0;
  T.Map.OnDataLoading = [&](TGeoMap*, int Percent, bool&) { Last = Percent; };
  // Whatever extension is asked for, a JPEG is written.
  T.Map.SaveMap(Folder / "City.bmp", "town");
  EXPECT_EQ(Folder.Names(), (std::vector<std::string>{"City.jpg", "City.xml"}));
  EXPECT_EQ(T.Map.MapImgFile(), "City.jpg");
  EXPECT_EQ(Last, 100);
  EXPECT_EQ(T.Seen.Images, 1);
  // Quality 95: the mean error of a pattern as rough as this is a few levels.
  const TBitmap Read = LoadImageFile(Folder / "City.jpg", TImageKind::ikJpeg);
  ASSERT_EQ(Read.Width(), 300);
  double Sum = 0;
  for (int32_t Y = 0; Y < 200; ++Y)
    for (int32_t X = 0; X < 300; ++X)
      Sum += std::abs(GreenOf(Read.Pixel(X, Y)) - GreenOf(PlaceColor(X, Y)));
  EXPECT_LT(Sum / 60000, 3);

  TTestMap Again;
  Again.Map.LoadCalDataFromXML(Folder / "City.xml", "TOWN");
  EXPECT_EQ(Again.Map.MapImgWidth(), 300);
  EXPECT_EQ(Again.Map.CalibData().NumCalQuads, 4);
  // The image is renamed where it is, beside the calibration file, in either control.
  EXPECT_TRUE(Again.Map.RenameMapImg("village"));
  EXPECT_EQ(Again.Map.MapImgFile(), "village.jpg");
  EXPECT_EQ(Folder.Names(), (std::vector<std::string>{"City.xml", "village.jpg"}));
}

TEST(MapSave, FailuresLeaveTheOldPairWhole) {
  const TTempFolder Folder;
  TTestMap Old(64, 48);
  Old.Map.SaveMap(Folder / "city.jpg", "");
  const std::string Image = ReadWholeTextFile(Folder / "city.jpg");
  const std::string Calibration = ReadWholeTextFile(Folder / "city.xml");

  TTestMap T(200, 300);
  T.Map.SetMapCaption("new");
  TFailingFileOps Ops;
  int Failures = 0;
  {
    const TFileOpsOverride With(Ops);
    for (int Operation = 1;; ++Operation) {
      Ops.Arm(Operation);
      const std::string Error =
          ErrorOf<EInOutError>([&] { T.Map.SaveMap(Folder / "city.bmp", ""); });
      if (!Ops.Failed()) break;
      ++Failures;
      EXPECT_NE(Error, "");
      EXPECT_EQ(Folder.Names().size(), 2U) << Operation;
      EXPECT_EQ(T.Map.MapImgFile(), UnknownMapImgName);
      EXPECT_TRUE(ReadWholeTextFile(Folder / "city.jpg") == Image) << Operation;
      // All that can fill a disk comes before the first file is replaced.
      if (ReadWholeTextFile(Folder / "city.xml") != Calibration)
        WriteWholeFile(Folder / "city.xml", Calibration);
    }
  }
  EXPECT_GT(Failures, 7);
  EXPECT_EQ(T.Map.MapImgFile(), "city.jpg");

  // Refused, cancelled, and a control that its own progress handler destroys.
  T.Map.SetMapCaption("in \"quotes\"");
  EXPECT_NE(ErrorOf<EZAVGeoMapError>([&] { T.Map.SaveMap(Folder / "quoted.jpg", ""); }), "");
  T.Map.SetMapCaption("");
  T.Map.OnDataLoading = [](TGeoMap*, int Percent, bool& Cancel) { Cancel = Percent > 20; };
  EXPECT_THROW(T.Map.SaveMap(Folder / "cancelled.jpg", ""), EImageCancelled);
  auto Mortal = std::make_unique<TGeoMap>(nullptr, T.Host);
  Mortal->SetMapBitMap(PlaceBitmap(64, 64));
  Mortal->OnDataLoading = [&](TGeoMap*, int, bool&) { Mortal.reset(); };
  Mortal->SaveMap(Folder / "dead.jpg", "");
  EXPECT_EQ(Mortal, nullptr);
  EXPECT_THROW(TTestMap().Map.SaveMap(Folder / "empty.jpg", ""), EInOutError);
  EXPECT_THROW(T.Map.SaveMap(Folder.Path(), ""), EInOutError);
  EXPECT_EQ(Folder.Names(), (std::vector<std::string>{"city.jpg", "city.xml"}));
}

TEST(MapSave, RenamingTheImage) {
  const TTempFolder Folder;
  SaveJpegFile(Folder / "old.JPG", PlaceBitmap(20, 20), 90);
  SaveJpegFile(Folder / "taken.JPG", PlaceBitmap(30, 30), 90);
  TTestMap T;
  EXPECT_FALSE(T.Map.RenameMapImg("new"));
  T.Map.SetMapImgName(Folder / "old.JPG");
  for (const char* Refused : {"", "...", "../x", "taken", "taken.bmp", " t*a?ken"})
    EXPECT_FALSE(T.Map.RenameMapImg(Refused)) << Refused;
  EXPECT_EQ(T.Map.MapImgFile(), Folder / "old.JPG");
  const struct {
    const char* Name;
    const char* File;
  } Cases[] = {{"new.bmp", "new.JPG"},
               {"my new map", "mynewmap.JPG"},
               {"mynewmap", "mynewmap.JPG"},
               {"old/a:b", "oldab.JPG"}};
  for (const auto& Case : Cases) {
    EXPECT_TRUE(T.Map.RenameMapImg(Case.Name)) << Case.Name;
    EXPECT_EQ(T.Map.MapImgFile(), Folder / Case.File);
    EXPECT_EQ(Folder.Names().size(), 2U);
    EXPECT_TRUE(std::filesystem::exists(Folder / Case.File)) << Case.File;
  }
  TFailingFileOps Ops;
  const TFileOpsOverride With(Ops);
  Ops.Arm(1);
  EXPECT_THROW(T.Map.RenameMapImg("other"), EInOutError);
  EXPECT_EQ(T.Map.MapImgFile(), Folder / "oldab.JPG");
  T.Map.SetMapBitMap(PlaceBitmap(8, 8));
  EXPECT_FALSE(T.Map.RenameMapImg("new"));
}

TEST(MapClipboard, ViewWithItsOutlineAndWholeMap) {
  TTestMap T(700, 300);
  EXPECT_EQ(ErrorOf<EZAVError>([&] { T.Map.CopyToClipboard(); }), "There is no clipboard");
  TTestClipboard Clipboard;
  T.Host.TestClipboard = &Clipboard;
  T.Map.SetSize(40, 30);
  T.Map.SetTopLeft({100, 50});
  T.Map.CopyToClipboard();
  const TBitmap& Copy = Clipboard.Bitmap;
  ASSERT_EQ(Copy.Width(), 40);
  ASSERT_EQ(Copy.Height(), 30);
  for (int32_t Y = 0; Y < 30; ++Y) {
    for (int32_t X = 0; X < 40; ++X) {
      const bool Inside = X >= 2 && X < 38 && Y >= 2 && Y < 28;
      EXPECT_EQ(Copy.Pixel(X, Y), Inside ? OnPicture(PlaceColor(X + 100, Y + 50)) : clBlack)
          << X << " " << Y;
    }
  }
  // The whole map does not depend on the view, and keeps all colours.
  T.Map.SetView({-30, 20}, 0.7);
  T.Map.CopyEntireMapToClipboard();
  EXPECT_TRUE(Clipboard.Bitmap == PlaceBitmap(700, 300));
  Clipboard.Bitmap = {};
  T.Map.Clear();
  T.Map.CopyEntireMapToClipboard();
  EXPECT_TRUE(Clipboard.Bitmap.Empty());

  // On a screen of high resolution line and margin are as much larger.
  TTestHost Host;
  Host.Scale = 2;
  Host.TestClipboard = &Clipboard;
  TGeoMap Map(nullptr, Host);
  Map.SetSize(20, 20);
  Map.SetMapBitMap(TBitmap(PlaceBitmap(40, 40)));
  Map.CopyToClipboard();
  ASSERT_EQ(Clipboard.Bitmap.Width(), 40);
  EXPECT_EQ(Clipboard.Bitmap.Pixel(3, 20), clBlack);
  EXPECT_EQ(Clipboard.Bitmap.Pixel(4, 20), Map.InternalMapImg().Pixel(4, 20));
}

}  // namespace
}  // namespace zav
