// db_find.cpp - zavgeo db find, get, delete.
// SPDX-License-Identifier: MIT
#include <platform/base/text_format.h>
#include <platform/base/utf8.h>

#include <algorithm>
#include <optional>
#include <unordered_set>

#include "common/item_reader.h"
#include "db_support.h"

namespace zav {

namespace {

struct TFindOptions {
  std::string Base, Box, Near, At, Name, Kind;
  bool Prefix = false;
  int32_t Count = 0;
};

// What was asked for, read before anything is opened.
struct TQuery {
  std::optional<TGeoRegion> Box;
  std::optional<TCoords> Near, At;
  std::optional<TgdbItem> Kind;
};

TQuery QueryOf(const TFindOptions& Options) {
  TQuery Query;
  if (!Options.Box.empty()) {
    const std::vector<double> Edges = NumbersOfOption("--box", Options.Box, 4);
    if (Edges[0] > Edges[2]) throw EUsageError("--box: south is above north");
    Query.Box = TGeoRegion{Edges[0], Edges[1], Edges[2], Edges[3]};
  }
  if (!Options.Near.empty()) Query.Near = PositionOfOption("--near", Options.Near);
  if (!Options.At.empty()) Query.At = PositionOfOption("--at", Options.At);
  if (!Options.Kind.empty()) Query.Kind = KindOfOption(Options.Kind);
  if (Options.Count < 0) throw EUsageError("--count is negative");
  return Query;
}

using TRecNos = std::vector<int32_t>;

// The items that are inside, at, named and of the kind asked for; by name where that was asked for,
// else by identifier.
class TFilter {
 public:
  TFilter(TGeoDB& DB, const TFindOptions& Options, const TQuery& Query) : FDB(DB), FQuery(Query) {
    if (Query.Box) Keep(DB.ItemsInRegion(*Query.Box));
    if (Query.At) Keep(DB.ItemsAt(Query.At->Latit, Query.At->Longit));
    if (!Options.Name.empty())
      Keep(
          DB.ItemsByName(Options.Name, Options.Prefix ? TNameMatch::nmPrefix : TNameMatch::nmPart));
    FByName = !Options.Name.empty();
  }

  bool Takes(int32_t RecNo) const {
    if (FQuery.Kind && FDB.GetSumdata(RecNo).ItemKind != *FQuery.Kind) return false;
    return !FFound || FSet.count(RecNo) > 0;
  }

  TRecNos All() const {
    TRecNos Found;
    if (FFound) {
      Found = *FFound;
    } else {
      for (int32_t RecNo = 1; RecNo <= FDB.NumEntries(); ++RecNo) Found.push_back(RecNo);
    }
    std::erase_if(Found, [this](int32_t RecNo) { return !Takes(RecNo); });
    if (!FByName)
      std::sort(Found.begin(), Found.end(), [this](int32_t A, int32_t B) {
        return FDB.GetSumdata(A).ItemId < FDB.GetSumdata(B).ItemId;
      });
    return Found;
  }

 private:
  void Keep(TRecNos Found) {
    if (FFound) std::erase_if(Found, [this](int32_t RecNo) { return FSet.count(RecNo) == 0; });
    FSet = {Found.begin(), Found.end()};
    FFound = std::move(Found);
  }

  TGeoDB& FDB;
  const TQuery& FQuery;
  std::optional<TRecNos> FFound;  // by all but the kind; none asked for: all
  std::unordered_set<int32_t> FSet;
  bool FByName = false;
};

// The nearest items that the filter takes.
std::vector<TNearItem> Nearest(TGeoDB& DB, const TCoords& Near, const TFilter& Filter,
                               size_t Count) {
  const auto Total = static_cast<size_t>(DB.NumEntries());
  for (size_t Asked = std::max<size_t>(Count, 64);; Asked *= 4) {
    std::vector<TNearItem> Found = DB.NearestItems(Near.Latit, Near.Longit, std::min(Asked, Total));
    std::erase_if(Found, [&](const TNearItem& Item) { return !Filter.Takes(Item.Id); });
    if (Found.size() > Count) Found.resize(Count);
    if (Found.size() == Count || Asked >= Total) return Found;
  }
}

int Find(const TFindOptions& Options) {
  const TQuery Query = QueryOf(Options);
  TGeoDB DB;
  OpenDatabase(DB, Options.Base, TDbAccess::Read);
  const TFilter Filter(DB, Options, Query);
  TRow Header;
  AddItemHeader(Header);
  if (Query.Near) Header << "distance_m";
  Print(Header);
  const auto Count = static_cast<size_t>(Options.Count);
  if (Query.Near) {
    for (const TNearItem& Item : Nearest(DB, *Query.Near, Filter, Count == 0 ? 10 : Count)) {
      TRow Row;
      AddItem(Row, DB.GetSumdata(Item.Id));
      Row << Item.Distance;
      Print(Row);
    }
    return 0;
  }
  TRecNos Found = Filter.All();
  if (Count != 0 && Found.size() > Count) Found.resize(Count);
  for (const int32_t RecNo : Found) {
    TRow Row;
    AddItem(Row, DB.GetSumdata(RecNo));
    Print(Row);
  }
  return 0;
}

struct TItemOptions {
  std::string Base;
  int32_t ItemId = 0;
};

void PrintMetaInfo(const TMetaInfo& Info) {
  PrintProperty("keywords", DisplayText(Info.Keywords.View()));
  PrintProperty("caption", DisplayText(Info.Caption.View()));
  PrintProperty("file_path", DisplayText(Info.FilePath.View()));
  PrintProperty("descriptor", DisplayText(Info.Descriptor.View()));
  PrintProperty("comment", DisplayText(Info.Comment.View()));
}

int Get(const TItemOptions& Options) {
  TGeoDB DB;
  OpenDatabase(DB, Options.Base, TDbAccess::Read);
  const int32_t RecNo = RecordOf(DB, Options.ItemId);
  const TgdbData Data = DB.GetSumdata(RecNo);
  PrintProperty("property", "value");
  PrintProperty("id", Data.ItemId);
  PrintProperty("name", DisplayText(Data.Name.View()));
  PrintProperty("kind", ItemKindName(Data.ItemKind));
  PrintProperty("lat_low", SingleText(Data.LatLow));
  PrintProperty("lat_high", SingleText(Data.LatHigh));
  PrintProperty("long_low", SingleText(Data.LongLow));
  PrintProperty("long_high", SingleText(Data.LongHigh));
  PrintProperty("class", static_cast<int>(Data.ClassFlag));
  PrintProperty("altitude", SingleText(Data.Altitude));
  PrintProperty("tag", Data.Tag);
  PrintProperty("state", Data.StateFlag);
  PrintProperty("date", DateText(Data.Date));
  TgdbPolygon Polygon;
  if (DB.RetrievePolygon(RecNo, Polygon)) {
    PrintProperty("closed", ClosedText(Data));
    PrintProperty("points", PointsText(Polygon));
  }
  TMetaInfo Info;
  if (DB.GetMetaInfo(RecNo, Info)) {
    PrintProperty("size", Data.Size());
    PrintMetaInfo(Info);
  }
  return 0;
}

struct TDeleteOptions {
  std::string Base;
  std::vector<int32_t> ItemIds;
};

int Delete(const TDeleteOptions& Options) {
  TGeoDB DB;
  OpenDatabase(DB, Options.Base, TDbAccess::Change);
  TGeoDBUpdate Update(DB);
  for (const int32_t ItemId : Options.ItemIds) DB.DeleteData(RecordOf(DB, ItemId));
  Update.Commit();
  DB.SetGDBName("");
  return 0;
}

}  // namespace

void AddDbFindCommands(TProgram& Program, CLI::App& Db) {
  const auto [Search, Options] =
      AddDbCommand(Program, Db, "find", "Prints the items that meet all conditions", Find);
  Search->add_option("--box", Options->Box,
                     "SOUTH,WEST,NORTH,EAST that the item's box meets; across 180 degrees where "
                     "west is above east");
  Search->add_option("--at", Options->At, "LAT,LONG that the item contains");
  Search->add_option("--name", Options->Name, "a part of the name; case and accents do not count");
  Search->add_flag("--prefix", Options->Prefix, "the name begins with the text");
  Search->add_option("--kind", Options->Kind, "kind of the item");
  Search->add_option("--near", Options->Near,
                     "LAT,LONG: the nearest items, by their lines and points");
  Search->add_option("--count", Options->Count, "at most so many items; 10 with --near");
  const auto [Item, ItemOptions] = AddDbCommand(Program, Db, "get", "Tells all of an item", Get);
  Item->add_option("ITEMID", ItemOptions->ItemId, "identifier of the item")->required();
  const auto [Gone, GoneOptions] =
      AddDbCommand(Program, Db, "delete", "Deletes items, all of them or none", Delete);
  Gone->add_option("ITEMID", GoneOptions->ItemIds, "identifiers of the items")->required();
}

}  // namespace zav
