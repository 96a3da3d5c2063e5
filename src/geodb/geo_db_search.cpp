// geo_db_search.cpp - see geo_db.h. Finding items.
// SPDX-License-Identifier: MIT
#include <algorithm>

#include <geodb/gdb_search.h>
#include <geodb/geo_db.h>
#include <geodb/search/line_distance.h>
#include <geodb/search/ring_test.h>
#include <geodb/store.h>
#include <platform/base/text.h>

namespace zav {

int32_t TGeoDB::SearchData(const TgdbName& Name) const {
  const TRecordTable& Records = FStore->Records();
  for (size_t i = 0; i < Records.size(); ++i) {
    if (SameText(Records[i].Name.View(), Name.View())) return static_cast<int32_t>(i) + 1;
  }
  return 0;
}

int32_t TGeoDB::SearchData(const TgdbName& Name, TgdbItem ItemKind, int32_t StartRecNo,
                           uint8_t ClassFlag) const {
  const TRecordTable& Records = FStore->Records();
  for (auto i = static_cast<size_t>(std::max(StartRecNo, 1) - 1); i < Records.size(); ++i) {
    const TgdbData& Data = Records[i];
    if (Data.ItemKind == ItemKind && Data.ClassFlag == ClassFlag &&
        SameText(Data.Name.View(), Name.View())) {
      return static_cast<int32_t>(i) + 1;
    }
  }
  return 0;
}

std::vector<int32_t> TGeoDB::ItemsInRegion(const TGeoRegion& Region) {
  std::vector<int32_t> RecNos;
  ItemsInRegion(Region, RecNos);
  return RecNos;
}

void TGeoDB::ItemsInRegion(const TGeoRegion& Region, std::vector<int32_t>& RecNos) {
  RecNos.clear();
  FSearch->Boxes(FStore->Records()).VisitMeeting(Region, [&](int32_t Position) {
    RecNos.push_back(Position + 1);
    return true;
  });
}

std::vector<TNearItem> TGeoDB::NearestItems(double Latit, double Longit, size_t Count) {
  TgdbPolygon Points;
  const auto DistanceOf = [&](int32_t Position, double BoxDistance) {
    const TgdbData& Data = FStore->Records()[static_cast<size_t>(Position)];
    if (!HasPointList(Data.ItemKind) || !ReadPoints(Data, Points) || Points.empty()) {
      return BoxDistance;
    }
    const bool Closed = Data.Closed != 0;
    if (Closed && RingContains(Points, Latit, Longit)) return BoxDistance;
    return std::max(BoxDistance, DistanceToLine(Points, Closed, Latit, Longit));
  };
  std::vector<TNearItem> Items =
      FSearch->Boxes(FStore->Records()).Nearest(Latit, Longit, Count, DistanceOf);
  for (TNearItem& Item : Items) ++Item.Id;
  return Items;
}

std::vector<int32_t> TGeoDB::ItemsAt(double Latit, double Longit) {
  std::vector<int32_t> RecNos;
  TgdbPolygon Points;
  FSearch->Boxes(FStore->Records()).VisitAround(Latit, Longit, [&](int32_t Position) {
    const TgdbData& Data = FStore->Records()[static_cast<size_t>(Position)];
    const bool Contains =
        HasPointList(Data.ItemKind)
            ? Data.Closed != 0 && ReadPoints(Data, Points) && RingContains(Points, Latit, Longit)
            : BoxContains(BoxOf(Data), Latit, Longit);
    if (Contains) RecNos.push_back(Position + 1);
    return true;
  });
  std::sort(RecNos.begin(), RecNos.end());
  return RecNos;
}

std::vector<int32_t> TGeoDB::ItemsByName(const std::string& Text, TNameMatch Match, size_t Limit) {
  std::vector<int32_t> RecNos = FSearch->Names(FStore->Records()).Find(Text, Match, Limit);
  for (int32_t& RecNo : RecNos) ++RecNo;
  return RecNos;
}

}  // namespace zav
