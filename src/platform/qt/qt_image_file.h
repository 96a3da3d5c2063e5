/// @file
/// qt_image_file.h - pictures in the formats that Qt reads: PNG, TIFF and what else is installed.
///
/// Map images are JPEG and BMP files, which the library reads itself; this is for making such a
/// file out of another one.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_QT_QT_IMAGE_FILE_H
#define ZAV_PLATFORM_QT_QT_IMAGE_FILE_H

#include <string>

#include <platform/base/api.h>
#include <platform/base/geometry.h>
#include <platform/raster/bitmap.h>

namespace zav {

/// The size in the file's header. Throws EInOutError when there is no such file, when it is damaged
/// or of a kind that Qt cannot read here.
ZAVGEO_API TSize ReadQtImageSize(const std::string& Path);

/// Decodes the (first) picture to 32 bits a pixel; transparent parts show white, as paper does.
/// Throws EInOutError, too, for more than MaxDecodablePixels, before anything is decoded.
ZAVGEO_API TBitmap LoadQtImage(const std::string& Path);

}  // namespace zav

#endif
