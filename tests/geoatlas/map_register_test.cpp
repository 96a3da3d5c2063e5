// map_register_test.cpp - maps registered, and the right one chosen.
// SPDX-License-Identifier: MIT
#include <geoatlas/map_register.h>
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <random>

#include <geomap/calibration/calibration.h>

#include "atlas_files.h"
#include "support/temp_folder.h"

namespace zav {
namespace {

using test::WriteMap;

TEST(MapRegister, RegistersRefreshesAndRemoves) {
  const TTempFolder Folder;
  WriteMap(Folder / "World.xml", "w.bmp", "", -50, -100, 100);
  WriteMap(Folder / "Alps.xml", "a.bmp", "The Alps", 45, 6, 2);
  TMapRegister Maps;
  EXPECT_FALSE(Maps.Register(Folder / "none.xml"));
  std::ofstream(Folder / "text.xml") << "<geomap";
  EXPECT_FALSE(Maps.Register(Folder / "text.xml"));
  std::ofstream(Folder / "wrong.xml")
      << "<geomap sig=\"Tarvoline\" vers=\"1.0\" id=\"\" model=\"equirect\" map=\"a\" "
         "caption=\"\">\n<calquads npoints=\"900\">\n";
  EXPECT_FALSE(Maps.Register(Folder / "wrong.xml")) << "damaged";
  EXPECT_EQ(Maps.Count(), 0);
  EXPECT_TRUE(Maps.Register(Folder / "World.xml"));
  EXPECT_TRUE(Maps.Register(Folder / "Alps.xml"));
  EXPECT_EQ(Maps.Definition(1).MapFName.substr(Maps.Definition(1).MapFName.size() - 9),
            "world.xml");
  EXPECT_EQ(Maps.Path(1), Folder / "World.xml") << "the spelling that opens";
  EXPECT_EQ(Maps.Title(1), Maps.Definition(1).MapFName);
  EXPECT_EQ(Maps.Title(2), "the alps");
  // 2 degrees on 100 pixels.
  EXPECT_NEAR(Maps.Definition(2).Corners[1].Latit, 45, 1e-5);
  EXPECT_NEAR(Maps.Definition(2).Corners[2].Longit, 10, 1e-5);

  WriteMap(Folder / "World.xml", "w.bmp", "New", -50, -100, 100);
  EXPECT_TRUE(Maps.Register(Folder / "World.xml"));
  EXPECT_EQ(Maps.Count(), 2);
  EXPECT_EQ(Maps.Title(1), "new");

  const TMapDefinition Alps = Maps.Definition(2);
  EXPECT_FALSE(Maps.Unregister(0));
  EXPECT_FALSE(Maps.Unregister(3));
  EXPECT_TRUE(Maps.Unregister(1));
  EXPECT_EQ(Maps.Count(), 1);
  EXPECT_EQ(Maps.Definition(1), Alps);
  EXPECT_EQ(Maps.Definition(2), Alps) << "a slot keeps what it held";
  EXPECT_EQ(Maps.Path(2), "");
  for (const int32_t Outside : {-1, 0, 201}) EXPECT_EQ(Maps.Definition(Outside), TMapDefinition());
}

TEST(MapRegister, ChoosesByDetail) {
  const TTempFolder Folder;
  TMapRegister Maps;
  // Resolutions in the proportion of 100, 50, 10 and 9.5.
  for (const double High : {10.0, 5.0, 1.0, 0.95}) {
    const std::string Name = Folder / ("m" + std::to_string(High) + ".xml");
    WriteMap(Name, "m.bmp", "", 10 - High / 2, 20 - High, High);
    ASSERT_TRUE(Maps.Register(Name));
  }
  const auto Of = [&](int32_t Index) { return Maps.Definition(Index).Resolution; };
  EXPECT_EQ(Maps.Finer(10, 20, Of(1), 10), 2);
  EXPECT_EQ(Maps.Finer(10, 20, Of(1), 60), 3);
  EXPECT_EQ(Maps.Finer(10, 20, Of(3), 10), 0) << "5 percent are too little";
  EXPECT_EQ(Maps.Finer(10, 20, Of(3), 2), 4);
  EXPECT_EQ(Maps.Coarser(10, 20, Of(4)), 3) << "any difference will do";
  EXPECT_EQ(Maps.Coarser(10, 20, Of(3)), 2);
  EXPECT_EQ(Maps.Coarser(10, 20, Of(1)), 0);
  EXPECT_EQ(Maps.Finer(13, 20, Of(1), 10), 0) << "beside the others";
  EXPECT_EQ(Maps.Finer(-10, 20, Of(1), 10), 0);
  EXPECT_EQ(Maps.Coarser(-10, 20, Of(4)), 0);
}

// Hundreds of maps, nested and partly overlapping: each step goes to the next one in detail, by a
// search of its own, and a walk in and out comes back instead of going to and fro.
TEST(MapRegister, RandomWalksGoStepByStep) {
  const TTempFolder Folder;
  TMapRegister Maps;
  std::mt19937 Random(7);
  const auto Any = [&](double Low, double High) {
    return std::uniform_real_distribution<double>(Low, High)(Random);
  };
  for (int i = 0; i < 200; ++i) {
    const std::string Name = Folder / (std::to_string(i) + ".xml");
    const double High = i == 0 ? 80 : std::pow(2, Any(-4, 6));
    WriteMap(Name, "m.bmp", "", i == 0 ? -40 : Any(-40, 40 - High),
             i == 0 ? -80 : Any(-80, 80 - 2 * High), High);
    ASSERT_TRUE(Maps.Register(Name));
  }
  WriteMap(Folder / "more.xml", "m.bmp", "", 0, 0, 1);
  EXPECT_FALSE(Maps.Register(Folder / "more.xml")) << "the 201st";
  EXPECT_TRUE(Maps.Register(Folder / "5.xml")) << "one that is there";

  int Steps = 0;
  for (int Walk = 0; Walk < 500; ++Walk) {
    const double Lat = Any(-39, 39);
    const double Long = Any(-79, 79);
    std::vector<int32_t> Way{1};
    for (;;) {
      const double Now = Maps.Definition(Way.back()).Resolution;
      int32_t Expected = 0;
      for (int32_t i = 1; i <= Maps.Count(); ++i) {
        const TMapDefinition Map = Maps.Definition(i);
        if (!PositionInMap(Lat, Long, Map.Corners) || (Now - Map.Resolution) / Now <= 0.1) continue;
        if (Expected == 0 || Map.Resolution > Maps.Definition(Expected).Resolution) Expected = i;
      }
      const int32_t Next = Maps.Finer(Lat, Long, Now, 10);
      ASSERT_EQ(Next, Expected);
      if (Next == 0) break;
      Way.push_back(Next);
      ++Steps;
    }
    int32_t At = Way.back();
    for (size_t Guard = 0; At != 1; ++Guard) {
      ASSERT_LT(Guard, 200u) << "to and fro";
      const int32_t Next = Maps.Coarser(Lat, Long, Maps.Definition(At).Resolution);
      ASSERT_GT(Maps.Definition(Next).Resolution, Maps.Definition(At).Resolution);
      At = Next;
    }
  }
  EXPECT_GT(Steps, 2000);
}

}  // namespace
}  // namespace zav
