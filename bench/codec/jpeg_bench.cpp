// jpeg_bench.cpp - opening the JPEG files of the samples beside bare decoding by libjpeg-turbo.
//
// The bare decoder has the file's bytes in memory, decodes to the same pixel layout into a buffer
// that it keeps, and looks for no damage. Opening reads the file and takes a new bitmap each time.
// Files to be measured instead of the samples may be given as arguments.
// SPDX-License-Identifier: MIT
#include <cstdio>  // jpeglib.h needs it
#include <filesystem>
#include <string>
#include <vector>

#include <jpeglib.h>

#include <platform/base/read_file.h>
#include <platform/codec/image_file.h>
#include <support/rounds.h>

using namespace zav;

namespace {

constexpr int Rounds = 41;

void DecodeBare(const std::vector<uint8_t>& File, std::vector<uint8_t>& Pixels) {
  jpeg_decompress_struct Info;
  jpeg_error_mgr Errors;
  Info.err = jpeg_std_error(&Errors);
  jpeg_create_decompress(&Info);
  jpeg_mem_src(&Info, File.data(), static_cast<unsigned long>(File.size()));
  jpeg_read_header(&Info, TRUE);
  Info.out_color_space = JCS_EXT_BGRX;
  jpeg_start_decompress(&Info);
  const size_t Stride = size_t{Info.output_width} * 4;
  Pixels.resize(Stride * Info.output_height);
  while (Info.output_scanline < Info.output_height) {
    JSAMPROW Row = Pixels.data() + Info.output_scanline * Stride;
    jpeg_read_scanlines(&Info, &Row, 1);
  }
  jpeg_finish_decompress(&Info);
  jpeg_destroy_decompress(&Info);
}

std::vector<std::string> SampleFiles() {
  std::vector<std::string> Files;
  for (const auto& Entry : std::filesystem::directory_iterator(ZAVGEO_SAMPLES "/maps")) {
    if (Entry.path().extension() == ".jpg") Files.push_back(Entry.path().string());
  }
  std::sort(Files.begin(), Files.end());
  return Files;
}

}  // namespace

int main(int Count, char** Arguments) {
  std::vector<std::string> Files(Arguments + 1, Arguments + Count);
  if (Files.empty()) Files = SampleFiles();
  for (const std::string& Path : Files) {
    const TSize Size = ReadImageSize(Path, TImageKind::ikJpeg);
    const std::vector<uint8_t> Bytes = ReadWholeFile(Path);
    std::vector<uint8_t> Pixels;
    bench::Compare(std::filesystem::path(Path).filename().string() + ", opening, a pixel",
                   static_cast<size_t>(Size.Width) * static_cast<size_t>(Size.Height), Rounds,
                   {{"opening", [&] { LoadImageFile(Path, TImageKind::ikJpeg); }},
                    {"bare libjpeg-turbo", [&] { DecodeBare(Bytes, Pixels); }, 1.15}});
  }
  return 0;
}
