// any_files_check.h - any bytes as the files of a database: what must hold whatever they are. Used
// by the fuzz target and, with its seeds, by a test.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_GEODB_ANY_FILES_CHECK_H
#define ZAV_TESTS_GEODB_ANY_FILES_CHECK_H

#include <geodb/geodb.h>
#include <platform/base/atomic_file.h>
#include <platform/base/read_file.h>
#include <support/temp_folder.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "dying_file_ops.h"

namespace zav::test {

// The bytes are eight files, each after its length in two bytes; the last one is the journal, which
// is left out when it is empty.
inline void WriteAnyFiles(const std::string& Base, const uint8_t* Data, size_t Size) {
  for (const char* Extension :
       {".zavgds", ".zavgdd", ".zavgi0", ".zavgi1", ".zavgi2", ".zavgi3", ".zavgi4", ".zavgjn"}) {
    size_t Length = 0;
    if (Size >= 2) {
      Length = std::min<size_t>(Data[0] | static_cast<size_t>(Data[1]) << 8, Size - 2);
      Data += 2;
      Size -= 2;
    }
    if (Length > 0 || std::string_view(Extension) != ".zavgjn") {
      WriteWholeFile(Base + Extension,
                     std::string_view(reinterpret_cast<const char*>(Data), Length));
    }
    Data += Length;
    Size -= Length;
  }
}

// The same the other way, to make seeds of a good set.
inline std::string PackFiles(const std::string& Base, bool WithJournal) {
  std::string Bytes;
  for (const char* Extension :
       {".zavgds", ".zavgdd", ".zavgi0", ".zavgi1", ".zavgi2", ".zavgi3", ".zavgi4", ".zavgjn"}) {
    if (!WithJournal && std::string_view(Extension) == ".zavgjn") break;
    const std::string File = ReadWholeTextFile(Base + Extension);
    Bytes += static_cast<char>(File.size() & 0xFF);
    Bytes += static_cast<char>(File.size() >> 8 & 0xFF);
    Bytes += File;
  }
  return Bytes;
}

inline void UseAnyDatabase(TGeoDB& DB) {
  const int32_t Count = DB.NumEntries();
  for (int32_t i = -1; i <= std::min(Count + 1, 40); ++i) {
    TgdbPolygon Points;
    TMetaInfo Info;
    TMemoryStream Stream;
    try {
      DB.RetrievePolygon(i, Points);
      DB.RetrieveBLOB(i, Info, &Stream);
      DB.GetMetaInfo(i, Info);
    } catch (const EInOutError&) {
    }
    DB.SearchForItemID(DB.GetIxItemID(i).ItemID);
    DB.GetClosestLatLowIx(static_cast<double>(DB.GetIxLatLow(i).LLValue));
    DB.GetClosestLongHighIx(static_cast<double>(DB.GetIxLongHigh(i).LLValue));
    DB.SearchData(DB.GetSumdata(i).Name);
  }
  DB.ItemsInRegion({-90, -200, 90, 100});
  DB.NearestItems(1, 2, 3);
  DB.ItemsByName("a", TNameMatch::nmPart);
  try {
    DB.ItemsAt(1, 2);
  } catch (const EInOutError&) {
  }
  DB.Check();
}

inline void ChangeAnyDatabase(TGeoDB& DB) {
  DB.AddLake("l", {{1, 2}, {3, 4}}, 0, 0, 0, 0, 0, 0, 0, 0, 0);
  DB.DeleteData(1);
  DB.ReplaceTown(1, "t", 0, 0, {3, 4}, 0, 0, 0);
  {
    TGeoDBUpdate Update(DB);
    DB.AddTown("t", 0, 0, {3, 4}, 0, 0, 0);
    DB.DeleteData(2);
    DB.ReplaceTown(1, "u", 0, 0, {5, 4}, 0, 0, 0);
    DB.SearchForItemID(3);
    Update.Commit();
  }
  DB.SetLazyWrite(true);
  DB.DeleteData(DB.NumEntries());
  DB.SetLazyWrite(false);
  try {
    DB.GarbageCollection();
  } catch (const EZAVGeoDBError&) {
  }
}

// Empty when all is well: nothing but the library's own errors is thrown, and a repaired set has no
// faults but those that cannot be mended.
inline std::string CheckAnyFiles(const uint8_t* Data, size_t Size) {
  const TTempFolder Folder;
  TDyingFileOps Ops;  // does not wait for the disk
  const TFileOpsOverride With(Ops);
  const std::string Base = Folder / "db";
  WriteAnyFiles(Base, Data, Size);
  CheckGeoDB(Base);
  for (const bool ReadOnly : {true, false}) {
    TGeoDB DB;
    DB.SetReadOnly(ReadOnly);
    try {
      DB.SetGDBName(Base);
      UseAnyDatabase(DB);
      if (!ReadOnly) ChangeAnyDatabase(DB);
      if (!ReadOnly) UseAnyDatabase(DB);
    } catch (const EZAVError&) {
    }
  }
  RepairGeoDB(Base);
  for (const std::string& Line : CheckGeoDB(Base)) {
    const bool Unmendable = Line.find("shares bytes") != std::string::npos ||
                            Line.find("is no number") != std::string::npos ||
                            Line.find("identifier") != std::string::npos;  // when all are used
    if (!Unmendable) return "after a repair: " + Line + "\n";
  }
  return "";
}

}  // namespace zav::test

#endif
