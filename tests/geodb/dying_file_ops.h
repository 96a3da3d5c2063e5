// dying_file_ops.h - file operations of a process that dies, or fails once, at a chosen write.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_GEODB_DYING_FILE_OPS_H
#define ZAV_TESTS_GEODB_DYING_FILE_OPS_H

#include <platform/base/file_ops.h>

#include <cerrno>
#include <string>

namespace zav::test {

// The system's operations up to a number; that one is torn. Nothing waits for the disk.
class TDyingFileOps final : public TFileOps {
 public:
  int64_t DieAt = 0;    // 0: never
  bool Forever = true;  // later operations fail, too
  int64_t Count = 0;
  double Part = 0;  // of the bytes of the torn write

  bool Dead() const { return DieAt > 0 && Count >= DieAt; }

  int CreateNew(const std::string& Path, int Mode, int& Handle) override {
    return Fails() ? ENOSPC : SystemFileOps().CreateNew(Path, Mode, Handle);
  }
  int Write(int Handle, const void* Data, size_t Size) override {
    bool Now = false;
    if (!Fails(&Now)) return SystemFileOps().Write(Handle, Data, Size);
    if (Now) SystemFileOps().Write(Handle, Data, Torn(Size));
    return ENOSPC;
  }
  int WriteAt(int Handle, int64_t Offset, const void* Data, size_t Size) override {
    bool Now = false;
    if (!Fails(&Now)) return SystemFileOps().WriteAt(Handle, Offset, Data, Size);
    if (Now) SystemFileOps().WriteAt(Handle, Offset, Data, Torn(Size));
    return ENOSPC;
  }
  int Truncate(int Handle, int64_t Size) override {
    return Fails() ? EIO : SystemFileOps().Truncate(Handle, Size);
  }
  int Sync(int) override { return Fails() ? EIO : 0; }
  int Close(int Handle) override { return SystemFileOps().Close(Handle); }
  int Rename(const std::string& From, const std::string& To) override {
    return Fails() ? EACCES : SystemFileOps().Rename(From, To);
  }
  int Remove(const std::string& Path) override {
    return Fails() ? EIO : SystemFileOps().Remove(Path);
  }
  int SyncFolder(const std::string&) override { return 0; }
  int Open(const std::string& Path, TFileAccess Access, int& Handle) override {
    const bool Makes = Access == TFileAccess::UpdateOrCreate;
    return Makes && Fails() ? EMFILE : SystemFileOps().Open(Path, Access, Handle);
  }
  int Lock(int Handle, TFileLock Kind) override { return SystemFileOps().Lock(Handle, Kind); }

 private:
  bool Fails(bool* Now = nullptr) {
    const bool Before = Dead();
    ++Count;
    if (Now != nullptr) *Now = !Before && Dead();
    return Dead() && (Forever || !Before);
  }
  size_t Torn(size_t Size) const { return static_cast<size_t>(Part * static_cast<double>(Size)); }
};

}  // namespace zav::test

#endif
