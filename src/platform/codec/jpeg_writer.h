// jpeg_writer.h - encoding a bitmap as a JPEG file.
// SPDX-License-Identifier: MIT
#ifndef ZAV_PLATFORM_CODEC_JPEG_WRITER_H
#define ZAV_PLATFORM_CODEC_JPEG_WRITER_H

#include <string>

#include <platform/base/atomic_file.h>
#include <platform/codec/decoding.h>
#include <platform/raster/bitmap.h>

namespace zav {

// Writes the JPEG of a bitmap of any pixel format to File, which the caller commits. Quality as for
// SaveJpegFile. Throws EInOutError, with Name where it is not the file that fails, and
// EImageCancelled.
void EncodeJpeg(const TBitmap& Bitmap, int Quality, const std::string& Name, TAtomicFile& File,
                TPercentReport& Progress);

}  // namespace zav

#endif
