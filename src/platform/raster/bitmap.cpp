// SPDX-License-Identifier: MIT
#include "platform/raster/bitmap.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "platform/raster/pixel.h"
#include "platform/raster/row_convert.h"

namespace zav {

namespace {

// Black is all zero but for the fourth byte of 32 bits.
void FillBlack(TPixelFormat Format, uint8_t* Row, int32_t Count) {
  if (Count <= 0) return;
  const size_t Pixels = static_cast<size_t>(Count);
  if (Format == TPixelFormat::pf32bit) {
    std::fill_n(reinterpret_cast<TPixel32*>(Row), Pixels, TPixel32::Of(clBlack));
  } else {
    std::memset(Row, 0, Pixels * static_cast<size_t>(BytesPerPixel(Format)));
  }
}

}  // namespace

TBitmap::TBitmap(int32_t Width, int32_t Height, TPixelFormat Format) : FFormat(Format) {
  SetSize(Width, Height);
}

TBitmap TBitmap::ForOverwrite(int32_t Width, int32_t Height, TPixelFormat Format) {
  TBitmap Result(Format);
  if (Width <= 0 || Height <= 0) return TBitmap(Width, Height, Format);
  Result.FStride = StrideFor(Width, Height, Format);
  Result.FPixels.resize(Result.FStride * static_cast<size_t>(Height));
  Result.FWidth = Width;
  Result.FHeight = Height;
  // Comparing looks at the padding too.
  const size_t Used = static_cast<size_t>(Width) * static_cast<size_t>(BytesPerPixel(Format));
  for (int32_t Y = 0; Y < Height && Used < Result.FStride; ++Y) {
    std::memset(Result.Row(Y) + Used, 0, Result.FStride - Used);
  }
  return Result;
}

size_t TBitmap::StrideFor(int32_t Width, int32_t Height, TPixelFormat Format) {
  const size_t Stride =
      (static_cast<size_t>(Width) * static_cast<size_t>(BytesPerPixel(Format)) + 3) / 4 * 4;
  if (Stride != 0 && static_cast<size_t>(Height) > TBytes().max_size() / Stride) {
    throw std::bad_alloc();
  }
  return Stride;
}

void TBitmap::SetSize(int32_t Width, int32_t Height) {
  const int32_t NewWidth = std::max(Width, 0);
  const int32_t NewHeight = std::max(Height, 0);
  if (NewWidth == FWidth && NewHeight == FHeight) return;
  const size_t PixelSize = static_cast<size_t>(BytesPerPixel(FFormat));
  const size_t NewStride = StrideFor(NewWidth, NewHeight, FFormat);
  // Unset: every byte is written below, those between the rows as 0.
  TBytes Pixels(NewStride * static_cast<size_t>(NewHeight));
  const size_t UsedBytes = static_cast<size_t>(NewWidth) * PixelSize;

  const int32_t Kept = std::min(FWidth, NewWidth);
  for (int32_t Y = 0; Y < NewHeight && NewStride > 0; ++Y) {
    uint8_t* NewRow = Pixels.data() + static_cast<size_t>(Y) * NewStride;
    const int32_t Common = Y < FHeight ? Kept : 0;
    const size_t CommonBytes = static_cast<size_t>(Common) * PixelSize;
    if (Common > 0) std::memcpy(NewRow, Row(Y), CommonBytes);
    FillBlack(FFormat, NewRow + CommonBytes, NewWidth - Common);
    std::memset(NewRow + UsedBytes, 0, NewStride - UsedBytes);
  }
  FPixels = std::move(Pixels);
  FWidth = NewWidth;
  FHeight = NewHeight;
  FStride = NewStride;
}

TColor TBitmap::Pixel(int32_t X, int32_t Y) const noexcept {
  if (X < 0 || Y < 0 || X >= FWidth || Y >= FHeight) return 0;
  return WithPixelOf(FFormat,
                     [&](auto Kind) { return PixelRow<decltype(Kind)>(*this, Y)[X].Color(); });
}

void TBitmap::SetPixel(int32_t X, int32_t Y, TColor Color) noexcept {
  if (X < 0 || Y < 0 || X >= FWidth || Y >= FHeight) return;
  WithPixelOf(FFormat, [&](auto Kind) {
    PixelRow<decltype(Kind)>(*this, Y)[X] = decltype(Kind)::Of(Color);
  });
}

TBitmap TBitmap::Converted(TPixelFormat Format) const {
  if (Format == FFormat) return *this;
  TBitmap Result(FWidth, FHeight, Format);
  for (int32_t Y = 0; Y < FHeight; ++Y) {
    ConvertRow(Format, Result.Row(Y), FFormat, Row(Y), FWidth);
  }
  return Result;
}

}  // namespace zav
