// crash_test.cpp - a long random run of changes that is cut short at every write in turn.
//
// The write with number N does only a random part and then either fails, as all later ones do until
// the files are opened again (the process died), or fails alone (the disk was full for a moment).
// The set that is opened afterwards must be that before or after the operation.
// SPDX-License-Identifier: MIT
#include <geodb/db_file.h>
#include <random>

#include "db_fixture.h"
#include "dying_file_ops.h"

namespace zav::test {
namespace {

// A database as a caller knows it.
struct TItem {
  TgdbData Data;
  TgdbPolygon Points;
  std::string Payload;
  std::string Caption;
  friend bool operator==(const TItem& A, const TItem& B) {
    // Where the block lies is the store's own affair.
    TgdbData DataA = A.Data;
    DataA.BlobOffset = B.Data.BlobOffset;
    return DataA == B.Data && A.Points == B.Points && A.Payload == B.Payload &&
           A.Caption == B.Caption;
  }
};
struct TModel {
  std::vector<TItem> Items;
  std::string Description;
  friend bool operator==(const TModel&, const TModel&) = default;
};

TModel Read(TGeoDB& DB) {
  TModel Model;
  Model.Description = DB.GetDescription();
  for (int32_t RecNo = 1; RecNo <= DB.NumEntries(); ++RecNo) {
    TItem Item;
    Item.Data = DB.GetSumdata(RecNo);
    DB.RetrievePolygon(RecNo, Item.Points);
    TMemoryStream Stream;
    TMetaInfo Info;
    if (DB.RetrieveBLOB(RecNo, Info, &Stream)) {
      Item.Payload.assign(reinterpret_cast<const char*>(Stream.Memory()), Stream.Size());
      Item.Caption = Info.Caption.Text();
    }
    Model.Items.push_back(Item);
  }
  return Model;
}

// One operation, chosen by Random, on a database and on the model of it. What it is does not depend
// on what fails.
class TWorkload {
 public:
  explicit TWorkload(uint32_t Seed) : FRandom(Seed) {}

  // Model becomes the state after the operation even when that fails.
  void Step(TGeoDB& DB, TModel& Model, int32_t& HighestID) {
    const uint32_t Kind = Next() % 20;
    if (Kind < 15) {
      Change(DB, Model, HighestID);
    } else if (Kind < 17) {
      DB.BeginUpdate();
      std::exception_ptr Error;
      for (uint32_t i = 2 + Next() % 6; i > 0; --i) {
        try {
          Change(DB, Model, HighestID);
        } catch (...) {
          Error = std::current_exception();
        }
      }
      if (Error) {
        DB.RollbackUpdate();
        std::rethrow_exception(Error);
      }
      DB.EndUpdate();
    } else if (Kind == 17) {
      DB.SetLazyWrite(!DB.LazyWrite());
    } else if (Kind == 18) {
      DB.GarbageCollection();
    } else {
      DB.RecalcIndexes();
    }
  }

 private:
  uint32_t Next() { return static_cast<uint32_t>(FRandom()); }
  float Degree(int32_t Limit) {  // coarse, so that keys are often equal
    return static_cast<float>(static_cast<int32_t>(Next() % 41) - 20) / 20 *
           static_cast<float>(Limit);
  }

  void Change(TGeoDB& DB, TModel& Model, int32_t& HighestID) {
    const size_t Count = Model.Items.size();
    const uint32_t Kind = Next() % 12;
    const auto At = static_cast<size_t>(Count > 0 ? Next() % Count : 0);
    const auto RecNo = static_cast<int32_t>(At) + 1;
    if (Kind < 6 || Count < 3) {
      TItem Item = NewItem();
      Item.Data.ItemId = ++HighestID;
      Model.Items.push_back(Item);
      Put(DB, -1, Item);
    } else if (Kind < 8) {
      TItem Item = NewItem();
      Item.Data.ItemId = Model.Items[At].Data.ItemId;
      Model.Items[At] = Item;
      Put(DB, RecNo, Item);
    } else if (Kind < 10) {
      Model.Items[At] = Model.Items.back();
      Model.Items.pop_back();
      DB.DeleteData(RecNo);
    } else if (Kind == 10) {
      TgdbData& Data = Model.Items[At].Data;
      Data.Tag = static_cast<int32_t>(Next());
      if (Data.ItemKind == TgdbItem::gitTown) Data.LatLow = Data.LatHigh = Degree(90);
      DB.UpdateBasicData(RecNo, Data);
    } else if (Model.Items[At].Data.ItemKind == TgdbItem::gitBLOB) {
      Model.Items[At].Caption = std::to_string(Next());
      TMetaInfo Info;
      Info.Caption = Model.Items[At].Caption;
      DB.UpdateMetaInfo(RecNo, Info);
    } else {
      Model.Description = std::to_string(Next());
      DB.SetDescription(Model.Description);
    }
  }

  TItem NewItem() {
    TItem Item;
    Item.Data.Name = "n" + std::to_string(Next() % 1000);
    Item.Data.Date = 36526;
    Item.Data.Tag = static_cast<int32_t>(Next());
    const uint32_t Kind = Next() % 3;
    Item.Data.LatLow = Item.Data.LatHigh = Degree(90);
    Item.Data.LongLow = Item.Data.LongHigh = Degree(180);
    if (Kind == 0) {
      Item.Data.ItemKind = TgdbItem::gitTown;
    } else if (Kind == 1) {
      Item.Data.ItemKind = TgdbItem::gitBLOB;
      Item.Payload = std::string(Next() % 300, static_cast<char>('a' + Next() % 26));
      Item.Data.NumPoints = static_cast<int32_t>(Item.Payload.size());
      Item.Caption = std::to_string(Next() % 100);
    } else {
      Item.Data.ItemKind = TgdbItem::gitLake;
      Item.Data.Closed = 1;
      Item.Points.resize(1 + Next() % 30);
      for (TSCoords& Point : Item.Points) Point = {Degree(90), Degree(180)};
      Item.Data.NumPoints = static_cast<int32_t>(Item.Points.size());
      const auto Lat = [](const TSCoords& A, const TSCoords& B) { return A.Latit < B.Latit; };
      const auto Long = [](const TSCoords& A, const TSCoords& B) { return A.Longit < B.Longit; };
      Item.Data.LatLow = std::min_element(Item.Points.begin(), Item.Points.end(), Lat)->Latit;
      Item.Data.LatHigh = std::max_element(Item.Points.begin(), Item.Points.end(), Lat)->Latit;
      Item.Data.LongLow = std::min_element(Item.Points.begin(), Item.Points.end(), Long)->Longit;
      Item.Data.LongHigh = std::max_element(Item.Points.begin(), Item.Points.end(), Long)->Longit;
    }
    return Item;
  }

  static void Put(TGeoDB& DB, int32_t RecNo, const TItem& Item) {
    TMetaInfo Info;
    Info.Caption = Item.Caption;
    const TgdbData& D = Item.Data;
    const auto Size = static_cast<int32_t>(Item.Payload.size());
    if (RecNo < 0) {
      DB.AddData(D.Name, Item.Points, D.Closed != 0, D.ItemKind, 0, D.Date, 0, D.LatLow, D.LatHigh,
                 D.LongLow, D.LongHigh, 0, D.Tag, Info, Item.Payload.data(), Size, false);
    } else {
      DB.ReplaceData(RecNo, D.Name, Item.Points, D.Closed != 0, D.ItemKind, 0, D.Date, 0, D.LatLow,
                     D.LatHigh, D.LongLow, D.LongHigh, 0, D.Tag, Info, Item.Payload.data(), Size,
                     false);
    }
  }

  std::mt19937 FRandom;
};

// Runs Steps operations of a workload, dying at write DieAt, and checks the reopened set. False
// when the run needs fewer writes.
bool RunAndCheck(uint32_t Seed, int Steps, int64_t DieAt, bool Forever) {
  const TTempFolder Folder;
  const std::string Base = Folder / "db";
  TDyingFileOps Ops;
  Ops.DieAt = DieAt;
  Ops.Forever = Forever;
  Ops.Part = static_cast<double>(DieAt * 37 % 101) / 100;
  TModel Before;
  TModel After;
  bool Failed = false;
  const std::string Where = "seed " + std::to_string(Seed) + " write " + std::to_string(DieAt);
  {
    const TFileOpsOverride With(Ops);
    TGeoDB DB;
    TWorkload Workload(Seed);
    int32_t HighestID = 0;
    try {
      DB.SetGDBName(Base);
      for (int i = 0; i < Steps; ++i) {
        Before = After;
        Workload.Step(DB, After, HighestID);
      }
      Before = After;
      DB.SetGDBName("");
    } catch (const EZAVError&) {
      Failed = true;
      if (!Forever && DB.IsOpen()) {
        // The database itself goes on as it was before the operation, or after it.
        const TModel Now = Read(DB);
        EXPECT_TRUE(Now == Before || Now == After) << Where << " in memory";
        EXPECT_EQ(DB.Check(), std::vector<std::string>()) << Where;
        // And it can be changed again.
        try {
          AddTown(DB, "later", 1, 2);
          After = Before = Read(DB);
        } catch (const EZAVGeoDBError&) {
          // Not when the undoing itself failed.
        }
      }
    }
  }
  if (!Failed && Ops.Count < DieAt) return false;

  Ops.DieAt = 0;
  const TFileOpsOverride With(Ops);
  // Who may only read sees it right, and leaves the files alone.
  const bool Complete = StampOf(Base + ".zavgdd").Size >= 0;  // the last file that is made
  TModel ReadOnly;
  if (Complete) {
    TGeoDB DB;
    DB.SetReadOnly(true);
    const auto Files = FilesOf(Base);
    try {
      DB.SetGDBName(Base);
      ReadOnly = Read(DB);
      EXPECT_EQ(FilesOf(Base), Files) << Where;
      EXPECT_TRUE(ReadOnly == Before || ReadOnly == After) << Where << " read only";
      EXPECT_TRUE(DB.SearchForItemID(1) <= 1) << Where;
    } catch (const EInOutError& Error) {
      ADD_FAILURE() << Where << " read only: " << Error.what();
    }
  }
  TGeoDB DB;
  DB.SetGDBName(Base);
  const TModel Found = Read(DB);
  EXPECT_TRUE(Found == Before || Found == After) << Where;
  EXPECT_TRUE(!Complete || Found == ReadOnly) << Where;
  EXPECT_EQ(Disagreement(DB), "") << Where;
  for (const std::string& Name : Folder.Names()) {
    EXPECT_TRUE(Name.rfind("db.zavg", 0) == 0 || !Complete) << Where << " " << Name;
    EXPECT_TRUE(Name.back() != '~' && Name != "db.zavgjn") << Where << " " << Name;
  }
  for (const TItem& Item : Found.Items) EXPECT_GE(DB.GetHighestID(), Item.Data.ItemId) << Where;
  return true;
}

TEST(DatabaseCrash, EveryWriteInTurnMayBeTheLast) {
  int64_t Points = 0;
  for (uint32_t Seed = 1; !HasFailure(); ++Seed) {
    for (int64_t DieAt = 1; RunAndCheck(Seed, 20, DieAt, true); ++DieAt) {
      ++Points;
      if (HasFailure()) return;
    }
    if (Points >= 1050) break;
  }
  RecordProperty("points", std::to_string(Points));
}

TEST(DatabaseCrash, EveryWriteInTurnMayFailAlone) {
  int64_t Points = 0;
  for (uint32_t Seed = 101; !HasFailure(); ++Seed) {
    for (int64_t DieAt = 1; RunAndCheck(Seed, 20, DieAt, false); ++DieAt) {
      ++Points;
      if (HasFailure()) return;
    }
    if (Points >= 1050) break;
  }
  RecordProperty("points", std::to_string(Points));
}

}  // namespace
}  // namespace zav::test
