// SPDX-License-Identifier: MIT
#include <geomap/landmarks/landmark_store.h>
#include <gtest/gtest.h>
#include <platform/base/random.h>

#include <cmath>
#include <limits>
#include <new>
#include <string>
#include <vector>

#include "failing_memory.h"

namespace zav {
namespace {

using enum TLandMarkAction;
constexpr int32_t Every = -1;

TLandMark At(double Lat, double Long, uint8_t ClassFlag = 0, int32_t Tag = 0) {
  TLandMark LandMark;
  LandMark.Latitude = Lat;
  LandMark.Longitude = Long;
  LandMark.ClassFlag = ClassFlag;
  LandMark.Tag = Tag;
  return LandMark;
}

// Landmarks with the tags 1 to Count on a line of longitudes of the same numbers.
TLandMarkStore Line(int32_t Count) {
  TLandMarkStore Store;
  for (int32_t I = 1; I <= Count; ++I) Store.Add(At(0, I, static_cast<uint8_t>(I), I), nullptr);
  return Store;
}

std::vector<int32_t> Tags(const TLandMarkList& List) {
  std::vector<int32_t> Result;
  for (int32_t I = 1; I <= List.Count(); ++I) Result.push_back(List[I].Tag);
  return Result;
}
using TTags = std::vector<int32_t>;

TEST(LandMarkStore, GrowsByBlocksThatAreNeverCopied) {
  TLandMarkStore Store;
  EXPECT_EQ(Store.List().Allocated(), 1000);
  const TLandMark* First = nullptr;
  for (const auto& [Count, Allocated] :
       {std::pair{1, 1000}, {1000, 1000}, {1001, 2000}, {2000, 2000}, {2001, 3000}}) {
    while (Store.Count() < Count) Store.Add(At(0, 0, 0, Store.Count() + 1), nullptr);
    EXPECT_EQ(Store.List().Allocated(), Allocated) << Count;
    if (First == nullptr) First = &Store.List()[1];
    EXPECT_EQ(&Store.List()[1], First);
  }
  for (int32_t I = 1; I <= 2001; ++I) ASSERT_EQ(Store.List()[I].Tag, I);
  // The room stays until none is left.
  while (Store.Count() > 1) Store.Remove(Store.Count(), nullptr);
  EXPECT_EQ(Store.List().Allocated(), 3000);
  Store.Add(At(0, 0, 1), nullptr);
  EXPECT_EQ(Store.RemoveClass(1, nullptr), 1);
  EXPECT_EQ(Store.List().Allocated(), 3000);
  EXPECT_EQ(Store.Remove(1, nullptr), 1);
  EXPECT_EQ(Store.List().Allocated(), 1000);
  // Outside: default values, whatever the index.
  for (const int32_t Bad : {0, -1, 1, std::numeric_limits<int32_t>::max()}) {
    EXPECT_EQ(Store.List()[Bad], TLandMark());
  }
}

TEST(LandMarkStore, RemovesOne) {
  TLandMarkStore Store = Line(4);
  Store.SetHighLight(3);
  EXPECT_EQ(Store.Remove(2, nullptr), 2);
  EXPECT_EQ(Tags(Store.List()), (TTags{1, 4, 3}));
  EXPECT_EQ(Store.HighLight(), 0);
  // The highlight goes even where nothing else does; not so from an empty store.
  Store.SetHighLight(1);
  EXPECT_EQ(Store.Remove(4, nullptr), 0);
  EXPECT_EQ(Store.HighLight(), 0);
  std::string Asked;
  const auto No = [&](TLandMarkAction Action, const TLandMark& LandMark) {
    Asked += (Action == lmaAdd ? "+" : "-") + std::to_string(LandMark.Tag);
    return false;
  };
  EXPECT_EQ(Store.Remove(1, No), 0);
  EXPECT_FALSE(Store.Add(At(0, 0, 0, 9), No));
  EXPECT_EQ(Asked, "-1+9");
  EXPECT_EQ(Tags(Store.List()), (TTags{1, 4, 3}));
  EXPECT_FALSE(Store.Replace(0, {}));
  EXPECT_FALSE(Store.Replace(4, {}));
  EXPECT_TRUE(Store.Replace(3, At(0, 0, 0, 7)));
  EXPECT_EQ(Tags(Store.List()), (TTags{1, 4, 7}));
  // The number of the highlight outlives Clear, as that of a list that is loaded again.
  EXPECT_TRUE(Store.SetHighLight(2));
  EXPECT_FALSE(Store.SetHighLight(2));
  Store.Clear();
  EXPECT_EQ(Store.Remove(1, nullptr), 0);
  EXPECT_EQ(Store.HighLight(), 2);
  EXPECT_TRUE(Store.SetHighLight(-5));
  EXPECT_EQ(Store.HighLight(), 0);
}

TEST(LandMarkStore, FindsTheNearest) {
  TLandMarkStore Store;
  EXPECT_EQ(Store.Find(0, 0, Every), 0);
  Store.Add(At(10, 10, 1), nullptr);
  Store.Add(At(-10, -10, 2), nullptr);
  Store.Add(At(60, 1, 2), nullptr);  // near the pole a degree of longitude is short, but counts
  Store.Add(At(std::nan(""), 0, 3), nullptr);
  Store.ClassVisible[1] = false;  // does not matter
  struct TCase {
    double Lat, Long;
    int32_t ClassFlag, Found;
  };
  constexpr double Far = 1e5;  // its square is the first that is too far
  for (const TCase& Case : {TCase{0, 0, Every, 1},
                            {0, 0, 300, 1},
                            {0, 0, -2, 1},
                            {0, 0, 2, 2},
                            {0, 0, 4, 0},
                            {0, 0, 3, 0},
                            {60, 30, Every, 3},
                            {10, 10 + Far, 1, 0},
                            {10, 9.9 + Far, 1, 1}}) {
    EXPECT_EQ(Store.Find(Case.Lat, Case.Long, Case.ClassFlag), Case.Found)
        << Case.Lat << ' ' << Case.Long << ' ' << Case.ClassFlag;
  }
}

TEST(LandMarkStore, RemovesRegions) {
  // Tags 1 to 9 on a grid: latitudes 1, 2, 3 by longitudes 1, 2, 3; classes 0 and 1 by turns.
  TLandMarkStore Grid;
  for (int32_t I = 0; I < 9; ++I) {
    const int32_t Row = I / 3;
    Grid.Add(At(1 + Row, 1 + I % 3, static_cast<uint8_t>(I % 2), I + 1), nullptr);
  }
  struct TCase {
    const char* What;
    std::function<int32_t(TLandMarkStore&)> Remove;
    TTags Left;
  };
  const TLandMarkStore::TQuestion NotFive = [](TLandMarkAction Action, const TLandMark& LandMark) {
    EXPECT_EQ(Action, lmaRemove);
    return LandMark.Tag != 5;
  };
  const TCase Cases[] = {
      {"on the circle",
       [](auto& S) { return S.RemoveNear(2, 2, Every, 1, nullptr); },
       {1, 2, 3, 4, 9, 6, 7, 8}},
      {"circle", [](auto& S) { return S.RemoveNear(2, 2, Every, 1.01, nullptr); }, {1, 9, 3, 7}},
      {"circle, class",
       [](auto& S) { return S.RemoveNear(2, 2, 1, 1.01, nullptr); },
       {1, 9, 3, 7, 5}},
      {"circle, every class",
       [](auto& S) { return S.RemoveNear(2, 2, 256, 1.01, nullptr); },
       {1, 9, 3, 7}},
      {"negative radius",
       [](auto& S) { return S.RemoveNear(2, 2, Every, -1.01, nullptr); },
       {1, 9, 3, 7}},
      {"asked", [&](auto& S) { return S.RemoveNear(2, 2, Every, 1.01, NotFive); }, {1, 9, 3, 7, 5}},
      {"on the edges",
       [](auto& S) {
         return S.RemoveInside({1, 3, 3, 1}, Every, nullptr);
       },
       {1, 2, 3, 4, 9, 6, 7, 8}},
      {"rectangle",
       [](auto& S) {
         return S.RemoveInside({0.5, 2.5, 2.5, 0.5}, Every, nullptr);
       },
       {9, 8, 3, 7, 6}},
      {"rectangle, class",
       [](auto& S) {
         return S.RemoveInside({0.5, 2.5, 2.5, 0.5}, 0, nullptr);
       },
       {9, 2, 3, 4, 8, 6, 7}},
      {"upside down",
       [](auto& S) {
         return S.RemoveInside({2.5, 0.5, 0.5, 2.5}, Every, nullptr);
       },
       {1, 2, 3, 4, 5, 6, 7, 8, 9}},
      {"class", [](auto& S) { return S.RemoveClass(0, nullptr); }, {8, 2, 6, 4}},
      {"all", [](auto& S) { return S.RemoveNear(0, 0, Every, 9, nullptr); }, {}},
  };
  for (const TCase& Case : Cases) {
    TLandMarkStore Store = Grid;
    Store.SetHighLight(1);
    EXPECT_EQ(Case.Remove(Store), 9 - static_cast<int32_t>(Case.Left.size())) << Case.What;
    EXPECT_EQ(Tags(Store.List()), Case.Left) << Case.What;
    EXPECT_EQ(Store.HighLight(), 0) << Case.What;
  }
  EXPECT_EQ(Tags(Grid.List()), (TTags{1, 2, 3, 4, 5, 6, 7, 8, 9})) << "copies share nothing";
}

// Of those that stay, those in the first places keep them, and the holes among these are filled,
// from the first, by the others, from the last.
TEST(LandMarkStore, OrderAfterRemovingManyOfMany) {
  TRandom Random(5);
  for (int32_t Round = 0; Round < 40; ++Round) {
    const int32_t Count = 1 + static_cast<int32_t>(Random.Next() % 3500);
    const double Share = Round % 4 == 0 ? 0.999 : Random.NextDouble();
    TLandMarkStore Store = Line(Count);
    const TLandMarkStore Before = Store;  // shares the blocks
    std::vector<bool> Goes;
    int32_t Left = 0;
    for (int32_t I = 0; I < Count; ++I) {
      Goes.push_back(BRandom(Random, Share));
      Left += Goes.back() ? 0 : 1;
    }
    const auto May = [&](TLandMarkAction, const TLandMark& LandMark) {
      return static_cast<bool>(Goes[static_cast<size_t>(LandMark.Tag - 1)]);
    };
    TTags Expected;
    int32_t From = Count;
    for (int32_t I = 1; I <= Left; ++I) {
      if (!Goes[static_cast<size_t>(I - 1)]) {
        Expected.push_back(I);
        continue;
      }
      while (Goes[static_cast<size_t>(From - 1)]) --From;
      Expected.push_back(From--);
    }
    EXPECT_EQ(Store.RemoveNear(0, 0, Every, 1e6, May), Count - Left);
    EXPECT_EQ(Tags(Store.List()), Expected);
    EXPECT_EQ(Before.List(), Line(Count).List());
    Store.Add(At(0, 0, 0, -1), nullptr);
    EXPECT_EQ(Store.List()[Left + 1].Tag, -1);
  }
}

// Steps of undo and pictures keep copies of a list: what a removal leaves alone must stay shared.
TEST(LandMarkStore, RemovingAFewCopiesTheirBlocksOnly) {
  TLandMarkList List;
  for (int32_t I = 1; I <= 5500; ++I) {
    TLandMark LandMark;
    LandMark.Tag = I;
    List.Append(LandMark);
  }
  const TLandMarkList Before = List;
  std::vector<bool> Marked(5500, false);
  Marked[1200] = Marked[1201] = Marked[3999] = true;
  List.RemoveMarked(Marked);
  ASSERT_EQ(List.Count(), 5497);
  EXPECT_EQ(List[1201].Tag, 5500);
  EXPECT_EQ(List[1202].Tag, 5499);
  EXPECT_EQ(List[4000].Tag, 5498);
  for (size_t Block = 0; Block < 6; ++Block) {
    const bool Changed = Block == 1 || Block == 3 || Block == 5;
    EXPECT_EQ(List.Block(Block) != Before.Block(Block), Changed) << Block;
  }
  for (int32_t I = 1; I <= 5500; ++I) ASSERT_EQ(Before[I].Tag, I);
}

TEST(LandMarkStore, QuestionsMayChangeTheStore) {
  TLandMarkStore Store = Line(1500);
  // What is added and replaced while it is asked counts at once; what is added stays.
  int32_t Asked = 0;
  const auto Adding = [&](TLandMarkAction, const TLandMark& LandMark) {
    ++Asked;
    Store.Add(At(0, LandMark.Longitude, 0, -LandMark.Tag), nullptr);
    Store.Replace(LandMark.Tag + 1, At(50, 50));
    return true;
  };
  EXPECT_EQ(Store.RemoveInside({0, 1, 4.5, -1}, Every, Adding), 2);  // 1 and 3
  EXPECT_EQ(Asked, 2);
  EXPECT_EQ(Store.Count(), 1500);
  EXPECT_EQ(Store.List()[1].Tag, -3);
  EXPECT_EQ(Store.List()[3].Tag, -1);

  // When something is removed meanwhile, nothing else is: the numbers mean other landmarks now.
  const auto Removing = [&](TLandMarkAction, const TLandMark& LandMark) {
    // To see whether the record changes.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const TLandMark Before = LandMark;
    Store.Remove(7, nullptr);
    EXPECT_EQ(LandMark, Before) << "the record that is asked about stays readable";
    return true;
  };
  EXPECT_EQ(Store.RemoveInside({7.5, 1, 1000, -1}, Every, Removing), 0);
  EXPECT_EQ(Store.Remove(9, Removing), 0);
  EXPECT_EQ(Store.Count(), 1498);
  const auto Clearing = [&](TLandMarkAction, const TLandMark&) {
    Store.Clear();
    return true;
  };
  EXPECT_EQ(Store.RemoveNear(0, 20, Every, 3, Clearing), 0);
  EXPECT_TRUE(Store.Add(At(1, 1), Clearing));
  EXPECT_EQ(Store.Count(), 1);
}

TEST(LandMarkStore, OutOfMemoryChangesNothing) {
  TLandMarkStore Store = Line(1000);
  const TLandMarkStore Before = Store;
  {
    const test::TNoLargeMemory Low(100000);
    EXPECT_THROW(Store.Add(At(1, 1), nullptr), std::bad_alloc);
    // The blocks are shared with the copy, so any change needs new ones.
    EXPECT_THROW(Store.Remove(3, nullptr), std::bad_alloc);
    EXPECT_THROW(Store.Replace(3, {}), std::bad_alloc);
    EXPECT_THROW(Store.RemoveClass(3, nullptr), std::bad_alloc);
  }
  EXPECT_EQ(Store.List(), Before.List());
  EXPECT_EQ(Store.List().Allocated(), 1000);
  EXPECT_TRUE(Store.Add(At(1, 1), nullptr));
  EXPECT_EQ(Store.Count(), 1001);
  EXPECT_EQ(Before.Count(), 1000);
}

}  // namespace
}  // namespace zav
