// db_fixture.h - what the tests of the database share: files as they are, short calls, invariants.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_GEODB_DB_FIXTURE_H
#define ZAV_TESTS_GEODB_DB_FIXTURE_H

#include <geodb/geodb.h>
#include <gtest/gtest.h>
#include <platform/base/read_file.h>
#include <support/temp_folder.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace zav::test {

inline const std::vector<std::string> Extensions = {".zavgds", ".zavgdd", ".zavgi0", ".zavgi1",
                                                    ".zavgi2", ".zavgi3", ".zavgi4"};

// The bytes of the seven files by extension.
inline std::map<std::string, std::vector<uint8_t>> FilesOf(const std::string& Base) {
  std::map<std::string, std::vector<uint8_t>> Files;
  for (const std::string& Extension : Extensions) {
    Files[Extension] = ReadWholeFile(Base + Extension);
  }
  return Files;
}

inline int32_t AddTown(TGeoDB& DB, const std::string& Name, float Lat, float Long) {
  return DB.AddTown(Name, 36526, 0, {Lat, Long}, 0, 0, 0);
}
inline int32_t AddLake(TGeoDB& DB, const std::string& Name, const TgdbPolygon& Points) {
  return DB.AddLake(Name, Points, 36526, 0, 0, 0, 0, 0, 0, 0, 0);
}

// What records, indexes and files must agree on after every complete operation. Empty when they do.
inline std::string Disagreement(TGeoDB& DB) {
  for (const std::string& Line : DB.Check()) return Line;
  const std::string Base = DB.GetGDBName();
  const int32_t Count = DB.NumEntries();
  const auto Records = ReadWholeFile(Base + ".zavgds");
  if (Records.size() != static_cast<size_t>(Count) * 120) return "length of the record file";
  for (int32_t i = 0; i < Count; ++i) {
    const TgdbData Data = DB.GetSumdata(i + 1);
    const auto Bytes = std::bit_cast<std::array<uint8_t, 120>>(Data);
    if (!std::equal(Bytes.begin(), Bytes.end(), Records.begin() + std::ptrdiff_t{i} * 120))
      return "a record";
    if (DB.SearchForItemID(Data.ItemId) != i + 1) return "SearchForItemID";
  }
  if (DB.LazyWrite()) return "";
  const auto Entry = [&](int32_t Which, int32_t Place) {
    if (Which == 0) {
      const TIxItemIDRec Rec = DB.GetIxItemID(Place);
      return std::pair(static_cast<double>(Rec.ItemID), Rec.index);
    }
    const TIxLLRec Rec = Which == 1   ? DB.GetIxLatLow(Place)
                         : Which == 2 ? DB.GetIxLatHigh(Place)
                         : Which == 3 ? DB.GetIxLongLow(Place)
                                      : DB.GetIxLongHigh(Place);
    return std::pair(static_cast<double>(Rec.LLValue), Rec.index);
  };
  for (int32_t Which = 0; Which < 5; ++Which) {
    const auto Bytes = ReadWholeFile(Base + ".zavgi" + std::to_string(Which));
    if (Bytes.size() != static_cast<size_t>(Count) * 8) return "length of an index file";
    for (int32_t i = 0; i < Count; ++i) {
      float Value = 0;
      int32_t Id = 0;
      int32_t Index = 0;
      std::memcpy(&Value, &Bytes[static_cast<size_t>(i) * 8], 4);
      std::memcpy(&Id, &Bytes[static_cast<size_t>(i) * 8], 4);
      std::memcpy(&Index, &Bytes[static_cast<size_t>(i) * 8 + 4], 4);
      const double Key = Which == 0 ? Id : static_cast<double>(Value);
      if (Entry(Which, i + 1) != std::pair(Key, Index + 1)) return "an index file";
    }
  }
  return "";
}

}  // namespace zav::test

#endif
