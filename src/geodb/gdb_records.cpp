// gdb_records.cpp - see gdb_records.h.
// SPDX-License-Identifier: MIT
#include <geodb/gdb_records.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <tuple>

namespace zav {
namespace {

auto Fields(const TgdbData& D) {
  return std::tie(D.ItemId, D.Name, D.Altitude, D.ClassFlag, D.Tag, D.BlobOffset, D.Date,
                  D.StateFlag, D.LatLow, D.LatHigh, D.LongLow, D.LongHigh, D.ItemKind, D.NumPoints,
                  D.Closed);
}

std::string AngleText(double Value, double Limit, const char* Positive, const char* Negative,
                      TDegreeFormat Format, int32_t Decimals) {
  const double Kept = std::isnan(Value) ? Value : std::clamp(Value, -Limit, Limit);
  return DegreeToStr(std::abs(Kept), Format, Decimals) + (Kept < 0 ? Negative : Positive);
}

}  // namespace

std::string_view ItemKindName(TgdbItem ItemKind) noexcept {
  const auto Index = static_cast<size_t>(ItemKind);
  return GDB_ITEMNAMES[std::min(Index, GDB_ITEMNAMES.size() - 1)];
}

bool HasPointList(TgdbItem ItemKind) noexcept {
  return ItemKind <= TgdbItem::gitRoute && ItemKind != TgdbItem::gitTown;
}

bool operator==(const TgdbData& A, const TgdbData& B) noexcept { return Fields(A) == Fields(B); }

bool operator==(const TgdbSystemData& A, const TgdbSystemData& B) noexcept {
  return A.HighestID == B.HighestID && A.DBVersion == B.DBVersion &&
         A.Description == B.Description && A.Revision == B.Revision && A.Reserved == B.Reserved;
}

int64_t BlockSize(const TgdbData& Data) noexcept {
  if (Data.BlobOffset < 0 || Data.NumPoints < 0) return 0;
  if (HasPointList(Data.ItemKind)) return int64_t{Data.NumPoints} * int64_t{sizeof(TSCoords)};
  if (Data.ItemKind == TgdbItem::gitBLOB) return int64_t{sizeof(TMetaInfo)} + Data.Size();
  return 0;
}

TSCoords ExtractLocation(const TgdbData& Data) noexcept { return {Data.LatLow, Data.LongLow}; }

void ClearGdbData(TgdbData& Data) {
  const int32_t NumPoints = Data.NumPoints;
  Data = TgdbData();
  std::fill(std::begin(Data.Name.Chars), std::end(Data.Name.Chars), ' ');
  Data.Date = LocalNow();
  Data.NumPoints = NumPoints;
}

void ClearMetaInfo(TMetaInfo& Info) noexcept {
  Info.Keywords.Length = 0;
  Info.Caption.Length = 0;
  Info.FilePath.Length = 0;
  Info.Descriptor.Length = 0;
  Info.Comment.Length = 0;
}

std::string GeoLatitude(double Value, TDegreeFormat Format, int32_t Decimals) {
  return AngleText(Value, 90, " N", " S", Format, Decimals);
}

std::string GeoLongitude(double Value, TDegreeFormat Format, int32_t Decimals) {
  return AngleText(Value, 180, " E", " W", Format, Decimals);
}

TDateTime LocalTime(std::time_t Moment) {
  std::tm Parts = {};
  TDateTime Value = 0;
  if (::localtime_r(&Moment, &Parts) == nullptr) return Value;
  EncodeDateTime({Parts.tm_year + 1900, Parts.tm_mon + 1, Parts.tm_mday, Parts.tm_hour,
                  Parts.tm_min, std::min(Parts.tm_sec, 59)},
                 Value);
  return Value;
}

TDateTime LocalNow() { return LocalTime(std::time(nullptr)); }

}  // namespace zav
