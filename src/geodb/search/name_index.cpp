// name_index.cpp - see name_index.h.
// SPDX-License-Identifier: MIT
#include <geodb/search/name_index.h>

#include <platform/base/text.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace zav {
namespace {

// New and removed names that are put up with beside so many sorted ones.
constexpr size_t Tolerated(size_t Sorted) noexcept { return 1024 + Sorted / 512; }

// Zero bytes end keys in the block.
std::string KeyOf(std::string_view Name) {
  std::string Key = SearchKey(Name);
  std::replace(Key.begin(), Key.end(), '\0', '\1');
  return Key;
}

uint64_t BeginningOf(std::string_view Key) noexcept {
  uint64_t Beginning = 0;
  for (size_t i = 0; i < 8; ++i)
    Beginning = Beginning << 8 | (i < Key.size() ? static_cast<uint8_t>(Key[i]) : 0U);
  return Beginning;
}

bool IsMatch(std::string_view Key, std::string_view Text, TNameMatch Match) {
  switch (Match) {
    case TNameMatch::nmWhole:
      return Key == Text;
    case TNameMatch::nmPrefix:
      return Key.starts_with(Text);
    case TNameMatch::nmPart:
      return Key.find(Text) != std::string_view::npos;
  }
  return false;
}

}  // namespace

// --- changes

void TNameIndex::Clear() {
  std::string().swap(FKeys);  // an assignment would keep the memory
  std::string().swap(FNewKeys);
  *this = {};
}

void TNameIndex::Assign(const TNextName& Next) {
  Clear();
  int32_t Id = 0;
  for (std::string_view Name; Next(Id, Name);) AddNew(Id, Name);
  Pack();
}

void TNameIndex::Insert(int32_t Id, std::string_view Name) {
  AddNew(Id, Name);
  if (FNew.size() > Tolerated(FIds.size())) Pack();
}

void TNameIndex::AddNew(int32_t Id, std::string_view Name) {
  const std::string Key = KeyOf(Name);
  if (Key.empty()) return;
  FNew.push_back({BeginningOf(Key), FNewKeys.size(), Id});
  FNewKeys += Key;
  FNewKeys += '\0';
}

bool TNameIndex::Remove(int32_t Id, std::string_view Name) {
  const std::string Key = KeyOf(Name);
  const auto New = std::find_if(FNew.begin(), FNew.end(), [&](const TNewName& Each) {
    return Each.Id == Id && NewKey(Each) == Key;
  });
  if (New != FNew.end()) {
    FNew.erase(New);
    if (FNewKeys.size() > 2 * FKeys.size() + (size_t{1} << 20)) Pack();  // dead keys
    return true;
  }
  const THit Wanted{Key, Id};
  for (TCursor At = Before(Wanted); At.Item < FIds.size(); Step(At)) {
    const THit Here{KeyAt(At.Start), FIds[At.Item]};
    if (Wanted < Here) break;
    if (Here < Wanted || !IsAlive(At.Item)) continue;
    if (FDead.empty()) FDead.resize(FIds.size() / 64 + 1);
    FDead[At.Item / 64] |= uint64_t{1} << At.Item % 64;
    if (++FRemoved > FIds.size() / 2) Pack();
    return true;
  }
  return false;
}

// Makes the block anew of its names and the new ones.
void TNameIndex::Pack() {
  std::sort(FNew.begin(), FNew.end(), [this](const TNewName& A, const TNewName& B) {
    if (A.Beginning != B.Beginning) return A.Beginning < B.Beginning;
    const int Order = std::strcmp(FNewKeys.c_str() + A.Start, FNewKeys.c_str() + B.Start);
    return Order != 0 ? Order < 0 : A.Id < B.Id;
  });
  TNameIndex Packed;
  Packed.FKeys.reserve(FKeys.size() + FNewKeys.size());
  Packed.FIds.reserve(Count());
  Packed.FStarts.reserve(Count() / KeysPerStart + 1);
  const auto Append = [&](const THit& Name) {
    if (Packed.FIds.size() % KeysPerStart == 0) Packed.FStarts.push_back(Packed.FKeys.size());
    Packed.FKeys += Name.Key;
    Packed.FKeys += '\0';
    Packed.FIds.push_back(Name.Id);
  };
  auto New = FNew.begin();
  for (TCursor At; At.Item < FIds.size(); Step(At)) {
    if (!IsAlive(At.Item)) continue;
    const THit Old{KeyAt(At.Start), FIds[At.Item]};
    for (; New != FNew.end() && THit{NewKey(*New), New->Id} < Old; ++New)
      Append({NewKey(*New), New->Id});
    Append(Old);
  }
  for (; New != FNew.end(); ++New) Append({NewKey(*New), New->Id});
  Clear();
  *this = std::move(Packed);
}

size_t TNameIndex::Count() const noexcept { return FIds.size() - FRemoved + FNew.size(); }

size_t TNameIndex::MemoryUsed() const noexcept {
  return FKeys.capacity() + FStarts.capacity() * sizeof(size_t) +
         FIds.capacity() * sizeof(int32_t) + FDead.capacity() * sizeof(uint64_t) +
         FNewKeys.capacity() + FNew.capacity() * sizeof(TNewName);
}

// --- searches

void TNameIndex::Step(TCursor& At) const {
  At.Start += KeyAt(At.Start).size() + 1;
  ++At.Item;
}

// A name of the block from which all names that are not less than Wanted follow.
TNameIndex::TCursor TNameIndex::Before(const THit& Wanted) const {
  size_t Low = 0;
  for (size_t High = FStarts.size(); Low < High;) {
    const size_t Middle = Low + (High - Low) / 2;
    if (THit{KeyAt(FStarts[Middle]), FIds[Middle * KeysPerStart]} < Wanted) {
      Low = Middle + 1;
    } else {
      High = Middle;
    }
  }
  if (Low == 0) return {};
  return {FStarts[Low - 1], (Low - 1) * KeysPerStart};
}

void TNameIndex::FindSorted(std::string_view Text, TNameMatch Match, size_t Limit,
                            std::vector<THit>& Hits) const {
  for (TCursor At = Before({Text, INT32_MIN}); At.Item < FIds.size() && Hits.size() < Limit;
       Step(At)) {
    const std::string_view Key = KeyAt(At.Start);
    if (Key < Text) continue;
    if (!IsMatch(Key, Text, Match)) break;
    if (IsAlive(At.Item)) Hits.push_back({Key, FIds[At.Item]});
  }
}

// Looks for the text in the whole block at once; which name it stands in is found out afterwards.
void TNameIndex::FindParts(std::string_view Text, size_t Limit, std::vector<THit>& Hits) const {
  TCursor At;
  size_t Block = 0;
  while (Hits.size() < Limit) {
    const size_t Found = FKeys.find(Text, At.Start);
    if (Found == std::string::npos) return;
    const size_t Before = Block;
    while (Block + 1 < FStarts.size() && FStarts[Block + 1] <= Found) ++Block;
    if (Block != Before) At = {FStarts[Block], Block * KeysPerStart};
    while (At.Start + KeyAt(At.Start).size() < Found) Step(At);
    if (IsAlive(At.Item)) Hits.push_back({KeyAt(At.Start), FIds[At.Item]});
    Step(At);
  }
}

std::vector<int32_t> TNameIndex::Find(std::string_view Text, TNameMatch Match, size_t Limit) const {
  const std::string Key = KeyOf(Text);
  if (Key.empty()) return {};
  std::vector<THit> Hits;
  if (Match == TNameMatch::nmPart) {
    FindParts(Key, Limit, Hits);
  } else {
    FindSorted(Key, Match, Limit, Hits);
  }
  const auto Sorted = static_cast<std::ptrdiff_t>(Hits.size());
  for (const TNewName& Name : FNew)
    if (IsMatch(NewKey(Name), Key, Match)) Hits.push_back({NewKey(Name), Name.Id});
  std::sort(Hits.begin() + Sorted, Hits.end());
  std::inplace_merge(Hits.begin(), Hits.begin() + Sorted, Hits.end());
  std::vector<int32_t> Ids;
  Ids.reserve(std::min(Limit, Hits.size()));
  for (size_t i = 0; i < Hits.size() && i < Limit; ++i) Ids.push_back(Hits[i].Id);
  return Ids;
}

}  // namespace zav
