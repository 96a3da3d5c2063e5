/// @file
/// clipboard.h - the host's clipboard.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_HOST_CLIPBOARD_H
#define ZAV_PLATFORM_HOST_CLIPBOARD_H

#include <platform/base/api.h>

namespace zav {

class TBitmap;

/// What a host's clipboard must be able to do.
class ZAVGEO_API TClipboard {
 public:
  virtual ~TClipboard() = default;
  /// Puts a copy of the picture on the clipboard, in the place of what was there.
  virtual void SetBitmap(const TBitmap& Bitmap) = 0;
};

}  // namespace zav

#endif
