// SPDX-License-Identifier: MIT
#include "platform/raster/copy.h"

#include <algorithm>

#include "platform/raster/row_convert.h"

namespace zav {

void CopyPixels(TBitmap& Dest, int32_t X, int32_t Y, const TBitmap& Source,
                const TRect& SourceRect) noexcept {
  // 64 bits, because the shift between the two rectangles may need 33.
  const int64_t ShiftX = static_cast<int64_t>(X) - SourceRect.Left;
  const int64_t ShiftY = static_cast<int64_t>(Y) - SourceRect.Top;
  const int64_t Left = std::max<int64_t>({SourceRect.Left, 0, -ShiftX});
  const int64_t Top = std::max<int64_t>({SourceRect.Top, 0, -ShiftY});
  const int64_t Right =
      std::min<int64_t>({SourceRect.Right, Source.Width(), Dest.Width() - ShiftX});
  const int64_t Bottom =
      std::min<int64_t>({SourceRect.Bottom, Source.Height(), Dest.Height() - ShiftY});
  if (Right <= Left || Bottom <= Top) return;

  const int64_t DestStart = (Left + ShiftX) * BytesPerPixel(Dest.PixelFormat());
  const int64_t SourceStart = Left * BytesPerPixel(Source.PixelFormat());
  // Within one bitmap, rows that are still to be read must not be overwritten.
  const bool Upwards = &Dest == &Source && ShiftY > 0;
  for (int64_t I = 0; I < Bottom - Top; ++I) {
    const int64_t Row = Upwards ? Bottom - 1 - I : Top + I;
    ConvertRow(Dest.PixelFormat(), Dest.Row(static_cast<int32_t>(Row + ShiftY)) + DestStart,
               Source.PixelFormat(), Source.Row(static_cast<int32_t>(Row)) + SourceStart,
               static_cast<int32_t>(Right - Left));
  }
}

}  // namespace zav
