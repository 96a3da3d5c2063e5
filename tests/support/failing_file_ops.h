// failing_file_ops.h - the system's file operations, of which one fails.
//
// Use: TFailingFileOps ops; TFileOpsOverride with(ops); then for n = 1, 2, ... set FailAt = n and
// save, until a save needs fewer than n operations.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_SUPPORT_FAILING_FILE_OPS_H
#define ZAV_TESTS_SUPPORT_FAILING_FILE_OPS_H

#include <platform/base/file_ops.h>

#include <cerrno>
#include <string>

namespace zav {

// Counts what can fail a save: creating, writing, cutting, syncing, closing, renaming. The
// operation number FailAt (from 1; 0 = none) does half of a write, or nothing, and reports a full
// disk. Removing and syncing a folder are what a saver does afterwards; they always work.
class TFailingFileOps final : public TFileOps {
 public:
  int FailAt = 0;
  int Count = 0;
  // Begins a new round.
  void Arm(int Operation) {
    FailAt = Operation;
    Count = 0;
  }
  bool Failed() const { return FailAt > 0 && Count >= FailAt; }

  int CreateNew(const std::string& Path, int Mode, int& Handle) override {
    return FailsNow() ? ENOSPC : SystemFileOps().CreateNew(Path, Mode, Handle);
  }
  int Write(int Handle, const void* Data, size_t Size) override {
    if (!FailsNow()) return SystemFileOps().Write(Handle, Data, Size);
    SystemFileOps().Write(Handle, Data, Size / 2);
    return ENOSPC;
  }
  int Sync(int Handle) override { return FailsNow() ? EIO : SystemFileOps().Sync(Handle); }
  int Close(int Handle) override {
    const int error = SystemFileOps().Close(Handle);
    return FailsNow() ? EIO : error;
  }
  int Rename(const std::string& From, const std::string& To) override {
    return FailsNow() ? EACCES : SystemFileOps().Rename(From, To);
  }
  int Remove(const std::string& Path) override { return SystemFileOps().Remove(Path); }
  int SyncFolder(const std::string& Path) override { return SystemFileOps().SyncFolder(Path); }
  int Open(const std::string& Path, TFileAccess Access, int& Handle) override {
    const bool Writes = Access == TFileAccess::UpdateOrCreate;
    return Writes && FailsNow() ? ENOSPC : SystemFileOps().Open(Path, Access, Handle);
  }
  int WriteAt(int Handle, int64_t Offset, const void* Data, size_t Size) override {
    if (!FailsNow()) return SystemFileOps().WriteAt(Handle, Offset, Data, Size);
    SystemFileOps().WriteAt(Handle, Offset, Data, Size / 2);
    return ENOSPC;
  }
  int Truncate(int Handle, int64_t Size) override {
    return FailsNow() ? EIO : SystemFileOps().Truncate(Handle, Size);
  }
  int Lock(int Handle, TFileLock Kind) override { return SystemFileOps().Lock(Handle, Kind); }

 private:
  bool FailsNow() { return ++Count == FailAt; }
};

}  // namespace zav

#endif
