// jpeg_reader.cpp - see jpeg_reader.h.
// SPDX-License-Identifier: MIT
#include <platform/codec/jpeg_reader.h>

#include <algorithm>
#include <cstddef>

#include <platform/codec/jpeg_escape.h>

namespace zav {

namespace {

// A progressive file has about ten scans. Each takes the time of the whole picture and may take no
// more than a few bytes, so that a small file could keep us busy for hours.
constexpr int MaxScans = 100;

class TJpegReader {
 public:
  TJpegReader(std::span<const uint8_t> Data, const std::string& Name, TPercentReport* Progress)
      : FData(Data), FName(Name), FEscape(Name, Progress) {
    FEscape.Attach(FInfo);
  }
  ~TJpegReader() { jpeg_destroy_decompress(&FInfo); }
  TJpegReader(const TJpegReader&) = delete;
  TJpegReader& operator=(const TJpegReader&) = delete;

  TSize ReadHeader() {
    FEscape.Run([this] {
      jpeg_create_decompress(&FInfo);
      jpeg_mem_src(&FInfo, FData.data(), static_cast<unsigned long>(FData.size()));
      jpeg_read_header(&FInfo, TRUE);
    });
    return {static_cast<int32_t>(FInfo.image_width), static_cast<int32_t>(FInfo.image_height)};
  }

  // After ReadHeader(): throws when the picture is not to be decoded, whatever its pixels.
  void Check() const {
    if (FInfo.jpeg_color_space == JCS_CMYK || FInfo.jpeg_color_space == JCS_YCCK) {
      throw EInOutError(FName, "the picture has CMYK colours; only RGB and grey are supported");
    }
    if (FInfo.jpeg_color_space == JCS_UNKNOWN) {
      throw EInOutError(FName, "pictures of " + std::to_string(FInfo.num_components) +
                                   " colour components are not supported");
    }
    if (LeastBytes() > static_cast<int64_t>(FData.size())) {
      throw EInOutError(FName, "the file ends early: it is too short for its picture");
    }
  }

  void Decode(TBitmap& Bitmap) {
    FMonitor.progress_monitor = [](j_common_ptr Info) {
      static_cast<TMonitor*>(Info->progress)->Reader->OnProgress();
    };
    FMonitor.Reader = this;
    FInfo.progress = &FMonitor;
    FEscape.Run([this, &Bitmap] {
      FEscape.Report(0);
      FInfo.out_color_space = JCS_EXT_BGRA;
      jpeg_start_decompress(&FInfo);
      CheckComponents();
      ReadRows(Bitmap);
      // Reads up to the end mark, so that a file without one is noticed.
      jpeg_finish_decompress(&FInfo);
      FEscape.Report(100);
    });
  }

 private:
  struct TMonitor : jpeg_progress_mgr {
    TJpegReader* Reader = nullptr;
  };

  // No file of this picture is shorter: a block of 8 x 8 samples takes a Huffman code for its mean
  // and, where they are not in scans of their own, one for its details. So no memory is taken for a
  // picture that a header promises and a few bytes cannot hold.
  int64_t LeastBytes() const noexcept {
    if (FInfo.arith_code) return 0;
    int64_t Blocks = 0;
    for (int i = 0; i < FInfo.num_components; ++i) {
      const jpeg_component_info& Component = FInfo.comp_info[i];
      Blocks += int64_t{Component.width_in_blocks} * Component.height_in_blocks;
    }
    return Blocks * (FInfo.progressive_mode ? 1 : 2) / 8;
  }

  // Called by libjpeg for each row of blocks that it reads in advance, and for each call that asks
  // for rows. A file of several scans is read to its end before the first row comes out.
  void OnProgress() {
    if (FInfo.input_scan_number > MaxScans) FEscape.Refuse("the picture has too many scans");
    const int64_t Rows = FInfo.output_scanline;
    const int64_t Height = FInfo.image_height;
    if (!jpeg_has_multiple_scans(&FInfo)) return FEscape.Report(Rows * 100 / Height);
    const size_t Used = FData.size() - FInfo.src->bytes_in_buffer;
    FEscape.Report(static_cast<int64_t>(Used * 80 / FData.size()) + Rows * 20 / Height);
  }

  // A component that no scan mentions has no table yet; it would come out grey.
  void CheckComponents() {
    for (int i = 0; i < FInfo.num_components; ++i) {
      if (FInfo.comp_info[i].quant_table == nullptr) {
        FEscape.Refuse("the file ends early: a colour component is missing");
      }
    }
  }

  void ReadRows(TBitmap& Bitmap) {
    constexpr JDIMENSION RowsAtOnce = 8;
    JSAMPROW Rows[RowsAtOnce];
    while (FInfo.output_scanline < FInfo.output_height) {
      const JDIMENSION Count = std::min(RowsAtOnce, FInfo.output_height - FInfo.output_scanline);
      for (JDIMENSION i = 0; i < Count; ++i) {
        Rows[i] = Bitmap.Row(static_cast<int32_t>(FInfo.output_scanline + i));
      }
      jpeg_read_scanlines(&FInfo, Rows, Count);
    }
  }

  std::span<const uint8_t> FData;
  const std::string& FName;
  TJpegEscape FEscape;
  jpeg_decompress_struct FInfo{};
  TMonitor FMonitor{};
};

}  // namespace

TSize ReadJpegSize(std::span<const uint8_t> Data, const std::string& Name) {
  return TJpegReader(Data, Name, nullptr).ReadHeader();
}

TBitmap DecodeJpeg(std::span<const uint8_t> Data, const std::string& Name,
                   TPercentReport& Progress) {
  TJpegReader Reader(Data, Name, &Progress);
  const TSize Size = Reader.ReadHeader();
  CheckDecodable(Size, Name);
  Reader.Check();
  TBitmap Bitmap = TBitmap::ForOverwrite(Size.Width, Size.Height, TPixelFormat::pf32bit);
  Reader.Decode(Bitmap);
  return Bitmap;
}

}  // namespace zav
