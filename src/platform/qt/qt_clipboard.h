/// @file
/// qt_clipboard.h - the clipboard of the desktop.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_QT_QT_CLIPBOARD_H
#define ZAV_PLATFORM_QT_QT_CLIPBOARD_H

#include <platform/base/api.h>
#include <platform/host/clipboard.h>

namespace zav {

/// Puts pictures on the desktop's clipboard.
class ZAVGEO_API TQtClipboard final : public TClipboard {
 public:
  /// Throws EZAVError when there is no QGuiApplication.
  void SetBitmap(const TBitmap& Bitmap) override;
};

}  // namespace zav

#endif
