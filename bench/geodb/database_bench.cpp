// database_bench.cpp - the database beside SQLite with its R*Tree, its box search beside
// Boost.Geometry, its opening beside plain reads of the same files.
//
// Items are closed lists of 16 points, spread evenly. SQLite keeps them in a table with the same
// fields and the points as a blob, and their boxes in an R*Tree. "durable": both sides have the
// result on the disk; "not": SQLite runs with synchronous off, and our syncs are left out.
// Arguments are the numbers of items (10000 100000 without any).
// SPDX-License-Identifier: MIT
#include <geodb/geodb.h>
#include <malloc.h>
#include <platform/base/file_ops.h>
#include <platform/base/random.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/point.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iomanip>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/goals.h"

using namespace zav;

namespace {

namespace bg = boost::geometry;
using TBoostPoint = bg::model::point<float, 2, bg::cs::cartesian>;
using TBoostBox = bg::model::box<TBoostPoint>;
using TBoostTree = bg::index::rtree<std::pair<TBoostBox, int32_t>, bg::index::rstar<16>>;

constexpr int PointsOfItem = 16;

double Seconds(const std::function<void()>& Work) {
  const auto Start = std::chrono::steady_clock::now();
  Work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - Start).count();
}

double Median(std::vector<double> Times) {
  std::sort(Times.begin(), Times.end());
  return Times[Times.size() / 2];
}

// The system's operations without waiting for the disk.
class TNoSync final : public TFileOps {
 public:
  int CreateNew(const std::string& P, int M, int& H) override { return S.CreateNew(P, M, H); }
  int Write(int H, const void* D, size_t N) override { return S.Write(H, D, N); }
  int Sync(int) override { return 0; }
  int Close(int H) override { return S.Close(H); }
  int Rename(const std::string& F, const std::string& T) override { return S.Rename(F, T); }
  int Remove(const std::string& P) override { return S.Remove(P); }
  int SyncFolder(const std::string&) override { return 0; }
  int Open(const std::string& P, TFileAccess A, int& H) override { return S.Open(P, A, H); }
  int WriteAt(int H, int64_t O, const void* D, size_t N) override { return S.WriteAt(H, O, D, N); }
  int Truncate(int H, int64_t N) override { return S.Truncate(H, N); }
  int Lock(int H, TFileLock K) override { return S.Lock(H, K); }

 private:
  TFileOps& S = SystemFileOps();
};

std::vector<TgdbPolygon> MakeItems(size_t Count) {
  TRandom Random(1);
  const auto Unit = [&] { return static_cast<double>(Random.Next() % 1000003) / 1000003; };
  std::vector<TgdbPolygon> Items(Count);
  for (TgdbPolygon& Item : Items) {
    const double Lat = Unit() * 170 - 85;
    const double Long = Unit() * 358 - 179;
    const double Size = 0.01 + Unit() * 0.1;
    for (int i = 0; i < PointsOfItem; ++i) {
      Item.push_back({static_cast<float>(Lat + Size * std::sin(i * 0.39)),
                      static_cast<float>(Long + Size * std::cos(i * 0.39))});
    }
  }
  return Items;
}

// ---- SQLite -------------------------------------------------------------------------------------

class TSqlite {
 public:
  TSqlite(const std::string& Path, bool Durable) {
    Check(sqlite3_open(Path.c_str(), &FDB));
    Run(Durable ? "PRAGMA synchronous=FULL" : "PRAGMA synchronous=OFF");
    Run("CREATE TABLE IF NOT EXISTS items(id INTEGER PRIMARY KEY, name TEXT, altitude REAL, class "
        "INTEGER, tag INTEGER, date REAL, state INTEGER, kind INTEGER, closed INTEGER, latlow "
        "REAL, "
        "lathigh REAL, longlow REAL, longhigh REAL, points BLOB)");
    Run("CREATE VIRTUAL TABLE IF NOT EXISTS boxes USING rtree(id, latlow, lathigh, longlow, "
        "longhigh)");
    FInsert = Prepare("INSERT INTO items VALUES(NULL,?,0,1,2,36526,0,3,1,?,?,?,?,?)");
    FInsertBox = Prepare("INSERT INTO boxes VALUES(?,?,?,?,?)");
    FSelect = Prepare("SELECT * FROM items WHERE id=?");
    FFind = Prepare(
        "SELECT id FROM boxes WHERE lathigh>=? AND latlow<=? AND longhigh>=? AND longlow<=?");
    FDelete = Prepare("DELETE FROM items WHERE id=?");
    FDeleteBox = Prepare("DELETE FROM boxes WHERE id=?");
  }
  ~TSqlite() {
    for (sqlite3_stmt* S : {FInsert, FInsertBox, FSelect, FFind, FDelete, FDeleteBox})
      sqlite3_finalize(S);
    sqlite3_close(FDB);
  }
  TSqlite(const TSqlite&) = delete;
  TSqlite& operator=(const TSqlite&) = delete;

  void Run(const char* Text) { Check(sqlite3_exec(FDB, Text, nullptr, nullptr, nullptr)); }
  void Insert(const std::string& Name, const TgdbPolygon& Points) {
    float Low[2] = {90, 180};
    float High[2] = {-90, -180};
    for (const TSCoords& P : Points) {
      Low[0] = std::min(Low[0], P.Latit);
      High[0] = std::max(High[0], P.Latit);
      Low[1] = std::min(Low[1], P.Longit);
      High[1] = std::max(High[1], P.Longit);
    }
    const double Box[4] = {Low[0], High[0], Low[1], High[1]};
    sqlite3_bind_text(FInsert, 1, Name.data(), static_cast<int>(Name.size()), SQLITE_STATIC);
    for (int i = 0; i < 4; ++i) sqlite3_bind_double(FInsert, 2 + i, Box[i]);
    sqlite3_bind_blob(FInsert, 6, Points.data(), static_cast<int>(Points.size() * 8),
                      SQLITE_STATIC);
    Step(FInsert);
    sqlite3_bind_int64(FInsertBox, 1, sqlite3_last_insert_rowid(FDB));
    for (int i = 0; i < 4; ++i) sqlite3_bind_double(FInsertBox, 2 + i, Box[i]);
    Step(FInsertBox);
  }
  int64_t Get(int32_t Id) {
    sqlite3_bind_int(FSelect, 1, Id);
    const int64_t Tag = sqlite3_step(FSelect) == SQLITE_ROW ? sqlite3_column_int64(FSelect, 4) : -1;
    sqlite3_reset(FSelect);
    return Tag;
  }
  size_t Find(const TGeoRegion& R, std::vector<int32_t>& Ids) {
    Ids.clear();
    const double Values[4] = {R.South, R.North, R.West, R.East};
    for (int i = 0; i < 4; ++i) sqlite3_bind_double(FFind, 1 + i, Values[i]);
    while (sqlite3_step(FFind) == SQLITE_ROW) Ids.push_back(sqlite3_column_int(FFind, 0));
    sqlite3_reset(FFind);
    return Ids.size();
  }
  void Delete(int32_t Id) {
    sqlite3_bind_int(FDelete, 1, Id);
    Step(FDelete);
    sqlite3_bind_int(FDeleteBox, 1, Id);
    Step(FDeleteBox);
  }

 private:
  static void Check(int Code) {
    if (Code != SQLITE_OK) throw std::runtime_error("sqlite " + std::to_string(Code));
  }
  static void Step(sqlite3_stmt* S) {
    if (sqlite3_step(S) != SQLITE_DONE) throw std::runtime_error("sqlite step");
    sqlite3_reset(S);
  }
  sqlite3_stmt* Prepare(const char* Text) {
    sqlite3_stmt* S = nullptr;
    Check(sqlite3_prepare_v2(FDB, Text, -1, &S, nullptr));
    return S;
  }

  sqlite3* FDB = nullptr;
  sqlite3_stmt* FInsert = nullptr;
  sqlite3_stmt* FInsertBox = nullptr;
  sqlite3_stmt* FSelect = nullptr;
  sqlite3_stmt* FFind = nullptr;
  sqlite3_stmt* FDelete = nullptr;
  sqlite3_stmt* FDeleteBox = nullptr;
};

// ---- Ours ---------------------------------------------------------------------------------------

void InsertOurs(TGeoDB& DB, const std::vector<TgdbPolygon>& Items) {
  TGeoDBUpdate Update(DB);
  for (const TgdbPolygon& Item : Items) DB.AddLake("an item", Item, 36526, 0, 0, 0, 0, 0, 0, 1, 2);
  Update.Commit();
}

void InsertPeer(TSqlite& DB, const std::vector<TgdbPolygon>& Items) {
  DB.Run("BEGIN");
  for (const TgdbPolygon& Item : Items) DB.Insert("an item", Item);
  DB.Run("COMMIT");
}

void ReadPlainly(const std::string& Base) {
  for (const char* Extension : {".zavgds", ".zavgi0", ".zavgi1", ".zavgi2", ".zavgi3", ".zavgi4"}) {
    const std::string Path = Base + Extension;
    const auto Size = static_cast<size_t>(std::filesystem::file_size(Path));
    const std::unique_ptr<char[]> Bytes(new char[Size]);
    std::ifstream File(Path, std::ios::binary);
    File.rdbuf()->pubsetbuf(nullptr, 0);
    File.read(Bytes.get(), static_cast<std::streamsize>(Size));
    if (!File) throw std::runtime_error("reading");
  }
}

size_t MemoryInUse() {
  const struct mallinfo2 Info = ::mallinfo2();
  return Info.uordblks + Info.hblkhd;
}

class TBench {
 public:
  TBench(size_t Count, std::string Folder)
      : FCount(Count), FFolder(std::move(Folder)), FItems(MakeItems(Count)) {}

  void Run() {
    std::cout << FCount << " items of 16 points: ours, peer, ratio (aim)\n";
    const int Rounds = FCount >= 1000000 ? 1 : FCount >= 100000 ? 3 : 5;
    InsertAll(true, Rounds);
    InsertAll(false, Rounds);
    Open();
    Lookups();
    Boxes();
    if (FCount <= 100000) AddOne();
    DeleteSome(true);
    DeleteSome(false);
  }

 private:
  std::string Ours() const { return FFolder + "/ours"; }
  std::string Peer() const { return FFolder + "/peer.sqlite"; }
  void Clear() const {
    for (const auto& Entry : std::filesystem::directory_iterator(FFolder))
      std::filesystem::remove(Entry);
    ::sync();
  }

  // Prints both times and ours divided by the peer's; Aim is the ratio wanted at most.
  void Tell(const std::string& What, const std::string& Peer, double Ours, double Theirs,
            double Aim) const {
    const double Ratio = Ours / Theirs;
    std::cout << "  " << std::left << std::setw(44) << What << std::right << std::scientific
              << std::setprecision(2) << Ours << " s" << std::setw(12) << Theirs << " s  "
              << std::fixed << std::setprecision(3) << Ratio << "  (" << Aim << ")"
              << (Ratio <= Aim ? "" : "  MISSED") << std::endl;
    bench::NoteGoal(What + ", " + std::to_string(FCount) + " items", Peer, Ours, Theirs, Aim);
  }

  void InsertAll(bool Durable, int Rounds) {
    std::vector<double> OurTimes;
    std::vector<double> PeerTimes;
    for (int i = 0; i < Rounds; ++i) {
      Clear();
      const TFileOpsOverride With(Durable ? SystemFileOps() : FNoSync);
      TGeoDB DB;
      DB.SetGDBName(Ours());
      OurTimes.push_back(Seconds([&] { InsertOurs(DB, FItems); }));
      TSqlite Sql(Peer(), Durable);
      PeerTimes.push_back(Seconds([&] { InsertPeer(Sql, FItems); }));
    }
    Tell(Durable ? "insert all, durable" : "insert all, not durable", "SQLite", Median(OurTimes),
         Median(PeerTimes), 0.125);
  }

  void Open() {
    std::vector<double> OurTimes;
    std::vector<double> PeerTimes;
    for (int i = 0; i < 7; ++i) {
      PeerTimes.push_back(Seconds([&] { ReadPlainly(Ours()); }));
      const auto DB = std::make_unique<TGeoDB>();
      OurTimes.push_back(Seconds([&] { DB->SetGDBName(Ours()); }));
    }
    Tell("opening", "plain reads", Median(OurTimes), Median(PeerTimes), 1.3);
    const size_t Before = MemoryInUse();
    TGeoDB DB;
    DB.SetGDBName(Ours());
    const size_t Opened = MemoryInUse();
    DB.ItemsInRegion({0, 0, 1, 1});
    std::cout << "  bytes of memory an item: opened " << (Opened - Before) / FCount
              << ", with box search " << (MemoryInUse() - Before) / FCount << " (220)\n";
  }

  void Lookups() {
    TGeoDB DB;
    DB.SetGDBName(Ours());
    TSqlite Sql(Peer(), false);
    TRandom Random(2);
    std::vector<int32_t> Ids(100000);
    for (int32_t& Id : Ids) Id = static_cast<int32_t>(Random.Next() % FCount) + 1;
    int64_t Sums[2] = {0, 0};
    std::vector<double> OurTimes;
    std::vector<double> PeerTimes;
    Sql.Run("BEGIN");
    for (int i = 0; i < 5; ++i) {
      OurTimes.push_back(Seconds([&] {
        for (const int32_t Id : Ids) Sums[0] += DB.GetSumdata(DB.SearchForItemID(Id)).Tag;
      }));
      PeerTimes.push_back(Seconds([&] {
        for (const int32_t Id : Ids) Sums[1] += Sql.Get(Id);
      }));
    }
    Sql.Run("COMMIT");
    if (Sums[0] != Sums[1]) throw std::runtime_error("different items");
    Tell("100000 items by id", "SQLite", Median(OurTimes), Median(PeerTimes), 0.05);
  }

  void Boxes() {
    TGeoDB DB;
    DB.SetGDBName(Ours());
    TSqlite Sql(Peer(), false);
    std::vector<std::pair<TBoostBox, int32_t>> Boxes;
    for (int32_t i = 1; i <= DB.NumEntries(); ++i) {
      const TgdbData D = DB.GetSumdata(i);
      Boxes.emplace_back(TBoostBox({D.LatLow, D.LongLow}, {D.LatHigh, D.LongHigh}), i);
    }
    const TBoostTree Tree(Boxes);
    const double Side =
        std::max(0.01, std::sqrt(100.0 / static_cast<double>(FCount) * 170 * 358) - 0.12);
    TRandom Random(3);
    std::vector<TGeoRegion> Regions(2000);
    for (TGeoRegion& R : Regions) {
      R.South = static_cast<double>(Random.Next() % 1000) / 1000 * (170 - Side) - 85;
      R.West = static_cast<double>(Random.Next() % 1000) / 1000 * (358 - Side) - 179;
      R.North = R.South + Side;
      R.East = R.West + Side;
    }
    std::vector<int32_t> Found;
    size_t Hits[3] = {0, 0, 0};
    std::vector<double> Times[3];
    DB.ItemsInRegion(Regions[0], Found);
    for (int i = 0; i < 7; ++i) {
      Times[0].push_back(Seconds([&] {
        for (const TGeoRegion& R : Regions) {
          DB.ItemsInRegion(R, Found);
          Hits[0] += Found.size();
        }
      }));
      Times[1].push_back(Seconds([&] {
        for (const TGeoRegion& R : Regions) Hits[1] += Sql.Find(R, Found);
      }));
      Times[2].push_back(Seconds([&] {
        for (const TGeoRegion& R : Regions) {
          Found.clear();
          const TBoostBox Box({static_cast<float>(R.South), static_cast<float>(R.West)},
                              {static_cast<float>(R.North), static_cast<float>(R.East)});
          for (auto It = Tree.qbegin(bg::index::intersects(Box)); It != Tree.qend(); ++It) {
            Found.push_back(It->second);
          }
          Hits[2] += Found.size();
        }
      }));
    }
    std::cout << "  hits a query: " << Hits[0] / 14000 << ", " << Hits[1] / 14000 << ", "
              << Hits[2] / 14000 << '\n';
    Tell("2000 box queries", "SQLite R*Tree", Median(Times[0]), Median(Times[1]), 0.2);
    Tell("2000 box queries", "Boost.Geometry rtree", Median(Times[0]), Median(Times[2]), 1.3);
  }

  void AddOne() {
    TGeoDB DB;
    DB.SetGDBName(Ours());
    TSqlite Sql(Peer(), false);
    std::vector<double> OurTimes;
    std::vector<double> PeerTimes;
    for (size_t i = 0; i < 300; ++i) {
      OurTimes.push_back(
          Seconds([&] { DB.AddLake("an item", FItems[i], 36526, 0, 0, 0, 0, 0, 0, 1, 2); }));
      PeerTimes.push_back(Seconds([&] {
        Sql.Run("BEGIN");
        Sql.Insert("an item", FItems[i]);
        Sql.Run("COMMIT");
      }));
    }
    Tell("one addition, synchronous off", "SQLite", Median(OurTimes), Median(PeerTimes), 1.5);
  }

  void DeleteSome(bool Durable) {
    TRandom Random(Durable ? 4 : 5);
    std::vector<int32_t> Ids;
    for (int i = 0; i < 1000; ++i) Ids.push_back(static_cast<int32_t>(Random.Next() % FCount) + 1);
    std::sort(Ids.begin(), Ids.end());
    Ids.erase(std::unique(Ids.begin(), Ids.end()), Ids.end());
    for (size_t i = Ids.size(); i > 1; --i) std::swap(Ids[i - 1], Ids[Random.Next() % i]);
    const TFileOpsOverride With(Durable ? SystemFileOps() : FNoSync);
    TGeoDB DB;
    DB.SetGDBName(Ours());
    TSqlite Sql(Peer(), Durable);
    const double OurTime = Seconds([&] {
      TGeoDBUpdate Update(DB);
      for (const int32_t Id : Ids) DB.DeleteData(DB.SearchForItemID(Id));
      Update.Commit();
    });
    const double PeerTime = Seconds([&] {
      Sql.Run("BEGIN");
      for (const int32_t Id : Ids) Sql.Delete(Id);
      Sql.Run("COMMIT");
    });
    Tell(Durable ? "deleting 1000, durable" : "deleting 1000, not durable", "SQLite", OurTime,
         PeerTime, 1);
  }

  size_t FCount;
  std::string FFolder;
  std::vector<TgdbPolygon> FItems;
  TNoSync FNoSync;
};

}  // namespace

int main(int Count, char** Arguments) {
  std::string Folder = (std::filesystem::temp_directory_path() / "zavgeo-bench-XXXXXX").string();
  if (::mkdtemp(Folder.data()) == nullptr) return 1;
  std::vector<size_t> Sizes;
  for (int i = 1; i < Count; ++i) Sizes.push_back(std::stoul(Arguments[i]));
  if (Sizes.empty()) Sizes = {10000, 100000};
  try {
    for (const size_t Size : Sizes) TBench(Size, Folder).Run();
  } catch (const std::exception& Error) {
    std::cerr << Error.what() << '\n';
  }
  std::filesystem::remove_all(Folder);
  return 0;
}
