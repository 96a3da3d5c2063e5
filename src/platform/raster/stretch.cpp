// SPDX-License-Identifier: MIT
#include "platform/raster/stretch.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <vector>

#include "platform/raster/axis_map.h"
#include "platform/raster/copy.h"
#include "platform/raster/pixel.h"
#include "platform/raster/row_convert.h"
#include "platform/raster/stretch_kernels.h"

namespace zav {

namespace {

constexpr size_t Channels = 4;

size_t BytesOf(TPixelFormat Format, int32_t Pixels) {
  return static_cast<size_t>(Pixels) * static_cast<size_t>(BytesPerPixel(Format));
}

// The part of the target to draw, row by row from 32-bit pixels.
class TTargetRows {
 public:
  TTargetRows(TBitmap& Dest, const TAxisMap& X, const TAxisMap& Y)
      : FDest(Dest), FX(X), FY(Y), FPixels(static_cast<size_t>(X.Count())) {}

  uint8_t* At(int32_t I) const {
    return FDest.Row(FY.First() + I) + BytesOf(FDest.PixelFormat(), FX.First());
  }
  // Where to make the 32-bit pixels of row I; Finish brings them to the target.
  uint8_t* Start(int32_t I) {
    return FDest.PixelFormat() == TPixelFormat::pf32bit
               ? At(I)
               : reinterpret_cast<uint8_t*>(FPixels.data());
  }
  void Finish(int32_t I) {
    if (FDest.PixelFormat() == TPixelFormat::pf32bit) return;
    ConvertRow(FDest.PixelFormat(), At(I), TPixelFormat::pf32bit,
               reinterpret_cast<const uint8_t*>(FPixels.data()), FX.Count());
  }
  // Row I is the same as the one before.
  void Repeat(int32_t I) {
    std::memcpy(At(I), At(I - 1), BytesOf(FDest.PixelFormat(), FX.Count()));
  }

 private:
  TBitmap& FDest;
  const TAxisMap& FX;
  const TAxisMap& FY;
  std::vector<uint32_t> FPixels;
};

// The rows of a part of the source as 32-bit pixels. The last MostNarrow rows asked for stay valid.
class TSourceRows {
 public:
  TSourceRows(const TBitmap& Source, int32_t Left, int32_t Top, int32_t Width)
      : FSource(Source), FLeft(Left), FTop(Top), FWidth(Width) {
    if (Source.PixelFormat() == TPixelFormat::pf32bit) return;
    FPixels.resize(Slots * static_cast<size_t>(Width));
    FHeld.fill(-1);
  }

  const uint8_t* Row(int32_t Y) {
    const uint8_t* Pixels = FSource.Row(FTop + Y) + BytesOf(FSource.PixelFormat(), FLeft);
    if (FSource.PixelFormat() == TPixelFormat::pf32bit) return Pixels;
    const size_t Slot = static_cast<size_t>(Y) % Slots;
    uint8_t* Converted =
        reinterpret_cast<uint8_t*>(FPixels.data() + Slot * static_cast<size_t>(FWidth));
    if (FHeld[Slot] != Y) {
      ConvertRow(TPixelFormat::pf32bit, Converted, FSource.PixelFormat(), Pixels, FWidth);
      FHeld[Slot] = Y;
    }
    return Converted;
  }

 private:
  static constexpr size_t Slots = TTaps::MostNarrow;
  const TBitmap& FSource;
  int32_t FLeft, FTop, FWidth;
  std::vector<uint32_t> FPixels;
  std::array<int32_t, Slots> FHeld{};
};

// Both axes in turn. The one that makes fewer values of the costly pass along rows goes first,
// which depends on the scale alone, so that parts of a picture are computed like the whole.
class TSmoothStretch {
 public:
  TSmoothStretch(TBitmap& Dest, const TBitmap& Source, const TAxisMap& X, const TAxisMap& Y)
      : FX(X),
        FY(Y),
        FResampler(FX),
        FTarget(Dest, X, Y),
        FSource(Source, FX.FirstSource(), FY.FirstSource(), FX.SourceCount()),
        FSourceChannels(static_cast<size_t>(FX.SourceCount()) * Channels),
        FTargetChannels(FResampler.Count() * Channels),
        FWide(FSourceChannels + TRowResampler::Padding * Channels) {}

  // Sums source rows first, then resamples the sum along the row.
  void DownFirst() {
    std::vector<uint16_t> Row(FTargetChannels);
    for (size_t I = 0; I < FY.Runs().size(); ++I) {
      SumRun(FY.Runs()[I]);
      FResampler.Resample(Row.data(), FWide.data());
      PackRow(FTarget.Start(static_cast<int32_t>(I)), Row.data(), FTargetChannels);
      FTarget.Finish(static_cast<int32_t>(I));
    }
  }

  // Resamples each source row once, then blends neighbouring rows. For an enlarged vertical axis.
  void AlongFirst() {
    for (std::vector<uint16_t>& Row : FResampled) Row.resize(FTargetChannels);
    for (size_t I = 0; I < FY.Runs().size(); ++I) {
      const TTaps::TRun& Run = FY.Runs()[I];
      const uint16_t* Weights = FY.Weights(Run);
      const uint16_t* A = ResampledRow(Run.Source);
      const uint16_t* B = ResampledRow(Run.Source + Run.Count - 1);
      BlendRows(FTarget.Start(static_cast<int32_t>(I)), A, B, Weights[0],
                Run.Count > 1 ? Weights[1] : uint16_t{0}, FTargetChannels);
      FTarget.Finish(static_cast<int32_t>(I));
    }
  }

 private:
  void SumRun(const TTaps::TRun& Run) {
    const uint16_t* Weights = FY.Weights(Run);
    if (FY.Narrow()) {
      std::array<const uint8_t*, TTaps::MostNarrow> Rows{};
      for (int32_t J = 0; J < Run.Count; ++J) {
        Rows[static_cast<size_t>(J)] = FSource.Row(Run.Source + J);
      }
      SumRows(FWide.data(), Rows.data(), Weights, Run.Count, FSourceChannels);
      return;
    }
    FSums.assign(FSourceChannels, 0);
    for (int32_t J = 0; J < Run.Count; ++J) {
      AddRow(FSums.data(), FSource.Row(Run.Source + J), Weights[J], FSourceChannels);
    }
    DivideSums(FWide.data(), FSums.data(), Run.Total, FSourceChannels);
  }

  const uint16_t* ResampledRow(int32_t Y) {
    const size_t Slot = static_cast<size_t>(Y) % FResampled.size();
    if (FHeld[Slot] != Y) {
      WidenRow(FWide.data(), FSource.Row(Y), FSourceChannels);
      FResampler.Resample(FResampled[Slot].data(), FWide.data());
      FHeld[Slot] = Y;
    }
    return FResampled[Slot].data();
  }

  TTaps FX;
  TTaps FY;
  TRowResampler FResampler;
  TTargetRows FTarget;
  TSourceRows FSource;
  size_t FSourceChannels;
  size_t FTargetChannels;
  std::vector<uint16_t> FWide;
  std::vector<uint64_t> FSums;
  std::array<std::vector<uint16_t>, 2> FResampled;
  std::array<int32_t, 2> FHeld{-1, -1};
};

void StretchHalf(TBitmap& Dest, const TBitmap& Source, const TAxisMap& X, const TAxisMap& Y) {
  TTargetRows Target(Dest, X, Y);
  TSourceRows Rows(Source, static_cast<int32_t>(X.Begin(0)), static_cast<int32_t>(Y.Begin(0)),
                   2 * X.Count());
  for (int32_t I = 0; I < Y.Count(); ++I) {
    HalveRows(reinterpret_cast<uint32_t*>(Target.Start(I)),
              reinterpret_cast<const uint32_t*>(Rows.Row(2 * I)),
              reinterpret_cast<const uint32_t*>(Rows.Row(2 * I + 1)),
              static_cast<size_t>(X.Count()));
    Target.Finish(I);
  }
}

// Dest[I] = Source[Columns[I]], pixels of the same format.
void PickPixels(TPixelFormat Format, uint8_t* Dest, const uint8_t* Source,
                const std::vector<int32_t>& Columns) {
  WithPixelOf(Format, [&](auto Kind) {
    using TPixel = decltype(Kind);
    auto* To = reinterpret_cast<TPixel*>(Dest);
    const auto* From = reinterpret_cast<const TPixel*>(Source);
    for (const int32_t Column : Columns) *To++ = From[Column];
  });
}

// Brings each needed source row to the target's format and to its place, whichever of the two
// leaves the other fewer pixels first.
void StretchPlain(TBitmap& Dest, const TBitmap& Source, const TAxisMap& X, const TAxisMap& Y) {
  TTargetRows Target(Dest, X, Y);
  std::vector<int32_t> Columns(static_cast<size_t>(X.Count()));
  const int32_t Left = X.Nearest(0);
  for (int32_t I = 0; I < X.Count(); ++I) {
    Columns[static_cast<size_t>(I)] = X.Nearest(I) - Left;
  }
  const int32_t Width = Columns.back() + 1;
  const TPixelFormat To = Dest.PixelFormat();
  const TPixelFormat From = Source.PixelFormat();
  const bool Shrinks = Width > X.Count();
  std::vector<uint8_t> Row(Shrinks ? BytesOf(From, X.Count()) : BytesOf(To, Width));
  int32_t Held = -1;
  for (int32_t I = 0; I < Y.Count(); ++I) {
    const int32_t SourceY = Y.Nearest(I);
    if (SourceY == Held) {
      Target.Repeat(I);
      continue;
    }
    Held = SourceY;
    const uint8_t* SourceRow = Source.Row(SourceY) + BytesOf(From, Left);
    if (Shrinks) {
      PickPixels(From, Row.data(), SourceRow, Columns);
      ConvertRow(To, Target.At(I), From, Row.data(), X.Count());
    } else {
      ConvertRow(To, Row.data(), From, SourceRow, Width);
      PickPixels(To, Target.At(I), Row.data(), Columns);
    }
  }
}

// Whole pixels onto whole pixels need no stretching, in either mode.
void CopyUnscaled(TBitmap& Dest, const TBitmap& Source, const TAxisMap& X, const TAxisMap& Y) {
  const int32_t Left = static_cast<int32_t>(X.Begin(0));
  const int32_t Top = static_cast<int32_t>(Y.Begin(0));
  CopyPixels(Dest, X.First(), Y.First(), Source, {Left, Top, Left + X.Count(), Top + Y.Count()});
}

}  // namespace

void Stretch(TBitmap& Dest, const TRect& DestRect, const TBitmap& Source,
             const TRectDouble& SourceRect, TStretchMode Mode) {
  if (&Dest == &Source) {
    Stretch(Dest, DestRect, TBitmap(Source), SourceRect, Mode);
    return;
  }
  const TAxisMap X(DestRect.Left, DestRect.Right, Dest.Width(), SourceRect.Left, SourceRect.Right,
                   Source.Width());
  const TAxisMap Y(DestRect.Top, DestRect.Bottom, Dest.Height(), SourceRect.Top, SourceRect.Bottom,
                   Source.Height());
  if (X.Count() == 0 || Y.Count() == 0) return;
  if (X.IsWhole(1) && Y.IsWhole(1)) {
    CopyUnscaled(Dest, Source, X, Y);
  } else if (Mode == TStretchMode::smColorOnColor) {
    StretchPlain(Dest, Source, X, Y);
  } else if (X.IsWhole(2) && Y.IsWhole(2)) {
    StretchHalf(Dest, Source, X, Y);
  } else if (Y.Scale() < 1) {
    TSmoothStretch(Dest, Source, X, Y).AlongFirst();
  } else {
    TSmoothStretch(Dest, Source, X, Y).DownFirst();
  }
}

}  // namespace zav
