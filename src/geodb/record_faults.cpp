// record_faults.cpp - see record_faults.h.
// SPDX-License-Identifier: MIT
#include <geodb/record_faults.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace zav {
namespace {

struct TBox {
  float LatLow = 90;
  float LatHigh = -90;
  float LongLow = 180;
  float LongHigh = -180;
  bool Finite = true;
};

// The box of a point list that lies in the data file.
TBox BoxOfPoints(const TGdbStore& Store, const TgdbData& Data) {
  constexpr int32_t Most = 65536;
  TBox Box;
  std::vector<TSCoords> Points;
  for (int32_t i = 0; i < Data.NumPoints; i += Most) {
    Points.resize(static_cast<size_t>(std::min(Most, Data.NumPoints - i)));
    Store.ReadData(int64_t{Data.BlobOffset} + int64_t{i} * 8, Points.data(), Points.size() * 8);
    for (const TSCoords& Point : Points) {
      if (std::isnan(Point.Latit) || std::isnan(Point.Longit)) Box.Finite = false;
      Box.LatLow = std::min(Box.LatLow, Point.Latit);
      Box.LatHigh = std::max(Box.LatHigh, Point.Latit);
      Box.LongLow = std::min(Box.LongLow, Point.Longit);
      Box.LongHigh = std::max(Box.LongHigh, Point.Longit);
    }
  }
  return Box;
}

bool BlockIsGood(const TGdbStore& Store, const TgdbData& Data) {
  if (Data.BlobOffset == -1 && Data.NumPoints == 0) return true;
  return Data.NumPoints >= 0 && Data.BlobOffset >= static_cast<int32_t>(sizeof(TgdbSystemData)) &&
         Data.BlobOffset + BlockSize(Data) <= Store.DataLength();
}

bool HasNaN(const TgdbData& Data) {
  return std::isnan(Data.LatLow) || std::isnan(Data.LatHigh) || std::isnan(Data.LongLow) ||
         std::isnan(Data.LongHigh);
}

}  // namespace

const char* FaultText(TRecordFault Fault) noexcept {
  switch (Fault) {
    case TRecordFault::BadId:
      return "its identifier is below 1";
    case TRecordFault::BadKind:
      return "its kind is none that exists";
    case TRecordFault::BadName:
      return "its name is longer than 59 bytes";
    case TRecordFault::BadClosed:
      return "Closed is neither 0 nor 1";
    case TRecordFault::BadBlock:
      return "its block does not lie in the data file";
    case TRecordFault::NeedlessBlock:
      return "its kind has no block, but it tells of one";
    case TRecordFault::BadBox:
      return "its box does not hold its points";
    case TRecordFault::NoNumber:
      return "a coordinate is no number";
  }
  return "";
}

const char* DeedText(TRecordFault Fault) noexcept {
  switch (Fault) {
    case TRecordFault::BadId:
      return "given a new identifier";
    case TRecordFault::BadKind:
      return "made one of no kind";
    case TRecordFault::BadName:
      return "name cut to 59 bytes";
    case TRecordFault::BadClosed:
      return "Closed set to 1";
    case TRecordFault::BadBlock:
      return "left without its block, which is lost";
    case TRecordFault::NeedlessBlock:
      return "tells of no block any more";
    case TRecordFault::BadBox:
    case TRecordFault::NoNumber:
      return "box taken from its points";
  }
  return "";
}

std::vector<TRecordFault> FaultsOf(const TGdbStore& Store, const TgdbData& Data) {
  std::vector<TRecordFault> Faults;
  const auto Find = [&](bool Wrong, TRecordFault Fault) {
    if (Wrong) Faults.push_back(Fault);
  };
  Find(Data.ItemId < 1, TRecordFault::BadId);
  Find(Data.ItemKind > TgdbItem::gitUndefined, TRecordFault::BadKind);
  Find(Data.Name.Length > Data.Name.Capacity, TRecordFault::BadName);
  Find(Data.Closed > 1, TRecordFault::BadClosed);
  Find(HasNaN(Data), TRecordFault::NoNumber);
  if (!HasBlock(Data.ItemKind)) {
    Find(Data.BlobOffset != -1, TRecordFault::NeedlessBlock);
  } else if (!BlockIsGood(Store, Data)) {
    Find(true, TRecordFault::BadBlock);
  } else if (HasPointList(Data.ItemKind) && Data.BlobOffset >= 0 && !HasNaN(Data)) {
    const TBox Box = BoxOfPoints(Store, Data);
    Find(!Box.Finite, TRecordFault::NoNumber);
    Find(Box.LatLow < Data.LatLow || Box.LatHigh > Data.LatHigh || Box.LongLow < Data.LongLow ||
             Box.LongHigh > Data.LongHigh,
         TRecordFault::BadBox);
  }
  return Faults;
}

bool Mend(const TGdbStore& Store, TRecordFault Fault, TgdbData& Data, int32_t& NextId) {
  switch (Fault) {
    case TRecordFault::BadId:
      if (NextId == INT32_MAX) return false;
      Data.ItemId = ++NextId;
      return true;
    case TRecordFault::BadKind:
      Data.ItemKind = TgdbItem::gitUndefined;
      return true;
    case TRecordFault::BadName:
      Data.Name = TgdbName(Data.Name.View());
      return true;
    case TRecordFault::BadClosed:
      Data.Closed = 1;
      return true;
    case TRecordFault::BadBlock:
      Data.BlobOffset = -1;
      Data.NumPoints = 0;
      return true;
    case TRecordFault::NeedlessBlock:
      Data.BlobOffset = -1;
      return true;
    case TRecordFault::BadBox:
    case TRecordFault::NoNumber: {
      if (!HasPointList(Data.ItemKind) || Data.BlobOffset < 0 || !BlockIsGood(Store, Data)) {
        return false;
      }
      if (Fault == TRecordFault::NoNumber && !HasNaN(Data)) return false;  // a point's
      const TBox Box = BoxOfPoints(Store, Data);
      Data.LatLow = Box.LatLow;
      Data.LatHigh = Box.LatHigh;
      Data.LongLow = Box.LongLow;
      Data.LongHigh = Box.LongHigh;
      return true;
    }
  }
  return false;
}

std::vector<std::pair<size_t, size_t>> SameIds(const TRecordTable& Records) {
  std::vector<uint32_t> Order(Records.size());
  std::iota(Order.begin(), Order.end(), 0U);
  std::stable_sort(Order.begin(), Order.end(),
                   [&](uint32_t A, uint32_t B) { return Records[A].ItemId < Records[B].ItemId; });
  std::vector<std::pair<size_t, size_t>> Same;
  for (size_t i = 1; i < Order.size(); ++i) {
    const int32_t Id = Records[Order[i]].ItemId;
    if (Id >= 1 && Records[Order[i - 1]].ItemId == Id) Same.emplace_back(Order[i - 1], Order[i]);
  }
  return Same;
}

}  // namespace zav
