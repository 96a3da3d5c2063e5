/// @file
/// errors.h - the exceptions of this library.
///
/// Every error is an EZAVError; each unit derives one class of its own from it. The text says what
/// is wrong in words that can be shown to a person.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_BASE_ERRORS_H
#define ZAV_PLATFORM_BASE_ERRORS_H

#include <stdexcept>
#include <string>

#include <platform/base/api.h>

namespace zav {

/// The root of all errors thrown by this library.
class ZAVGEO_API EZAVError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A file could not be opened, read or written, or its content is damaged. The text holds the path
/// and the reason; both can also be asked for alone.
class ZAVGEO_API EInOutError : public EZAVError {
 public:
  /// The text becomes the path, ": " and the reason.
  EInOutError(const std::string& Path, const std::string& Reason)
      : EZAVError(Path + ": " + Reason), FPath(Path), FReason(Reason) {}

  /// The file, as the caller named it.
  const std::string& Path() const noexcept { return FPath; }
  /// What went wrong, mostly in the system's words.
  const std::string& Reason() const noexcept { return FReason; }

 private:
  std::string FPath;
  std::string FReason;
};

}  // namespace zav

#endif
