// decoding.h - what every decoder owes its caller: a limit, rising progress, cancelling.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_CODEC_DECODING_H
#define ZAV_PLATFORM_CODEC_DECODING_H

#include <cstdint>
#include <string>

#include <platform/base/geometry.h>
#include <platform/codec/image_file.h>

namespace zav {

// Tells a handler how far a picture is, in whole percent that only rise. The handler must outlive
// this object; it may be empty.
class TPercentReport {
 public:
  explicit TPercentReport(const TImageProgress& Handler) noexcept : FHandler(Handler) {}

  // Reports Percent when it is higher than all before it; values outside 0..100 are moved into that
  // range. False when the handler cancelled, then and ever after.
  bool Report(int64_t Percent);
  // The same for Done parts of Total, which is positive.
  bool Report(int64_t Done, int64_t Total) { return Report(Done * 100 / Total); }

 private:
  const TImageProgress& FHandler;
  int64_t FLast = -1;
  bool FCancelled = false;
};

// Throws EInOutError when a picture of this size is not decoded because of its size.
void CheckDecodable(TSize Size, const std::string& Name);

}  // namespace zav

#endif
