// bmp_rle.cpp - see bmp_rle.h.
//
// Codes are pairs of bytes. (n, v) with n > 0: n pixels of v (with 4 bits a pixel the two halves of
// v in turn). (0, 0): end of the row; (0, 1): end of the picture; (0, 2) x y: move right and on by
// rows; (0, n): n pixels as they are, padded to whole pairs.
// SPDX-License-Identifier: MIT
#include <platform/codec/bmp_rle.h>

#include <algorithm>
#include <cstddef>

#include <platform/base/errors.h>

namespace zav {

namespace {

class TRunDecoder {
 public:
  TRunDecoder(const TBmpHeader& Header, std::span<const uint8_t> Data, const TBmpPalette& Palette,
              const std::string& Name, TBitmap& Bitmap)
      : FHeader(Header), FData(Data), FPalette(Palette), FName(Name), FBitmap(Bitmap) {}

  bool Run(TPercentReport& Progress) {
    // A file may leave out the end code after its last row.
    while (!(FEnd || (FRow == FHeader.Height && FAt == FData.size()))) {
      if (!Progress.Report(FRow, FHeader.Height)) return false;
      Step();
    }
    return true;
  }

 private:
  void Step() {
    const uint8_t Count = Next();
    const uint8_t Code = Next();
    if (Count > 0) {
      Encoded(Count, Code);
    } else if (Code == 0) {
      FColumn = 0;
      MoveOn(1);
    } else if (Code == 1) {
      FEnd = true;
    } else if (Code == 2) {
      FColumn += Next();
      MoveOn(Next());
      if (FColumn > FHeader.Width) Refuse();
    } else {
      Literal(Code);
    }
  }

  bool Halves() const noexcept { return FHeader.Coding == TBmpCoding::bcRle4; }

  void Encoded(int32_t Count, uint8_t Value) {
    const uint8_t Even = Halves() ? Value >> 4 : Value;
    const uint8_t Odd = Halves() ? Value & 15 : Value;
    uint32_t* Row = StartOfRow();
    const int32_t End = std::min(FColumn + Count, FHeader.Width);
    for (bool Second = false; FColumn < End; ++FColumn, Second = !Second) {
      Row[FColumn] = FPalette[Second ? Odd : Even];
    }
  }

  void Literal(int32_t Count) {
    uint32_t* Row = StartOfRow();
    uint8_t Value = 0;
    for (int32_t i = 0; i < Count; ++i) {
      const bool Fresh = !Halves() || i % 2 == 0;
      if (Fresh) Value = Next();
      uint8_t Index = Value;
      if (Halves()) Index = Fresh ? Value >> 4 : Value & 15;
      if (FColumn < FHeader.Width) Row[FColumn++] = FPalette[Index];
    }
    const int32_t Bytes = Halves() ? (Count + 1) / 2 : Count;
    if (Bytes % 2 != 0) Next();
  }

  uint8_t Next() {
    if (FAt == FData.size()) throw EInOutError(FName, "the file ends early, inside its pixels");
    return FData[FAt++];
  }

  [[noreturn]] void Refuse() const {
    throw EInOutError(FName, "the pixels are damaged: a code leads out of the picture");
  }

  void MoveOn(int32_t Rows) {
    if (FRow + Rows > FHeader.Height) Refuse();
    FRow += Rows;
  }

  uint32_t* StartOfRow() {
    if (FRow >= FHeader.Height) Refuse();
    const int32_t Y = FHeader.TopDown ? FRow : FHeader.Height - 1 - FRow;
    return reinterpret_cast<uint32_t*>(FBitmap.Row(Y));
  }

  const TBmpHeader& FHeader;
  std::span<const uint8_t> FData;
  const TBmpPalette& FPalette;
  const std::string& FName;
  TBitmap& FBitmap;
  size_t FAt = 0;
  int32_t FColumn = 0;
  int32_t FRow = 0;  // in the order of the file
  bool FEnd = false;
};

}  // namespace

bool DecodeBmpRuns(const TBmpHeader& Header, std::span<const uint8_t> Data,
                   const TBmpPalette& Palette, const std::string& Name, TBitmap& Bitmap,
                   TPercentReport& Progress) {
  for (int32_t Y = 0; Y < Header.Height; ++Y) {
    std::fill_n(reinterpret_cast<uint32_t*>(Bitmap.Row(Y)), Header.Width, Palette[0]);
  }
  return TRunDecoder(Header, Data, Palette, Name, Bitmap).Run(Progress);
}

}  // namespace zav
