// update_test.cpp - groups of changes: what they leave in the files, what is seen within them, how
// they are undone.
// SPDX-License-Identifier: MIT
#include <support/failing_file_ops.h>

#include <random>

#include "db_fixture.h"
#include "dying_file_ops.h"

namespace zav::test {
namespace {

// Many changes that depend on what is there; some look at the indexes between.
void Work(TGeoDB& DB, uint32_t Seed, bool Look) {
  std::mt19937 Random(Seed);
  std::mt19937 Looking(Seed);
  const auto Below = [&](uint32_t Limit) { return static_cast<int32_t>(Random() % Limit); };
  const auto Degree = [&] { return static_cast<float>(Below(61) - 30); };
  for (int i = 0; i < 600; ++i) {
    const auto Count = static_cast<uint32_t>(DB.NumEntries());
    const int32_t Kind = Below(10);
    if (Kind < 5 || Count < 5) {
      AddLake(DB, std::to_string(i),
              TgdbPolygon(static_cast<size_t>(Below(40)), {Degree(), Degree()}));
    } else if (Kind == 5) {
      DB.ReplaceTown(1 + Below(Count), "t" + std::to_string(i), 1, 2, {Degree(), Degree()}, 3, 4,
                     i);
    } else if (Kind == 6) {
      DB.ReplaceRoad(1 + Below(Count), "r", {{Degree(), Degree()}}, 1, 2, 0, 0, 0, 0, 0, 0, i);
    } else if (Kind < 9) {
      DB.DeleteData(1 + Below(Count));
    } else {
      TgdbData Data = DB.GetSumdata(1 + Below(Count));
      Data.LongLow = -170;
      DB.UpdateBasicData(DB.SearchForItemID(Data.ItemId), Data);
    }
    if (Look && i % 37 == 0) {
      EXPECT_EQ(DB.GetClosestLatLowIx(100), DB.NumEntries() + 1);
    }
    if (Look && i % 11 == 0 && DB.NumEntries() > 0) {
      const int32_t RecNo =
          1 + static_cast<int32_t>(Looking() % static_cast<uint32_t>(DB.NumEntries()));
      EXPECT_EQ(DB.SearchForItemID(DB.GetSumdata(RecNo).ItemId), RecNo);
      EXPECT_EQ(DB.SearchForItemID(DB.GetHighestID() + 1), 0);
    }
  }
}

TEST(DatabaseUpdate, FilesAreThoseOfSingleChanges) {
  TDyingFileOps Ops;
  const TFileOpsOverride With(Ops);
  for (uint32_t Seed = 1; Seed <= 8; ++Seed) {
    const TTempFolder Folder;
    const auto Run = [&](const std::string& Name, bool Grouped, bool Lazy) {
      TGeoDB DB;
      DB.SetGDBName(Folder / Name);
      DB.SetLazyWrite(Lazy);
      Work(DB, 100, false);  // something to begin with
      if (Grouped) DB.BeginUpdate();
      Work(DB, Seed, Grouped && Seed % 2 == 0);
      if (Grouped) DB.EndUpdate();
      DB.SetGDBName("");
      DB.SetGDBName(Folder / Name);
      EXPECT_EQ(Disagreement(DB), "") << Name << " " << Seed;
    };
    // In lazy mode until the end: as fast as it gets without a group.
    Run("single", false, true);
    Run("group", true, false);
    Run("lazygroup", true, true);
    const auto Single = FilesOf(Folder / "single");
    for (const char* Name : {"group", "lazygroup"}) {
      auto Group = FilesOf(Folder / Name);
      for (const char* Extension : {".zavgds", ".zavgdd", ".zavgi0"}) {
        EXPECT_TRUE(Group[Extension] == Single.at(Extension)) << Name << Extension << Seed;
      }
    }
  }
}

TEST(DatabaseUpdate, EagerAndLazySingleChangesLeaveTheSameBytes) {
  TDyingFileOps Ops;
  const TFileOpsOverride With(Ops);
  const TTempFolder Folder;
  for (const bool Lazy : {false, true}) {
    TGeoDB DB;
    DB.SetGDBName(Folder / (Lazy ? "lazy" : "eager"));
    DB.SetLazyWrite(Lazy);
    Work(DB, 5, false);
    DB.SetGDBName("");
    EXPECT_FALSE(DB.LazyWrite());
  }
  EXPECT_EQ(FilesOf(Folder / "lazy"), FilesOf(Folder / "eager"));
  EXPECT_EQ(Folder.Names().size(), 14u);
}

TEST(DatabaseUpdate, NestsAndRollsBack) {
  TDyingFileOps Ops;
  const TFileOpsOverride With(Ops);
  const TTempFolder Folder;
  const std::string Base = Folder / "db";
  TGeoDB DB;
  DB.SetGDBName(Base);
  Work(DB, 1, false);
  DB.Flush();
  const auto Before = FilesOf(Base);
  const int32_t Count = DB.NumEntries();

  // By an exception, after enough to fill the buffer, with an old and a new BLOB changed.
  const TMetaInfo Info;
  const std::string Large(700000, 'x');
  try {
    TGeoDBUpdate Outer(DB);
    {
      TGeoDBUpdate Inner(DB);
      Work(DB, 2, true);
      Inner.Commit();
    }
    const int32_t RecNo = DB.AddBLOB("b", 1, 0, 1, 2, 3, 4, 0, 0, 0, Info, Large.data(), 700000);
    DB.AddBLOB("c", 1, 0, 1, 2, 3, 4, 0, 0, 0, Info, Large.data(), 700000);
    std::string Back(700000, ' ');
    TMetaInfo Read;
    EXPECT_TRUE(DB.RetrieveBLOB(RecNo, Read, Back.data(), 700000));
    EXPECT_EQ(Back, Large);
    throw std::runtime_error("user");
  } catch (const std::runtime_error&) {
  }
  EXPECT_FALSE(DB.Updating());
  EXPECT_TRUE(FilesOf(Base) == Before);
  EXPECT_EQ(DB.NumEntries(), Count);
  EXPECT_EQ(Disagreement(DB), "");
  EXPECT_EQ(Folder.Names().size(), 7u);

  // An inner rollback takes the outer one along.
  DB.BeginUpdate();
  AddTown(DB, "x", 1, 2);
  DB.BeginUpdate();
  DB.RollbackUpdate();
  EXPECT_EQ(DB.NumEntries(), Count);
  EXPECT_THROW(AddTown(DB, "y", 1, 2), EZAVGeoDBError);
  EXPECT_THROW(DB.EndUpdate(), EZAVGeoDBError);
  EXPECT_THROW(DB.EndUpdate(), EZAVGeoDBError);
  EXPECT_TRUE(FilesOf(Base) == Before);
  EXPECT_GE(AddTown(DB, "z", 1, 2), 1);

  // What cannot be done within one.
  DB.BeginUpdate();
  EXPECT_THROW(DB.GarbageCollection(), EZAVGeoDBError);
  EXPECT_THROW(DB.SetGDBName(""), EZAVGeoDBError);
  EXPECT_THROW(DB.Backup(Folder / "other"), EZAVGeoDBError);
  DB.RollbackUpdate();
  DB.RollbackUpdate();  // nothing
}

TEST(DatabaseUpdate, OldMetaInformationComesBack) {
  const TTempFolder Folder;
  TGeoDB DB;
  DB.SetGDBName(Folder / "db");
  TMetaInfo Info;
  Info.Caption = "old";
  const int32_t RecNo = DB.AddBLOB("b", 1, 0, 1, 2, 3, 4, 0, 0, 0, Info, "xyz", 3);
  for (const bool Keep : {false, true}) {
    TGeoDBUpdate Update(DB);
    for (const char* Caption : {"first", "second"}) {
      Info.Caption = Caption;
      EXPECT_TRUE(DB.UpdateMetaInfo(RecNo, Info));
    }
    EXPECT_TRUE(DB.GetMetaInfo(RecNo, Info));
    EXPECT_EQ(Info.Caption.Text(), "second");
    // Another program that only reads sees the old one meanwhile.
    TGeoDB Reader;
    Reader.SetReadOnly(true);
    Reader.SetGDBName(Folder / "db");
    EXPECT_TRUE(Reader.GetMetaInfo(RecNo, Info));
    EXPECT_EQ(Info.Caption.Text(), "old");
    if (Keep) Update.Commit();
  }
  EXPECT_TRUE(DB.GetMetaInfo(RecNo, Info));
  EXPECT_EQ(Info.Caption.Text(), "second");
}

TEST(DatabaseUpdate, FailedBufferCanBeWrittenLater) {
  const TTempFolder Folder;
  TFailingFileOps Ops;
  const TFileOpsOverride With(Ops);
  TGeoDB DB;
  DB.SetGDBName(Folder / "db");
  const TMetaInfo Info;
  const std::string Large(600000, 'x');
  DB.BeginUpdate();
  const auto Add = [&] { DB.AddBLOB("b", 1, 0, 1, 2, 3, 4, 0, 0, 0, Info, Large.data(), 600000); };
  Add();
  Ops.Arm(2);
  EXPECT_THROW(Add(), EInOutError);
  Ops.Arm(0);
  Add();
  DB.EndUpdate();
  EXPECT_EQ(DB.NumEntries(), 2);
  EXPECT_EQ(Disagreement(DB), "");
  std::string Back(600000, ' ');
  TMetaInfo Read;
  for (int32_t RecNo = 1; RecNo <= 2; ++RecNo) {
    EXPECT_TRUE(DB.RetrieveBLOB(RecNo, Read, Back.data(), 600000));
    EXPECT_EQ(Back, Large);
  }
}

}  // namespace
}  // namespace zav::test
