// check.cpp - see check.h. Finding disagreements.
// SPDX-License-Identifier: MIT
#include <geodb/check.h>

#include <algorithm>
#include <cmath>

#include <geodb/record_faults.h>
#include <geodb/sorted_index.h>
#include <platform/base/text_format.h>

namespace zav {
namespace {

constexpr std::array<const char*, IndexCount> IndexNames = {"ItemId", "LatLow", "LatHigh",
                                                            "LongLow", "LongHigh"};

class TFindings {
 public:
  void Add(const std::string& Text) { FLines.push_back(Text); }
  void AddRecord(size_t Position, const std::string& Text) {
    Add("record " + IntegerText(static_cast<int64_t>(Position) + 1) + ": " + Text);
  }
  std::vector<std::string> Take() { return std::move(FLines); }

 private:
  std::vector<std::string> FLines;
};

void CheckHeader(const TGdbStore& Store, TFindings& Findings) {
  const TgdbSystemData& Header = Store.Header();
  int32_t Highest = 0;
  for (const TgdbData& Data : Store.Records()) Highest = std::max(Highest, Data.ItemId);
  if (Header.HighestID < Highest) {
    Findings.Add("header: HighestID is " + IntegerText(Header.HighestID) + ", but record " +
                 "identifiers go up to " + IntegerText(Highest));
  }
  if (Header.DBVersion != TgdbSystemData().DBVersion) {
    Findings.Add("header: DBVersion is " + IntegerText(Header.DBVersion) + " instead of 4");
  }
  if (Header.Description.Length > Header.Description.Capacity) {
    Findings.Add("header: the description's length is " + IntegerText(Header.Description.Length));
  }
}

void CheckRecords(const TGdbStore& Store, TFindings& Findings) {
  const TRecordTable& Records = Store.Records();
  for (size_t i = 0; i < Records.size(); ++i) {
    for (const TRecordFault Fault : FaultsOf(Store, Records[i])) {
      Findings.AddRecord(i, FaultText(Fault));
    }
  }
  for (const auto& [First, Second] : SameIds(Records)) {
    Findings.AddRecord(Second, "has the identifier " + IntegerText(Records[Second].ItemId) +
                                   " of record " + IntegerText(static_cast<int64_t>(First) + 1));
  }
}

// Blocks in the order of the file, each with the end of the furthest one before it.
void CheckOverlaps(const TGdbStore& Store, TFindings& Findings) {
  const TRecordTable& Records = Store.Records();
  std::vector<uint32_t> Order;
  for (size_t i = 0; i < Records.size(); ++i) {
    if (BlockSize(Records[i]) > 0) Order.push_back(static_cast<uint32_t>(i));
  }
  std::sort(Order.begin(), Order.end(),
            [&](uint32_t A, uint32_t B) { return Records[A].BlobOffset < Records[B].BlobOffset; });
  int64_t End = 0;
  uint32_t Furthest = 0;
  for (const uint32_t i : Order) {
    if (Records[i].BlobOffset < End) {
      Findings.AddRecord(
          i, "its block shares bytes with that of record " + IntegerText(int64_t{Furthest} + 1));
    }
    const int64_t Next = Records[i].BlobOffset + BlockSize(Records[i]);
    if (Next > End) {
      End = Next;
      Furthest = i;
    }
  }
}

template <class TArray, class TKeyOfRecord>
void CheckIndex(const TArray& Entries, const char* Name, const TRecordTable& Records,
                TKeyOfRecord KeyOfRecord, TFindings& Findings) {
  TMarkSet Seen;
  size_t Wild = 0;
  size_t Twice = 0;
  size_t WrongKeys = 0;
  size_t Disorder = 0;
  for (size_t i = 0; i < Entries.size(); ++i) {
    if (i > 0 && KeyOf(Entries[i - 1]) > KeyOf(Entries[i])) ++Disorder;
    const auto Position = static_cast<size_t>(static_cast<uint32_t>(Entries[i].index));
    if (Position >= Records.size()) {
      ++Wild;
      continue;
    }
    if (Seen.Has(Position)) ++Twice;
    Seen.Mark(Position);
    const auto Key = KeyOfRecord(Records[Position]);
    const auto Found = KeyOf(Entries[i]);
    if (Found != Key && (Found == Found || Key == Key)) ++WrongKeys;
  }
  const auto Tell = [&](size_t Count, const char* Text) {
    if (Count == 0) return;
    Findings.Add(std::string("index of ") + Name + ": " + IntegerText(static_cast<int64_t>(Count)) +
                 Text);
  };
  Tell(Records.size() - Seen.Count(), " records have no entry");
  Tell(Wild, " entries are of records that do not exist");
  Tell(Twice, " entries are of records that have one already");
  Tell(WrongKeys, " entries have another key than their record");
  Tell(Disorder, " entries have a lower key than the one before");
}

void CheckIndexes(TGdbStore& Store, TFindings& Findings) {
  const TIndexSet& Indexes = Store.Indexes();
  const TRecordTable& Records = Store.Records();
  CheckIndex(
      Indexes.Ids, IndexNames[0], Records, [](const TgdbData& D) { return D.ItemId; }, Findings);
  for (size_t i = 0; i < TIndexSet::CoordCount; ++i) {
    CheckIndex(
        Indexes.Coords[i], IndexNames[i + 1], Records,
        [i](const TgdbData& D) { return static_cast<double>(CoordKey(D, i)); }, Findings);
  }
}

// Files whose length is no multiple of their records'.
void CheckLengths(const TGdbStore& Store, TFindings& Findings) {
  const auto Check = [&](const std::string& Path, size_t Size) {
    const int64_t Rest = StampOf(Path).Size % static_cast<int64_t>(Size);
    if (Rest > 0) {
      Findings.Add(Path + ": " + IntegerText(Rest) + " bytes follow the last whole record");
    }
  };
  Check(Store.Names().Records, sizeof(TgdbData));
  for (const std::string& Path : Store.Names().Index) Check(Path, sizeof(TIxLLRec));
}

}  // namespace

std::vector<std::string> CheckStore(TGdbStore& Store) {
  TFindings Findings;
  CheckLengths(Store, Findings);
  CheckHeader(Store, Findings);
  CheckRecords(Store, Findings);
  CheckOverlaps(Store, Findings);
  CheckIndexes(Store, Findings);
  return Findings.Take();
}

}  // namespace zav
