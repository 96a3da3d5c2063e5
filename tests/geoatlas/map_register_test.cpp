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

// Maps side by side, a tie, and one that overlaps a part: a border belongs to neither side.
TEST(MapRegister, BordersTiesAndOverlaps) {
  const TTempFolder Folder;
  TMapRegister Maps;
  const auto Add = [&](const std::string& Name, double South, double West, double High) {
    WriteMap(Folder / Name, "m.bmp", "", South, West, High);
    ASSERT_TRUE(Maps.Register(Folder / Name));
  };
  Add("world", -50, -100, 100);  // 1
  Add("west", 40, 0, 10);        // 2: longitude 0 to 20
  Add("east", 40, 20, 10);       // 3: 20 to 40, as detailed
  Add("again", 40, 0, 10);       // 4: the same as the second
  Add("across", 45, 15, 5);      // 5: 15 to 25, 45 to 50
  const double World = Maps.Definition(1).Resolution;
  const double Sheet = Maps.Definition(2).Resolution;
  struct TCase {
    double Lat, Long;
    int32_t FinerThanWorld, FinerThanSheet, CoarserThanAcross;
  };
  for (const TCase& C :
       {TCase{43, 10, 2, 0, 2}, TCase{43, 30, 3, 0, 3}, TCase{43, 20, 0, 0, 1},
        TCase{43, 20 - 1e-6, 2, 0, 2}, TCase{43, 20 + 1e-6, 3, 0, 3}, TCase{47, 19, 2, 5, 2},
        TCase{47, 21, 3, 5, 3}, TCase{47, 20, 5, 5, 1}, TCase{50, 10, 0, 0, 0},
        TCase{40, 0, 0, 0, 1}, TCase{45, 17, 2, 0, 2}, TCase{0, 10, 0, 0, 1}}) {
    SCOPED_TRACE(std::to_string(C.Lat) + " " + std::to_string(C.Long));
    EXPECT_EQ(Maps.Finer(C.Lat, C.Long, World, 10), C.FinerThanWorld);
    EXPECT_EQ(Maps.Finer(C.Lat, C.Long, Sheet, 10), C.FinerThanSheet);
    EXPECT_EQ(Maps.Coarser(C.Lat, C.Long, Maps.Definition(5).Resolution), C.CoarserThanAcross);
  }
  // Nonsense is no map, and does no harm.
  const double Nan = std::nan("");
  for (const double Odd : {Nan, 0.0, -1.0, HUGE_VAL}) {
    EXPECT_EQ(Maps.Finer(Nan, 10, World, 10), 0);
    EXPECT_EQ(Maps.Coarser(43, Nan, Sheet), 0);
    const int32_t Any = Maps.Finer(43, 10, Odd, 10);
    EXPECT_TRUE(Any >= 0 && Any <= 5);
  }
}

// A file is taken whole or not at all, however it is damaged.
TEST(MapRegister, DamagedCalibrationFiles) {
  const TTempFolder Folder;
  WriteMap(Folder / "good.xml", "g.bmp", "Good", -50, -100, 100);
  TMapRegister Maps;
  ASSERT_TRUE(Maps.Register(Folder / "good.xml"));
  const TMapDefinition Good = Maps.Definition(1);
  for (const char* Sample : {"alps_utm32n.xml", "australia_laea.xml"}) {
    std::ifstream File(std::string(ZAVGEO_SAMPLES "/maps/") + Sample, std::ios::binary);
    const std::string Whole((std::istreambuf_iterator<char>(File)), {});
    ASSERT_GT(Whole.size(), 500u);
    std::mt19937 Random(11);
    for (int i = 0; i < 240; ++i) {
      std::string Bytes = Whole;
      if (i < 80)
        Bytes.resize(Random() % Whole.size());
      else
        for (int k = 0; k < 4; ++k) Bytes[Random() % Bytes.size()] = static_cast<char>(Random());
      std::ofstream(Folder / "bad.xml", std::ios::binary) << Bytes;
      const int32_t Before = Maps.Count();
      if (Maps.Register(Folder / "bad.xml")) {
        ASSERT_EQ(Maps.Count(), 2);
        ASSERT_EQ(Maps.Problem(), "");
      } else {
        ASSERT_EQ(Maps.Count(), Before);
        ASSERT_NE(Maps.Problem(), "");
      }
      // Whatever was read, choosing works and the good one is as it was.
      ASSERT_EQ(Maps.Definition(1), Good);
      const int32_t Chosen = Maps.Finer(46.5, 8.5, 1e9, 10);
      ASSERT_TRUE(Chosen >= 0 && Chosen <= 2);
    }
    EXPECT_EQ(Maps.Count(), 2) << "some of them can be read";
    Maps.Unregister(2);
  }
  Maps.UnregisterAll();
  EXPECT_EQ(Maps.Count(), 0);
  EXPECT_FALSE(Maps.Register(Folder.Path()));
  EXPECT_FALSE(Maps.Register(""));
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
  EXPECT_EQ(Maps.Problem(), "An atlas holds 200 maps at most");
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
      // Back from there it is no farther than where we came from.
      const int32_t Back = Maps.Coarser(Lat, Long, Maps.Definition(Next).Resolution);
      ASSERT_LE(Maps.Definition(Back).Resolution, Now);
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
