/// @file
/// atomic_file.h - a file that appears whole or not at all.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_ATOMIC_FILE_H
#define ZAV_PLATFORM_BASE_ATOMIC_FILE_H

#include <span>
#include <string>
#include <string_view>

#include <platform/base/api.h>

namespace zav {

/// Writes a new file beside the one that it is to replace; Commit() puts it in the old one's place.
/// Without Commit(), and when anything fails, the old file stays as it was and the new one is
/// removed. A symbolic link is followed, so that the link stays; permissions are kept. All
/// operations throw EInOutError with the path and the system's reason.
class ZAVGEO_API TAtomicFile {
 public:
  /// Refuses a folder, a device, and a file that may not be written.
  explicit TAtomicFile(const std::string& Path);
  ~TAtomicFile();
  TAtomicFile(const TAtomicFile&) = delete;
  TAtomicFile& operator=(const TAtomicFile&) = delete;

  /// Appends bytes, from a buffer that is written as it fills.
  void Write(std::string_view Bytes);
  /// The same for Size bytes at Data.
  void Write(const void* Data, size_t Size);
  /// Returns when everything written so far is on the disk.
  void Sync();
  /// Flushes to the disk, then replaces the old file. Nothing can be written afterwards.
  void Commit();

 private:
  void Flush();
  void Discard() noexcept;
  [[noreturn]] void Fail(int Error);

  std::string FPath;    // as the caller named it
  std::string FTarget;  // with links followed
  std::string FTemporary;
  std::string FBuffer;
  int FHandle = -1;
};

/// Writes a whole file in one step, as TAtomicFile does. Throws EInOutError.
ZAVGEO_API void WriteWholeFile(const std::string& Path, std::string_view Bytes);

}  // namespace zav

#endif
