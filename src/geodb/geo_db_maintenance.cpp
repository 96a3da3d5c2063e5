// geo_db_maintenance.cpp - see geo_db.h. Compacting, checking, copying and showing a database.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include <geodb/check.h>
#include <geodb/gdb_change.h>
#include <platform/base/atomic_file.h>
#include <platform/base/paths.h>
#include <platform/base/text_format.h>

namespace zav {
namespace {

constexpr const char* EndOfLine = "\r\n";

std::string RecordText(size_t Position, const TgdbData& Data) {
  std::string Text = IntegerText(static_cast<int64_t>(Position) + 1);
  const auto Add = [&](const char* Label, const std::string& Value) {
    Text += std::string(" ") + Label + "=" + Value;
  };
  Add("ItemId", IntegerText(Data.ItemId));
  Add("Name", "\"" + Data.Name.Text() + "\"");
  Add("ItemKind", std::string(ItemKindName(Data.ItemKind)));
  Add("ClassFlag", IntegerText(Data.ClassFlag));
  Add("Tag", IntegerText(Data.Tag));
  Add("StateFlag", IntegerText(Data.StateFlag));
  Add("Date", ShortestNumber(Data.Date));
  Add("Altitude", ShortestNumber(static_cast<double>(Data.Altitude)));
  Add("LatLow", ShortestNumber(static_cast<double>(Data.LatLow)));
  Add("LatHigh", ShortestNumber(static_cast<double>(Data.LatHigh)));
  Add("LongLow", ShortestNumber(static_cast<double>(Data.LongLow)));
  Add("LongHigh", ShortestNumber(static_cast<double>(Data.LongHigh)));
  Add("BlobOffset", IntegerText(Data.BlobOffset));
  Add(Data.ItemKind == TgdbItem::gitBLOB ? "Size" : "NumPoints", IntegerText(Data.NumPoints));
  Add("Closed", IntegerText(Data.Closed));
  return Text + EndOfLine;
}

void ExportIndexes(const TIndexSet& Indexes, TAtomicFile& File) {
  constexpr std::array<const char*, TIndexSet::CoordCount> Names = {"LatLow", "LatHigh", "LongLow",
                                                                    "LongHigh"};
  File.Write(std::string("index ItemId") + EndOfLine);
  for (const TIxItemIDRec& Entry : Indexes.Ids) {
    File.Write(IntegerText(Entry.ItemID) + " record " + IntegerText(int64_t{Entry.index} + 1) +
               EndOfLine);
  }
  for (size_t i = 0; i < Names.size(); ++i) {
    File.Write(std::string("index ") + Names[i] + EndOfLine);
    for (const TIxLLRec& Entry : Indexes.Coords[i]) {
      File.Write(ShortestNumber(static_cast<double>(Entry.LLValue)) + " record " +
                 IntegerText(int64_t{Entry.index} + 1) + EndOfLine);
    }
  }
}

// Copies bytes of the data file to the same places of another.
void CopyData(const TGdbStore& Store, TDbFile& To) {
  std::vector<uint8_t> Piece(size_t{1} << 20);
  for (int64_t At = 0; At < Store.DataLength();) {
    const size_t Count = Store.ReadSomeData(At, Piece.data(), Piece.size());
    To.WriteAt(At, Piece.data(), Count);
    At += static_cast<int64_t>(Count);
  }
  // Within lazy writing and after an undo the header in memory is the one that counts.
  To.WriteAt(0, &Store.Header(), sizeof(TgdbSystemData));
}

}  // namespace

void TGeoDB::RecalcIndexes() {
  if (!IsOpen()) return;
  if (FStore->InGroup()) {
    FStore->Indexes();
    return;
  }
  Guarded("RecalcIndexes", [&] {
    TGdbChange Change(*this, "RecalcIndexes");
    FStore->RebuildIndexes();
  });
}

void TGeoDB::GarbageCollection() {
  if (!IsOpen()) return;
  RefuseUpdate("GarbageCollection");
  Guarded("GarbageCollection", [&] {
    TGdbChange Change(*this, "GarbageCollection");
    int32_t Told = -1;
    FStore->Compact([&](int32_t Percent) {
      if (Percent != Told) Report(Percent);
      Told = Percent;
    });
  });
  Report(100);
}

void TGeoDB::ExportDataDebug(const std::string& FileName) {
  if (!IsOpen()) return;
  const TgdbSystemData& Header = FStore->Header();
  TAtomicFile File(FileName);
  File.Write("HighestID=" + IntegerText(Header.HighestID) +
             " DBVersion=" + IntegerText(Header.DBVersion) + " Description=\"" +
             Header.Description.Text() + "\" Revision=" + IntegerText(Header.Revision) +
             " NumEntries=" + IntegerText(NumEntries()) + EndOfLine);
  const TRecordTable& Records = FStore->Records();
  for (size_t i = 0; i < Records.size(); ++i) File.Write(RecordText(i, Records[i]));
  ExportIndexes(FStore->Indexes(), File);
  File.Commit();
}

std::vector<std::string> TGeoDB::Check() {
  if (!IsOpen()) return {};
  return CheckStore(*FStore);
}

std::vector<std::string> TGeoDB::Repair() {
  if (!IsOpen()) return {};
  RefuseUpdate("Repair");
  std::vector<std::string> Deeds;
  Guarded("Repair", [&] {
    TGdbChange Change(*this, "Repair");
    Deeds = RepairStore(*FStore);
  });
  return Deeds;
}

// A journal beside the copy tells that it is nothing yet, so that a copy cut short opens as an
// empty database.
void TGeoDB::Backup(const std::string& ToName) {
  if (!IsOpen()) return;
  RefuseUpdate("Backup");
  const TFileNames To(StripExtension(ToName));
  std::vector<std::string> Paths = {To.Records, To.Data, To.Journal};
  Paths.insert(Paths.end(), To.Index.begin(), To.Index.end());
  for (const std::string& Path : Paths) {
    if (StampOf(Path).Size >= 0) Fail("Backup", "\"" + Path + "\" exists.");
  }
  TIndexSet& Indexes = FStore->Indexes();
  try {
    TJournal Journal;
    Journal.SetPath(To.Journal);
    TJournalState State;
    State.Kind = TJournalKind::Undo;
    State.DataLength = sizeof(TgdbSystemData);
    Journal.Arm(State, true);
    TDbFile Data(To.Data, TFileAccess::UpdateOrCreate);
    CopyData(*FStore, Data);
    Data.Sync();
    TDbFile Records(To.Records, TFileAccess::UpdateOrCreate);
    Records.WriteAt(0, FStore->Records().data(), FStore->Records().size() * sizeof(TgdbData));
    Records.Sync();
    for (size_t i = 0; i < IndexCount; ++i) {
      TDbFile Index(To.Index[i], TFileAccess::UpdateOrCreate);
      Index.WriteAt(0, Indexes.Bytes(i), Indexes.Count(i) * sizeof(TIxLLRec));
      Index.Sync();
    }
    Journal.Settle(TJournalKind::None);
    FileOps().SyncFolder(DirectoryOf(To.Base));
  } catch (...) {
    for (const std::string& Path : Paths) FileOps().Remove(Path);
    throw;
  }
}

}  // namespace zav
