// jpeg_writer.cpp - see jpeg_writer.h.
// SPDX-License-Identifier: MIT
#include <platform/codec/jpeg_writer.h>

#include <array>
#include <cstddef>
#include <cstdint>

#include <platform/codec/jpeg_escape.h>

namespace zav {

namespace {

// From this quality on colours keep their full resolution: thin coloured lines of a map would fade.
constexpr int FullColorQuality = 90;

class TJpegWriter {
 public:
  TJpegWriter(const std::string& Name, TAtomicFile& File, TPercentReport& Progress)
      : FEscape(Name, &Progress) {
    FEscape.Attach(FInfo);
    FTarget.init_destination = [](j_compress_ptr Info) { TargetOf(Info).Empty(); };
    FTarget.empty_output_buffer = [](j_compress_ptr Info) -> boolean {
      // libjpeg calls this when the buffer is full, whatever free_in_buffer says.
      TargetOf(Info).Put(BufferSize);
      return TRUE;
    };
    FTarget.term_destination = [](j_compress_ptr Info) {
      TargetOf(Info).Put(BufferSize - Info->dest->free_in_buffer);
    };
    FTarget.File = &File;
    FTarget.Escape = &FEscape;
  }
  ~TJpegWriter() { jpeg_destroy_compress(&FInfo); }
  TJpegWriter(const TJpegWriter&) = delete;
  TJpegWriter& operator=(const TJpegWriter&) = delete;

  // The bitmap has 24 or 32 bits a pixel.
  void Encode(const TBitmap& Bitmap, int Quality) {
    FEscape.Run([this, &Bitmap, Quality] {
      jpeg_create_compress(&FInfo);
      FInfo.dest = &FTarget;
      FInfo.image_width = static_cast<JDIMENSION>(Bitmap.Width());
      FInfo.image_height = static_cast<JDIMENSION>(Bitmap.Height());
      const bool Wide = Bitmap.PixelFormat() == TPixelFormat::pf32bit;
      FInfo.in_color_space = Wide ? JCS_EXT_BGRX : JCS_EXT_BGR;
      FInfo.input_components = Wide ? 4 : 3;
      jpeg_set_defaults(&FInfo);
      jpeg_set_quality(&FInfo, Quality, TRUE);
      FInfo.optimize_coding = TRUE;
      if (Quality >= FullColorQuality) {
        FInfo.comp_info[0].h_samp_factor = FInfo.comp_info[0].v_samp_factor = 1;
      }
      jpeg_start_compress(&FInfo, TRUE);
      while (FInfo.next_scanline < FInfo.image_height) {
        FEscape.Report(int64_t{FInfo.next_scanline} * 100 / FInfo.image_height);
        // libjpeg does not write to the row.
        JSAMPROW Row = const_cast<JSAMPROW>(Bitmap.Row(static_cast<int32_t>(FInfo.next_scanline)));
        jpeg_write_scanlines(&FInfo, &Row, 1);
      }
      jpeg_finish_compress(&FInfo);
    });
  }

 private:
  static constexpr size_t BufferSize = 16384;

  struct TTarget : jpeg_destination_mgr {
    TAtomicFile* File = nullptr;
    TJpegEscape* Escape = nullptr;
    std::array<uint8_t, BufferSize> Buffer{};

    void Empty() noexcept {
      next_output_byte = Buffer.data();
      free_in_buffer = BufferSize;
    }
    void Put(size_t Count) {
      Escape->Guard([this, Count] { File->Write(Buffer.data(), Count); });
      Empty();
    }
  };
  static TTarget& TargetOf(j_compress_ptr Info) noexcept {
    return *static_cast<TTarget*>(Info->dest);
  }

  TJpegEscape FEscape;
  jpeg_compress_struct FInfo{};
  TTarget FTarget{};
};

}  // namespace

void EncodeJpeg(const TBitmap& Bitmap, int Quality, const std::string& Name, TAtomicFile& File,
                TPercentReport& Progress) {
  if (Bitmap.PixelFormat() == TPixelFormat::pf15bit) {
    return EncodeJpeg(Bitmap.Converted(TPixelFormat::pf24bit), Quality, Name, File, Progress);
  }
  if (Bitmap.Empty()) throw EInOutError(Name, "an empty picture cannot be saved");
  TJpegWriter(Name, File, Progress).Encode(Bitmap, Quality);
}

}  // namespace zav
