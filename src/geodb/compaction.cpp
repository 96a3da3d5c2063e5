// compaction.cpp - see store.h. New files without dead bytes take the place of the old ones.
//
// The journal says first that new files are being made, so that a dead writer's are removed, and
// then, when they are whole and on the disk, that they are to be put in place.
// SPDX-License-Identifier: MIT
#include <sys/stat.h>

#include <algorithm>

#include <geodb/store.h>
#include <platform/base/errors.h>
#include <platform/base/paths.h>
#include <platform/base/text_format.h>

namespace zav {
namespace {

constexpr size_t BufferSize = size_t{1} << 20;

// A new file with the permissions of the one that it is to replace.
TDbFile NewFile(const std::string& Path, const std::string& Old) {
  struct stat Info;
  const int Mode = ::stat(Old.c_str(), &Info) == 0 ? static_cast<int>(Info.st_mode & 07777) : -1;
  int Handle = -1;
  const int Error = FileOps().CreateNew(Path, Mode, Handle);
  if (Error != 0) throw EInOutError(Path, SystemReason(Error));
  FileOps().Close(Handle);
  return TDbFile(Path, TFileAccess::Update);
}

// Collects writes to the end of a file.
class TAppender {
 public:
  explicit TAppender(TDbFile& File) : FFile(File) { FBuffer.reserve(BufferSize); }
  void Append(const void* Data, size_t Size) {
    if (FBuffer.size() + Size > BufferSize) Flush();
    FBuffer.append(static_cast<const char*>(Data), Size);
  }
  void Flush() {
    FFile.WriteAt(FWritten, FBuffer.data(), FBuffer.size());
    FWritten += static_cast<int64_t>(FBuffer.size());
    FBuffer.clear();
  }
  int64_t Length() const noexcept { return FWritten + static_cast<int64_t>(FBuffer.size()); }

 private:
  TDbFile& FFile;
  std::string FBuffer;
  int64_t FWritten = 0;
};

}  // namespace

void TGdbStore::Compact(const std::function<void(int32_t)>& Report) {
  EnsureWriter();
  int64_t Length = sizeof(TgdbSystemData);
  for (size_t i = 0; i < FRecords.size(); ++i) {
    const TgdbData& Data = FRecords[i];
    const int64_t Size = BlockSize(Data);
    if (Data.BlobOffset >= 0 && HasBlock(Data.ItemKind) &&
        (Data.NumPoints < 0 || Data.BlobOffset + Size > FDataLength)) {
      throw TGdbRefused("the block of record " + IntegerText(static_cast<int64_t>(i) + 1) +
                        " does not lie in the data file.");
    }
    Length += Size;
  }
  if (Length > MostDataBytes) {
    throw TGdbRefused("the data file would grow beyond 2147483647 bytes.");
  }
  try {
    BeginChange();
    ArmState(TJournalKind::Preparing, false);
    RemoveNewFiles();
    WriteNewFiles(FRecords, Report);
    ArmState(TJournalKind::Replacing, true);
    PutNewFilesInPlace();
    Load(FNames.Records);
    RightenIndexes();
    for (size_t i = 0; i < IndexCount && !Lazy; ++i) WriteIndexChanges(i);
    SyncFiles();
    FinishChange();
  } catch (...) {
    AbortChange();
    throw;
  }
}

void TGdbStore::WriteNewFiles(const TRecordTable& Records,
                              const std::function<void(int32_t)>& Report) {
  TDbFile Data = NewFile(FNames.NewData, FNames.Data);
  TDbFile RecordFile = NewFile(FNames.NewRecords, FNames.Records);
  TAppender DataEnd(Data);
  TAppender RecordEnd(RecordFile);
  DataEnd.Append(&FHeader, sizeof(FHeader));
  std::string Piece;
  for (size_t i = 0; i < Records.size(); ++i) {
    TgdbData Record = Records[i];
    const int64_t Size = BlockSize(Record);
    int64_t From = Record.BlobOffset;
    if (Record.BlobOffset >= 0 && HasBlock(Record.ItemKind)) {
      Record.BlobOffset = static_cast<int32_t>(DataEnd.Length());
    }
    for (int64_t Rest = Size; Rest > 0;) {
      const int64_t Count = std::min<int64_t>(Rest, BufferSize);
      Piece.resize(static_cast<size_t>(Count));
      FDataFile.ReadAt(From, Piece.data(), Piece.size());
      DataEnd.Append(Piece.data(), Piece.size());
      From += Count;
      Rest -= Count;
    }
    RecordEnd.Append(&Record, sizeof(Record));
    Report(static_cast<int32_t>(i * 100 / Records.size()));
  }
  DataEnd.Flush();
  RecordEnd.Flush();
  Data.Sync();
  RecordFile.Sync();
}

// The locks go over to the new files before anybody can find them.
void TGdbStore::PutNewFilesInPlace() {
  for (auto* File : {&FDataFile, &FRecordFile}) {
    const bool IsData = File == &FDataFile;
    const std::string& Old = IsData ? FNames.Data : FNames.Records;
    const std::string& New = IsData ? FNames.NewData : FNames.NewRecords;
    if (StampOf(New).Size < 0) continue;
    TDbFile Next(New, TFileAccess::Update);
    Next.TryLock(TFileLock::Exclusive);
    if (const int Error = FileOps().Rename(New, Old); Error != 0) {
      throw EInOutError(Old, SystemReason(Error));
    }
    *File = std::move(Next);
    File->Renamed(Old);
  }
  FRecordStamp = FRecordFile.Stamp();
  FDataStamp = FDataFile.Stamp();
  FileOps().SyncFolder(DirectoryOf(FNames.Base));
}

}  // namespace zav
