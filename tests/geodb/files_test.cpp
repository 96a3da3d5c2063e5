// files_test.cpp - opening, creating and closing; the header; when index files are written.
// SPDX-License-Identifier: MIT
#include <platform/base/atomic_file.h>

#include <filesystem>
#include <functional>

#include "db_fixture.h"
#include "dying_file_ops.h"

namespace zav::test {
namespace {

namespace fs = std::filesystem;

TEST(DatabaseFiles, OpeningMakesSevenFiles) {
  const TTempFolder Folder;
  TGeoDB DB;
  EXPECT_EQ(DB.GetGDBName(), "");
  DB.SetGDBName(Folder / "world.txt");
  EXPECT_EQ(DB.GetGDBName(), Folder / "world");
  EXPECT_EQ(Folder.Names().size(), 7u);
  for (const auto& [Extension, Bytes] : FilesOf(Folder / "world")) {
    EXPECT_EQ(Bytes.size(), Extension == ".zavgdd" ? 260u : 0u) << Extension;
  }
  const TgdbSystemData Header = ReadSystemInformation(Folder / "world.any");
  EXPECT_EQ(Header, TgdbSystemData());
  EXPECT_EQ(Header.DBVersion, 4);

  // Without a database: neutral results, nothing thrown.
  DB.SetGDBName("");
  EXPECT_EQ(DB.GetGDBName(), "");
  DB.SetDescription("x");
  DB.SetRevision(3);
  EXPECT_EQ(DB.GetDescription(), "");
  EXPECT_EQ(DB.GetRevision(), 0);
  EXPECT_EQ(AddTown(DB, "t", 1, 2), -1);
  DB.ReplaceTown(1, "t", 0, 0, {1, 2}, 0, 0, 0);
  DB.DeleteData(1);
  TgdbPolygon Points;
  TMetaInfo Info;
  EXPECT_FALSE(DB.RetrievePolygon(1, Points));
  EXPECT_FALSE(DB.RetrieveBLOB(1, "x", Info));
  DB.GarbageCollection();
  DB.RecalcIndexes();
  DB.Flush();
  EXPECT_TRUE(DB.ItemsInRegion({-90, -180, 90, 180}).empty());
  EXPECT_TRUE(DB.Check().empty());
  DB.BeginUpdate();
  EXPECT_EQ(AddTown(DB, "t", 1, 2), -1);
  DB.EndUpdate();
}

TEST(DatabaseFiles, HeaderIsKeptAsTheFilesSay) {
  const TTempFolder Folder;
  TGeoDB DB;
  DB.SetName("Geo");
  DB.SetGDBName(Folder / "a");
  DB.SetDescription(std::string(75, 'd'));
  DB.SetRevision(-9);
  EXPECT_EQ(DB.GetDescription(), std::string(60, 'd'));
  AddTown(DB, "t", 1, 2);
  EXPECT_EQ(ReadSystemInformation(Folder / "a").Revision, -9);
  // A set whose data file is missing gets the header that the component had before.
  DB.SetGDBName(Folder / "b");
  EXPECT_EQ(DB.GetDescription(), "");
  DB.SetGDBName(Folder / "a");
  fs::remove(Folder / "b.zavgdd");
  DB.SetGDBName(Folder / "b");
  EXPECT_EQ(DB.GetRevision(), -9);
  EXPECT_EQ(DB.GetHighestID(), 1);
  EXPECT_EQ(ReadSystemInformation(Folder / "b").Revision, -9);

  // The data file is gone, or something else is in its place.
  fs::remove(Folder / "b.zavgdd");
  fs::create_directory(Folder / "b.zavgdd");
  const std::pair<const char*, std::function<void()>> Cases[] = {
      {"SetDescription", [&] { DB.SetDescription("x"); }},
      {"SetRevision", [&] { DB.SetRevision(1); }},
      {"AddData", [&] { AddTown(DB, "t", 1, 2); }}};
  for (const auto& [Operation, Work] : Cases) {
    try {
      Work();
      ADD_FAILURE() << Operation;
    } catch (const EZAVGeoDBError& Error) {
      EXPECT_EQ(Error.what(),
                "Component \"Geo\": " + std::string(Operation) + ": cannot open database.");
    }
  }
  EXPECT_EQ(DB.GetHighestID(), 2);  // stays counted
  EXPECT_EQ(DB.NumEntries(), 0);
}

TEST(DatabaseFiles, DamagedSetsAreTakenAsTheyAreOrRefused) {
  const TTempFolder Folder;
  const std::string Base = Folder / "db";
  {
    TGeoDB DB;
    DB.SetGDBName(Base);
    for (int i = 0; i < 3; ++i) AddTown(DB, "t", 1, 2);
  }
  TGeoDB DB;
  // Counts that disagree are not looked at; nothing outside the arrays is, either.
  fs::resize_file(Base + ".zavgi1", 8);
  fs::resize_file(Base + ".zavgi0", 100);
  fs::resize_file(Base + ".zavgds", 250);
  DB.SetGDBName(Base);
  EXPECT_EQ(DB.NumEntries(), 2);
  EXPECT_EQ(DB.GetIxLatLow(2), TIxLLRec());
  DB.DeleteData(1);
  AddTown(DB, "t", 4, 5);
  DB.ReplaceTown(1, "t", 0, 0, {3, 3}, 0, 0, 0);
  EXPECT_FALSE(DB.Check().empty());
  EXPECT_EQ(fs::file_size(Base + ".zavgds"), 240u);
  fs::resize_file(Base + ".zavgdd", 259);
  EXPECT_THROW(DB.SetGDBName(Base), EInOutError);
  EXPECT_FALSE(DB.IsOpen());
  EXPECT_THROW(DB.SetGDBName(Folder / "none/db"), EInOutError);
  WriteWholeFile(Folder / "file", "x");
  EXPECT_THROW(DB.SetGDBName(Folder / "file/db"), EInOutError);
}

TEST(DatabaseFiles, LazyIndexesAreWrittenAtTheirTimes) {
  const TTempFolder Folder;
  TDyingFileOps Ops;
  const TFileOpsOverride With(Ops);
  const std::string Base = Folder / "db";
  const auto IndexBytes = [&] { return fs::file_size(Base + ".zavgi3"); };
  auto DB = std::make_unique<TGeoDB>();
  DB->SetGDBName(Base);
  const int64_t Writes = Ops.Count;
  DB->SetLazyWrite(false);
  DB->SetLazyWrite(true);
  DB->SetLazyWrite(true);
  EXPECT_EQ(Ops.Count, Writes);
  AddTown(*DB, "a", 1, 2);
  EXPECT_EQ(IndexBytes(), 0u);
  EXPECT_EQ(fs::file_size(Base + ".zavgds"), 120u);
  EXPECT_EQ(Folder.Names().size(), 8u);  // the journal tells that indexes are unwritten
  fs::remove(Base + ".zavgi1");
  DB->SetLazyWrite(false);
  EXPECT_EQ(IndexBytes(), 8u);
  EXPECT_EQ(fs::file_size(Base + ".zavgi1"), 8u);
  EXPECT_EQ(Folder.Names().size(), 7u);
  DB->SetLazyWrite(true);
  AddTown(*DB, "b", 1, 2);
  DB->SetGDBName("");
  EXPECT_FALSE(DB->LazyWrite());
  EXPECT_EQ(IndexBytes(), 16u);
  DB->SaveIndex(3);  // lazy closing forgets the paths
  EXPECT_EQ(IndexBytes(), 16u);
  DB->SetGDBName(Base);
  DB->SetLazyWrite(true);
  AddTown(*DB, "c", 1, 2);
  DB.reset();
  EXPECT_EQ(IndexBytes(), 24u);
  EXPECT_EQ(Folder.Names().size(), 7u);

  // Another name leaves unwritten indexes to the journal.
  DB = std::make_unique<TGeoDB>();
  DB->SetGDBName(Base);
  DB->SetLazyWrite(true);
  AddTown(*DB, "d", 1, 2);
  DB->SetGDBName(Folder / "other");
  EXPECT_TRUE(DB->LazyWrite());
  EXPECT_EQ(IndexBytes(), 24u);
  DB->SetGDBName(Base);
  EXPECT_EQ(IndexBytes(), 32u);
  DB->SetLazyWrite(false);
  EXPECT_EQ(Disagreement(*DB), "");
}

TEST(DatabaseFiles, HelpersForRecords) {
  const auto Degrees = TDegreeFormat::dfDegrees;
  EXPECT_TRUE(GeoLatitude(-0.0, Degrees, 1).ends_with(" N"));
  EXPECT_EQ(GeoLatitude(-95, Degrees, 1), DegreeToStr(90, Degrees, 1) + " S");
  EXPECT_EQ(GeoLongitude(200, Degrees, 1), DegreeToStr(180, Degrees, 1) + " E");
  EXPECT_EQ(GeoLongitude(-1.5, Degrees, 1), DegreeToStr(1.5, Degrees, 1) + " W");
  TgdbData Data;
  Data.NumPoints = 77;
  Data.Name = "abc";
  ClearGdbData(Data);
  EXPECT_EQ(Data.NumPoints, 77);
  EXPECT_EQ(Data.ItemKind, TgdbItem::gitUndefined);
  EXPECT_EQ(Data.BlobOffset, -1);
  EXPECT_EQ(std::string(Data.Name.Chars, 59), std::string(59, ' '));
  EXPECT_GT(Data.Date, 45000);
  TMetaInfo Info;
  Info.Comment = "abc";
  ClearMetaInfo(Info);
  EXPECT_EQ(Info.Comment.Length, 0);
  EXPECT_EQ(Info.Comment.Chars[0], 'a');
  EXPECT_EQ(ItemKindName(TgdbItem::gitBLOB), "BLOB");
  EXPECT_EQ(ItemKindName(static_cast<TgdbItem>(200)), "Undefined");
}

}  // namespace
}  // namespace zav::test
