// store_recovery.cpp - see store.h. What a change that was cut short left behind is put right.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstring>

#include <geodb/store.h>
#include <platform/base/paths.h>

namespace zav {

constexpr int64_t RecordSize = sizeof(TgdbData);

// Called while opening, with a shared lock on the data file. False when the journal belongs to a
// living writer, or when nothing can be written here.
bool TGdbStore::RecoverDead() {
  TDbFile Records;
  if (Records.TryOpen(FNames.Records, TFileAccess::Update) != 0) return false;
  if (!Records.TryLock(TFileLock::Exclusive) || !Records.IsInPlace()) return false;
  FRecordFile = std::move(Records);
  TDbFile Data;
  if (Data.TryOpen(FNames.Data, TFileAccess::Update) != 0) {
    FRecordFile.Close();
    return false;
  }
  FDataFile.Unlock();
  FDataFile = std::move(Data);
  if (!FDataFile.Lock(TFileLock::Exclusive)) {
    throw TGdbRefused("another program is reading the database.");
  }
  for (size_t i = 0; i < IndexCount; ++i) {
    FIndexFiles[i].Open(FNames.Index[i], TFileAccess::UpdateOrCreate);
  }
  RecoverOnDisk(true);
  // From here on like any other opening: the next change takes the lock.
  FRecordStamp = FRecordFile.Stamp();
  FDataStamp = FDataFile.Stamp();
  FDataFile.Unlock();
  FRecordFile.Close();
  for (TDbFile& File : FIndexFiles) File.Close();
  FOpen = true;
  return true;
}

// With all files open and locked.
void TGdbStore::RecoverOnDisk(bool WriteIndexes) {
  FJournal.Abandon();
  {
    const TFoundJournal Found(FNames.Journal);
    if (Found.Exists()) {
      CarryOut(Found);
      FJournal.Resume(Found.State());
    }
  }
  Load(FNames.Records);
  RightenIndexes();
  if (!FJournal.Exists()) return;
  for (size_t i = 0; i < IndexCount && WriteIndexes; ++i) WriteIndexChanges(i);
  SyncFiles();
  FJournal.Settle(IndexesUnwritten() ? TJournalKind::Indexes : TJournalKind::None);
}

void TGdbStore::CarryOut(const TFoundJournal& Found) {
  if (Found.Kind() == TJournalKind::Replacing) {
    PutNewFilesInPlace();
    return;
  }
  RemoveNewFiles();
  if (Found.Kind() != TJournalKind::Undo) return;
  int64_t RecordsEnd = FRecordFile.Size();
  const int64_t DataEnd = FDataFile.Size();
  Found.ForEach([&](const TJournalEntry& Entry, const uint8_t* Bytes) {
    const int64_t End = Entry.Offset + Entry.Length;
    if (Entry.File == TJournalFile::Records && Entry.Offset <= RecordsEnd) {
      FRecordFile.WriteAt(Entry.Offset, Bytes, Entry.Length);
      RecordsEnd = std::max(RecordsEnd, End);
    } else if (Entry.File == TJournalFile::Data && End <= DataEnd) {
      FDataFile.WriteAt(Entry.Offset, Bytes, Entry.Length);
    }
  });
  const TJournalState& State = Found.State();
  if (RecordsEnd > State.Records * RecordSize) FRecordFile.Truncate(State.Records * RecordSize);
  FDataFile.WriteAt(0, &State.Header, sizeof(State.Header));
  if (DataEnd > State.DataLength) FDataFile.Truncate(State.DataLength);
}

// The same for what was read.
void TGdbStore::UndoInMemory(const TFoundJournal& Found) {
  if (Found.Kind() != TJournalKind::Undo) return;
  const TJournalState& State = Found.State();
  int64_t RecordsEnd = static_cast<int64_t>(FRecords.size()) * RecordSize;
  Found.ForEach([&](const TJournalEntry& Entry, const uint8_t* Bytes) {
    const int64_t End = Entry.Offset + Entry.Length;
    if (Entry.File == TJournalFile::Data) {
      FPatches.push_back({Entry.Offset, {Bytes, Bytes + Entry.Length}});
    } else if (Entry.Offset <= RecordsEnd) {
      RecordsEnd = std::max(RecordsEnd, End);
      FRecords.resize(static_cast<size_t>((RecordsEnd + RecordSize - 1) / RecordSize));
      std::memcpy(reinterpret_cast<uint8_t*>(FRecords.data()) + Entry.Offset, Bytes, Entry.Length);
    }
  });
  const int64_t Whole = std::min(State.Records, RecordsEnd / RecordSize);
  FRecords.resize_raw(static_cast<size_t>(Whole));
  FHeader = State.Header;
  FDataLength = std::min(FDataLength, State.DataLength);
}

// Rebuilds the indexes that do not agree with the records. One that agrees keeps its order of equal
// keys.
void TGdbStore::RightenIndexes() {
  for (size_t i = 0; i < IndexCount; ++i) {
    if (!FIndexes.IsRight(i, FRecords)) FIndexes.Rebuild(i, FRecords);
  }
}

void TGdbStore::RemoveNewFiles() noexcept {
  for (const std::string& Path : {FNames.NewRecords, FNames.NewData}) {
    if (StampOf(Path).Size >= 0) FileOps().Remove(Path);
  }
}

// After a change that failed: the files and the contents as they were before. When the files cannot
// be put right now, the journal stays, the contents are read as if they had been, and the database
// is not changed any more until it is opened again.
void TGdbStore::Recover() noexcept {
  const int32_t HighestID = FHeader.HighestID;
  FReloaded = true;
  FTouched = false;
  FArmed = false;
  FGroupBroken = false;
  FBuffer.clear();
  FDirty.Clear();
  FPatched.clear();
  try {
    FDataFile.Lock(TFileLock::Exclusive);  // a reader in the way does no harm to the files
    RecoverOnDisk(!Lazy);
    FDataFile.Unlock();
  } catch (...) {
    FBroken = true;
    FJournal.Abandon();
    FDataFile.Unlock();
    try {
      const TFoundJournal Found(FNames.Journal);
      Load(FNames.Records);
      UndoInMemory(Found);
      RightenIndexes();
    } catch (...) {
      Drop();
      return;
    }
  }
  FHeader.HighestID = std::max(FHeader.HighestID, HighestID);
}

}  // namespace zav
