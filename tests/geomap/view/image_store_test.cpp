// image_store_test.cpp - images kept within their limit, and given back only for the file as it is.
// SPDX-License-Identifier: MIT
#include <geomap/view/image_store.h>
#include <gtest/gtest.h>

#include "map_support.h"
#include "support/temp_folder.h"

namespace zav {
namespace {

TEST(ImageStore, KeepsTheNewestWithinTheLimit) {
  TImageStore Store;
  const auto Image = [](const std::string& Path, int32_t Width) {
    return TStampedBitmap{{Path, 1, {}}, TBitmap(Width, 10, TPixelFormat::pf32bit)};
  };
  Store.Keep(Image("a", 10));
  EXPECT_EQ(Store.Used(), 0) << "no limit was set";
  Store.SetLimit(1000);
  Store.Keep(Image("a", 10));
  Store.Keep(Image("b", 10));
  Store.Keep(Image("a", 10));
  EXPECT_EQ(Store.Used(), 800) << "one of each file";
  Store.Keep(Image("c", 10));
  EXPECT_FALSE(Store.Holds({"b", 1, {}})) << "the oldest goes";
  EXPECT_TRUE(Store.Holds({"a", 1, {}}));
  Store.Keep(Image("large", 26));
  Store.Keep({{}, TBitmap(1, 1, TPixelFormat::pf32bit)});
  EXPECT_EQ(Store.Used(), 800) << "neither one beyond the limit nor one of no file";
  EXPECT_FALSE(Store.Take({"a", 2, {}})) << "another state of the file";
  EXPECT_FALSE(Store.Take({}));
  const std::optional<TBitmap> Taken = Store.Take({"a", 1, {}});
  ASSERT_TRUE(Taken);
  EXPECT_EQ(Taken->Width(), 10);
  EXPECT_EQ(Store.Used(), 400);
  Store.SetLimit(399);
  EXPECT_EQ(Store.Used(), 0);
  Store.SetLimit(-1);
  EXPECT_EQ(Store.Limit(), 0);
}

// What a map shows is the file's picture, whether it was kept or not.
TEST(ImageStore, MapsShowKeptImagesAndReadChangedFilesAnew) {
  const TTempFolder Folder;
  const auto Write = [&](const std::string& Name, int32_t Width) {
    SaveJpegFile(Folder / Name, PlaceBitmap(Width, 40), 95);
  };
  Write("a.jpg", 50);
  Write("b.jpg", 60);
  TTestMap Control;
  TGeoMap& Map = Control.Map;
  int Decoded = 0;
  Map.OnDataLoading = [&](TGeoMap*, int Percent, bool&) { Decoded += Percent == 100 ? 1 : 0; };
  const auto Show = [&](const std::string& Name) {
    Decoded = 0;
    Map.SetMapImgName(Folder / Name);
    const TBitmap Fresh = LoadImageFile(Folder / Name, TImageKind::ikJpeg);
    EXPECT_EQ(Map.MapBitmap(), Fresh);
    EXPECT_EQ(Map.MapImgWidth(), Fresh.Width());
    return Decoded;
  };
  EXPECT_EQ(Show("a.jpg"), 1);
  EXPECT_EQ(Show("a.jpg"), 1) << "nothing is kept without a limit";
  Map.SetKeptImagesLimit(100000);
  EXPECT_EQ(Show("b.jpg"), 1);
  EXPECT_EQ(Show("a.jpg"), 0);
  EXPECT_EQ(Show("b.jpg"), 0);
  EXPECT_EQ(Show("b.jpg"), 0) << "the one that is shown";
  Map.ResizeMap(0.5);
  EXPECT_EQ(Show("b.jpg"), 1) << "what was scaled is not the file's picture";
  Write("a.jpg", 70);
  EXPECT_EQ(Show("a.jpg"), 1) << "the file was changed";

  Write("c.jpg", 80);
  Map.KeepImage(Folder / "c.jpg");
  EXPECT_EQ(Map.MapImgWidth(), 70) << "only kept";
  EXPECT_EQ(Show("c.jpg"), 0);
  EXPECT_THROW(Map.KeepImage(Folder / "none.jpg"), EInOutError);
  std::ofstream(Folder / "cut.jpg", std::ios::binary) << "\xFF\xD8\xFF";
  EXPECT_THROW(Map.KeepImage(Folder / "cut.jpg"), EInOutError);
  SaveJpegFile(Folder / "large.jpg", TBitmap(2001, 1500, TPixelFormat::pf32bit), 50);
  EXPECT_NE(ErrorOf<EZAVGeoMapError>([&] { Map.KeepImage(Folder / "large.jpg"); }), "");
  EXPECT_EQ(Map.MapImgWidth(), 80);
}

}  // namespace
}  // namespace zav
