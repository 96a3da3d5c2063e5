// geo_db_blobs.cpp - see geo_db.h. Point lists and BLOBs read back, meta information, BLOBs added.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstring>

#include <geodb/gdb_change.h>
#include <geodb/item_args.h>
#include <platform/base/atomic_file.h>
#include <platform/base/paths.h>
#include <platform/base/rounding.h>

namespace zav {
namespace {

constexpr size_t PayloadPiece = 16384;

// Numbers below 1 are that of the first record.
int32_t PositionOf(int32_t RecNo) noexcept { return std::max(RecNo, 1) - 1; }

TMetaInfo WithPath(const TMetaInfo& MetaInfo, const std::string& Path) {
  TMetaInfo Info = MetaInfo;
  Info.FilePath = Path;
  return Info;
}

const TgdbPolygon NoPoints;

}  // namespace

// ---- Reading ------------------------------------------------------------------------------------

// False when the record has no point list.
bool TGeoDB::ReadPoints(const TgdbData& Data, TgdbPolygon& Polygon) const {
  if (!HasPointList(Data.ItemKind) || Data.BlobOffset < 0) return false;
  const int64_t Size = BlockSize(Data);
  // No memory for points that the file cannot hold.
  if (Data.NumPoints < 0 || Data.BlobOffset + Size > FStore->DataLength()) {
    throw EInOutError(FStore->Names().Data, "ends before the data that a record tells of");
  }
  Polygon.resize(static_cast<size_t>(Data.NumPoints));
  FStore->ReadData(Data.BlobOffset, Polygon.data(), static_cast<size_t>(Size));
  return true;
}

bool TGeoDB::RetrievePolygon(int32_t RecNo, TgdbPolygon& Polygon) {
  if (!IsOpen()) return false;
  Report(0);
  const int32_t Position = PositionOf(RecNo);
  const bool Found = Position < NumEntries() &&
                     ReadPoints(FStore->Records()[static_cast<size_t>(Position)], Polygon);
  if (Found && OnPercentDone) {
    const size_t Step = Polygon.size() / 100 + 1;
    for (size_t i = Step; i <= Polygon.size(); i += Step) Report(100);
  }
  Report(100);
  return Found;
}

bool TGeoDB::IsBlob(int32_t Position) const noexcept {
  return Position < NumEntries() &&
         FStore->Records()[static_cast<size_t>(Position)].ItemKind == TgdbItem::gitBLOB;
}

// Gives the payload piece by piece and reports after each.
void TGeoDB::ReadBlobPieces(const TgdbData& Data,
                            const std::function<void(const uint8_t*, size_t)>& Take) {
  const int32_t Size = Data.Size();
  std::vector<uint8_t> Piece(PayloadPiece);
  for (int32_t At = 0; At < Size;) {
    const auto Bytes = std::min(PayloadPiece, static_cast<size_t>(Size - At));
    FStore->ReadData(int64_t{Data.BlobOffset} + int64_t{sizeof(TMetaInfo)} + At, Piece.data(),
                     Bytes);
    Take(Piece.data(), Bytes);
    At += static_cast<int32_t>(Bytes);
    Report(RoundHalfEven(static_cast<double>(At) / Size * 100));
  }
}

void TGeoDB::CheckBlob(const TgdbData& Data) const {
  if (Data.BlobOffset < 0 || Data.Size() < 0 ||
      Data.BlobOffset + BlockSize(Data) > FStore->DataLength()) {
    throw EInOutError(FStore->Names().Data, "ends before the data that a record tells of");
  }
}

bool TGeoDB::RetrieveBLOB(int32_t RecNo, const std::string& FileName, TMetaInfo& MetaInfo) {
  const int32_t Position = PositionOf(RecNo);
  if (!IsOpen() || !IsBlob(Position)) return false;
  Report(0);
  const TgdbData Data = GetSumdata(Position + 1);
  CheckBlob(Data);
  FStore->ReadData(Data.BlobOffset, &MetaInfo, sizeof(MetaInfo));
  std::string Target = FileName;
  if (Target.empty() || Target.back() == '\\' || Target.back() == '/') {
    Target += ReduceStringToFN83CompliantChars(Data.Name.View());
  }
  if (Target.empty()) throw EZAVGeoDBError(Message("RetrieveBLOB", "invalid filename."));
  // The separator of other systems is understood where there is such a folder here.
  if (FileName.ends_with('\\')) std::replace(Target.begin(), Target.end(), '\\', '/');
  TAtomicFile File(Target);
  ReadBlobPieces(Data, [&](const uint8_t* Bytes, size_t Size) { File.Write(Bytes, Size); });
  File.Commit();
  Report(100);
  return true;
}

bool TGeoDB::RetrieveBLOB(int32_t RecNo, TMetaInfo& MetaInfo, void* Buffer,
                          int32_t SizeOfBlobData) {
  if (!IsOpen()) return false;
  Report(0);
  const int32_t Position = PositionOf(RecNo);
  const bool Found = IsBlob(Position);
  if (Found) {
    const TgdbData Data = GetSumdata(Position + 1);
    CheckBlob(Data);
    FStore->ReadData(Data.BlobOffset, &MetaInfo, sizeof(MetaInfo));
    if (SizeOfBlobData < Data.Size()) {
      Fail("RetrieveBLOB", "BLOB to be retrieved is larger than SizeOfBlobData.");
    }
    auto* To = static_cast<uint8_t*>(Buffer);
    ReadBlobPieces(Data, [&](const uint8_t* Bytes, size_t Size) {
      std::memcpy(To, Bytes, Size);
      To += Size;
    });
  }
  Report(100);
  return Found;
}

bool TGeoDB::RetrieveBLOB(int32_t RecNo, TMetaInfo& MetaInfo, TMemoryStream* Stream) {
  if (!IsOpen() || Stream == nullptr) return false;
  Report(0);
  const int32_t Position = PositionOf(RecNo);
  const bool Found = IsBlob(Position);
  if (Position < NumEntries()) {
    const TgdbData Data = GetSumdata(Position + 1);
    if (Found) CheckBlob(Data);
    // No memory for what the data file cannot hold.
    const int64_t Size = std::clamp<int64_t>(Data.Size(), 0, FStore->DataLength());
    Stream->SetSize(static_cast<size_t>(Size));
    Stream->SetPosition(0);
    if (Found) {
      FStore->ReadData(Data.BlobOffset, &MetaInfo, sizeof(MetaInfo));
      ReadBlobPieces(Data,
                     [&](const uint8_t* Bytes, size_t Count) { Stream->Write(Bytes, Count); });
    }
  }
  Report(0);
  return Found;
}

// ---- Meta information ---------------------------------------------------------------------------

bool TGeoDB::GetMetaInfo(int32_t RecNo, TMetaInfo& MetaInfo) {
  if (!IsOpen() || RecNo < 1 || !IsBlob(RecNo - 1)) return false;
  const TgdbData Data = GetSumdata(RecNo);
  FStore->ReadData(Data.BlobOffset, &MetaInfo, sizeof(MetaInfo));
  return true;
}

bool TGeoDB::UpdateMetaInfo(int32_t RecNo, const TMetaInfo& MetaInfo) {
  if (!IsOpen() || RecNo < 1 || !IsBlob(RecNo - 1)) return false;
  Guarded("UpdateMetaInfo", [&] {
    TGdbChange Change(*this, "UpdateMetaInfo");
    Change.Begin();
    FStore->OverwriteData(GetSumdata(RecNo).BlobOffset, &MetaInfo, sizeof(MetaInfo));
    Change.Commit();
  });
  return true;
}

// ---- Adding and replacing -----------------------------------------------------------------------

int32_t TGeoDB::AddBLOB(const std::string& FileName, TDateTime Date, int32_t StateFlag,
                        float LatLow, float LatHigh, float LongLow, float LongHigh, float Altitude,
                        uint8_t ClassFlag, int32_t Tag, const TMetaInfo& MetaInfo) {
  return AddBLOB(FileName, FileName, Date, StateFlag, LatLow, LatHigh, LongLow, LongHigh, Altitude,
                 ClassFlag, Tag, MetaInfo);
}

int32_t TGeoDB::AddBLOB(const std::string& FileName, const std::string& NameSource, TDateTime Date,
                        int32_t StateFlag, float LatLow, float LatHigh, float LongLow,
                        float LongHigh, float Altitude, uint8_t ClassFlag, int32_t Tag,
                        const TMetaInfo& MetaInfo) {
  return AddItem({StripPath(NameSource),
                  NoPoints,
                  false,
                  TgdbItem::gitBLOB,
                  ClassFlag,
                  Date,
                  StateFlag,
                  {LatLow, LatHigh, LongLow, LongHigh},
                  Altitude,
                  Tag,
                  WithPath(MetaInfo, FileName),
                  nullptr,
                  0,
                  true,
                  FileName});
}

int32_t TGeoDB::AddBLOB(const std::string& FileName, const std::string& NameSource,
                        const std::string& StoredPath, TDateTime Date, int32_t StateFlag,
                        float LatLow, float LatHigh, float LongLow, float LongHigh, float Altitude,
                        uint8_t ClassFlag, int32_t Tag, const TMetaInfo& MetaInfo) {
  // The stored path goes into the block at once, so that no moment shows the other one.
  return AddItem({StripPath(NameSource),
                  NoPoints,
                  false,
                  TgdbItem::gitBLOB,
                  ClassFlag,
                  Date,
                  StateFlag,
                  {LatLow, LatHigh, LongLow, LongHigh},
                  Altitude,
                  Tag,
                  WithPath(MetaInfo, StoredPath),
                  nullptr,
                  0,
                  true,
                  FileName});
}

int32_t TGeoDB::AddBLOB(const std::string& ItemName, TDateTime Date, int32_t StateFlag,
                        float LatLow, float LatHigh, float LongLow, float LongHigh, float Altitude,
                        uint8_t ClassFlag, int32_t Tag, const TMetaInfo& MetaInfo, const void* Data,
                        int32_t DataSize) {
  return AddItem({ItemName,
                  NoPoints,
                  false,
                  TgdbItem::gitBLOB,
                  ClassFlag,
                  Date,
                  StateFlag,
                  {LatLow, LatHigh, LongLow, LongHigh},
                  Altitude,
                  Tag,
                  MetaInfo,
                  Data,
                  DataSize,
                  false,
                  std::string()});
}

int32_t TGeoDB::AddBLOB(const std::string& ItemName, TDateTime Date, int32_t StateFlag,
                        float LatLow, float LatHigh, float LongLow, float LongHigh, float Altitude,
                        uint8_t ClassFlag, int32_t Tag, const TMetaInfo& MetaInfo,
                        const TMemoryStream* Stream) {
  return AddBLOB(ItemName, Date, StateFlag, LatLow, LatHigh, LongLow, LongHigh, Altitude, ClassFlag,
                 Tag, MetaInfo, Stream->Memory(), StreamSize(*Stream));
}

void TGeoDB::ReplaceBLOB(int32_t RecNo, const std::string& FileName, TDateTime Date,
                         int32_t StateFlag, float LatLow, float LatHigh, float LongLow,
                         float LongHigh, float Altitude, uint8_t ClassFlag, int32_t Tag,
                         const TMetaInfo& MetaInfo) {
  ReplaceItem(RecNo, {StripPath(FileName),
                      NoPoints,
                      false,
                      TgdbItem::gitBLOB,
                      ClassFlag,
                      Date,
                      StateFlag,
                      {LatLow, LatHigh, LongLow, LongHigh},
                      Altitude,
                      Tag,
                      WithPath(MetaInfo, FileName),
                      nullptr,
                      0,
                      true,
                      FileName});
}

void TGeoDB::ReplaceBLOB(int32_t RecNo, const std::string& ItemName, TDateTime Date,
                         int32_t StateFlag, float LatLow, float LatHigh, float LongLow,
                         float LongHigh, float Altitude, uint8_t ClassFlag, int32_t Tag,
                         const TMetaInfo& MetaInfo, const void* Data, int32_t DataSize) {
  ReplaceItem(RecNo, {ItemName,
                      NoPoints,
                      false,
                      TgdbItem::gitBLOB,
                      ClassFlag,
                      Date,
                      StateFlag,
                      {LatLow, LatHigh, LongLow, LongHigh},
                      Altitude,
                      Tag,
                      MetaInfo,
                      Data,
                      DataSize,
                      false,
                      std::string()});
}

void TGeoDB::ReplaceBLOB(int32_t RecNo, const std::string& ItemName, TDateTime Date,
                         int32_t StateFlag, float LatLow, float LatHigh, float LongLow,
                         float LongHigh, float Altitude, uint8_t ClassFlag, int32_t Tag,
                         const TMetaInfo& MetaInfo, const TMemoryStream* Stream) {
  ReplaceBLOB(RecNo, ItemName, Date, StateFlag, LatLow, LatHigh, LongLow, LongHigh, Altitude,
              ClassFlag, Tag, MetaInfo, Stream->Memory(), StreamSize(*Stream));
}

int32_t TGeoDB::StreamSize(const TMemoryStream& Stream) const {
  if (Stream.Size() > static_cast<size_t>(INT32_MAX)) {
    Fail("AddData", "the data file would grow beyond 2147483647 bytes.");
  }
  return static_cast<int32_t>(Stream.Size());
}

}  // namespace zav
