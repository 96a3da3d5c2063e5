// item_args.h - what AddData and ReplaceData are given.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_ITEM_ARGS_H
#define ZAV_GEODB_ITEM_ARGS_H

#include <string>

#include <geodb/db_file.h>
#include <geodb/geo_db.h>

namespace zav {

struct TGeoDB::TItemArgs {
  const TgdbName& Name;
  const TgdbPolygon& Polygon;
  bool Closed;
  TgdbItem ItemKind;
  uint8_t ClassFlag;
  TDateTime Date;
  int32_t StateFlag;
  TGeoBox Box;
  float Altitude;
  int32_t Tag;
  const TMetaInfo& MetaInfo;
  const void* Data;
  int32_t DataSize;
  bool FromFile;
  std::string SourcePath;  // whole, where MetaInfo has room for 127 bytes
};

// The block that an item will have, and the file that its payload comes from.
struct TGeoDB::TSourceFile {
  TDbFile File;
  int64_t Size = 0;
};

}  // namespace zav

#endif
