// bmp_writer.cpp - bitmaps as BMP files. Source of the format: see bmp_header.h.
// SPDX-License-Identifier: MIT
#include <platform/codec/image_file.h>

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include <platform/base/atomic_file.h>

namespace zav {

namespace {

constexpr uint32_t HeadBytes = 14 + 40;
constexpr uint32_t PixelsPerMetre = 3780;  // 96 dots per inch

void Put(std::string& Bytes, uint64_t Value, int Count) {
  for (int I = 0; I < Count; ++I) Bytes.push_back(static_cast<char>(Value >> (8 * I) & 0xFF));
}

std::string HeadOf(int32_t Width, int32_t Height, uint64_t PixelBytes) {
  std::string Head = "BM";
  Put(Head, HeadBytes + PixelBytes, 4);
  Put(Head, 0, 4);
  Put(Head, HeadBytes, 4);
  Put(Head, 40, 4);
  Put(Head, static_cast<uint32_t>(Width), 4);
  Put(Head, static_cast<uint32_t>(Height), 4);
  Put(Head, 1, 2);
  Put(Head, 24, 2);
  Put(Head, 0, 4);  // not compressed
  Put(Head, PixelBytes, 4);
  Put(Head, PixelsPerMetre, 4);
  Put(Head, PixelsPerMetre, 4);
  Put(Head, 0, 8);  // no colour table
  return Head;
}

}  // namespace

void SaveBmpFile(const std::string& Path, const TBitmap& Bitmap) {
  if (Bitmap.Empty()) throw EInOutError(Path, "the picture has no pixels");
  // Rows of 24 bits are stored as the file wants them: B, G, R, padded to 4 bytes.
  const TBitmap Rows = Bitmap.PixelFormat() == TPixelFormat::pf24bit
                           ? Bitmap
                           : Bitmap.Converted(TPixelFormat::pf24bit);
  const uint64_t PixelBytes =
      static_cast<uint64_t>(Rows.Stride()) * static_cast<uint64_t>(Rows.Height());
  if (HeadBytes + PixelBytes > std::numeric_limits<uint32_t>::max())
    throw EInOutError(Path, "the picture is too large for a BMP file");
  TAtomicFile File(Path);
  File.Write(HeadOf(Rows.Width(), Rows.Height(), PixelBytes));
  for (int32_t Y = Rows.Height() - 1; Y >= 0; --Y) File.Write(Rows.Row(Y), Rows.Stride());
  File.Commit();
}

}  // namespace zav
