// jpeg_escape.h - libjpeg's errors as exceptions, without unwinding its frames.
//
// libjpeg reports an error by a call that must not return; we leave it by longjmp, which runs no
// destructors. So a step given to Run() holds plain values only, and the exception is thrown when
// Run() is back. Cancelling and exceptions of our own call-backs take the same way out.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_CODEC_JPEG_ESCAPE_H
#define ZAV_PLATFORM_CODEC_JPEG_ESCAPE_H

#include <csetjmp>
#include <cstddef>
#include <cstdint>
#include <cstdio>  // jpeglib.h needs size_t and FILE
#include <exception>
#include <string>

#include <jpeglib.h>

#include <platform/codec/decoding.h>

namespace zav {

class TJpegEscape {
 public:
  // Progress may be null.
  TJpegEscape(const std::string& Name, TPercentReport* Progress) noexcept
      : FName(Name), FProgress(Progress) {}

  // Makes Info, not yet created, report to this object.
  template <typename TInfo>
  void Attach(TInfo& Info) noexcept {
    Info.err = Manager();
    Info.client_data = this;
  }

  // Calls Step, which may call libjpeg. Throws EInOutError on an error or damage, EImageCancelled
  // when the progress handler cancelled, and whatever a call-back threw.
  template <typename TStep>
  void Run(TStep Step) {
    if (setjmp(FOut) != 0) Throw();
    Step();
  }

  // The following are for use inside a step, and leave it when they fail.

  void Report(int64_t Percent);
  [[noreturn]] void Refuse(const char* Reason);
  // Calls code that may throw.
  template <typename TCode>
  void Guard(TCode Code) {
    try {
      Code();
    } catch (...) {
      FThrown = std::current_exception();
    }
    if (FThrown) Leave();
  }

 private:
  jpeg_error_mgr* Manager() noexcept;
  [[noreturn]] void Leave() { std::longjmp(FOut, 1); }
  [[noreturn]] void Throw();
  [[noreturn]] static void OnError(j_common_ptr Info);
  static void OnMessage(j_common_ptr Info, int Level);

  const std::string& FName;
  TPercentReport* FProgress;
  jpeg_error_mgr FManager{};
  std::jmp_buf FOut{};
  char FReason[JMSG_LENGTH_MAX] = "";
  std::exception_ptr FThrown;
  bool FCancelled = false;
};

}  // namespace zav

#endif
