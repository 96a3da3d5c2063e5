// items_test.cpp - what adding, replacing, deleting and reading do, report and refuse.
// SPDX-License-Identifier: MIT
#include <geodb/gdb_search.h>
#include <platform/base/atomic_file.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include "db_fixture.h"
#include "dying_file_ops.h"

namespace zav::test {
namespace {

namespace fs = std::filesystem;

class DatabaseItems : public ::testing::Test {
 protected:
  DatabaseItems() {
    DB.SetGDBName(Folder / "db");
    DB.OnPercentDone = [this](TGeoDB* Sender, int32_t Percent) {
      Reports.push_back(Percent);
      EXPECT_EQ(Sender, &DB);
    };
  }
  std::vector<int32_t> TakeReports() { return std::exchange(Reports, {}); }

  TDyingFileOps Ops;
  TFileOpsOverride With{Ops};
  TTempFolder Folder;
  TGeoDB DB;
  std::vector<int32_t> Reports;
};

using TReports = std::vector<int32_t>;

TEST_F(DatabaseItems, KindsTakeTheirBoxesAndBlocks) {
  const TgdbPolygon Points = {{10, 20}, {12, 18}, {11, 25}};
  EXPECT_EQ(DB.AddBorder("b", Points, true, 1.5, 2, 77, 78, 79, 80, 3, 4, 5), 1);
  EXPECT_EQ(TakeReports(), (TReports{0, 0, 33, 67, 100}));
  TgdbData Data = DB.GetSumdata(1);
  EXPECT_EQ(Data.ItemId, 1);
  EXPECT_EQ(Data.BlobOffset, 260);
  EXPECT_EQ(Data.NumPoints, 3);
  EXPECT_EQ(BoxOf(Data), (TGeoBox{10, 12, 18, 25}));
  EXPECT_EQ(Data.Closed, 1);
  EXPECT_EQ(ReadSystemInformation(Folder / "db.zavgds").HighestID, 1);

  // Each kind: Closed as the kind or the caller says.
  DB.AddCity("c", Points, false, 0, 0, 0, 0, 0, 0, 0, 0, 0);
  DB.AddLake("l", Points, 0, 0, 0, 0, 0, 0, 0, 0, 0);
  DB.AddRiver("r", Points, 0, 0, 0, 0, 0, 0, 0, 0, 0);
  DB.AddRoad("r", Points, 0, 0, 0, 0, 0, 0, 0, 0, 0);
  DB.AddRoute("r", {}, 0, 0, 1, 2, 3, 4, 0, 0, 0);
  EXPECT_EQ(DB.AddTown("t", 0, 0, {48.1F, 11.6F}, 0, 0, 0), 7);
  const TgdbItem Kinds[] = {TgdbItem::gitBorder, TgdbItem::gitCity, TgdbItem::gitLake,
                            TgdbItem::gitRiver,  TgdbItem::gitRoad, TgdbItem::gitRoute,
                            TgdbItem::gitTown};
  const uint8_t Closed[] = {1, 0, 1, 0, 0, 0, 0};
  for (int32_t i = 0; i < 7; ++i) {
    EXPECT_EQ(DB.GetSumdata(i + 1).ItemKind, Kinds[i]);
    EXPECT_EQ(DB.GetSumdata(i + 1).Closed, Closed[i]) << i;
  }
  EXPECT_EQ(BoxOf(DB.GetSumdata(6)), (TGeoBox{90, -90, 180, -180}));  // no points
  Data = DB.GetSumdata(7);
  EXPECT_EQ(BoxOf(Data), (TGeoBox{48.1F, 48.1F, 11.6F, 11.6F}));
  EXPECT_EQ(Data.BlobOffset, -1);
  EXPECT_EQ(Data.NumPoints, 0);
  TgdbPolygon Read = {{1, 1}};
  TakeReports();
  EXPECT_FALSE(DB.RetrievePolygon(7, Read));
  EXPECT_FALSE(DB.RetrievePolygon(8, Read));
  EXPECT_EQ(Read.size(), 1u);
  EXPECT_EQ(TakeReports(), (TReports{0, 100, 0, 100}));
  EXPECT_TRUE(DB.RetrievePolygon(6, Read));
  EXPECT_TRUE(Read.empty());
  EXPECT_TRUE(DB.RetrievePolygon(-3, Read));
  EXPECT_EQ(Read, Points);
  EXPECT_EQ(Disagreement(DB), "");
}

TEST_F(DatabaseItems, ReplacingAndDeleting) {
  for (const char* Name : {"a", "b", "c"}) AddTown(DB, Name, 1, 2);
  const auto Size = fs::file_size(Folder / "db.zavgdd");
  TakeReports();
  DB.ReplaceRiver(2, std::string(70, 'x'), {{1, 2}}, 0, 0, 0, 0, 0, 0, 0, 0, 9);
  EXPECT_EQ(TakeReports(), (TReports{0, 0, 100}));
  EXPECT_EQ(DB.GetSumdata(2).ItemId, 2);
  EXPECT_EQ(DB.GetSumdata(2).Name.Text(), std::string(59, 'x'));
  EXPECT_EQ(DB.GetHighestID(), 3);
  EXPECT_EQ(fs::file_size(Folder / "db.zavgdd"), Size + 8);
  DB.ReplaceTown(2, "again", 0, 0, {3, 4}, 0, 0, 9);
  EXPECT_EQ(DB.GetSumdata(2).BlobOffset, -1);
  const auto Files = FilesOf(Folder / "db");
  TakeReports();
  for (const int32_t RecNo : {0, -1, 4}) {
    DB.ReplaceTown(RecNo, "n", 0, 0, {1, 2}, 0, 0, 0);
    DB.DeleteData(RecNo);
    EXPECT_FALSE(DB.UpdateBasicData(RecNo, TgdbData()));
  }
  EXPECT_EQ(FilesOf(Folder / "db"), Files);
  DB.DeleteData(1);
  EXPECT_EQ(TakeReports(), TReports());
  EXPECT_EQ(DB.NumEntries(), 2);
  EXPECT_EQ(DB.SearchForItemID(3), 1);
  EXPECT_EQ(DB.SearchForItemID(1), 0);
  EXPECT_EQ(DB.GetSumdata(AddTown(DB, "d", 1, 2)).ItemId, 4);
  DB.DeleteData(3);
  EXPECT_EQ(Disagreement(DB), "");

  // Overwriting a record: the identifier and block stay, the indexes follow.
  TgdbData Data = DB.GetSumdata(1);
  Data.ItemId = 77;
  Data.LatHigh = 50;
  Data.Closed = 9;
  EXPECT_TRUE(DB.UpdateBasicData(1, Data));
  EXPECT_EQ(DB.GetSumdata(1).ItemId, 3);
  EXPECT_EQ(DB.GetIxLatHigh(2), (TIxLLRec{50, 1}));
  Data.ItemKind = TgdbItem::gitLake;
  EXPECT_THROW(DB.UpdateBasicData(1, Data), EZAVGeoDBError);
  EXPECT_EQ(Disagreement(DB), "");
}

TEST_F(DatabaseItems, LongListsReportAsTheyAlwaysDid) {
  TgdbPolygon Points(250, TSCoords{1, 2});
  AddLake(DB, "l", Points);
  TReports Expected = {0};
  for (int j = 0; j < 250; ++j) {
    const double Share = j * 100.0 / 250;  // 2.4 each: no halves
    Expected.push_back(static_cast<int32_t>(std::lround(Share)));
  }
  Expected.push_back(100);
  EXPECT_EQ(TakeReports(), Expected);
  DB.RetrievePolygon(1, Points);
  EXPECT_EQ(TakeReports().size(), 1 + 83u + 1);
}

TEST_F(DatabaseItems, BlobsGoInAndOut) {
  std::string Payload(40000, ' ');
  for (size_t i = 0; i < Payload.size(); ++i) Payload[i] = static_cast<char>(i * 7 % 251);
  TMetaInfo Info;
  Info.Caption = "caption";
  EXPECT_EQ(DB.AddBLOB("mem:ory", 5, 0, 1, 2, 3, 4, 0, 0, 0, Info, Payload.data(), 40000), 1);
  EXPECT_EQ(TakeReports(), (TReports{0, 41, 82, 100}));
  EXPECT_EQ(fs::file_size(Folder / "db.zavgdd"), 260u + 1024 + 40000);
  EXPECT_EQ(DB.GetSumdata(1).Size(), 40000);
  EXPECT_EQ(DB.GetSumdata(1).Date, 5);

  // From a file; a long path is read although the record cuts it.
  const std::string Long = Folder / (std::string(150, 'd') + "/");
  fs::create_directory(Long);
  const std::string Source = Long + "pic.jpg";
  WriteWholeFile(Source, std::string_view(Payload).substr(0, 20000));
  EXPECT_EQ(DB.AddBLOB(Source, 5, 0, 1, 2, 3, 4, 0, 0, 0, Info), 2);
  EXPECT_EQ(TakeReports(), (TReports{0, 82, 164, 100}));
  EXPECT_EQ(DB.GetSumdata(2).Name.Text(), "pic.jpg");
  EXPECT_EQ(DB.GetSumdata(2).Size(), 20000);
  EXPECT_GT(DB.GetSumdata(2).Date, 36526);
  EXPECT_TRUE(DB.GetMetaInfo(2, Info));
  EXPECT_EQ(Info.FilePath.Text(), Source.substr(0, 127));
  DB.AddBLOB(Source, "x/y/other.txt", 5, 0, 1, 2, 3, 4, 0, 0, 0, Info);
  DB.AddBLOB(Source, "named", "stored", 5, 0, 1, 2, 3, 4, 0, 0, 0, Info);
  EXPECT_EQ(DB.GetSumdata(3).Name.Text(), "other.txt");
  EXPECT_TRUE(DB.GetMetaInfo(4, Info));
  EXPECT_EQ(Info.FilePath.Text(), "stored");
  const auto Files = FilesOf(Folder / "db");
  TakeReports();
  EXPECT_THROW(DB.AddBLOB(Folder / "none", 5, 0, 1, 2, 3, 4, 0, 0, 0, Info), EInOutError);
  EXPECT_EQ(FilesOf(Folder / "db"), Files);

  // Back to a buffer, a stream, a file, and a file of a folder.
  std::string Back(40000, '\0');
  EXPECT_THROW(DB.RetrieveBLOB(1, Info, Back.data(), 39999), EZAVGeoDBError);
  EXPECT_EQ(Info.Caption.Text(), "caption");
  TakeReports();
  EXPECT_TRUE(DB.RetrieveBLOB(0, Info, Back.data(), 40000));
  EXPECT_EQ(Back, Payload);
  EXPECT_EQ(TakeReports(), (TReports{0, 41, 82, 100, 100}));
  TMemoryStream Stream;
  EXPECT_TRUE(DB.RetrieveBLOB(1, Info, &Stream));
  EXPECT_EQ(TakeReports(), (TReports{0, 41, 82, 100, 0}));
  EXPECT_EQ(std::string(reinterpret_cast<char*>(Stream.Memory()), Stream.Size()), Payload);
  EXPECT_EQ(DB.AddBLOB("stream", 5, 0, 1, 2, 3, 4, 0, 0, 0, Info, &Stream), 5);
  DB.ReplaceBLOB(5, "data", 5, 0, 1, 2, 3, 4, 0, 0, 0, Info, "abc", 3);
  DB.ReplaceBLOB(4, Source, 5, 0, 1, 2, 3, 4, 0, 0, 0, Info);
  DB.ReplaceBLOB(3, "again", 5, 0, 1, 2, 3, 4, 0, 0, 0, Info, &Stream);
  EXPECT_TRUE(DB.RetrieveBLOB(5, Folder / "out", Info));
  EXPECT_EQ(ReadWholeTextFile(Folder / "out"), "abc");
  EXPECT_TRUE(DB.RetrieveBLOB(1, Folder / "\\", Info));
  EXPECT_EQ(ReadWholeTextFile(Folder / "memory"), Payload);
  DB.ReplaceBLOB(5, "???", 5, 0, 1, 2, 3, 4, 0, 0, 0, Info, "abc", 3);
  try {
    DB.RetrieveBLOB(5, "", Info);
    ADD_FAILURE();
  } catch (const EZAVGeoDBError& Error) {
    EXPECT_STREQ(Error.what(), "Component \"\": RetrieveBLOB: invalid filename.");
  }
  AddTown(DB, "t", 1, 2);
  EXPECT_FALSE(DB.RetrieveBLOB(6, Info, &Stream));
  EXPECT_EQ(Stream.Size(), 0u);
  EXPECT_FALSE(DB.RetrieveBLOB(6, Folder / "not", Info));
  EXPECT_FALSE(DB.RetrieveBLOB(6, Info, Back.data(), 40000));
  EXPECT_FALSE(DB.GetMetaInfo(6, Info));
  EXPECT_FALSE(DB.GetMetaInfo(0, Info));
  EXPECT_FALSE(DB.UpdateMetaInfo(7, Info));
  EXPECT_THROW(DB.AddBLOB("n", 5, 0, 1, 2, 3, 4, 0, 0, 0, Info, "abc", -1), EZAVGeoDBError);
  EXPECT_EQ(Disagreement(DB), "");
}

TEST_F(DatabaseItems, HandlersMayAskButNotChange) {
  int Asked = 0;
  DB.OnPercentDone = [&](TGeoDB*, int32_t) {
    ++Asked;
    EXPECT_GE(DB.NumEntries(), 0);
    if (DB.NumEntries() > 0) return;
    EXPECT_THROW(AddTown(DB, "inner", 1, 2), EZAVGeoDBError);
  };
  AddTown(DB, "outer", 1, 2);
  EXPECT_EQ(Asked, 2);
  // One that throws undoes the operation.
  DB.OnPercentDone = [](TGeoDB*, int32_t Percent) {
    if (Percent == 50) throw std::runtime_error("stop");
  };
  EXPECT_THROW(AddLake(DB, "l", {{1, 2}, {3, 4}}), std::runtime_error);
  DB.OnPercentDone = nullptr;
  EXPECT_EQ(DB.NumEntries(), 1);
  EXPECT_EQ(Disagreement(DB), "");
  EXPECT_EQ(DB.GetSumdata(AddTown(DB, "next", 1, 2)).ItemId, 3);
}

TEST_F(DatabaseItems, DataFileHasALimit) {
  DB.SetGDBName("");
  fs::resize_file(Folder / "db.zavgdd", 2147483647 - 8);  // takes no room on the disk
  DB.SetGDBName(Folder / "db");
  const auto Records = ReadWholeFile(Folder / "db.zavgds");
  EXPECT_THROW(AddLake(DB, "l", {{1, 2}, {3, 4}}), EZAVGeoDBError);
  EXPECT_EQ(ReadWholeFile(Folder / "db.zavgds"), Records);
  EXPECT_EQ(ReadSystemInformation(Folder / "db").HighestID, 0);
  EXPECT_EQ(AddLake(DB, "l", {{1, 2}}), 1);
  EXPECT_EQ(DB.GetSumdata(1).BlobOffset, 2147483647 - 8);
  EXPECT_THROW(AddLake(DB, "l", {{1, 2}}), EZAVGeoDBError);
  EXPECT_EQ(AddTown(DB, "t", 1, 2), 2);
  TgdbPolygon Points;
  EXPECT_TRUE(DB.RetrievePolygon(1, Points));
}

}  // namespace
}  // namespace zav::test
