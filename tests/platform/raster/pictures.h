// pictures.h - pictures as text, random ones, and comparison pixel by pixel.
// SPDX-License-Identifier: MIT
#ifndef ZAV_TESTS_PLATFORM_RASTER_PICTURES_H
#define ZAV_TESTS_PLATFORM_RASTER_PICTURES_H

#include <platform/raster/bitmap.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace zav {

constexpr std::array AllFormats{TPixelFormat::pf15bit, TPixelFormat::pf24bit,
                                TPixelFormat::pf32bit};

// '.' is black, 'o' is gray, '#' is any other colour; rows end with a line break.
inline std::string AsText(const TBitmap& Bitmap) {
  std::string Text;
  for (int32_t Y = 0; Y < Bitmap.Height(); ++Y) {
    for (int32_t X = 0; X < Bitmap.Width(); ++X) {
      const TColor Color = Bitmap.Pixel(X, Y);
      const bool Gray = GreenOf(Color) >= 0x80 && GreenOf(Color) < 0x90;
      Text += Color == clBlack ? '.' : Gray ? 'o' : '#';
    }
    Text += '\n';
  }
  return Text;
}

class TRandom {
 public:
  explicit TRandom(uint32_t Seed) : FEngine(Seed) {}
  uint32_t Bits() { return static_cast<uint32_t>(FEngine()); }
  // Low..High, both included.
  int32_t Whole(int64_t Low, int64_t High) {
    return static_cast<int32_t>(Low + static_cast<int64_t>(Bits() % (High - Low + 1)));
  }
  double Real(double Low, double High) { return Low + (High - Low) * Bits() / 4294967296.0; }

  // Near a small bitmap, far from it, or at the ends of the range.
  TPoint Point() {
    constexpr std::array<int64_t, 5> Reach{12, 60, 5000, 1LL << 24, (1LL << 31) - 1};
    const int64_t R = Reach[Bits() % Reach.size()];
    const double Low = R < 100 ? 15.0 - static_cast<double>(R) : -static_cast<double>(R);
    const auto One = [&] {
      return static_cast<int32_t>(std::floor(Real(Low, Low + 2.0 * static_cast<double>(R))));
    };
    const int32_t X = One();
    return {X, One()};
  }

  TBitmap Picture(int32_t Width, int32_t Height, TPixelFormat Format) {
    TBitmap Result(Width, Height, Format);
    for (int32_t Y = 0; Y < Height; ++Y) {
      for (int32_t X = 0; X < Width; ++X) Result.SetPixel(X, Y, Bits() & 0xFFFFFFU);
    }
    return Result;
  }

 private:
  std::mt19937 FEngine;
};

}  // namespace zav

#endif
