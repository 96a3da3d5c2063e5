// fuzz_jpeg.cpp - any bytes as a JPEG file.
// SPDX-License-Identifier: MIT
#include <platform/codec/image_file.h>

#include <cstddef>
#include <cstdint>
#include <span>

using namespace zav;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, size_t Size) {
  constexpr auto Kind = TImageKind::ikJpeg;
  const std::span<const uint8_t> File(Data, Size);
  try {
    // Larger pictures, which are decoded no differently, would take most of the time.
    const TSize Picture = ReadImageSize(File, Kind, "fuzz");
    if (int64_t{Picture.Width} * Picture.Height > 300000) return 0;
    DecodeImage(File, Kind, "fuzz");
  } catch (const EInOutError&) {
  }
  return 0;
}
