// geo_db_items.cpp - see geo_db.h. Adding, replacing, deleting and changing items.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstring>
#include <exception>

#include <geodb/gdb_change.h>
#include <geodb/item_args.h>
#include <platform/base/rounding.h>

namespace zav {
namespace {

constexpr int32_t PayloadPiece = 16384;

// The name with the rest of its field filled with blanks.
TgdbName PaddedName(const TgdbName& Name) {
  TgdbName Padded;
  std::fill(std::begin(Padded.Chars), std::end(Padded.Chars), ' ');
  Padded.Set(Name.View());
  return Padded;
}

void TakeBoxOf(const TgdbPolygon& Polygon, TgdbData& Data) {
  Data.LatLow = 90;
  Data.LatHigh = -90;
  Data.LongLow = 180;
  Data.LongHigh = -180;
  for (const TSCoords& Point : Polygon) {
    Data.LatLow = std::min(Data.LatLow, Point.Latit);
    Data.LatHigh = std::max(Data.LatHigh, Point.Latit);
    Data.LongLow = std::min(Data.LongLow, Point.Longit);
    Data.LongHigh = std::max(Data.LongHigh, Point.Longit);
  }
}

}  // namespace

int32_t TGeoDB::AddData(const TgdbName& Name, const TgdbPolygon& Polygon, bool Closed,
                        TgdbItem ItemKind, uint8_t ClassFlag, TDateTime Date, int32_t StateFlag,
                        float LatLow, float LatHigh, float LongLow, float LongHigh, float Altitude,
                        int32_t Tag, const TMetaInfo& MetaInfo, const void* Data, int32_t DataSize,
                        bool FromFile) {
  return AddItem({Name,
                  Polygon,
                  Closed,
                  ItemKind,
                  ClassFlag,
                  Date,
                  StateFlag,
                  {LatLow, LatHigh, LongLow, LongHigh},
                  Altitude,
                  Tag,
                  MetaInfo,
                  Data,
                  DataSize,
                  FromFile,
                  MetaInfo.FilePath.Text()});
}

void TGeoDB::ReplaceData(int32_t RecNo, const TgdbName& Name, const TgdbPolygon& Polygon,
                         bool Closed, TgdbItem ItemKind, uint8_t ClassFlag, TDateTime Date,
                         int32_t StateFlag, float LatLow, float LatHigh, float LongLow,
                         float LongHigh, float Altitude, int32_t Tag, const TMetaInfo& MetaInfo,
                         const void* Data, int32_t DataSize, bool FromFile) {
  ReplaceItem(RecNo, {Name,
                      Polygon,
                      Closed,
                      ItemKind,
                      ClassFlag,
                      Date,
                      StateFlag,
                      {LatLow, LatHigh, LongLow, LongHigh},
                      Altitude,
                      Tag,
                      MetaInfo,
                      Data,
                      DataSize,
                      FromFile,
                      MetaInfo.FilePath.Text()});
}

int32_t TGeoDB::AddItem(const TItemArgs& Args) {
  if (!IsOpen()) return -1;
  constexpr const char* Operation = "AddData";
  Guarded(Operation, [&] {
    TGdbChange Change(*this, Operation);
    Report(0);
    TgdbData Data = BuildRecord(Args);
    TSourceFile Source = OpenSource(Operation, Args, Data);
    TgdbSystemData Header = FStore->Header();
    if (Header.HighestID == INT32_MAX) Fail(Operation, "all identifiers are used up.");
    ++Header.HighestID;
    try {
      Change.Begin();
      FStore->SetHighestID(Header.HighestID);
      FStore->PutHeader(Header);
    } catch (const EInOutError&) {
      FStore->SetHighestID(Header.HighestID);
      std::throw_with_nested(EZAVGeoDBError(Message(Operation, "cannot open database.")));
    }
    Data.ItemId = Header.HighestID;
    WriteBlock(Args, Source, Data);
    FStore->AddRecord(Data);
    Change.Commit();
    FSearch->Added(FStore->Count() - 1, Data);
  });
  const int32_t RecNo = NumEntries();
  Report(100);
  return RecNo;
}

void TGeoDB::ReplaceItem(int32_t RecNo, const TItemArgs& Args) {
  if (!IsOpen() || RecNo < 1 || RecNo > NumEntries()) return;
  constexpr const char* Operation = "ReplaceData";
  const int32_t Position = RecNo - 1;
  Guarded(Operation, [&] {
    TGdbChange Change(*this, Operation);
    Report(0);
    TgdbData Data = BuildRecord(Args);
    TSourceFile Source = OpenSource(Operation, Args, Data);
    const TgdbData Old = FStore->Records()[static_cast<size_t>(Position)];
    Data.ItemId = Old.ItemId;
    Change.Begin({Position});
    WriteBlock(Args, Source, Data);
    FStore->ReplaceRecord(Position, Data);
    Change.Commit();
    FSearch->Replaced(Position, Old, Data);
  });
  Report(100);
}

TgdbData TGeoDB::BuildRecord(const TItemArgs& Args) const {
  TgdbData Data;
  Data.Name = PaddedName(Args.Name);
  Data.ClassFlag = Args.ClassFlag;
  Data.Tag = Args.Tag;
  Data.ItemKind = Args.ItemKind;
  Data.LatLow = Args.Box.LatLow;
  Data.LatHigh = Args.Box.LatHigh;
  Data.LongLow = Args.Box.LongLow;
  Data.LongHigh = Args.Box.LongHigh;
  Data.Altitude = Args.Altitude;
  Data.Date = Args.Date;
  Data.StateFlag = Args.StateFlag;
  if (HasPointList(Args.ItemKind)) {
    Data.Closed = Args.Closed ? 1 : 0;
    TakeBoxOf(Args.Polygon, Data);
  }
  return Data;
}

// Finds out how large the block will be, and that there is room for it, before anything is written.
TGeoDB::TSourceFile TGeoDB::OpenSource(const char* Operation, const TItemArgs& Args,
                                       TgdbData& Data) const {
  TSourceFile Source;
  if (HasPointList(Args.ItemKind)) {
    Source.Size = static_cast<int64_t>(Args.Polygon.size() * sizeof(TSCoords));
    FStore->CheckRoom(Source.Size);
    Data.NumPoints = static_cast<int32_t>(Args.Polygon.size());
  } else if (Args.ItemKind == TgdbItem::gitBLOB) {
    if (Args.FromFile) {
      Source.File.Open(Args.SourcePath, TFileAccess::Read);
      const TFileStamp Stamp = Source.File.Stamp();
      Source.Size = Stamp.Size;
      Data.Date = LocalTime(static_cast<std::time_t>(Stamp.Changed / 1000000000));
    } else {
      if (Args.DataSize < 0) Fail(Operation, "the size of the payload is negative.");
      if (Args.DataSize > 0 && Args.Data == nullptr) Fail(Operation, "there is no payload.");
      Source.Size = Args.DataSize;
    }
    FStore->CheckRoom(int64_t{sizeof(TMetaInfo)} + Source.Size);
    Data.NumPoints = static_cast<int32_t>(Source.Size);
  }
  return Source;
}

void TGeoDB::WriteBlock(const TItemArgs& Args, TSourceFile& Source, TgdbData& Data) {
  if (!HasBlock(Args.ItemKind)) return;
  Data.BlobOffset = static_cast<int32_t>(FStore->DataLength());
  if (Args.ItemKind == TgdbItem::gitBLOB) {
    FStore->AppendData(&Args.MetaInfo, sizeof(TMetaInfo));
    WritePayload(Args, Source, Data.Size());
    return;
  }
  FStore->AppendData(Args.Polygon.data(), Args.Polygon.size() * sizeof(TSCoords));
  if (!OnPercentDone) return;
  for (int32_t j = 0; j < Data.NumPoints; ++j) Report(RoundHalfEven(100.0 * j / Data.NumPoints));
}

void TGeoDB::WritePayload(const TItemArgs& Args, TSourceFile& Source, int32_t Size) {
  std::vector<uint8_t> Piece(Args.FromFile ? PayloadPiece : 0);
  int32_t Pieces = 0;
  for (int32_t At = 0; At < Size;) {
    const int32_t Count = std::min(PayloadPiece, Size - At);
    const auto Bytes = static_cast<size_t>(Count);
    if (Args.FromFile) {
      Source.File.ReadAt(At, Piece.data(), Bytes);
      FStore->AppendData(Piece.data(), Bytes);
    } else {
      FStore->AppendData(static_cast<const uint8_t*>(Args.Data) + At, Bytes);
    }
    At += Count;
    ++Pieces;
    // The last piece of a file counts as a full one; that of memory is not reported.
    if (Args.FromFile || Count == PayloadPiece) {
      Report(RoundHalfEven(static_cast<double>(Pieces) * PayloadPiece / Size * 100));
    }
  }
}

void TGeoDB::DeleteData(int32_t RecNo) {
  if (!IsOpen() || RecNo < 1 || RecNo > NumEntries()) return;
  const int32_t Position = RecNo - 1;
  const int32_t LastPosition = NumEntries() - 1;
  Guarded("DeleteData", [&] {
    TGdbChange Change(*this, "DeleteData");
    const TgdbData Old = FStore->Records()[static_cast<size_t>(Position)];
    const TgdbData Last = FStore->Records()[static_cast<size_t>(LastPosition)];
    if (Position == LastPosition) {
      Change.Begin({Position});
    } else {
      Change.Begin({Position, LastPosition});
    }
    FStore->DeleteRecord(Position);
    Change.Commit();
    FSearch->Deleted(Position, Old, LastPosition, Last);
  });
}

bool TGeoDB::UpdateBasicData(int32_t RecNo, const TgdbData& Data) {
  if (!IsOpen() || RecNo < 1 || RecNo > NumEntries()) return false;
  constexpr const char* Operation = "UpdateBasicData";
  const int32_t Position = RecNo - 1;
  const TgdbData Old = FStore->Records()[static_cast<size_t>(Position)];
  if (HasPointList(Data.ItemKind) != HasPointList(Old.ItemKind) ||
      HasBlock(Data.ItemKind) != HasBlock(Old.ItemKind)) {
    Fail(Operation, "items of this kind need another kind of block.");
  }
  TgdbData New = Data;
  New.ItemId = Old.ItemId;
  New.BlobOffset = Old.BlobOffset;
  New.NumPoints = Old.NumPoints;
  New.Name = PaddedName(Data.Name);
  New.Closed = Data.Closed != 0 ? 1 : 0;
  New.Unused1 = New.Unused2 = New.Unused3 = {};
  Guarded(Operation, [&] {
    TGdbChange Change(*this, Operation);
    Change.Begin({Position});
    FStore->ReplaceRecord(Position, New);
    Change.Commit();
    FSearch->Replaced(Position, Old, New);
  });
  return true;
}

}  // namespace zav
