// read_file.cpp - see read_file.h.
// SPDX-License-Identifier: MIT
#include <platform/base/read_file.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include <platform/base/errors.h>
#include <platform/base/file_ops.h>

namespace zav {
namespace {

class TReadHandle {
 public:
  explicit TReadHandle(const std::string& Path) : FPath(Path) {
    if (Path.find('\0') != std::string::npos) throw EInOutError(Path, "a file name holds no NUL");
    FHandle = ::open(Path.c_str(), O_RDONLY | O_CLOEXEC);
    if (FHandle < 0) throw EInOutError(Path, SystemReason(errno));
  }
  ~TReadHandle() { ::close(FHandle); }
  TReadHandle(const TReadHandle&) = delete;
  TReadHandle& operator=(const TReadHandle&) = delete;

  // The size the system tells; 0 for a pipe.
  int64_t Size() const {
    struct stat info;
    if (::fstat(FHandle, &info) != 0) throw EInOutError(FPath, SystemReason(errno));
    if (S_ISDIR(info.st_mode)) throw EInOutError(FPath, SystemReason(EISDIR));
    if (S_ISCHR(info.st_mode) || S_ISBLK(info.st_mode)) throw EInOutError(FPath, "is a device");
    return S_ISREG(info.st_mode) ? static_cast<int64_t>(info.st_size) : 0;
  }

  // Reads up to Size bytes; 0 at the end of the file.
  size_t Read(void* Buffer, size_t Size) const {
    for (;;) {
      const ssize_t count = ::read(FHandle, Buffer, Size);
      if (count >= 0) return static_cast<size_t>(count);
      if (errno != EINTR) throw EInOutError(FPath, SystemReason(errno));
    }
  }

 private:
  const std::string& FPath;
  int FHandle = -1;
};

template <class TBytes>
TBytes ReadAll(const std::string& Path, int64_t MaxSize) {
  constexpr size_t Step = 65536;
  const TReadHandle file(Path);
  const auto limit = static_cast<size_t>(std::max<int64_t>(MaxSize, 0));
  const auto size = static_cast<size_t>(file.Size());
  const EInOutError tooLarge(Path, "is too large");
  if (size > limit) throw tooLarge;
  TBytes bytes;
  // One byte more than the size: the read that finds the end needs room too.
  bytes.resize(size + 1);
  for (size_t used = 0;;) {
    const size_t count = file.Read(bytes.data() + used, bytes.size() - used);
    used += count;
    if (used > limit) throw tooLarge;
    if (count == 0) {
      bytes.resize(used);
      return bytes;
    }
    if (used == bytes.size()) bytes.resize(used + std::max(Step, used / 2));
  }
}

}  // namespace

std::vector<uint8_t> ReadWholeFile(const std::string& Path, int64_t MaxSize) {
  return ReadAll<std::vector<uint8_t>>(Path, MaxSize);
}

std::string ReadWholeTextFile(const std::string& Path, int64_t MaxSize) {
  return ReadAll<std::string>(Path, MaxSize);
}

}  // namespace zav
