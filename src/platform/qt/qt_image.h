/// @file
/// qt_image.h - bitmaps as Qt images, without a copy, and Qt images as bitmaps.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_QT_QT_IMAGE_H
#define ZAV_PLATFORM_QT_QT_IMAGE_H

#include <QImage>

#include <platform/base/api.h>
#include <platform/raster/bitmap.h>

namespace zav {

/// A Qt image over the bitmap's own pixels, which must stay as long as the image; null for an empty
/// bitmap. Painting on the image of a non-const bitmap draws on the bitmap, as long as that image
/// is not copied; the image of a const one makes its own copy of the pixels when it is painted on.
ZAVGEO_API QImage WrapBitmap(TBitmap& Bitmap);
/// The same for reading.
ZAVGEO_API QImage WrapBitmap(const TBitmap& Bitmap);

/// A bitmap of 32 bits a pixel with the image's picture; transparent parts show black.
ZAVGEO_API TBitmap ToBitmap(const QImage& Image);

}  // namespace zav

#endif
