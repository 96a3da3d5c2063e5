// store_groups.cpp - see store.h. Many changes in one.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <geodb/store.h>

namespace zav {
namespace {

constexpr int64_t RecordSize = sizeof(TgdbData);

}  // namespace

// Readers need not wait while a group only appends.
void TGdbStore::ArmGroup() {
  if (FArmed) return;
  ArmState(TJournalKind::Undo, false);
  FDataFile.Unlock();
}

// A buffer that cannot be written is kept: the next attempt writes the same bytes to the same
// place.
void TGdbStore::FlushBuffer() {
  if (FBuffer.empty()) return;
  ArmGroup();
  FDataFile.WriteAt(FDataLength - static_cast<int64_t>(FBuffer.size()), FBuffer.data(),
                    FBuffer.size());
  FBuffer.clear();
}

void TGdbStore::BeginGroup() noexcept {
  FInGroup = true;
  FGroupTouched = false;
  FGroupBroken = false;
  FTouched = false;
  FBase = TJournalState();
  FBase.Records = Count();
  FBase.DataLength = FDataLength;
  FBase.Header = FWrittenHeader;
}

// Calls Take(First, End) for runs of changed records below FBase.Records. A few unchanged ones
// between are cheaper than another run.
template <class TTake>
void TGdbStore::ForEachDirtyRun(TTake&& Take) const {
  constexpr size_t Gap = 16;
  size_t First = 0;
  size_t End = 0;
  FDirty.ForEach([&](size_t Position) {
    if (Position > End + Gap || Position - First >= PieceSize) {
      if (First < End) Take(First, End);
      First = Position;
    }
    if (First == End) First = Position;
    End = Position + 1;
  });
  if (First < End) Take(First, End);
}

void TGdbStore::ProtectRecords(size_t First, size_t End) {
  std::vector<TgdbData> Before(End - First);
  FRecordFile.ReadAt(static_cast<int64_t>(First) * RecordSize, Before.data(),
                     Before.size() * sizeof(TgdbData));
  FJournal.Protect(TJournalFile::Records, static_cast<int64_t>(First) * RecordSize, Before.data(),
                   static_cast<uint32_t>(Before.size() * sizeof(TgdbData)));
}

void TGdbStore::WriteRecords(size_t First, size_t End) {
  FRecordFile.WriteAt(static_cast<int64_t>(First) * RecordSize, FRecords.data() + First,
                      (End - First) * sizeof(TgdbData));
}

void TGdbStore::CommitGroup() {
  if (FGroupBroken) throw TGdbRefused("the update has failed and can only be rolled back.");
  const bool HeaderChanged = !(FHeader == FWrittenHeader);
  const auto Base = static_cast<size_t>(FBase.Records);
  if (!FArmed && !FGroupTouched && FBuffer.empty() && !HeaderChanged) {
    FInGroup = false;
    return;
  }
  EnsureWriter();
  FlushBuffer();
  ForEachDirtyRun([&](size_t First, size_t End) { ProtectRecords(First, End); });
  if (!FDataFile.Lock(TFileLock::Exclusive)) {
    throw TGdbRefused("another program is reading the database.");
  }
  FArmed = true;
  ArmState(TJournalKind::Undo, true);
  ForEachDirtyRun([&](size_t First, size_t End) {
    const size_t Kept = std::min(End, FRecords.size());
    if (First < Kept) WriteRecords(First, Kept);
  });
  if (FRecords.size() > Base) WriteRecords(Base, FRecords.size());
  if (FRecords.size() < Base) {
    FRecordFile.Truncate(static_cast<int64_t>(FRecords.size()) * RecordSize);
  }
  if (HeaderChanged) WriteHeader();
  FIndexes.BringInOrder(FRecords);
  for (size_t i = 0; i < IndexCount && !Lazy; ++i) WriteIndexChanges(i);
  SyncFiles();
  FinishChange();
  FInGroup = false;
  FDirty.Clear();
  FPatched.clear();
  std::string().swap(FBuffer);
}

void TGdbStore::RollbackGroup() noexcept {
  const bool Changed = FArmed || FGroupTouched || !FBuffer.empty();
  const bool HeaderChanged = !(FHeader == FWrittenHeader);
  FInGroup = false;
  if (Changed) {
    Recover();
  } else if (HeaderChanged) {
    FHeader = FWrittenHeader;
  }
}

}  // namespace zav
