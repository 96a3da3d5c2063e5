// store.cpp - see store.h. Opening, reading and closing.
// SPDX-License-Identifier: MIT
#include <geodb/store.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include <platform/base/atomic_file.h>
#include <platform/base/errors.h>

namespace zav {
namespace {

constexpr std::array<size_t, IndexCount> OrderOfOpening = {1, 2, 3, 4, 0};

}  // namespace

void TGdbStore::Open(const std::string& Base, bool ReadOnly) {
  Drop();
  FNames = TFileNames(Base);
  FJournal.SetPath(FNames.Journal);
  FReadOnly = ReadOnly;
  try {
    if (!ReadOnly) MakeMissingFiles();
    OpenLocked();
  } catch (...) {
    Drop();
    throw;
  }
}

void TGdbStore::OpenLocked() {
  LockForReading(FDataFile);
  const TFoundJournal Left(FNames.Journal);
  if (Left.Exists() && !FReadOnly && RecoverDead()) {
    // What was left is made good and read; the lock is that of a writer, who is still needed by
    // nobody.
    return;
  }
  // The journal of a living writer, or one that may not be carried out here.
  std::string Records = FNames.Records;
  if (Left.Kind() == TJournalKind::Replacing) {
    if (StampOf(FNames.NewData).Size >= 0) FDataFile.Open(FNames.NewData, TFileAccess::Read);
    if (StampOf(FNames.NewRecords).Size >= 0) Records = FNames.NewRecords;
  }
  Load(Records);
  if (Left.Exists()) {
    UndoInMemory(Left);
    RightenIndexes();
    FIndexes.SetAllChanged();
  }
  FRecordStamp = StampOf(FNames.Records);
  FDataStamp = FDataFile.Stamp();
  FDataFile.Unlock();
  FOpen = true;
}

// In the order in which they are read, so that a process killed between leaves a set that opens. A
// data file appears whole; when there cannot be one, the empty files made for it go again.
void TGdbStore::MakeMissingFiles() {
  std::vector<std::string> Made;
  try {
    MakeMissingFiles(Made);
  } catch (...) {
    if (StampOf(FNames.Data).Size < 0)
      for (const std::string& Path : Made) FileOps().Remove(Path);
    throw;
  }
}

void TGdbStore::MakeMissingFiles(std::vector<std::string>& Made) {
  const auto MakeEmpty = [&Made](const std::string& Path) {
    TDbFile File;
    if (File.TryOpen(Path, TFileAccess::Read) == 0) return false;
    File.Open(Path, TFileAccess::UpdateOrCreate);
    Made.push_back(Path);
    return true;
  };
  for (const size_t i : OrderOfOpening) MakeEmpty(FNames.Index[i]);
  if (MakeEmpty(FNames.Records)) ResetHeader();
  TDbFile File;
  if (File.TryOpen(FNames.Data, TFileAccess::Read) == 0) return;
  if (StampOf(FNames.Data).Size >= 0) File.Open(FNames.Data, TFileAccess::Read);  // throws
  TAtomicFile New(FNames.Data);
  New.Write(&FHeader, sizeof(FHeader));
  New.Commit();
}

// Opens the data file under a shared lock. It may have been replaced while the lock was waited for.
void TGdbStore::LockForReading(TDbFile& Data) const {
  do {
    Data.Open(FNames.Data, TFileAccess::Read);
    if (!Data.Lock(TFileLock::Shared)) {
      throw TGdbRefused("another program is changing the database.");
    }
  } while (!Data.IsInPlace());
}

void TGdbStore::Load(const std::string& RecordPath) {
  FRecords.release();
  FIndexes.Clear();
  FPatches.clear();
  FDirty.Clear();
  FBuffer.clear();
  for (const size_t i : OrderOfOpening) LoadIndex(i);
  LoadRecords(RecordPath);
  TgdbSystemData Header;
  FDataFile.ReadAt(0, &Header, sizeof(Header));
  FHeader = Header;
  FWrittenHeader = Header;
  FDataLength = FDataFile.Size();
}

void TGdbStore::LoadIndex(size_t Which) {
  const TDbFile File(FNames.Index[Which], TFileAccess::Read);
  const int64_t Entries =
      std::min<int64_t>(File.Size() / int64_t{sizeof(TIxLLRec)}, int64_t{INT32_MAX});
  FIndexes.ResizeRaw(Which, static_cast<size_t>(Entries));
  File.ReadAt(0, FIndexes.Bytes(Which), static_cast<size_t>(Entries) * sizeof(TIxLLRec));
  FFileCounts[Which] = static_cast<size_t>(Entries);
  // Bytes behind the last whole entry go when the file is next written.
  if (File.Size() != Entries * int64_t{sizeof(TIxLLRec)}) ++FFileCounts[Which];
}

void TGdbStore::LoadRecords(const std::string& Path) {
  const TDbFile File(Path, TFileAccess::Read);
  const int64_t Count =
      std::min<int64_t>(File.Size() / int64_t{sizeof(TgdbData)}, int64_t{INT32_MAX});
  FRecords.resize_raw(static_cast<size_t>(Count));
  File.ReadAt(0, FRecords.data(), FRecords.size() * sizeof(TgdbData));
}

void TGdbStore::Close(bool SaveIndexes) {
  if (!FOpen) return;
  try {
    if (FInGroup) RollbackGroup();
    if (FWriter && !FBroken) {
      if (SaveIndexes && IndexesUnwritten()) {
        for (size_t i = 0; i < IndexCount; ++i) SaveIndex(i);
      }
      Flush();
    }
  } catch (...) {
    Drop();
    throw;
  }
  Drop();
}

void TGdbStore::Drop() noexcept {
  FOpen = false;
  FWriter = false;
  FBroken = false;
  FReloaded = true;
  FInGroup = false;
  FArmed = false;
  FUnsynced = false;
  FRecords.release();
  FIndexes.Clear();
  FPatches.clear();
  std::string().swap(FBuffer);
  FDirty.Clear();
  FPatched.clear();
  FDataLength = 0;
  FJournal.Abandon();
  for (TDbFile& File : FIndexFiles) File.Close();
  FDataFile.Close();
  FRecordFile.Close();
  FFileCounts = {};
}

bool TGdbStore::TakeReloaded() noexcept { return std::exchange(FReloaded, false); }

void TGdbStore::CheckInPlace() const {
  if (FDataStamp.SameFile(StampOf(FDataFile.Path()))) return;
  throw EInOutError(FNames.Data, "was replaced or removed by another program");
}

void TGdbStore::ReadData(int64_t Offset, void* Buffer, size_t Size) const {
  if (ReadSomeData(Offset, Buffer, Size) != Size) {
    throw EInOutError(FNames.Data, "ends before the data that a record tells of");
  }
}

size_t TGdbStore::ReadSomeData(int64_t Offset, void* Buffer, size_t Size) const {
  CheckInPlace();
  if (Offset < 0 || Offset >= FDataLength) return 0;
  const auto There = static_cast<size_t>(FDataLength - Offset);
  Size = std::min(Size, There);
  auto* To = static_cast<uint8_t*>(Buffer);
  // The end of the file may still be in the buffer.
  const int64_t Written = FDataLength - static_cast<int64_t>(FBuffer.size());
  const auto InFile =
      static_cast<size_t>(std::clamp<int64_t>(Written - Offset, 0, static_cast<int64_t>(Size)));
  if (InFile > 0) FDataFile.ReadAt(Offset, To, InFile);
  if (InFile < Size) {
    const auto From = static_cast<size_t>(Offset + static_cast<int64_t>(InFile) - Written);
    std::memcpy(To + InFile, FBuffer.data() + From, Size - InFile);
  }
  for (const TPatch& Patch : FPatches) {
    const int64_t First = std::max(Offset, Patch.Offset);
    const int64_t End = std::min(Offset + static_cast<int64_t>(Size),
                                 Patch.Offset + static_cast<int64_t>(Patch.Bytes.size()));
    if (First >= End) continue;
    std::memcpy(To + (First - Offset), Patch.Bytes.data() + (First - Patch.Offset),
                static_cast<size_t>(End - First));
  }
  return Size;
}

}  // namespace zav
