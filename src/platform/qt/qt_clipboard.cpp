// qt_clipboard.cpp - the clipboard of the desktop.
// SPDX-License-Identifier: MIT
#include <platform/qt/qt_clipboard.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>

#include <platform/base/errors.h>
#include <platform/qt/qt_image.h>

namespace zav {

void TQtClipboard::SetBitmap(const TBitmap& Bitmap) {
  if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr)
    throw EZAVError("There is no clipboard before a QGuiApplication has been made");
  // The clipboard keeps the image; the bitmap may go.
  QGuiApplication::clipboard()->setImage(
      WrapBitmap(Bitmap).convertToFormat(QImage::Format_RGB32).copy());
}

}  // namespace zav
