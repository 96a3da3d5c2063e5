/// @file
/// geo_db.h - the geographic database.
///
/// A database is a set of seven files with one base name (docs/formats/database.md): records of 120
/// bytes, a data file with point lists and BLOBs, and five sorted indexes. The records and indexes
/// are held in memory while it is open; point lists and BLOBs are read when they are asked for.
///
/// Items have an identifier, which is never used again, and a record number from 1 to NumEntries,
/// which may change when another item is deleted. Latitudes and longitudes are in degrees, north
/// and east positive.
///
/// Safety. Every operation that changes something, and every group of them between BeginUpdate and
/// EndUpdate, is done wholly or not at all, whenever the process is killed or a write fails; a
/// journal (base + ".zavgjn") is there while a change is under way, and while lazy indexes are
/// unwritten. What was complete before a clean close, an EndUpdate or a Flush also outlives a loss
/// of power. An operation that throws has changed nothing but, perhaps, the highest identifier.
///
/// Errors. EZAVGeoDBError as the operations say; EInOutError when a file cannot be read or written.
/// With no database open, operations do nothing and return -1, 0, false or an empty result. Record
/// numbers out of range are ignored or clamped, as each operation says.
///
/// Several programs. The first change takes an advisory lock, held until the database is closed; a
/// second writer gets an EZAVGeoDBError, and so does a writer when another program has changed the
/// files since they were opened here. Opening waits for a change that is under way. One database
/// object belongs to one thread at a time. Handlers of OnPercentDone may ask, but not change or
/// destroy the database.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_GEO_DB_H
#define ZAV_GEODB_GEO_DB_H

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <geodb/gdb_records.h>
#include <geodb/search/box_tree.h>
#include <geodb/search/geo_box.h>
#include <geodb/search/name_index.h>
#include <platform/base/api.h>
#include <platform/base/stream.h>
#include <platform/host/component.h>

namespace zav {

class TGdbStore;
class TGdbSearch;
class TGdbChange;

/// A database, or none while none is open.
class ZAVGEO_API TGeoDB : public TComponent {
 public:
  /// Handler that is told how far an operation is.
  using TOnPercentDoneEvent = std::function<void(TGeoDB* Sender, int32_t Percent)>;

  /// No database is open.
  explicit TGeoDB(TComponent* Owner = nullptr);
  /// Closes as SetGDBName("") does, but throws nothing: what cannot be written is made good when
  /// the database is next opened. An update that was not ended is rolled back.
  ~TGeoDB() override;

  /// @name Opening and closing
  /// @{

  /// Opens the database with this path, whatever its extension; makes files that do not exist. What
  /// a killed process left undone is put right first. An empty name closes: lazy indexes are
  /// written, LazyWrite becomes false, and everything is on the disk. A name given while a database
  /// is open leaves that one without writing its lazy indexes (its journal says so) and leaves
  /// LazyWrite as it is. The files are taken as they are; see Check. Throws EInOutError, also for a
  /// data file of fewer than 260 bytes; EZAVGeoDBError within an update, and when another program
  /// changes the database for more than ten seconds.
  void SetGDBName(const std::string& Name);
  /// The path without extension; empty when none is open.
  std::string GetGDBName() const;
  /// Whether a database is open.
  bool IsOpen() const noexcept;

  /// Databases are opened for reading only: nothing is made or written, files may lie on read-only
  /// media, and a journal that was left is applied in memory. Changes throw EZAVGeoDBError. Counts
  /// from the next SetGDBName on. Default false.
  bool ReadOnly() const noexcept { return FReadOnly; }
  /// Counts from the next SetGDBName on.
  void SetReadOnly(bool ReadOnly) noexcept { FReadOnly = ReadOnly; }

  /// While true, index files are written only when this becomes false, when the database is closed,
  /// and by the destructor. Default false.
  bool LazyWrite() const noexcept;
  /// Turning it off writes the indexes. Throws EInOutError when they cannot be written.
  void SetLazyWrite(bool LazyWrite);

  /// The number of items.
  int32_t NumEntries() const noexcept;

  /// Called with 0 to 100 by operations that take long. BLOBs may report more; see AddData.
  TOnPercentDoneEvent OnPercentDone;

  /// Returns when everything written so far is on the disk. Within an update, nothing: EndUpdate
  /// does it.
  void Flush();
  /// @}

  /// @name Header
  /// @{

  /// The database's description.
  std::string GetDescription() const;
  /// Takes at most 60 bytes, whole characters. Throws EZAVGeoDBError when the data file cannot be
  /// written; the same holds for SetRevision.
  void SetDescription(const std::string& Description);
  /// A number for programs; 0 at first.
  int32_t GetRevision() const noexcept;
  /// Takes any number.
  void SetRevision(int32_t Revision);
  /// The version of the files, 4.
  int32_t GetDBVersion() const noexcept;
  /// The highest identifier that was ever given, 0 at first.
  int32_t GetHighestID() const noexcept;
  /// The next item that is added gets this identifier, as when items of another database are taken
  /// over; the ones below are used up. Nothing when it, or a higher one, was given before.
  void SkipToItemID(int32_t ItemID);
  /// @}

  /// @name Items
  /// @{

  /// Adds an item and returns its record number. Kinds with a point list take the box of their
  /// points (without points: 90, -90, 180, -180) and Closed; the others take the box given, and
  /// gitBLOB stores MetaInfo and a payload: DataSize bytes at Data, or with FromFile the file
  /// MetaInfo.FilePath, whose date becomes the item's. Reports 0, then after point j of n, from 0,
  /// round(100 j / n); after each 16384 bytes of a payload their share of the whole, where the last
  /// piece of a file counts as a full one; then 100. Throws EZAVGeoDBError when the header cannot
  /// be written ("AddData: cannot open database."), the data file would pass 2^31 - 1 bytes,
  /// identifiers are used up, or DataSize is negative.
  int32_t AddData(const TgdbName& Name, const TgdbPolygon& Polygon, bool Closed, TgdbItem ItemKind,
                  uint8_t ClassFlag, TDateTime Date, int32_t StateFlag, float LatLow, float LatHigh,
                  float LongLow, float LongHigh, float Altitude, int32_t Tag,
                  const TMetaInfo& MetaInfo, const void* Data, int32_t DataSize, bool FromFile);
  /// Gives record RecNo new contents; its identifier stays. The old block stays in the data file as
  /// dead bytes until GarbageCollection. Out of range: nothing.
  void ReplaceData(int32_t RecNo, const TgdbName& Name, const TgdbPolygon& Polygon, bool Closed,
                   TgdbItem ItemKind, uint8_t ClassFlag, TDateTime Date, int32_t StateFlag,
                   float LatLow, float LatHigh, float LongLow, float LongHigh, float Altitude,
                   int32_t Tag, const TMetaInfo& MetaInfo, const void* Data, int32_t DataSize,
                   bool FromFile);
  /// Deletes record RecNo: the last record takes its place and number. Out of range: nothing.
  void DeleteData(int32_t RecNo);

  /// Reads the point list of record RecNo; a number below 1 is that of the first. False, and
  /// Polygon unchanged, when it has none. Throws EInOutError when the list does not lie in the data
  /// file.
  bool RetrievePolygon(int32_t RecNo, TgdbPolygon& Polygon);

  /// Overwrites the fields of a record but its identifier and block; the indexes follow. False out
  /// of range. Throws EZAVGeoDBError when the new kind needs another kind of block.
  bool UpdateBasicData(int32_t RecNo, const TgdbData& Data);

  /// A gitBorder, open or closed. This and the following are AddData and ReplaceData for one kind;
  /// the box given for point lists has no effect.
  int32_t AddBorder(const TgdbName& Name, const TgdbPolygon& Polygon, bool Closed, TDateTime Date,
                    int32_t StateFlag, float LatLow, float LatHigh, float LongLow, float LongHigh,
                    float Altitude, uint8_t ClassFlag, int32_t Tag);
  /// A gitCity, open or closed.
  int32_t AddCity(const TgdbName& Name, const TgdbPolygon& Polygon, bool Closed, TDateTime Date,
                  int32_t StateFlag, float LatLow, float LatHigh, float LongLow, float LongHigh,
                  float Altitude, uint8_t ClassFlag, int32_t Tag);
  /// A gitLake, always closed.
  int32_t AddLake(const TgdbName& Name, const TgdbPolygon& Polygon, TDateTime Date,
                  int32_t StateFlag, float LatLow, float LatHigh, float LongLow, float LongHigh,
                  float Altitude, uint8_t ClassFlag, int32_t Tag);
  /// A gitRiver, always open.
  int32_t AddRiver(const TgdbName& Name, const TgdbPolygon& Polygon, TDateTime Date,
                   int32_t StateFlag, float LatLow, float LatHigh, float LongLow, float LongHigh,
                   float Altitude, uint8_t ClassFlag, int32_t Tag);
  /// A gitRoad, always open.
  int32_t AddRoad(const TgdbName& Name, const TgdbPolygon& Polygon, TDateTime Date,
                  int32_t StateFlag, float LatLow, float LatHigh, float LongLow, float LongHigh,
                  float Altitude, uint8_t ClassFlag, int32_t Tag);
  /// A gitRoute, always open.
  int32_t AddRoute(const TgdbName& Name, const TgdbPolygon& Polygon, TDateTime Date,
                   int32_t StateFlag, float LatLow, float LatHigh, float LongLow, float LongHigh,
                   float Altitude, uint8_t ClassFlag, int32_t Tag);
  /// A gitTown: its box is the position.
  int32_t AddTown(const TgdbName& Name, TDateTime Date, int32_t StateFlag, const TSCoords& Position,
                  float Altitude, uint8_t ClassFlag, int32_t Tag);
  /// Replaces by a gitBorder.
  void ReplaceBorder(int32_t RecNo, const TgdbName& Name, const TgdbPolygon& Polygon, bool Closed,
                     TDateTime Date, int32_t StateFlag, float LatLow, float LatHigh, float LongLow,
                     float LongHigh, float Altitude, uint8_t ClassFlag, int32_t Tag);
  /// Replaces by a gitCity.
  void ReplaceCity(int32_t RecNo, const TgdbName& Name, const TgdbPolygon& Polygon, bool Closed,
                   TDateTime Date, int32_t StateFlag, float LatLow, float LatHigh, float LongLow,
                   float LongHigh, float Altitude, uint8_t ClassFlag, int32_t Tag);
  /// Replaces by a gitLake.
  void ReplaceLake(int32_t RecNo, const TgdbName& Name, const TgdbPolygon& Polygon, TDateTime Date,
                   int32_t StateFlag, float LatLow, float LatHigh, float LongLow, float LongHigh,
                   float Altitude, uint8_t ClassFlag, int32_t Tag);
  /// Replaces by a gitRiver.
  void ReplaceRiver(int32_t RecNo, const TgdbName& Name, const TgdbPolygon& Polygon, TDateTime Date,
                    int32_t StateFlag, float LatLow, float LatHigh, float LongLow, float LongHigh,
                    float Altitude, uint8_t ClassFlag, int32_t Tag);
  /// Replaces by a gitRoad.
  void ReplaceRoad(int32_t RecNo, const TgdbName& Name, const TgdbPolygon& Polygon, TDateTime Date,
                   int32_t StateFlag, float LatLow, float LatHigh, float LongLow, float LongHigh,
                   float Altitude, uint8_t ClassFlag, int32_t Tag);
  /// Replaces by a gitRoute.
  void ReplaceRoute(int32_t RecNo, const TgdbName& Name, const TgdbPolygon& Polygon, TDateTime Date,
                    int32_t StateFlag, float LatLow, float LatHigh, float LongLow, float LongHigh,
                    float Altitude, uint8_t ClassFlag, int32_t Tag);
  /// Replaces by a gitTown.
  void ReplaceTown(int32_t RecNo, const TgdbName& Name, TDateTime Date, int32_t StateFlag,
                   const TSCoords& Position, float Altitude, uint8_t ClassFlag, int32_t Tag);
  /// @}

  /// @name BLOBs
  /// @{

  /// From a file. The item is named after the file, or after NameSource, without folder; MetaInfo's
  /// FilePath becomes FileName, or StoredPath. Paths of more than 127 bytes are cut in the record,
  /// not when the file is read.
  int32_t AddBLOB(const std::string& FileName, TDateTime Date, int32_t StateFlag, float LatLow,
                  float LatHigh, float LongLow, float LongHigh, float Altitude, uint8_t ClassFlag,
                  int32_t Tag, const TMetaInfo& MetaInfo);
  /// Named after NameSource.
  int32_t AddBLOB(const std::string& FileName, const std::string& NameSource, TDateTime Date,
                  int32_t StateFlag, float LatLow, float LatHigh, float LongLow, float LongHigh,
                  float Altitude, uint8_t ClassFlag, int32_t Tag, const TMetaInfo& MetaInfo);
  /// Named after NameSource, with StoredPath as the path in MetaInfo.
  int32_t AddBLOB(const std::string& FileName, const std::string& NameSource,
                  const std::string& StoredPath, TDateTime Date, int32_t StateFlag, float LatLow,
                  float LatHigh, float LongLow, float LongHigh, float Altitude, uint8_t ClassFlag,
                  int32_t Tag, const TMetaInfo& MetaInfo);
  /// From memory, and from the whole of a stream.
  int32_t AddBLOB(const std::string& ItemName, TDateTime Date, int32_t StateFlag, float LatLow,
                  float LatHigh, float LongLow, float LongHigh, float Altitude, uint8_t ClassFlag,
                  int32_t Tag, const TMetaInfo& MetaInfo, const void* Data, int32_t DataSize);
  /// From the whole of a stream, wherever its position is.
  int32_t AddBLOB(const std::string& ItemName, TDateTime Date, int32_t StateFlag, float LatLow,
                  float LatHigh, float LongLow, float LongHigh, float Altitude, uint8_t ClassFlag,
                  int32_t Tag, const TMetaInfo& MetaInfo, const TMemoryStream* Stream);
  /// Replaces by a BLOB from a file.
  void ReplaceBLOB(int32_t RecNo, const std::string& FileName, TDateTime Date, int32_t StateFlag,
                   float LatLow, float LatHigh, float LongLow, float LongHigh, float Altitude,
                   uint8_t ClassFlag, int32_t Tag, const TMetaInfo& MetaInfo);
  /// Replaces by a BLOB from memory.
  void ReplaceBLOB(int32_t RecNo, const std::string& ItemName, TDateTime Date, int32_t StateFlag,
                   float LatLow, float LatHigh, float LongLow, float LongHigh, float Altitude,
                   uint8_t ClassFlag, int32_t Tag, const TMetaInfo& MetaInfo, const void* Data,
                   int32_t DataSize);
  /// Replaces by a BLOB from the whole of a stream.
  void ReplaceBLOB(int32_t RecNo, const std::string& ItemName, TDateTime Date, int32_t StateFlag,
                   float LatLow, float LatHigh, float LongLow, float LongHigh, float Altitude,
                   uint8_t ClassFlag, int32_t Tag, const TMetaInfo& MetaInfo,
                   const TMemoryStream* Stream);

  /// Reads the payload of record RecNo (below 1: the first) and its MetaInfo; false when it is no
  /// BLOB. Throws EInOutError when the block does not lie in the data file. This one: into a file,
  /// which is replaced when it is whole. A name that is empty or ends in a separator is completed
  /// by the item's name, reduced to characters fit for files; EZAVGeoDBError when it is still
  /// empty.
  bool RetrieveBLOB(int32_t RecNo, const std::string& FileName, TMetaInfo& MetaInfo);
  /// Into memory; EZAVGeoDBError when it has fewer bytes than the payload.
  bool RetrieveBLOB(int32_t RecNo, TMetaInfo& MetaInfo, void* Buffer, int32_t SizeOfBlobData);
  /// Into a stream, which gets the size that the record tells (NumPoints for items of other kinds)
  /// even when the result is false. Ends with a report of 0.
  bool RetrieveBLOB(int32_t RecNo, TMetaInfo& MetaInfo, TMemoryStream* Stream);

  /// Reads or overwrites the meta information of a BLOB; false for other items and out of range.
  bool GetMetaInfo(int32_t RecNo, TMetaInfo& MetaInfo);
  /// Overwrites it; the record and its date stay.
  bool UpdateMetaInfo(int32_t RecNo, const TMetaInfo& MetaInfo);
  /// @}

  /// @name Groups of changes
  /// @{

  /// Changes up to the matching EndUpdate are one operation; updates nest, and the outermost
  /// counts. They are faster, too: point lists and payloads are collected into writes of a
  /// megabyte, records and indexes are written once, at the end. Beside the records themselves this
  /// takes 1.5 megabytes of memory, a bit for each record and 16 bytes for each item deleted or
  /// moved. Everything that is read sees the changes. Afterwards the files are the same as without
  /// the group, up to the order of equal keys in the indexes. Use TGeoDBUpdate rather than calling
  /// these.
  void BeginUpdate();
  /// Throws EZAVGeoDBError without a BeginUpdate, and when an inner update was rolled back.
  void EndUpdate();
  /// Ends the innermost update and undoes everything since the outermost BeginUpdate; outer ones
  /// can only be rolled back, too, and further changes throw until they are.
  void RollbackUpdate();
  /// Whether an update is open.
  bool Updating() const noexcept { return FUpdateDepth > 0; }
  /// @}

  /// @name Indexes
  /// @{

  /// Inserts an entry into a sorted index whose last slot is spare; the slot's content is lost.
  /// Before one of the equal keys where there are some.
  static void SortIxInto(TIxLLRecArray& Ix, TIxLLRec Rec);
  /// The same for the index of identifiers.
  static void SortIxItemIDInto(TIxItemIDRecArray& Ix, TIxItemIDRec Rec);

  /// Enters a record into the five indexes in memory, each of which must have a spare last slot, or
  /// takes its entries out and leaves the slot. The operations above do this by themselves; alone,
  /// these leave the indexes wrong. Nothing for a record number out of range.
  void InsertIntoIndex(int32_t RecNo, const TgdbData& Data);
  /// Takes the record's entries out and leaves a spare last slot in each index.
  void RemoveIndexEntries(int32_t RecNo);

  /// Writes one index file: 0 for identifiers, 1 to 4 for LatLow, LatHigh, LongLow, LongHigh; other
  /// numbers do nothing. After a database was closed while LazyWrite was false, this empties its
  /// index file.
  void SaveIndex(int32_t Which);

  /// The 1-based place of the first entry met whose key is not below the value; the number of
  /// entries + 1 when all keys are.
  int32_t GetClosestLatLowIx(double Value);
  /// The same for northern edges.
  int32_t GetClosestLatHighIx(double Value);
  /// The same for western edges.
  int32_t GetClosestLongLowIx(double Value);
  /// The same for eastern edges.
  int32_t GetClosestLongHighIx(double Value);
  /// The same for identifiers.
  int32_t GetClosestItemIDIx(int32_t ItemID);
  /// The record number of an item, 0 when there is no such item.
  int32_t SearchForItemID(int32_t ItemID) const;

  /// Entry Place (from 1, clamped to 1 and NumEntries) of an index; its index is a record number.
  /// An empty database gives a cleared entry or record.
  TIxItemIDRec GetIxItemID(int32_t Place);
  /// An entry of the southern edges.
  TIxLLRec GetIxLatLow(int32_t Place);
  /// An entry of the northern edges.
  TIxLLRec GetIxLatHigh(int32_t Place);
  /// An entry of the western edges.
  TIxLLRec GetIxLongLow(int32_t Place);
  /// An entry of the eastern edges.
  TIxLLRec GetIxLongHigh(int32_t Place);
  /// A copy of record RecNo, clamped likewise.
  TgdbData GetSumdata(int32_t RecNo) const;
  /// @}

  /// @name Search
  /// Results are record numbers. What a search needs beyond the indexes is built in memory when it
  /// is first asked for, and then follows every change.
  /// @{

  /// The first record with this name, whatever its case; of those from StartRecNo on, the first of
  /// this kind and class. 0 when there is none.
  int32_t SearchData(const TgdbName& Name) const;
  /// From StartRecNo on, of this kind and class only.
  int32_t SearchData(const TgdbName& Name, TgdbItem ItemKind, int32_t StartRecNo,
                     uint8_t ClassFlag) const;

  /// The items whose box meets the region, in no order. A region whose West is above its East
  /// crosses 180 degrees.
  std::vector<int32_t> ItemsInRegion(const TGeoRegion& Region);
  /// The same into a vector that may be used again.
  void ItemsInRegion(const TGeoRegion& Region, std::vector<int32_t>& RecNos);
  /// The Count items nearest to a position, by the distance in metres on a sphere: of point lists
  /// to their lines (0 within closed ones), of others to their boxes. Lists that cannot be read
  /// count as their boxes, and no distance is below that to the box. Id is the record number. Reads
  /// the point lists in question.
  std::vector<TNearItem> NearestItems(double Latit, double Longit, size_t Count);
  /// The items that contain a position, by ascending record number: closed point lists that it lies
  /// in or on, and BLOBs and towns whose box holds it. Reads the point lists in question.
  std::vector<int32_t> ItemsAt(double Latit, double Longit);
  /// The items whose name is, begins with or holds Text, without regard to case and accents, sorted
  /// by name; at most Limit.
  std::vector<int32_t> ItemsByName(const std::string& Text, TNameMatch Match,
                                   size_t Limit = SIZE_MAX);
  /// @}

  /// @name Maintenance
  /// @{

  /// Makes the five indexes anew from the records.
  void RecalcIndexes();
  /// Rewrites the files without dead bytes; identifiers and record numbers stay. Throws
  /// EZAVGeoDBError within an update, and when a record's block does not lie in the data file.
  void GarbageCollection();
  /// Writes all records, and the five indexes, as text to be read by people.
  void ExportDataDebug(const std::string& FileName);
  /// Names every disagreement among header, records, indexes and data file, one a line; empty when
  /// all is well.
  std::vector<std::string> Check();
  /// Mends what can be mended and says what it did, one a line. Throws EZAVGeoDBError within an
  /// update. For a database that cannot be opened, see RepairGeoDB.
  std::vector<std::string> Repair();
  /// Copies the database as it stands to another base name. Throws EZAVGeoDBError within an update,
  /// and when a file of that name exists.
  void Backup(const std::string& ToName);
  /// @}

 private:
  friend class TGdbChange;
  struct TItemArgs;
  struct TSourceFile;

  std::string Message(const char* Operation, const std::string& Reason) const;
  [[noreturn]] void Fail(const char* Operation, const std::string& Reason) const;
  // Does Work and puts what it refuses into this component's words.
  template <class TWork>
  auto Guarded(const char* Operation, TWork&& Work) const;
  void Report(int32_t Percent);
  void RefuseUpdate(const char* Operation) const;
  void FollowReload();

  int32_t AddItem(const TItemArgs& Args);
  void ReplaceItem(int32_t RecNo, const TItemArgs& Args);
  TgdbData BuildRecord(const TItemArgs& Args) const;
  TSourceFile OpenSource(const char* Operation, const TItemArgs& Args, TgdbData& Data) const;
  void WriteBlock(const TItemArgs& Args, TSourceFile& Source, TgdbData& Data);
  void WritePayload(const TItemArgs& Args, TSourceFile& Source, int32_t Size);
  void PutHeader(const char* Operation, const TgdbSystemData& Header);
  bool ReadPoints(const TgdbData& Data, TgdbPolygon& Polygon) const;
  void CheckBlob(const TgdbData& Data) const;
  void ReadBlobPieces(const TgdbData& Data,
                      const std::function<void(const uint8_t*, size_t)>& Take);
  int32_t StreamSize(const TMemoryStream& Stream) const;
  bool IsBlob(int32_t Position) const noexcept;

  std::unique_ptr<TGdbStore> FStore;
  std::unique_ptr<TGdbSearch> FSearch;
  bool FReadOnly = false;
  bool FKeepsNames = false;
  bool FChanging = false;
  bool FUpdateLost = false;
  int32_t FUpdateDepth = 0;
};

/// A group of changes that is rolled back unless Commit is reached:
///
///   TGeoDBUpdate Update(DB);
///   for (...) DB.AddTown(...);
///   Update.Commit();
class ZAVGEO_API TGeoDBUpdate {
 public:
  /// Begins an update.
  explicit TGeoDBUpdate(TGeoDB& DB) : FDB(&DB) { DB.BeginUpdate(); }
  ~TGeoDBUpdate();
  TGeoDBUpdate(const TGeoDBUpdate&) = delete;
  TGeoDBUpdate& operator=(const TGeoDBUpdate&) = delete;

  /// Ends the update; the destructor has nothing to undo then. Throws as EndUpdate does.
  void Commit();

 private:
  TGeoDB* FDB;
};

/// The header of a database that need not be open; nothing is written. Throws EInOutError.
ZAVGEO_API TgdbSystemData ReadSystemInformation(const std::string& Name);

/// Check and Repair for a database that is not open, and may be one that cannot be opened.
ZAVGEO_API std::vector<std::string> CheckGeoDB(const std::string& Name);
/// Mends what can be mended, one line for each deed.
ZAVGEO_API std::vector<std::string> RepairGeoDB(const std::string& Name);

}  // namespace zav

#endif
