// jpeg_encoder.h - JPEG files of a known smooth picture, in the variants that a reader meets.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_PLATFORM_CODEC_JPEG_ENCODER_H
#define ZAV_TESTS_PLATFORM_CODEC_JPEG_ENCODER_H

#include <array>
#include <cmath>
#include <cstdio>  // jpeglib.h needs it
#include <cstdlib>
#include <vector>

#include <jpeglib.h>

#include <platform/base/geometry.h>

#include "damage.h"

namespace zav::test {

struct TJpegKind {
  const char* Title;
  TSize Size;
  J_COLOR_SPACE Colors = JCS_RGB;  // of the samples given to the encoder
  int Components = 3;
  bool Progressive = false;
  int Sampling = 1;  // colours have every n-th pixel in both directions
  int RestartRows = 0;
  bool Arithmetic = false;
  bool Separate = false;  // a scan for each colour component
};

// The picture: no edges, so that coding changes it by a few levels only.
inline std::array<uint8_t, 4> SmoothPixel(TSize Size, int X, int Y) {
  const double U = (X + 0.5) / Size.Width;
  const double V = (Y + 0.5) / Size.Height;
  const auto Level = [](double Value) { return static_cast<uint8_t>(std::lround(Value)); };
  return {Level(30 + 190 * U), Level(220 - 150 * V), Level(60 + 60 * U + 80 * V), 128};
}

inline TBytes EncodeSmooth(const TJpegKind& Kind) {
  jpeg_compress_struct Info;
  jpeg_error_mgr Errors;
  Info.err = jpeg_std_error(&Errors);  // ends the program on an error
  jpeg_create_compress(&Info);
  unsigned char* Memory = nullptr;
  unsigned long Length = 0;
  jpeg_mem_dest(&Info, &Memory, &Length);
  Info.image_width = static_cast<JDIMENSION>(Kind.Size.Width);
  Info.image_height = static_cast<JDIMENSION>(Kind.Size.Height);
  Info.in_color_space = Kind.Colors;
  Info.input_components = Kind.Components;
  jpeg_set_defaults(&Info);
  jpeg_set_quality(&Info, 95, TRUE);
  Info.comp_info[0].h_samp_factor = Info.comp_info[0].v_samp_factor = Kind.Sampling;
  Info.restart_in_rows = Kind.RestartRows;
  Info.arith_code = Kind.Arithmetic ? TRUE : FALSE;
  if (Kind.Progressive) jpeg_simple_progression(&Info);
  const jpeg_scan_info Scans[] = {
      {1, {0}, 0, 63, 0, 0}, {1, {1}, 0, 63, 0, 0}, {1, {2}, 0, 63, 0, 0}};
  if (Kind.Separate) {
    Info.scan_info = Scans;
    Info.num_scans = 3;
  }
  jpeg_start_compress(&Info, TRUE);
  std::vector<uint8_t> Row(static_cast<size_t>(Kind.Size.Width * Kind.Components));
  for (int Y = 0; Y < Kind.Size.Height; ++Y) {
    for (size_t i = 0; i < Row.size(); ++i) {
      const auto Components = static_cast<size_t>(Kind.Components);
      Row[i] = SmoothPixel(Kind.Size, static_cast<int>(i / Components), Y)[i % Components];
    }
    JSAMPROW Line = Row.data();
    jpeg_write_scanlines(&Info, &Line, 1);
  }
  jpeg_finish_compress(&Info);
  jpeg_destroy_compress(&Info);
  TBytes File(Memory, Memory + Length);
  std::free(Memory);
  return File;
}

}  // namespace zav::test

#endif
