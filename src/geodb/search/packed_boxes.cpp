// packed_boxes.cpp - see packed_boxes.h.
// SPDX-License-Identifier: MIT
#include <geodb/search/packed_boxes.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace zav {
namespace {

constexpr size_t NodeSize = TPackedBoxes::TNode::Size;

constexpr TPackedBoxes::TNode EmptyNode = [] {
  constexpr float None = std::numeric_limits<float>::quiet_NaN();
  TPackedBoxes::TNode Node{};
  for (auto* Edges : {&Node.LatLow, &Node.LatHigh, &Node.LongLow, &Node.LongHigh})
    Edges->fill(None);
  return Node;
}();

constexpr size_t NodesFor(size_t Boxes) noexcept {
  return std::max<size_t>((Boxes + NodeSize - 1) / NodeSize, 1);
}

// The distance from the beginning of a Hilbert curve that fills the square of 2^32 by 2^32.
uint64_t HilbertDistance(uint32_t X, uint32_t Y) noexcept {
  uint64_t Distance = 0;
  for (uint32_t Bit = 32; Bit-- > 0;) {
    const uint32_t East = X >> Bit & 1;
    const uint32_t North = Y >> Bit & 1;
    Distance = Distance << 2 | ((3 * East) ^ North);
    // In the lower quarters the curve has its axes swapped, in the eastern one it is mirrored too.
    const uint32_t Mirror = 0U - (East & ~North);
    const uint32_t Swap = (X ^ Y) & (North - 1);
    X ^= Swap ^ Mirror;
    Y ^= Swap ^ Mirror;
  }
  return Distance;
}

// The middle of two edges as a whole number that grows from -Limit to Limit degrees; what lies
// beyond counts as the end.
uint32_t ScaledMiddle(float Low, float High, double Limit) noexcept {
  const double Sum =
      std::clamp<double>(Low, -Limit, Limit) + std::clamp<double>(High, -Limit, Limit);
  return static_cast<uint32_t>((Sum + 2 * Limit) / (4 * Limit) * 4294967295.0);
}

uint64_t CurvePlace(const TGeoBox& Box) noexcept {
  return HilbertDistance(ScaledMiddle(Box.LongLow, Box.LongHigh, 180),
                         ScaledMiddle(Box.LatLow, Box.LatHigh, 90));
}

// The box around those of a node.
TGeoBox Enclosing(const TPackedBoxes::TNode& Node) noexcept {
  constexpr float Infinity = std::numeric_limits<float>::infinity();
  TGeoBox Box{Infinity, -Infinity, Infinity, -Infinity};
  for (size_t i = 0; i < NodeSize; ++i) {
    const TGeoBox Each = Node.Box(i);
    if (std::isnan(Each.LatLow)) continue;
    const bool Turned = Each.LongLow > Each.LongHigh;  // it crosses 180 degrees
    Box.LatLow = std::min(Box.LatLow, Each.LatLow);
    Box.LatHigh = std::max(Box.LatHigh, Each.LatHigh);
    Box.LongLow = Turned ? -Infinity : std::min(Box.LongLow, Each.LongLow);
    Box.LongHigh = Turned ? Infinity : std::max(Box.LongHigh, Each.LongHigh);
  }
  return Box;
}

void SetBox(TPackedBoxes::TNode& Node, size_t Index, const TGeoBox& Box) noexcept {
  Node.LatLow[Index] = Box.LatLow;
  Node.LatHigh[Index] = Box.LatHigh;
  Node.LongLow[Index] = Box.LongLow;
  Node.LongHigh[Index] = Box.LongHigh;
}

}  // namespace

TPackedBoxes::TPackedBoxes(const std::vector<TBoxEntry>& Entries) {
  struct TPlace {
    uint64_t Curve;
    uint32_t Entry;
  };
  std::vector<TPlace> Places;
  Places.reserve(Entries.size());
  for (const TBoxEntry& Entry : Entries)
    Places.push_back({CurvePlace(Entry.Box), static_cast<uint32_t>(Places.size())});
  std::sort(Places.begin(), Places.end(), [&](const TPlace& A, const TPlace& B) {
    return std::tie(A.Curve, Entries[A.Entry].Id) < std::tie(B.Curve, Entries[B.Entry].Id);
  });

  size_t Nodes = NodesFor(Entries.size());
  for (size_t Level = Nodes; Level > 1; Nodes += Level) Level = NodesFor(Level);
  FNodes.reserve(Nodes);
  FNodes.resize(NodesFor(Entries.size()), EmptyNode);
  FLevels.push_back(0);
  FIds.reserve(Entries.size());
  for (const TPlace& Place : Places) {
    const size_t Item = FIds.size();
    SetBox(FNodes[Item / NodeSize], Item % NodeSize, Entries[Place.Entry].Box);
    FIds.push_back(Entries[Place.Entry].Id);
  }
  while (FNodes.size() - FLevels.back() > 1) AddLevel();
}

// Adds the boxes around the nodes of the last level.
void TPackedBoxes::AddLevel() {
  const size_t First = FLevels.back();
  const size_t Count = FNodes.size() - First;
  FLevels.push_back(FNodes.size());
  FNodes.resize(FNodes.size() + NodesFor(Count), EmptyNode);
  for (size_t i = 0; i < Count; ++i)
    SetBox(FNodes[FLevels.back() + i / NodeSize], i % NodeSize, Enclosing(FNodes[First + i]));
}

size_t TPackedBoxes::MemoryUsed() const noexcept {
  return FNodes.capacity() * sizeof(TNode) + FIds.capacity() * sizeof(int32_t) +
         FLevels.capacity() * sizeof(size_t) + FDead.capacity() * sizeof(uint64_t);
}

TBoxEntry TPackedBoxes::Entry(size_t Item) const {
  return {FIds[Item], FNodes[Item / NodeSize].Box(Item % NodeSize)};
}

bool TPackedBoxes::Remove(const TBoxEntry& Wanted) {
  const std::tuple Place(CurvePlace(Wanted.Box), Wanted.Id);
  const auto PlaceOf = [&](size_t Item) {
    const TBoxEntry At = Entry(Item);
    return std::tuple(CurvePlace(At.Box), At.Id);
  };
  size_t Low = 0;
  for (size_t High = FIds.size(); Low < High;) {
    const size_t Middle = Low + (High - Low) / 2;
    if (PlaceOf(Middle) < Place) {
      Low = Middle + 1;
    } else {
      High = Middle;
    }
  }
  for (; Low < FIds.size() && PlaceOf(Low) == Place; ++Low) {
    if (!IsAlive(Low) || Entry(Low) != Wanted) continue;
    if (FDead.empty()) FDead.resize(FIds.size() / 64 + 1);
    FDead[Low / 64] |= uint64_t{1} << Low % 64;
    ++FRemoved;
    return true;
  }
  return false;
}

void TPackedBoxes::AppendTo(std::vector<TBoxEntry>& Entries) const {
  for (size_t Item = 0; Item < FIds.size(); ++Item)
    if (IsAlive(Item)) Entries.push_back(Entry(Item));
}

}  // namespace zav
