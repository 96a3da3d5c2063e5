// maintenance_test.cpp - checking, mending, compacting, copying and showing.
// SPDX-License-Identifier: MIT
#include <platform/base/atomic_file.h>

#include <filesystem>
#include <fstream>

#include "db_fixture.h"
#include "dying_file_ops.h"

namespace zav::test {
namespace {

namespace fs = std::filesystem;

// A database with an item of each sort, some dead bytes and a hole in the identifiers.
void Fill(const std::string& Base) {
  TGeoDB DB;
  DB.SetGDBName(Base);
  AddTown(DB, "town", 1, 2);
  AddLake(DB, "dead", TgdbPolygon(100, TSCoords{7, 8}));
  AddLake(DB, "lake", {{1, 2}, {3, 4}});
  const TMetaInfo Info;
  DB.AddBLOB("blob", 1, 0, 5, 6, 7, 8, 0, 0, 0, Info, "payload", 7);
  DB.AddRiver("empty", {}, 0, 0, 0, 0, 0, 0, 0, 0, 0);
  DB.DeleteData(2);
}

void Poke(const std::string& Path, int64_t Offset, const void* Bytes, size_t Size) {
  std::fstream File(Path, std::ios::in | std::ios::out | std::ios::binary);
  File.seekp(Offset);
  File.write(static_cast<const char*>(Bytes), static_cast<std::streamsize>(Size));
}
void PokeInt(const std::string& Path, int64_t Offset, int32_t Value) {
  Poke(Path, Offset, &Value, 4);
}

bool Mentions(const std::vector<std::string>& Lines, const std::string& Text) {
  return std::any_of(Lines.begin(), Lines.end(),
                     [&](const std::string& Line) { return Line.find(Text) != std::string::npos; });
}

TEST(DatabaseMaintenance, CheckNamesAndRepairMends) {
  TDyingFileOps Ops;
  const TFileOpsOverride With(Ops);
  // Records: 1 town, 2 empty river, 3 lake, 4 blob. Each case: damage, words of Check, words of
  // Repair.
  struct TCase {
    std::string Extension;
    int64_t Offset;
    int32_t Value;
    std::string Found;
    std::string Done;
  };
  const TCase Cases[] = {
      {".zavgds", 0, -5, "record 1: its identifier is below 1", "record 1: given a new"},
      {".zavgds", 240, 1, "identifier 1 of record 1", "record 3: given a new"},
      {".zavgds", 108, 99, "record 1: its kind", "record 1: made one of no kind"},
      {".zavgds", 4, 0x20202061 | 0x7F, "record 1: its name", "record 1: name cut"},
      {".zavgds", 240 + 116, 5, "record 3: Closed", "record 3: Closed set"},
      {".zavgds", 240 + 76, 100000, "record 3: its block", "record 3: left without"},
      {".zavgds", 240 + 112, -1, "record 3: its block", "record 3: left without"},
      {".zavgds", 240 + 112, 2000000000, "record 3: its block", "record 3: left without"},
      {".zavgds", 360 + 76, 12, "record 4: its block", "record 4: left without"},
      {".zavgds", 76, 300, "record 1: its kind has no block", "record 1: tells of no block"},
      {".zavgds", 240 + 92, 0x40000000, "record 3: its box", "record 3: box taken"},
      {".zavgds", 240 + 96, 0x7FC00000, "record 3: a coordinate", "record 3: box taken"},
      {".zavgdd", 0, 2, "HighestID is 2", "HighestID set to 5"},
      {".zavgdd", 4, 9, "DBVersion is 9", "DBVersion set to 4"},
      {".zavgdd", 8, 200, "description's length", "description cut"},
      {".zavgi0", 4, 3, "index of ItemId: 1 records have no entry", "indexes made anew"},
      {".zavgi2", 0, 0x43000000, "index of LatHigh: 1 entries have another key", "indexes"},
      {".zavgi3", 4, 77, "index of LongLow: 1 entries are of records that do not", "indexes"},
      {".zavgi4", 8, 0x43000000, "index of LongHigh: 1 entries have a lower", "indexes"},
  };
  for (const TCase& Case : Cases) {
    const TTempFolder Folder;
    const std::string Base = Folder / "db";
    Fill(Base);
    EXPECT_EQ(CheckGeoDB(Base), std::vector<std::string>());
    EXPECT_EQ(RepairGeoDB(Base), std::vector<std::string>());
    PokeInt(Base + Case.Extension, Case.Offset, Case.Value);
    const auto Found = CheckGeoDB(Base);
    EXPECT_TRUE(Mentions(Found, Case.Found))
        << Case.Found << ": " << ::testing::PrintToString(Found);
    TGeoDB DB;
    DB.SetGDBName(Base);
    EXPECT_EQ(DB.Check(), Found);
    const auto Done = DB.Repair();
    EXPECT_TRUE(Mentions(Done, Case.Done)) << Case.Done << ": " << ::testing::PrintToString(Done);
    EXPECT_EQ(Disagreement(DB), "") << Case.Found;
    EXPECT_EQ(DB.NumEntries(), 4);
    EXPECT_GT(AddTown(DB, "after", 1, 2), 0);
    EXPECT_EQ(Folder.Names().size(), 7u);
  }
}

TEST(DatabaseMaintenance, SetsThatCannotBeOpenedAreMended) {
  TDyingFileOps Ops;
  const TFileOpsOverride With(Ops);
  for (int Case = 0; Case < 6; ++Case) {
    const TTempFolder Folder;
    const std::string Base = Folder / "db";
    Fill(Base);
    if (Case == 0) fs::remove(Base + ".zavgdd");
    if (Case == 1) fs::resize_file(Base + ".zavgdd", 100);
    if (Case == 2) fs::remove(Base + ".zavgi2");
    if (Case == 3) fs::resize_file(Base + ".zavgds", 470);
    if (Case == 4) fs::resize_file(Base + ".zavgi0", 30);
    if (Case == 5) fs::resize_file(Base + ".zavgi1", 0);
    EXPECT_FALSE(CheckGeoDB(Base).empty()) << Case;
    EXPECT_FALSE(RepairGeoDB(Base).empty()) << Case;
    EXPECT_EQ(CheckGeoDB(Base), std::vector<std::string>()) << Case;
    TGeoDB DB;
    DB.SetGDBName(Base);
    EXPECT_EQ(DB.NumEntries(), Case == 3 ? 3 : 4);
    EXPECT_EQ(DB.GetSumdata(1).Name.Text(), "town");
    EXPECT_EQ(DB.SearchForItemID(3), 3);
  }
  const TTempFolder Folder;
  EXPECT_THROW(RepairGeoDB(Folder / "none"), EInOutError);
  EXPECT_THROW(CheckGeoDB(Folder / "none"), EInOutError);
  EXPECT_THROW(ReadSystemInformation(Folder / "none"), EInOutError);
  EXPECT_TRUE(Folder.Names().empty());
}

TEST(DatabaseMaintenance, CompactingKeepsEverythingButDeadBytes) {
  TDyingFileOps Ops;
  const TFileOpsOverride With(Ops);
  const TTempFolder Folder;
  const std::string Base = Folder / "db";
  Fill(Base);
  fs::permissions(Base + ".zavgds", fs::perms(0640));
  TGeoDB DB;
  DB.SetGDBName(Base);
  const auto Before = FilesOf(Base);
  std::vector<int32_t> Reports;
  DB.OnPercentDone = [&](TGeoDB*, int32_t Percent) { Reports.push_back(Percent); };
  DB.GarbageCollection();
  EXPECT_EQ(Reports.front(), 0);
  EXPECT_EQ(Reports.back(), 100);
  DB.OnPercentDone = nullptr;
  EXPECT_EQ(fs::file_size(Base + ".zavgdd"), 260u + 16 + 1024 + 7);
  EXPECT_EQ(fs::status(Base + ".zavgds").permissions(), fs::perms(0640));
  for (const char* Extension : {".zavgi0", ".zavgi1", ".zavgi4"}) {
    EXPECT_EQ(ReadWholeFile(Base + Extension), Before.at(Extension));
  }
  EXPECT_EQ(DB.GetSumdata(2).Name.Text(), "empty");
  EXPECT_EQ(DB.GetSumdata(2).ItemId, 5);
  TgdbPolygon Points;
  EXPECT_TRUE(DB.RetrievePolygon(3, Points));
  EXPECT_EQ(Points, (TgdbPolygon{{1, 2}, {3, 4}}));
  TMetaInfo Info;
  char Payload[7];
  EXPECT_TRUE(DB.RetrieveBLOB(4, Info, Payload, 7));
  EXPECT_EQ(std::string(Payload, 7), "payload");
  EXPECT_EQ(Disagreement(DB), "");
  EXPECT_EQ(Folder.Names().size(), 7u);
  EXPECT_EQ(DB.GetSumdata(AddTown(DB, "n", 1, 2)).ItemId, 6);
  // A block that is not there would be lost for good.
  DB.SetGDBName("");
  PokeInt(Base + ".zavgds", 240 + 112, 5000);
  DB.SetGDBName(Base);
  EXPECT_THROW(DB.GarbageCollection(), EZAVGeoDBError);
  EXPECT_EQ(Folder.Names().size(), 7u);
}

TEST(DatabaseMaintenance, CopiesAreTheSameAndNeverHalf) {
  TDyingFileOps Ops;
  const TFileOpsOverride With(Ops);
  const TTempFolder Folder;
  Fill(Folder / "db");
  TGeoDB DB;
  DB.SetGDBName(Folder / "db");
  DB.SetLazyWrite(true);
  AddTown(DB, "unwritten", 1, 2);
  DB.Backup(Folder / "copy.x");
  EXPECT_THROW(DB.Backup(Folder / "copy"), EZAVGeoDBError);
  DB.SetLazyWrite(false);
  EXPECT_EQ(FilesOf(Folder / "copy"), FilesOf(Folder / "db"));
  for (int64_t Write = 1; Write < 100; ++Write) {
    const TTempFolder To;
    Ops.DieAt = Ops.Count + Write;
    bool Failed = false;
    try {
      DB.Backup(To / "copy");
    } catch (const EInOutError&) {
      Failed = true;
    }
    Ops.DieAt = 0;
    if (!Failed) break;
    TGeoDB Copy;
    Copy.SetGDBName(To / "copy");
    EXPECT_EQ(Copy.NumEntries(), 0);
    EXPECT_EQ(Disagreement(Copy), "");
  }
}

TEST(DatabaseMaintenance, DamagedJournalIsToldAndRemoved) {
  TDyingFileOps Ops;
  const TFileOpsOverride With(Ops);
  const TTempFolder Folder;
  const std::string Base = Folder / "db";
  Fill(Base);
  {
    TGeoDB DB;
    DB.SetGDBName(Base);
    Ops.DieAt = Ops.Count + 10;  // when the journal is armed, at the record
    EXPECT_THROW(DB.DeleteData(1), EInOutError);
  }
  Ops.DieAt = 0;
  ASSERT_TRUE(fs::exists(Base + ".zavgjn"));
  EXPECT_TRUE(Mentions(CheckGeoDB(Base), "cut short"));
  PokeInt(Base + ".zavgjn", 1100, 12345);
  TGeoDB DB;
  EXPECT_THROW(DB.SetGDBName(Base), EInOutError);
  EXPECT_TRUE(Mentions(RepairGeoDB(Base), "journal removed"));
  DB.SetGDBName(Base);
  EXPECT_EQ(Disagreement(DB), "");

  // One that is no journal at all is of no consequence.
  DB.SetGDBName("");
  for (const size_t Size : {0u, 5u, 511u, 512u, 5000u}) {
    WriteWholeFile(Base + ".zavgjn", std::string(Size, 'J'));
    DB.SetGDBName(Base);
    EXPECT_EQ(Disagreement(DB), "");
    EXPECT_EQ(Folder.Names().size(), 7u);
  }
}

TEST(DatabaseMaintenance, ExportShowsRecordsAndIndexes) {
  const TTempFolder Folder;
  Fill(Folder / "db");
  TGeoDB DB;
  DB.SetGDBName(Folder / "db");
  DB.ExportDataDebug(Folder / "out.txt");
  const std::string Text = ReadWholeTextFile(Folder / "out.txt");
  for (const char* Part : {"HighestID=5", "Name=\"town\"", "ItemKind=BLOB", "Size=7",
                           "index LongHigh\r\n", "5 record 2\r\n"}) {
    EXPECT_NE(Text.find(Part), std::string::npos) << Part;
  }
}

}  // namespace
}  // namespace zav::test
