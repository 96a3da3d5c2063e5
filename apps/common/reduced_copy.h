// reduced_copy.h - maps made smaller: the image, and the pixels of its calibration.
// SPDX-License-Identifier: MIT
#ifndef ZAV_APPS_COMMON_REDUCED_COPY_H
#define ZAV_APPS_COMMON_REDUCED_COPY_H

#include <string>

#include <geomap/calibration/calib_data.h>
#include <platform/base/geometry.h>
#include <platform/raster/bitmap.h>

namespace zav {

// The quality of JPEG copies: no difference is seen, and fine coloured lines stay.
constexpr int CopyQuality = 95;

// The size whose longer side is Longest pixels, at least 1 x 1; the same size when it is not larger
// than that.
TSize ReducedSize(TSize Size, int32_t Longest);
// The largest Longest with which an image of this size becomes one that a map may have.
int32_t LongestForMap(TSize Size);

// The picture in another, not larger size; every pixel is the average of what it covers.
TBitmap ReducedBitmap(const TBitmap& Bitmap, TSize Size);

// Where a pixel of the large image is in the small one: its middle stays on the same spot of the
// map, rounded to the whole pixels that calibrations hold.
TPoint ReducedPixel(TPoint Pixel, TSize From, TSize To);
// All pixels of a calibration.
void ReducePixels(TCalibData& Data, TSize From, TSize To);

// Whether both names lead to one file that exists.
bool IsSameFile(const std::string& A, const std::string& B);

struct TMapFiles {
  std::string Image;
  std::string Calibration;  // empty = none
};

// Writes the reduced bitmap as a JPEG file, and for it the first calibration of Old's file: pixels
// reduced, corners and resolution computed anew, the caption as it is spelled. From is the size
// that the image had. Both files are written, or none, but for a failure of the very last step.
// Throws EInOutError and EZAVGeoMapError, also when the file holds no calibration.
void WriteReducedMap(const TBitmap& Bitmap, TSize From, const TMapFiles& Old, const TMapFiles& New);

}  // namespace zav

#endif
