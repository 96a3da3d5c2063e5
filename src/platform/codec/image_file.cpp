// image_file.cpp - see image_file.h.
// SPDX-License-Identifier: MIT
#include <platform/codec/image_file.h>

#include <cstddef>
#include <fstream>
#include <string_view>
#include <vector>

#include <platform/base/atomic_file.h>
#include <platform/base/paths.h>
#include <platform/base/read_file.h>
#include <platform/base/text.h>
#include <platform/codec/bmp.h>
#include <platform/codec/decoding.h>
#include <platform/codec/jpeg_reader.h>
#include <platform/codec/jpeg_writer.h>

namespace zav {

namespace {

// Holds the header of nearly every picture; only long embedded profiles and previews are longer.
constexpr size_t HeadSize = 65536;

// The leading part of a file; empty when it cannot be read.
std::vector<uint8_t> ReadHead(const std::string& Path) {
  std::vector<uint8_t> Head(HeadSize);
  std::ifstream File(Path, std::ios::binary);
  File.read(reinterpret_cast<char*>(Head.data()), static_cast<std::streamsize>(Head.size()));
  Head.resize(static_cast<size_t>(File.gcount()));
  return Head;
}

[[noreturn]] void RefuseKind(const std::string& Name) {
  throw EInOutError(Name, "not a kind of image file that can be read (JPEG and BMP can)");
}

}  // namespace

TImageKind ImageKindOfName(const std::string& Path) {
  const std::string Extension = ExtensionOf(Path);
  if (SameText(Extension, ".jpg") || SameText(Extension, ".jpeg")) return TImageKind::ikJpeg;
  if (SameText(Extension, ".bmp")) return TImageKind::ikBmp;
  return TImageKind::ikUnknown;
}

TSize ReadImageSize(const std::string& Path, TImageKind Kind) {
  const std::vector<uint8_t> Head = ReadHead(Path);
  if (Head.size() == HeadSize) {
    try {
      return ReadImageSize(Head, Kind, Path);
    } catch (const EInOutError&) {
      // The header may be longer than that.
    }
  }
  return ReadImageSize(ReadWholeFile(Path), Kind, Path);
}

TSize ReadImageSize(std::span<const uint8_t> Data, TImageKind Kind, const std::string& Name) {
  switch (Kind) {
    case TImageKind::ikJpeg:
      return ReadJpegSize(Data, Name);
    case TImageKind::ikBmp:
      return ReadBmpSize(Data, Name);
    case TImageKind::ikUnknown:
      break;
  }
  RefuseKind(Name);
}

TBitmap LoadImageFile(const std::string& Path, TImageKind Kind, const TImageProgress& Progress) {
  return DecodeImage(ReadWholeFile(Path), Kind, Path, Progress);
}

TBitmap DecodeImage(std::span<const uint8_t> Data, TImageKind Kind, const std::string& Name,
                    const TImageProgress& Progress) {
  TPercentReport Report(Progress);
  switch (Kind) {
    case TImageKind::ikJpeg:
      return DecodeJpeg(Data, Name, Report);
    case TImageKind::ikBmp:
      return DecodeBmp(Data, Name, Report);
    case TImageKind::ikUnknown:
      break;
  }
  RefuseKind(Name);
}

void SaveJpegFile(const std::string& Path, const TBitmap& Bitmap, int Quality,
                  const TImageProgress& Progress) {
  TPercentReport Report(Progress);
  TAtomicFile File(Path);
  EncodeJpeg(Bitmap, Quality, Path, File, Report);
  File.Commit();
  Report.Report(100);
}

}  // namespace zav
