/// @file
/// file_ops.h - the few operations through which all files are written.
///
/// An operation returns 0 or the system's error number; nothing is thrown. Tests put an object of
/// their own in place of the system's, to let the n-th write fail.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_FILE_OPS_H
#define ZAV_PLATFORM_BASE_FILE_OPS_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include <platform/base/api.h>

namespace zav {

/// How a file is opened.
enum class TFileAccess : uint8_t {
  Read,           ///< for reading only
  Update,         ///< for reading and writing
  UpdateOrCreate  ///< the same; makes an empty file when there is none
};
/// An advisory lock, which other programs that ask for one respect.
enum class TFileLock : uint8_t {
  None,      ///< gives a lock up
  Shared,    ///< any number of holders
  Exclusive  ///< one holder, and no shared ones
};

/// Operations on files; each returns 0 or the system's error number.
class ZAVGEO_API TFileOps {
 public:
  virtual ~TFileOps() = default;

  /// Makes a new file for writing; it is an error when the path exists. Mode is the file's
  /// permission bits, -1 for the usual ones.
  virtual int CreateNew(const std::string& Path, int Mode, int& Handle) = 0;
  /// Writes all Size bytes.
  virtual int Write(int Handle, const void* Data, size_t Size) = 0;
  /// Returns when everything written is on the disk.
  virtual int Sync(int Handle) = 0;
  /// The same for several files at once, which takes little longer than one.
  virtual int SyncAll(std::span<const int> Handles);
  /// Gives the handle back, also when an error is returned.
  virtual int Close(int Handle) = 0;
  /// Puts From in the place of To, in one step.
  virtual int Rename(const std::string& From, const std::string& To) = 0;
  /// Deletes a file.
  virtual int Remove(const std::string& Path) = 0;
  /// Returns when the names in a folder are on the disk.
  virtual int SyncFolder(const std::string& Path) = 0;

  /// Opens a file that stays where it is: for reading only, for reading and writing, or the latter
  /// and makes an empty one when there is none. It is an error when the path is no ordinary file.
  virtual int Open(const std::string& Path, TFileAccess Access, int& Handle) = 0;
  /// Writes all Size bytes at an offset; a file that is too short is lengthened.
  virtual int WriteAt(int Handle, int64_t Offset, const void* Data, size_t Size) = 0;
  /// Cuts a file or lengthens it by zero bytes.
  virtual int Truncate(int Handle, int64_t Size) = 0;
  /// Takes, changes or gives up this handle's advisory lock without waiting; EWOULDBLOCK when
  /// another handle, of whichever process, is in the way. Closing the handle gives it up too.
  virtual int Lock(int Handle, TFileLock Kind) = 0;
};

/// The operations of the system.
ZAVGEO_API TFileOps& SystemFileOps() noexcept;

/// The operations that this thread uses: the system's unless a TFileOpsOverride is alive.
ZAVGEO_API TFileOps& FileOps() noexcept;

/// Puts Ops in the place of this thread's operations while it lives.
class ZAVGEO_API TFileOpsOverride {
 public:
  /// Ops must outlive this object.
  explicit TFileOpsOverride(TFileOps& Ops) noexcept;
  ~TFileOpsOverride();
  TFileOpsOverride(const TFileOpsOverride&) = delete;
  TFileOpsOverride& operator=(const TFileOpsOverride&) = delete;

 private:
  TFileOps* FPrevious;
};

/// The system's words for an error number, in English under every locale.
ZAVGEO_API std::string SystemReason(int Error);

}  // namespace zav

#endif
