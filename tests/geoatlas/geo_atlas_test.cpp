// geo_atlas_test.cpp - the atlas control: what is shown, drawn and told after each operation.
// SPDX-License-Identifier: MIT
#include <geoatlas/geo_atlas.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "atlas_files.h"
#include "support/recording_canvas.h"
#include "support/temp_folder.h"
#include "support/test_host.h"

namespace zav {
namespace {

using test::WriteMap;

class GeoAtlasTest : public ::testing::Test {
 protected:
  void SetUp() override {
    Write("World", "world", -50, -100, 100);  // 1 degree a pixel
    Write("Europe", "", 30, -10, 40);
    Write("Alps", "alps", 44, 5, 4);
    for (const char* Name : {"World.XML", "Europe.XML", "Alps.XML"})
      ASSERT_TRUE(Atlas.RegisterMap(Folder / Name));
  }
  void Write(const std::string& Name, const std::string& Caption, double South, double West,
             double High) {
    WriteMap(Folder / (Name + ".XML"), Name + ".bmp", Caption, South, West, High);
    test::WriteImage(Folder / (Name + ".bmp"));
  }
  std::string Shown() { return Atlas.GeoMap().CalibData().Caption; }
  // Where a position is on the control.
  TPoint At(double Lat, double Long) {
    TPoint Pixel;
    EXPECT_TRUE(Atlas.GeoMap().CalcPixelCoords(Lat, Long, Pixel.X, Pixel.Y));
    return Atlas.GeoMap().MapImageToControl(Pixel);
  }
  void ClickAt(double Lat, double Long, TMouseButton Button) {
    const TPoint P = At(Lat, Long);
    Atlas.GeoMap().MouseDown(Button, 0, P.X, P.Y);
    Atlas.GeoMap().MouseUp(Button, 0, P.X, P.Y);
  }

  TTempFolder Folder;
  TTestHost Host;
  TGeoAtlas Atlas{nullptr, Host};
};

TEST_F(GeoAtlasTest, BeginsEmptyWithThePointer) {
  TGeoAtlas Empty(nullptr, Host);
  EXPECT_EQ(Empty.Width(), 480);
  EXPECT_EQ(Empty.Height(), 320);
  EXPECT_EQ(Empty.GeoMap().EmptyMsg(), "TGeoAtlas: Empty");
  EXPECT_EQ(Empty.GeoMap().Height(), 320 - 33);
  Empty.SetCPnlVis(false);
  EXPECT_EQ(Empty.GeoMap().Height(), 320);
  EXPECT_FALSE(Empty.ZoomMode());
  EXPECT_TRUE(Empty.MapOutlineVisible());
  EXPECT_EQ(Empty.MapOutlineColor(), 0xFF0000);
  EXPECT_EQ(Empty.MinResDiff(), 10);
  EXPECT_FALSE(Empty.SelectMap(1));
  EXPECT_EQ(Empty.CurrentMapIdx(), 0);
  EXPECT_EQ(Empty.ListItemIndex(), -1);
}

TEST_F(GeoAtlasTest, SelectsAndUnregisters) {
  EXPECT_EQ(Atlas.ListItemIndex(), -1) << "registering shows nothing";
  EXPECT_TRUE(Atlas.SelectMap(1));
  EXPECT_EQ(Shown(), "world");
  EXPECT_EQ(Atlas.GeoMap().MapImgWidth(), 200) << "the image lies beside the file";
  EXPECT_EQ(Atlas.ListItemIndex(), 0);
  EXPECT_TRUE(Atlas.RegisterMap(Folder / "Alps.XML"));
  EXPECT_EQ(Atlas.ListItemIndex(), -1) << "filling the list anew forgets the choice";
  EXPECT_TRUE(Atlas.SelectMap(1));
  // Another than the chosen one: the map stays, the list forgets.
  Atlas.UnregisterMap(3);
  EXPECT_EQ(Shown(), "world");
  EXPECT_EQ(Atlas.ListItemIndex(), -1);
  EXPECT_EQ(Atlas.CurrentMapIdx(), 1);
  // The chosen one: the next moves into its place.
  EXPECT_TRUE(Atlas.SelectMap(1));
  Atlas.UnregisterMap(1);
  EXPECT_EQ(Atlas.GeoMap().CalibData().Caption, "");
  EXPECT_EQ(Atlas.ListItemIndex(), 0);
  Atlas.UnregisterMap(1);
  EXPECT_EQ(Atlas.GetNumRegMaps(), 0);
  EXPECT_EQ(Atlas.ListItemIndex(), -1);
  Atlas.UnregisterMap(1);

  // A file that has vanished is told by false; it counts as the current one.
  ASSERT_TRUE(Atlas.RegisterMap(Folder / "Alps.XML"));
  ASSERT_TRUE(Atlas.RegisterMap(Folder / "World.XML"));
  ASSERT_TRUE(Atlas.SelectMap(2));
  std::remove((Folder / "Alps.XML").c_str());
  EXPECT_FALSE(Atlas.SelectMap(1));
  EXPECT_EQ(Atlas.CurrentMapIdx(), 1);
  EXPECT_EQ(Atlas.ListItemIndex(), 1);
  EXPECT_EQ(Shown(), "world");
}

TEST_F(GeoAtlasTest, ClicksGoInAndOut) {
  ASSERT_TRUE(Atlas.SelectMap(1));
  std::string Events;
  Atlas.OnMouseDown = [&](TCustomControl*, TMouseButton, TShiftState, int32_t, int32_t) {
    Events += "down on " + Shown() + "; ";
  };
  Atlas.OnClick = [&](TCustomControl*) { Events += "click; "; };
  Atlas.OnZoomButClick = [&](TCustomControl*) { Events += "zoom; "; };
  Atlas.OnPointerButClick = [&](TCustomControl*) { Events += "pointer; "; };
  ClickAt(46, 8, TMouseButton::mbLeft);
  EXPECT_EQ(Shown(), "world") << "the pointer does not zoom";
  Atlas.PressZoomButton();
  EXPECT_EQ(Atlas.Cursor(), crGeoZoom);
  EXPECT_FALSE(Atlas.GeoMap().GetAllowPan());
  ClickAt(46, 8, TMouseButton::mbLeft);
  EXPECT_EQ(Atlas.CurrentMapIdx(), 2);
  ClickAt(46, 8, TMouseButton::mbLeft);
  EXPECT_EQ(Shown(), "alps");
  ClickAt(46, 8, TMouseButton::mbLeft);
  EXPECT_EQ(Shown(), "alps") << "there is no finer one";
  ClickAt(46, 8, TMouseButton::mbRight);
  EXPECT_EQ(Atlas.CurrentMapIdx(), 2);
  ClickAt(46, 8, TMouseButton::mbMiddle);
  EXPECT_EQ(Shown(), "world");
  Atlas.PressPointerButton();
  EXPECT_EQ(Atlas.Cursor(), crHandPoint);
  EXPECT_TRUE(Atlas.GeoMap().GetAllowPan());
  EXPECT_EQ(Events,
            "down on world; click; zoom; down on world; down on ; down on alps; down on alps; "
            "down on ; click; pointer; ");

  // A place that a map covers is in the middle after the change, as far as the edge allows.
  Atlas.SetSize(60, 50 + TGeoAtlas::PanelHeight);
  ASSERT_TRUE(Atlas.ZoomIn(46.5, 9.5, Atlas.GetMapDef(2).Resolution));
  const TPoint Middle = At(46.5, 9.5);
  EXPECT_NEAR(Middle.X, 30, 1);
  EXPECT_NEAR(Middle.Y, 25, 1);
  EXPECT_FALSE(Atlas.ZoomIn(46.5, 179, 1e9));
}

TEST_F(GeoAtlasTest, TheListShowsMapsAndHandlersMayDestroyTheAtlas) {
  int Changes = 0;
  Atlas.OnCBoxMapsChange = [&](TCustomControl*) { ++Changes; };
  Atlas.ChooseInList(2);
  EXPECT_EQ(Shown(), "alps");
  EXPECT_EQ(Atlas.CurrentMapIdx(), 3);
  EXPECT_EQ(Changes, 1);

  for (int Event = 0; Event < 3; ++Event) {
    auto Doomed = std::make_unique<TGeoAtlas>(nullptr, Host);
    ASSERT_TRUE(Doomed->RegisterMap(Folder / "World.XML"));
    TGeoAtlas& Raw = *Doomed;
    const auto Destroy = [&Doomed](TCustomControl*) { Doomed.reset(); };
    Raw.OnClick = Destroy;
    Raw.OnCBoxMapsChange = Destroy;
    Raw.OnMouseDown = [&Doomed](TCustomControl*, TMouseButton, TShiftState, int32_t, int32_t) {
      Doomed.reset();
    };
    if (Event == 0) Raw.PressZoomButton();
    if (Event == 1) Raw.ChooseInList(0);
    if (Event == 2) Raw.GeoMap().MouseDown(TMouseButton::mbLeft, 0, 5, 5);
    EXPECT_EQ(Doomed, nullptr);
  }
}

// The map that is selected is painted once, without its own outline.
TEST_F(GeoAtlasTest, PaintsOnceAndKeepsImages) {
  struct TCounter final : TGeoMapObserver {
    int Paints = 0;
    void Painted(TGeoMap&) override { ++Paints; }
  } Counter;
  TGeoMap& Map = Atlas.GeoMap();
  Map.AddObserver(&Counter);
  int Decoded = 0;
  Map.OnDataLoading = [&](TGeoMap*, int Percent, bool&) { Decoded += Percent == 100 ? 1 : 0; };
  const auto BlueAt = [&](TPoint P) {
    return TTestHost::WindowOf(Map).Buffer().Pixel(P.X, P.Y) == 0xFF0000;
  };
  for (const int32_t Index : {1, 3, 1, 2}) {
    Counter.Paints = 0;
    ASSERT_TRUE(Atlas.SelectMap(Index));
    EXPECT_EQ(Counter.Paints, 1);
    EXPECT_FALSE(BlueAt({0, 50})) << "its own outline";
  }
  EXPECT_EQ(Decoded, 3) << "the world's image was kept";
  EXPECT_TRUE(BlueAt(At(45, 13))) << "the alps on Europe";
  Counter.Paints = 0;
  EXPECT_TRUE(Atlas.ZoomIn(46, 8, Atlas.ShownResolution()));
  EXPECT_EQ(Counter.Paints, 1);
  Atlas.UnregisterAll();
  EXPECT_EQ(Atlas.GetNumRegMaps(), 0);
  EXPECT_EQ(Shown(), "alps");
  Map.RemoveObserver(&Counter);
}

// What goes wrong is told, and never leaves the map without repaints.
TEST_F(GeoAtlasTest, ProblemsAreTold) {
  EXPECT_FALSE(Atlas.SelectMap(4));
  EXPECT_NE(Atlas.Problem(), "");
  ASSERT_TRUE(Atlas.SelectMap(2));
  EXPECT_EQ(Atlas.Problem(), "");
  EXPECT_FALSE(Atlas.RegisterMap(Folder / "none.xml"));
  EXPECT_NE(Atlas.Problem().find("none.xml: no such file"), std::string::npos);
  std::ofstream(Folder / "Alps.bmp") << "BM damaged";
  EXPECT_FALSE(Atlas.SelectMap(3));
  EXPECT_NE(Atlas.Problem().find("Alps.bmp"), std::string::npos) << Atlas.Problem();
  EXPECT_FALSE(Atlas.GeoMap().SuppressPaint());
  Atlas.GeoMap().OnDataLoading = [](TGeoMap*, int, bool&) { throw std::runtime_error("handler"); };
  EXPECT_THROW(Atlas.SelectMap(1), std::runtime_error);
  EXPECT_THROW(Atlas.ZoomOut(46, 8, Atlas.GetMapDef(2).Resolution), std::runtime_error);
  EXPECT_FALSE(Atlas.GeoMap().SuppressPaint());
  // An image that does not lie beside its file is found as it is named.
  Atlas.GeoMap().OnDataLoading = nullptr;
  std::filesystem::create_directory(Folder / "sub");
  WriteMap(Folder / "sub/New.XML", "unused", "new", 0, 0, 10);
  test::WriteImage(Folder / "New.bmp");
  std::ifstream Given(Folder / "sub/New.XML", std::ios::binary);
  std::string Text((std::istreambuf_iterator<char>(Given)), {});
  Text.replace(Text.find("elsewhere/unused"), 16, Folder / "New.bmp");
  std::ofstream(Folder / "sub/New.XML", std::ios::binary) << Text;
  ASSERT_TRUE(Atlas.RegisterMap(Folder / "sub/New.XML"));
  ASSERT_TRUE(Atlas.SelectMap(4));
  EXPECT_EQ(Atlas.GeoMap().MapImgWidth(), 200);
}

// One closed line for each map but the chosen one, at every magnification.
TEST_F(GeoAtlasTest, Outlines) {
  ASSERT_TRUE(Atlas.SelectMap(1));
  const auto Lines = [&] {
    TRecordingCanvas Canvas;
    Atlas.GeoMap().DrawPart(
        Canvas, {Atlas.GeoMap().TopLeft(), Atlas.GeoMap().Magnification(), 1, {200, 100}});
    std::string Text;
    for (const std::string& Line : Canvas.Lines)
      if (Line.find("pen FF0000") != std::string::npos) Text += Line + "\n";
    return Text;
  };
  // North west of the world is 50 N 100 W: Europe (70 N is above it) reaches from -20 to 20.
  EXPECT_EQ(Lines(),
            "Polyline 170,-20 90,-20 90,20 170,20 170,-20 pen FF0000\n"
            "Polyline 113,2 105,2 105,6 113,6 113,2 pen FF0000\n");
  Atlas.GeoMap().SetMagnification(2);
  Atlas.GeoMap().SetTopLeft({100, 0});
  EXPECT_EQ(Lines(),
            "Polyline 140,-40 -20,-40 -20,40 140,40 140,-40 pen FF0000\n"
            "Polyline 26,4 10,4 10,12 26,12 26,4 pen FF0000\n");
  Atlas.SetMapOLVisible(false);
  EXPECT_EQ(Lines(), "");
}

}  // namespace
}  // namespace zav
