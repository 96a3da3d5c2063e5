// repair.cpp - see check.h. Mending what can be mended.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <geodb/check.h>
#include <geodb/geo_db.h>
#include <geodb/record_faults.h>
#include <platform/base/atomic_file.h>
#include <platform/base/errors.h>
#include <platform/base/paths.h>
#include <platform/base/text_format.h>

namespace zav {
namespace {

using TLines = std::vector<std::string>;

std::string RecordLine(size_t Position, const char* Deed) {
  return "record " + IntegerText(static_cast<int64_t>(Position) + 1) + ": " + Deed;
}

// Whether any index file disagrees with the records, or has a broken entry at its end.
bool IndexesAreWrong(TGdbStore& Store) {
  const TIndexSet& Indexes = Store.Indexes();
  for (size_t i = 0; i < IndexCount; ++i) {
    if (!Indexes.IsRight(i, Store.Records())) return true;
    if (StampOf(Store.Names().Index[i]).Size % int64_t{sizeof(TIxLLRec)} != 0) return true;
  }
  return false;
}

TRecordTable MendRecords(TGdbStore& Store, int32_t& HighestID, TLines& Deeds) {
  TRecordTable Records = Store.Records();
  for (const TgdbData& Data : Records) HighestID = std::max(HighestID, Data.ItemId);
  for (size_t i = 0; i < Records.size(); ++i) {
    // Mending one fault may bring another to light.
    for (int Round = 0; Round < 3; ++Round) {
      for (const TRecordFault Fault : FaultsOf(Store, Records[i])) {
        if (Mend(Store, Fault, Records[i], HighestID)) {
          Deeds.push_back(RecordLine(i, DeedText(Fault)));
        }
      }
    }
  }
  for (const auto& [First, Second] : SameIds(Records)) {
    if (HighestID == INT32_MAX) break;
    Records[Second].ItemId = ++HighestID;
    Deeds.push_back(RecordLine(Second, DeedText(TRecordFault::BadId)));
  }
  return Records;
}

TgdbSystemData MendHeader(const TgdbSystemData& Old, int32_t HighestID, TLines& Deeds) {
  TgdbSystemData Header = Old;
  if (Header.HighestID != HighestID) {
    Header.HighestID = HighestID;
    Deeds.push_back("header: HighestID set to " + IntegerText(HighestID));
  }
  if (Header.DBVersion != TgdbSystemData().DBVersion) {
    Header.DBVersion = TgdbSystemData().DBVersion;
    Deeds.push_back("header: DBVersion set to 4");
  }
  if (Header.Description.Length > Header.Description.Capacity) {
    Header.Description = TShortString<60>(Header.Description.View());
    Deeds.push_back("header: description cut to 60 bytes");
  }
  return Header;
}

// What would keep the files from being opened: a damaged journal, a data file without header.
TLines MakeOpenable(const TFileNames& Names) {
  TLines Deeds;
  try {
    const TFoundJournal Journal(Names.Journal);
  } catch (const EInOutError& Error) {
    if (const int Failed = FileOps().Remove(Names.Journal); Failed != 0) {
      throw EInOutError(Names.Journal, SystemReason(Failed));
    }
    Deeds.push_back("journal removed: " + Error.Reason());
  }
  const int64_t Size = StampOf(Names.Data).Size;
  if (Size >= int64_t{sizeof(TgdbSystemData)}) return Deeds;
  const TgdbSystemData Header;
  std::string Bytes(reinterpret_cast<const char*>(&Header), sizeof(Header));
  WriteWholeFile(Names.Data, Bytes);
  Deeds.push_back(Size < 0 ? "data file made anew: point lists and BLOBs are lost"
                           : "header of the data file made anew");
  return Deeds;
}

}  // namespace

std::vector<std::string> RepairStore(TGdbStore& Store) {
  TLines Deeds;
  int32_t HighestID = std::max(Store.Header().HighestID, 0);
  const bool Rest = StampOf(Store.Names().Records).Size % int64_t{sizeof(TgdbData)} > 0;
  if (Rest) Deeds.push_back("incomplete last record removed");
  const TRecordTable Records = MendRecords(Store, HighestID, Deeds);
  const TgdbSystemData Header = MendHeader(Store.Header(), HighestID, Deeds);
  const bool WrongIndexes = IndexesAreWrong(Store);
  if (Deeds.empty() && !WrongIndexes) return Deeds;
  Store.PutAll(Records, Header);
  if (WrongIndexes) Deeds.push_back("indexes made anew");
  return Deeds;
}

std::vector<std::string> RepairGeoDB(const std::string& Name) {
  const std::string Base = StripExtension(Name);
  const TFileNames Names(Base);
  if (StampOf(Names.Records).Size < 0 && StampOf(Names.Data).Size < 0) {
    throw EInOutError(Names.Records, "there is no such database");
  }
  TLines Deeds = MakeOpenable(Names);
  TGdbStore Store;
  Store.Open(Base, false);
  const TLines More = RepairStore(Store);
  Deeds.insert(Deeds.end(), More.begin(), More.end());
  Store.Close(true);
  return Deeds;
}

std::vector<std::string> CheckGeoDB(const std::string& Name) {
  const std::string Base = StripExtension(Name);
  const TFileNames Names(Base);
  if (StampOf(Names.Records).Size < 0 && StampOf(Names.Data).Size < 0) {
    throw EInOutError(Names.Records, "there is no such database");
  }
  TGdbStore Store;
  try {
    Store.Open(Base, true);
  } catch (const EZAVError& Error) {
    return {std::string("cannot be opened: ") + Error.what()};
  }
  TLines Findings = CheckStore(Store);
  if (StampOf(Names.Journal).Size >= 0) {
    Findings.insert(Findings.begin(),
                    "a change was cut short; it is undone when the database is "
                    "next opened");
  }
  return Findings;
}

}  // namespace zav
