// store_changes.cpp - see store.h. Single changes, and writing index files.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <geodb/store.h>
#include <platform/base/errors.h>
#include <platform/base/paths.h>

namespace zav {
namespace {

constexpr int64_t RecordSize = sizeof(TgdbData);
constexpr size_t BufferSize = size_t{1} << 20;

}  // namespace

// ---- Becoming the writer ------------------------------------------------------------------------

void TGdbStore::EnsureWriter() {
  if (FBroken) {
    throw TGdbRefused(
        "an earlier change could not be undone on the disk; open the database again.");
  }
  if (!FWriter) {
    OpenForWriting();
  } else {
    CheckInPlace();
    if (!FRecordStamp.SameFile(StampOf(FNames.Records))) {
      throw EInOutError(FNames.Records, "was replaced or removed by another program");
    }
  }
}

void TGdbStore::OpenForWriting() {
  if (FReadOnly) throw TGdbRefused("the database is open for reading only.");
  TDbFile Data(FNames.Data, TFileAccess::Update);
  TDbFile Records(FNames.Records, TFileAccess::Update);
  if (!Records.TryLock(TFileLock::Exclusive)) {
    throw TGdbRefused("another program is changing the database.");
  }
  if (Records.Stamp() != FRecordStamp || Data.Stamp() != FDataStamp || !Records.IsInPlace() ||
      StampOf(FNames.Journal).Size >= 0) {
    throw TGdbRefused("another program has changed the database; open it again.");
  }
  for (size_t i = 0; i < IndexCount; ++i) {
    FIndexFiles[i].Open(FNames.Index[i], TFileAccess::UpdateOrCreate);
  }
  FRecordFile = std::move(Records);
  FDataFile = std::move(Data);
  FWriter = true;
}

// ---- One change ---------------------------------------------------------------------------------

void TGdbStore::BeginChange(std::initializer_list<int32_t> Positions) {
  // A group looks for other programs at its first change and when it is committed.
  if (!FInGroup || !FWriter || FBroken) EnsureWriter();
  if (FInGroup) {
    if (FGroupBroken) throw TGdbRefused("the update has failed and can only be rolled back.");
    return;
  }
  FBase = TJournalState();
  FBase.Records = Count();
  FBase.DataLength = FDataLength;
  FBase.Header = FWrittenHeader;
  for (const int32_t Position : Positions) {
    FJournal.Protect(TJournalFile::Records, Position * RecordSize,
                     &FRecords[static_cast<size_t>(Position)], sizeof(TgdbData));
  }
}

void TGdbStore::Arm() {
  if (!FArmed) ArmState(TJournalKind::Undo, FJournal.HasEntries());
}

// What was on the disk and is overwritten must be safe in the journal first; what is appended need
// not be.
void TGdbStore::ArmState(TJournalKind Kind, bool Durable) {
  if (!FArmed && !FDataFile.Lock(TFileLock::Exclusive)) {
    throw TGdbRefused("another program is reading the database.");
  }
  FArmed = true;
  TJournalState State = FBase;
  State.Kind = Kind;
  FJournal.Arm(State, Durable);
}

void TGdbStore::CommitChange() {
  if (FInGroup) {
    FTouched = false;
    return;
  }
  if (!FArmed) return;
  if (!Lazy) {
    for (size_t i = 0; i < IndexCount; ++i) WriteIndexChanges(i);
  }
  if (FJournal.HasEntries()) {
    TDbFile* const Files[] = {&FDataFile, &FRecordFile};
    TDbFile::SyncAll(Files);
  }
  FUnsynced = true;
  FinishChange();
}

void TGdbStore::FinishChange() {
  FJournal.Settle(IndexesUnwritten() ? TJournalKind::Indexes : TJournalKind::None);
  FArmed = false;
  FTouched = false;
  FDataFile.Unlock();
}

void TGdbStore::AbortChange() noexcept {
  if (FInGroup) {
    // What was appended is dead bytes. But memory that is changed by half is not the memory of a
    // database.
    FGroupBroken = FGroupBroken || FTouched;
    return;
  }
  if (FArmed || FTouched) {
    Recover();
  } else {
    FJournal.DropPending();
  }
}

// ---- Its parts ----------------------------------------------------------------------------------

void TGdbStore::PutHeader(const TgdbSystemData& Header) {
  if (!FInGroup) {
    Arm();
    FHeader = Header;
    WriteHeader();
  }
  FHeader = Header;
}

void TGdbStore::WriteHeader() {
  FDataFile.WriteAt(0, &FHeader, sizeof(FHeader));
  FWrittenHeader = FHeader;
}

void TGdbStore::CheckRoom(int64_t Bytes) const {
  if (Bytes > MostDataBytes - FDataLength) {
    throw TGdbRefused("the data file would grow beyond 2147483647 bytes.");
  }
}

void TGdbStore::AppendData(const void* Data, size_t Size) {
  CheckRoom(static_cast<int64_t>(Size));
  const auto Bytes = static_cast<int64_t>(Size);
  if (FInGroup) {
    if (FBuffer.size() + Size > BufferSize) FlushBuffer();
    if (Size <= BufferSize) {
      FBuffer.append(static_cast<const char*>(Data), Size);
      FDataLength += Bytes;
      return;
    }
    ArmGroup();
  } else {
    Arm();
  }
  FDataFile.WriteAt(FDataLength, Data, Size);
  FDataLength += Bytes;
}

void TGdbStore::OverwriteData(int64_t Offset, const void* Data, size_t Size) {
  if (FInGroup) FlushBuffer();
  if (Offset < 0 || Offset + static_cast<int64_t>(Size) > FDataLength) {
    throw EInOutError(FNames.Data, "ends before the data that a record tells of");
  }
  // In a group, only the first bytes that stood there are those to return to.
  const bool Old = Offset < FBase.DataLength;
  if (Old && !(FInGroup && FPatched.count(Offset) > 0)) {
    std::string Before(Size, '\0');
    FDataFile.ReadAt(Offset, Before.data(), Size);
    FJournal.Protect(TJournalFile::Data, Offset, Before.data(), static_cast<uint32_t>(Size));
    ArmState(TJournalKind::Undo, true);
    if (FInGroup) FPatched.insert(Offset);
  }
  Arm();
  FDataFile.WriteAt(Offset, Data, Size);
  if (FInGroup) FDataFile.Unlock();
}

void TGdbStore::AddRecord(const TgdbData& Data) {
  if (Count() == INT32_MAX) throw TGdbRefused("there are too many records.");
  const int32_t Position = Count();
  FRecords.reserve(FRecords.size() + 1);
  if (!FInGroup) {
    Arm();
    FRecordFile.WriteAt(Position * RecordSize, &Data, sizeof(Data));
  }
  Touch();
  FRecords.push_back(Data);
  if (FInGroup) {
    FIndexes.NoteAdded(Position, Data);
  } else {
    FIndexes.AddEntry(Position, Data);
  }
}

void TGdbStore::ReplaceRecord(int32_t Position, const TgdbData& Data) {
  const TgdbData Old = FRecords[static_cast<size_t>(Position)];
  if (!FInGroup) {
    Arm();
    FRecordFile.WriteAt(Position * RecordSize, &Data, sizeof(Data));
  }
  Touch();
  FRecords[static_cast<size_t>(Position)] = Data;
  if (FInGroup) {
    if (Position < FBase.Records) FDirty.Mark(static_cast<size_t>(Position));
    FIndexes.NoteReplaced(Position, FRecords.size());
  } else {
    FIndexes.ReplaceEntry(Position, Old, Data, FRecords.size());
  }
}

void TGdbStore::DeleteRecord(int32_t Position) {
  const size_t LastPosition = FRecords.size() - 1;
  const TgdbData Old = FRecords[static_cast<size_t>(Position)];
  const TgdbData Last = FRecords[LastPosition];
  if (!FInGroup) {
    Arm();
    FRecordFile.WriteAt(Position * RecordSize, &Last, sizeof(Last));
    FRecordFile.Truncate(static_cast<int64_t>(LastPosition) * RecordSize);
  }
  Touch();
  if (FInGroup) {
    for (const auto Changed : {static_cast<size_t>(Position), LastPosition}) {
      if (static_cast<int64_t>(Changed) < FBase.Records) FDirty.Mark(Changed);
    }
    FIndexes.NoteDeleted(Position, Old, Last, FRecords.size());
  } else {
    FIndexes.DeleteEntry(Position, Old, Last, FRecords.size());
  }
  FRecords[static_cast<size_t>(Position)] = Last;
  FRecords.pop_back();
}

// ---- Index files --------------------------------------------------------------------------------

bool TGdbStore::IndexesUnwritten() const noexcept {
  for (size_t i = 0; i < IndexCount; ++i) {
    if (!FIndexes.Changed(i).IsEmpty() || FFileCounts[i] != FIndexes.Count(i)) return true;
  }
  return false;
}

void TGdbStore::WriteIndexChanges(size_t Which) {
  constexpr auto EntrySize = int64_t{sizeof(TIxLLRec)};
  const size_t Entries = FIndexes.Count(Which);
  const TIndexSet::TRange Range = FIndexes.Changed(Which);
  const size_t End = std::min(Range.End, Entries);
  if (Range.First < End) {
    const auto* Bytes = static_cast<const uint8_t*>(FIndexes.Bytes(Which));
    FIndexFiles[Which].WriteAt(static_cast<int64_t>(Range.First) * EntrySize,
                               Bytes + Range.First * sizeof(TIxLLRec),
                               (End - Range.First) * sizeof(TIxLLRec));
  }
  if (FFileCounts[Which] > Entries) {
    FIndexFiles[Which].Truncate(static_cast<int64_t>(Entries) * EntrySize);
  }
  FFileCounts[Which] = Entries;
  FIndexes.SetWritten(Which);
}

void TGdbStore::SaveIndex(size_t Which) {
  if (Which >= IndexCount || FInGroup) return;
  EnsureWriter();
  TDbFile& File = FIndexFiles[Which];
  if (!File.IsInPlace()) File.Open(FNames.Index[Which], TFileAccess::UpdateOrCreate);
  try {
    BeginChange();
    ArmState(TJournalKind::Indexes, false);
    FIndexes.NoteAllChanged(Which);
    FFileCounts[Which] = static_cast<size_t>(-1);  // cut whatever its length
    WriteIndexChanges(Which);
    FUnsynced = true;
    FinishChange();
  } catch (...) {
    AbortChange();
    throw;
  }
}

void TGdbStore::RebuildIndexes() {
  try {
    BeginChange();
    ArmState(TJournalKind::Indexes, false);
    for (size_t i = 0; i < IndexCount; ++i) {
      FIndexes.Rebuild(i, FRecords);
      if (!Lazy) WriteIndexChanges(i);
    }
    FUnsynced = true;
    FinishChange();
  } catch (...) {
    AbortChange();
    throw;
  }
}

void TGdbStore::PutAll(const TRecordTable& Records, const TgdbSystemData& Header) {
  try {
    BeginChange();
    for (size_t First = 0; First < FRecords.size(); First += PieceSize) {
      ProtectRecords(First, std::min(First + PieceSize, FRecords.size()));
    }
    ArmState(TJournalKind::Undo, true);
    FRecords = Records;
    WriteRecords(0, FRecords.size());
    FRecordFile.Truncate(static_cast<int64_t>(FRecords.size()) * RecordSize);
    FHeader = Header;
    WriteHeader();
    for (size_t i = 0; i < IndexCount; ++i) {
      FIndexes.Rebuild(i, FRecords);
      FFileCounts[i] = static_cast<size_t>(-1);
      WriteIndexChanges(i);
    }
    SyncFiles();
    FinishChange();
    FReloaded = true;
  } catch (...) {
    AbortChange();
    throw;
  }
}

// ---- The disk -----------------------------------------------------------------------------------

void TGdbStore::Flush() {
  if (!FUnsynced || FInGroup || FBroken) return;
  SyncFiles();
  FJournal.Sync();
}

void TGdbStore::SyncFiles() {
  std::vector<TDbFile*> Files = {&FDataFile, &FRecordFile};
  for (TDbFile& File : FIndexFiles) Files.push_back(&File);
  TDbFile::SyncAll(Files);
  FUnsynced = false;
}

}  // namespace zav
