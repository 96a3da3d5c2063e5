// atomic_file.cpp - see atomic_file.h.
// SPDX-License-Identifier: MIT
#include <platform/base/atomic_file.h>

#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include <platform/base/errors.h>
#include <platform/base/file_ops.h>
#include <platform/base/paths.h>
#include <platform/base/text_format.h>

namespace zav {
namespace {

namespace fs = std::filesystem;

constexpr size_t BufferSize = 65536;

// Where the bytes are to go: the end of a chain of links, which need not exist, or the path itself.
std::string LinkTarget(const std::string& Path) {
  constexpr int MostLinks = 40;  // more are a ring, on which opening fails
  fs::path target = Path;
  std::error_code error;
  for (int i = 0; i < MostLinks && fs::is_symlink(target, error); ++i) {
    const fs::path link = fs::read_symlink(target, error);
    if (error) break;
    target = target.parent_path() / link;
  }
  return target.string();
}

std::string FolderOf(const std::string& Path) { return Path.substr(0, Path.rfind('/') + 1); }

// A name that no other file of this folder has. It is short, because the file's own name may have
// the greatest length that the system takes.
std::string TemporaryName(const std::string& Folder) {
  static std::atomic<uint32_t> counter{0};
  return Folder + ".zavgeo-" + IntegerText(::getpid()) + "-" + IntegerText(++counter) + ".tmp";
}

// The permissions of the file that is replaced, -1 when there is none.
int CheckedMode(const std::string& Path, const std::string& Target) {
  std::error_code error;
  const fs::file_status status = fs::status(Target, error);
  if (!fs::exists(status)) return -1;
  if (fs::is_directory(status)) throw EInOutError(Path, SystemReason(EISDIR));
  if (!fs::is_regular_file(status)) throw EInOutError(Path, "is no ordinary file");
  if (::access(Target.c_str(), W_OK) != 0) throw EInOutError(Path, SystemReason(errno));
  return static_cast<int>(status.permissions() & fs::perms::all);
}

}  // namespace

TAtomicFile::TAtomicFile(const std::string& Path) : FPath(Path) {
  if (Path.empty()) throw EInOutError(Path, "no file name");
  if (Path.find('\0') != std::string::npos) throw EInOutError(Path, "a file name holds no NUL");
  FTarget = LinkTarget(Path);
  const int mode = CheckedMode(Path, FTarget);
  // A name may be left over from a process that had the same number and was killed.
  int error = EEXIST;
  for (int attempt = 0; error == EEXIST && attempt < 1000; ++attempt) {
    FTemporary = TemporaryName(FolderOf(FTarget));
    error = FileOps().CreateNew(FTemporary, mode, FHandle);
  }
  if (error != 0) {
    FHandle = -1;
    throw EInOutError(Path, SystemReason(error));
  }
}

TAtomicFile::~TAtomicFile() { Discard(); }

void TAtomicFile::Write(std::string_view Bytes) {
  FBuffer.append(Bytes);
  if (FBuffer.size() >= BufferSize) Flush();
}

void TAtomicFile::Write(const void* Data, size_t Size) {
  Write(std::string_view(static_cast<const char*>(Data), Size));
}

void TAtomicFile::Sync() {
  Flush();
  if (const int error = FileOps().Sync(FHandle); error != 0) Fail(error);
}

void TAtomicFile::Commit() {
  Sync();
  const int handle = FHandle;
  FHandle = -1;
  int error = FileOps().Close(handle);
  if (error == 0) error = FileOps().Rename(FTemporary, FTarget);
  if (error != 0) {
    FileOps().Remove(FTemporary);
    throw EInOutError(FPath, SystemReason(error));
  }
  // The new file is in place and whole whatever comes of this, and not every file system can do it.
  FileOps().SyncFolder(FolderOf(FTarget));
}

void TAtomicFile::Flush() {
  if (FHandle < 0) throw EInOutError(FPath, "is not open for writing");
  if (FBuffer.empty()) return;
  const int error = FileOps().Write(FHandle, FBuffer.data(), FBuffer.size());
  FBuffer.clear();
  if (error != 0) Fail(error);
}

void TAtomicFile::Discard() noexcept {
  if (FHandle < 0) return;
  FileOps().Close(FHandle);
  FHandle = -1;
  FileOps().Remove(FTemporary);
}

void TAtomicFile::Fail(int Error) {
  Discard();
  throw EInOutError(FPath, SystemReason(Error));
}

void WriteWholeFile(const std::string& Path, std::string_view Bytes) {
  TAtomicFile file(Path);
  file.Write(Bytes);
  file.Commit();
}

}  // namespace zav
