// qt_image.cpp - bitmaps as Qt images, without a copy, and Qt images as bitmaps.
// SPDX-License-Identifier: MIT
#include <platform/qt/qt_image.h>

#include <cstring>

#include <QPainter>

namespace zav {

namespace {

QImage::Format QtFormat(TPixelFormat Format) {
  switch (Format) {
    case TPixelFormat::pf15bit:
      return QImage::Format_RGB555;
    case TPixelFormat::pf24bit:
      return QImage::Format_BGR888;
    case TPixelFormat::pf32bit:
      return QImage::Format_RGB32;
  }
  return QImage::Format_Invalid;
}

}  // namespace

QImage WrapBitmap(TBitmap& Bitmap) {
  if (Bitmap.Empty()) return {};
  return {Bitmap.Row(0), Bitmap.Width(), Bitmap.Height(), static_cast<qsizetype>(Bitmap.Stride()),
          QtFormat(Bitmap.PixelFormat())};
}

QImage WrapBitmap(const TBitmap& Bitmap) {
  if (Bitmap.Empty()) return {};
  return {Bitmap.Row(0), Bitmap.Width(), Bitmap.Height(), static_cast<qsizetype>(Bitmap.Stride()),
          QtFormat(Bitmap.PixelFormat())};
}

TBitmap ToBitmap(const QImage& Image) {
  TBitmap Bitmap(Image.width(), Image.height(), TPixelFormat::pf32bit);
  QImage Opaque = Image;
  if (Image.hasAlphaChannel()) {
    Opaque = QImage(Image.size(), QImage::Format_RGB32);
    Opaque.fill(Qt::black);
    QPainter Painter(&Opaque);
    Painter.drawImage(QRect(QPoint(), Image.size()), Image);
  }
  Opaque = std::move(Opaque).convertToFormat(QImage::Format_RGB32);
  const auto RowBytes = static_cast<size_t>(Bitmap.Width()) * 4;
  for (int32_t Y = 0; Y < Bitmap.Height(); ++Y)
    std::memcpy(Bitmap.Row(Y), Opaque.constScanLine(Y), RowBytes);
  return Bitmap;
}

}  // namespace zav
