// bmp.cpp - see bmp.h.
// SPDX-License-Identifier: MIT
#include <platform/codec/bmp.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>

#include <platform/base/errors.h>
#include <platform/codec/bmp_header.h>
#include <platform/codec/bmp_rle.h>

namespace zav {

namespace {

// One colour channel of a pixel, as 8 bits. Narrow channels repeat their bits, so that full stays
// full and black stays black; of wide ones the highest 8 bits count.
class TChannel {
 public:
  explicit TChannel(uint32_t Mask) {
    if (Mask == 0) return;
    const int AllBits = std::popcount(Mask);
    const int Bits = std::min(AllBits, 8);
    FShift = std::countr_zero(Mask) + AllBits - Bits;
    FField = (1u << Bits) - 1;
    for (uint32_t Value = 0; Value <= FField; ++Value) {
      uint32_t Wide = 0;
      for (int Place = 8 - Bits; Place > -Bits; Place -= Bits) {
        Wide |= Place >= 0 ? Value << Place : Value >> -Place;
      }
      FWide[Value] = static_cast<uint8_t>(Wide);
    }
  }

  uint32_t Of(uint32_t Pixel) const noexcept { return FWide[Pixel >> FShift & FField]; }

 private:
  std::array<uint8_t, 256> FWide{};
  int FShift = 0;
  uint32_t FField = 0;
};

// Converts rows of the file to rows of 0xFFRRGGBB.
class TRowReader {
 public:
  TRowReader(const TBmpHeader& Header, const TBmpPalette& Palette)
      : FPalette(Palette),
        FWidth(static_cast<size_t>(Header.Width)),
        FBits(Header.BitsPerPixel),
        FRed(Header.Masks[0]),
        FGreen(Header.Masks[1]),
        FBlue(Header.Masks[2]) {}

  void Read(const uint8_t* From, uint32_t* To) const noexcept {
    switch (FBits) {
      case 16:
        return ReadMasked<uint16_t>(From, To);
      case 24:
        for (size_t X = 0; X < FWidth; ++X, From += 3) {
          To[X] = 0xFF000000 | static_cast<uint32_t>(From[2]) << 16 |
                  static_cast<uint32_t>(From[1]) << 8 | From[0];
        }
        return;
      case 32:
        return ReadMasked<uint32_t>(From, To);
      default:
        ReadIndexed(From, To);
    }
  }

 private:
  // 1, 4 and 8 bits a pixel; the leftmost pixel has the highest bits.
  void ReadIndexed(const uint8_t* From, uint32_t* To) const noexcept {
    const auto Bits = static_cast<size_t>(FBits);
    const unsigned Mask = (1u << Bits) - 1;
    for (size_t X = 0; X < FWidth; ++X) {
      const size_t Bit = X * Bits;
      To[X] = FPalette[From[Bit / 8] >> (8 - Bits - Bit % 8) & Mask];
    }
  }

  template <typename TPixel>
  void ReadMasked(const uint8_t* From, uint32_t* To) const noexcept {
    for (size_t X = 0; X < FWidth; ++X, From += sizeof(TPixel)) {
      uint32_t Pixel = 0;
      for (size_t i = 0; i < sizeof(TPixel); ++i) {
        Pixel |= static_cast<uint32_t>(From[i]) << (8 * i);
      }
      To[X] = 0xFF000000 | FRed.Of(Pixel) << 16 | FGreen.Of(Pixel) << 8 | FBlue.Of(Pixel);
    }
  }

  const TBmpPalette& FPalette;
  size_t FWidth;
  int32_t FBits;
  TChannel FRed;
  TChannel FGreen;
  TChannel FBlue;
};

bool ReadRows(const TBmpHeader& Header, std::span<const uint8_t> Data, const TBmpPalette& Palette,
              TBitmap& Bitmap, TPercentReport& Progress) {
  const TRowReader Reader(Header, Palette);
  const auto RowBytes = static_cast<size_t>(Header.RowBytes());
  for (int32_t Row = 0; Row < Header.Height; ++Row) {
    if (!Progress.Report(Row, Header.Height)) return false;
    const int32_t Y = Header.TopDown ? Row : Header.Height - 1 - Row;
    Reader.Read(Data.data() + static_cast<size_t>(Row) * RowBytes,
                reinterpret_cast<uint32_t*>(Bitmap.Row(Y)));
  }
  return true;
}

}  // namespace

TSize ReadBmpSize(std::span<const uint8_t> Data, const std::string& Name) {
  const TBmpHeader Header = ReadBmpHeader(Data, Name);
  return {Header.Width, Header.Height};
}

TBitmap DecodeBmp(std::span<const uint8_t> Data, const std::string& Name,
                  TPercentReport& Progress) {
  const TBmpHeader Header = ReadBmpHeader(Data, Name);
  CheckDecodable({Header.Width, Header.Height}, Name);
  CheckBmpLength(Header, Data, Name);
  const TBmpPalette Palette = ReadBmpPalette(Header, Data);
  const auto Pixels = Data.subspan(Header.PixelOffset);
  const bool Runs = Header.Coding == TBmpCoding::bcRle4 || Header.Coding == TBmpCoding::bcRle8;

  TBitmap Bitmap = TBitmap::ForOverwrite(Header.Width, Header.Height, TPixelFormat::pf32bit);
  const bool Done = Runs ? DecodeBmpRuns(Header, Pixels, Palette, Name, Bitmap, Progress)
                         : ReadRows(Header, Pixels, Palette, Bitmap, Progress);
  if (!Done || !Progress.Report(100)) throw EImageCancelled(Name + ": cancelled");
  return Bitmap;
}

}  // namespace zav
