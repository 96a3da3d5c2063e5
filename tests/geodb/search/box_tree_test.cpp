// box_tree_test.cpp - regions, boxes and nearness beside looking at every item.
// SPDX-License-Identifier: MIT
#include <geodb/search/box_tree.h>
#include <gtest/gtest.h>
#include <platform/base/great_circle.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace zav {
namespace {

constexpr float Inf = std::numeric_limits<float>::infinity();
constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

std::vector<int32_t> Meeting(const TBoxTree& Tree, const TGeoRegion& Region) {
  std::vector<int32_t> Ids;
  Tree.VisitMeeting(Region, [&](int32_t Id) {
    Ids.push_back(Id);
    return true;
  });
  std::sort(Ids.begin(), Ids.end());
  return Ids;
}

// --- one box and one region, told by the definition: in double precision, longitude by longitude

bool RangesMeet(double Low1, double High1, double Low2, double High2) {
  return Low1 <= High2 && High1 >= Low2;
}

// A range of longitudes as one or two that do not cross 180 degrees.
std::vector<std::pair<double, double>> Pieces(double West, double East) {
  if (West <= East) return {{West, East}};
  return {{West, HUGE_VAL}, {-HUGE_VAL, East}};
}

bool MeetsByDefinition(const TGeoBox& Box, const TGeoRegion& Region) {
  if (!(Box.LatLow <= Box.LatHigh) || std::isnan(Box.LongLow) || std::isnan(Box.LongHigh))
    return false;
  if (!RangesMeet(Box.LatLow, Box.LatHigh, Region.South, Region.North)) return false;
  for (const auto& [Low, High] : Pieces(Box.LongLow, Box.LongHigh))
    for (const auto& [West, East] : Pieces(Region.West, Region.East))
      if (RangesMeet(Low, High, West, East)) return true;
  return false;
}

TEST(GeoBox, MeetsAtEdgesAcross180AndOnlyWhatHoldsAPosition) {
  const TGeoBox Fiji{-20, -12, 177, -178};  // crosses 180 degrees
  const TGeoBox Austria{46.4F, 49, 9.5F, 17.2F};
  const struct {
    TGeoBox Box;
    TGeoRegion Region;
    bool Meets;
  } Cases[] = {
      {Austria, {49, 17.2F, 50, 20}, true},  // the corner
      {Austria, {49.0000001, 10, 50, 20}, false},
      {Austria, {46, 9, 47, 9.4999999}, false},
      {Austria, {46, 17, 47, -170}, true},  // from 17 east to 170 west
      {Austria, {46, 18, 47, 9}, false},    // around the globe but for Austria
      {Austria, {-90, 0, 90, 360}, true},
      {Austria, {-90, 369, 90, 371}, true},
      {Austria, {48, 375, 48, 376}, true},
      {Austria, {48, -345, 48, -344}, true},
      {Fiji, {-15, 178, -14, 179}, true},
      {Fiji, {-15, -179, -14, -178.5}, true},
      {Fiji, {-15, 0, -14, 176.9}, false},
      {Fiji, {-15, 170, -14, -170}, true},
      {Fiji, {-15, 170, -14, 185}, true},
      {{5, 5, 0.1F, 0.1F}, {4.9, 0.1F, 5.1, 0.1F}, true},
      {{5, 5, 0.1F, 0.1F}, {4.9, 0.1, 5.1, 0.1}, false},    // 0.1 is not the single 0.1
      {{90, -90, 180, -180}, {-90, -180, 90, 180}, false},  // the box of no points
      {{NaN, 5, 0, 1}, {-90, -180, 90, 180}, false},
      {{0, 5, 0, NaN}, {-90, -180, 90, 180}, false},
      {{-Inf, Inf, -Inf, Inf}, {1, 2, 1, 2}, true},
      {Austria, {50, 0, 40, 20}, false},
      {Austria, {NAN, 0, 50, 20}, false},
      {Austria, {40, NAN, 50, 20}, false},
  };
  for (const auto& Case : Cases) {
    EXPECT_EQ(BoxMeetsRegion(Case.Box, Case.Region), Case.Meets)
        << Case.Box.LatLow << ' ' << Case.Box.LongLow << " in " << Case.Region.South << ' '
        << Case.Region.West << ' ' << Case.Region.North << ' ' << Case.Region.East;
  }
}

// The nearest of many points of the box's edge, by the formula for two positions.
double DistanceBySampling(const TGeoBox& Box, double Lat, double Long) {
  double East = Box.LongHigh;
  if (East < Box.LongLow) East += 360;
  double Best = HUGE_VAL;
  constexpr int Steps = 2000;
  for (int i = 0; i <= Steps; ++i) {
    const double Part = static_cast<double>(i) / Steps;
    const double Lat2 = Box.LatLow + Part * (static_cast<double>(Box.LatHigh) - Box.LatLow);
    const double Long2 = Box.LongLow + Part * (East - Box.LongLow);
    for (const auto& [A, B] : {std::pair(Lat2, static_cast<double>(Box.LongLow)),
                               {Lat2, East},
                               {static_cast<double>(Box.LatLow), Long2},
                               {static_cast<double>(Box.LatHigh), Long2}})
      Best = std::min(Best, SphereGreatCircleDist(MeanEarthRadius, Lat, Long, A, B));
  }
  return Best;
}

TEST(GeoBox, DistanceIsThatOfTheNearestPointOfTheBox) {
  // A town: a quarter of the globe from the pole; half the way around.
  const double Quarter = MeanEarthRadius * 1.5707963267948966;
  EXPECT_NEAR(DistanceToBox({0, 0, 7, 7}, 90, 123), Quarter, 1e-6);
  EXPECT_NEAR(DistanceToBox({-30, -30, 150, 150}, 30, -30), 2 * Quarter, 1e-6);
  EXPECT_EQ(DistanceToBox({90, -90, 180, -180}, 0, 0), HUGE_VAL);
  EXPECT_EQ(DistanceToBox({-1, 1, 170, -170}, 0, 180), 0);
  EXPECT_EQ(DistanceToBox({-1, 1, 170, -170}, 0, -175), 0);

  std::mt19937 Random(1);
  std::uniform_real_distribution<double> Lat(-90, 90), Long(-180, 180), Size(0, 1);
  for (int i = 0; i < 200; ++i) {
    const double South = Lat(Random), West = Long(Random),
                 Width = Size(Random) * Size(Random) * 300;
    const double North = std::min(90.0, South + Size(Random) * 60);
    double East = West + Width;
    if (East > 180) East -= 360;
    const TGeoBox Box{static_cast<float>(South), static_cast<float>(North),
                      static_cast<float>(West), static_cast<float>(East)};
    const double Lat1 = Lat(Random), Long1 = Long(Random);
    const double Distance = DistanceToBox(Box, Lat1, Long1);
    if (BoxContains(Box, Lat1, Long1)) {
      EXPECT_EQ(Distance, 0);
      continue;
    }
    const double Sampled = DistanceBySampling(Box, Lat1, Long1);
    EXPECT_LE(Distance, Sampled + 1e-6);
    EXPECT_NEAR(Distance, Sampled, 20000) << Lat1 << ' ' << Long1;  // half a step
  }
}

// --- the tree

// Items of all sizes: towns, countries, some across 180 degrees, some without points, many alike.
TGeoBox RandomBox(std::mt19937& Random) {
  std::uniform_real_distribution<float> Lat(-90, 90), Long(-180, 180), Size(0, 1);
  const uint32_t Kind = Random() % 32;
  if (Kind == 0) return {90, -90, 180, -180};
  if (Kind == 1) return {10, 20, 170 + 5 * Size(Random), -180 + 5 * Size(Random)};
  if (Kind == 2) return {1, 1, 2, 2};
  if (Kind == 3) return {0, 60 * Size(Random), -180, 180 - 40 * Size(Random)};
  const float South = Lat(Random), West = Long(Random);
  if (Kind < 16) return {South, South, West, West};
  const float Part = Size(Random) * Size(Random) * Size(Random);
  return {South, South + Part * 10, West, West + Part * 20};
}

TGeoRegion RandomRegion(std::mt19937& Random) {
  std::uniform_real_distribution<double> Lat(-90, 90), Long(-180, 180), Size(0, 1);
  const double South = Lat(Random), Part = Size(Random) * Size(Random);
  double West = Long(Random);
  double East = std::min(180.0, West + Part * 90);
  if (Random() % 8 == 0) std::swap(West, East);
  return {South, West, South + Part * 45, East};
}

class TModel {
 public:
  TBoxTree Tree;
  std::vector<TBoxEntry> Items;

  void Add(std::mt19937& Random, int32_t Id) {
    Items.push_back({Id, RandomBox(Random)});
    Tree.Insert(Id, Items.back().Box);
  }
  void RemoveOne(std::mt19937& Random) {
    if (Items.empty()) return;
    std::swap(Items[Random() % Items.size()], Items.back());
    const TBoxEntry Item = Items.back();
    EXPECT_EQ(Tree.Remove(Item.Id, Item.Box), !IsEmptyBox(Item.Box));
    EXPECT_FALSE(Tree.Remove(Item.Id, {3, 4, 5, 6}));
    Items.pop_back();
  }
  void CheckRegion(const TGeoRegion& Region) const {
    std::vector<int32_t> Expected;
    for (const TBoxEntry& Item : Items)
      if (MeetsByDefinition(Item.Box, Region)) Expected.push_back(Item.Id);
    std::sort(Expected.begin(), Expected.end());
    ASSERT_EQ(Meeting(Tree, Region), Expected);
  }
  void CheckNearest(double Lat, double Long, size_t Count,
                    const TBoxTree::TDistanceOf& DistanceOf) const {
    std::vector<TNearItem> Expected;
    for (const TBoxEntry& Item : Items) {
      double Distance = DistanceToBox(Item.Box, Lat, Long);
      if (DistanceOf && Distance < HUGE_VAL) Distance = DistanceOf(Item.Id, Distance);
      if (Distance < HUGE_VAL) Expected.push_back({Item.Id, Distance});
    }
    std::sort(Expected.begin(), Expected.end(), [](const TNearItem& A, const TNearItem& B) {
      return std::tie(A.Distance, A.Id) < std::tie(B.Distance, B.Id);
    });
    Expected.resize(std::min(Count, Expected.size()));
    ASSERT_EQ(Tree.Nearest(Lat, Long, Count, DistanceOf), Expected);
  }
};

TEST(BoxTree, IsEqualToLookingAtEveryItemWhileItChanges) {
  std::mt19937 Random(7);
  std::uniform_real_distribution<double> Lat(-90, 90), Long(-180, 180);
  const TBoxTree::TDistanceOf Odd = [](int32_t Id, double Distance) {
    return Id % 2 == 0 ? HUGE_VAL : Distance + Id % 7 * 50000;
  };
  TModel Model;
  int32_t Id = -50;
  for (int Round = 0; Round < 1500; ++Round) {
    // Grows to some 3000 items, shrinks to none, grows again.
    const bool Growing = Round / 500 % 2 == 0;
    for (int i = 0; i < (Growing ? 12 : 14); ++i) {
      if (Growing == (Random() % 4 != 0)) {
        Model.Add(Random, ++Id);
      } else {
        Model.RemoveOne(Random);
      }
    }
    Model.CheckRegion(RandomRegion(Random));
    Model.CheckRegion(RandomRegion(Random));
    if (Round % 3 == 0) Model.CheckNearest(Lat(Random), Long(Random), Random() % 30, {});
    if (Round % 3 == 1) Model.CheckNearest(Lat(Random), Long(Random), Random() % 10, Odd);
    if (::testing::Test::HasFatalFailure()) return;
  }
  Model.CheckRegion({-90, -180, 90, 180});
  Model.CheckNearest(1, 2, 100, {});  // many alike: by identifier
  Model.CheckNearest(90, 0, 1000000, {});
  const auto With =
      static_cast<size_t>(std::count_if(Model.Items.begin(), Model.Items.end(),
                                        [](const auto& Item) { return !IsEmptyBox(Item.Box); }));
  EXPECT_EQ(Model.Tree.Count(), With);

  TBoxTree Assigned;
  Assigned.Insert(1, {1, 2, 3, 4});
  Assigned.Assign(Model.Items);
  EXPECT_EQ(Assigned.Count(), With);
  for (int i = 0; i < 200; ++i) {
    const TGeoRegion Region = RandomRegion(Random);
    EXPECT_EQ(Meeting(Assigned, Region), Meeting(Model.Tree, Region));
  }
  Assigned.Clear();
  EXPECT_TRUE(Meeting(Assigned, {-90, -180, 90, 180}).empty());
  EXPECT_TRUE(Assigned.Nearest(0, 0, 5).empty());
}

TEST(BoxTree, FindsWhatMayLieAroundAPosition) {
  std::mt19937 Random(3);
  std::uniform_real_distribution<double> Lat(-90, 90), Long(-180, 180);
  TModel Model;
  for (int32_t Id = 0; Id < 3000; ++Id) Model.Add(Random, Id);
  for (int i = 0; i < 500; ++i) {
    const double Lat1 = Lat(Random), Long1 = Long(Random);
    std::vector<int32_t> Expected, Found;
    for (const auto& [Id, Box] : Model.Items)
      if (!IsEmptyBox(Box) &&
          (Box.LongHigh - Box.LongLow > 180 || MeetsByDefinition(Box, {Lat1, Long1, Lat1, Long1})))
        Expected.push_back(Id);
    Model.Tree.VisitAround(Lat1, Long1, [&](int32_t Id) {
      Found.push_back(Id);
      return true;
    });
    std::sort(Found.begin(), Found.end());
    ASSERT_EQ(Found, Expected);
  }
}

TEST(BoxTree, StopsWhenToldAndTakesOddInput) {
  TBoxTree Tree;
  EXPECT_FALSE(Tree.Remove(1, {1, 2, 3, 4}));
  for (int32_t i = 0; i < 1000; ++i) Tree.Insert(7, {5, 5, 5, 5});  // all alike
  int Visited = 0;
  Tree.VisitMeeting({0, 0, 10, 10}, [&](int32_t) { return ++Visited < 300; });
  EXPECT_EQ(Visited, 300);
  for (int i = 0; i < 1000; ++i) EXPECT_TRUE(Tree.Remove(7, {5, 5, 5, 5}));
  EXPECT_FALSE(Tree.Remove(7, {5, 5, 5, 5}));
  EXPECT_EQ(Tree.Count(), 0U);

  // What damaged records may hold: nothing is lost that holds a position.
  const TGeoBox Boxes[] = {{-Inf, Inf, -Inf, Inf}, {-1e30F, 1e30F, 5e20F, 6e20F},
                           {91, 95, 200, 250},     {0, 1, Inf, Inf},
                           {NaN, 1, 2, 3},         {0, 1, NaN, 3}};
  int32_t Id = 0;
  for (const TGeoBox& Box : Boxes) Tree.Insert(++Id, Box);
  for (int32_t i = 100; i < 400; ++i) Tree.Insert(i, {50, 50, 50, 50});
  EXPECT_EQ(Meeting(Tree, {-1, 0, 1, 10}), std::vector<int32_t>{1});
  EXPECT_EQ(Meeting(Tree, {-91, -180, 92, 180}).size(), 304U);
  EXPECT_EQ(Tree.Nearest(0, 0, 1000).size(), 304U);
  EXPECT_TRUE(Tree.Nearest(NAN, 0, 10).empty());
  EXPECT_TRUE(Tree.Nearest(0, Inf, 10).empty());
  for (int32_t i = 0; i < 6; ++i) EXPECT_EQ(Tree.Remove(i + 1, Boxes[i]), i < 4);
}

}  // namespace
}  // namespace zav
