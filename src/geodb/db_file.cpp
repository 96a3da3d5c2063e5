// db_file.cpp - see db_file.h.
// SPDX-License-Identifier: MIT
#include <geodb/db_file.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>
#include <utility>
#include <vector>

#include <platform/base/errors.h>

namespace zav {
namespace {

TFileStamp StampFrom(const struct stat& Info) noexcept {
  TFileStamp Stamp;
  Stamp.Device = Info.st_dev;
  Stamp.Node = Info.st_ino;
  Stamp.Size = Info.st_size;
  Stamp.Changed = int64_t{Info.st_mtim.tv_sec} * 1000000000 + Info.st_mtim.tv_nsec;
  return Stamp;
}

}  // namespace

TFileStamp StampOf(const std::string& Path) noexcept {
  struct stat Info;
  return ::stat(Path.c_str(), &Info) == 0 ? StampFrom(Info) : TFileStamp();
}

void TDbFile::Open(const std::string& Path, TFileAccess Access) {
  if (Path.find('\0') != std::string::npos) throw EInOutError(Path, "a file name holds no NUL");
  if (const int Error = TryOpen(Path, Access); Error != 0) {
    throw EInOutError(Path, SystemReason(Error));
  }
}

int TDbFile::TryOpen(const std::string& Path, TFileAccess Access) noexcept {
  Close();
  FPath = Path;
  const int Error = FileOps().Open(Path, Access, FHandle);
  if (Error != 0) FHandle = -1;
  return Error;
}

void TDbFile::Close() noexcept {
  if (FHandle < 0) return;
  FileOps().Close(FHandle);
  FHandle = -1;
}

int64_t TDbFile::Size() const {
  struct stat Info;
  if (::fstat(FHandle, &Info) != 0) Fail(errno);
  return Info.st_size;
}

TFileStamp TDbFile::Stamp() const noexcept {
  struct stat Info;
  return ::fstat(FHandle, &Info) == 0 ? StampFrom(Info) : TFileStamp();
}

void TDbFile::ReadAt(int64_t Offset, void* Buffer, size_t Size) const {
  if (ReadSome(Offset, Buffer, Size) != Size) throw EInOutError(FPath, "ends too early");
}

size_t TDbFile::ReadSome(int64_t Offset, void* Buffer, size_t Size) const {
  size_t Done = 0;
  while (Done < Size) {
    const ssize_t Count = ::pread(FHandle, static_cast<char*>(Buffer) + Done, Size - Done,
                                  Offset + static_cast<int64_t>(Done));
    if (Count < 0 && errno == EINTR) continue;
    if (Count < 0) Fail(errno);
    if (Count == 0) break;
    Done += static_cast<size_t>(Count);
  }
  return Done;
}

void TDbFile::WriteAt(int64_t Offset, const void* Data, size_t Size) {
  if (Size == 0) return;
  if (const int Error = FileOps().WriteAt(FHandle, Offset, Data, Size); Error != 0) Fail(Error);
}

void TDbFile::Truncate(int64_t Size) {
  if (const int Error = FileOps().Truncate(FHandle, Size); Error != 0) Fail(Error);
}

void TDbFile::Sync() {
  if (const int Error = FileOps().Sync(FHandle); Error != 0) Fail(Error);
}

void TDbFile::SyncAll(std::span<TDbFile* const> Files) {
  std::vector<int> Handles;
  for (const TDbFile* File : Files) Handles.push_back(File->FHandle);
  if (const int Error = FileOps().SyncAll(Handles); Error != 0) Files.front()->Fail(Error);
}

bool TDbFile::TryLock(TFileLock Kind) {
  const int Error = FileOps().Lock(FHandle, Kind);
  if (Error != 0 && Error != EWOULDBLOCK) Fail(Error);
  return Error == 0;
}

bool TDbFile::Lock(TFileLock Kind) {
  using namespace std::chrono_literals;
  const auto End = std::chrono::steady_clock::now() + 10s;
  while (!TryLock(Kind)) {
    if (std::chrono::steady_clock::now() > End) return false;
    std::this_thread::sleep_for(2ms);
  }
  return true;
}

void TDbFile::Unlock() noexcept {
  if (FHandle >= 0) FileOps().Lock(FHandle, TFileLock::None);
}

void TDbFile::Fail(int Error) const { throw EInOutError(FPath, SystemReason(Error)); }

void TDbFile::Swap(TDbFile& Other) noexcept {
  FPath.swap(Other.FPath);
  std::swap(FHandle, Other.FHandle);
}

}  // namespace zav
