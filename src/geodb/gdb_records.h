/// @file
/// gdb_records.h - the records of a geographic database, as they stand in its files.
///
/// docs/formats/database.md describes the files. All numbers are little-endian and every record is
/// copied as a whole, so the layout below must not change; it is checked when it is compiled.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_GDB_RECORDS_H
#define ZAV_GEODB_GDB_RECORDS_H

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>
#include <vector>

#include <geodb/raw_array.h>
#include <platform/base/api.h>
#include <platform/base/date_time.h>
#include <platform/base/degrees.h>
#include <platform/base/errors.h>
#include <platform/base/short_string.h>

namespace zav {

/// The errors of this unit. The text begins: Component "NAME": OPERATION:
class ZAVGEO_API EZAVGeoDBError : public EZAVError {
 public:
  using EZAVError::EZAVError;
};

/// Kinds of items. A record of a damaged file may hold any other number: it is treated as
/// gitUndefined.
enum class TgdbItem : uint8_t {
  gitBorder = 0,    ///< point list, closed or open
  gitTown = 1,      ///< one position, no point list
  gitCity = 2,      ///< point list, closed or open
  gitLake = 3,      ///< point list, closed
  gitRiver = 4,     ///< point list, open
  gitRoad = 5,      ///< point list, open
  gitRoute = 6,     ///< point list, open
  gitBLOB = 7,      ///< bytes with meta information
  gitUndefined = 8  ///< none of these
};

/// Names of the kinds, indexed by TgdbItem.
inline constexpr std::array<std::string_view, 9> GDB_ITEMNAMES = {
    "Border", "Town", "City", "Lake", "River", "Road", "Route", "BLOB", "Undefined"};

/// The name of a kind; that of gitUndefined for a number that is none.
ZAVGEO_API std::string_view ItemKindName(TgdbItem ItemKind) noexcept;

/// Whether items of this kind have a point list, or any block in the data file.
ZAVGEO_API bool HasPointList(TgdbItem ItemKind) noexcept;
/// Whether items of this kind have a block in the data file.
inline bool HasBlock(TgdbItem ItemKind) noexcept {
  return HasPointList(ItemKind) || ItemKind == TgdbItem::gitBLOB;
}

/// The fields of TMetaInfo.
enum class TMetaItem : uint8_t {
  miKwd = 0,         ///< keywords
  miCaption = 1,     ///< a title
  miFilePath = 2,    ///< where the payload came from
  miDescriptor = 3,  ///< what the payload is
  miComment = 4      ///< anything
};

/// The name of an item.
using TgdbName = TShortString<59>;

/// A point: degrees, north and east positive.
struct TSCoords {
  float Latit = 0;   ///< latitude
  float Longit = 0;  ///< longitude
  friend bool operator==(const TSCoords&, const TSCoords&) = default;
};
/// A point list.
using TgdbPolygon = std::vector<TSCoords>;

/// A position with a height; for programs, no operation takes it.
struct TPositionData {
  double Latit = 0;   ///< degrees
  double Longit = 0;  ///< degrees
  double Height = 0;  ///< metres
};

/// An item. Bytes named Unused are 0 in records that are written here and may be anything in
/// others; they are not compared.
struct TgdbData {
  int32_t ItemId = 0;                   ///< never given to another item
  TgdbName Name;                        ///< filled up with blanks in records written here
  float Altitude = 0;                   ///< metres
  uint8_t ClassFlag = 0;                ///< the user's class, 0..255
  std::array<uint8_t, 3> Unused1 = {};  ///< not used
  int32_t Tag = 0;                      ///< the user's
  int32_t BlobOffset = -1;              ///< of its block in the data file, -1 for none
  TDateTime Date = 0;                   ///< when the item was made or changed, as the program says
  int32_t StateFlag = 0;                ///< the user's
  float LatLow = 0;                     ///< the box around the item, in degrees
  float LatHigh = 0;                    ///< northern edge
  float LongLow = 0;                    ///< western edge
  float LongHigh = 0;                   ///< eastern edge
  TgdbItem ItemKind = TgdbItem::gitUndefined;  ///< what it is
  std::array<uint8_t, 3> Unused2 = {};         ///< not used
  int32_t NumPoints = 0;  ///< of the point list; the bytes of its payload for a BLOB: see Size
  uint8_t Closed = 0;     ///< whether the point list is a closed polygon: 1 or 0
  std::array<uint8_t, 3> Unused3 = {};  ///< not used

  /// NumPoints under its other name.
  int32_t Size() const noexcept { return NumPoints; }
  /// Whether all fields are the same, NaN not being the same as itself.
  friend bool operator==(const TgdbData& A, const TgdbData& B) noexcept;
};

/// What stands before the payload of a BLOB.
struct TMetaInfo {
  TShortString<255> Keywords;    ///< for searches by programs
  TShortString<127> Caption;     ///< a title
  TShortString<127> FilePath;    ///< the file that the payload was taken from
  TShortString<255> Descriptor;  ///< what the payload is
  TShortString<255> Comment;     ///< anything
  friend bool operator==(const TMetaInfo&, const TMetaInfo&) = default;
};

/// The header of the data file.
struct TgdbSystemData {
  int32_t HighestID = 0;                   ///< the highest identifier that was ever given
  int32_t DBVersion = 4;                   ///< of the file format
  TShortString<60> Description;            ///< of the database
  std::array<uint8_t, 3> Unused1 = {};     ///< not used
  int32_t Revision = 0;                    ///< the user's
  std::array<uint8_t, 184> Reserved = {};  ///< not used
  friend bool operator==(const TgdbSystemData& A, const TgdbSystemData& B) noexcept;
};

/// Entries of the sorted indexes: a key and the position of its record, counted from 0 in files and
/// arrays and from 1 where TGeoDB gives one out.
struct TIxLLRec {
  float LLValue = 0;  ///< the key, degrees
  int32_t index = 0;  ///< of the record
  friend bool operator==(const TIxLLRec&, const TIxLLRec&) = default;
};
/// The same for identifiers.
struct TIxItemIDRec {
  int32_t ItemID = 0;  ///< the key
  int32_t index = 0;   ///< of the record
  friend bool operator==(const TIxItemIDRec&, const TIxItemIDRec&) = default;
};
/// An index of degrees.
using TIxLLRecArray = TRawArray<TIxLLRec>;
/// The index of identifiers.
using TIxItemIDRecArray = TRawArray<TIxItemIDRec>;

static_assert(std::endian::native == std::endian::little,
              "files are little-endian and records are copied as they stand");
static_assert(sizeof(TSCoords) == 8 && sizeof(TIxLLRec) == 8 && sizeof(TIxItemIDRec) == 8);
static_assert(sizeof(TgdbData) == 120 && offsetof(TgdbData, Name) == 4 &&
              offsetof(TgdbData, Altitude) == 64 && offsetof(TgdbData, ClassFlag) == 68 &&
              offsetof(TgdbData, Tag) == 72 && offsetof(TgdbData, BlobOffset) == 76 &&
              offsetof(TgdbData, Date) == 80 && offsetof(TgdbData, StateFlag) == 88 &&
              offsetof(TgdbData, LatLow) == 92 && offsetof(TgdbData, LongHigh) == 104 &&
              offsetof(TgdbData, ItemKind) == 108 && offsetof(TgdbData, NumPoints) == 112 &&
              offsetof(TgdbData, Closed) == 116);
static_assert(sizeof(TMetaInfo) == 1024 && offsetof(TMetaInfo, Caption) == 256 &&
              offsetof(TMetaInfo, FilePath) == 384 && offsetof(TMetaInfo, Descriptor) == 512 &&
              offsetof(TMetaInfo, Comment) == 768);
static_assert(sizeof(TgdbSystemData) == 260 && offsetof(TgdbSystemData, Description) == 8 &&
              offsetof(TgdbSystemData, Revision) == 72 && offsetof(TgdbSystemData, Reserved) == 76);

/// Bytes that the block of an item takes in the data file; 0 for none and for senseless numbers.
ZAVGEO_API int64_t BlockSize(const TgdbData& Data) noexcept;

/// The south-western corner of the item's box: the position of a town.
ZAVGEO_API TSCoords ExtractLocation(const TgdbData& Data) noexcept;

/// Makes a record of no kind, without name and block, of this moment. NumPoints stays as it was.
ZAVGEO_API void ClearGdbData(TgdbData& Data);

/// Empties the five texts.
ZAVGEO_API void ClearMetaInfo(TMetaInfo& Info) noexcept;

/// An angle as text: kept within -90 to 90 or -180 to 180 degrees, then as DegreeToStr writes its
/// size, then " N" or " S", " E" or " W"; 0 is north and east.
ZAVGEO_API std::string GeoLatitude(double Value, TDegreeFormat Format, int32_t Decimals);
/// The same for a longitude.
ZAVGEO_API std::string GeoLongitude(double Value, TDegreeFormat Format, int32_t Decimals);

/// A moment in local time, to the second.
ZAVGEO_API TDateTime LocalTime(std::time_t Moment);
/// This moment in local time, to the second.
ZAVGEO_API TDateTime LocalNow();

}  // namespace zav

#endif
