// store.h - the files of a database, their contents in memory, and how both change together.
//
// A change is begun, its parts are written, and it is committed or aborted; see TGeoDB for what
// that promises. A group is many changes in one: the data file grows as buffers fill, and the rest
// is written when the group is committed. The journal is armed before the first byte is written. To
// abort is what opening does after a crash: the journal is carried out and the files are read anew.
//
// Locks: a writer holds an exclusive lock on the record file from its first change to the closing,
// and one on the data file while a change is under way; who reads the files holds a shared one
// there.
//
// Positions count from 0.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_STORE_H
#define ZAV_GEODB_STORE_H

#include <array>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <unordered_set>
#include <vector>

#include <geodb/db_file.h>
#include <geodb/file_names.h>
#include <geodb/gdb_records.h>
#include <geodb/index_set.h>
#include <geodb/journal.h>
#include <geodb/mark_set.h>
#include <platform/base/api.h>

namespace zav {

// A change that cannot be made, in words for the tail of a component's message.
class ZAVGEO_API TGdbRefused : public EZAVGeoDBError {
 public:
  using EZAVGeoDBError::EZAVGeoDBError;
};

constexpr int64_t MostDataBytes = INT32_MAX;  // offsets in records have 32 bits

class ZAVGEO_API TGdbStore {
 public:
  TGdbStore() = default;
  // Leaves the files as they are: see Close.
  ~TGdbStore() { Drop(); }
  TGdbStore(const TGdbStore&) = delete;
  TGdbStore& operator=(const TGdbStore&) = delete;

  // ---- Opening

  // Makes missing files unless ReadOnly, puts right what a dead writer left, and reads. Nothing is
  // open when it throws.
  void Open(const std::string& Base, bool ReadOnly);
  // Everything is on the disk afterwards; with SaveIndexes, unwritten indexes too. Closes even when
  // it throws.
  void Close(bool SaveIndexes);
  // Closes without writing: unwritten indexes are left to the journal.
  void Drop() noexcept;
  bool IsOpen() const noexcept { return FOpen; }
  const TFileNames& Names() const noexcept { return FNames; }

  // ---- Contents

  int32_t Count() const noexcept { return static_cast<int32_t>(FRecords.size()); }
  const TRecordTable& Records() const noexcept { return FRecords; }
  const TgdbSystemData& Header() const noexcept { return FHeader; }
  // The header that a data file made by Open gets; it becomes the default one on closing.
  void ResetHeader() noexcept { FHeader = TgdbSystemData(); }
  TIndexSet& RawIndexes() noexcept { return FIndexes; }
  TIndexSet& Indexes() {
    FIndexes.BringInOrder(FRecords);
    return FIndexes;
  }
  int32_t FindItem(int32_t ItemID) const noexcept { return FIndexes.FindItem(ItemID); }

  int64_t DataLength() const noexcept { return FDataLength; }
  // Throws EInOutError when the bytes do not lie in the data file, or when another program has put
  // another file in its place.
  void ReadData(int64_t Offset, void* Buffer, size_t Size) const;
  // How many of these bytes there are.
  size_t ReadSomeData(int64_t Offset, void* Buffer, size_t Size) const;

  // ---- Changes. Lazy: index files are not written.

  bool Lazy = false;

  // Positions are those of records that will be overwritten or cut off.
  void BeginChange(std::initializer_list<int32_t> Positions = {});
  void CommitChange();
  void AbortChange() noexcept;
  bool InGroup() const noexcept { return FInGroup; }
  void BeginGroup() noexcept;
  void CommitGroup();
  void RollbackGroup() noexcept;
  // Whether an aborted change has made the contents be read anew since this was last asked.
  bool TakeReloaded() noexcept;

  // Within a change:
  void PutHeader(const TgdbSystemData& Header);
  // In memory only: the identifier counts as given even when the change fails.
  void SetHighestID(int32_t HighestID) noexcept { FHeader.HighestID = HighestID; }
  // Refuses what would make the data file too long.
  void CheckRoom(int64_t Bytes) const;
  void AppendData(const void* Data, size_t Size);
  void OverwriteData(int64_t Offset, const void* Data, size_t Size);
  void AddRecord(const TgdbData& Data);
  void ReplaceRecord(int32_t Position, const TgdbData& Data);
  void DeleteRecord(int32_t Position);

  // ---- Whole files

  // Writes an index file as a whole.
  void SaveIndex(size_t Which);
  void RebuildIndexes();
  void Flush();
  // Writes new files without dead bytes and puts them in the place of the old ones. Report gets
  // percents.
  void Compact(const std::function<void(int32_t)>& Report);
  // Puts these records in the place of the old ones, and a header.
  void PutAll(const TRecordTable& Records, const TgdbSystemData& Header);
  // Becomes the writer if it is none.
  void EnsureWriter();

 private:
  struct TPatch {
    int64_t Offset = 0;
    std::vector<uint8_t> Bytes;
  };

  // store.cpp
  void OpenLocked();
  void MakeMissingFiles();
  void MakeMissingFiles(std::vector<std::string>& Made);
  void LockForReading(TDbFile& Data) const;
  void Load(const std::string& RecordPath);
  void LoadRecords(const std::string& Path);
  void LoadIndex(size_t Which);
  void CheckInPlace() const;

  // store_recovery.cpp
  bool RecoverDead();
  void CarryOut(const TFoundJournal& Found);
  void UndoInMemory(const TFoundJournal& Found);
  void RightenIndexes();
  void RemoveNewFiles() noexcept;
  void Recover() noexcept;
  void RecoverOnDisk(bool WriteIndexes);

  // store_changes.cpp
  void OpenForWriting();
  void Arm();
  void ArmState(TJournalKind Kind, bool Durable);
  void Touch() noexcept { FTouched = FGroupTouched = true; }
  void WriteHeader();
  void WriteIndexChanges(size_t Which);
  bool IndexesUnwritten() const noexcept;
  void FinishChange();
  void SyncFiles();

  // store_groups.cpp
  static constexpr size_t PieceSize = (size_t{1} << 20) / sizeof(TgdbData);  // records at once
  void ArmGroup();
  void FlushBuffer();
  void WriteRecords(size_t First, size_t End);
  void ProtectRecords(size_t First, size_t End);
  template <class TTake>
  void ForEachDirtyRun(TTake&& Take) const;

  // compaction.cpp
  void WriteNewFiles(const TRecordTable& Records, const std::function<void(int32_t)>& Report);
  void PutNewFilesInPlace();

  TFileNames FNames;
  bool FOpen = false;
  bool FReadOnly = false;
  bool FWriter = false;
  bool FBroken = false;  // an undone change is still in the files
  bool FReloaded = false;

  TRecordTable FRecords;
  TIndexSet FIndexes;
  TgdbSystemData FHeader;
  TgdbSystemData FWrittenHeader;
  int64_t FDataLength = 0;
  std::vector<TPatch> FPatches;  // of a journal that is applied in memory only

  TDbFile FDataFile;  // open while the database is
  TDbFile FRecordFile;
  std::array<TDbFile, IndexCount> FIndexFiles;
  std::array<size_t, IndexCount> FFileCounts = {};  // entries in the index files
  TFileStamp FRecordStamp;                          // when they were read
  TFileStamp FDataStamp;
  TJournal FJournal;

  // The change or group under way.
  bool FArmed = false;
  bool FTouched = false;  // records or indexes in memory are being changed
  bool FUnsynced = false;
  bool FInGroup = false;
  bool FGroupTouched = false;
  bool FGroupBroken = false;
  TJournalState FBase;                   // where to return to
  std::string FBuffer;                   // the end of the data file, within a group
  TMarkSet FDirty;                       // positions below FBase.Records
  std::unordered_set<int64_t> FPatched;  // offsets of old blocks overwritten in this group
};

}  // namespace zav

#endif
