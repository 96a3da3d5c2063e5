// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <support/temp_folder.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include "map_support.h"

namespace zav {
namespace {

// A bitmap file of one bit a pixel, all white; without its pixels when HeaderOnly.
void WriteBmp(const std::string& Path, int32_t Width, int32_t Height, bool HeaderOnly = false) {
  std::string Bytes;
  const auto Put = [&](int64_t Value, int Count) {
    for (; Count > 0; --Count, Value >>= 8) Bytes += static_cast<char>(Value & 0xFF);
  };
  const int64_t Size = (int64_t{Width} + 31) / 32 * 4 * Height;
  Bytes += "BM";
  for (const int64_t Field : {62 + Size, int64_t{0}, int64_t{62}, int64_t{40}}) Put(Field, 4);
  Put(Width, 4);
  Put(Height, 4);
  Put(1, 2);
  Put(1, 2);
  for (const int64_t Field : {int64_t{0}, Size, int64_t{0}, int64_t{0}, int64_t{2}, int64_t{0}}) {
    Put(Field, 4);
  }
  Put(0x000000, 4);
  Put(0xFFFFFF, 4);
  if (!HeaderOnly) Bytes.append(static_cast<size_t>(Size), '\xFF');
  std::ofstream(Path, std::ios::binary) << Bytes;
}

TEST(MapImage, LoadingAndItsLimits) {
  const TTempFolder Folder;
  WriteBmp(Folder / "most.bmp", 2000, 1500);
  WriteBmp(Folder / "more.bmp", 2001, 1500);
  WriteBmp(Folder / "huge.bmp", 8001, 8000, true);
  std::ofstream(Folder / "other.png") << "not a picture";
  std::ofstream(Folder / "damaged.jpg") << "nor is this";
  SaveJpegFile(Folder / "MAP.JPEG", PlaceBitmap(64, 48), 90);

  TTestMap T;
  TGeoMap& Map = T.Map;
  Map.SetView({5, 5}, 0.6);
  Map.SetMapImgName(Folder / "most.bmp");
  EXPECT_EQ(Map.MapImgFile(), Folder / "most.bmp");
  EXPECT_EQ(Map.MapImgWidth(), 2000);
  EXPECT_EQ(Map.MapImgHeight(), 1500);
  EXPECT_EQ(Map.View(), (TViewState{{0, 0}, 0.6}));
  EXPECT_EQ(Map.Calibration().ImageWidth(), 2000);

  const std::string Message =
      "Component \"GeoMap1\": Cannot use map image, maximum of 3000000 pixels exceeded (size of "
      "map "
      "is ";
  const auto Load = [&](const std::string& Path) {
    return ErrorOf<EZAVGeoMapError>([&] { Map.SetMapImgName(Path); });
  };
  EXPECT_EQ(Load(Folder / "huge.bmp"), Message + "8001 x 8000)");
  EXPECT_EQ(Map.MapBitmap().Width(), 2000) << "refused from its header";
  EXPECT_EQ(Load(Folder / "more.bmp"), Message + "2001 x 1500)");
  EXPECT_EQ(Map.MapBitmap().Width(), 2001) << "holds the new pixels already";
  EXPECT_EQ(Map.MapImgFile(), Folder / "most.bmp");
  EXPECT_EQ(Map.MapImgWidth(), 2000);
  EXPECT_EQ(ErrorOf<EZAVGeoMapError>([&] { Map.SetMapBitMap(PlaceBitmap(3000001, 1)); }),
            Message + "3000001 x 1)");

  // Upper and lower case do not matter, neither of the name nor of the extension.
  Map.SetMapImgName(Folder / "map.jpeg");
  EXPECT_EQ(Map.MapImgWidth(), 64);
  EXPECT_EQ(Map.MapImgFile(), Folder / "map.jpeg");
  Map.SetMapImgName(Folder / "other.png");
  EXPECT_EQ(Map.MapImgFile(), Folder / "other.png");
  EXPECT_EQ(Map.MapBitmap().Width(), 64);
  EXPECT_THROW(Map.SetMapImgName(Folder / "damaged.jpg"), EInOutError);
  EXPECT_EQ(Map.MapImgFile(), Folder / "other.png");
  T.Seen = {};
  Map.SetMapImgName(Folder / "missing.jpg");
  EXPECT_EQ(Map.MapImgFile(), "");
  EXPECT_EQ(Map.MapImgWidth(), 0);
  EXPECT_EQ(Map.Calibration().ImageWidth(), 0);
  EXPECT_EQ(T.Seen.Images, 1);
}

TEST(MapImage, RequestProgressAndCancel) {
  TTestMap T;
  TGeoMap& Map = T.Map;
  int Last = -1;
  Map.OnMapImageRequest = [](TGeoMap*, std::string& Name) {
    EXPECT_EQ(Name, "archive:42");
    Name = ZAVGEO_SAMPLES "/maps/europe_conic.jpg";
  };
  Map.OnDataLoading = [&](TGeoMap*, int Percent, bool&) {
    EXPECT_GE(Percent, Last);
    Last = Percent;
  };
  Map.SetMapImgName("archive:42");
  EXPECT_EQ(Map.MapImgFile(), "archive:42");
  EXPECT_EQ(Map.MapImgWidth(), 2000);
  EXPECT_EQ(Last, 100);
  Map.SetMapBitMap(PlaceBitmap(70, 60));
  Map.OnDataLoading = [](TGeoMap*, int Percent, bool& Cancel) { Cancel = Percent >= 20; };
  EXPECT_THROW(Map.SetMapImgName("archive:42"), EImageCancelled);
  EXPECT_EQ(Map.MapImgFile(), "$unknown$");
  EXPECT_EQ(Map.MapBitmap().Width(), 70);
}

TEST(MapImage, PixelsOnTheWindow) {
  TTestMap T(900, 700);
  TGeoMap& Map = T.Map;
  const auto Shown = [&](int32_t X, int32_t Y) {
    return TTestHost::WindowOf(Map).Buffer().Pixel(X, Y);
  };
  Map.SetTopLeft({37, 121});
  EXPECT_EQ(Shown(10, 20), OnPicture(PlaceColor(47, 141)));
  Map.SetAntiAlias(false);
  Map.SetMagnification(2);
  for (const TPoint& P : {TPoint{40, 60}, TPoint{41, 61}, TPoint{400, 300}}) {
    EXPECT_EQ(Shown(P.X, P.Y), OnPicture(PlaceColor(37 + P.X / 2, 121 + P.Y / 2)));
  }
  // From the cache the same pixels as the whole map scaled at once, wherever the view is.
  Map.SetAntiAlias(true);
  Map.SetView({100, 60}, 0.5);
  const TColor There = Shown(200, 90);
  Map.SetTopLeft({140, 80});
  EXPECT_EQ(Shown(180, 80), There);
  // The cache must not outlive its image.
  Map.SetMapBitMap(TBitmap(900, 700, TPixelFormat::pf32bit));
  EXPECT_EQ(Shown(200, 90), 0U);
  // Off the map there is background; round it all a frame, sunken.
  Map.SetView({-100, 600}, 1);
  EXPECT_EQ(Shown(60, 50), OnPicture(clSilver));
  EXPECT_EQ(Shown(160, 50), 0U);
  EXPECT_EQ(Shown(160, 105), OnPicture(clSilver));
  EXPECT_EQ(Shown(0, 0), OnPicture(clGray));
  EXPECT_EQ(Shown(499, 399), OnPicture(clWhite));
}

TEST(MapImage, ResizeTakesCalibrationAlong) {
  TTestMap T(2000, 1000);
  TGeoMap& Map = T.Map;
  TCalibData Data = PlainQuads(54, 5, 20, {{0, 0}, {400, 1}, {3, 300}});
  Data.NumCalLines = 1;
  Data.CalLines[0] = {TGratLineKind::gtlParallel, 50, 1, {{{7, 40}}}};
  Map.SetCalibration(Data, TCalibModel::cmEquiRect);
  const TCornerArray Corners = Map.CalibData().Corners;
  Map.SetView({50, 50}, 1.5);
  T.Seen = {};
  Map.ResizeMap(500);
  EXPECT_EQ(T.Seen.Paints, 1);
  EXPECT_EQ(Map.MapImgWidth(), 500);
  EXPECT_EQ(Map.MapImgHeight(), 250);
  EXPECT_EQ(Map.MapBitmap().Width(), 500);
  EXPECT_EQ(Map.View(), (TViewState{{0, 0}, 1.5}));
  const TCalibData& Now = Map.CalibData();
  EXPECT_EQ(Now.CalQuads[1].MapX, 100);
  EXPECT_EQ(Now.CalQuads[1].MapY, 0);
  EXPECT_EQ(Now.CalQuads[2].MapX, 1);
  EXPECT_EQ(Now.CalLines[0].CalPoints[0], (TPoint{2, 10}));
  // The same area in a quarter of the pixels (points moved by up to a pixel when rounded).
  EXPECT_NEAR(Now.Corners[gcoBottomRight].Latit, Corners[gcoBottomRight].Latit, 1);
  EXPECT_NEAR(Now.Corners[gcoBottomRight].Longit, Corners[gcoBottomRight].Longit, 1);

  EXPECT_NE(ErrorOf<EZAVGeoMapError>([&] { Map.ResizeMap(100000); }), "");
  Map.ResizeMap(0.0);
  Map.ResizeMap(std::nan(""));
  EXPECT_EQ(Map.MapImgWidth(), 500);
  Map.Clear();
  Map.ResizeMap(900);
  EXPECT_EQ(Map.MapBitmap().Width(), 500);
}

TEST(MapImage, CalibrationFileFindsImageBesideIt) {
  const TTempFolder Folder;
  WriteBmp(Folder / "Große Karte.BMP", 300, 200);
  TTestMap T;
  TGeoMap& Map = T.Map;
  TCalibData Data = PlainQuads(54, 5, 10, {{0, 0}, {290, 0}, {0, 190}});
  Data.MapFName = "C:\\Maps\\Große Karte.BMP";
  Data.Caption = "Caption";
  Map.SetMapBitMap(PlaceBitmap(300, 200));
  Map.SetCalibration(Data, TCalibModel::cmEquiRect);
  const TCalibData Saved = Map.CalibData();
  Map.SaveCalDataAsXML(Folder / "Map.xml", "one");
  Map.Clear();

  T.Seen = {};
  Map.SetCalDatName(Folder / "MAP.XML");
  EXPECT_EQ(Map.CalibDataFile(), Folder / "MAP.XML");
  EXPECT_EQ(T.Seen.Paints, 1);
  EXPECT_EQ(Map.MapImgWidth(), 300);
  EXPECT_EQ(Map.MapImgFile(), "c:\\maps\\große karte.bmp");
  EXPECT_EQ(Map.CalibModel(), TCalibModel::cmEquiRect);
  EXPECT_NEAR(Map.CalibData().Corners[gcoBottomRight].Longit, Saved.Corners[gcoBottomRight].Longit,
              1e-5);
  bool Valid = false;
  EXPECT_NEAR(Map.CalcLatitude(0, 100, Valid), 44, 1e-4);

  // Without the image: conversions, corners and resolution are there all the same.
  std::filesystem::remove(Folder / "Große Karte.BMP");
  EXPECT_FALSE(Map.LoadCalDataFromXML(Folder / "map.xml", "ONE"));
  EXPECT_EQ(Map.MapImgFile(), "");
  EXPECT_NEAR(Map.CalcLatitude(0, 100, Valid), 44, 1e-4);
  EXPECT_NEAR(Map.CalibData().Resolution, Saved.Resolution, 1e-3);
  EXPECT_TRUE(Map.IsPositionWithinMap(50, 10));

  // With one that cannot be read: the error, and the calibration all the same.
  Map.ClearCalibData();
  std::ofstream(Folder / "große karte.bmp") << "damaged";
  EXPECT_THROW(Map.LoadCalDataFromXML(Folder / "map.xml", ""), EInOutError);
  std::filesystem::remove(Folder / "große karte.bmp");
  EXPECT_NEAR(Map.CalcLatitude(0, 100, Valid), 44, 1e-4);

  // Another id: nothing changes. A file that does not exist.
  const TCalibData Before = Map.CalibData();
  T.Seen = {};
  EXPECT_FALSE(Map.LoadCalDataFromXML(Folder / "map.xml", "two"));
  EXPECT_EQ(Map.CalibData(), Before);
  EXPECT_EQ(T.Seen.Paints, 0);
  EXPECT_THROW(Map.LoadCalDataFromXML(Folder / "none.xml", ""), EInOutError);
  Map.SetMapBitMap(PlaceBitmap(9, 9));
  Map.SetCalDatName(Folder / "none.xml");
  EXPECT_EQ(Map.CalibDataFile(), Folder / "MAP.XML");
  EXPECT_EQ(Map.MapImgWidth(), 0);

  // Through streams and open files; an error in the middle has the control's name.
  TMemoryStream Stream;
  Map.SaveCalDataAsXML(Stream, "");
  Stream.SetPosition(0);
  Map.Clear();
  Map.LoadCalDataFromXML(Stream, "");
  EXPECT_EQ(Map.CalibData().NumCalQuads, 3);
  TextFile Out;
  Out.Rewrite(Folder / "bad.xml");
  Map.WriteCalDataToOpenXMLFile(Out, true, "");
  Out.WriteLn(
      "<geomap sig=\"Tarvoline\" vers=\"1.0\" id=\"x\" model=\"utm\" map=\"\" caption=\"\">");
  Out.WriteLn("<calline type=\"slope\" value=\"1\" npoints=\"0\"></calline></geomap>");
  Out.Close();
  TextFile In;
  In.Reset(Folder / "bad.xml");
  Map.ReadCalDataFromOpenXMLFile(In, "");
  EXPECT_EQ(Map.CalibModel(), TCalibModel::cmEquiRect);
  EXPECT_EQ(ErrorOf<EZAVGeoMapError>([&] { Map.ReadCalDataFromOpenXMLFile(In, "x"); }),
            "Component \"GeoMap1\": invalid type of graticule line: type=\"slope\"");
}

}  // namespace
}  // namespace zav
