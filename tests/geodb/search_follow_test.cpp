// search_follow_test.cpp - searches of a database that changes, beside looking through all items.
// SPDX-License-Identifier: MIT
#include <geodb/search/line_distance.h>
#include <platform/base/text.h>

#include <random>

#include "db_fixture.h"
#include "dying_file_ops.h"

namespace zav::test {
namespace {

class DatabaseSearch : public ::testing::Test {
 protected:
  DatabaseSearch() { DB.SetGDBName(Folder / "db"); }

  int32_t Below(uint32_t Limit) { return static_cast<int32_t>(Random() % Limit); }
  float Degree(int32_t Limit) {
    return static_cast<float>(Below(201) - 100) * static_cast<float>(Limit) / 100;
  }
  std::string NewName() {
    const char* const Names[] = {"Zürich", "zurich", "Genève", "Bodensee", "See", "Überlingen"};
    return std::string(Names[Below(6)]) + (Below(2) == 0 ? "" : std::to_string(Below(5)));
  }

  void Change() {
    const auto Count = static_cast<uint32_t>(DB.NumEntries());
    const int32_t Kind = Below(10);
    const int32_t RecNo = 1 + Below(std::max(Count, 1U));
    const float Lat = Degree(85);
    const float Long = Degree(175);
    const auto Size = static_cast<float>(Below(10));
    const TgdbPolygon Square = {
        {Lat, Long}, {Lat, Long + Size}, {Lat + 4, Long + Size}, {Lat + 4, Long}};
    if (Kind < 3 || Count < 5) {
      AddLake(DB, NewName(), Square);
    } else if (Kind == 3) {
      AddTown(DB, NewName(), Lat, Long);
    } else if (Kind == 4) {
      DB.ReplaceCity(RecNo, NewName(), Square, Below(2) == 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    } else if (Kind == 5) {
      TgdbData Data = DB.GetSumdata(RecNo);
      Data.Name = NewName();
      if (Data.ItemKind == TgdbItem::gitTown) Data.LatLow = Data.LatHigh = Degree(85);
      DB.UpdateBasicData(RecNo, Data);
    } else if (Kind < 8) {
      DB.DeleteData(RecNo);
    } else if (Kind == 8 && !DB.Updating()) {
      DB.BeginUpdate();
      for (int i = 0; i < 5; ++i) Change();
      if (Below(2) == 0) {
        DB.EndUpdate();
      } else {
        DB.RollbackUpdate();
      }
    }
  }

  void Compare() {
    const TGeoRegion Region = {Degree(80), Degree(175), Degree(80), Degree(175)};
    const double Lat = static_cast<double>(Degree(85));
    const double Long = static_cast<double>(Degree(175));
    std::vector<int32_t> Meeting;
    std::vector<int32_t> Around;
    std::vector<TNearItem> Near;
    std::vector<int32_t> Named;
    for (int32_t RecNo = 1; RecNo <= DB.NumEntries(); ++RecNo) {
      const TgdbData Data = DB.GetSumdata(RecNo);
      const TGeoBox Box = {Data.LatLow, Data.LatHigh, Data.LongLow, Data.LongHigh};
      if (BoxMeetsRegion(Box, Region)) Meeting.push_back(RecNo);
      TgdbPolygon Points;
      const bool Listed = DB.RetrievePolygon(RecNo, Points);
      const bool Inside = Listed ? Data.Closed != 0 && RingContains(Points, Lat, Long)
                                 : BoxContains(Box, Lat, Long);
      if (Inside) Around.push_back(RecNo);
      double Distance = DistanceToBox(Box, Lat, Long);
      if (Listed && !Inside && !Points.empty()) {
        Distance = std::max(Distance, DistanceToLine(Points, Data.Closed != 0, Lat, Long));
      }
      Near.push_back({RecNo, Distance});
      if (LowerCase(FoldAccents(Data.Name.View())).find("see") != std::string::npos) {
        Named.push_back(RecNo);
      }
    }
    auto Found = DB.ItemsInRegion(Region);
    std::sort(Found.begin(), Found.end());
    EXPECT_EQ(Found, Meeting);
    EXPECT_EQ(DB.ItemsAt(Lat, Long), Around);
    Hits += Around.size();
    std::sort(Near.begin(), Near.end(),
              [](const TNearItem& A, const TNearItem& B) { return A.Distance < B.Distance; });
    Near.resize(std::min<size_t>(Near.size(), 7));
    const auto Nearest = DB.NearestItems(Lat, Long, 7);
    ASSERT_EQ(Nearest.size(), Near.size());
    for (size_t i = 0; i < Near.size(); ++i) {
      EXPECT_NEAR(Nearest[i].Distance, Near[i].Distance, 1e-3);
    }
    Found = DB.ItemsByName("SEE", TNameMatch::nmPart);
    std::sort(Found.begin(), Found.end());
    EXPECT_EQ(Found, Named);
  }

  TDyingFileOps Ops;
  TFileOpsOverride With{Ops};
  TTempFolder Folder;
  TGeoDB DB;
  std::mt19937 Random{11};
  size_t Hits = 0;
};

TEST_F(DatabaseSearch, FollowsEveryChange) {
  for (int i = 0; i < 200; ++i) Change();
  for (int i = 0; i < 1500 && !HasFailure(); ++i) {
    Change();
    Compare();
  }
  EXPECT_GT(Hits, 100u);
  DB.GarbageCollection();
  Compare();
}

TEST_F(DatabaseSearch, NamesWithKindAndClass) {
  for (int i = 0; i < 3; ++i) DB.AddTown("Ulm", 0, 0, {1, 2}, 0, static_cast<uint8_t>(i % 2), 0);
  AddLake(DB, "ulm", {{1, 2}});
  EXPECT_EQ(DB.SearchData("ULM"), 1);
  EXPECT_EQ(DB.SearchData("ul"), 0);
  EXPECT_EQ(DB.SearchData("ulm", TgdbItem::gitTown, 1, 0), 1);
  EXPECT_EQ(DB.SearchData("ulm", TgdbItem::gitTown, 2, 0), 3);
  EXPECT_EQ(DB.SearchData("ulm", TgdbItem::gitTown, 4, 0), 0);
  EXPECT_EQ(DB.SearchData("Ulm", TgdbItem::gitTown, -5, 1), 2);
  EXPECT_EQ(DB.SearchData("Ulm", TgdbItem::gitLake, 0, 0), 4);
}

}  // namespace
}  // namespace zav::test
