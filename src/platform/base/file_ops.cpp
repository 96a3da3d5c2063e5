// file_ops.cpp - see file_ops.h. The operations of POSIX systems.
// SPDX-License-Identifier: MIT
#include <platform/base/file_ops.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <thread>
#include <vector>

namespace zav {
namespace {

class TPosixFileOps final : public TFileOps {
 public:
  int CreateNew(const std::string& Path, int Mode, int& Handle) override {
    Handle = ::open(Path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (Handle < 0) return errno;
    // Not by the mode of open(), which the user's mask would cut.
    if (Mode >= 0 && ::fchmod(Handle, static_cast<mode_t>(Mode)) != 0) {
      const int error = errno;
      ::close(Handle);
      ::unlink(Path.c_str());
      return error;
    }
    return 0;
  }

  int Write(int Handle, const void* Data, size_t Size) override {
    const char* from = static_cast<const char*>(Data);
    for (size_t rest = Size; rest > 0;) {
      const ssize_t written = ::write(Handle, from, rest);
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) return errno;
      from += written;
      rest -= static_cast<size_t>(written);
    }
    return 0;
  }

  int Sync(int Handle) override { return ::fsync(Handle) == 0 ? 0 : errno; }
  // A disk takes the same time for one file as for all that are asked for meanwhile, so each has a
  // thread that waits.
  int SyncAll(std::span<const int> Handles) override {
    std::atomic<int> error{0};
    const auto sync = [&](int handle) {
      if (const int failed = Sync(handle); failed != 0) error = failed;
    };
    std::vector<std::thread> threads;
    size_t started = 0;
    try {
      threads.reserve(Handles.size());
      for (; started + 1 < Handles.size(); ++started) threads.emplace_back(sync, Handles[started]);
    } catch (const std::exception&) {
      // No more threads: the rest one after the other.
    }
    for (; started < Handles.size(); ++started) sync(Handles[started]);
    for (std::thread& thread : threads) thread.join();
    return error;
  }
  int Close(int Handle) override { return ::close(Handle) == 0 ? 0 : errno; }
  int Remove(const std::string& Path) override { return ::unlink(Path.c_str()) == 0 ? 0 : errno; }
  int Rename(const std::string& From, const std::string& To) override {
    return std::rename(From.c_str(), To.c_str()) == 0 ? 0 : errno;
  }

  int SyncFolder(const std::string& Path) override {
    const int handle =
        ::open(Path.empty() ? "." : Path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0) return errno;
    const int error = ::fsync(handle) == 0 ? 0 : errno;
    ::close(handle);
    return error;
  }

  int Open(const std::string& Path, TFileAccess Access, int& Handle) override {
    int flags = O_CLOEXEC | O_NONBLOCK;  // not to wait for the other end of a pipe
    flags |= Access == TFileAccess::Read ? O_RDONLY : O_RDWR;
    if (Access == TFileAccess::UpdateOrCreate) flags |= O_CREAT;
    Handle = ::open(Path.c_str(), flags, 0666);
    if (Handle < 0) return errno;
    struct stat info;
    int error = ::fstat(Handle, &info) == 0 ? 0 : errno;
    if (error == 0 && !S_ISREG(info.st_mode)) error = S_ISDIR(info.st_mode) ? EISDIR : EINVAL;
    if (error == 0) return 0;
    ::close(Handle);
    Handle = -1;
    return error;
  }

  int WriteAt(int Handle, int64_t Offset, const void* Data, size_t Size) override {
    const char* from = static_cast<const char*>(Data);
    for (size_t rest = Size; rest > 0;) {
      const ssize_t written = ::pwrite(Handle, from, rest, Offset);
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) return errno;
      from += written;
      Offset += written;
      rest -= static_cast<size_t>(written);
    }
    return 0;
  }

  int Truncate(int Handle, int64_t Size) override {
    return ::ftruncate(Handle, Size) == 0 ? 0 : errno;
  }

  int Lock(int Handle, TFileLock Kind) override {
    const int operation = Kind == TFileLock::None     ? LOCK_UN
                          : Kind == TFileLock::Shared ? LOCK_SH | LOCK_NB
                                                      : LOCK_EX | LOCK_NB;
    return ::flock(Handle, operation) == 0 ? 0 : errno;
  }
};

thread_local TFileOps* CurrentOps = nullptr;

}  // namespace

int TFileOps::SyncAll(std::span<const int> Handles) {
  for (const int handle : Handles) {
    if (const int error = Sync(handle); error != 0) return error;
  }
  return 0;
}

TFileOps& SystemFileOps() noexcept {
  static TPosixFileOps ops;
  return ops;
}

TFileOps& FileOps() noexcept { return CurrentOps != nullptr ? *CurrentOps : SystemFileOps(); }

TFileOpsOverride::TFileOpsOverride(TFileOps& Ops) noexcept : FPrevious(CurrentOps) {
  CurrentOps = &Ops;
}

TFileOpsOverride::~TFileOpsOverride() { CurrentOps = FPrevious; }

std::string SystemReason(int Error) {
#if defined(__GLIBC__) && __GLIBC_PREREQ(2, 32)
  const char* const text = ::strerrordesc_np(Error);
  return text != nullptr ? text : "unknown error";
#else
  return std::strerror(Error);
#endif
}

}  // namespace zav
