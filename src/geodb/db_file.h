// db_file.h - one open file of a database.
//
// All trouble is an EInOutError with the path. What is written goes through TFileOps.
// SPDX-License-Identifier: MIT
#ifndef ZAV_GEODB_DB_FILE_H
#define ZAV_GEODB_DB_FILE_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include <platform/base/api.h>
#include <platform/base/file_ops.h>

namespace zav {

// Which file a path leads to, and in which state it is.
struct TFileStamp {
  uint64_t Device = 0;
  uint64_t Node = 0;
  int64_t Size = -1;  // -1: there is none
  int64_t Changed = 0;

  bool SameFile(const TFileStamp& Other) const noexcept {
    return Size >= 0 && Other.Size >= 0 && Device == Other.Device && Node == Other.Node;
  }
  friend bool operator==(const TFileStamp&, const TFileStamp&) = default;
};
ZAVGEO_API TFileStamp StampOf(const std::string& Path) noexcept;

class ZAVGEO_API TDbFile {
 public:
  TDbFile() = default;
  TDbFile(const std::string& Path, TFileAccess Access) { Open(Path, Access); }
  ~TDbFile() { Close(); }
  TDbFile(TDbFile&& Other) noexcept { Swap(Other); }
  TDbFile& operator=(TDbFile&& Other) noexcept {
    Swap(Other);
    return *this;
  }

  void Open(const std::string& Path, TFileAccess Access);
  // The error number instead of an exception.
  int TryOpen(const std::string& Path, TFileAccess Access) noexcept;
  // Unwritten trouble is not told: nothing is buffered here, and Sync tells what failed later.
  void Close() noexcept;
  bool IsOpen() const noexcept { return FHandle >= 0; }
  const std::string& Path() const noexcept { return FPath; }

  // The file has this path now.
  void Renamed(const std::string& Path) { FPath = Path; }

  int64_t Size() const;
  TFileStamp Stamp() const noexcept;
  // Whether the path still leads to this file.
  bool IsInPlace() const noexcept { return Stamp().SameFile(StampOf(FPath)); }

  // Reads Size bytes, or throws when there are fewer.
  void ReadAt(int64_t Offset, void* Buffer, size_t Size) const;
  // Reads up to Size bytes; how many there were.
  size_t ReadSome(int64_t Offset, void* Buffer, size_t Size) const;
  void WriteAt(int64_t Offset, const void* Data, size_t Size);
  void Truncate(int64_t Size);
  void Sync();
  // The same for several open files at once.
  static void SyncAll(std::span<TDbFile* const> Files);
  // False when another handle holds a lock that is in the way.
  bool TryLock(TFileLock Kind);
  // Waits up to ten seconds.
  bool Lock(TFileLock Kind);
  void Unlock() noexcept;

 private:
  [[noreturn]] void Fail(int Error) const;
  void Swap(TDbFile& Other) noexcept;

  std::string FPath;
  int FHandle = -1;
};

}  // namespace zav

#endif
