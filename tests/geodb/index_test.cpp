// index_test.cpp - orders of index entries, searches in them, accessors.
// SPDX-License-Identifier: MIT
#include <random>

#include "db_fixture.h"
#include "dying_file_ops.h"

namespace zav::test {
namespace {

// The insertion as it was described in words: the first equal key that a bisection of 0..L-2 meets.
size_t PlaceByHand(const std::vector<float>& Keys, double Key) {
  if (Keys.empty()) return 0;
  int64_t Low = 0;
  int64_t High = static_cast<int64_t>(Keys.size()) - 1;
  int64_t Middle = 0;
  bool Found = false;
  while (Low <= High && !Found) {
    Middle = (Low + High) / 2;
    const auto At = static_cast<double>(Keys[static_cast<size_t>(Middle)]);
    if (Key > At) {
      Low = Middle + 1;
    } else if (Key == At) {
      Found = true;
    } else {
      High = Middle - 1;
    }
  }
  const bool Greater = Key > static_cast<double>(Keys[static_cast<size_t>(Middle)]);
  return static_cast<size_t>(Middle + (Greater ? 1 : 0));
}

TEST(DatabaseIndex, InsertionTakesTheFirstEqualKeyMet) {
  TIxLLRecArray Ix = {{1, 0}, {3, 1}, {5, 2}, {7, 3}, {99, 99}};
  TGeoDB::SortIxInto(Ix, {5, 4});
  EXPECT_EQ(Ix, (TIxLLRecArray{{1, 0}, {3, 1}, {5, 4}, {5, 2}, {7, 3}}));
  TIxItemIDRecArray One = {{7, 7}};
  TGeoDB::SortIxItemIDInto(One, {3, 0});
  EXPECT_EQ(One, (TIxItemIDRecArray{{3, 0}}));
  TIxLLRecArray None;
  TGeoDB::SortIxInto(None, {5, 4});
  EXPECT_TRUE(None.empty());

  std::mt19937 Random(1);
  for (int Round = 0; Round < 200; ++Round) {
    TIxLLRecArray Array;
    std::vector<float> Keys;
    std::vector<int32_t> Order;
    for (int32_t i = 0; i < 60; ++i) {
      const auto Key = static_cast<float>(Random() % 12);
      const size_t Place = PlaceByHand(Keys, Key);
      Keys.insert(Keys.begin() + static_cast<int64_t>(Place), Key);
      Order.insert(Order.begin() + static_cast<int64_t>(Place), i);
      Array.resize(Array.size() + 1);
      TGeoDB::SortIxInto(Array, {Key, i});
    }
    for (size_t i = 0; i < Order.size(); ++i) {
      ASSERT_EQ(Array[i], (TIxLLRec{Keys[i], Order[i]}));
    }
  }
}

TEST(DatabaseIndex, ClosestPlacesAndAccessors) {
  const TTempFolder Folder;
  TDyingFileOps Ops;
  const TFileOpsOverride With(Ops);
  TGeoDB DB;
  EXPECT_EQ(DB.GetClosestLatLowIx(5), 1);
  EXPECT_EQ(DB.GetClosestItemIDIx(5), 1);
  EXPECT_EQ(DB.SearchForItemID(1), 0);
  EXPECT_EQ(DB.GetIxLatLow(1), TIxLLRec());
  EXPECT_EQ(DB.GetSumdata(1).BlobOffset, -1);
  DB.SaveIndex(0);
  EXPECT_TRUE(Folder.Names().empty());
  DB.SetGDBName(Folder / "db");
  EXPECT_EQ(DB.GetClosestLatLowIx(5), 1);
  EXPECT_EQ(DB.SearchForItemID(1), 0);
  for (const float Lat : {30.0F, 10.0F, 20.0F}) AddTown(DB, "t", Lat, -Lat);
  const std::pair<double, int32_t> Cases[] = {{5, 1}, {15, 2}, {20, 2}, {35, 4}};
  for (const auto& [Value, Place] : Cases) {
    EXPECT_EQ(DB.GetClosestLatLowIx(Value), Place);
    EXPECT_EQ(DB.GetClosestLatHighIx(Value), Place);
    EXPECT_EQ(DB.GetClosestItemIDIx(static_cast<int32_t>(Value)), Value > 3 ? 4 : 1);
  }
  EXPECT_EQ(DB.GetClosestLongLowIx(-20), 2);
  EXPECT_EQ(DB.GetClosestLongHighIx(-9), 4);
  // A double between two singles is compared as it is.
  EXPECT_EQ(DB.GetClosestLatLowIx(20.0000000001), 3);
  for (const int32_t Place : {0, -7, 1}) EXPECT_EQ(DB.GetIxLatLow(Place), (TIxLLRec{10, 2}));
  for (const int32_t Place : {3, 6}) EXPECT_EQ(DB.GetIxLatLow(Place), (TIxLLRec{30, 1}));
  EXPECT_EQ(DB.GetIxLongLow(1), (TIxLLRec{-30, 1}));
  EXPECT_EQ(DB.GetIxItemID(2), (TIxItemIDRec{2, 2}));
  EXPECT_EQ(DB.GetSumdata(9).ItemId, 3);
  EXPECT_EQ(DB.GetSumdata(-9).ItemId, 1);

  // The steps of a replacement by hand.
  const TgdbData Data = DB.GetSumdata(2);
  DB.RemoveIndexEntries(2);
  DB.InsertIntoIndex(2, Data);
  EXPECT_EQ(DB.Check(), std::vector<std::string>());
  DB.SaveIndex(7);
  DB.SaveIndex(-1);

  // Closing keeps the paths of the indexes when nothing was lazy: a later save empties the file.
  DB.SetGDBName("");
  DB.SaveIndex(2);
  EXPECT_EQ(ReadWholeFile(Folder / "db.zavgi2").size(), 0u);
  EXPECT_EQ(ReadWholeFile(Folder / "db.zavgi1").size(), 24u);
}

// Deletion and replacement step by step, on plain lists of keys and positions.
TEST(DatabaseIndex, OrderFollowsEveryChange) {
  const TTempFolder Folder;
  TDyingFileOps Ops;
  const TFileOpsOverride With(Ops);
  std::mt19937 Random(3);
  TGeoDB DB;
  DB.SetGDBName(Folder / "db");
  std::vector<float> Keys;
  std::vector<int32_t> Order;
  std::vector<float> Records;
  const auto Remove = [&](int32_t Position) {
    const auto At = std::find(Order.begin(), Order.end(), Position) - Order.begin();
    Order.erase(Order.begin() + At);
    Keys.erase(Keys.begin() + At);
  };
  const auto Insert = [&](int32_t Position, float Key) {
    const auto At = static_cast<int64_t>(PlaceByHand(Keys, static_cast<double>(Key)));
    Keys.insert(Keys.begin() + At, Key);
    Order.insert(Order.begin() + At, Position);
  };
  for (int Step = 0; Step < 400; ++Step) {
    const auto Key = static_cast<float>(Random() % 9);
    const auto Count = static_cast<int32_t>(Records.size());
    const auto Position =
        static_cast<int32_t>(Count > 0 ? Random() % static_cast<uint32_t>(Count) : 0);
    const uint32_t Kind = static_cast<uint32_t>(Random()) % 4;
    if (Kind < 2 || Count < 4) {
      AddTown(DB, "t", Key, 0);
      Records.push_back(Key);
      Insert(Count, Key);
    } else if (Kind == 2) {
      DB.ReplaceTown(Position + 1, "t", 0, 0, {Key, 0}, 0, 0, 0);
      Remove(Position);
      Insert(Position, Key);
      Records[static_cast<size_t>(Position)] = Key;
    } else {
      DB.DeleteData(Position + 1);
      Remove(Position);
      std::replace(Order.begin(), Order.end(), Count - 1, Position);
      Records[static_cast<size_t>(Position)] = Records.back();
      Records.pop_back();
    }
    for (size_t i = 0; i < Order.size(); ++i) {
      ASSERT_EQ(DB.GetIxLatLow(static_cast<int32_t>(i) + 1), (TIxLLRec{Keys[i], Order[i] + 1}));
    }
  }
  EXPECT_EQ(Disagreement(DB), "");
}

TEST(DatabaseIndex, CoordinatesThatAreNoNumbersDoNoHarm) {
  const TTempFolder Folder;
  TDyingFileOps Ops;
  const TFileOpsOverride With(Ops);
  TGeoDB DB;
  DB.SetGDBName(Folder / "db");
  const float NaN = std::numeric_limits<float>::quiet_NaN();
  for (const float Lat : {3.0F, NaN, 1.0F, 2.0F}) AddTown(DB, "t", Lat, 1);
  {
    TGeoDBUpdate Update(DB);
    for (const float Lat : {-0.0F, NaN, 0.0F, 5.0F}) AddTown(DB, "t", Lat, NaN);
    DB.DeleteData(2);
    Update.Commit();
  }
  DB.DeleteData(DB.NumEntries());
  EXPECT_EQ(DB.NumEntries(), 6);
  DB.RecalcIndexes();
  for (int32_t RecNo = 1; RecNo <= 6; ++RecNo) {
    EXPECT_EQ(DB.SearchForItemID(DB.GetSumdata(RecNo).ItemId), RecNo);
  }
  EXPECT_EQ(DB.ItemsInRegion({-90, -180, 90, 180}).size(), 3u);
}

}  // namespace
}  // namespace zav::test
