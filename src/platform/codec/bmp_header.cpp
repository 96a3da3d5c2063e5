// bmp_header.cpp - see bmp_header.h.
// SPDX-License-Identifier: MIT
#include <platform/codec/bmp_header.h>

#include <algorithm>
#include <bit>

#include <platform/base/errors.h>

namespace zav {

namespace {

constexpr size_t FileHeaderSize = 14;
constexpr size_t CoreHeaderSize = 12;
constexpr size_t Os2HeaderSize = 64;
constexpr size_t MaskHeaderSize = 52;  // from this size on the masks are part of the header
constexpr size_t HeaderSizes[] = {CoreHeaderSize, 16,  40, MaskHeaderSize, 56,
                                  Os2HeaderSize,  108, 124};

// The head as bytes, little endian. Fields behind the end of a short header are 0.
class TFields {
 public:
  TFields(std::span<const uint8_t> Data, size_t Begin, size_t Size) noexcept
      : FData(Data.subspan(Begin, Size)) {}

  uint16_t U16(size_t At) const noexcept {
    if (At + 2 > FData.size()) return 0;
    return static_cast<uint16_t>(FData[At] | FData[At + 1] << 8);
  }
  uint32_t U32(size_t At) const noexcept {
    if (At + 4 > FData.size()) return 0;
    return static_cast<uint32_t>(U16(At)) | static_cast<uint32_t>(U16(At + 2)) << 16;
  }
  int32_t I32(size_t At) const noexcept { return static_cast<int32_t>(U32(At)); }

 private:
  std::span<const uint8_t> FData;
};

void NeedBytes(std::span<const uint8_t> Data, size_t Size, const std::string& Name) {
  if (Data.size() < Size) throw EInOutError(Name, "the file ends inside its header");
}

void SetSize(TBmpHeader& Header, int64_t Width, int64_t Height, const std::string& Name) {
  Header.TopDown = Height < 0;
  if (Height < 0) Height = -Height;
  if (Width <= 0 || Height == 0 || Height > INT32_MAX) {
    throw EInOutError(Name, "the header gives no valid picture size (" + std::to_string(Width) +
                                " x " + std::to_string(Height) + ")");
  }
  Header.Width = static_cast<int32_t>(Width);
  Header.Height = static_cast<int32_t>(Height);
}

void SetCoding(TBmpHeader& Header, uint32_t Compression, bool Os2, const std::string& Name) {
  const int32_t Bits = Header.BitsPerPixel;
  const int32_t Known[] = {1, 4, 8, 16, 24, 32};
  if (std::find(std::begin(Known), std::end(Known), Bits) == std::end(Known)) {
    throw EInOutError(Name, std::to_string(Bits) + " bits a pixel are not supported");
  }
  if (Compression == 0) {
    Header.Coding = TBmpCoding::bcPlain;
  } else if (Compression == 1 && Bits == 8) {
    Header.Coding = TBmpCoding::bcRle8;
  } else if (Compression == 2 && Bits == 4) {
    Header.Coding = TBmpCoding::bcRle4;
  } else if ((Compression == 3 || Compression == 6) && !Os2 && (Bits == 16 || Bits == 32)) {
    Header.Coding = TBmpCoding::bcMasks;
  } else {
    throw EInOutError(Name, "compression " + std::to_string(Compression) + " with " +
                                std::to_string(Bits) + " bits a pixel is not supported");
  }
}

// A channel's bits must stand together and in the pixel, and belong to no other channel.
void CheckMasks(const TBmpHeader& Header, const std::string& Name) {
  uint32_t Taken = 0;
  for (const uint32_t Mask : Header.Masks) {
    const uint32_t Bits = Mask == 0 ? 0 : Mask >> std::countr_zero(Mask);
    const bool OutOfPixel = Header.BitsPerPixel == 16 && Mask > 0xFFFF;
    if ((Bits & (Bits + 1)) != 0 || (Mask & Taken) != 0 || OutOfPixel) {
      throw EInOutError(Name, "the colour masks are damaged");
    }
    Taken |= Mask;
  }
  if (Taken == 0) throw EInOutError(Name, "the colour masks are damaged");
}

// Finds the masks, in the header or behind it; returns where the head ends.
size_t SetMasks(TBmpHeader& Header, std::span<const uint8_t> Data, size_t HeadEnd,
                const std::string& Name) {
  if (Header.Coding != TBmpCoding::bcMasks) {
    if (Header.BitsPerPixel == 16) Header.Masks = {0x7C00, 0x03E0, 0x001F};
    if (Header.BitsPerPixel == 32) Header.Masks = {0xFF0000, 0x00FF00, 0x0000FF};
    return HeadEnd;
  }
  size_t At = FileHeaderSize + 40;
  if (HeadEnd < FileHeaderSize + MaskHeaderSize) {
    // Compression 6 adds a mask for alpha.
    At = HeadEnd;
    HeadEnd += TFields(Data, 0, HeadEnd).U32(FileHeaderSize + 16) == 6 ? 16 : 12;
    NeedBytes(Data, HeadEnd, Name);
  }
  const TFields Fields(Data, At, 12);
  Header.Masks = {Fields.U32(0), Fields.U32(4), Fields.U32(8)};
  CheckMasks(Header, Name);
  return HeadEnd;
}

// A table that runs into the pixels is cut there: files with fewer colours than they say exist.
void SetPalette(TBmpHeader& Header, size_t Colors, size_t HeadEnd, const std::string& Name) {
  if (Header.BitsPerPixel > 8) return;
  const size_t Most = size_t{1} << Header.BitsPerPixel;
  const size_t Said = Colors == 0 ? Most : Colors;
  const size_t Room = (Header.PixelOffset - HeadEnd) / static_cast<size_t>(Header.PaletteEntrySize);
  Header.PaletteOffset = HeadEnd;
  Header.PaletteCount = static_cast<int32_t>(std::min({Most, Said, Room}));
  if (Header.PaletteCount == 0) throw EInOutError(Name, "the colour table is missing");
}

}  // namespace

TBmpHeader ReadBmpHeader(std::span<const uint8_t> Data, const std::string& Name) {
  if (Data.size() < 2 || Data[0] != 'B' || Data[1] != 'M') {
    throw EInOutError(Name, "not a BMP file");
  }
  NeedBytes(Data, FileHeaderSize + 4, Name);
  const TFields File(Data, 0, FileHeaderSize + 4);
  const size_t InfoSize = File.U32(FileHeaderSize);
  if (std::find(std::begin(HeaderSizes), std::end(HeaderSizes), InfoSize) ==
      std::end(HeaderSizes)) {
    throw EInOutError(Name, "unknown BMP header of " + std::to_string(InfoSize) + " bytes");
  }
  size_t HeadEnd = FileHeaderSize + InfoSize;
  NeedBytes(Data, HeadEnd, Name);
  const TFields Info(Data, FileHeaderSize, InfoSize);

  TBmpHeader Header;
  const bool Core = InfoSize == CoreHeaderSize;
  if (Core) {
    SetSize(Header, Info.U16(4), Info.U16(6), Name);
    Header.BitsPerPixel = Info.U16(10);
    Header.PaletteEntrySize = 3;
    SetCoding(Header, 0, true, Name);
  } else {
    SetSize(Header, Info.I32(4), Info.I32(8), Name);
    Header.BitsPerPixel = Info.U16(14);
    SetCoding(Header, Info.U32(16), InfoSize == Os2HeaderSize, Name);
  }
  HeadEnd = SetMasks(Header, Data, HeadEnd, Name);
  Header.PixelOffset = File.U32(10);
  if (Header.PixelOffset < HeadEnd) {
    throw EInOutError(Name, "the pixels begin inside the header");
  }
  SetPalette(Header, Core ? 0 : Info.U32(32), HeadEnd, Name);

  const bool Runs = Header.Coding == TBmpCoding::bcRle4 || Header.Coding == TBmpCoding::bcRle8;
  const auto PixelBytes =
      Runs ? Info.U32(20)
           : static_cast<uint64_t>(Header.RowBytes()) * static_cast<uint64_t>(Header.Height);
  Header.FileLength = std::max<uint64_t>(Header.PixelOffset + PixelBytes, File.U32(2));
  return Header;
}

void CheckBmpLength(const TBmpHeader& Header, std::span<const uint8_t> Data,
                    const std::string& Name) {
  if (Data.size() < Header.FileLength) {
    throw EInOutError(Name, "the file ends early: it has " + std::to_string(Data.size()) +
                                " bytes, its header says " + std::to_string(Header.FileLength));
  }
}

TBmpPalette ReadBmpPalette(const TBmpHeader& Header, std::span<const uint8_t> Data) {
  TBmpPalette Palette;
  Palette.fill(0xFF000000);
  const auto EntrySize = static_cast<size_t>(Header.PaletteEntrySize);
  for (size_t i = 0; i < static_cast<size_t>(Header.PaletteCount); ++i) {
    const auto Entry = Data.subspan(Header.PaletteOffset + i * EntrySize, 3);
    Palette[i] = 0xFF000000 | static_cast<uint32_t>(Entry[2]) << 16 |
                 static_cast<uint32_t>(Entry[1]) << 8 | Entry[0];
  }
  return Palette;
}

}  // namespace zav
