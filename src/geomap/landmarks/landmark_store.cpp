// landmark_store.cpp - see landmark_store.h.
// SPDX-License-Identifier: MIT
#include <geomap/landmarks/landmark_store.h>

#include <utility>
#include <vector>

namespace zav {
namespace {

constexpr int32_t EveryClass = -1;
// In squared degrees: what is farther away is not found.
constexpr double FarthestFound = 1e10;

int32_t CheckedClass(int32_t ClassFlag) noexcept {
  return ClassFlag >= 0 && ClassFlag <= 255 ? ClassFlag : EveryClass;
}

bool OfClass(const TLandMark& LandMark, int32_t ClassFlag) noexcept {
  return ClassFlag == EveryClass || LandMark.ClassFlag == ClassFlag;
}

double SquaredDistance(const TLandMark& LandMark, double Lat, double Long) noexcept {
  const double DLat = LandMark.Latitude - Lat;
  const double DLong = LandMark.Longitude - Long;
  return DLat * DLat + DLong * DLong;
}

}  // namespace

void TLandMarkStore::SetList(TLandMarkList List) noexcept {
  FList = std::move(List);
  ++FNumberings;
}

bool TLandMarkStore::Add(const TLandMark& LandMark, const TQuestion& May) {
  if (May && !May(TLandMarkAction::lmaAdd, LandMark)) return false;
  FList.Append(LandMark);
  return true;
}

bool TLandMarkStore::Replace(int32_t Index, const TLandMark& LandMark) {
  if (Index < 1 || Index > Count()) return false;
  FList.Replace(Index, LandMark);
  return true;
}

int32_t TLandMarkStore::Find(double Lat, double Long, int32_t ClassFlag) const noexcept {
  ClassFlag = CheckedClass(ClassFlag);
  int32_t Best = 0;
  double BestDistance = FarthestFound;
  for (int32_t Index = 1; Index <= Count(); ++Index) {
    const TLandMark& LandMark = FList[Index];
    if (!OfClass(LandMark, ClassFlag)) continue;
    const double Distance = SquaredDistance(LandMark, Lat, Long);
    if (Distance < BestDistance) {
      Best = Index;
      BestDistance = Distance;
    }
  }
  return Best;
}

// Asks with a copy, because the answer may come from a function that changes the list.
bool TLandMarkStore::Allowed(TLandMarkAction Action, int32_t Index, const TQuestion& May) const {
  if (!May) return true;
  const TLandMark LandMark = FList[Index];
  return May(Action, LandMark);
}

int32_t TLandMarkStore::Remove(int32_t Index, const TQuestion& May) {
  if (Count() == 0) return 0;
  FHighLight = 0;
  if (Index < 1 || Index > Count()) return 0;
  const uint64_t Before = FNumberings;
  if (!Allowed(TLandMarkAction::lmaRemove, Index, May) || FNumberings != Before) return 0;
  FList.Remove(Index);
  ++FNumberings;
  return Index;
}

template <class TRegion>
int32_t TLandMarkStore::RemoveRegion(const TRegion& Region, const TQuestion& May) {
  if (Count() == 0) return 0;
  FHighLight = 0;
  const uint64_t Before = FNumberings;
  const int32_t Last = Count();  // what a question adds is not part of the removal
  std::vector<bool> Marked(static_cast<size_t>(Last), false);
  int32_t Found = 0;
  for (int32_t Index = 1; Index <= Last; ++Index) {
    if (!Region(FList[Index])) continue;
    const bool Goes = Allowed(TLandMarkAction::lmaRemove, Index, May);
    if (FNumberings != Before) return 0;
    if (!Goes) continue;
    Marked[static_cast<size_t>(Index - 1)] = true;
    ++Found;
  }
  if (Found == 0) return 0;
  Marked.resize(static_cast<size_t>(Count()), false);
  FList.RemoveMarked(Marked);
  ++FNumberings;
  return Found;
}

int32_t TLandMarkStore::RemoveNear(double Lat, double Long, int32_t ClassFlag, double Radius,
                                   const TQuestion& May) {
  ClassFlag = CheckedClass(ClassFlag);
  const auto Region = [&](const TLandMark& Each) {
    return OfClass(Each, ClassFlag) && SquaredDistance(Each, Lat, Long) < Radius * Radius;
  };
  return RemoveRegion(Region, May);
}

int32_t TLandMarkStore::RemoveInside(const TRectDouble& Rect, int32_t ClassFlag,
                                     const TQuestion& May) {
  ClassFlag = CheckedClass(ClassFlag);
  const auto Region = [&](const TLandMark& Each) {
    return OfClass(Each, ClassFlag) && Each.Longitude > Rect.Left && Each.Longitude < Rect.Right &&
           Each.Latitude > Rect.Bottom && Each.Latitude < Rect.Top;
  };
  return RemoveRegion(Region, May);
}

int32_t TLandMarkStore::RemoveClass(uint8_t ClassFlag, const TQuestion& May) {
  return RemoveRegion([&](const TLandMark& Each) { return Each.ClassFlag == ClassFlag; }, May);
}

void TLandMarkStore::Clear() noexcept {
  FList.Clear();
  ++FNumberings;
}

bool TLandMarkStore::SetHighLight(int32_t Index) noexcept {
  const int32_t New = Index >= 0 && Index <= Count() ? Index : 0;
  if (New == FHighLight) return false;
  FHighLight = New;
  return true;
}

}  // namespace zav
